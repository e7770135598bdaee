#include "tests/support/ChildProcess.h"
#include "tests/support/SchemeSamples.h"
#include "tests/support/StoreFixture.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/faultShim.h"
#include "tests/support/storeDamage.h"
#include "tests/support/toString.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vomap/files/TeamFile_p.h"
#include "vomap/files/xxHash64_p.h"

#include <QDir>
#include <QObject>
#include <QtTest>

#include <memory>
#include <random>

using namespace VTObjects;

// What happens to a team's file between two runs of the program.
class tst_storeDamage : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aDamagedFileIsSetAsideAndTheLastButOneSaveRestored_data();
    void aDamagedFileIsSetAsideAndTheLastButOneSaveRestored();
    void everyFlippedBitIsNoticed();
    void everyCutIsNoticed();
    void aFolderInPlaceOfAFileIsSetAside();
    void damagedFilesAreNeverOverwritten();
    void withoutALastGoodCopyADamagedSchemeCostsItselfOnly();
    void aTeamThatLostItsNameHasItsFirstOne();
    void withBothDamagedWhatIsWholeInEitherIsKept();
    void garbageWithoutACopyGivesAFirstStart();
    void damageBetweenLoadAndSaveIsSetAsideToo();
    void damageBetweenLoadAndSaveLosesNoOthersScheme();
    void aLostFileComesBackFromItsCopy();
    void anUnreadableFileIsNeverReplaced();
    void aNewerSchemaIsReadAndNeverWritten();
    void unknownFieldsSurviveLoadEditAndSave();

private:
    void damage(const QByteArray &bytes) const;
    bool isSomewhere(const QByteArray &bytes) const;

    std::unique_ptr<StoreFixture> store;
    StoreFixture::Files good; // after two saves: by "1" and by "2"
};

namespace {

const QString custom = QStringLiteral("custom.team");

VOColorSchemeManager &manager()
{
    return *VOColorSchemeManager::instance();
}

QByteArray customBytes(const StoreFixture::Files &files)
{
    return files.value(custom);
}

} // namespace

void tst_storeDamage::init()
{
    store = std::make_unique<StoreFixture>(StoreFixture::InMemory);
    FaultShim::watch(); // so that thousands of loads need not wait for the disk
    StoreFixture::setCustomTeam("1", 5);
    QVERIFY(manager().save());
    StoreFixture::setCustomTeam("2", 6);
    QVERIFY(manager().save());
    good = store->files();
}

void tst_storeDamage::cleanup()
{
    FaultShim::stop();
    store.reset();
}

void tst_storeDamage::damage(const QByteArray &bytes) const
{
    StoreFixture::Files files = good;
    files[custom] = bytes;
    store->setFiles(files);
}

bool tst_storeDamage::isSomewhere(const QByteArray &bytes) const
{
    return store->files().values().contains(bytes);
}

void tst_storeDamage::aDamagedFileIsSetAsideAndTheLastButOneSaveRestored_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("way");
    for (const char *file : {"default.team", "custom.team", "favorite.team"}) {
        const QString name = QString::fromLatin1(file);
        int way = 0;
        for (const auto &form : damagedForms(QByteArray(100, 'x')))
            QTest::newRow(qPrintable(name + ' ' + form.first)) << name << way++;
    }
}

void tst_storeDamage::aDamagedFileIsSetAsideAndTheLastButOneSaveRestored()
{
    QFETCH(QString, file);
    QFETCH(int, way);
    StoreFixture::Files files = good;
    const QByteArray whole = files[file];
    const QByteArray damaged = damagedForms(whole)[way].second;
    files[file] = damaged;
    store->setFiles(files);
    QVERIFY(!manager().load());
    QCOMPARE(StoreFixture::customAuthor(), QString(file == custom ? "1" : "2"));
    const StoreFixture::Files now = store->files();
    QCOMPARE(now.value("damaged/" + file + ".1"), damaged);
    QCOMPARE(now.value(file), good.value(file + ".last"));
    // The next load finds nothing wrong, and the next save has its copy again.
    QVERIFY(manager().load());
    QVERIFY(manager().save());
    QVERIFY(isSomewhere(damaged));
    QVERIFY(!QFile::exists(store->path("damaged/" + file + ".2")));
}

void tst_storeDamage::everyFlippedBitIsNoticed()
{
    const int flips = shortOrLong(400, 5000);
    std::mt19937 random(2);
    int unnoticed = 0;
    int unrestored = 0;
    int vanished = 0;
    for (int i = 0; i < flips; ++i) {
        QByteArray bytes = customBytes(good);
        const int at = int(random() % unsigned(bytes.size()));
        bytes[at] = char(bytes[at] ^ (1 << random() % 8));
        damage(bytes);
        unnoticed += manager().load() ? 1 : 0;
        unrestored += StoreFixture::customAuthor() == "1" &&
                              manager().customTeam.groups[0].schemes.size() == 5
                          ? 0
                          : 1;
        vanished += isSomewhere(bytes) ? 0 : 1;
        if (i % 10 == 0)
            QVERIFY(manager().save());
    }
    qInfo("%d single-bit flips: %d unnoticed, %d not restored, %d without the damaged bytes", flips,
          unnoticed, unrestored, vanished);
    QCOMPARE(unnoticed, 0);
    QCOMPARE(unrestored, 0);
    QCOMPARE(vanished, 0);
}

void tst_storeDamage::everyCutIsNoticed()
{
    const QByteArray whole = customBytes(good);
    int cuts = 0;
    for (int length = 0; length < whole.size(); length += 64) {
        damage(whole.left(length));
        QVERIFY(!manager().load());
        QCOMPARE(StoreFixture::customAuthor(), QString("1"));
        QVERIFY(isSomewhere(whole.left(length)));
        ++cuts;
    }
    qInfo("cut at every 64th of %d bytes: %d times noticed and restored", whole.size(), cuts);
}

void tst_storeDamage::aFolderInPlaceOfAFileIsSetAside()
{
    StoreFixture::Files files = good;
    files.remove(custom);
    files.insert(custom + "/inside", "kept");
    store->setFiles(files);
    QVERIFY(!manager().load());
    QCOMPARE(StoreFixture::customAuthor(), QString("1"));
    QCOMPARE(store->files().value("damaged/custom.team.1/inside"), QByteArray("kept"));
    QVERIFY(manager().load());
    QVERIFY(manager().save());
    // The same between a load and a save.
    QVERIFY(QFile::remove(store->path(custom)));
    QVERIFY(QDir().mkdir(store->path(custom)));
    StoreFixture::setCustomTeam("3", 2);
    QVERIFY(manager().save());
    QVERIFY(QFileInfo(store->path("damaged/custom.team.2")).isDir());
    QVERIFY(manager().load());
    QCOMPARE(StoreFixture::customAuthor(), QString("3"));
}

void tst_storeDamage::damagedFilesAreNeverOverwritten()
{
    QList<QByteArray> damaged;
    store->setFiles(good);
    for (int i = 0; i < 12; ++i) {
        damaged.append("damage " + QByteArray::number(i));
        QFile file(store->path(custom));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.write(damaged.last()) > 0);
        file.close();
        QVERIFY(!manager().load());
        QVERIFY(manager().save());
    }
    for (const QByteArray &bytes : damaged)
        QVERIFY(isSomewhere(bytes));
}

void tst_storeDamage::withoutALastGoodCopyADamagedSchemeCostsItselfOnly()
{
    good.remove("custom.team.last");
    QByteArray bytes = customBytes(good);
    bytes[bytes.indexOf("scheme3")] = 'S';
    damage(bytes);
    QVERIFY(!manager().load());
    QCOMPARE(schemeNames(manager().customTeam.groups[0]),
             QStringList({"scheme0", "scheme1", "scheme2", "scheme4", "scheme5"}));
    QCOMPARE(StoreFixture::customAuthor(), QString("2"));
    QVERIFY(isSomewhere(bytes));
    // What was saved from it stays without another save.
    QVERIFY(manager().load());
    QCOMPARE(manager().customTeam.groups[0].schemes.size(), std::size_t(5));
}

void tst_storeDamage::aTeamThatLostItsNameHasItsFirstOne()
{
    manager().customTeam.name = L"mine";
    QVERIFY(manager().save());
    good = store->files();
    good.remove("custom.team.last");
    QByteArray bytes = customBytes(good);
    bytes[bytes.indexOf("mine")] = 'M';
    damage(bytes);
    QVERIFY(!manager().load());
    QCOMPARE(manager().customTeam.name, L"Custom");
    QCOMPARE(manager().customTeam.groups[0].schemes.size(), std::size_t(6));
    // What else is lost does not cost the name.
    bytes = customBytes(good);
    bytes[bytes.indexOf("scheme3")] = 'S';
    damage(bytes);
    QVERIFY(!manager().load());
    QCOMPARE(manager().customTeam.name, L"mine");
    QCOMPARE(manager().customTeam.groups[0].schemes.size(), std::size_t(5));
}

void tst_storeDamage::withBothDamagedWhatIsWholeInEitherIsKept()
{
    QByteArray bytes = customBytes(good);
    bytes[bytes.indexOf("scheme3")] = 'S';
    bytes[bytes.indexOf("scheme5")] = 'S';
    QByteArray older = good.value("custom.team.last");
    older[older.indexOf("scheme1")] = 'S';
    good["custom.team.last"] = older;
    damage(bytes);
    QVERIFY(!manager().load());
    // "scheme5" was in the newer file only.
    QCOMPARE(schemeNames(manager().customTeam.groups[0]),
             QStringList({"scheme0", "scheme1", "scheme2", "scheme4", "scheme3"}));
    QVERIFY(isSomewhere(bytes));
    QVERIFY(isSomewhere(older));
    QVERIFY(manager().load());
}

void tst_storeDamage::garbageWithoutACopyGivesAFirstStart()
{
    store->setFiles({{"default.team", "garbage"}, {"custom.team", "rubbish"}});
    QVERIFY(!manager().load());
    QVERIFY(manager().defaultTeam.contains("DEM"));
    QVERIFY(manager().customTeam.groups.empty());
    QVERIFY(isSomewhere("garbage"));
    QVERIFY(isSomewhere("rubbish"));
    QVERIFY(manager().load());
    QVERIFY(manager().defaultTeam.contains("DEM"));
}

void tst_storeDamage::damageBetweenLoadAndSaveIsSetAsideToo()
{
    QVERIFY(manager().load());
    QByteArray bytes = customBytes(good);
    bytes[100] = char(bytes[100] ^ 4);
    damage(bytes);
    StoreFixture::setCustomTeam("3", 6);
    QVERIFY(manager().save());
    QCOMPARE(store->files().value("damaged/custom.team.1"), bytes);
    // The damaged file does not become the last good copy.
    QCOMPARE(store->files().value("custom.team.last"), good.value("custom.team.last"));
    QVERIFY(manager().load());
    QCOMPARE(StoreFixture::customAuthor(), QString("3"));
}

void tst_storeDamage::damageBetweenLoadAndSaveLosesNoOthersScheme()
{
    QVERIFY(manager().load());
    store->setFiles(good);
    ChildProcess other([] {
        manager().customTeam.groups[0].schemes.push_back(makeScheme("theirs"));
        return manager().saveCustomTeam() ? 0 : 1;
    });
    QCOMPARE(other.wait(), 0);
    StoreFixture::Files files = store->files();
    files[custom][files[custom].indexOf("scheme3")] = 'S';
    store->setFiles(files);
    manager().customTeam.groups[0].schemes.push_back(makeScheme("mine"));
    QVERIFY(manager().saveCustomTeam());
    QVERIFY(manager().load());
    QCOMPARE(schemeNames(manager().customTeam.groups[0]),
             QStringList({"scheme0", "scheme1", "scheme2", "scheme3", "scheme4", "scheme5", "mine",
                          "theirs"}));
}

void tst_storeDamage::aLostFileComesBackFromItsCopy()
{
    StoreFixture::Files files = good;
    files.remove(custom);
    store->setFiles(files);
    QVERIFY(!manager().load());
    QCOMPARE(StoreFixture::customAuthor(), QString("1"));
    QVERIFY(manager().load());
    QCOMPARE(StoreFixture::customAuthor(), QString("1"));
}

void tst_storeDamage::anUnreadableFileIsNeverReplaced()
{
    // Not with chmod(): whoever may do everything may read such a file all the same.
    QVERIFY(manager().load());
    FaultShim::watch();
    QVERIFY(manager().load());
    const std::vector<FaultShim::Call> calls = FaultShim::stop();
    int at = 0;
    for (std::size_t i = 0; i < calls.size(); ++i) {
        if (calls[i].name == "open" && QString::fromStdString(calls[i].path).endsWith(custom))
            at = int(i) + 1;
    }
    QVERIFY(at > 0);
    FaultShim::watch(FaultShim::Fail, at, EACCES);
    QVERIFY(!manager().load());
    FaultShim::watch();
    QCOMPARE(store->files(), good);
    QCOMPARE(StoreFixture::customAuthor(), QString("1")); // the copy
    // Nor may a save overwrite what it could not read.
    QVERIFY(manager().load());
    StoreFixture::setCustomTeam("3", 3);
    int refused = 0;
    for (int call = 1; call < 60; ++call) {
        store->setFiles(good);
        manager().load();
        StoreFixture::setCustomTeam("3", 3);
        FaultShim::watch(FaultShim::Fail, call, EACCES);
        const bool saved = manager().saveCustomTeam();
        FaultShim::watch();
        refused += saved ? 0 : 1;
        QVERIFY(saved || store->files().value(custom) == good.value(custom));
    }
    QVERIFY(refused > 5);
}

void tst_storeDamage::aNewerSchemaIsReadAndNeverWritten()
{
    QByteArray bytes = customBytes(good);
    bytes[8] = 2;
    const std::string head = bytes.left(24).toStdString();
    qToLittleEndian<quint64>(xxHash64(head), bytes.data() + 24);
    damage(bytes);
    QVERIFY(manager().load());
    QCOMPARE(StoreFixture::customAuthor(), QString("2"));
    const StoreFixture::Files before = store->files();
    StoreFixture::setCustomTeam("3", 3);
    QVERIFY(!manager().save());
    QVERIFY(!manager().saveCustomTeam());
    QCOMPARE(store->files(), before);
    // The same if it came after the load.
    store->setFiles(good);
    QVERIFY(manager().load());
    damage(bytes);
    StoreFixture::setCustomTeam("3", 3);
    QVERIFY(!manager().save());
    QCOMPARE(store->files(), before);
}

void tst_storeDamage::unknownFieldsSurviveLoadEditAndSave()
{
    // A later release stored a field with the second scheme and a ramp of a kind of its own.
    const std::string field("\x45\x23\x01\0\3\0\0\0abc", 11);
    manager().customTeam.groups[0].schemes[1].unknownFields =
        std::make_shared<const std::string>(field);
    VOColorScheme later = makeScheme("later");
    delete later.colorRamp;
    later.colorRamp = nullptr;
    later.unknownFields = std::make_shared<const std::string>(
        std::string("\0\0\0\0\x08\0\0\0\x4d\0\0\0wave", 16) + field);
    manager().customTeam.groups[0].schemes.push_back(later);
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    QVERIFY(!manager().customTeam.groups[0].schemes.back().colorRamp);
    manager().customTeam.groups[0].schemes[1].name = L"renamed";
    manager().customTeam.groups[0].schemes.back().name = L"renamed too";
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    const std::vector<VOColorScheme> &schemes = manager().customTeam.groups[0].schemes;
    QCOMPARE(schemes[1].name, L"renamed");
    QCOMPARE(*schemes[1].unknownFields, field);
    QCOMPARE(schemes.back().name, L"renamed too");
    QCOMPARE(*schemes.back().unknownFields, *later.unknownFields);
    // And a merge, too.
    ChildProcess other([] {
        manager().customTeam.groups[0].schemes.push_back(makeScheme("theirs"));
        return manager().save() ? 0 : 1;
    });
    QCOMPARE(other.wait(), 0);
    manager().customTeam.groups[0].schemes.push_back(makeScheme("mine"));
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    QVERIFY(manager().customTeam.groups[0].contains("theirs"));
    QCOMPARE(*manager().customTeam.groups[0].schemes[1].unknownFields, field);
}

VT_TEST_GUILESS_MAIN(tst_storeDamage)
#include "tst_storeDamage.moc"
