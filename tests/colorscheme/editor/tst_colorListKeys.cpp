#include "tests/support/EditorUnderTest.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/RealInput.h"
#include "tests/support/TestMain.h"
#include "vtcontrolbase/VTColorMenu.h"

#include <QAction>
#include <QHeaderView>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

#include <algorithm>
#include <utility>

/// The editor's colours under a real keyboard.
class tst_colorListKeys : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup();

    void tabLeavesTheColors();
    void returnPicksTheColorOfTheRow_data();
    void returnPicksTheColorOfTheRow();
    void aHeldReturnActsOnce();
    void returnPressesOkWhereNoRowHasTheFocus();
    void theColorsAreReachedByKey();
    void keysActOnTheColorsAsTheButtonsDo();
    void keysOfTheColorsDoNothingElsewhere();
    void theToolButtonsAreReachedByTab();
    void aFileIsAskedForByKey();
    void toolTipsNameTheKeys();
};

namespace {

const QVector<QColor> fourColors{QColor(200, 30, 30), QColor(30, 200, 30), QColor(30, 30, 200),
                                 QColor(200, 200, 30)};

bool show(EditorUnderTest &test)
{
    test.editor().move(80, 20); // with room for a menu below, on a low screen too
    test.editor().show();
    return QTest::qWaitForWindowActive(&test.editor());
}

QPoint cell(const EditorUnderTest &test, int row, int column)
{
    const QRect rect = test.view()->visualRect(test.model()->index(row, column));
    return test.view()->viewport()->mapToGlobal(rect.center());
}

} // namespace

void tst_colorListKeys::cleanup()
{
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_colorListKeys::tabLeavesTheColors()
{
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    // All the way round in both directions, from the list and over the buttons.
    int row = 1; // not the same twice, which would be a double-click
    for (const char *key : {"Tab", "shift+Tab"}) {
        RealInput::click(cell(test, row++, 1));
        QTRY_VERIFY(test.view()->hasFocus());
        RealInput::press(QString::fromLatin1(key));
        QTRY_VERIFY(!test.view()->hasFocus());
        bool isOkSeen = false;
        QWidget *const first = QApplication::focusWidget();
        for (int i = 0; i < 30; ++i) {
            QWidget *const former = QApplication::focusWidget();
            isOkSeen = isOkSeen || former == test.ok();
            RealInput::press(QString::fromLatin1(key));
            QTRY_VERIFY(QApplication::focusWidget() != former);
            if (QApplication::focusWidget() == first)
                break;
        }
        QCOMPARE(QApplication::focusWidget(), first);
        QVERIFY(isOkSeen);
    }
    QCOMPARE(test.selectedRows(), QVector<int>({2}));
}

void tst_colorListKeys::returnPicksTheColorOfTheRow_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("column");
    QTest::newRow("Return") << "Return" << 1;
    QTest::newRow("Enter") << "KP_Enter" << 1;
    QTest::newRow("F2") << "F2" << 1;
    QTest::newRow("Return on the number") << "Return" << 0;
}

void tst_colorListKeys::returnPicksTheColorOfTheRow()
{
    QFETCH(QString, key);
    QFETCH(int, column);
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    RealInput::click(cell(test, 1, column));
    RealInput::press(QStringLiteral("Down"));
    QTRY_COMPARE(test.selectedRows(), QVector<int>({2}));
    ModalDriver driver;
    driver.next([&test](QWidget *window) {
        auto *menu = qobject_cast<VTColorMenu *>(window);
        QVERIFY(menu);
        const QRect rect = test.view()->visualRect(test.model()->index(2, 1));
        QCOMPARE(menu->pos(), test.view()->viewport()->mapToGlobal(
                                  QPoint(rect.left(), rect.top() + test.view()->rowHeight(2))));
        RealInput::press(QStringLiteral("Right"));
        RealInput::press(QStringLiteral("Down"));
        RealInput::press(QStringLiteral("Return"));
    });
    RealInput::press(key);
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QTRY_VERIFY(test.colors()[2] != fourColors[2]);
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(test.editor().isVisible());
    QVERIFY(test.view()->hasFocus());
    QCOMPARE(test.selectedRows(), QVector<int>({2}));
}

void tst_colorListKeys::aHeldReturnActsOnce()
{
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    RealInput::click(cell(test, 1, 1));
    QTRY_COMPARE(test.selectedRows(), QVector<int>({1}));
    bool opened = false;
    ModalDriver driver;
    driver.next([&opened](QWidget *window) {
        opened = true;
        window->close();
    });
    // Held since it chose a colour in the menu.
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2}) {
        QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, QStringLiteral("\r"), true);
        QApplication::sendEvent(test.view(), &repeated);
        QVERIFY(!opened);
        QVERIFY(test.editor().isVisible());
    }
    QVERIFY(!test.part<QAction>("actionLoad_scheme")->autoRepeat());
}

void tst_colorListKeys::returnPressesOkWhereNoRowHasTheFocus()
{
    EditorUnderTest test(randomRamp(3, 4));
    test.setColors({});
    QVERIFY(show(test));
    QVERIFY(test.ok()->isDefault());
    RealInput::click(test.view()->viewport());
    QTRY_VERIFY(test.view()->hasFocus());
    RealInput::press(QStringLiteral("Return"));
    QTRY_VERIFY(!test.editor().isVisible());
    QCOMPARE(test.editor().result(), int(QDialog::Accepted));
}

void tst_colorListKeys::theColorsAreReachedByKey()
{
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    QVERIFY(!test.view()->hasFocus());
    RealInput::press(QStringLiteral("F6"));
    QTRY_VERIFY(test.view()->hasFocus());
    QTRY_COMPARE(test.view()->currentIndex().row(), 0);
    RealInput::press(QStringLiteral("Down"));
    QTRY_COMPARE(test.selectedRows(), QVector<int>({1}));
    RealInput::press(QStringLiteral("Tab"));
    QTRY_VERIFY(!test.view()->hasFocus());
    RealInput::press(QStringLiteral("F6"));
    QTRY_VERIFY(test.view()->hasFocus());
    QCOMPARE(test.selectedRows(), QVector<int>({1}));
}

void tst_colorListKeys::keysActOnTheColorsAsTheButtonsDo()
{
    const QColor added(15, 225, 255);
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    QVector<QColor> colors = fourColors;
    RealInput::press(QStringLiteral("F6"));
    QTRY_VERIFY(test.view()->hasFocus());
    RealInput::press(QStringLiteral("Insert"));
    colors.append(added);
    QTRY_COMPARE(test.colors(), colors);
    RealInput::press(QStringLiteral("Down"));
    RealInput::press(QStringLiteral("Delete"));
    colors.remove(1);
    QTRY_COMPARE(test.colors(), colors);
    QCOMPARE(test.view()->currentIndex().row(), 1); // the one that moved up
    RealInput::press(QStringLiteral("ctrl+a"));
    QTRY_COMPARE(test.selectedRows(), QVector<int>({0, 1, 2, 3}));
    RealInput::press(QStringLiteral("Up"));
    QTRY_COMPARE(test.selectedRows(), QVector<int>({0}));
    RealInput::press(QStringLiteral("ctrl+i"));
    QTRY_COMPARE(test.selectedRows(), QVector<int>({1, 2, 3}));
    RealInput::press(QStringLiteral("ctrl+i"));
    QTRY_COMPARE(test.selectedRows(), QVector<int>({0}));
    RealInput::click(cell(test, 0, 1));
    RealInput::press(QStringLiteral("alt+Down"));
    std::swap(colors[0], colors[1]);
    QTRY_COMPARE(test.colors(), colors);
    QCOMPARE(test.selectedRows(), QVector<int>({1}));
    RealInput::press(QStringLiteral("alt+Up"));
    std::swap(colors[0], colors[1]);
    QTRY_COMPARE(test.colors(), colors);
    RealInput::press(QStringLiteral("alt+End"));
    std::swap(colors[0], colors[3]);
    QTRY_COMPARE(test.colors(), colors);
    QCOMPARE(test.selectedRows(), QVector<int>({3}));
    RealInput::press(QStringLiteral("alt+Home"));
    std::swap(colors[0], colors[3]);
    QTRY_COMPARE(test.colors(), colors);
    RealInput::press(QStringLiteral("ctrl+r"));
    std::reverse(colors.begin(), colors.end());
    QTRY_COMPARE(test.colors(), colors);
    QVERIFY(test.editor().isVisible());
}

void tst_colorListKeys::keysOfTheColorsDoNothingElsewhere()
{
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    RealInput::click(cell(test, 1, 1));
    QTRY_COMPARE(test.selectedRows(), QVector<int>({1}));
    RealInput::click(test.nameField());
    QTRY_VERIFY(test.nameField()->hasFocus());
    for (const char *key : {"Home", "Delete", "Insert", "ctrl+a", "ctrl+i", "alt+Down"})
        RealInput::press(QString::fromLatin1(key));
    RealInput::type(QStringLiteral("x"));
    QTRY_COMPARE(test.nameField()->text(), QStringLiteral("x"));
    QCOMPARE(test.colors(), fourColors);
    QCOMPARE(test.selectedRows(), QVector<int>({1}));
}

void tst_colorListKeys::theToolButtonsAreReachedByTab()
{
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    const auto *bar = test.part<QToolBar>("toolbar");
    // As ever, the name is where one begins.
    QVERIFY(!bar->isAncestorOf(QApplication::focusWidget()));
    QWidget *const first = QApplication::focusWidget();
    QStringList reached;
    for (int i = 0; i < 40; ++i) {
        QWidget *const former = QApplication::focusWidget();
        RealInput::press(QStringLiteral("Tab"));
        QTRY_VERIFY(QApplication::focusWidget() != former);
        if (QApplication::focusWidget() == first)
            break;
        if (const auto *button = qobject_cast<QToolButton *>(QApplication::focusWidget()))
            reached.append(button->text());
    }
    QCOMPARE(reached,
             QStringList({"Load scheme", "Add color", "Delete color", "Select all", "Invert select",
                          "Color antitone", "Top", "Bottom", "Up", "Down"}));
    auto *add =
        qobject_cast<QToolButton *>(bar->widgetForAction(test.part<QAction>("actionAdd_color")));
    QVERIFY(add);
    add->setFocus(Qt::TabFocusReason);
    RealInput::press(QStringLiteral("space"));
    QTRY_COMPARE(test.colors().size(), 5);
    // The mouse leaves the keyboard where it is.
    RealInput::click(test.nameField());
    QTRY_VERIFY(test.nameField()->hasFocus());
    RealInput::click(add);
    QTRY_COMPARE(test.colors().size(), 6);
    QVERIFY(test.nameField()->hasFocus());
}

void tst_colorListKeys::aFileIsAskedForByKey()
{
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    QString title;
    ModalDriver driver;
    driver.next([&title](QWidget *window) {
        title = window->windowTitle();
        window->close();
    });
    RealInput::press(QStringLiteral("ctrl+o"));
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(title, QStringLiteral("Open color scheme file"));
}

void tst_colorListKeys::toolTipsNameTheKeys()
{
    EditorUnderTest test(evenRamp(fourColors, 8));
    const std::pair<const char *, QString> toolTips[] = {
        {"actionLoad_scheme", QStringLiteral("Load scheme (Ctrl+O)")},
        {"actionAdd_color", QStringLiteral("Add color (Ins)")},
        {"actionDelete_color", QStringLiteral("Delete color (Del)")},
        {"actionSelect_all", QStringLiteral("Select all (Ctrl+A)")},
        {"actionInvert_select", QStringLiteral("Invert select (Ctrl+I)")},
        {"actionColor_antitone", QStringLiteral("Color antitone (Ctrl+R)")},
        {"actionTop", QStringLiteral("Top (Alt+Home)")},
        {"actionBottom", QStringLiteral("Bottom (Alt+End)")},
        {"actionUp", QStringLiteral("Up (Alt+Up)")},
        {"actionDown", QStringLiteral("Down (Alt+Down)")},
    };
    for (const auto &[name, toolTip] : toolTips) {
        const auto *action = test.part<QAction>(name);
        QCOMPARE(action->toolTip(), toolTip);
        QVERIFY(toolTip.startsWith(action->text() + QLatin1String(" (")));
    }
    QCOMPARE(test.view()->horizontalHeader()->toolTip(), QStringLiteral("Colors (F6)"));
}

VT_TEST_MAIN(tst_colorListKeys)
#include "tst_colorListKeys.moc"
