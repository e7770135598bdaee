#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"

#include "apps/mapviewer/schemes/SchemeChoice.h"
#include "apps/mapviewer/window/AppSettings.h"

#include "vomap/VOColorSchemeManager.h"
#include "vomap/VORandomColorRamp.h"

#include <QtTest>

#include <memory>

using namespace mapviewer;
using namespace VTObjects;

class tst_SchemeChoice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { store = std::make_unique<TestStore>(); }
    void cleanup() { store.reset(); }

    void aSchemeIsFoundByItsRamp();
    void theKindOfRampCounts();
    void builtInSchemesComeFirst();
    void anUnknownRampIsNotFound();
    void namesSurviveOtherPositions();
    void aDeletedSchemeHasNoIndex();
    void settingsKeepAChoice();
    void incompleteSettingsAreNoChoice();
    void theFirstKnownNameIsPreferred();

private:
    std::unique_ptr<TestStore> store;
};

static VOColorSchemeManager *schemes()
{
    return VOColorSchemeManager::instance();
}

void tst_SchemeChoice::aSchemeIsFoundByItsRamp()
{
    VOColorSchemeGroup group = makeGroup("Mine", {"one", "two"});
    group.schemes[1].colorRamp->setColor(0, rgb_color<float>(1.0F, 2.0F, 3.0F));
    schemes()->customTeam.groups.push_back(group);
    const std::unique_ptr<VOColorRamp> ramp(group.schemes[1].colorRamp->clone());
    const auto choice = findScheme(ramp.get());
    QVERIFY(choice);
    QCOMPARE(choice->team, QString("Custom"));
    QCOMPARE(choice->group, QString("Mine"));
    QCOMPARE(choice->scheme, QString("two"));
    QCOMPARE(choice->schemeIndex(), 1);
}

void tst_SchemeChoice::theKindOfRampCounts()
{
    VOColorSchemeGroup group = makeGroup("Mine", {"one"});
    group.schemes[0].colorRamp->setColor(0, rgb_color<float>(1.0F, 2.0F, 3.0F));
    schemes()->customTeam.groups.push_back(group);
    VORandomColorRamp same;
    for (unsigned int i = 0; i < group.schemes[0].colorRamp->getLevel(); ++i)
        same.addColor(group.schemes[0].colorRamp->getColor(i));
    QVERIFY(!findScheme(&same));
}

void tst_SchemeChoice::builtInSchemesComeFirst()
{
    const VOColorSchemeGroup &builtIn = schemes()->defaultTeam.groups.front();
    schemes()->favoriteTeam.groups.push_back(builtIn);
    schemes()->customTeam.groups.push_back(builtIn);
    const auto choice = findScheme(builtIn.schemes.front().colorRamp);
    QVERIFY(choice);
    QCOMPARE(choice->team, QString("Default"));
}

void tst_SchemeChoice::anUnknownRampIsNotFound()
{
    VORandomColorRamp ramp;
    ramp.addColor(rgb_color<float>(1.0F, 2.0F, 3.0F));
    QVERIFY(!findScheme(&ramp));
    QVERIFY(!findScheme(nullptr));
}

void tst_SchemeChoice::namesSurviveOtherPositions()
{
    schemes()->customTeam.groups = {makeGroup("B", {"x", "y"})};
    const SchemeChoice choice{"Custom", "B", "y"};
    QCOMPARE(choice.schemeIndex(), 1);
    schemes()->customTeam.groups = {makeGroup("A", {"y"}), makeGroup("B", {"w", "x", "y"})};
    QCOMPARE(choice.schemeIndex(), 2);
}

void tst_SchemeChoice::aDeletedSchemeHasNoIndex()
{
    schemes()->customTeam.groups = {makeGroup("B", {"x"})};
    QCOMPARE((SchemeChoice{"Custom", "B", "y"}).schemeIndex(), -1);
    QCOMPARE((SchemeChoice{"Custom", "A", "x"}).schemeIndex(), -1);
    QCOMPARE((SchemeChoice{"Favorite", "B", "x"}).schemeIndex(), -1);
}

void tst_SchemeChoice::settingsKeepAChoice()
{
    {
        QSettings settings = appSettings();
        SchemeChoice{"Custom", "a, b/c", QString::fromUtf8("größe")}.write(&settings, "k");
    }
    const QSettings settings = appSettings();
    const auto choice = SchemeChoice::read(settings, "k");
    QVERIFY(choice);
    QCOMPARE(choice->team, QString("Custom"));
    QCOMPARE(choice->group, QString("a, b/c"));
    QCOMPARE(choice->scheme, QString::fromUtf8("größe"));
}

void tst_SchemeChoice::incompleteSettingsAreNoChoice()
{
    QSettings settings = appSettings();
    settings.setValue("two", QStringList({"a", "b"}));
    QVERIFY(!SchemeChoice::read(settings, "two"));
    QVERIFY(!SchemeChoice::read(settings, "absent"));
}

void tst_SchemeChoice::theFirstKnownNameIsPreferred()
{
    schemes()->defaultTeam.groups = {makeGroup("DEM", {"x", "y", "z"}), makeGroup("Even", {})};
    QCOMPARE(builtInScheme("DEM", {"absent", "z", "y"})->scheme, QString("z"));
    QCOMPARE(builtInScheme("DEM", {"absent"})->scheme, QString("x"));
    QVERIFY(!builtInScheme("Even", {"x"}));
    QVERIFY(!builtInScheme("Graph", {"x"}));
}

VT_TEST_GUILESS_MAIN(tst_SchemeChoice)
#include "tst_SchemeChoice.moc"
