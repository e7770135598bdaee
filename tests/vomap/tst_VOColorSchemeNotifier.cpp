#include "tests/support/ChildProcess.h"
#include "tests/support/StoreFixture.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOColorSchemeNotifier.h"
#include "vomap/VOStringConversion.h"

#include <QObject>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using namespace VTObjects;

class tst_VOColorSchemeNotifier : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void thereIsOne();
    void aSaveOfSomethingNewIsToldOnce();
    void aSaveOfNothingNewIsNotTold();
    void aLoadIsToldWhereItBroughtSomethingNew();
    void anotherDirectoryWithTheSameSchemesIsNothingNew();
    void aFailedSaveIsToldOnceWithItsReason_data();
    void aFailedSaveIsToldOnceWithItsReason();
    void whatWasNotSavedIsNewAllTheSame();
    void aSlotMayUseTheStore();

private:
    VOColorSchemeManager &manager() { return *VOColorSchemeManager::instance(); }

    std::unique_ptr<StoreFixture> store;
    std::unique_ptr<QSignalSpy> changed;
    std::unique_ptr<QSignalSpy> failed;
};

void tst_VOColorSchemeNotifier::init()
{
    store = std::make_unique<StoreFixture>(StoreFixture::InMemory);
    manager().save();
    VOColorSchemeNotifier *notifier = VOColorSchemeNotifier::instance();
    changed = std::make_unique<QSignalSpy>(notifier, &VOColorSchemeNotifier::storeChanged);
    failed = std::make_unique<QSignalSpy>(notifier, &VOColorSchemeNotifier::saveFailed);
}

void tst_VOColorSchemeNotifier::cleanup()
{
    changed.reset();
    failed.reset();
    store.reset();
}

void tst_VOColorSchemeNotifier::thereIsOne()
{
    QVERIFY(VOColorSchemeNotifier::instance());
    QCOMPARE(VOColorSchemeNotifier::instance(), VOColorSchemeNotifier::instance());
}

void tst_VOColorSchemeNotifier::aSaveOfSomethingNewIsToldOnce()
{
    StoreFixture::setCustomTeam("1", 3);
    QVERIFY(manager().save());
    QCOMPARE(changed->count(), 1);
    StoreFixture::setCustomTeam("2", 3);
    QVERIFY(manager().saveCustomTeam());
    QCOMPARE(changed->count(), 2);
    // All three teams at once.
    for (VOColorSchemeTeam *team :
         {&manager().defaultTeam, &manager().customTeam, &manager().favoriteTeam})
        team->groups.push_back(makeGroup("new", {"a"}));
    QVERIFY(manager().save());
    QCOMPARE(changed->count(), 3);
    QCOMPARE(failed->count(), 0);
}

void tst_VOColorSchemeNotifier::aSaveOfNothingNewIsNotTold()
{
    QVERIFY(manager().save());
    QVERIFY(manager().saveCustomTeam());
    QCOMPARE(changed->count(), 0);
}

void tst_VOColorSchemeNotifier::aLoadIsToldWhereItBroughtSomethingNew()
{
    QVERIFY(manager().load());
    QCOMPARE(changed->count(), 0);
    ChildProcess other([this] {
        StoreFixture::setCustomTeam("2", 3);
        return manager().save() ? 0 : 1;
    });
    QCOMPARE(other.wait(), 0);
    QVERIFY(manager().load());
    QCOMPARE(changed->count(), 1);
    QVERIFY(manager().load());
    QVERIFY(manager().save());
    QCOMPARE(changed->count(), 1);
}

void tst_VOColorSchemeNotifier::anotherDirectoryWithTheSameSchemesIsNothingNew()
{
    StoreFixture::setCustomTeam("1", 3);
    VOColorSchemeManager::setStoreDirectory(toVOString(store->path("second")));
    QVERIFY(manager().save());
    QCOMPARE(changed->count(), 1);
    QVERIFY(manager().load());
    QCOMPARE(changed->count(), 1);
    VOColorSchemeManager::setStoreDirectory(toVOString(store->path()));
    QVERIFY(manager().load());
    QCOMPARE(changed->count(), 2);
}

void tst_VOColorSchemeNotifier::aFailedSaveIsToldOnceWithItsReason_data()
{
    QTest::addColumn<bool>("customTeamOnly");
    QTest::newRow("the whole store") << false;
    QTest::newRow("the custom team") << true;
}

void tst_VOColorSchemeNotifier::aFailedSaveIsToldOnceWithItsReason()
{
    QFETCH(bool, customTeamOnly);
    QFile file(store->path("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    VOColorSchemeManager::setStoreDirectory(toVOString(store->path("file/below")));
    for (int times = 1; times <= 2; ++times) {
        QVERIFY(!(customTeamOnly ? manager().saveCustomTeam() : manager().save()));
        QCOMPARE(failed->count(), times);
        QCOMPARE(failed->last()[0].toString(), store->path("file/below"));
        QVERIFY(!failed->last()[1].toString().isEmpty());
    }
    QCOMPARE(changed->count(), 0);
    VOColorSchemeManager::setStoreDirectory(toVOString(store->path()));
    QVERIFY(customTeamOnly ? manager().saveCustomTeam() : manager().save());
    QCOMPARE(failed->count(), 2);
}

void tst_VOColorSchemeNotifier::whatWasNotSavedIsNewAllTheSame()
{
    QFile file(store->path("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    VOColorSchemeManager::setStoreDirectory(toVOString(store->path("file/below")));
    StoreFixture::setCustomTeam("1", 3);
    QVERIFY(!manager().save());
    QCOMPARE(changed->count(), 1);
    QVERIFY(!manager().save());
    VOColorSchemeManager::setStoreDirectory(toVOString(store->path()));
    QVERIFY(manager().save());
    QCOMPARE(changed->count(), 1);
    QCOMPARE(failed->count(), 2);
}

void tst_VOColorSchemeNotifier::aSlotMayUseTheStore()
{
    QObject host;
    int author = 1;
    connect(VOColorSchemeNotifier::instance(), &VOColorSchemeNotifier::storeChanged, &host, [&] {
        if (author >= 5)
            return;
        StoreFixture::setCustomTeam(QString::number(++author), 2);
        manager().save();
        manager().load();
    });
    StoreFixture::setCustomTeam("1", 3);
    QVERIFY(manager().save());
    QCOMPARE(changed->count(), 5);
    QCOMPARE(StoreFixture::customAuthor(), QString("5"));
    QVERIFY(manager().problems().empty());
}

VT_TEST_GUILESS_MAIN(tst_VOColorSchemeNotifier)
#include "tst_VOColorSchemeNotifier.moc"
