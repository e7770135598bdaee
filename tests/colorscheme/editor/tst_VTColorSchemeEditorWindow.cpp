#include "tests/support/EditorUnderTest.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/RealInput.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vtcontrolbase/VTColorMenu.h"

#include <QClipboard>
#include <QFileDialog>
#include <QGroupBox>
#include <QToolBar>
#include <QToolTip>
#include <QtTest>

using namespace VTObjects;

/// The editor in a real window, under a real mouse and a real keyboard.
class tst_VTColorSchemeEditorWindow : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { store = std::make_unique<TestStore>(); }
    void cleanup();

    void clicksSelectRows();
    void theToolBarMovesTheClickedRow();
    void aDoubleClickOnASwatchPicksAColor();
    void aColorIsPickedWithTheKeyboard();
    void aColorMenuIsDismissed_data();
    void aColorMenuIsDismissed();
    void aDoubleClickOnANumberOpensNothing();
    void theNameIsTypedAndChecked();
    void returnPressesOkOnlyWhileItIsEnabled();
    void aKindIsPickedFromItsList();
    void aLevelIsTypedInALongScheme();
    void waysOutInAddMode_data();
    void waysOutInAddMode();
    void aFileIsLoaded();
    void aLongTextShowsItsBeginningAndIsAToolTip();
    void typingGoesBehindALongText();
    void pastingByTheContextMenuGoesBehindALongText();
    void typingGoesOnWhereTheCursorWas();

private:
    std::unique_ptr<TestStore> store;
};

namespace {

const QVector<QColor> fourColors{QColor(200, 30, 30), QColor(30, 200, 30), QColor(30, 30, 200),
                                 QColor(200, 200, 30)};

bool show(EditorUnderTest &test)
{
    test.editor().move(80, 80);
    test.editor().show();
    return QTest::qWaitForWindowActive(&test.editor());
}

QPoint cell(const EditorUnderTest &test, int row, int column)
{
    const QRect rect = test.view()->visualRect(test.model()->index(row, column));
    return test.view()->viewport()->mapToGlobal(rect.center());
}

void clickCommand(const EditorUnderTest &test, const char *name)
{
    RealInput::click(test.part<QToolBar>("toolbar")->widgetForAction(test.part<QAction>(name)));
}

} // namespace

void tst_VTColorSchemeEditorWindow::cleanup()
{
    store.reset();
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_VTColorSchemeEditorWindow::clicksSelectRows()
{
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    QVERIFY(!test.view()->hasFocus());
    RealInput::click(cell(test, 1, 1));
    QTRY_COMPARE(test.selectedRows(), QVector<int>({1}));
    QVERIFY(test.view()->hasFocus());
    QCOMPARE(test.enabledMoves(), QStringList({"Top", "Bottom", "Up", "Down"}));
    RealInput::clickWith(QStringLiteral("ctrl"), cell(test, 3, 0));
    QTRY_COMPARE(test.selectedRows(), QVector<int>({1, 3}));
    QCOMPARE(test.enabledMoves(), QStringList());
    clickCommand(test, "actionInvert_select");
    QTRY_COMPARE(test.selectedRows(), QVector<int>({0, 2}));
    RealInput::clickWith(QStringLiteral("shift"), cell(test, 0, 1));
    QTRY_VERIFY(test.selectedRows().contains(0));
    RealInput::click(cell(test, 3, 1));
    QTRY_COMPARE(test.selectedRows(), QVector<int>({3}));
    QCOMPARE(test.enabledMoves(), QStringList({"Top", "Up"}));
}

void tst_VTColorSchemeEditorWindow::theToolBarMovesTheClickedRow()
{
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    RealInput::click(cell(test, 2, 1));
    QTRY_COMPARE(test.selectedRows(), QVector<int>({2}));
    clickCommand(test, "actionUp");
    QTRY_COMPARE(test.selectedRows(), QVector<int>({1}));
    clickCommand(test, "actionUp");
    QTRY_COMPARE(test.selectedRows(), QVector<int>({0}));
    const QVector<QColor> moved{fourColors[2], fourColors[0], fourColors[1], fourColors[3]};
    QCOMPARE(test.colors(), moved);
    clickCommand(test, "actionAdd_color");
    QTRY_COMPARE(test.colors(), moved + QVector<QColor>({QColor(15, 225, 255)}));
    QCOMPARE(test.preview(), stripOf(test.storedByOk()));
}

void tst_VTColorSchemeEditorWindow::aDoubleClickOnASwatchPicksAColor()
{
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    ModalDriver driver;
    driver.next([&test](QWidget *window) {
        auto *menu = qobject_cast<VTColorMenu *>(window);
        QVERIFY(menu);
        const QRect rect = test.view()->visualRect(test.model()->index(1, 1));
        QCOMPARE(menu->pos(), test.view()->viewport()->mapToGlobal(
                                  QPoint(rect.left(), rect.top() + test.view()->rowHeight(1))));
        // The first row of the menu shows swatches; this one is white, black or a grey.
        RealInput::click(menu->pos() + QPoint(menu->width() / 2, 15));
    });
    RealInput::doubleClick(cell(test, 1, 1));
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QTRY_VERIFY(test.colors()[1] != fourColors[1]);
    QCOMPARE(test.colors()[1].red(), test.colors()[1].green());
    QCOMPARE(test.colors()[1].alpha(), 255);
    QCOMPARE(test.colors()[2], fourColors[2]);
    QVERIFY(!QApplication::activePopupWidget());
    const QImage shown = test.view()->viewport()->grab().toImage();
    const QRect rect = test.view()->visualRect(test.model()->index(1, 1));
    QCOMPARE(shown.pixelColor(rect.center()), test.colors()[1]);
    QCOMPARE(test.preview(), stripOf(test.storedByOk()));
}

void tst_VTColorSchemeEditorWindow::aColorIsPickedWithTheKeyboard()
{
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    ModalDriver driver;
    driver.next([](QWidget *) {
        RealInput::press(QStringLiteral("Right"));
        RealInput::press(QStringLiteral("Down"));
        RealInput::press(QStringLiteral("Return"));
    });
    RealInput::doubleClick(cell(test, 2, 1));
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QTRY_VERIFY(test.colors()[2] != fourColors[2]);
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(test.editor().isVisible());
    QCOMPARE(test.preview(), stripOf(test.storedByOk()));
}

void tst_VTColorSchemeEditorWindow::aColorMenuIsDismissed_data()
{
    QTest::addColumn<bool>("escape");
    QTest::newRow("Escape") << true;
    QTest::newRow("a click elsewhere") << false;
}

void tst_VTColorSchemeEditorWindow::aColorMenuIsDismissed()
{
    QFETCH(bool, escape);
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    const QImage before = test.preview();
    ModalDriver driver;
    driver.next([escape](QWidget *) {
        if (escape)
            RealInput::press(QStringLiteral("Escape"));
        else
            RealInput::click(QPoint(1200, 900));
    });
    RealInput::doubleClick(cell(test, 1, 1));
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QTRY_VERIFY(!QApplication::activePopupWidget());
    QCOMPARE(test.colors(), fourColors);
    QCOMPARE(test.preview(), before);
    QVERIFY(test.editor().isVisible());
}

void tst_VTColorSchemeEditorWindow::aDoubleClickOnANumberOpensNothing()
{
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    QSignalSpy doubleClicked(test.view(), &QTableView::doubleClicked);
    bool opened = false;
    ModalDriver driver;
    driver.next([&opened](QWidget *window) {
        opened = true;
        window->close();
    });
    RealInput::doubleClick(cell(test, 1, 0));
    QTRY_COMPARE(doubleClicked.size(), 1);
    QVERIFY(!opened);
    QCOMPARE(test.colors(), fourColors);
}

void tst_VTColorSchemeEditorWindow::theNameIsTypedAndChecked()
{
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    RealInput::click(test.nameField());
    QTRY_VERIFY(test.nameField()->hasFocus());
    RealInput::press(QStringLiteral("ctrl+a"));
    RealInput::press(QStringLiteral("BackSpace"));
    QTRY_COMPARE(test.warning(), QStringLiteral("The name cannot be empty!"));
    QVERIFY(!test.ok()->isEnabled());
    RealInput::type(QStringLiteral(" After "));
    QTRY_COMPARE(test.warning(), QStringLiteral("The name already exists!"));
    QTRY_COMPARE(test.nameField()->text(), QStringLiteral(" After "));
    QVERIFY(!test.ok()->isEnabled());
    RealInput::type(QStringLiteral("x "));
    QTRY_COMPARE(test.nameField()->text(), QStringLiteral(" After x "));
    QCOMPARE(test.warning(), QString());
    RealInput::click(test.ok());
    QTRY_VERIFY(!test.editor().isVisible());
    QCOMPARE(test.editor().result(), int(QDialog::Accepted));
    QCOMPARE(toQString(test.scheme().name), QStringLiteral(" After x "));
}

void tst_VTColorSchemeEditorWindow::returnPressesOkOnlyWhileItIsEnabled()
{
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    QSignalSpy finished(test.nameField(), &QLineEdit::returnPressed);
    RealInput::click(test.nameField());
    RealInput::press(QStringLiteral("ctrl+a"));
    RealInput::press(QStringLiteral("BackSpace"));
    RealInput::press(QStringLiteral("Return"));
    QTRY_COMPARE(finished.size(), 1);
    QVERIFY(test.editor().isVisible());
    RealInput::type(QStringLiteral("Fresh"));
    RealInput::press(QStringLiteral("Return"));
    QTRY_VERIFY(!test.editor().isVisible());
    QCOMPARE(toQString(test.scheme().name), QStringLiteral("Fresh"));
}

void tst_VTColorSchemeEditorWindow::aKindIsPickedFromItsList()
{
    EditorUnderTest test(evenRamp(fourColors, 8));
    QVERIFY(show(test));
    auto *combo = test.part<QComboBox>("comboBox_type");
    ModalDriver driver;
    driver.next([combo](QWidget *) {
        const auto *list = combo->view();
        RealInput::click(list->viewport()->mapToGlobal(
            list->visualRect(combo->model()->index(VOColorRamp::RandomHsvRamp, 0)).center()));
    });
    RealInput::click(combo);
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QTRY_COMPARE(combo->currentIndex(), int(VOColorRamp::RandomHsvRamp));
    QTRY_COMPARE(test.editor().size(), QSize(555, 515));
    QVERIFY(test.part<QGroupBox>("groupBox_hsv")->isVisible());
    QCOMPARE(test.colors(), fourColors);
    // And back again with the keyboard.
    RealInput::press(QStringLiteral("Down"));
    QTRY_COMPARE(combo->currentIndex(), int(VOColorRamp::EvenRamp));
    QTRY_COMPARE(test.editor().size(), QSize(555, 450));
    QCOMPARE(test.preview(), stripOf(test.storedByOk()));
}

void tst_VTColorSchemeEditorWindow::aLevelIsTypedInALongScheme()
{
    EditorUnderTest test(randomRamp(3, 1000));
    QVERIFY(show(test));
    QSpinBox *level = test.box("spinBox_level");
    RealInput::click(level->mapToGlobal(QPoint(20, level->height() / 2)));
    QTRY_VERIFY(level->hasFocus());
    for (const char *typed : {"999", "17", "1000", "2", "640"}) {
        RealInput::press(QStringLiteral("ctrl+a"));
        RealInput::type(QString::fromLatin1(typed));
        QTRY_COMPARE(level->text(), QString::fromLatin1(typed));
        QCOMPARE(level->value(), QByteArray(typed).toInt());
        const QImage shown = test.preview();
        QCOMPARE(shown, stripOf(randomRamp(3, static_cast<unsigned int>(level->value())).get()));
    }
    QCOMPARE(test.colors().size(), 1000);
}

void tst_VTColorSchemeEditorWindow::waysOutInAddMode_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<bool>("stays");
    QTest::newRow("Cancel") << "cancel" << false;
    QTest::newRow("Escape") << "Escape" << true;
    QTest::newRow("the window manager's close") << "alt+F4" << true;
}

void tst_VTColorSchemeEditorWindow::waysOutInAddMode()
{
    QFETCH(QString, way);
    QFETCH(bool, stays);
    EditorUnderTest test(evenRamp(fourColors, 8), EditorUnderTest::AddMode);
    ModalDriver driver;
    driver.next([&](QWidget *window) {
        QVERIFY(QTest::qWaitForWindowActive(window));
        if (way == QLatin1String("cancel"))
            RealInput::click(test.part<QPushButton>("pushButton_cancel"));
        else
            RealInput::press(way);
    });
    QCOMPARE(test.editor().exec(), int(QDialog::Rejected));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QStringList names{"Before", "Mine", "After"};
    if (stays)
        names.append(QStringLiteral("add_scheme1"));
    QCOMPARE(schemeNames(test.group), names);
}

void tst_VTColorSchemeEditorWindow::aFileIsLoaded()
{
    VOColorScheme scheme = makeScheme(QStringLiteral("Saved"));
    QVERIFY(VOColorSchemeManager::saveFile(scheme, toVOString(store->path("saved.vcs"))));
    store->setLastOpenFilePath(store->path());
    EditorUnderTest test(randomRamp(3, 5));
    QVERIFY(show(test));
    ModalDriver driver;
    driver.next([](QWidget *window) {
        QVERIFY(qobject_cast<QFileDialog *>(window));
        QVERIFY(QTest::qWaitForWindowActive(window));
        auto *field = window->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        field->setCompleter(nullptr); // its list takes Return if it opens in time
        QTRY_VERIFY(field->hasFocus());
        RealInput::type(QStringLiteral("saved.vcs"));
        QTRY_COMPARE(field->text(), QStringLiteral("saved.vcs"));
        RealInput::press(QStringLiteral("Return"));
    });
    clickCommand(test, "actionLoad_scheme");
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QTRY_COMPARE(test.nameField()->text(), QStringLiteral("Saved"));
    QCOMPARE(test.preview(), stripOf(scheme.colorRamp));
    QCOMPARE(test.colors().size(), 3);
}

void tst_VTColorSchemeEditorWindow::aLongTextShowsItsBeginningAndIsAToolTip()
{
    const QString text = QStringLiteral("From green lowlands over yellow hills to brown mountains");
    VOColorSchemeGroup group = makeGroup("g", {"a"});
    group.schemes[0].describe = toVOString(text);
    VTColorSchemeEditor editor(0, &group, false, nullptr);
    editor.move(80, 80);
    editor.show();
    QVERIFY(QTest::qWaitForWindowActive(&editor));
    auto *describe = editor.findChild<QLineEdit *>("lineEdit_describe");
    QCOMPARE(describe->cursorPosition(), 0);
    RealInput::moveTo(describe->mapToGlobal(describe->rect().center()));
    QTRY_VERIFY(QToolTip::isVisible());
    QVERIFY(QToolTip::text().contains(text));
    auto *author = editor.findChild<QLineEdit *>("lineEdit_author");
    RealInput::moveTo(author->mapToGlobal(author->rect().center()));
    QTRY_VERIFY(!QToolTip::isVisible());
    // Whoever works in it sees what he works on, and leaves it with the beginning again.
    RealInput::click(describe);
    QTRY_VERIFY(describe->hasFocus());
    RealInput::press(QStringLiteral("End"));
    QTRY_COMPARE(describe->cursorPosition(), text.size());
    RealInput::click(author);
    QTRY_VERIFY(author->hasFocus());
    QCOMPARE(describe->cursorPosition(), 0);
}

void tst_VTColorSchemeEditorWindow::typingGoesBehindALongText()
{
    VOColorSchemeGroup group = makeGroup("g", {"a"});
    group.schemes[0].describe = VOString(L"some text");
    VTColorSchemeEditor editor(0, &group, false, nullptr);
    auto *describe = editor.findChild<QLineEdit *>("lineEdit_describe");
    QTest::keyClicks(describe, QStringLiteral(" more"));
    QCOMPARE(describe->text(), QStringLiteral("some text more"));
    describe->setCursorPosition(4);
    QTest::keyClicks(describe, QStringLiteral("!"));
    QCOMPARE(describe->text(), QStringLiteral("some! text more"));
}

void tst_VTColorSchemeEditorWindow::pastingByTheContextMenuGoesBehindALongText()
{
    VOColorSchemeGroup group = makeGroup("g", {"a"});
    group.schemes[0].describe = VOString(L"some text");
    VTColorSchemeEditor editor(0, &group, false, nullptr);
    editor.move(80, 80);
    editor.show();
    QVERIFY(QTest::qWaitForWindowActive(&editor));
    QGuiApplication::clipboard()->setText(QStringLiteral(" more"));
    auto *describe = editor.findChild<QLineEdit *>("lineEdit_describe");
    const auto paste = [describe] {
        QTest::mouseClick(describe, Qt::RightButton);
        describe->paste(); // the slot of the menu's entry
    };
    paste();
    QCOMPARE(describe->text(), QStringLiteral("some text more"));
    // Where one has put the cursor oneself, and over what one has selected.
    describe->setCursorPosition(4);
    paste();
    QCOMPARE(describe->text(), QStringLiteral("some more text more"));
    describe->setSelection(0, 4);
    paste();
    QCOMPARE(describe->text(), QStringLiteral(" more more text more"));
}

void tst_VTColorSchemeEditorWindow::typingGoesOnWhereTheCursorWas()
{
    VOColorSchemeGroup group = makeGroup("g", {"a"});
    group.schemes[0].describe = VOString(L"some text");
    VTColorSchemeEditor editor(0, &group, false, nullptr);
    editor.move(80, 80);
    editor.show();
    QVERIFY(QTest::qWaitForWindowActive(&editor));
    auto *describe = editor.findChild<QLineEdit *>("lineEdit_describe");
    auto *author = editor.findChild<QLineEdit *>("lineEdit_author");
    // Code puts the cursor somewhere.
    describe->setCursorPosition(4);
    QTest::keyClicks(describe, QStringLiteral("!"));
    QCOMPARE(describe->text(), QStringLiteral("some! text"));
    // The user leaves it, and code leads him back.
    describe->setFocus();
    author->setFocus();
    QCOMPARE(describe->cursorPosition(), 0);
    describe->setFocus();
    QTest::keyClicks(describe, QStringLiteral("?"));
    QCOMPARE(describe->text(), QStringLiteral("some!? text"));
    author->setFocus();
    describe->setText(QStringLiteral("a new text"));
    QTest::keyClicks(describe, QStringLiteral("."));
    QCOMPARE(describe->text(), QStringLiteral("a new text."));
}

VT_TEST_MAIN(tst_VTColorSchemeEditorWindow)
#include "tst_VTColorSchemeEditorWindow.moc"
