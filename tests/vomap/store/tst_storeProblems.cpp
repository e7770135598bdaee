#include "tests/support/ChildProcess.h"
#include "tests/support/StoreFixture.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/faultShim.h"
#include "tests/support/toString.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOColorSchemeNotifier.h"
#include "vomap/VOStringConversion.h"
#include "vomap/files/fileSystem_p.h"
#include "vomap/files/xxHash64_p.h"

#include <QDir>
#include <QObject>
#include <QSignalSpy>
#include <QtTest>

#include <cerrno>
#include <memory>
#include <unistd.h>

using namespace VTObjects;

// What a running program is told of its store.
class tst_storeProblems : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void whatIsFoundAgainStandsThereOnce();
    void twoDamagedFilesAreTwoProblems();
    void lostSchemesAreToldWithWhatIsLeft();
    void aTeamOfANewerReleaseIsTold();
    void anUnreadableFileIsTold();
    void damageThatASaveFindsIsTold();
    void aFailedSaveNamesTheTeamsThatWait();
    void aSaveThatSucceedsEndsTheProblem();
    void everyReasonIsASentence_data();
    void everyReasonIsASentence();
    void aDiskThatIsFullFromTheFirstSaveOnIsCalledSo();

private:
    VOColorSchemeManager &manager() { return *VOColorSchemeManager::instance(); }
    void setCustomFile(const QByteArray &bytes) const;
    QStringList told();

    std::unique_ptr<StoreFixture> store;
};

void tst_storeProblems::init()
{
    store = std::make_unique<StoreFixture>(StoreFixture::InMemory);
    StoreFixture::setCustomTeam("1", 5);
    QVERIFY(manager().save());
    StoreFixture::setCustomTeam("2", 6);
    QVERIFY(manager().save());
    manager().clearProblems();
}

void tst_storeProblems::cleanup()
{
    FaultShim::stop();
    store.reset();
}

void tst_storeProblems::setCustomFile(const QByteArray &bytes) const
{
    StoreFixture::Files files = store->files();
    files["custom.team"] = bytes;
    store->setFiles(files);
}

// Kind, team and number of schemes of each.
QStringList tst_storeProblems::told()
{
    static const char *const kinds[] = {"damaged",    "restored",  "partly lost",   "newer",
                                        "unreadable", "not saved", "folder missing"};
    QStringList lines;
    for (const VOStoreProblem &problem : manager().problems())
        lines.append(QString("%1 %2 %3")
                         .arg(kinds[problem.kind], toQString(problem.team))
                         .arg(problem.schemes));
    return lines;
}

void tst_storeProblems::whatIsFoundAgainStandsThereOnce()
{
    // A folder in which nothing can be set aside: the damage stays, and every load meets it.
    setCustomFile("garbage");
    QFile file(store->path("damaged"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    for (int i = 0; i < 3; ++i) {
        QVERIFY(!manager().load());
        QCOMPARE(told(), QStringList({"restored Custom 5"}));
        QCOMPARE(manager().problems()[0].path, QString());
    }
}

void tst_storeProblems::twoDamagedFilesAreTwoProblems()
{
    for (int i = 1; i <= 3; ++i) {
        setCustomFile("garbage");
        QVERIFY(!manager().load());
        QCOMPARE(int(manager().problems().size()), i);
        QCOMPARE(manager().problems().back().path,
                 store->path("damaged/custom.team." + QString::number(i)));
    }
}

void tst_storeProblems::lostSchemesAreToldWithWhatIsLeft()
{
    StoreFixture::Files files = store->files();
    files.remove("custom.team.last");
    files["custom.team"][files["custom.team"].indexOf("scheme3")] = 'S';
    store->setFiles(files);
    QVERIFY(!manager().load());
    QCOMPARE(told(), QStringList({"partly lost Custom 5"}));
    QVERIFY(QFile::exists(manager().problems()[0].path));
}

void tst_storeProblems::aTeamOfANewerReleaseIsTold()
{
    QByteArray bytes = store->files().value("custom.team");
    bytes[8] = 2;
    qToLittleEndian<quint64>(xxHash64(bytes.left(24).toStdString()), bytes.data() + 24);
    setCustomFile(bytes);
    QVERIFY(manager().load());
    QCOMPARE(told(), QStringList({"newer Custom 6"}));
    StoreFixture::setCustomTeam("3", 4);
    QVERIFY(!manager().saveCustomTeam());
    QCOMPARE(told(), QStringList({"newer Custom 6", "not saved Custom 4"}));
    QVERIFY(manager().problems()[1].text.contains("newer release"));
}

void tst_storeProblems::anUnreadableFileIsTold()
{
    FaultShim::watch();
    QVERIFY(manager().load());
    int at = 0;
    int calls = 0;
    for (const FaultShim::Call &call : FaultShim::stop()) {
        ++calls;
        if (call.name == "open" && call.path == store->path("custom.team").toStdString())
            at = calls;
    }
    QVERIFY(at > 0);
    FaultShim::watch(FaultShim::Fail, at, EACCES);
    QVERIFY(!manager().load());
    FaultShim::stop();
    QCOMPARE(told(), QStringList({"unreadable Custom 5"}));
    QCOMPARE(manager().problems()[0].path, QString());
}

void tst_storeProblems::damageThatASaveFindsIsTold()
{
    setCustomFile("garbage");
    StoreFixture::setCustomTeam("3", 4);
    QVERIFY(manager().save());
    QCOMPARE(told(), QStringList({"damaged Custom 4"}));
    QCOMPARE(manager().problems()[0].path, store->path("damaged/custom.team.1"));
    QVERIFY(manager().problems()[0].text.contains("saved in its place"));
}

void tst_storeProblems::aFailedSaveNamesTheTeamsThatWait()
{
    const QString lock = store->path("store.lock");
    Signal taken;
    ChildProcess holder([&] {
        FolderLock held;
        if (!held.acquire(lock.toStdString(), 0))
            return 1;
        taken.give();
        for (;;)
            ::pause();
    });
    QVERIFY(taken.await());
    StoreFixture::setCustomTeam("3", 4);
    QVERIFY(!manager().save());
    QCOMPARE(told(), QStringList({"not saved Custom 4"}));
    QVERIFY(manager().problems()[0].text.contains("Another program"));
    holder.kill();
    const auto failToSave = [this] {
        FaultShim::watch(FaultShim::Fail, 2, EACCES); // opening the lock
        const bool saved = manager().save();
        FaultShim::stop();
        return !saved;
    };
    manager().favoriteTeam.groups.push_back(makeGroup("new", {"a"}));
    QVERIFY(failToSave());
    QCOMPARE(told(), QStringList({"not saved Custom 4", "not saved Favorite 1"}));
    QVERIFY(manager().save());
    QCOMPARE(told(), QStringList());
    // Nothing waits, and yet a save failed.
    QVERIFY(failToSave());
    QCOMPARE(told().size(), 3);
    QVERIFY(manager().save());
    QCOMPARE(told(), QStringList());
}

void tst_storeProblems::aSaveThatSucceedsEndsTheProblem()
{
    QFile file(store->path("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    VOColorSchemeManager::setStoreDirectory(toVOString(store->path("file/below")));
    StoreFixture::setCustomTeam("3", 4);
    QVERIFY(!manager().save());
    QCOMPARE(manager().problems().size(), std::size_t(3)); // nothing of it lies there
    VOColorSchemeManager::setStoreDirectory(toVOString(store->path()));
    QVERIFY(manager().saveCustomTeam());
    QCOMPARE(told(),
             QStringList({"not saved Default " +
                              QString::number(manager().defaultTeam.groups[0].schemes.size()),
                          "not saved Favorite 0"}));
    QVERIFY(manager().save());
    QCOMPARE(told(), QStringList());
}

void tst_storeProblems::everyReasonIsASentence_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("call");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("reason");
    QTest::newRow("a name that cannot be") << QString(QChar(0)) << "" << 0 << "No folder can";
    QTest::newRow("below a file") << "file/below"
                                  << "" << 0 << "cannot be made";
    QTest::newRow("a full disk") << ""
                                 << "write" << ENOSPC << "No space left";
    QTest::newRow("a broken disk") << ""
                                   << "fsync" << EIO << "Input/output error";
    QTest::newRow("a read-only disk") << ""
                                      << "open" << EROFS << "Read-only file system";
    QTest::newRow("no renaming") << ""
                                 << "rename" << EACCES << "Permission denied";
}

void tst_storeProblems::everyReasonIsASentence()
{
    QFETCH(QString, folder);
    QFETCH(QString, call);
    QFETCH(int, error);
    QFETCH(QString, reason);
    QFile file(store->path("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    if (!folder.isEmpty())
        VOColorSchemeManager::setStoreDirectory(toVOString(store->path(folder)));
    StoreFixture::setCustomTeam("3", 4);
    int at = 1;
    if (!call.isEmpty()) {
        FaultShim::watch();
        QVERIFY(manager().saveCustomTeam());
        const std::vector<FaultShim::Call> calls = FaultShim::stop();
        while (calls[std::size_t(at) - 1].name != call.toStdString())
            ++at;
        StoreFixture::setCustomTeam("4", 4);
    }
    QSignalSpy failed(VOColorSchemeNotifier::instance(), &VOColorSchemeNotifier::saveFailed);
    if (!call.isEmpty())
        FaultShim::watch(FaultShim::Fail, at, error);
    QVERIFY(!manager().saveCustomTeam());
    FaultShim::stop();
    QCOMPARE(failed.count(), 1);
    const QString told = failed[0][1].toString();
    QVERIFY2(told.contains(reason), qPrintable(told));
    QCOMPARE(manager().problems().size(), std::size_t(1));
    QVERIFY(manager().problems()[0].text.endsWith(told));
}

// Nothing but the lock is in the folder then, which must not become the reason.
void tst_storeProblems::aDiskThatIsFullFromTheFirstSaveOnIsCalledSo()
{
    VOColorSchemeManager::setStoreDirectory(toVOString(store->path("fresh")));
    StoreFixture::setCustomTeam("3", 4);
    QSignalSpy failed(VOColorSchemeNotifier::instance(), &VOColorSchemeNotifier::saveFailed);
    FaultShim::watch(FaultShim::DiskFull, 1, ENOSPC);
    QVERIFY(!manager().saveCustomTeam());
    FaultShim::stop();
    QCOMPARE(failed.count(), 1);
    const QString told = failed[0][1].toString();
    QVERIFY2(told.contains("No space left"), qPrintable(told));
}

VT_TEST_GUILESS_MAIN(tst_storeProblems)
#include "tst_storeProblems.moc"
