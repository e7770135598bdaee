#include "tests/support/ChildProcess.h"
#include "tests/support/StoreFixture.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vomap/files/fileSystem_p.h"

#include <QElapsedTimer>
#include <QObject>
#include <QtTest>

#include <csignal>
#include <memory>
#include <random>
#include <unistd.h>
#include <vector>

using namespace VTObjects;

// Several processes work on one store; some of them die or stand still.
class tst_storeProcesses : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void killsAtRandomMomentsTearNothing();
    void parallelSavesLoseNoScheme_data();
    void parallelSavesLoseNoScheme();
    void aDeletionIsNotUndoneByOthersSaves();
    void aKilledHolderOfTheLockKeepsNobodyOut();
    void aStoppedHolderOfTheLockIsNotWaitedForLong();
    void theContentOfTheLockFileDoesNotMatter_data();
    void theContentOfTheLockFileDoesNotMatter();

private:
    QString lockFile() const { return store->path("store.lock"); }

    std::unique_ptr<StoreFixture> store;
};

namespace {

VOColorSchemeManager &manager()
{
    return *VOColorSchemeManager::instance();
}

// Takes the lock and keeps it for ever.
int holdLock(const std::string &path, const Signal &taken)
{
    FolderLock lock;
    if (!lock.acquire(path, 0))
        return 1;
    taken.give();
    for (;;)
        ::pause();
}

} // namespace

void tst_storeProcesses::init()
{
    store = std::make_unique<StoreFixture>(StoreFixture::OnDisk);
}

void tst_storeProcesses::cleanup()
{
    store.reset();
}

void tst_storeProcesses::killsAtRandomMomentsTearNothing()
{
    const int rounds = shortOrLong(200, 2000);
    StoreFixture::setCustomTeam("0", 20);
    QVERIFY(manager().save());
    std::mt19937 random(1);
    int unreadable = 0;
    int torn = 0;
    int leftOver = 0;
    int steps = 0; // how often a killed process had saved something
    QString last = "0";
    for (int round = 0; round < rounds; ++round) {
        Signal started;
        ChildProcess child([&] {
            started.give();
            for (int version = last.toInt() + 1;; ++version) {
                StoreFixture::setCustomTeam(QString::number(version), 20);
                if (!(version % 2 == 0 ? manager().save() : manager().saveCustomTeam()))
                    return 1;
            }
        });
        QVERIFY(started.await());
        ::usleep(random() % 20000);
        child.kill();
        unreadable += manager().load() ? 0 : 1;
        const QString author = StoreFixture::customAuthor();
        const bool whole = author != "torn" && manager().customTeam.groups.size() == 1 &&
                           manager().customTeam.groups[0].schemes.size() == 20 &&
                           author.toInt() >= last.toInt();
        torn += whole ? 0 : 1;
        for (const QString &name : store->files().keys())
            leftOver +=
                name.endsWith(".team") || name.endsWith(".team.last") || name.startsWith("history/")
                    ? 0
                    : 1;
        steps += author != last ? 1 : 0;
        last = author;
    }
    qInfo("%d kills, of which %d behind a save: %d unreadable, %d torn, %d left-over files", rounds,
          steps, unreadable, torn, leftOver);
    QCOMPARE(unreadable, 0);
    QCOMPARE(torn, 0);
    QCOMPARE(leftOver, 0);
    QVERIFY(steps > rounds / 10); // the kills came while something was being saved
}

void tst_storeProcesses::parallelSavesLoseNoScheme_data()
{
    QTest::addColumn<int>("processes");
    QTest::addColumn<int>("saves");
    QTest::newRow("2 processes") << 2 << shortOrLong(40, 300);
    QTest::newRow("4 processes") << 4 << shortOrLong(15, 100);
}

void tst_storeProcesses::parallelSavesLoseNoScheme()
{
    QFETCH(int, processes);
    QFETCH(int, saves);
    manager().customTeam.groups.push_back(makeGroup("shared", {}));
    QVERIFY(manager().save());
    std::vector<std::unique_ptr<ChildProcess>> children;
    for (int process = 0; process < processes; ++process) {
        children.push_back(std::make_unique<ChildProcess>([=] {
            int refused = 0;
            for (int i = 0; i < saves; ++i) {
                manager().customTeam.groups[0].schemes.push_back(
                    makeScheme(QString("%1-%2").arg(process).arg(i)));
                // Every so often the memory takes over what the others saved.
                if (i % 10 == 9 && manager().save())
                    manager().load();
                else
                    refused += manager().saveCustomTeam() ? 0 : 1;
            }
            // What could not be saved in time is still in memory.
            return manager().saveCustomTeam() ? refused : 200;
        }));
    }
    int refused = 0;
    for (const auto &child : children) {
        const int answer = child->wait();
        QVERIFY(answer >= 0 && answer < 200);
        refused += answer;
    }
    QVERIFY(manager().load());
    const QStringList names = schemeNames(manager().customTeam.groups[0]);
    int lost = 0;
    for (int process = 0; process < processes; ++process) {
        for (int i = 0; i < saves; ++i)
            lost += names.count(QString("%1-%2").arg(process).arg(i)) == 1 ? 0 : 1;
    }
    qInfo("%d processes with %d saves each: %d schemes lost, %d saves refused for the lock",
          processes, saves, lost, refused);
    QCOMPARE(lost, 0);
    QCOMPARE(names.size(), processes * saves);
}

void tst_storeProcesses::aDeletionIsNotUndoneByOthersSaves()
{
    manager().customTeam.groups = {makeGroup("group", {"a", "b"})};
    QVERIFY(manager().save());
    ChildProcess child([] {
        manager().customTeam.groups[0].schemes.erase(
            manager().customTeam.groups[0].schemes.begin());
        return manager().save() ? 0 : 1;
    });
    QCOMPARE(child.wait(), 0);
    manager().customTeam.groups[0].schemes.push_back(makeScheme("c"));
    QVERIFY(manager().save());
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    QCOMPARE(schemeNames(manager().customTeam.groups[0]), QStringList({"b", "c"}));
}

void tst_storeProcesses::aKilledHolderOfTheLockKeepsNobodyOut()
{
    QVERIFY(manager().save());
    Signal taken;
    ChildProcess holder([&] { return holdLock(lockFile().toStdString(), taken); });
    QVERIFY(taken.await());
    holder.kill();
    QElapsedTimer time;
    time.start();
    QVERIFY(manager().save());
    qInfo("saved %lld ms after the holder of the lock was killed", time.elapsed());
    QVERIFY(time.elapsed() < 500);
}

void tst_storeProcesses::aStoppedHolderOfTheLockIsNotWaitedForLong()
{
    StoreFixture::setCustomTeam("1", 3);
    QVERIFY(manager().save());
    const StoreFixture::Files before = store->files();
    Signal taken;
    ChildProcess holder([&] { return holdLock(lockFile().toStdString(), taken); });
    QVERIFY(taken.await());
    holder.send(SIGSTOP);
    StoreFixture::setCustomTeam("2", 3);
    QElapsedTimer time;
    time.start();
    QVERIFY(!manager().save());
    qInfo("refused after %lld ms while the holder of the lock was stopped", time.elapsed());
    QVERIFY(time.elapsed() < 2500);
    QVERIFY(time.elapsed() > 1000);
    QCOMPARE(store->files(), before);
    // Reading needs no lock: a team file is always whole.
    QVERIFY(manager().load());
    QCOMPARE(StoreFixture::customAuthor(), QString("1"));
    holder.kill();
    QVERIFY(manager().save());
}

void tst_storeProcesses::theContentOfTheLockFileDoesNotMatter_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("garbage") << QByteArray("\xff\0garbage\n\n\n", 12);
    QTest::newRow("a process that is alive")
        << QByteArray::number(qint64(::getpid())) + "\nother\nhost\n";
}

void tst_storeProcesses::theContentOfTheLockFileDoesNotMatter()
{
    QFETCH(QByteArray, content);
    QVERIFY(manager().save());
    QFile file(lockFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
    file.close();
    QElapsedTimer time;
    time.start();
    QVERIFY(manager().save());
    qInfo("saved after %lld ms", time.elapsed());
    QVERIFY(time.elapsed() < 500);
}

VT_TEST_GUILESS_MAIN(tst_storeProcesses)
#include "tst_storeProcesses.moc"
