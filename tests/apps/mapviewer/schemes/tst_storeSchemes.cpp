#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"

#include "apps/mapviewer/schemes/storeSchemes.h"
#include "apps/mapviewer/window/AppSettings.h"

#include "vomap/VOColorSchemeManager.h"
#include "vomap/VORandomColorRamp.h"

#include <QtTest>

#include <memory>

using namespace mapviewer;
using namespace VTObjects;

class tst_storeSchemes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { store = std::make_unique<TestStore>(); }
    void cleanup() { store.reset(); }

    void thePlaceOfAnIdIsThatOfItsNames();
    void aDeletedSchemeHasNoPlace();
    void amongEqualNamesTheRampDecides();
    void theKindOfRampCounts();
    void theFirstKnownNameIsPreferred();

private:
    std::unique_ptr<TestStore> store;
};

static VOColorSchemeManager *schemes()
{
    return VOColorSchemeManager::instance();
}

void tst_storeSchemes::thePlaceOfAnIdIsThatOfItsNames()
{
    const VOColorSchemeId id{"Custom", "B", "y"};
    schemes()->customTeam.groups = {makeGroup("B", {"x", "y"})};
    QCOMPARE(placeOf(id, {}).group, 0);
    QCOMPARE(placeOf(id, {}).scheme, 1);
    schemes()->customTeam.groups = {makeGroup("A", {"y"}), makeGroup("B", {"w", "x", "y"})};
    QCOMPARE(placeOf(id, {}).group, 1);
    QCOMPARE(placeOf(id, {}).scheme, 2);
}

void tst_storeSchemes::aDeletedSchemeHasNoPlace()
{
    schemes()->customTeam.groups = {makeGroup("B", {"x"})};
    QVERIFY(placeOf({"Custom", "B", "y"}, {}).isNull());
    QVERIFY(placeOf({"Custom", "A", "x"}, {}).isNull());
    QVERIFY(placeOf({"Favorite", "B", "x"}, {}).isNull());
    QVERIFY(placeOf({}, {}).isNull());
}

void tst_storeSchemes::amongEqualNamesTheRampDecides()
{
    VOColorSchemeGroup group = makeGroup("B", {"x", "x", "x"});
    group.schemes[2].colorRamp->setColor(0, rgb_color<float>(1.0F, 2.0F, 3.0F));
    schemes()->customTeam.groups = {group};
    QCOMPARE(placeOf({"Custom", "B", "x"}, group.schemes[2]).scheme, 2);
    QCOMPARE(placeOf({"Custom", "B", "x"}, group.schemes[1]).scheme, 0);
    // Edited since: the first of the name.
    group.schemes[2].colorRamp->setColor(0, rgb_color<float>(9.0F, 9.0F, 9.0F));
    QCOMPARE(placeOf({"Custom", "B", "x"}, group.schemes[2]).scheme, 0);
}

void tst_storeSchemes::theKindOfRampCounts()
{
    schemes()->customTeam.groups = {makeGroup("B", {"x", "x"})};
    VOColorScheme &second = schemes()->customTeam.groups[0].schemes[1];
    auto same = std::make_unique<VORandomColorRamp>();
    for (unsigned int i = 0; i < second.colorRamp->getLevel(); ++i)
        same->addColor(second.colorRamp->getColor(i));
    delete second.colorRamp;
    second.colorRamp = same.release();
    QCOMPARE(placeOf({"Custom", "B", "x"}, second).scheme, 1);
}

void tst_storeSchemes::theFirstKnownNameIsPreferred()
{
    schemes()->defaultTeam.groups = {makeGroup("DEM", {"x", "y", "z"}), makeGroup("Even", {})};
    QCOMPARE(builtInScheme("DEM", {"absent", "z", "y"}).scheme, VOString("z"));
    QCOMPARE(builtInScheme("DEM", {"absent"}).scheme, VOString("x"));
    QVERIFY(builtInScheme("Even", {"x"}).isNull());
    QVERIFY(builtInScheme("Graph", {"x"}).isNull());
}

VT_TEST_GUILESS_MAIN(tst_storeSchemes)
#include "tst_storeSchemes.moc"
