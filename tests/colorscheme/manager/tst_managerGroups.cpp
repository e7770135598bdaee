#include "colorscheme/manager/VTLineEditWidget.h"
#include "tests/support/ManagerTest.h"
#include "tests/support/ManagerUser.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QStandardItemModel>
#include <QtTest>

using VTObjects::toQString;
using VTObjects::VOColorSchemeManager;

/// The manager's commands on groups: add, delete, copy into.
class tst_managerGroups : public ManagerGroupsTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void aNewGroupIsProposedByNumber_data();
    void aNewGroupIsProposedByNumber();
    void anAcceptedGroupStandsLastAndStaysInTheBackground();
    void aCanceledGroupIsNotAdded();
    void groupsAddedOneAfterTheOtherAreNumbered();
    void onlyCustomGroupsCanBeDeleted_data();
    void onlyCustomGroupsCanBeDeleted();
    void deletingAsksFirst();
    void deletingTheShownGroupShowsTheNextNode();
    void deletingTheShownGroupDropsItsEdits();
    void deletingAGroupAboveTheShownOneMovesItsPosition();
    void deletingAGroupBelowTheShownOneKeepsItsPosition();
    void deletingTheLastGroupLeavesAnEmptyTeam();
    void aNodeWithoutItsGroupIsJustRemoved();
};

void tst_managerGroups::aNewGroupIsProposedByNumber_data()
{
    QTest::addColumn<QStringList>("groups");
    QTest::addColumn<QString>("proposal");
    QTest::newRow("none") << QStringList() << QString("Custom group1");
    QTest::newRow("gap") << QStringList{"Custom group2", "Custom group9"}
                         << QString("Custom group10");
    QTest::newRow("other case") << QStringList{"custom group5"} << QString("Custom group1");
    QTest::newRow("no number") << QStringList{"Custom group", "Custom group0", "Custom groupX"}
                               << QString("Custom group1");
    QTest::newRow("one") << QStringList{"Custom group1"} << QString("Custom group2");
    QTest::newRow("inside") << QStringList{"1Custom group2"} << QString("Custom group13");
    QTest::newRow("great") << QStringList{"Custom group2147483647"}
                           << QString("Custom group2147483648");
}

void tst_managerGroups::aNewGroupIsProposedByNumber()
{
    QFETCH(QStringList, groups);
    auto &custom = VOColorSchemeManager::instance()->customTeam.groups;
    custom.clear();
    for (const QString &name : groups)
        custom.push_back(makeGroup(name, {}));
    open();
    QString proposal;
    ModalDriver driver;
    driver.next([&](QWidget *dialog) {
        proposal = dialog->findChild<VTLineEditWidget *>()->lineEdit()->text();
        dialog->close();
    });
    user->command("actionAdd_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QTEST(proposal, "proposal");
}

void tst_managerGroups::anAcceptedGroupStandsLastAndStaysInTheBackground()
{
    open();
    user->click(1, 1);
    ModalDriver driver;
    driver.next([](QWidget *dialog) {
        auto *field = dialog->findChild<VTLineEditWidget *>()->lineEdit();
        field->selectAll();
        QTest::keyClicks(field, QStringLiteral(" Rivers"));
        pressNamed(QStringLiteral("pushButton_ok"))(dialog);
    });
    user->command("actionAdd_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->groups(1), (QStringList{"First", "Second", "Third", " Rivers"}));
    QCOMPARE(user->tree->currentIndex(), user->node(1, 1));
    QCOMPARE(user->names(), QStringList{"s"});
    const auto &groups = workingCopy(*manager, 1).groups;
    QCOMPARE(groups.size(), std::size_t(4));
    QCOMPARE(toQString(groups[3].name), QStringLiteral(" Rivers"));
    QVERIFY(groups[3].schemes.empty());
    // The store hears of it after OK and Yes only.
    QCOMPARE(VOColorSchemeManager::instance()->customTeam.groups.size(), std::size_t(3));
    driver.next(pressText(QStringLiteral("Yes")));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(VOColorSchemeManager::instance()->customTeam.groups.size(), std::size_t(4));
    // And an added group can be shown.
    user.reset();
    manager.reset();
    open();
    user->click(1, 3);
    QCOMPARE(user->table->groupIndex, 3);
}

void tst_managerGroups::aCanceledGroupIsNotAdded()
{
    open();
    ModalDriver driver;
    driver.next(pressNamed(QStringLiteral("pushButton_cancel")));
    user->command("actionAdd_group");
    driver.next([](QWidget *dialog) { dialog->close(); });
    user->command("actionAdd_group");
    QCOMPARE(user->groups(1), (QStringList{"First", "Second", "Third"}));
    // Nothing was modified, so OK does not ask.
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!manager->isVisible());
}

void tst_managerGroups::groupsAddedOneAfterTheOtherAreNumbered()
{
    open();
    ModalDriver driver;
    for (int i = 0; i < 3; ++i) {
        driver.next(pressNamed(QStringLiteral("pushButton_ok")));
        user->command("actionAdd_group");
    }
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->groups(1).mid(3),
             (QStringList{"Custom group1", "Custom group2", "Custom group3"}));
    user->click(1, 5);
    QCOMPARE(user->table->groupIndex, 5);
}

void tst_managerGroups::onlyCustomGroupsCanBeDeleted_data()
{
    QTest::addColumn<int>("team");
    QTest::addColumn<int>("group");
    QTest::newRow("built-in group") << 0 << 0;
    QTest::newRow("favorites group") << 2 << 0;
    QTest::newRow("built-in team") << 0 << -1;
    QTest::newRow("custom team") << 1 << -1;
    QTest::newRow("favorites") << 2 << -1;
    QTest::newRow("nothing") << -1 << -1;
}

void tst_managerGroups::onlyCustomGroupsCanBeDeleted()
{
    QFETCH(int, team);
    QFETCH(int, group);
    open();
    user->tree->setCurrentIndex(team < 0 ? QModelIndex() : user->node(team, group));
    ModalDriver driver;
    user->command("actionDelete_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->groups(0).size(), 2);
    QCOMPARE(user->groups(1).size(), 3);
    QCOMPARE(user->groups(2).size(), 1);
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_managerGroups::deletingAsksFirst()
{
    open();
    user->click(1, 1);
    ModalDriver driver;
    driver.next([&](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        QVERIFY(box);
        QCOMPARE(box->parent(), manager.get());
        QCOMPARE(box->icon(), QMessageBox::Warning);
        QCOMPARE(box->windowTitle(), QStringLiteral("Delete group"));
        QCOMPARE(box->text(), QStringLiteral("The group(Second) cannot be restored after "
                                             "deletion.\nAre you sure to delete it?"));
        QCOMPARE(box->standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
        QCOMPARE(box->button(QMessageBox::Ok)->text(), QStringLiteral("Delete"));
        QCOMPARE(box->button(QMessageBox::Cancel)->text(), QStringLiteral("Cancel"));
        QTest::mouseClick(box->button(QMessageBox::Cancel), Qt::LeftButton);
    });
    user->command("actionDelete_group");
    driver.next([](QWidget *box) { QTest::keyClick(box, Qt::Key_Escape); });
    user->command("actionDelete_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->groups(1), (QStringList{"First", "Second", "Third"}));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!manager->isVisible());
}

void tst_managerGroups::deletingTheShownGroupShowsTheNextNode()
{
    open();
    user->click(1, 1);
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Delete")));
    user->command("actionDelete_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->groups(1), (QStringList{"First", "Third"}));
    QCOMPARE(workingCopy(*manager, 1).groups.size(), std::size_t(2));
    const QModelIndex current = user->tree->currentIndex();
    QCOMPARE(current.parent(), user->node(1));
    QCOMPARE(user->table->teamKind, 1);
    QCOMPARE(user->table->groupIndex, current.row());
    QCOMPARE(user->names(), copyNames(1, current.row()));
}

void tst_managerGroups::deletingTheShownGroupDropsItsEdits()
{
    open();
    user->click(1, 0);
    user->model->setData(user->model->index(0, 2), QStringLiteral("edited"));
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Delete")));
    user->command("actionDelete_group");
    driver.next(pressText(QStringLiteral("Yes")));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    const auto &groups = VOColorSchemeManager::instance()->customTeam.groups;
    QCOMPARE(groups.size(), std::size_t(2));
    QCOMPARE(schemeNames(groups[0]), QStringList{"s"});
    QCOMPARE(schemeNames(groups[1]), (QStringList{"t1", "t2"}));
}

void tst_managerGroups::deletingAGroupAboveTheShownOneMovesItsPosition()
{
    open();
    user->click(1, 2);
    user->model->setData(user->model->index(0, 2), QStringLiteral("edited"));
    // The keyboard moves the tree's current node and leaves the table alone.
    user->tree->setFocus();
    QTest::keyClick(user->tree, Qt::Key_Up);
    QTest::keyClick(user->tree, Qt::Key_Up);
    QCOMPARE(user->tree->currentIndex(), user->node(1, 0));
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Delete")));
    user->command("actionDelete_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(copyNames(1, 0), QStringList{"s"});
    QCOMPARE(copyNames(1, 1), (QStringList{"edited", "t2"}));
}

void tst_managerGroups::deletingAGroupBelowTheShownOneKeepsItsPosition()
{
    open();
    user->click(1, 0);
    user->model->setData(user->model->index(0, 2), QStringLiteral("edited"));
    user->tree->setCurrentIndex(user->node(1, 2));
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Delete")));
    user->command("actionDelete_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(copyNames(1, 0), (QStringList{"edited", "b", "c"}));
    QCOMPARE(copyNames(1, 1), QStringList{"s"});
}

void tst_managerGroups::deletingTheLastGroupLeavesAnEmptyTeam()
{
    VOColorSchemeManager::instance()->customTeam.groups.resize(1);
    open();
    user->click(1, 0);
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Delete")));
    user->command("actionDelete_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(user->groups(1).isEmpty());
    QVERIFY(workingCopy(*manager, 1).groups.empty());
    QVERIFY(user->tree->currentIndex().isValid());
    QVERIFY(user->table->teamKind != 1 || user->table->groupIndex == -1);
}

void tst_managerGroups::aNodeWithoutItsGroupIsJustRemoved()
{
    // The tree's model can be reached from outside.
    open();
    auto *model = qobject_cast<QStandardItemModel *>(user->tree->model());
    QVERIFY(model);
    model->item(1)->appendRow(new QStandardItem(QStringLiteral("Foreign")));
    user->click(1, 3);
    QCOMPARE(user->table->groupIndex, -1);
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Delete")));
    user->command("actionDelete_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->groups(1), (QStringList{"First", "Second", "Third"}));
    QCOMPARE(workingCopy(*manager, 1).groups.size(), std::size_t(3));
}

VT_TEST_MAIN(tst_managerGroups)
#include "tst_managerGroups.moc"
