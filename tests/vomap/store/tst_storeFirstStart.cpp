#include "tests/support/ChildProcess.h"
#include "tests/support/StoreFixture.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/storeDamage.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"

#include <QDir>
#include <QObject>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <memory>
#include <random>

using namespace VTObjects;

// What a program learns that finds its store damaged when it starts: each start is a process, and
// the test's own process never asks for the store.
class tst_storeFirstStart : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aWholeStoreHasNoProblems();
    void aNewStoreHasNoProblems();
    void everyWayOfDamageIsTold_data();
    void everyWayOfDamageIsTold();
    void everyFlippedBitAndEveryCutIsTold();
    void twoDamagedTeamsAreTwoProblems();
    void aLoadOfAnotherDirectoryHasNothingToTellOfTheFirst();
    void aLoadBehindASaveOfTheWholeStoreTellsOfThatOne();
    void aRequiredDirectoryThatIsMissingIsTold();

private:
    QString path(const QString &file) const { return directory->filePath("store/" + file); }
    QByteArray content(const QString &file) const;
    void setContent(const QString &file, const QByteArray &bytes) const;
    int start(const std::function<int(VOColorSchemeManager &)> &program) const;

    std::unique_ptr<QTemporaryDir> directory;
};

namespace {

// Where a program got with its checks; 0 is the end.
#define STEP(condition)                                                                            \
    if (!(condition))                                                                              \
    return __LINE__ % 250 + 1

} // namespace

void tst_storeFirstStart::init()
{
    directory = std::make_unique<QTemporaryDir>();
    QVERIFY(directory->isValid());
    const int made = start([](VOColorSchemeManager &manager) {
        manager.defaultTeam.groups.resize(1);
        for (const char *author : {"1", "2"}) {
            StoreFixture::setCustomTeam(author, author[0] - '0' + 4);
            manager.favoriteTeam.groups = {makeGroup("favorites", {"a", "b", "c"})};
            STEP(manager.save());
        }
        return 0;
    });
    QCOMPARE(made, 0);
}

void tst_storeFirstStart::cleanup()
{
    directory.reset();
}

QByteArray tst_storeFirstStart::content(const QString &file) const
{
    QFile in(path(file));
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

void tst_storeFirstStart::setContent(const QString &file, const QByteArray &bytes) const
{
    QFile out(path(file));
    QVERIFY(out.open(QIODevice::WriteOnly));
    QCOMPARE(out.write(bytes), qint64(bytes.size()));
}

int tst_storeFirstStart::start(const std::function<int(VOColorSchemeManager &)> &program) const
{
    ChildProcess process([&] {
        VOColorSchemeManager::setStoreDirectory(toVOString(directory->filePath("store")));
        return program(*VOColorSchemeManager::instance());
    });
    return process.wait();
}

void tst_storeFirstStart::aWholeStoreHasNoProblems()
{
    const int got = start([](VOColorSchemeManager &manager) {
        STEP(manager.problems().empty());
        STEP(manager.load());
        STEP(manager.save());
        STEP(manager.problems().empty());
        return 0;
    });
    QCOMPARE(got, 0);
}

void tst_storeFirstStart::aNewStoreHasNoProblems()
{
    QVERIFY(QDir(directory->filePath("store")).removeRecursively());
    const int got = start([](VOColorSchemeManager &manager) {
        STEP(manager.problems().empty());
        STEP(manager.load());
        STEP(manager.problems().empty());
        return 0;
    });
    QCOMPARE(got, 0);
}

void tst_storeFirstStart::everyWayOfDamageIsTold_data()
{
    QTest::addColumn<QString>("team");
    QTest::addColumn<int>("way");
    QTest::addColumn<bool>("withCopy");
    for (const char *team : {"Default", "Custom", "Favorite"}) {
        int way = 0;
        for (const auto &form : damagedForms(QByteArray(100, 'x'))) {
            for (const bool withCopy : {true, false})
                QTest::addRow("%s %s%s", team, form.first, withCopy ? "" : ", without a copy")
                    << team << way << withCopy;
            ++way;
        }
    }
}

void tst_storeFirstStart::everyWayOfDamageIsTold()
{
    QFETCH(QString, team);
    QFETCH(int, way);
    QFETCH(bool, withCopy);
    const QString file = team.toLower() + ".team";
    const QByteArray damaged = damagedForms(content(file))[way].second;
    setContent(file, damaged);
    if (!withCopy)
        QVERIFY(QFile::remove(path(file + ".last")));
    const int got = start([&](VOColorSchemeManager &manager) {
        const std::vector<VOStoreProblem> problems = manager.problems();
        STEP(problems.size() == 1);
        const VOStoreProblem &problem = problems[0];
        STEP(problem.team == toVOString(team));
        STEP(problem.text.contains('"' + team + '"'));
        STEP(!problem.text.contains('%'));
        STEP(problem.path == path("damaged/" + file + ".1"));
        STEP(QFile::exists(problem.path));
        int schemes = 0;
        for (const VOColorSchemeGroup &group : manager.team(teamKindOf(team)).groups)
            schemes += int(group.schemes.size());
        // Built-in ones that are missing are offered again, so the team may have more.
        STEP(team == "Default" ? problem.schemes <= schemes : problem.schemes == schemes);
        const bool restored = problem.kind == VOStoreProblem::Restored && schemes > 0;
        const bool lost =
            problem.kind == VOStoreProblem::PartlyLost || problem.kind == VOStoreProblem::Damaged;
        STEP(withCopy ? restored : lost);
        // A load right after the first instance() is for whoever wants to hear of it.
        STEP(!manager.load());
        STEP(manager.load());
        STEP(manager.problems().size() == 1);
        manager.clearProblems();
        STEP(manager.problems().empty());
        STEP(manager.save());
        STEP(manager.problems().empty());
        return 0;
    });
    QCOMPARE(got, 0);
}

void tst_storeFirstStart::everyFlippedBitAndEveryCutIsTold()
{
    const QByteArray whole = content("custom.team");
    std::mt19937 random(3);
    QVector<QByteArray> damaged;
    for (int i = 0; i < shortOrLong(60, 2000); ++i) {
        QByteArray bytes = whole;
        const int at = int(random() % unsigned(bytes.size()));
        bytes[at] = char(bytes[at] ^ (1 << random() % 8));
        damaged.append(bytes);
    }
    for (int length = 0; length < whole.size(); length += 64)
        damaged.append(whole.left(length));
    int untold = 0;
    for (const QByteArray &bytes : damaged) {
        setContent("custom.team", bytes);
        const int got = start([&](VOColorSchemeManager &manager) {
            STEP(manager.problems().size() == 1);
            STEP(manager.problems()[0].kind == VOStoreProblem::Restored);
            STEP(manager.problems()[0].team == "Custom");
            STEP(QFile::exists(manager.problems()[0].path));
            STEP(!manager.load());
            STEP(manager.load());
            return 0;
        });
        untold += got == 0 ? 0 : 1;
    }
    qInfo("%d flipped bits and cuts at first start: %d not told", damaged.size(), untold);
    QCOMPARE(untold, 0);
}

void tst_storeFirstStart::twoDamagedTeamsAreTwoProblems()
{
    setContent("custom.team", "garbage");
    QVERIFY(QFile::remove(path("favorite.team")));
    QVERIFY(QFile::remove(path("favorite.team.last")));
    QVERIFY(QDir().mkdir(path("favorite.team")));
    const int got = start([&](VOColorSchemeManager &manager) {
        const std::vector<VOStoreProblem> problems = manager.problems();
        STEP(problems.size() == 2);
        STEP(problems[0].kind == VOStoreProblem::Restored && problems[0].team == "Custom");
        STEP(problems[0].schemes == 5);
        STEP(problems[1].kind == VOStoreProblem::Damaged && problems[1].team == "Favorite");
        STEP(problems[1].schemes == 0);
        STEP(QFileInfo(problems[1].path).isDir());
        return 0;
    });
    QCOMPARE(got, 0);
}

void tst_storeFirstStart::aLoadOfAnotherDirectoryHasNothingToTellOfTheFirst()
{
    setContent("custom.team", "garbage");
    const int got = start([&](VOColorSchemeManager &manager) {
        VOColorSchemeManager::setStoreDirectory(toVOString(directory->filePath("other")));
        STEP(manager.load());
        STEP(manager.problems().size() == 1);
        return 0;
    });
    QCOMPARE(got, 0);
}

void tst_storeFirstStart::aLoadBehindASaveOfTheWholeStoreTellsOfThatOne()
{
    setContent("custom.team", "garbage");
    const int got = start([&](VOColorSchemeManager &manager) {
        manager.customTeam.groups.push_back(makeGroup("mine", {"a"}));
        STEP(manager.save());
        STEP(manager.load());
        STEP(manager.customTeam.contains("mine"));
        STEP(manager.problems().size() == 1);
        return 0;
    });
    QCOMPARE(got, 0);
    // The custom team is not the whole store.
    setContent("favorite.team", "garbage");
    const int gotOfOneTeam = start([&](VOColorSchemeManager &manager) {
        STEP(manager.saveCustomTeam());
        STEP(!manager.load());
        STEP(manager.load());
        return 0;
    });
    QCOMPARE(gotOfOneTeam, 0);
}

void tst_storeFirstStart::aRequiredDirectoryThatIsMissingIsTold()
{
    const QString place = directory->filePath("store");
    ChildProcess process([&] {
        VOColorSchemeManager::requireStoreDirectory(toVOString(place));
        VOColorSchemeManager &manager = *VOColorSchemeManager::instance();
        STEP(manager.load());
        STEP(manager.problems().empty());
        STEP(QDir().rename(place, place + "-moved"));
        STEP(!manager.load());
        STEP(manager.problems().size() == 1);
        STEP(manager.problems()[0].kind == VOStoreProblem::FolderMissing);
        STEP(manager.problems()[0].path == place);
        STEP(manager.problems()[0].text.contains(place));
        STEP(manager.defaultTeam.contains("DEM"));
        STEP(manager.customTeam.groups.empty());
        // No other store is made in its place.
        STEP(!manager.save());
        STEP(!manager.saveCustomTeam());
        STEP(!QFile::exists(place));
        STEP(!manager.load());
        STEP(QDir().rename(place + "-moved", place));
        STEP(manager.load());
        STEP(manager.customTeam.contains("group"));
        STEP(manager.save());
        STEP(manager.problems().empty());
        return 0;
    });
    QCOMPARE(process.wait(), 0);
}

VT_TEST_GUILESS_MAIN(tst_storeFirstStart)
#include "tst_storeFirstStart.moc"
