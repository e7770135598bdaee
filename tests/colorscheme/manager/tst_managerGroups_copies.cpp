#include "colorscheme/manager/ColorSchemeNodeInfo.h"
#include "tests/support/ManagerTest.h"
#include "tests/support/ManagerUser.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"

#include <QAction>
#include <QMenu>
#include <QtTest>

#include <memory>

using VTObjects::VOColorSchemeGroup;
using VTObjects::VOColorSchemeManager;

/// The manager's commands on groups: add, delete, copy into.
class tst_managerGroups_copies : public ManagerGroupsTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void copiesGoIntoABuiltInGroupUnderFreeNames();
    void copiesIntoACustomGroupShareTheirNewName();
    void theNewNameInACustomGroupComesFromTheBuiltInOneAtItsPlace_data();
    void theNewNameInACustomGroupComesFromTheBuiltInOneAtItsPlace();
    void copiesTakeUnsavedEditsAlong();
    void copyingNothingStillAsksToSave();
    void copiesIntoTheOtherGroupOfTheShownNameAreKept();
    void aDeletedTargetIsIgnored();
    void anUnknownBuiltInTargetMeansTheFirstGroup();
};

void tst_managerGroups_copies::copiesGoIntoABuiltInGroupUnderFreeNames()
{
    open();
    user->click(1, 0);
    user->select({0, 1, 2});
    copyTo(0, QStringLiteral("For DEM"));
    QCOMPARE(copyNames(0, 0), (QStringList{"a", "b", "add_scheme1", "add_scheme2", "c"}));
    copyTo(0, QStringLiteral("For DEM"));
    QCOMPARE(copyNames(0, 0), (QStringList{"a", "b", "add_scheme1", "add_scheme2", "c",
                                           "add_scheme3", "add_scheme4", "add_scheme5"}));
    // Neither table nor tree are touched, nor the store.
    QCOMPARE(user->names(), (QStringList{"a", "b", "c"}));
    QCOMPARE(user->table->selectedRowNumbers(), (QVector<int>{0, 1, 2}));
    QCOMPARE(VOColorSchemeManager::instance()->defaultTeam.groups[0].schemes.size(),
             std::size_t(2));
    const auto &copied = workingCopy(*manager, 0).groups[0].schemes[2];
    QVERIFY(copied.colorRamp);
    QVERIFY(copied.colorRamp != user->model->group().schemes[0].colorRamp);
}

void tst_managerGroups_copies::copiesIntoACustomGroupShareTheirNewName()
{
    open();
    user->click(0, 0);
    user->select({0, 1});
    copyTo(1, QStringLiteral("First"));
    QCOMPARE(copyNames(1, 0), (QStringList{"a", "b", "c", "add_scheme1", "add_scheme1"}));
    copyTo(1, QStringLiteral("Second"));
    QCOMPARE(copyNames(1, 1), (QStringList{"s", "a", "b"}));
}

void tst_managerGroups_copies::theNewNameInACustomGroupComesFromTheBuiltInOneAtItsPlace_data()
{
    QTest::addColumn<QStringList>("builtIn");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("newName");
    QTest::newRow("numbered there") << QStringList{"add_scheme4"} << 1 << QString("add_scheme5");
    QTest::newRow("numbered elsewhere")
        << QStringList{"add_scheme4"} << 0 << QString("add_scheme1");
    QTest::newRow("no such built-in group")
        << QStringList{"add_scheme4"} << 2 << QString("add_scheme1");
}

void tst_managerGroups_copies::theNewNameInACustomGroupComesFromTheBuiltInOneAtItsPlace()
{
    QFETCH(QStringList, builtIn);
    QFETCH(int, position);
    QFETCH(QString, newName);
    auto *records = VOColorSchemeManager::instance();
    records->defaultTeam.groups[1] = makeGroup("Unique", builtIn);
    for (VOColorSchemeGroup &group : records->customTeam.groups)
        group.schemes = makeGroup("", {"a", "add_scheme1", "add_scheme9"}).schemes;
    open();
    user->click(0, 0);
    user->select({0});
    copyTo(1, user->groups(1).at(position));
    QCOMPARE(copyNames(1, position), (QStringList{"a", "add_scheme1", "add_scheme9", newName}));
}

void tst_managerGroups_copies::copiesTakeUnsavedEditsAlong()
{
    open();
    user->click(1, 0);
    user->model->setData(user->model->index(1, 2), QStringLiteral("edited"));
    user->select({1});
    copyTo(0, QStringLiteral("For unique"));
    QCOMPARE(copyNames(0, 1), (QStringList{"u", "edited"}));
}

void tst_managerGroups_copies::copyingNothingStillAsksToSave()
{
    for (const int team : {0, 1}) {
        open();
        user->table->clearSelection();
        copyTo(team, team == 0 ? QStringLiteral("For unique") : QStringLiteral("Second"));
        QCOMPARE(copyNames(team, 1).size(), 1);
        ModalDriver driver;
        driver.next(pressText(QStringLiteral("Cancel")));
        QTest::mouseClick(user->ok, Qt::LeftButton);
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
        user.reset();
        manager.reset();
    }
}

void tst_managerGroups_copies::copiesIntoTheOtherGroupOfTheShownNameAreKept()
{
    auto &groups = VOColorSchemeManager::instance()->customTeam.groups;
    groups = {makeGroup("Twin", {"a"}), makeGroup("Twin", {"b"})};
    open();
    user->click(1, 0);
    user->select({0});
    copyTo(1, QStringLiteral("Twin"));
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Yes")));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(schemeNames(groups[0]), QStringList{"a"});
    QCOMPARE(schemeNames(groups[1]), (QStringList{"b", "a"}));
}

void tst_managerGroups_copies::aDeletedTargetIsIgnored()
{
    open();
    user->click(0, 0);
    const std::unique_ptr<QMenu> menu(manager->customMenu());
    QAction *target = menu->actions().first();
    user->click(1, 0);
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Delete")));
    user->command("actionDelete_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    target->trigger();
    QCOMPARE(copyNames(1, 0), QStringList{"s"});
    QCOMPARE(copyNames(1, 1), (QStringList{"t1", "t2"}));
    // Without an action to say where, nothing is copied either.
    QVERIFY(QMetaObject::invokeMethod(manager.get(), "onCopyCustomGroup", Q_ARG(bool, false)));
    QVERIFY(QMetaObject::invokeMethod(manager.get(), "onCopyDefaultGroup", Q_ARG(bool, false)));
    QCOMPARE(copyNames(0, 0), (QStringList{"a", "b"}));
}

void tst_managerGroups_copies::anUnknownBuiltInTargetMeansTheFirstGroup()
{
    open();
    user->click(1, 2);
    user->select({1});
    QAction action;
    action.setData(QVariant::fromValue(ColorSchemeNodeInfo("Nowhere", GroupNode)));
    QVERIFY(
        connect(&action, SIGNAL(triggered(bool)), manager.get(), SLOT(onCopyDefaultGroup(bool))));
    action.trigger();
    QCOMPARE(copyNames(0, 0), (QStringList{"a", "b", "t2"}));
    QCOMPARE(copyNames(0, 1), QStringList{"u"});
}

VT_TEST_MAIN(tst_managerGroups_copies)
#include "tst_managerGroups_copies.moc"
