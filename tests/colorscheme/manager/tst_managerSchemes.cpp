#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/manager/ColorSchemeNodeInfo.h"
#include "colorscheme/manager/VTLineEditWidget.h"
#include "tests/colorscheme/manager/ManagerUser.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using VTObjects::toQString;
using VTObjects::toVOString;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeManager;
using VTObjects::VOEvenColorRamp;

/// The manager's commands on schemes, and OK.
class tst_managerSchemes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void anAddedSchemeIsNumberedAndHasTheDefaultRamp();
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
    void anEmptiedFavoritesGroupGoes();
    void anEmptiedFavoritesGroupGoesWithItsOwnRow();
    void emptiedGroupsOfOtherTeamsStay();
    void selectAllSelectsEveryRow();
    void invertingSelectsTheOthers_data();
    void invertingSelectsTheOthers();
    void invertingLeavesTheModeAndMakesTheLastCurrent();
    void importReadsManyFilesPastABadOne();
    void importedNamesAreSuffixedOnce();
    void importTurnsBackslashes();
    void importStartsAtTheLastPath();
    void importNeedsAShownGroup_data();
    void importNeedsAShownGroup();
    void importGoesIntoTheShownGroup();
    void importingNothingModifiesNothing();
    void importingOnlyBadFilesStillAsksToSave();
    void exportIsThatOfTheTable();
    void favoritesMirrorTheNameOfTheirGroup();
    void favoritesAreCopiedAgainAndAgain();
    void favoringWithoutRowsStillMakesTheGroup();
    void favoringWithoutAGroupDoesNothing();
    void favoringRowsThatDoNotExistIsHarmless();
    void favoritesOfAFavoritesGroupHaveNoName();
    void informationSwitchesOk();
    void okWithoutChangesClosesAtOnce();
    void okAsksAfterAnyEditInTheTable_data();
    void okAsksAfterAnyEditInTheTable();
    void okAsksAfterADoubleClickThatWasAccepted();
    void okAsksAndSaves();
    void okAndNoClosesWithoutSaving();
    void aTeamThatNobodyChangedIsWrittenBackToo();

private:
    void open();
    QStringList copyNames(int team, int group) const;
    QString writeFile(const QString &file, const QString &schemeName);

    std::unique_ptr<TestStore> store;
    std::unique_ptr<VTColorSchemeManager> manager;
    std::unique_ptr<ManagerUser> user;
};

void tst_managerSchemes::init()
{
    store = std::make_unique<TestStore>();
    auto *records = VOColorSchemeManager::instance();
    records->defaultTeam.groups = {makeGroup("DEM", {"d1", "d2"}), makeGroup("Unique", {"u"})};
    records->customTeam.groups = {makeGroup("Mine", {"a", "b", "c", "d", "e", "f"}),
                                  makeGroup("Empty", {})};
    records->favoriteTeam.groups = {makeGroup("DEM", {"f1", "f2"}), makeGroup("Old", {"o"})};
}

void tst_managerSchemes::cleanup()
{
    user.reset();
    manager.reset();
    store.reset();
}

void tst_managerSchemes::open()
{
    user.reset();
    manager = std::make_unique<VTColorSchemeManager>();
    user = std::make_unique<ManagerUser>(*manager);
    manager->show();
    manager->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(manager.get()));
}

QStringList tst_managerSchemes::copyNames(int team, int group) const
{
    return schemeNames(workingCopy(*manager, team).groups.at(std::size_t(group)));
}

QString tst_managerSchemes::writeFile(const QString &file, const QString &schemeName)
{
    const QString path = store->path(file);
    if (!VOColorSchemeManager::saveFile(makeScheme(schemeName), toVOString(path)))
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

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

void tst_managerSchemes::importReadsManyFilesPastABadOne()
{
    const QStringList paths{writeFile(QStringLiteral("1.vcs"), QStringLiteral("x")),
                            store->path(QStringLiteral("2.vcs")),
                            writeFile(QStringLiteral("3.vcs"), QStringLiteral("y"))};
    QFile bad(paths[1]);
    QVERIFY(bad.open(QIODevice::WriteOnly));
    bad.write("no scheme");
    bad.close();
    open();
    user->click(1, 1);
    QSignalSpy inserted(user->model, &QAbstractItemModel::rowsInserted);
    ModalDriver driver;
    driver.next([&](QWidget *window) {
        auto *dialog = qobject_cast<QFileDialog *>(window);
        QVERIFY(dialog);
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Open color scheme file"));
        QCOMPARE(dialog->nameFilters(), QStringList{"*.vcs"});
        QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFiles);
        QVERIFY(dialog->testOption(QFileDialog::DontUseNativeDialog));
        choose(paths)(dialog);
    });
    driver.next([&](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        QVERIFY(box);
        QCOMPARE(box->windowTitle(), QStringLiteral("Open color scheme file"));
        QCOMPARE(box->text(), QStringLiteral("Failed to open file!"));
        QCOMPARE(box->icon(), QMessageBox::Information);
        QCOMPARE(box->standardButtons(), QMessageBox::StandardButtons(QMessageBox::Close));
        QCOMPARE(user->names(), QStringList{"x"});
        box->close();
    });
    user->command("actionImport_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->names(), (QStringList{"x", "y"}));
    QCOMPARE(inserted.count(), 2);
    user->click(0, 0);
    QCOMPARE(copyNames(1, 1), (QStringList{"x", "y"}));
}

void tst_managerSchemes::importedNamesAreSuffixedOnce()
{
    const QString path = writeFile(QStringLiteral("a.vcs"), QStringLiteral("a"));
    open();
    user->click(1, 0);
    for (int i = 0; i < 2; ++i) {
        ModalDriver driver;
        driver.next(choose({path}));
        user->command("actionImport_scheme");
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    }
    QCOMPARE(user->names().mid(6), (QStringList{"a_1", "a_1"}));
}

void tst_managerSchemes::importTurnsBackslashes()
{
    // Here a file's name may hold a backslash; as a path it means the folder below.
    QVERIFY(QDir(store->path()).mkdir(QStringLiteral("x")));
    writeFile(QStringLiteral("x/y.vcs"), QStringLiteral("below"));
    const QString path = writeFile(QStringLiteral("x\\y.vcs"), QStringLiteral("beside"));
    open();
    user->click(1, 1);
    ModalDriver driver;
    driver.next(choose({path}));
    user->command("actionImport_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->names(), QStringList{"below"});
}

void tst_managerSchemes::importStartsAtTheLastPath()
{
    store->setLastOpenFilePath(store->path());
    open();
    QString folder;
    ModalDriver driver;
    driver.next([&](QWidget *dialog) {
        folder = qobject_cast<QFileDialog *>(dialog)->directory().canonicalPath();
        dialog->close();
    });
    user->command("actionImport_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(folder, QDir(store->path()).canonicalPath());
}

void tst_managerSchemes::importNeedsAShownGroup_data()
{
    QTest::addColumn<int>("team");
    QTest::addColumn<bool>("asks");
    QTest::newRow("no node") << -1 << false;
    QTest::newRow("built-in team") << 0 << true;
    QTest::newRow("custom team without groups") << 1 << false;
    QTest::newRow("favorites with groups") << 2 << true;
}

void tst_managerSchemes::importNeedsAShownGroup()
{
    QFETCH(int, team);
    QFETCH(bool, asks);
    VOColorSchemeManager::instance()->customTeam.groups.clear();
    open();
    user->tree->setCurrentIndex(team < 0 ? QModelIndex() : user->node(team));
    ModalDriver driver;
    if (asks)
        driver.next([](QWidget *dialog) { dialog->close(); });
    user->command("actionImport_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_managerSchemes::importGoesIntoTheShownGroup()
{
    const QString path = writeFile(QStringLiteral("x.vcs"), QStringLiteral("x"));
    open();
    user->click(2, 1);
    user->tree->setCurrentIndex(user->node(1, 0));
    ModalDriver driver;
    driver.next(choose({path}));
    user->command("actionImport_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->names(), (QStringList{"o", "x"}));
    user->click(1, 0);
    QCOMPARE(copyNames(2, 1), (QStringList{"o", "x"}));
    QCOMPARE(copyNames(1, 0).size(), 6);
}

void tst_managerSchemes::importingNothingModifiesNothing()
{
    open();
    ModalDriver driver;
    driver.next([](QWidget *dialog) { dialog->close(); });
    user->command("actionImport_scheme");
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!manager->isVisible());
}

void tst_managerSchemes::importingOnlyBadFilesStillAsksToSave()
{
    QFile bad(store->path(QStringLiteral("bad.vcs")));
    QVERIFY(bad.open(QIODevice::WriteOnly));
    bad.close();
    open();
    ModalDriver driver;
    driver.next(choose({bad.fileName()}));
    driver.next([](QWidget *box) { box->close(); });
    user->command("actionImport_scheme");
    driver.next(pressText(QStringLiteral("Cancel")));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_managerSchemes::exportIsThatOfTheTable()
{
    open();
    user->click(1, 0);
    user->select({1, 4});
    ModalDriver driver;
    driver.next(choose({store->path()}));
    driver.next(pressText(QStringLiteral("OK")));
    user->command("actionExport_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(QDir(store->path()).entryList(QDir::Files), (QStringList{"b.vcs", "e.vcs"}));
}

void tst_managerSchemes::favoritesMirrorTheNameOfTheirGroup()
{
    open();
    user->click(0, 1);
    manager->onFavorite({0});
    user->click(1, 0);
    manager->onFavorite({1, 3});
    QCOMPARE(user->groups(2), (QStringList{"DEM", "Old", "For unique", "Mine"}));
    const auto info = user->node(2, 2).data(Qt::UserRole + 1).value<ColorSchemeNodeInfo>();
    QCOMPARE(toQString(info.name), QStringLiteral("Unique"));
    QCOMPARE(info.type, int(GroupNode));
    QVERIFY(!user->node(2, 2).data(Qt::DecorationRole).value<QIcon>().isNull());
    QCOMPARE(toQString(workingCopy(*manager, 2).groups[2].name), QStringLiteral("Unique"));
    QCOMPARE(copyNames(2, 2), QStringList{"u"});
    QCOMPARE(copyNames(2, 3), (QStringList{"b", "d"}));
    user->click(2, 3);
    QCOMPARE(user->names(), (QStringList{"b", "d"}));
}

void tst_managerSchemes::favoritesAreCopiedAgainAndAgain()
{
    open();
    user->click(0, 0);
    user->model->setData(user->model->index(1, 2), QStringLiteral("edited"));
    manager->onFavorite({1});
    manager->onFavorite({1});
    QCOMPARE(user->groups(2), (QStringList{"DEM", "Old"}));
    QCOMPARE(copyNames(2, 0), (QStringList{"f1", "f2", "edited", "edited"}));
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Yes")));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(schemeNames(VOColorSchemeManager::instance()->favoriteTeam.groups[0]),
             (QStringList{"f1", "f2", "edited", "edited"}));
}

void tst_managerSchemes::favoringWithoutRowsStillMakesTheGroup()
{
    open();
    user->click(1, 0);
    manager->onFavorite({});
    QCOMPARE(user->groups(2), (QStringList{"DEM", "Old", "Mine"}));
    QCOMPARE(copyNames(2, 2), QStringList());
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Cancel")));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_managerSchemes::favoringWithoutAGroupDoesNothing()
{
    VOColorSchemeManager::instance()->customTeam.groups.clear();
    open();
    user->click(1);
    manager->onFavorite({0, 1});
    QCOMPARE(user->groups(2), (QStringList{"DEM", "Old"}));
    ModalDriver driver;
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_managerSchemes::favoringRowsThatDoNotExistIsHarmless()
{
    open();
    user->click(1, 0);
    manager->onFavorite({-1, 5, 6, 1000});
    QCOMPARE(copyNames(2, 2), QStringList{"f"});
}

void tst_managerSchemes::favoritesOfAFavoritesGroupHaveNoName()
{
    // The menu never offers it; who calls it gets a group without a name.
    open();
    user->click(2, 0);
    manager->onFavorite({0});
    QCOMPARE(user->groups(2), (QStringList{"DEM", "Old", ""}));
    QCOMPARE(copyNames(2, 2), QStringList{"f1"});
    // And nothing gets lost when that one is shown.
    user->click(2, 2);
    manager->onFavorite({0});
    user->click(2, 0);
    QCOMPARE(copyNames(2, 2), (QStringList{"f1", "f1"}));
}

void tst_managerSchemes::informationSwitchesOk()
{
    open();
    Q_EMIT user->table->information(false);
    QVERIFY(!user->ok->isEnabled());
    Q_EMIT user->table->information(true);
    QVERIFY(user->ok->isEnabled());
}

void tst_managerSchemes::okWithoutChangesClosesAtOnce()
{
    open();
    user->click(1, 0);
    user->click(2, 0);
    manager->setResult(QDialog::Rejected);
    ModalDriver driver;
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!manager->isVisible());
    QCOMPARE(manager->result(), int(QDialog::Accepted));
}

void tst_managerSchemes::okAsksAfterAnyEditInTheTable_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("role");
    QTest::addColumn<bool>("asks");
    QTest::newRow("name") << 2 << int(Qt::EditRole) << true;
    QTest::newRow("author") << 3 << int(Qt::EditRole) << true;
    QTest::newRow("description") << 4 << int(Qt::EditRole) << true;
    // Deliberate: also where nothing is stored.
    QTest::newRow("number") << 0 << int(Qt::EditRole) << true;
    QTest::newRow("preview") << 1 << int(Qt::EditRole) << true;
    QTest::newRow("nowhere") << -1 << int(Qt::EditRole) << true;
    QTest::newRow("another role") << 2 << int(Qt::DisplayRole) << false;
}

void tst_managerSchemes::okAsksAfterAnyEditInTheTable()
{
    QFETCH(int, column);
    QFETCH(int, role);
    QFETCH(bool, asks);
    open();
    user->click(1, 0);
    QCOMPARE(user->model->setData(user->model->index(0, column), QStringLiteral("x"), role), asks);
    ModalDriver driver;
    if (asks)
        driver.next(pressText(QStringLiteral("Cancel")));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!manager->isVisible());
}

void tst_managerSchemes::okAsksAfterADoubleClickThatWasAccepted()
{
    for (const bool accepted : {false, true}) {
        open();
        user->click(1, 0);
        ModalDriver driver;
        driver.next(pressNamed(accepted ? QStringLiteral("pushButton_ok")
                                        : QStringLiteral("pushButton_cancel")));
        if (accepted)
            driver.next(pressText(QStringLiteral("Cancel")));
        user->table->onDoubleClicked(user->model->index(1, 1));
        QTest::mouseClick(user->ok, Qt::LeftButton);
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
        QVERIFY(!manager->isVisible());
    }
}

void tst_managerSchemes::okAsksAndSaves()
{
    open();
    user->click(1, 0);
    user->model->setData(user->model->index(0, 2), QStringLiteral("edited"));
    ModalDriver driver;
    driver.next([&](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        QVERIFY(box);
        QCOMPARE(box->parent(), manager.get());
        QCOMPARE(box->icon(), QMessageBox::Warning);
        QCOMPARE(box->windowTitle(), QStringLiteral("Color schemes"));
        QCOMPARE(box->text(), QStringLiteral("The color schemes have been modified.\nDo you need "
                                             "to save them?"));
        QCOMPARE(box->standardButtons(), QMessageBox::Yes | QMessageBox::Cancel);
        QCOMPARE(box->button(QMessageBox::Yes)->text(), QStringLiteral("Yes"));
        QCOMPARE(box->button(QMessageBox::Cancel)->text(), QStringLiteral("Cancel"));
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
    });
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(manager->result(), int(QDialog::Accepted));
    auto *records = VOColorSchemeManager::instance();
    QCOMPARE(schemeNames(records->customTeam.groups[0]).first(), QStringLiteral("edited"));
    // On the disk too: a store read anew shows it.
    records->customTeam.groups.clear();
    QVERIFY(records->load());
    QCOMPARE(schemeNames(records->customTeam.groups.at(0)).first(), QStringLiteral("edited"));
}

void tst_managerSchemes::okAndNoClosesWithoutSaving()
{
    open();
    user->click(1, 0);
    user->model->setData(user->model->index(0, 2), QStringLiteral("edited"));
    for (const bool escape : {false, true}) {
        ModalDriver driver;
        driver.next([&](QWidget *box) {
            if (escape)
                QTest::keyClick(box, Qt::Key_Escape);
            else
                pressText(QStringLiteral("Cancel"))(box);
        });
        manager->show();
        manager->setResult(QDialog::Rejected);
        QVERIFY(QMetaObject::invokeMethod(manager.get(), "onOk"));
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
        QVERIFY(!manager->isVisible());
        QCOMPARE(manager->result(), int(QDialog::Accepted));
        QCOMPARE(schemeNames(VOColorSchemeManager::instance()->customTeam.groups[0]).first(),
                 QStringLiteral("a"));
    }
}

void tst_managerSchemes::aTeamThatNobodyChangedIsWrittenBackToo()
{
    // What a host changes in the store meanwhile gives way to the manager's copies.
    open();
    user->click(1, 0);
    user->model->setData(user->model->index(0, 2), QStringLiteral("edited"));
    VOColorSchemeManager::instance()->favoriteTeam.groups.clear();
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Yes")));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(VOColorSchemeManager::instance()->favoriteTeam.groups.size(), std::size_t(2));
}

QTEST_MAIN(tst_managerSchemes)
#include "tst_managerSchemes.moc"
