#include "tests/support/ChildProcess.h"
#include "tests/support/StoreFixture.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/faultShim.h"
#include "tests/support/toString.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStoreHistory.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"

#include <QFile>
#include <QObject>
#include <QtTest>

#include <csignal>
#include <memory>

using namespace VTObjects;

// What saves replace can be seen and had back.
class tst_storeHistory : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aFirstSaveReplacesNothing();
    void everySaveKeepsTheTeamsThatItChanges();
    void aSaveThatChangesNothingKeepsNothing();
    void aStateTellsWhenItWasSaved();
    void statesOutliveTheProcessThatKeptThem();
    void theOldestStatesGoPastTheNumber();
    void theOldestStatesGoPastTheRoom();
    void aHistoryOfNoStatesIsNotBegun();
    void whatAnotherProcessSavedIsAStateToo();
    void aDamagedStateIsRefused();
    void strangeFilesAreLeftAlone();
    void aFolderThatCannotBeMadeFailsNoSave();
    void aKillBeforeEveryCallLeavesReadableStates();

private:
    VOStoreHistory history() const;
    // A custom team of one group with these schemes, saved.
    void saveSchemes(const QStringList &names);
    QStringList schemesOf(const VOSavedState &state) const;
    QString historyFile(const VOSavedState &state) const;

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

} // namespace

void tst_storeHistory::init()
{
    store = std::make_unique<StoreFixture>(StoreFixture::InMemory);
    manager().load();
    manager().defaultTeam.groups.resize(1);
    history().setLimits(20, 1 << 26);
}

void tst_storeHistory::cleanup()
{
    store.reset();
}

VOStoreHistory tst_storeHistory::history() const
{
    return VOStoreHistory(manager());
}

void tst_storeHistory::saveSchemes(const QStringList &names)
{
    custom().groups = {makeGroup("Mine", names)};
    QVERIFY(manager().saveCustomTeam());
}

QStringList tst_storeHistory::schemesOf(const VOSavedState &state) const
{
    VOColorSchemeTeam team;
    if (!history().read(state, team) || team.groups.empty())
        return {"unreadable"};
    return schemeNames(team.groups.front());
}

QString tst_storeHistory::historyFile(const VOSavedState &state) const
{
    return toQString(state.path);
}

void tst_storeHistory::aFirstSaveReplacesNothing()
{
    QVERIFY(manager().save());
    for (const VOTeamKind team : allTeams)
        QCOMPARE(int(history().states(team).size()), 0);
    QVERIFY(!QFile::exists(store->path("history")));
}

void tst_storeHistory::everySaveKeepsTheTeamsThatItChanges()
{
    saveSchemes({"a"});
    saveSchemes({"a", "b"});
    QVERIFY(manager().save());
    saveSchemes({"b"});
    const std::vector<VOSavedState> states = history().states(CustomTeam);
    QCOMPARE(int(states.size()), 2);
    QCOMPARE(schemesOf(states[0]), QStringList({"a", "b"}));
    QCOMPARE(schemesOf(states[1]), QStringList({"a"}));
    QCOMPARE(states[0].team, CustomTeam);
    QCOMPARE(states[0].number, 2u);
    QCOMPARE(states[1].number, 1u);
    QCOMPARE(qint64(states[0].size), QFileInfo(historyFile(states[0])).size());
    QCOMPARE(int(history().states(DefaultTeam).size()), 0);
    manager().defaultTeam.groups.clear();
    QVERIFY(manager().save());
    QCOMPARE(int(history().states(DefaultTeam).size()), 1);
    QCOMPARE(int(history().states(CustomTeam).size()), 2);
    QCOMPARE(int(history().states(FavoriteTeam).size()), 0);
}

void tst_storeHistory::aSaveThatChangesNothingKeepsNothing()
{
    saveSchemes({"a"});
    saveSchemes({"a"});
    QVERIFY(manager().load());
    saveSchemes({"a"});
    QCOMPARE(int(history().states(CustomTeam).size()), 0);
}

void tst_storeHistory::aStateTellsWhenItWasSaved()
{
    saveSchemes({"a"});
    const QDateTime long_ago(QDate(2020, 2, 29), QTime(23, 59, 58, 125), Qt::UTC);
    QFile file(store->path("custom.team"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(long_ago, QFileDevice::FileModificationTime));
    file.close();
    saveSchemes({"b"});
    const std::vector<VOSavedState> states = history().states(CustomTeam);
    QCOMPARE(int(states.size()), 1);
    QCOMPARE(states[0].saved, long_ago);
    QCOMPARE(states[0].saved.timeSpec(), Qt::UTC);
}

void tst_storeHistory::statesOutliveTheProcessThatKeptThem()
{
    ChildProcess child([&] {
        saveSchemes({"a"});
        saveSchemes({"b"});
        return 0;
    });
    QCOMPARE(child.wait(), 0);
    QVERIFY(manager().load());
    saveSchemes({"c"});
    const std::vector<VOSavedState> states = history().states(CustomTeam);
    QCOMPARE(int(states.size()), 2);
    QCOMPARE(schemesOf(states[0]), QStringList("b"));
    QCOMPARE(schemesOf(states[1]), QStringList("a"));
}

void tst_storeHistory::theOldestStatesGoPastTheNumber()
{
    QCOMPARE(history().maxStates(), 20);
    history().setLimits(3, 1 << 26);
    QCOMPARE(history().maxStates(), 3);
    for (int i = 0; i < 12; ++i)
        saveSchemes({QString::number(i)});
    std::vector<VOSavedState> states = history().states(CustomTeam);
    QCOMPARE(int(states.size()), 3);
    QCOMPARE(schemesOf(states[0]), QStringList("10"));
    QCOMPARE(schemesOf(states[2]), QStringList("8"));
    QCOMPARE(states[0].number, 11u);
    // A team of few saves does not lose them to one of many.
    QVERIFY(manager().save());
    manager().favoriteTeam.groups = {makeGroup("F", {"f"})};
    QVERIFY(manager().save());
    saveSchemes({"12"});
    saveSchemes({"13"});
    QCOMPARE(int(history().states(FavoriteTeam).size()), 1);
    QCOMPARE(int(history().states(CustomTeam).size()), 3);
}

void tst_storeHistory::theOldestStatesGoPastTheRoom()
{
    saveSchemes({"0"});
    const std::uint64_t size = std::uint64_t(QFileInfo(store->path("custom.team")).size());
    QCOMPARE(history().maxBytes(), std::uint64_t(64) * 1024 * 1024);
    history().setLimits(20, 3 * size + size / 2);
    for (int i = 1; i < 9; ++i)
        saveSchemes({QString::number(i)});
    const std::vector<VOSavedState> states = history().states(CustomTeam);
    QCOMPARE(int(states.size()), 3);
    QCOMPARE(schemesOf(states[0]), QStringList("7"));
    QCOMPARE(schemesOf(states[2]), QStringList("5"));
}

void tst_storeHistory::aHistoryOfNoStatesIsNotBegun()
{
    history().setLimits(-1, 1 << 26);
    QCOMPARE(history().maxStates(), 0);
    saveSchemes({"a"});
    saveSchemes({"b"});
    QVERIFY(!QFile::exists(store->path("history")));
}

void tst_storeHistory::whatAnotherProcessSavedIsAStateToo()
{
    saveSchemes({"a"});
    ChildProcess child([&] {
        saveSchemes({"a", "theirs"});
        return 0;
    });
    QCOMPARE(child.wait(), 0);
    saveSchemes({"a", "mine"}); // which is merged
    const std::vector<VOSavedState> states = history().states(CustomTeam);
    QCOMPARE(int(states.size()), 2);
    QCOMPARE(schemesOf(states[0]), QStringList({"a", "theirs"}));
}

void tst_storeHistory::aDamagedStateIsRefused()
{
    saveSchemes({"a"});
    saveSchemes({"b"});
    const VOSavedState state = history().states(CustomTeam).at(0);
    StoreFixture::Files files = store->files();
    for (QByteArray &bytes : files)
        bytes[bytes.size() / 2] = char(~bytes[bytes.size() / 2]);
    store->setFiles(files);
    VOColorSchemeTeam team;
    team.name = VOString(L"untouched");
    QVERIFY(!history().read(state, team));
    QVERIFY(team.name == L"untouched");
    QVERIFY(!history().restoreTeam(state));
    QVERIFY(!history().restoreGroup(state, VOString(L"Mine")));
    QVERIFY(!history().restoreScheme(state, VOString(L"Mine"), VOString(L"a")));
    QCOMPARE(schemeNames(custom().groups.at(0)), QStringList("b"));
    QVERIFY(QFile::remove(historyFile(state)));
    QVERIFY(!history().read(state, team));
}

void tst_storeHistory::strangeFilesAreLeftAlone()
{
    saveSchemes({"a"});
    StoreFixture::Files files = store->files();
    const QStringList strange = {"history/custom.team.000001", "history/notes.txt",
                                 "history/other.team.000001.20200101T000000000Z",
                                 "history/custom.team.000002.20201301T000000000Z"};
    for (const QString &name : strange)
        files[name] = "mine";
    store->setFiles(files);
    history().setLimits(1, 1 << 26);
    for (int i = 0; i < 4; ++i)
        saveSchemes({QString::number(i)});
    QCOMPARE(int(history().states(CustomTeam).size()), 1);
    for (const QString &name : strange)
        QCOMPARE(store->files().value(name), QByteArray("mine"));
}

void tst_storeHistory::aFolderThatCannotBeMadeFailsNoSave()
{
    saveSchemes({"a"});
    StoreFixture::Files files = store->files();
    files["history"] = "a file";
    store->setFiles(files);
    saveSchemes({"b"});
    QCOMPARE(int(history().states(CustomTeam).size()), 0);
    QVERIFY(manager().load());
    QCOMPARE(schemeNames(custom().groups.at(0)), QStringList("b"));
}

void tst_storeHistory::aKillBeforeEveryCallLeavesReadableStates()
{
    const auto prepare = [&] {
        store->setFiles({});
        manager().load();
        history().setLimits(2, 1 << 26);
        for (const char *name : {"a", "b", "c"})
            saveSchemes({name});
        custom().groups = {makeGroup("Mine", {"d"})};
    };
    prepare();
    FaultShim::watch();
    QVERIFY(manager().save());
    const int calls = int(FaultShim::stop().size());
    QVERIFY(calls > 10);
    int kept = 0;
    for (int at = 1; at <= calls; ++at) {
        prepare();
        ChildProcess child([&] {
            FaultShim::watch(FaultShim::Kill, at);
            const bool saved = manager().save();
            FaultShim::stop();
            return saved ? 0 : 1;
        });
        QCOMPARE(child.wait(), -SIGKILL);
        QVERIFY(manager().load());
        const QString now = schemeNames(custom().groups.at(0)).join(' ');
        QVERIFY2(now == "c" || now == "d", qPrintable(now));
        // What the store has no more, the history has.
        QStringList all;
        for (const VOSavedState &state : history().states(CustomTeam))
            all << schemesOf(state);
        QVERIFY2(!all.contains("unreadable"), qPrintable(all.join(' ')));
        QVERIFY2(all.contains("b"), qPrintable(all.join(' ')));
        QVERIFY2(now == "c" || all.contains("c"), qPrintable(all.join(' ')));
        // The next save goes on where this one stopped, and keeps no state twice.
        custom().groups = {makeGroup("Mine", {"e"})};
        QVERIFY(manager().save());
        all.clear();
        for (const VOSavedState &state : history().states(CustomTeam))
            all << schemesOf(state);
        QCOMPARE(all.removeDuplicates(), 0);
        QCOMPARE(all.first(), now);
        kept += now == "d" ? 1 : 0;
    }
    QVERIFY(kept > 0);
    QVERIFY(kept < calls);
}

VT_TEST_GUILESS_MAIN(tst_storeHistory)
#include "tst_storeHistory.moc"
