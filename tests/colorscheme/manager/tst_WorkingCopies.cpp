#include "colorscheme/manager/WorkingCopies_p.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QtTest>

using vtcontrolcolorscheme::GroupPlace;
using vtcontrolcolorscheme::WorkingCopies;
using namespace VTObjects;

/// No window is opened here: what the manager's commands do to its copies.
class tst_WorkingCopies : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void theyAreCopiesOfTheStoreAsItWas();
    void changesReachTheStoreWithSavingOnly();
    void aFailedSaveIsAnswered();
    void theFlagIsSharedAndGoesWithTheCopies();
    void onlyKnownBuiltInGroupsAreShownInTheirOrder();
    void aPlaceOutsideIsNoGroup_data();
    void aPlaceOutsideIsNoGroup();
    void aNodeIsFoundByItsRowAndABuiltInGroupByItsName();
    void theFirstOfEqualGroupNamesIsTheCustomPlace();
    void addedGroupsAreEmptyAndLast();
    void removingShiftsThePlacesBehind_data();
    void removingShiftsThePlacesBehind();
    void removingNothingChangesNothing();
    void freeNamesStay();
    void clashingCopiesAreNumberedOneByOneInABuiltInGroup();
    void clashingCopiesShareTheNameOfTheBuiltInGroupBesideThemInAnOwnGroup();
    void withoutABuiltInGroupBesideThemCopiesAreNumberedFromOne();
    void appendingKeepsTheOrder();
    void favoritesMirrorTheNameOfTheirSource_data();
    void favoritesMirrorTheNameOfTheirSource();
    void favoritesAreMadeOnlyOnce();
    void whatIsWrittenReplacesTheGroup();

private:
    QStringList names(GroupPlace place) const { return schemeNames(*copies->group(place)); }
    QStringList groupNames(int team) const;

    std::unique_ptr<TestStore> testStore;
    std::unique_ptr<WorkingCopies> copies;
};

void tst_WorkingCopies::init()
{
    testStore = std::make_unique<TestStore>();
    VOColorSchemeManager *store = VOColorSchemeManager::instance();
    store->defaultTeam.groups = {makeGroup("Unique", {"u1", "add_scheme4"}),
                                 makeGroup("Foreign", {}), makeGroup("DEM", {"d1", "d2"})};
    store->customTeam.groups = {makeGroup("Mine", {"m1", "m2"}), makeGroup("Same", {"s1"}),
                                makeGroup("Same", {"s2"}), makeGroup("Last", {"d1"})};
    store->favoriteTeam.groups = {makeGroup("Old", {"o1"})};
    copies = std::make_unique<WorkingCopies>();
}

void tst_WorkingCopies::cleanup()
{
    copies.reset();
    testStore.reset();
}

QStringList tst_WorkingCopies::groupNames(int team) const
{
    QStringList names;
    for (const VOColorSchemeGroup &group : copies->team(team)->groups)
        names << toQString(group.name);
    return names;
}

void tst_WorkingCopies::theyAreCopiesOfTheStoreAsItWas()
{
    VOColorSchemeManager::instance()->customTeam.groups.clear();
    QCOMPARE(groupNames(CustomTeam), (QStringList{"Mine", "Same", "Same", "Last"}));
    QCOMPARE(groupNames(DefaultTeam), (QStringList{"Unique", "Foreign", "DEM"}));
    QCOMPARE(groupNames(FavoriteTeam), QStringList{"Old"});
}

void tst_WorkingCopies::changesReachTheStoreWithSavingOnly()
{
    VOColorSchemeManager *store = VOColorSchemeManager::instance();
    copies->addCustomGroup("New");
    copies->append({DefaultTeam, 0}, {makeScheme("u2")});
    copies->removeGroup({FavoriteTeam, 0});
    QVERIFY(!store->customTeam.contains("New"));
    QVERIFY(copies->save());
    QVERIFY(store->customTeam.contains("New"));
    QVERIFY(store->defaultTeam.groups[0].contains("u2"));
    QVERIFY(store->favoriteTeam.groups.empty());
    // And the disk has it.
    store->customTeam.groups.clear();
    QVERIFY(store->load());
    QVERIFY(store->customTeam.contains("New"));
}

void tst_WorkingCopies::aFailedSaveIsAnswered()
{
    // A file where the folder should be.
    const QString blocked = testStore->path("blocked");
    QFile file(blocked);
    QVERIFY(file.open(QIODevice::WriteOnly));
    VOColorSchemeManager::setStoreDirectory(toVOString(blocked + "/store"));
    QVERIFY(!copies->save());
}

void tst_WorkingCopies::theFlagIsSharedAndGoesWithTheCopies()
{
    QVERIFY(!WorkingCopies::isModified());
    WorkingCopies::markModified();
    QVERIFY(WorkingCopies::isModified());
    copies.reset();
    QVERIFY(!WorkingCopies::isModified());
}

void tst_WorkingCopies::onlyKnownBuiltInGroupsAreShownInTheirOrder()
{
    QStringList shown;
    for (const WorkingCopies::BuiltIn &group : copies->shownBuiltIns())
        shown << toQString(group.name) + "=" + group.caption;
    QCOMPARE(shown, (QStringList{"DEM=For DEM", "Unique=For unique"}));
}

void tst_WorkingCopies::aPlaceOutsideIsNoGroup_data()
{
    QTest::addColumn<int>("team");
    QTest::addColumn<int>("group");
    QTest::addColumn<bool>("exists");
    QTest::newRow("first") << 0 << 0 << true;
    QTest::newRow("last") << 1 << 3 << true;
    QTest::newRow("past the end") << 1 << 4 << false;
    QTest::newRow("none") << 1 << -1 << false;
    QTest::newRow("a group's number as a team") << 3 << 0 << false;
    QTest::newRow("no team") << -1 << 0 << false;
}

void tst_WorkingCopies::aPlaceOutsideIsNoGroup()
{
    QFETCH(int, team);
    QFETCH(int, group);
    QTEST(copies->group({team, group}) != nullptr, "exists");
    const VOColorSchemeGroup empty;
    copies->write({team, group}, empty); // harmless where there is none
    copies->append({team, group}, {});
    QTEST(copies->group({team, group}) != nullptr, "exists");
}

void tst_WorkingCopies::aNodeIsFoundByItsRowAndABuiltInGroupByItsName()
{
    QCOMPARE(copies->placeOf(CustomTeam, 2, "Same").groupIndex, 2);
    QCOMPARE(copies->placeOf(FavoriteTeam, 0, "Old").groupIndex, 0);
    QCOMPARE(copies->placeOf(DefaultTeam, 0, "DEM").groupIndex, 2);
    // Deliberate: what is not known means the first one.
    QCOMPARE(copies->placeOf(DefaultTeam, 7, "Foreign").groupIndex, 0);
    QCOMPARE(copies->placeOf(DefaultTeam, 7, "").groupIndex, 0);
}

void tst_WorkingCopies::theFirstOfEqualGroupNamesIsTheCustomPlace()
{
    QCOMPARE(copies->customPlace("Same").teamKind, int(CustomTeam));
    QCOMPARE(copies->customPlace("Same").groupIndex, 1);
    QCOMPARE(copies->customPlace("same").groupIndex, -1);
}

void tst_WorkingCopies::addedGroupsAreEmptyAndLast()
{
    copies->addCustomGroup("Same");
    QCOMPARE(groupNames(CustomTeam), (QStringList{"Mine", "Same", "Same", "Last", "Same"}));
    QVERIFY(names({CustomTeam, 4}).isEmpty());
}

void tst_WorkingCopies::removingShiftsThePlacesBehind_data()
{
    QTest::addColumn<int>("team");
    QTest::addColumn<int>("shown");
    QTest::addColumn<int>("after");
    QTest::newRow("before it") << 1 << 0 << 0;
    QTest::newRow("itself") << 1 << 1 << -1;
    QTest::newRow("behind it") << 1 << 2 << 1;
    QTest::newRow("nothing shown") << 1 << -1 << -1;
    QTest::newRow("of another team") << 0 << 2 << 2;
}

void tst_WorkingCopies::removingShiftsThePlacesBehind()
{
    QFETCH(int, team);
    QFETCH(int, shown);
    const GroupPlace removed{CustomTeam, 1};
    const GroupPlace place = WorkingCopies::placeAfterRemoval({team, shown}, removed);
    QCOMPARE(place.teamKind, team);
    QTEST(place.groupIndex, "after");
    copies->removeGroup(removed);
    QCOMPARE(groupNames(CustomTeam), (QStringList{"Mine", "Same", "Last"}));
    QCOMPARE(names({CustomTeam, 1}), QStringList{"s2"});
}

void tst_WorkingCopies::removingNothingChangesNothing()
{
    copies->removeGroup({CustomTeam, 4});
    copies->removeGroup({CustomTeam, -1});
    copies->removeGroup({3, 0});
    QCOMPARE(groupNames(CustomTeam).size(), 4);
}

void tst_WorkingCopies::freeNamesStay()
{
    const auto renamed = copies->renamedFor({DefaultTeam, 2}, {makeScheme("x"), makeScheme("D1")});
    VOColorSchemeGroup group;
    group.schemes = renamed;
    QCOMPARE(schemeNames(group), (QStringList{"x", "D1"}));
    QCOMPARE(names({DefaultTeam, 2}), (QStringList{"d1", "d2"})); // only told, not appended
}

void tst_WorkingCopies::clashingCopiesAreNumberedOneByOneInABuiltInGroup()
{
    VOColorSchemeGroup group;
    // The group holds add_scheme4 already; one of the copies brings a higher number itself.
    group.schemes =
        copies->renamedFor({DefaultTeam, 0}, {makeScheme("u1"), makeScheme("u1"),
                                              makeScheme("add_scheme9"), makeScheme("u1")});
    QCOMPARE(schemeNames(group),
             (QStringList{"add_scheme5", "add_scheme6", "add_scheme9", "add_scheme10"}));
}

void tst_WorkingCopies::clashingCopiesShareTheNameOfTheBuiltInGroupBesideThemInAnOwnGroup()
{
    VOColorSchemeGroup group;
    group.schemes = copies->renamedFor({CustomTeam, 0},
                                       {makeScheme("m1"), makeScheme("free"), makeScheme("m2")});
    QCOMPARE(schemeNames(group), (QStringList{"add_scheme5", "free", "add_scheme5"}));
}

void tst_WorkingCopies::withoutABuiltInGroupBesideThemCopiesAreNumberedFromOne()
{
    VOColorSchemeGroup group;
    group.schemes = copies->renamedFor({CustomTeam, 3}, {makeScheme("d1"), makeScheme("d1")});
    QCOMPARE(schemeNames(group), (QStringList{"add_scheme1", "add_scheme1"}));
}

void tst_WorkingCopies::appendingKeepsTheOrder()
{
    copies->append({CustomTeam, 1}, {makeScheme("b"), makeScheme("a")});
    QCOMPARE(names({CustomTeam, 1}), (QStringList{"s1", "b", "a"}));
    QCOMPARE(names({CustomTeam, 2}), QStringList{"s2"});
}

void tst_WorkingCopies::favoritesMirrorTheNameOfTheirSource_data()
{
    QTest::addColumn<int>("team");
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    QTest::newRow("built-in") << 0 << 2 << "DEM"
                              << "For DEM";
    // Deliberate: only the six known ones have a caption.
    QTest::newRow("foreign built-in") << 0 << 1 << "Foreign" << QString();
    QTest::newRow("own") << 1 << 0 << "Mine"
                         << "Mine";
    QTest::newRow("favorites") << 2 << 0 << QString() << QString();
}

void tst_WorkingCopies::favoritesMirrorTheNameOfTheirSource()
{
    QFETCH(int, team);
    QFETCH(int, group);
    const WorkingCopies::Favorites favorites = copies->favoritesOf({team, group});
    QVERIFY(favorites.isNew);
    QTEST(toQString(favorites.name), "name");
    QTEST(favorites.caption, "caption");
    QCOMPARE(favorites.place.teamKind, int(FavoriteTeam));
    QCOMPARE(favorites.place.groupIndex, 1);
    QTEST(groupNames(FavoriteTeam).at(1), "name");
    QVERIFY(names(favorites.place).isEmpty());
}

void tst_WorkingCopies::favoritesAreMadeOnlyOnce()
{
    copies->favoritesOf({CustomTeam, 0});
    const WorkingCopies::Favorites again = copies->favoritesOf({CustomTeam, 0});
    QVERIFY(!again.isNew);
    QCOMPARE(again.place.groupIndex, 1);
    QCOMPARE(groupNames(FavoriteTeam), (QStringList{"Old", "Mine"}));
}

void tst_WorkingCopies::whatIsWrittenReplacesTheGroup()
{
    copies->write({CustomTeam, 2}, makeGroup("Renamed", {"x"}));
    QCOMPARE(groupNames(CustomTeam), (QStringList{"Mine", "Same", "Renamed", "Last"}));
    QCOMPARE(names({CustomTeam, 2}), QStringList{"x"});
}

VT_TEST_MAIN(tst_WorkingCopies)
#include "tst_WorkingCopies.moc"
