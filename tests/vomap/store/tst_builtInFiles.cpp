#include "tests/support/SchemeFaults.h"
#include "tests/support/SchemeFigures.h"
#include "tests/support/TestMain.h"
#include "tests/support/toString.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vomap/safeFileName.h"
#include "vomap/store/builtInSchemes_p.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QtTest>

#include <cstdio>

using namespace SchemeFigures;
using namespace VTObjects;

namespace {

QByteArray fileContents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/// The files of the built-in schemes. tst_builtInSchemes tests what they say of themselves.
class tst_builtInFiles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void sixGroupsHoldMoreThanTwoHundredSchemes();
    void theStoreStartsWithThem();
    void everyFileIsEmbeddedAndRead();
    void anExportedBuiltInSchemeIsItsFile();
    void noneHasWhatAReaderLetsPass();
    void namesAreUniqueAndFitForFiles();
    void storedColorsAreThoseOfTheirParameters();

private:
    VOColorSchemeTeam team;
};

void tst_builtInFiles::initTestCase()
{
    team = readBuiltInTeam();
}

void tst_builtInFiles::sixGroupsHoldMoreThanTwoHundredSchemes()
{
    const QStringList wanted{QStringLiteral("DEM"),   QStringLiteral("Unique"),
                             QStringLiteral("Range"), QStringLiteral("Graph"),
                             QStringLiteral("Even"),  QStringLiteral("Random")};
    QCOMPARE(toQString(team.name), QStringLiteral("Default"));
    QStringList names;
    size_t count = 0;
    for (const VOColorSchemeGroup &group : team.groups) {
        names << toQString(group.name);
        count += group.schemes.size();
        QVERIFY2(group.schemes.size() >= 20, qPrintable(names.last()));
    }
    QCOMPARE(names, wanted);
    QVERIFY2(count >= 200, qPrintable(QString::number(count)));
}

void tst_builtInFiles::theStoreStartsWithThem()
{
    QTemporaryDir folder;
    VOColorSchemeManager::setStoreDirectory(toVOString(folder.path()));
    const VOColorSchemeManager *store = VOColorSchemeManager::instance();
    QCOMPARE(store->defaultTeam.groups.size(), team.groups.size());
    for (size_t i = 0; i < team.groups.size(); ++i) {
        const VOColorSchemeGroup &builtIn = team.groups[i];
        const VOColorSchemeGroup &stored = store->defaultTeam.groups[i];
        QCOMPARE(stored.schemes.size(), builtIn.schemes.size());
        QCOMPARE(stored.schemes.front().name, builtIn.schemes.front().name);
    }
}

void tst_builtInFiles::everyFileIsEmbeddedAndRead()
{
    const QDir sources(QFINDTESTDATA("../../../vomap/schemes"));
    const QDir embedded(QStringLiteral(":/vtcontrolcolorscheme/schemes"));
    QStringList folders;
    for (const VOColorSchemeGroup &group : team.groups) {
        const QString name = toQString(group.name);
        folders << name;
        QStringList expected;
        QStringList files;
        for (const VOColorScheme &scheme : group.schemes)
            expected << toQString(scheme.name) + QStringLiteral(".vcs");
        for (const QString &file : QDir(sources.filePath(name)).entryList(QDir::Files))
            files << file;
        expected.sort();
        files.sort();
        QCOMPARE(files, expected);
        QCOMPARE(QDir(embedded.filePath(name)).entryList().size(), expected.size());
    }
    folders.sort();
    QCOMPARE(sources.entryList(QDir::Dirs | QDir::NoDotAndDotDot), folders);
    QCOMPARE(embedded.entryList(QDir::NoFilter, QDir::Name), folders);
}

void tst_builtInFiles::anExportedBuiltInSchemeIsItsFile()
{
    const QDir sources(QFINDTESTDATA("../../../vomap/schemes"));
    const QTemporaryDir folder;
    for (const VOColorSchemeGroup &group : team.groups) {
        for (size_t i = 0; i < group.schemes.size(); ++i) {
            const VOColorScheme &scheme = group.schemes[i];
            const QString name = toQString(safeFileName(scheme.name)) + QStringLiteral(".vcs");
            const QString path = folder.filePath(name);
            QVERIFY(VOColorSchemeManager::saveFile(scheme, toVOString(path)));
            const QByteArray exported = fileContents(path);
            QVERIFY(!exported.isEmpty());
            QCOMPARE(exported, fileContents(sources.filePath(toQString(group.name) + '/' + name)));
            QCOMPARE(exported, fileContents(QStringLiteral(":/vtcontrolcolorscheme/schemes/%1/%2")
                                                .arg(toQString(group.name))
                                                .arg(i)));
        }
    }
}

void tst_builtInFiles::noneHasWhatAReaderLetsPass()
{
    for (const VOColorSchemeGroup &group : team.groups) {
        for (const VOColorScheme &scheme : group.schemes) {
            const QString fault = faultOf(scheme);
            QVERIFY2(fault.isEmpty(),
                     qPrintable(toQString(scheme.name) + QStringLiteral(": ") + fault));
        }
    }
}

void tst_builtInFiles::namesAreUniqueAndFitForFiles()
{
    // Unique in the whole team: two groups may be copied into one.
    QSet<QString> seen;
    for (const VOColorSchemeGroup &group : team.groups) {
        for (const VOColorScheme &scheme : group.schemes) {
            const QString name = toQString(scheme.name);
            QVERIFY2(!seen.contains(name), qPrintable(name));
            seen.insert(name);
            static const QRegularExpression plain(QStringLiteral("^[A-Za-z][A-Za-z0-9, -]{1,39}$"));
            QVERIFY2(plain.match(name).hasMatch(), qPrintable(name));
            QVERIFY2(!toQString(scheme.author).isEmpty(), qPrintable(name));
        }
    }
}

void tst_builtInFiles::storedColorsAreThoseOfTheirParameters()
{
    for (const VOColorSchemeGroup &group : team.groups) {
        for (const VOColorScheme &scheme : group.schemes) {
            const auto row = [&scheme](const Colors &colors) {
                QStringList words{toQString(scheme.name)};
                for (const ColorJudge::Triple &color : colors)
                    words << QString::asprintf("#%02x%02x%02x", int(color[0]), int(color[1]),
                                               int(color[2]));
                return words.join(QLatin1Char('|'));
            };
            const int length = static_cast<int>(scheme.colorRamp->getLevel());
            const QString generated = row(colorsAt(scheme, length));
            std::puts(qPrintable(generated)); // for tools/make-schemes.py --colors
            if (row(colorsOf(scheme)) != generated)
                QTest::qFail(qPrintable(row(colorsOf(scheme))), __FILE__, __LINE__);
        }
    }
}

VT_TEST_GUILESS_MAIN(tst_builtInFiles)
#include "tst_builtInFiles.moc"
