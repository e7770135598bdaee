#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/manager/VTLineEditWidget.h"
#include "tests/support/ManagerTest.h"
#include "tests/support/ManagerUser.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QSignalSpy>
#include <QtTest>

using VTObjects::toQString;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeManager;
using VTObjects::VOEvenColorRamp;

/// The manager's commands on schemes, and OK.
class tst_managerSchemes : public ManagerSchemesTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void anAddedSchemeIsNumberedAndHasTheDefaultRamp();
    void anAddedSchemeIsSelectedAndInSight();
    void aSchemeAddedButCanceledIsGone();
    void aSchemeAddedButEscapedIsShownAndNoReasonToSave();
    void schemesAreAddedToBuiltInAndCustomGroupsOnly_data();
    void schemesAreAddedToBuiltInAndCustomGroupsOnly();
    void nothingIsAddedWhereNoGroupIsShown();
    void editingNeedsACurrentRow();
    void anAcceptedEditRepaintsTheWholeTable();
    void deletingAsksFirst();
    void deletingNothingIsSilent();
    void selectedRowsAreDeletedWhateverTheirOrder();
    void afterDeletingTheRowThatMovedUpIsCurrent_data();
    void afterDeletingTheRowThatMovedUpIsCurrent();
    void anEmptiedFavoritesGroupGoes();
    void anEmptiedFavoritesGroupGoesWithItsOwnRow();
    void emptiedGroupsOfOtherTeamsStay();
    void selectAllSelectsEveryRow();
    void invertingSelectsTheOthers_data();
    void invertingSelectsTheOthers();
    void invertingLeavesTheModeAndMakesTheLastCurrent();
};

void tst_managerSchemes::anAddedSchemeIsNumberedAndHasTheDefaultRamp()
{
    open();
    user->click(1, 1);
    ModalDriver driver;
    QSignalSpy inserted(user->model, &QAbstractItemModel::rowsInserted);
    for (int i = 1; i <= 2; ++i) {
        driver.next([&, i](QWidget *editor) {
            QVERIFY(qobject_cast<VTColorSchemeEditor *>(editor));
            // The row is announced once the user has accepted it.
            QCOMPARE(inserted.count(), i - 1);
            pressNamed(QStringLiteral("pushButton_ok"))(editor);
        });
        user->command("actionAdd_scheme");
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
        QCOMPARE(inserted.count(), i);
        QCOMPARE(inserted.last()[1].toInt(), i - 1);
    }
    QCOMPARE(user->names(), (QStringList{"add_scheme1", "add_scheme2"}));
    const VOColorScheme &scheme = user->model->group().schemes[0];
    QCOMPARE(toQString(scheme.author), QStringLiteral("Admin"));
    QCOMPARE(toQString(scheme.describe), QStringLiteral("Even"));
    auto *ramp = dynamic_cast<VOEvenColorRamp *>(scheme.colorRamp);
    QVERIFY(ramp);
    QCOMPARE(ramp->getLevel(), 10U);
    QCOMPARE(ramp->getColor(0).red, 196.0F);
    QCOMPARE(ramp->getColor(9).blue, 207.0F);
    // In the working copy once the group is left, in the store only after OK.
    user->click(0, 0);
    QCOMPARE(copyNames(1, 1), (QStringList{"add_scheme1", "add_scheme2"}));
    QVERIFY(VOColorSchemeManager::instance()->customTeam.groups[1].schemes.empty());
}

void tst_managerSchemes::anAddedSchemeIsSelectedAndInSight()
{
    auto &schemes = VOColorSchemeManager::instance()->customTeam.groups[0].schemes;
    schemes.assign(200, makeScheme(QStringLiteral("old")));
    open();
    user->click(1, 0);
    ModalDriver driver;
    driver.next(pressNamed(QStringLiteral("pushButton_cancel")));
    user->command("actionAdd_scheme");
    QCOMPARE(user->table->selectedRowNumbers(), QVector<int>{0});
    driver.next(pressNamed(QStringLiteral("pushButton_ok")));
    user->command("actionAdd_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->table->selectedRowNumbers(), QVector<int>{200});
    QCOMPARE(user->table->currentIndex().row(), 200);
    const QRect row = user->table->visualRect(user->model->index(200, 0));
    QVERIFY(user->table->viewport()->rect().contains(row));
}

void tst_managerSchemes::aSchemeAddedButCanceledIsGone()
{
    open();
    user->click(1, 0);
    QSignalSpy inserted(user->model, &QAbstractItemModel::rowsInserted);
    ModalDriver driver;
    driver.next(pressNamed(QStringLiteral("pushButton_cancel")));
    user->command("actionAdd_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(inserted.count(), 0);
    QCOMPARE(user->model->rowCount(), 6);
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!manager->isVisible());
}

void tst_managerSchemes::aSchemeAddedButEscapedIsShownAndNoReasonToSave()
{
    open();
    user->click(1, 0);
    ModalDriver driver;
    driver.next([](QWidget *editor) { QTest::keyClick(editor, Qt::Key_Escape); });
    user->command("actionAdd_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->names().last(), QStringLiteral("add_scheme1"));
    // The table has a place for it, so it can be selected and deleted.
    QVERIFY(user->table->visualRect(user->model->index(6, 2)).isValid());
    user->select({6});
    QCOMPARE(user->table->selectedRowNumbers(), QVector<int>{6});
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(VOColorSchemeManager::instance()->customTeam.groups[0].schemes.size(), std::size_t(6));
}

void tst_managerSchemes::schemesAreAddedToBuiltInAndCustomGroupsOnly_data()
{
    QTest::addColumn<int>("team");
    QTest::addColumn<int>("group");
    QTest::addColumn<bool>("adds");
    QTest::newRow("built-in group") << 0 << 1 << true;
    QTest::newRow("custom group") << 1 << 0 << true;
    QTest::newRow("favorites group") << 2 << 0 << false;
    QTest::newRow("built-in team") << 0 << -1 << false;
    QTest::newRow("custom team") << 1 << -1 << false;
    QTest::newRow("favorites") << 2 << -1 << false;
    QTest::newRow("nothing") << -1 << -1 << false;
}

void tst_managerSchemes::schemesAreAddedToBuiltInAndCustomGroupsOnly()
{
    QFETCH(int, team);
    QFETCH(int, group);
    QFETCH(bool, adds);
    open();
    user->tree->setCurrentIndex(team < 0 ? QModelIndex() : user->node(team, group));
    ModalDriver driver;
    if (adds)
        driver.next(pressNamed(QStringLiteral("pushButton_ok")));
    user->command("actionAdd_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    // Whatever node is current, the shown group is what the command works on.
    QCOMPARE(user->model->rowCount(), adds ? 3 : 2);
}

void tst_managerSchemes::nothingIsAddedWhereNoGroupIsShown()
{
    VOColorSchemeManager::instance()->customTeam.groups.clear();
    open();
    user->click(1);
    QCOMPARE(user->table->groupIndex, -1);
    user->tree->setCurrentIndex(user->node(0, 0));
    ModalDriver driver;
    user->command("actionAdd_scheme");
    user->command("actionEdit_scheme");
    user->command("actionDelete_scheme");
    user->command("actionImport_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->model->rowCount(), 0);
}

void tst_managerSchemes::editingNeedsACurrentRow()
{
    open();
    user->click(1, 1);
    ModalDriver driver;
    user->command("actionEdit_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    user->click(1, 0);
    user->table->setCurrentIndex(QModelIndex());
    user->command("actionEdit_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_managerSchemes::anAcceptedEditRepaintsTheWholeTable()
{
    open();
    user->click(1, 0);
    user->table->setCurrentIndex(user->model->index(2, 4));
    QSignalSpy changed(user->model, &QAbstractItemModel::dataChanged);
    ModalDriver driver;
    driver.next(pressNamed(QStringLiteral("pushButton_cancel")));
    user->command("actionEdit_scheme");
    QCOMPARE(changed.count(), 0);
    driver.next([](QWidget *editor) {
        auto *name = editor->findChild<VTLineEditWidget *>(QStringLiteral("nameWidget"));
        QCOMPARE(name->lineEdit()->text(), QStringLiteral("c"));
        name->lineEdit()->setText(QStringLiteral("edited"));
        pressNamed(QStringLiteral("pushButton_ok"))(editor);
    });
    user->command("actionEdit_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->names(), (QStringList{"a", "b", "edited", "d", "e", "f"}));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed[0][0].toModelIndex(), user->model->index(2, 0));
    QVERIFY(!changed[0][1].toModelIndex().isValid());
    driver.next(pressText(QStringLiteral("Yes")));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(schemeNames(VOColorSchemeManager::instance()->customTeam.groups[0]).at(2),
             QStringLiteral("edited"));
}

void tst_managerSchemes::deletingAsksFirst()
{
    open();
    user->click(1, 0);
    user->select({1, 2});
    ModalDriver driver;
    driver.next([&](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        QVERIFY(box);
        QCOMPARE(box->parent(), manager.get());
        QCOMPARE(box->icon(), QMessageBox::Warning);
        QCOMPARE(box->windowTitle(), QStringLiteral("Delete scheme"));
        QCOMPARE(box->text(), QStringLiteral("The color scheme cannot be restored after "
                                             "deletion.\nAre you sure to delete it?"));
        QCOMPARE(box->standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
        QCOMPARE(box->button(QMessageBox::Ok)->text(), QStringLiteral("Delete"));
        QCOMPARE(box->button(QMessageBox::Cancel)->text(), QStringLiteral("Cancel"));
        QTest::mouseClick(box->button(QMessageBox::Cancel), Qt::LeftButton);
    });
    user->command("actionDelete_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->model->rowCount(), 6);
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!manager->isVisible());
}

void tst_managerSchemes::deletingNothingIsSilent()
{
    open();
    user->click(1, 0);
    user->table->clearSelection();
    ModalDriver driver;
    user->command("actionDelete_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->model->rowCount(), 6);
}

void tst_managerSchemes::selectedRowsAreDeletedWhateverTheirOrder()
{
    for (const QVector<int> &rows : {QVector<int>{1, 3, 5}, QVector<int>{5, 1, 3}}) {
        open();
        user->click(1, 0);
        user->select(rows);
        ModalDriver driver;
        driver.next(pressText(QStringLiteral("Delete")));
        user->command("actionDelete_scheme");
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
        QCOMPARE(user->names(), (QStringList{"a", "c", "e"}));
        user->click(0, 0);
        QCOMPARE(copyNames(1, 0), (QStringList{"a", "c", "e"}));
    }
}

void tst_managerSchemes::afterDeletingTheRowThatMovedUpIsCurrent_data()
{
    QTest::addColumn<QVector<int>>("rows");
    QTest::addColumn<int>("current");
    QTest::newRow("the first") << QVector<int>{0} << 0;
    QTest::newRow("one in the middle") << QVector<int>{2} << 2;
    QTest::newRow("the last") << QVector<int>{5} << 4;
    QTest::newRow("neighbors") << QVector<int>{1, 2, 3} << 1;
    QTest::newRow("with gaps") << QVector<int>{5, 1, 3} << 1;
    QTest::newRow("the end") << QVector<int>{4, 5} << 3;
    QTest::newRow("all") << QVector<int>{0, 1, 2, 3, 4, 5} << -1;
}

void tst_managerSchemes::afterDeletingTheRowThatMovedUpIsCurrent()
{
    QFETCH(QVector<int>, rows);
    QFETCH(int, current);
    open();
    user->click(1, 0);
    user->select(rows);
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Delete")));
    user->command("actionDelete_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->table->currentIndex().row(), current);
    QCOMPARE(user->table->selectedRowNumbers(),
             current < 0 ? QVector<int>() : QVector<int>{current});
    if (current < 0)
        return;
    // So the next command has something to work on.
    const QString name = user->names().at(current);
    driver.next([&name](QWidget *editor) {
        QCOMPARE(editor->findChild<QLineEdit *>(QStringLiteral("lineEdit"))->text(), name);
        pressNamed(QStringLiteral("pushButton_cancel"))(editor);
    });
    user->command("actionEdit_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_managerSchemes::anEmptiedFavoritesGroupGoes()
{
    open();
    user->click(2, 0);
    user->select({0});
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Delete")));
    user->command("actionDelete_scheme");
    QCOMPARE(user->groups(2), (QStringList{"DEM", "Old"}));
    user->select({0});
    driver.next(pressText(QStringLiteral("Delete")));
    user->command("actionDelete_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->groups(2), QStringList{"Old"});
    QCOMPARE(workingCopy(*manager, 2).groups.size(), std::size_t(1));
    QCOMPARE(copyNames(2, 0), QStringList{"o"});
    QCOMPARE(user->tree->currentIndex(), user->node(2, 0));
    QCOMPARE(user->names(), QStringList{"o"});
    // The last group: the team stays, empty.
    user->select({0});
    driver.next(pressText(QStringLiteral("Delete")));
    user->command("actionDelete_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(user->groups(2).isEmpty());
    QVERIFY(workingCopy(*manager, 2).groups.empty());
    QVERIFY(user->table->teamKind != 2 || user->table->groupIndex == -1);
}

void tst_managerSchemes::anEmptiedFavoritesGroupGoesWithItsOwnRow()
{
    // The tree's current node is another one: the keyboard moved it.
    open();
    user->click(2, 1);
    user->tree->setCurrentIndex(user->node(1, 0));
    user->select({0});
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Delete")));
    user->command("actionDelete_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->groups(2), QStringList{"DEM"});
    QCOMPARE(copyNames(2, 0), (QStringList{"f1", "f2"}));
    QCOMPARE(user->table->teamKind, 1);
    QCOMPARE(user->names(), (QStringList{"a", "b", "c", "d", "e", "f"}));
}

void tst_managerSchemes::emptiedGroupsOfOtherTeamsStay()
{
    for (const int team : {0, 1}) {
        open();
        user->click(team, 0);
        user->command("actionSelect_all");
        ModalDriver driver;
        driver.next(pressText(QStringLiteral("Delete")));
        user->command("actionDelete_scheme");
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
        QCOMPARE(user->groups(team).size(), 2);
        QCOMPARE(user->table->teamKind, team);
        QCOMPARE(user->table->groupIndex, 0);
        QCOMPARE(user->names(), QStringList());
    }
}

void tst_managerSchemes::selectAllSelectsEveryRow()
{
    open();
    user->click(1, 0);
    user->tree->setFocus();
    user->command("actionSelect_all");
    QCOMPARE(user->table->selectedRowNumbers(), (QVector<int>{0, 1, 2, 3, 4, 5}));
    QCOMPARE(QApplication::focusWidget(), user->table);
}

void tst_managerSchemes::invertingSelectsTheOthers_data()
{
    QTest::addColumn<QVector<int>>("rows");
    QTest::addColumn<QVector<int>>("others");
    QTest::newRow("none") << QVector<int>() << QVector<int>{0, 1, 2, 3, 4, 5};
    QTest::newRow("all") << QVector<int>{0, 1, 2, 3, 4, 5} << QVector<int>();
    QTest::newRow("first") << QVector<int>{0} << QVector<int>{1, 2, 3, 4, 5};
    QTest::newRow("last") << QVector<int>{5} << QVector<int>{0, 1, 2, 3, 4};
    QTest::newRow("every other") << QVector<int>{1, 3, 5} << QVector<int>{0, 2, 4};
    QTest::newRow("inner") << QVector<int>{2, 3} << QVector<int>{0, 1, 4, 5};
}

void tst_managerSchemes::invertingSelectsTheOthers()
{
    QFETCH(QVector<int>, rows);
    QFETCH(QVector<int>, others);
    open();
    user->click(1, 0);
    user->select(rows);
    user->command("actionInvert_select");
    QCOMPARE(user->table->selectedRowNumbers(), others);
    // As row by row: the last one selected is the current one.
    QCOMPARE(user->table->currentIndex().row(), others.isEmpty() ? 0 : others.last());
    user->command("actionInvert_select");
    QCOMPARE(user->table->selectedRowNumbers(), rows);
}

void tst_managerSchemes::invertingLeavesTheModeAndMakesTheLastCurrent()
{
    open();
    user->click(1, 0);
    user->select({5});
    user->command("actionInvert_select");
    QCOMPARE(user->table->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(user->table->currentIndex(), user->model->index(4, 0));
    // What is selected next with Shift reaches from there.
    QTest::mouseClick(user->table->viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      user->table->visualRect(user->model->index(2, 2)).center());
    QCOMPARE(user->table->selectedRowNumbers(), (QVector<int>{2, 3, 4}));
}

VT_TEST_MAIN(tst_managerSchemes)
#include "tst_managerSchemes.moc"
