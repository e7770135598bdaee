#include "tests/support/SchemeFaults.h"
#include "tests/support/TestMain.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"
#include "vomap/VOStringConversion.h"
#include "vomap/files/schemeText_p.h"
#include "vomap/store/builtInSchemes_p.h"

#include <QtTest>

#include <functional>

using namespace VTObjects;

namespace {

using Damage = std::function<void(VOColorScheme &)>;

VOColorScheme evenScheme(const wchar_t *name)
{
    auto *ramp = new VOEvenColorRamp;
    rgb_color<float> sources[] = {{0, 0, 0}, {255, 255, 255}};
    ramp->setSourceColor(2, sources);
    ramp->split(3);
    VOColorScheme scheme;
    scheme.name = name;
    scheme.author = L"A";
    scheme.describe = L"D";
    scheme.colorRamp = ramp;
    return scheme;
}

VOColorScheme boundedScheme()
{
    auto *ramp = new VORandomColorRampForHsv;
    ramp->paramsChanged = true;
    ramp->minH = 20;
    ramp->maxH = 50;
    ramp->split(4);
    VOColorScheme scheme = evenScheme(L"Bounded");
    delete std::exchange(scheme.colorRamp, ramp);
    return scheme;
}

VORandomColorRampForHsv &bounds(VOColorScheme &scheme)
{
    return dynamic_cast<VORandomColorRampForHsv &>(*scheme.colorRamp);
}

bool write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

std::string textOf(const VOColorScheme &scheme)
{
    std::string text;
    return writeSchemeText(scheme, text) ? text : std::string();
}

} // namespace

Q_DECLARE_METATYPE(Damage)

class tst_builtInGroup : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void anExportedSchemeBecomesABuiltInOneByCopying();
    void aFileThatIsNoSchemeIsLeftOut();
    void theFirstMissingNumberEndsTheGroup();
    void whatABuiltInSchemeMayNotHoldIsFound_data();
    void whatABuiltInSchemeMayNotHoldIsFound();
};

void tst_builtInGroup::anExportedSchemeBecomesABuiltInOneByCopying()
{
    // Given two schemes that somebody made and exported
    const QTemporaryDir exported;
    VOColorScheme mine = evenScheme(L"Mine");
    mine.describe = L"Of \u20ac, \"quotes\" and \\";
    const VOColorScheme bounded = boundedScheme();
    const QString paths[] = {exported.filePath(QStringLiteral("Mine.vcs")),
                             exported.filePath(QStringLiteral("Bounded.vcs"))};
    QVERIFY(VOColorSchemeManager::saveFile(mine, toVOString(paths[0])));
    QVERIFY(VOColorSchemeManager::saveFile(bounded, toVOString(paths[1])));
    // When the files are put into a group as they are
    const QTemporaryDir folder;
    QVERIFY(QFile::copy(paths[0], folder.filePath(QStringLiteral("0"))));
    QVERIFY(QFile::copy(paths[1], folder.filePath(QStringLiteral("1"))));
    // Then the group holds the same schemes, in the order of the numbers
    const VOColorSchemeGroup group = builtInGroup(folder.path());
    QCOMPARE(group.schemes.size(), size_t(2));
    QCOMPARE(textOf(group.schemes[0]), textOf(mine));
    QCOMPARE(textOf(group.schemes[1]), textOf(bounded));
    QVERIFY(!textOf(mine).empty());
}

void tst_builtInGroup::aFileThatIsNoSchemeIsLeftOut()
{
    const QTemporaryDir folder;
    const QByteArray text = QByteArray::fromStdString(textOf(evenScheme(L"Good")));
    QByteArray damaged = text;
    damaged.replace("\"kind\"", "\"kin\"");
    QVERIFY(damaged != text);
    QVERIFY(write(folder.filePath(QStringLiteral("0")), damaged));
    QVERIFY(write(folder.filePath(QStringLiteral("1")), text));
    const VOColorSchemeGroup group = builtInGroup(folder.path());
    QCOMPARE(group.schemes.size(), size_t(1));
    QCOMPARE(toQString(group.schemes[0].name), QStringLiteral("Good"));
}

void tst_builtInGroup::theFirstMissingNumberEndsTheGroup()
{
    const QTemporaryDir folder;
    const QByteArray text = QByteArray::fromStdString(textOf(evenScheme(L"Good")));
    QVERIFY(write(folder.filePath(QStringLiteral("0")), text));
    QVERIFY(write(folder.filePath(QStringLiteral("2")), text));
    QCOMPARE(builtInGroup(folder.path()).schemes.size(), size_t(1));
}

void tst_builtInGroup::whatABuiltInSchemeMayNotHoldIsFound_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<Damage>("damage");
    const auto row = [](const char *name, const char *fault, const Damage &damage) {
        QTest::newRow(name) << QString::fromLatin1(fault) << damage;
    };
    row("no name", "an empty text", [](auto &s) { s.name = L""; });
    row("no author", "an empty text", [](auto &s) { s.author = L""; });
    row("no description", "an empty text", [](auto &s) { s.describe = L""; });
    row("one color", "too few or too many colors", [](auto &s) { s.colorRamp->split(1); });
    row("257 colors", "too few or too many colors", [](auto &s) { s.colorRamp->split(257); });
    row("half a color", "a color with a fraction", [](auto &s) {
        s.colorRamp->setColor(1, {0.5F, 0, 0});
    });
    row("one source", "too few source colors", [](auto &s) {
        rgb_color<float> one(1, 2, 3);
        s = evenScheme(L"Even");
        dynamic_cast<VOEvenColorRamp &>(*s.colorRamp).setSourceColor(1, &one);
    });
    row("half a source", "a source color with a fraction", [](auto &s) {
        rgb_color<float> sources[] = {{0, 0, 0.5F}, {255, 255, 255}};
        s = evenScheme(L"Even");
        dynamic_cast<VOEvenColorRamp &>(*s.colorRamp).setSourceColor(2, sources);
    });
    row("seed -1", "a seed out of range", [](auto &s) { bounds(s).setSeed(-1); });
    row("seed 100001", "a seed out of range", [](auto &s) { bounds(s).setSeed(100001); });
    row("hue 330 to 390", "bounds out of range or order", [](auto &s) {
        bounds(s).minH = 330;
        bounds(s).maxH = 390;
    });
    row("hue backwards", "bounds out of range or order", [](auto &s) { bounds(s).minH = 60; });
    row("saturation 101", "bounds out of range or order", [](auto &s) { bounds(s).maxS = 101; });
    row("value below 0", "bounds out of range or order", [](auto &s) { bounds(s).minV = -1; });
    row("value backwards", "bounds out of range or order", [](auto &s) {
        bounds(s).minV = 60;
        bounds(s).maxV = 50;
    });
    row("first bounds", "bounds that nobody chose",
        [](auto &s) { bounds(s).paramsChanged = false; });
    row("a color of another seed", "other colors than its parameters give",
        [](auto &s) { bounds(s).setSeed(9); });
    row("a color painted over", "other colors than its parameters give", [](auto &s) {
        s = evenScheme(L"Even");
        s.colorRamp->setColor(1, {1, 2, 3});
    });
    row("no ramp", "no ramp", [](auto &s) { delete std::exchange(s.colorRamp, nullptr); });
}

void tst_builtInGroup::whatABuiltInSchemeMayNotHoldIsFound()
{
    QFETCH(QString, fault);
    QFETCH(Damage, damage);
    VOColorScheme scheme = boundedScheme();
    QCOMPARE(faultOf(scheme), QString());
    QCOMPARE(faultOf(evenScheme(L"Even")), QString());
    damage(scheme);
    QCOMPARE(faultOf(scheme), fault);
}

VT_TEST_GUILESS_MAIN(tst_builtInGroup)
#include "tst_builtInGroup.moc"
