#include "colorscheme/manager/ColorSchemeNodeInfo.h"
#include "tests/support/ManagerTest.h"
#include "tests/support/ManagerUser.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QAction>
#include <QBoxLayout>
#include <QHeaderView>
#include <QStandardItemModel>
#include <QToolBar>
#include <QtTest>

#include <memory>

using VTObjects::toQString;
using VTObjects::VOColorSchemeManager;

namespace {

ColorSchemeNodeInfo infoOf(const QModelIndex &index)
{
    return index.data(Qt::UserRole + 1).value<ColorSchemeNodeInfo>();
}

} // namespace

class tst_VTColorSchemeManager : public ManagerTreeTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void itsWindowCanOnlyBeClosed();
    void theToolBarHoldsItsCommandsInOrder();
    void treeAndTableShareTheWidth();
    void allCommandsAreSlotsOfTheirNames();
    void theTreeShowsTeamsAndGroups();
    void builtInGroupsStandInTheirOwnOrder();
    void theNodesKnowTheStoresNames();
    void theTreeCanBeReadWhereItIsSelected();
    void rowsOfTheTreeKeepTheirHeight();
    void itStartsWithTheFirstBuiltInGroup();
    void itStartsEmptyWithoutAKnownBuiltInGroup();
    void aClickShowsTheGroup_data();
    void aClickShowsTheGroup();
    void aClickOnATeamShowsItsFirstGroup();
    void aClickOnAnEmptyTeamShowsNothing();
    void theKeyboardDoesNotSwitchGroups();
    void invalidClicksAreIgnored();
    void foreignTeamsAreLeftAlone();
    void theCloseButtonRejects();
    void editsInTheTableOutliveAChangeOfTheGroup();
    void aCallFromCodeDoesNotWriteBack();
    void cancelLeavesTheStoreAsItWas();
    void escapeRejects();
};

void tst_VTColorSchemeManager::itsWindowCanOnlyBeClosed()
{
    QWidget parent;
    VTColorSchemeManager dialog(&parent);
    QCOMPARE(dialog.parentWidget(), &parent);
    QCOMPARE(dialog.objectName(), QStringLiteral("VTColorSchemeManagerBase"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Color scheme manager"));
    QCOMPARE(dialog.size(), QSize(790, 530));
    const Qt::WindowFlags added = Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
    QCOMPARE(dialog.windowFlags(), Qt::Dialog | Qt::WindowCloseButtonHint | added);
}

void tst_VTColorSchemeManager::theToolBarHoldsItsCommandsInOrder()
{
    open();
    auto *bar = manager->findChild<QToolBar *>(QStringLiteral("toolbar"));
    QVERIFY(bar);
    QCOMPARE(bar->windowTitle(), QStringLiteral("result toolbar"));
    QCOMPARE(bar->iconSize(), QSize(24, 24));
    QCOMPARE(bar->minimumSize(), QSize(0, 30));
    QCOMPARE(bar->maximumSize(), QSize(16777215, 30));
    QCOMPARE(bar->height(), 30);
    QVERIFY(!bar->isFloatable());
    QCOMPARE(bar->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(bar->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);

    QStringList names;
    QStringList texts;
    for (const QAction *action : bar->actions()) {
        if (action->isSeparator()) {
            names.append(QStringLiteral("-"));
            continue;
        }
        names.append(action->objectName());
        texts.append(action->text());
        QVERIFY(action->isEnabled());
        QVERIFY(action->isVisible());
        QCOMPARE(action->parent(), manager.get());
        QVERIFY2(!action->icon().pixmap(24).isNull(), qPrintable(action->objectName()));
    }
    QCOMPARE(names, (QStringList{"actionAdd_group", "actionDelete_group", "-", "actionAdd_scheme",
                                 "actionEdit_scheme", "actionDelete_scheme", "-",
                                 "actionSelect_all", "actionInvert_select", "-",
                                 "actionImport_scheme", "actionExport_scheme"}));
    QCOMPARE(texts,
             (QStringList{"Add group", "Delete group", "Add scheme", "Edit scheme", "Delete scheme",
                          "Select all", "Invert select", "Import scheme", "Export scheme"}));
}

void tst_VTColorSchemeManager::treeAndTableShareTheWidth()
{
    open();
    auto *outer = manager->findChild<QVBoxLayout *>(QStringLiteral("verticalLayout_2"));
    QCOMPARE(manager->layout(), outer);
    QCOMPARE(outer->spacing(), 9);
    QCOMPARE(outer->contentsMargins().top(), 0);
    QVERIFY(outer->contentsMargins().left() > 0);
    auto *inner = manager->findChild<QVBoxLayout *>(QStringLiteral("verticalLayout"));
    QCOMPARE(inner->spacing(), 0);
    QCOMPARE(outer->itemAt(0)->layout(), inner);
    QVERIFY(inner->itemAt(0)->layout()->objectName() == QLatin1String("horizontalLayout_4"));
    auto *panes = manager->findChild<QHBoxLayout *>(QStringLiteral("horizontalLayout_2"));
    QCOMPARE(inner->itemAt(1)->layout(), panes);
    QCOMPARE(panes->spacing(), 6);
    QCOMPARE(panes->itemAt(0)->widget(), user->tree);
    QCOMPARE(panes->itemAt(1)->widget(), user->table);

    QCOMPARE(user->tree->minimumWidth(), 180);
    QCOMPARE(user->tree->sizePolicy().horizontalStretch(), 1);
    QCOMPARE(user->tree->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(user->tree->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(user->tree->iconSize(), QSize(20, 20));
    QVERIFY(user->tree->isHeaderHidden());
    QCOMPARE(user->tree->styleSheet(),
             QStringLiteral("QTreeView::item:hover{background-color:rgb(255,0,0,125)}QTreeView::"
                            "item:selected{background-color:rgb(0,0,255,50)}"));
    QCOMPARE(user->table->parent(), manager.get());
    QCOMPARE(user->table->sizePolicy().horizontalStretch(), 3);
    QCOMPARE(user->table->columnWidth(0), 25);
    QVERIFY(user->table->horizontalHeader()->stretchLastSection());
    QVERIFY(user->table->verticalHeader()->isHidden());
    QCOMPARE(user->table->verticalHeader()->defaultSectionSize(), 25);
    QCOMPARE(user->table->verticalHeader()->minimumSectionSize(), 25);
    QCOMPARE(user->table->rowHeight(0), 25);

    auto *buttons = manager->findChild<QHBoxLayout *>(QStringLiteral("horizontalLayout"));
    QCOMPARE(outer->itemAt(1)->layout(), buttons);
    QCOMPARE(buttons->itemAt(0)->spacerItem()->sizeHint(), QSize(40, 20));
    QCOMPARE(buttons->itemAt(1)->widget(), user->ok);
    QCOMPARE(buttons->itemAt(2)->widget(), user->cancel);
    QCOMPARE(user->ok->text(), QStringLiteral("Ok"));
    QCOMPARE(user->cancel->text(), QStringLiteral("Cancel"));
}

void tst_VTColorSchemeManager::allCommandsAreSlotsOfTheirNames()
{
    const QMetaObject &meta = VTColorSchemeManager::staticMetaObject;
    for (const char *slot :
         {"onTeamViewClicked(QModelIndex)", "onClose()", "onAddGroup()", "onDeleteGroup()",
          "onCopyDefaultGroup(bool)", "onCopyCustomGroup(bool)", "onAddScheme()", "onEditScheme()",
          "onDeleteScheme()", "onSelectAll()", "onInvertSelect()", "onImportScheme()",
          "onExportScheme()", "onInformation(bool)", "onOk()"})
        QVERIFY2(meta.indexOfSlot(slot) >= 0, slot);
    QCOMPARE(meta.indexOfMethod("onFavorite(QSet<int>)"), -1);
    const QMetaObject &table = VTColorSchemeView::staticMetaObject;
    for (const char *slot : {"onExportScheme()", "onDoubleClicked(QModelIndex)",
                             "onNameEdited(QString)", "onNameEditingFinished()", "onFavorite()"})
        QVERIFY2(table.indexOfSlot(slot) >= 0, slot);
    QVERIFY(table.indexOfSignal("information(bool)") >= 0);
    QVERIFY(QMetaType::type("ColorSchemeNodeInfo") != QMetaType::UnknownType);
}

void tst_VTColorSchemeManager::theTreeShowsTeamsAndGroups()
{
    open();
    const QAbstractItemModel *model = user->tree->model();
    QCOMPARE(model->rowCount(), 3);
    QCOMPARE(model->columnCount(), 1);
    QCOMPARE(model->parent(), manager.get());
    const QStringList teams{"Default", "Custom", "Favorite"};
    for (int team = 0; team < 3; ++team) {
        const QModelIndex root = user->node(team);
        QCOMPARE(root.data().toString(), teams[team]);
        QCOMPARE(root.data(Qt::FontRole).value<QFont>().pointSize(), 10);
        QCOMPARE(root.data(Qt::FontRole).value<QFont>().weight(), 75);
        QVERIFY(!root.data(Qt::DecorationRole).value<QIcon>().pixmap(24).isNull());
        QVERIFY(user->tree->isExpanded(root));
        for (int row = 0; row < model->rowCount(root); ++row)
            QVERIFY(!user->node(team, row).data(Qt::DecorationRole).value<QIcon>().isNull());
    }
    QCOMPARE(user->groups(1), (QStringList{"Mine", "Empty"}));
    QCOMPARE(user->groups(2), QStringList{"DEM"});
}

void tst_VTColorSchemeManager::builtInGroupsStandInTheirOwnOrder()
{
    open();
    // "DEM" before "Unique", whatever the store's order, and no "Secret".
    QCOMPARE(user->groups(0), (QStringList{"For DEM", "For unique"}));

    auto &groups = VOColorSchemeManager::instance()->defaultTeam.groups;
    groups = {makeGroup("Random", {}), makeGroup("Even", {}),   makeGroup("Graph", {}),
              makeGroup("Range", {}),  makeGroup("Unique", {}), makeGroup("DEM", {})};
    VTColorSchemeManager other;
    QCOMPARE(ManagerUser(other).groups(0),
             (QStringList{"For DEM", "For unique", "For unique range", "For graph", "Even scheme",
                          "Random scheme"}));
}

void tst_VTColorSchemeManager::theNodesKnowTheStoresNames()
{
    VOColorSchemeManager::instance()->customTeam.name = L"users";
    open();
    for (int team = 0; team < 3; ++team)
        QCOMPARE(infoOf(user->node(team)).type, team);
    QCOMPARE(toQString(infoOf(user->node(1)).name), QStringLiteral("users"));
    QCOMPARE(infoOf(user->node(0, 1)).type, int(GroupNode));
    QCOMPARE(toQString(infoOf(user->node(0, 1)).name), QStringLiteral("Unique"));
    QCOMPARE(toQString(infoOf(user->node(1, 0)).name), QStringLiteral("Mine"));
    QCOMPARE(toQString(infoOf(user->node(2, 0)).name), QStringLiteral("DEM"));
    QCOMPARE(toQString(ColorSchemeNodeInfo().name), QString());
}

void tst_VTColorSchemeManager::theTreeCanBeReadWhereItIsSelected()
{
    open();
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        const QPalette palette = user->tree->palette();
        QCOMPARE(palette.color(group, QPalette::HighlightedText),
                 palette.color(group, QPalette::Text));
    }
}

void tst_VTColorSchemeManager::rowsOfTheTreeKeepTheirHeight()
{
    // Also before anything is painted, which loads icons.
    manager = std::make_unique<VTColorSchemeManager>();
    user = std::make_unique<ManagerUser>(*manager);
    const int before = user->tree->visualRect(user->node(1, 0)).height();
    manager->show();
    QVERIFY(QTest::qWaitForWindowExposed(manager.get()));
    QVERIFY(!manager->grab().isNull());
    user->click(0, 0);
    user->table->selectRow(0);
    manager->onFavorite({0});
    user->tree->doItemsLayout();
    const QSize large(64, 64);
    QCOMPARE(user->node(1, 0).data(Qt::DecorationRole).value<QIcon>().actualSize(large),
             QSize(16, 16));
    QCOMPARE(user->node(1).data(Qt::DecorationRole).value<QIcon>().actualSize(large),
             QSize(24, 24));
    QCOMPARE(user->tree->visualRect(user->node(1, 0)).height(), before);
}

void tst_VTColorSchemeManager::itStartsWithTheFirstBuiltInGroup()
{
    open();
    QCOMPARE(user->tree->currentIndex(), user->node(0, 0));
    QCOMPARE(user->table->teamKind, 0);
    QCOMPARE(user->table->groupIndex, 2);
    QCOMPARE(user->names(), (QStringList{"d1", "d2", "d3"}));
    QCOMPARE(QApplication::focusWidget(), user->table);
    QCOMPARE(user->table->selectedRowNumbers(), QVector<int>{0});
}

void tst_VTColorSchemeManager::itStartsEmptyWithoutAKnownBuiltInGroup()
{
    VOColorSchemeManager::instance()->defaultTeam.groups = {makeGroup("Secret", {"s"})};
    open();
    QCOMPARE(user->table->teamKind, 0);
    QCOMPARE(user->table->groupIndex, -1);
    QCOMPARE(user->names(), QStringList());
    QVERIFY(user->table->selectedRowNumbers().isEmpty());
}

void tst_VTColorSchemeManager::aClickShowsTheGroup_data()
{
    QTest::addColumn<int>("team");
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("first built-in") << 0 << 0 << 2 << QStringList{"d1", "d2", "d3"};
    QTest::newRow("second built-in") << 0 << 1 << 0 << QStringList{"u1", "u2"};
    QTest::newRow("custom") << 1 << 0 << 0 << QStringList{"m1", "m2"};
    QTest::newRow("empty custom") << 1 << 1 << 1 << QStringList();
    QTest::newRow("favorites") << 2 << 0 << 0 << QStringList{"f1"};
}

void tst_VTColorSchemeManager::aClickShowsTheGroup()
{
    QFETCH(int, team);
    QFETCH(int, group);
    open();
    user->click(team, group);
    QCOMPARE(user->table->teamKind, team);
    QTEST(user->table->groupIndex, "index");
    QTEST(user->names(), "names");
    QCOMPARE(QApplication::focusWidget(), user->table);
    QCOMPARE(user->table->selectedRowNumbers(),
             user->names().isEmpty() ? QVector<int>() : QVector<int>{0});
}

void tst_VTColorSchemeManager::aClickOnATeamShowsItsFirstGroup()
{
    open();
    const QStringList firsts{"d1", "m1", "f1"};
    for (const int team : {2, 1, 0}) {
        user->click(team);
        QCOMPARE(user->tree->currentIndex(), user->node(team, 0));
        QCOMPARE(user->table->teamKind, team);
        QCOMPARE(user->table->groupIndex, team == 0 ? 2 : 0);
        QCOMPARE(user->names().first(), firsts[team]);
    }
}

void tst_VTColorSchemeManager::aClickOnAnEmptyTeamShowsNothing()
{
    VOColorSchemeManager::instance()->customTeam.groups.clear();
    VOColorSchemeManager::instance()->favoriteTeam.groups.clear();
    open();
    for (const int team : {1, 2}) {
        user->click(team);
        QCOMPARE(user->tree->currentIndex(), user->node(team));
        QCOMPARE(user->table->teamKind, team);
        QCOMPARE(user->table->groupIndex, -1);
        QCOMPARE(user->names(), QStringList());
    }
}

void tst_VTColorSchemeManager::theKeyboardDoesNotSwitchGroups()
{
    open();
    user->tree->setFocus();
    QTest::keyClick(user->tree, Qt::Key_Down);
    QCOMPARE(user->tree->currentIndex(), user->node(0, 1));
    QCOMPARE(user->names(), (QStringList{"d1", "d2", "d3"}));
    QCOMPARE(user->table->groupIndex, 2);
}

void tst_VTColorSchemeManager::invalidClicksAreIgnored()
{
    open();
    user->click(1, 0);
    Q_EMIT user->tree->clicked(QModelIndex());
    Q_EMIT user->tree->clicked(user->model->index(0, 0)); // of another model
    QCOMPARE(user->table->teamKind, 1);
    QCOMPARE(user->names(), (QStringList{"m1", "m2"}));
}

void tst_VTColorSchemeManager::foreignTeamsAreLeftAlone()
{
    // The tree's model can be reached from outside; a node of no known team switches nothing.
    open();
    user->click(1, 0);
    auto *model = qobject_cast<QStandardItemModel *>(user->tree->model());
    QVERIFY(model);
    auto *team = new QStandardItem(QStringLiteral("Foreign"));
    team->setData(QVariant::fromValue(ColorSchemeNodeInfo("Foreign", GroupNode)), Qt::UserRole + 1);
    team->appendRow(new QStandardItem(QStringLiteral("inner")));
    model->appendRow(team);
    Q_EMIT user->tree->clicked(user->node(3));
    QCOMPARE(user->tree->currentIndex(), user->node(3, 0));
    QCOMPARE(user->table->teamKind, 1);
    QCOMPARE(user->table->groupIndex, 0);
    QCOMPARE(user->names(), (QStringList{"m1", "m2"}));
    // Without children it counts as an empty team.
    team->removeRow(0);
    Q_EMIT user->tree->clicked(user->node(3));
    QCOMPARE(user->table->teamKind, 3);
    QCOMPARE(user->table->groupIndex, -1);
    QCOMPARE(user->names(), QStringList());
}

void tst_VTColorSchemeManager::theCloseButtonRejects()
{
    open();
    user->click(1, 0);
    user->model->setData(user->model->index(0, 2), QStringLiteral("edited"));
    manager->setResult(QDialog::Accepted);
    QSignalSpy rejected(manager.get(), &QDialog::rejected);
    QVERIFY(manager->close());
    QCOMPARE(rejected.count(), 1);
    QCOMPARE(manager->result(), int(QDialog::Rejected));
    QCOMPARE(schemeNames(VOColorSchemeManager::instance()->customTeam.groups[0]),
             (QStringList{"m1", "m2"}));
}

void tst_VTColorSchemeManager::editsInTheTableOutliveAChangeOfTheGroup()
{
    open();
    for (int team = 0; team < 3; ++team) {
        user->click(team, 0);
        user->model->setData(user->model->index(0, 3), QStringLiteral("edited%1").arg(team));
    }
    for (int team = 0; team < 3; ++team) {
        user->click(team, 0);
        QCOMPARE(user->model->index(0, 3).data().toString(), QStringLiteral("edited%1").arg(team));
    }
    QCOMPARE(toQString(VOColorSchemeManager::instance()->customTeam.groups[0].schemes[0].author),
             QStringLiteral("Admin"));
}

void tst_VTColorSchemeManager::aCallFromCodeDoesNotWriteBack()
{
    open();
    user->click(1, 0);
    user->model->setData(user->model->index(0, 3), QStringLiteral("edited"));
    QVERIFY(QMetaObject::invokeMethod(manager.get(), "onTeamViewClicked",
                                      Q_ARG(QModelIndex, user->node(1, 0))));
    QCOMPARE(user->model->index(0, 3).data().toString(), QStringLiteral("Admin"));
}

void tst_VTColorSchemeManager::cancelLeavesTheStoreAsItWas()
{
    open();
    user->click(1, 0);
    user->model->setData(user->model->index(0, 2), QStringLiteral("edited"));
    user->click(0, 0);
    QTest::mouseClick(user->cancel, Qt::LeftButton);
    QVERIFY(!manager->isVisible());
    QCOMPARE(manager->result(), int(QDialog::Rejected));
    user.reset();
    manager.reset();
    QCOMPARE(schemeNames(VOColorSchemeManager::instance()->customTeam.groups[0]),
             (QStringList{"m1", "m2"}));
    // The next manager takes nothing over, so its OK has nothing to ask.
    open();
    ModalDriver driver;
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(manager->result(), int(QDialog::Accepted));
}

void tst_VTColorSchemeManager::escapeRejects()
{
    open();
    manager->setResult(QDialog::Accepted);
    QTest::keyClick(manager.get(), Qt::Key_Escape);
    QVERIFY(!manager->isVisible());
    QCOMPARE(manager->result(), int(QDialog::Rejected));
}

VT_TEST_MAIN(tst_VTColorSchemeManager)
#include "tst_VTColorSchemeManager.moc"
