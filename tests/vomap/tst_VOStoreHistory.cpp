#include "tests/support/StoreFixture.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStoreHistory.h"
#include "vomap/VOTeamKind.h"

#include <QObject>
#include <QtTest>

#include <memory>

using namespace VTObjects;

// Earlier states of the store come back, and tell what differs.
class tst_VOStoreHistory : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aTeamComesBack();
    void aRestoredTeamKeepsTheGroupsOfTheHost();
    void aRestoringCanBeTakenBack();
    void aGroupComesBackInItsPlace();
    void aDeletedGroupComesBackBehindTheOthers();
    void aSchemeComesBackInItsPlace();
    void aDeletedSchemeBringsItsGroupBack();
    void whatTheStateDoesNotHaveIsNotRestored();
    void differencesAreToldByName();
    void namesThatOccurTwiceAreToldApart();
    void equalTeamsDoNotDiffer();

private:
    VOStoreHistory history() const { return VOStoreHistory(*VOColorSchemeManager::instance()); }
    // The custom team as it was saved before the last save.
    VOSavedState previous() const { return history().states(CustomTeam).at(0); }
    // A custom team of one group with these schemes, saved.
    void saveSchemes(const QStringList &names);

    std::unique_ptr<StoreFixture> store;
};

namespace {

VOColorSchemeManager &manager()
{
    return *VOColorSchemeManager::instance();
}

VOColorSchemeTeam &custom()
{
    return manager().customTeam;
}

QStringList texts(const std::vector<VOColorSchemeId> &ids)
{
    QStringList list;
    for (const VOColorSchemeId &id : ids)
        list << id.toText();
    return list;
}

} // namespace

void tst_VOStoreHistory::init()
{
    store = std::make_unique<StoreFixture>(StoreFixture::InMemory);
    manager().load();
    manager().defaultTeam.groups.resize(1);
}

void tst_VOStoreHistory::cleanup()
{
    store.reset();
}

void tst_VOStoreHistory::saveSchemes(const QStringList &names)
{
    custom().groups = {makeGroup("Mine", names)};
    QVERIFY(manager().saveCustomTeam());
}

void tst_VOStoreHistory::aTeamComesBack()
{
    saveSchemes({"a", "b"});
    const VOColorSchemeTeam before = custom();
    custom().groups.clear();
    QVERIFY(manager().saveCustomTeam());
    QVERIFY(history().restoreTeam(previous()));
    QVERIFY(teamDifference(before, custom()).isEmpty());
    QVERIFY(custom().name == before.name);
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    QVERIFY(teamDifference(before, custom()).isEmpty());
}

void tst_VOStoreHistory::aRestoredTeamKeepsTheGroupsOfTheHost()
{
    QVERIFY(manager().save());
    manager().defaultTeam.groups[0].schemes.clear();
    QVERIFY(manager().save());
    QVERIFY(manager().addHostGroup(makeGroup("Geology", {"strata"}), "For geology"));
    QVERIFY(history().restoreTeam(history().states(DefaultTeam).at(0)));
    QVERIFY(!manager().defaultTeam.groups[0].schemes.empty());
    QVERIFY(manager().defaultTeam.contains(VOString(L"Geology")));
}

void tst_VOStoreHistory::aRestoringCanBeTakenBack()
{
    saveSchemes({"a"});
    saveSchemes({"b"});
    QVERIFY(history().restoreTeam(previous()));
    QVERIFY(manager().saveCustomTeam());
    VOColorSchemeTeam replaced;
    QVERIFY(history().read(previous(), replaced));
    QCOMPARE(schemeNames(replaced.groups.at(0)), QStringList("b"));
}

void tst_VOStoreHistory::aGroupComesBackInItsPlace()
{
    custom().groups = {makeGroup("A", {"a"}), makeGroup("B", {"b"}), makeGroup("C", {"c"})};
    QVERIFY(manager().saveCustomTeam());
    custom().groups[1].schemes.clear();
    custom().groups[2].schemes[0].author = VOString(L"new");
    QVERIFY(manager().saveCustomTeam());
    QVERIFY(history().restoreGroup(previous(), VOString(L"B")));
    QCOMPARE(int(custom().groups.size()), 3);
    QVERIFY(custom().groups[1].name == L"B");
    QCOMPARE(schemeNames(custom().groups[1]), QStringList("b"));
    QVERIFY(custom().groups[2].schemes[0].author == L"new");
}

void tst_VOStoreHistory::aDeletedGroupComesBackBehindTheOthers()
{
    custom().groups = {makeGroup("A", {"a"}), makeGroup("B", {"b"})};
    QVERIFY(manager().saveCustomTeam());
    custom().groups.erase(custom().groups.begin());
    QVERIFY(manager().saveCustomTeam());
    QVERIFY(history().restoreGroup(previous(), VOString(L"A")));
    QCOMPARE(int(custom().groups.size()), 2);
    QVERIFY(custom().groups[1].name == L"A");
    QCOMPARE(schemeNames(custom().groups[1]), QStringList("a"));
}

void tst_VOStoreHistory::aSchemeComesBackInItsPlace()
{
    saveSchemes({"a", "b", "c"});
    custom().groups[0].schemes[1].describe = VOString(L"changed");
    custom().groups[0].schemes[2].describe = VOString(L"changed too");
    QVERIFY(manager().saveCustomTeam());
    QVERIFY(history().restoreScheme(previous(), VOString(L"Mine"), VOString(L"b")));
    QCOMPARE(schemeNames(custom().groups[0]), QStringList({"a", "b", "c"}));
    QVERIFY(custom().groups[0].schemes[1].describe != L"changed");
    QVERIFY(custom().groups[0].schemes[1].colorRamp != nullptr);
    QVERIFY(custom().groups[0].schemes[2].describe == L"changed too");
}

void tst_VOStoreHistory::aDeletedSchemeBringsItsGroupBack()
{
    saveSchemes({"a", "b"});
    custom().groups.clear();
    QVERIFY(manager().saveCustomTeam());
    QVERIFY(history().restoreScheme(previous(), VOString(L"Mine"), VOString(L"b")));
    QCOMPARE(int(custom().groups.size()), 1);
    QVERIFY(custom().groups[0].name == L"Mine");
    QCOMPARE(schemeNames(custom().groups[0]), QStringList("b"));
}

void tst_VOStoreHistory::whatTheStateDoesNotHaveIsNotRestored()
{
    saveSchemes({"a"});
    saveSchemes({"b"});
    const VOSavedState state = previous();
    QVERIFY(!history().restoreGroup(state, VOString(L"Other")));
    QVERIFY(!history().restoreScheme(state, VOString(L"Other"), VOString(L"a")));
    QVERIFY(!history().restoreScheme(state, VOString(L"Mine"), VOString(L"b")));
    QCOMPARE(int(custom().groups.size()), 1);
    QCOMPARE(schemeNames(custom().groups[0]), QStringList("b"));
}

void tst_VOStoreHistory::differencesAreToldByName()
{
    VOColorSchemeTeam before;
    before.name = VOString(L"Custom");
    before.groups = {makeGroup("A", {"kept", "gone", "changed"}), makeGroup("Lost", {"x"})};
    VOColorSchemeTeam after = before;
    after.groups[0].schemes[2].author = VOString(L"somebody");
    after.groups[0].schemes.erase(after.groups[0].schemes.begin() + 1);
    after.groups[0].schemes.push_back(makeScheme("new"));
    after.groups[1] = makeGroup("Found", {"y"});
    const VOTeamDifference difference = teamDifference(before, after);
    QCOMPARE(texts(difference.added), QStringList({"Custom/A/new", "Custom/Found/y"}));
    QCOMPARE(texts(difference.removed), QStringList({"Custom/A/gone", "Custom/Lost/x"}));
    QCOMPARE(texts(difference.changed), QStringList({"Custom/A/changed"}));
    QVERIFY(!difference.isEmpty());
}

void tst_VOStoreHistory::namesThatOccurTwiceAreToldApart()
{
    VOColorSchemeTeam before;
    before.name = VOString(L"Custom");
    before.groups = {makeGroup("A", {"twin", "twin"})};
    VOColorSchemeTeam after = before;
    after.groups[0].schemes.pop_back();
    QCOMPARE(texts(teamDifference(before, after).removed), QStringList({"Custom/A/twin"}));
    QCOMPARE(texts(teamDifference(after, before).added), QStringList({"Custom/A/twin"}));
    QVERIFY(teamDifference(before, after).changed.empty());
}

void tst_VOStoreHistory::equalTeamsDoNotDiffer()
{
    QVERIFY(teamDifference(manager().defaultTeam, manager().defaultTeam).isEmpty());
    QVERIFY(teamDifference(VOColorSchemeTeam(), VOColorSchemeTeam()).isEmpty());
}

VT_TEST_GUILESS_MAIN(tst_VOStoreHistory)
#include "tst_VOStoreHistory.moc"
