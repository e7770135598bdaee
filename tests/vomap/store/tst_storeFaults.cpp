#include "tests/support/ChildProcess.h"
#include "tests/support/StoreFixture.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/faultShim.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QDir>
#include <QObject>
#include <QtTest>

#include <cerrno>
#include <csignal>
#include <functional>
#include <memory>

using namespace VTObjects;

// Every system call of every kind of save, failing in every way; and killed before every call.
class tst_storeFaults : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void everyFailingCallLeavesTheOldOrTheNewBytes_data();
    void everyFailingCallLeavesTheOldOrTheNewBytes();
    void aKillBeforeEveryCallLeavesTheOldOrTheNewBytes_data();
    void aKillBeforeEveryCallLeavesTheOldOrTheNewBytes();
    void everySaveSyncsTheFileThenRenamesThenSyncsTheFolder_data();
    void everySaveSyncsTheFileThenRenamesThenSyncsTheFolder();
    void aFailingReadIsNoDamage();

private:
    struct Before
    {
        StoreFixture::Files files;
        StoreFixture::Files content; // of the teams or the scheme file, without their copies
    };
    Before prepare(const QString &operation);
    bool perform(const QString &operation);
    StoreFixture::Files content() const;
    bool run(const QString &operation, FaultShim::Fault fault, int at, int error, bool repeated);

    std::unique_ptr<StoreFixture> store;
};

namespace {

const QStringList operations = {
    "first save",       "save",   "save after a merge", "save of the custom team",
    "save over damage", "export", "export over a file"};

void operationRows()
{
    QTest::addColumn<QString>("operation");
    for (const QString &operation : operations)
        QTest::newRow(qPrintable(operation)) << operation;
}

VOColorSchemeManager &manager()
{
    return *VOColorSchemeManager::instance();
}

} // namespace

void tst_storeFaults::initTestCase()
{
    // The shim sees the calls of the library at all.
    StoreFixture fixture(StoreFixture::InMemory);
    FaultShim::watch();
    QVERIFY(manager().save());
    QVERIFY(FaultShim::stop().size() > 20);
}

void tst_storeFaults::init()
{
    store = std::make_unique<StoreFixture>(StoreFixture::InMemory);
}

void tst_storeFaults::cleanup()
{
    store.reset();
}

// What a save is about: the files that a load reads.
StoreFixture::Files tst_storeFaults::content() const
{
    StoreFixture::Files all = store->files();
    for (const QString &name : all.keys()) {
        if (!name.endsWith(".team") && !name.endsWith(".vcs"))
            all.remove(name);
    }
    return all;
}

// Brings the folder and the memory to where the operation starts from.
tst_storeFaults::Before tst_storeFaults::prepare(const QString &operation)
{
    store->setFiles({});
    manager().load();
    manager().defaultTeam.groups.resize(1);
    if (operation == "first save") {
        QDir(store->path()).removeRecursively();
    } else if (operation.startsWith("save")) {
        FaultShim::watch(); // only for the syncing that it leaves out
        StoreFixture::setCustomTeam("1", 3);
        manager().save();
        StoreFixture::setCustomTeam("2", 3);
        manager().save();
        if (operation == "save after a merge") {
            StoreFixture::setCustomTeam("2", 4);
            const StoreFixture::Files earlier = store->files();
            manager().save();
            const StoreFixture::Files later = store->files();
            store->setFiles(earlier);
            manager().load();
            store->setFiles(later);
        }
        FaultShim::stop();
        if (operation == "save over damage") {
            StoreFixture::Files files = store->files();
            files["custom.team"][100] = char(~files["custom.team"][100]);
            store->setFiles(files);
        }
        StoreFixture::setCustomTeam("3", 3);
    } else if (operation == "export over a file") {
        store->setFiles({{"scheme.vcs", "old bytes"}});
    }
    return {store->files(), content()};
}

bool tst_storeFaults::perform(const QString &operation)
{
    if (operation.startsWith("export"))
        return VOColorSchemeManager::saveFile(makeScheme("exported"),
                                              toVOString(store->path("scheme.vcs")));
    return operation == "save of the custom team" ? manager().saveCustomTeam() : manager().save();
}

bool tst_storeFaults::run(const QString &operation, FaultShim::Fault fault, int at, int error,
                          bool repeated)
{
    FaultShim::watch(fault, at, error, repeated);
    const bool answer = perform(operation);
    FaultShim::stop();
    return answer;
}

void tst_storeFaults::everyFailingCallLeavesTheOldOrTheNewBytes_data()
{
    operationRows();
}

void tst_storeFaults::everyFailingCallLeavesTheOldOrTheNewBytes()
{
    QFETCH(QString, operation);
    prepare(operation);
    FaultShim::watch();
    QVERIFY(perform(operation));
    const int calls = int(FaultShim::stop().size());
    QVERIFY(calls > 5);
    const StoreFixture::Files after = content();

    struct Way
    {
        FaultShim::Fault fault;
        int error;
        bool repeated;
    };
    const Way ways[] = {
        {FaultShim::Fail, EIO, false},    {FaultShim::Fail, ENOSPC, false},
        {FaultShim::Fail, EINTR, false},  {FaultShim::ShortWrite, 0, false},
        {FaultShim::DiskFull, 0, false},  {FaultShim::Fail, EIO, true},
        {FaultShim::Fail, ENOSPC, true},  {FaultShim::Fail, EINTR, true},
        {FaultShim::ShortWrite, 0, true},
    };
    int failed = 0;
    int succeeded = 0;
    for (const Way &way : ways) {
        for (int at = 1; at <= calls; ++at) {
            const QByteArray where = QByteArray("call ") + QByteArray::number(at) + " fault " +
                                     QByteArray::number(way.fault) + " error " +
                                     QByteArray::number(way.error) +
                                     (way.repeated ? " repeated" : "");
            const Before before = prepare(operation);
            const bool answer = run(operation, way.fault, at, way.error, way.repeated);
            QVERIFY2(content() == (answer ? after : before.content), where.constData());
            ++(answer ? succeeded : failed);
            if (operation.startsWith("export")) {
                // Nothing beside it either.
                QVERIFY2(store->files() == (answer ? after : before.files), where.constData());
                continue;
            }
            // What is left over is gone after the next load, and the content is what it was.
            const StoreFixture::Files now = content();
            const bool damaged = operation == "save over damage" && !answer;
            QVERIFY2(manager().load() != damaged, where.constData());
            QVERIFY2(damaged || content() == now, where.constData());
            for (const QString &name : store->files().keys())
                QVERIFY2(name.endsWith(".team") || name.endsWith(".team.last") ||
                             name.startsWith("damaged/") || name.startsWith("history/"),
                         qPrintable(name + ' ' + where));
        }
    }
    qInfo("%s: %d calls, %d times false and the old bytes, %d times true and the new bytes",
          qPrintable(operation), calls, failed, succeeded);
    QVERIFY(failed > 0);
    QVERIFY(succeeded > 0);
}

void tst_storeFaults::aKillBeforeEveryCallLeavesTheOldOrTheNewBytes_data()
{
    operationRows();
}

void tst_storeFaults::aKillBeforeEveryCallLeavesTheOldOrTheNewBytes()
{
    QFETCH(QString, operation);
    prepare(operation);
    FaultShim::watch();
    QVERIFY(perform(operation));
    const int calls = int(FaultShim::stop().size());
    const StoreFixture::Files after = content();
    for (int at = 1; at <= calls; ++at) {
        const Before before = prepare(operation);
        ChildProcess child([&] { return run(operation, FaultShim::Kill, at, 0, false) ? 0 : 1; });
        QCOMPARE(child.wait(), -SIGKILL);
        const QByteArray where = "killed before call " + QByteArray::number(at);
        // Each file by itself is old or new; a load makes them readable and tidy.
        const StoreFixture::Files now = content();
        for (auto file = now.cbegin(); file != now.cend(); ++file)
            QVERIFY2(file.value() == before.content.value(file.key()) ||
                         file.value() == after.value(file.key()),
                     where.constData());
        for (const QString &name : before.content.keys())
            QVERIFY2(now.contains(name), where.constData());
        if (operation.startsWith("export")) {
            // The next export of the file clears away what this one left.
            QVERIFY2(perform(operation), where.constData());
            QVERIFY2(store->files() == after, where.constData());
            continue;
        }
        const bool damaged = operation == "save over damage" &&
                             now.value("custom.team") == before.content.value("custom.team");
        QVERIFY2(manager().load() != damaged, where.constData());
        for (const QString &name : store->files().keys())
            QVERIFY2(name.endsWith(".team") || name.endsWith(".team.last") ||
                         name.startsWith("damaged/") || name.startsWith("history/"),
                     qPrintable(name + ' ' + where));
        // And the next save works.
        QVERIFY2(perform(operation), where.constData());
    }
    qInfo("%s: killed before each of %d calls", qPrintable(operation), calls);
}

void tst_storeFaults::everySaveSyncsTheFileThenRenamesThenSyncsTheFolder_data()
{
    operationRows();
}

void tst_storeFaults::everySaveSyncsTheFileThenRenamesThenSyncsTheFolder()
{
    QFETCH(QString, operation);
    prepare(operation);
    FaultShim::watch();
    QVERIFY(perform(operation));
    const std::vector<FaultShim::Call> calls = FaultShim::stop();
    QSet<QString> unsynced;        // files with bytes that are not on the disk
    QSet<QString> written;         // files that were written
    QSet<QString> unsyncedFolders; // folders with names that are not on the disk
    int renames = 0;
    for (const FaultShim::Call &call : calls) {
        const QString path = QString::fromStdString(call.path);
        const QString target = QString::fromStdString(call.target);
        if (!call.succeeded)
            continue; // a folder that is there already is not made
        if (call.name == "write") {
            unsynced.insert(path);
            written.insert(path);
        } else if (call.name == "fsync") {
            unsynced.remove(path);
            unsyncedFolders.remove(path);
        } else if (call.name == "rename") {
            QVERIFY2(!unsynced.contains(path), qPrintable(path));
            unsyncedFolders.insert(QFileInfo(target).path());
            if (written.contains(path))
                ++renames;
        } else if (call.name == "link") {
            QVERIFY2(!unsynced.contains(path), qPrintable(path));
            unsyncedFolders.insert(QFileInfo(target).path());
        } else if (call.name == "mkdir") {
            unsyncedFolders.insert(QFileInfo(path).path());
        }
    }
    const bool one = operation.startsWith("export") || operation == "save of the custom team";
    QCOMPARE(renames, one ? 1 : 3);
    QVERIFY2(unsynced.isEmpty(), qPrintable(unsynced.values().join(' ')));
    QVERIFY2(unsyncedFolders.isEmpty(), qPrintable(unsyncedFolders.values().join(' ')));
}

void tst_storeFaults::aFailingReadIsNoDamage()
{
    prepare("save");
    QVERIFY(manager().save());
    const StoreFixture::Files before = store->files();
    // The calls of a load are openings and closings; whichever fails, no file is set aside or
    // changed, and a save that cannot read what is there writes nothing.
    FaultShim::watch();
    QVERIFY(manager().load());
    const int calls = int(FaultShim::stop().size());
    int refused = 0;
    for (int error : {EIO, EACCES}) {
        for (int at = 1; at <= calls; ++at) {
            FaultShim::watch(FaultShim::Fail, at, error);
            const bool loaded = manager().load();
            FaultShim::stop();
            refused += loaded ? 0 : 1;
            QVERIFY(!manager().defaultTeam.groups.empty());
            QCOMPARE(store->files(), before);
        }
    }
    QCOMPARE(refused, 6); // two errors, three files
    QVERIFY(manager().load());
    QCOMPARE(StoreFixture::customAuthor(), QString("3"));
}

VT_TEST_GUILESS_MAIN(tst_storeFaults)
#include "tst_storeFaults.moc"
