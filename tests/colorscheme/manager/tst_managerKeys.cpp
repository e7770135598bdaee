#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/manager/VTLineEditWidget.h"
#include "tests/support/ManagerTest.h"
#include "tests/support/RealInput.h"
#include "tests/support/TestMain.h"
#include "tests/support/windowsLeft.h"

#include "vomap/VOColorSchemeManager.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

using VTObjects::VOColorSchemeManager;

/// The manager in a real window, worked with a real keyboard alone.
class tst_managerKeys : public ManagerSchemesTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void tabGoesThroughAllAndBack();
    void noToolButtonIsOutOfReach();
    void returnOnARowEditsIt();
    void f2RenamesTheRow();
    void keysOfTheRowsDoWhatTheToolButtonsDo();
    void toolTipsNameTheKeys();
    void returnOnANodeShowsItsGroup();
    void returnWithAModifierIsNotForANode();
    void okIsTheDefaultWhereNoRowHasTheKeyboard();
    void keysInAnOpenFieldBelongToIt();
    void aHeldKeyActsOnce();
    void aToolButtonIsPressedWithSpace();
    void aSchemeIsMadeRenamedCopiedAndDeleted();

private:
    /// Lets the manager show its custom group "Mine", with the keyboard in the table.
    void showMine();
    /// What has the keyboard: an object's name, or that of a tool button's action.
    static QString focused();
    /// Once a window over the manager has gone. Some window managers then let nobody have the
    /// keyboard, as long as nobody asks.
    bool isBackInTheTable() const;
    QLineEdit *field() const;
};

namespace {

const QStringList stops{"teamView",
                        "actionAdd_group",
                        "actionDelete_group",
                        "actionAdd_scheme",
                        "actionEdit_scheme",
                        "actionDelete_scheme",
                        "actionSelect_all",
                        "actionInvert_select",
                        "actionImport_scheme",
                        "actionExport_scheme",
                        "schemeView",
                        "pushButton_ok",
                        "pushButton_cancel"};

/// As a person does: waits until the window has the keyboard, because one that is closed before
/// leaves nobody with it; and answers once more if it is still there.
ModalDriver::Handler onceActive(const ModalDriver::Handler &answer)
{
    return [answer](QWidget *opened) {
        QVERIFY(QTest::qWaitForWindowActive(opened));
        const QPointer<QWidget> window = opened;
        const auto isGone = [&window] { return !window || !window->isVisible(); };
        do {
            answer(window);
        } while (!QTest::qWaitFor(isGone, 2000));
    };
}

} // namespace

void tst_managerKeys::init()
{
    setUp();
    RealInput::moveTo(QPoint(3, 3));
    open();
}

void tst_managerKeys::cleanup()
{
    tearDown();
    QCOMPARE(windowsLeft(), QStringList());
}

void tst_managerKeys::showMine()
{
    user->click(1, 0);
    QCOMPARE(user->names(), (QStringList{"a", "b", "c", "d", "e", "f"}));
    QTRY_COMPARE(focused(), QStringLiteral("schemeView"));
}

QString tst_managerKeys::focused()
{
    const QWidget *widget = QApplication::focusWidget();
    const auto *button = qobject_cast<const QToolButton *>(widget);
    if (button && button->defaultAction())
        return button->defaultAction()->objectName();
    return widget ? widget->objectName() : QString();
}

bool tst_managerKeys::isBackInTheTable() const
{
    const auto isBack = [] { return focused() == QLatin1String("schemeView"); };
    // Asked too early, it would take the keyboard from the next window again.
    if (QTest::qWaitFor(isBack, 3000))
        return true;
    manager->activateWindow();
    return QTest::qWaitFor(isBack);
}

QLineEdit *tst_managerKeys::field() const
{
    auto *widget = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    return user->table->isAncestorOf(widget) ? widget : nullptr;
}

void tst_managerKeys::tabGoesThroughAllAndBack()
{
    QTRY_COMPARE(focused(), QStringLiteral("schemeView"));
    const int table = stops.indexOf(QStringLiteral("schemeView"));
    for (int i = 1; i <= stops.size(); ++i) {
        RealInput::press(QStringLiteral("Tab"));
        QTRY_COMPARE(focused(), stops[(table + i) % stops.size()]);
    }
    for (int i = stops.size() - 1; i >= 0; --i) {
        RealInput::press(QStringLiteral("shift+Tab"));
        QTRY_COMPARE(focused(), stops[(table + i) % stops.size()]);
    }
    // The arrows go on within the table, and with it Tab leaves from any row.
    RealInput::press(QStringLiteral("Down"));
    QTRY_COMPARE(user->table->currentIndex().row(), 1);
    RealInput::press(QStringLiteral("Tab"));
    QTRY_COMPARE(focused(), QStringLiteral("pushButton_ok"));
    QCOMPARE(user->table->currentIndex().row(), 1);
}

void tst_managerKeys::noToolButtonIsOutOfReach()
{
    const auto *bar = manager->findChild<QToolBar *>();
    for (const QToolButton *button : bar->findChildren<QToolButton *>())
        QVERIFY(button->isVisible() == (button->defaultAction() != nullptr));
    // A narrow tool bar has another button, for what there is no room for.
    const int width = manager->width();
    manager->resize(manager->minimumSizeHint());
    QTRY_VERIFY(manager->width() < width);
    const auto *more = bar->findChild<QToolButton *>(QStringLiteral("qt_toolbar_ext_button"));
    QVERIFY(more);
    QTRY_VERIFY(more->isVisible());
    for (int i = 0; i < stops.size() && QApplication::focusWidget() != more; ++i) {
        const QWidget *before = QApplication::focusWidget();
        RealInput::press(QStringLiteral("shift+Tab"));
        QTRY_VERIFY(QApplication::focusWidget() != before);
    }
    QCOMPARE(QApplication::focusWidget(), more);
    ModalDriver driver;
    driver.next([](QWidget *popup) {
        QCOMPARE(popup->actions().last()->objectName(), QStringLiteral("actionExport_scheme"));
        RealInput::press(QStringLiteral("Escape"));
    });
    RealInput::press(QStringLiteral("space"));
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(QApplication::focusWidget(), more);
}

void tst_managerKeys::returnOnARowEditsIt()
{
    showMine();
    for (const char *key : {"Return", "KP_Enter"}) {
        RealInput::press(QStringLiteral("Down"));
        QTRY_COMPARE(user->table->currentIndex().row(), QLatin1String(key) == "Return" ? 1 : 2);
        const QString name = user->names().at(user->table->currentIndex().row());
        ModalDriver driver;
        driver.next([&name](QWidget *window) {
            QVERIFY(qobject_cast<VTColorSchemeEditor *>(window));
            QCOMPARE(window->findChild<QLineEdit *>(QStringLiteral("lineEdit"))->text(), name);
            onceActive(pressNamed(QStringLiteral("pushButton_cancel")))(window);
        });
        RealInput::press(QLatin1String(key));
        QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
        QVERIFY(manager->isVisible());
        QVERIFY(isBackInTheTable());
    }
}

void tst_managerKeys::f2RenamesTheRow()
{
    showMine();
    RealInput::press(QStringLiteral("Down"));
    QTRY_COMPARE(user->table->currentIndex().row(), 1);
    RealInput::press(QStringLiteral("F2"));
    QTRY_VERIFY(field());
    QVERIFY(qobject_cast<VTLineEditWidget *>(field()->parentWidget()));
    QCOMPARE(field()->selectedText(), QStringLiteral("b"));
    RealInput::type(QStringLiteral("new"));
    RealInput::press(QStringLiteral("Return"));
    QTRY_COMPARE(user->names().at(1), QStringLiteral("new"));
    QTRY_COMPARE(focused(), QStringLiteral("schemeView"));
    QVERIFY(manager->isVisible());
    QCOMPARE(user->table->currentIndex().row(), 1);
    // Return is the row's again.
    ModalDriver driver;
    driver.next(onceActive(pressNamed(QStringLiteral("pushButton_cancel"))));
    RealInput::press(QStringLiteral("Return"));
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_managerKeys::keysOfTheRowsDoWhatTheToolButtonsDo()
{
    showMine();
    RealInput::press(QStringLiteral("ctrl+a"));
    QTRY_COMPARE(user->table->selectedRowNumbers().size(), 6);
    RealInput::press(QStringLiteral("Next"));
    QTRY_COMPARE(user->table->selectedRowNumbers(), QVector<int>{5});
    ModalDriver driver;
    driver.next(onceActive(pressText(QStringLiteral("Delete"))));
    RealInput::press(QStringLiteral("Delete"));
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->names(), (QStringList{"a", "b", "c", "d", "e"}));
    QCOMPARE(user->table->selectedRowNumbers(), QVector<int>{4});
    QVERIFY(isBackInTheTable());
    driver.next(onceActive(pressNamed(QStringLiteral("pushButton_ok"))));
    RealInput::press(QStringLiteral("Insert"));
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->names().last(), QStringLiteral("add_scheme1"));
    QCOMPARE(user->table->selectedRowNumbers(), QVector<int>{5});
}

void tst_managerKeys::toolTipsNameTheKeys()
{
    const QMap<QString, QPair<QString, QKeySequence>> keys{
        {"actionAdd_scheme", {"Add scheme", QKeySequence(Qt::Key_Insert)}},
        {"actionEdit_scheme", {"Edit scheme", QKeySequence(Qt::Key_Return)}},
        {"actionDelete_scheme", {"Delete scheme", QKeySequence(Qt::Key_Delete)}},
        {"actionSelect_all", {"Select all", QKeySequence(Qt::CTRL + Qt::Key_A)}},
    };
    for (QToolButton *button : manager->findChild<QToolBar *>()->findChildren<QToolButton *>()) {
        const QAction *action = button->defaultAction();
        if (!action)
            continue;
        const auto key = keys.value(action->objectName());
        if (key.first.isEmpty()) {
            QCOMPARE(button->toolTip(), action->text());
            continue;
        }
        QCOMPARE(action->text(), key.first);
        QCOMPARE(button->toolTip(), QStringLiteral("%1 (%2)").arg(
                                        key.first, key.second.toString(QKeySequence::NativeText)));
    }
}

void tst_managerKeys::returnOnANodeShowsItsGroup()
{
    user->tree->setFocus();
    user->tree->setCurrentIndex(user->node(1, 0));
    // The arrows alone show nothing.
    QCOMPARE(user->names(), (QStringList{"d1", "d2"}));
    RealInput::press(QStringLiteral("Return"));
    QTRY_COMPARE(user->names().first(), QStringLiteral("a"));
    QVERIFY(manager->isVisible());
    QTRY_COMPARE(focused(), QStringLiteral("schemeView"));
    // As by a click, what was edited in the table is kept.
    RealInput::press(QStringLiteral("F2"));
    QTRY_VERIFY(field());
    RealInput::type(QStringLiteral("z"));
    RealInput::press(QStringLiteral("Return"));
    QTRY_COMPARE(user->names().first(), QStringLiteral("z"));
    user->tree->setFocus();
    RealInput::press(QStringLiteral("Down"));
    QTRY_COMPARE(user->tree->currentIndex(), user->node(1, 1));
    RealInput::press(QStringLiteral("KP_Enter"));
    QTRY_COMPARE(user->names(), QStringList());
    QCOMPARE(copyNames(1, 0).first(), QStringLiteral("z"));
    // A team's node means its first group.
    user->tree->setFocus();
    user->tree->setCurrentIndex(user->node(2));
    RealInput::press(QStringLiteral("Return"));
    QTRY_COMPARE(user->names(), (QStringList{"f1", "f2"}));
    QCOMPARE(user->tree->currentIndex(), user->node(2, 0));
}

// It would mean to add to the selection of the table.
void tst_managerKeys::returnWithAModifierIsNotForANode()
{
    showMine();
    QSignalSpy clicked(user->tree, &QTreeView::clicked);
    for (const Qt::KeyboardModifier modifier : {Qt::ShiftModifier, Qt::ControlModifier})
        QTest::keyClick(user->tree, Qt::Key_Return, modifier);
    QCOMPARE(clicked.count(), 0);
    QVERIFY(manager->isVisible());
    QTest::keyClick(user->tree, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(clicked.count(), 1);
}

void tst_managerKeys::okIsTheDefaultWhereNoRowHasTheKeyboard()
{
    QVERIFY(user->ok->isDefault());
    user->click(1, 1);
    QCOMPARE(user->names(), QStringList());
    QTRY_COMPARE(focused(), QStringLiteral("schemeView"));
    RealInput::press(QStringLiteral("Return"));
    QTRY_VERIFY(!manager->isVisible());
    QCOMPARE(manager->result(), int(QDialog::Accepted));
}

void tst_managerKeys::keysInAnOpenFieldBelongToIt()
{
    showMine();
    RealInput::press(QStringLiteral("F2"));
    QTRY_VERIFY(field());
    RealInput::type(QStringLiteral("long"));
    RealInput::press(QStringLiteral("Home"));
    RealInput::press(QStringLiteral("Delete"));
    QTRY_COMPARE(field()->text(), QStringLiteral("ong"));
    RealInput::press(QStringLiteral("ctrl+a"));
    QTRY_COMPARE(field()->selectedText(), QStringLiteral("ong"));
    RealInput::press(QStringLiteral("Insert"));
    RealInput::press(QStringLiteral("F2"));
    QCOMPARE(user->names().size(), 6);
    QCOMPARE(user->table->selectedRowNumbers(), QVector<int>{0});
    RealInput::press(QStringLiteral("Escape"));
    QTRY_COMPARE(focused(), QStringLiteral("schemeView"));
    QCOMPARE(user->names().first(), QStringLiteral("a"));
    QVERIFY(manager->isVisible());
}

void tst_managerKeys::aHeldKeyActsOnce()
{
    showMine();
    // Held since it pressed a button of a dialog that has gone, or showed the group of a node.
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
    QSignalSpy activated(user->table, &QTableView::activated);
    ModalDriver driver; // closes what nobody waits for
    QApplication::sendEvent(user->table, &held);
    QVERIFY(held.isAccepted()); // nobody else gets it
    QCOMPARE(activated.count(), 0);
    // A node can have a group without rows.
    user->click(1, 1);
    QCOMPARE(user->names(), QStringList());
    QApplication::sendEvent(user->table, &held);
    QVERIFY(held.isAccepted());
    for (const char *name : {"actionAdd_scheme", "actionDelete_scheme"})
        QVERIFY(!manager->findChild<QAction *>(QLatin1String(name))->autoRepeat());
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(manager->isVisible());
}

void tst_managerKeys::aToolButtonIsPressedWithSpace()
{
    showMine();
    // Backwards from the table: Export, Import, Invert select.
    for (int i = 0; i < 3; ++i)
        RealInput::press(QStringLiteral("shift+Tab"));
    QTRY_COMPARE(focused(), QStringLiteral("actionInvert_select"));
    RealInput::press(QStringLiteral("space"));
    QTRY_COMPARE(user->table->selectedRowNumbers(), (QVector<int>{1, 2, 3, 4, 5}));
    QCOMPARE(focused(), QStringLiteral("actionInvert_select"));
    // A click still leaves the keyboard where it is.
    user->table->setFocus();
    QTRY_COMPARE(focused(), QStringLiteral("schemeView"));
    auto *bar = manager->findChild<QToolBar *>();
    RealInput::click(
        bar->widgetForAction(manager->findChild<QAction *>(QStringLiteral("actionInvert_select"))));
    QTRY_COMPARE(user->table->selectedRowNumbers(), QVector<int>{0});
    QCOMPARE(focused(), QStringLiteral("schemeView"));
}

void tst_managerKeys::aSchemeIsMadeRenamedCopiedAndDeleted()
{
    const auto press = [](const char *key) { RealInput::press(QLatin1String(key)); };
    QTRY_COMPARE(focused(), QStringLiteral("schemeView"));
    // To the tree, past the tool bar, and down to the user's first group.
    for (int i = 0; i < 10; ++i)
        press("shift+Tab");
    QTRY_COMPARE(focused(), QStringLiteral("teamView"));
    while (user->tree->currentIndex() != user->node(1, 0)) {
        const QModelIndex before = user->tree->currentIndex();
        press("Down");
        QTRY_VERIFY(user->tree->currentIndex() != before);
    }
    press("Return");
    QTRY_COMPARE(user->names().size(), 6);
    // A new scheme, under a name of its own.
    ModalDriver driver;
    driver.next(onceActive(pressNamed(QStringLiteral("pushButton_ok"))));
    press("Insert");
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(isBackInTheTable());
    press("F2");
    QTRY_VERIFY(field());
    RealInput::type(QStringLiteral("rain"));
    press("Return");
    QTRY_COMPARE(user->names().last(), QStringLiteral("rain"));
    // Into the favorites by the menu key.
    press("Menu");
    QTRY_VERIFY(QApplication::activePopupWidget());
    press("Up");
    press("Return");
    QTRY_COMPARE(user->groups(2), (QStringList{"DEM", "Old", "Mine"}));
    QVERIFY(isBackInTheTable());
    // And away again.
    driver.next(onceActive([](QWidget *) { RealInput::press(QStringLiteral("Escape")); }));
    press("Delete");
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->names().size(), 7);
    QVERIFY(isBackInTheTable());
    driver.next(onceActive(pressText(QStringLiteral("Delete"))));
    press("Delete");
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->names(), (QStringList{"a", "b", "c", "d", "e", "f"}));
    QCOMPARE(copyNames(2, 2), QStringList{"rain"});
    // Out by "Ok", and saved.
    QVERIFY(isBackInTheTable());
    press("Tab");
    QTRY_COMPARE(focused(), QStringLiteral("pushButton_ok"));
    driver.next(onceActive(pressText(QStringLiteral("Yes"))));
    press("Return");
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QTRY_VERIFY(!manager->isVisible());
    QCOMPARE(schemeNames(VOColorSchemeManager::instance()->favoriteTeam.groups[2]),
             QStringList{"rain"});
}

VT_TEST_MAIN(tst_managerKeys)
#include "tst_managerKeys.moc"
