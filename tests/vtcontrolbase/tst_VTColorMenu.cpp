#include "vtcontrolbase/VTColorMenu.h"

#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"

#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWidgetAction>
#include <QtTest>

#include <algorithm>

namespace {

constexpr int columns = 12;
constexpr int cell = 22;  // pixels
constexpr int margin = 4; // pixels

// Some colours of the grid by their places.
const QColor black(0, 0, 0);       // row 0, column 0
const QColor white(255, 255, 255); // row 0, column 11
const QColor red(255, 0, 0);       // row 1, column 0
const QColor yellow(255, 255, 0);  // row 1, column 3
const QColor foreign(1, 2, 3);     // not in the grid

QWidget *part(QWidget *menu, const char *name)
{
    return menu->findChild<QWidget *>(QLatin1String(name));
}

QLineEdit *hexEdit(QWidget *menu)
{
    return menu->findChild<QLineEdit *>();
}

QLabel *hexMessage(QWidget *menu)
{
    const QList<QLabel *> labels = part(menu, "hexField")->findChildren<QLabel *>();
    const auto found = std::find_if(labels.begin(), labels.end(),
                                    [](QLabel *label) { return !label->text().isEmpty(); });
    return found == labels.end() ? nullptr : *found;
}

QPoint cellCenter(int row, int column)
{
    return QPoint(margin + column * cell + cell / 2, margin + row * cell + cell / 2);
}

/// The swatch as it lies on the screen, its inner pixels only.
QImage swatchImage(QWidget *grid, int row, int column)
{
    const QRect inside(margin + column * cell + 3, margin + row * cell + 3, cell - 6, cell - 6);
    return grid->grab().toImage().copy(inside);
}

/// True if every pixel of the swatch has its colour, false if a mark lies on it.
bool isPlain(const QImage &swatch)
{
    QImage plain = swatch;
    plain.fill(swatch.pixelColor(0, 0));
    return plain == swatch;
}

QAction *moreColors(QMenu *menu)
{
    return menu->actions().constLast();
}

/// Keys go where a user's keys go: to what has the focus in the open popup.
void press(QWidget *menu, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QWidget *const focused = menu->focusWidget();
    QTest::keyClick(focused ? focused : menu, key, modifiers);
}

} // namespace

class tst_VTColorMenu : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theFirstColorIsBlack();
    void anInvalidColorCountsAsBlack();
    void dismissingKeepsTheSetColor_data();
    void dismissingKeepsTheSetColor();
    void aClickChoosesASwatch();
    void aReleaseWithoutAPressChoosesNothing();
    void draggingToAnotherSwatchChoosesNothing();
    void theRightButtonChoosesNothing();
    void aClickBetweenThePartsLeavesTheMenuOpen();
    void theArrowKeysMoveInTheGridAndReturnChooses_data();
    void theArrowKeysMoveInTheGridAndReturnChooses();
    void theCursorStartsOnTheSetColor();
    void onlyTheSetColorIsMarked();
    void tabGoesFromPartToPart();
    void downFromTheLastRowLeavesTheGrid();
    void tabAfterAClickGoesOnFromThere();
    void theHexFieldShowsTheSetColor();
    void theHexFieldTakesAColor_data();
    void theHexFieldTakesAColor();
    void theHexFieldSaysWhatIsWrong_data();
    void theHexFieldSaysWhatIsWrong();
    void noMessageIsWiderThanTheMenu();
    void recentColorsAreSharedByAllMenus();
    void theLatestRecentColorComesFirstAndOnlyOnce();
    void recentColorsFillOneRow();
    void dismissedColorsAreNotRecent();
    void moreColorsOpensTheToolkitsDialog();
    void cancelingTheDialogKeepsTheSetColor();
    void theGridIsRichAndHasNoColorTwice();
};

namespace {

/// Runs a menu and chooses the colour with the hex field.
void chooseHex(const QColor &color)
{
    VTColorMenu menu(nullptr);
    ModalDriver driver;
    driver.next([&](QWidget *popup) {
        hexEdit(popup)->setFocus();
        hexEdit(popup)->setText(color.name());
        press(popup, Qt::Key_Return);
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(menu.getColor(), color.rgb());
}

/// The recent colours that a new menu shows, the swatches' own pixels read from the screen.
QVector<QColor> shownRecentColors()
{
    QVector<QColor> shown;
    VTColorMenu menu(nullptr);
    menu.setColor(foreign);
    ModalDriver driver;
    driver.next([&](QWidget *popup) {
        QWidget *const grid = part(popup, "recent");
        QVERIFY(grid->isVisible());
        const QImage image = grid->grab().toImage();
        const QColor background = image.pixelColor(0, 0);
        for (int column = 0; column < columns; ++column) {
            const QColor color = image.pixelColor(cellCenter(0, column));
            if (color != background)
                shown.append(color);
        }
        press(popup, Qt::Key_Escape);
    });
    menu.exec(QPoint(100, 100));
    return shown;
}

} // namespace

void tst_VTColorMenu::theFirstColorIsBlack()
{
    const VTColorMenu menu(nullptr);
    QCOMPARE(menu.getColor(), qRgb(0, 0, 0));
}

void tst_VTColorMenu::anInvalidColorCountsAsBlack()
{
    VTColorMenu menu(nullptr);
    menu.setColor(red);
    menu.setColor(QColor());
    QCOMPARE(menu.getColor(), qRgb(0, 0, 0));
}

void tst_VTColorMenu::dismissingKeepsTheSetColor_data()
{
    QTest::addColumn<QColor>("set");
    QTest::addColumn<bool>("moveFirst");
    QTest::newRow("a color of the grid") << red << false;
    QTest::newRow("after moving to another one") << red << true;
    QTest::newRow("a color not in the grid") << foreign << true;
    QTest::newRow("with its alpha") << QColor(9, 8, 7, 100) << false;
}

void tst_VTColorMenu::dismissingKeepsTheSetColor()
{
    QFETCH(QColor, set);
    QFETCH(bool, moveFirst);
    VTColorMenu menu(nullptr);
    menu.setColor(set);
    ModalDriver driver;
    driver.next([&](QWidget *popup) {
        QCOMPARE(popup, &menu);
        if (moveFirst)
            press(popup, Qt::Key_Right);
        press(popup, Qt::Key_Escape);
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(menu.getColor(), set.rgba());
}

void tst_VTColorMenu::aClickChoosesASwatch()
{
    VTColorMenu menu(nullptr);
    menu.setColor(foreign);
    ModalDriver driver;
    driver.next([](QWidget *popup) {
        QWidget *const grid = part(popup, "palette");
        QTest::mouseMove(grid, cellCenter(1, 3));
        QTest::mouseClick(grid, Qt::LeftButton, Qt::NoModifier, cellCenter(1, 3));
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!menu.isVisible());
    QCOMPARE(menu.getColor(), yellow.rgb());
}

void tst_VTColorMenu::aReleaseWithoutAPressChoosesNothing()
{
    VTColorMenu menu(nullptr);
    menu.setColor(foreign);
    ModalDriver driver;
    driver.next([](QWidget *popup) {
        QTest::mouseRelease(part(popup, "palette"), Qt::LeftButton, Qt::NoModifier,
                            cellCenter(1, 3));
        QVERIFY(popup->isVisible());
        press(popup, Qt::Key_Escape);
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(menu.getColor(), foreign.rgb());
}

void tst_VTColorMenu::draggingToAnotherSwatchChoosesNothing()
{
    VTColorMenu menu(nullptr);
    menu.setColor(foreign);
    ModalDriver driver;
    driver.next([](QWidget *popup) {
        QWidget *const grid = part(popup, "palette");
        QTest::mousePress(grid, Qt::LeftButton, Qt::NoModifier, cellCenter(1, 3));
        QTest::mouseRelease(grid, Qt::LeftButton, Qt::NoModifier, cellCenter(2, 3));
        QVERIFY(popup->isVisible());
        press(popup, Qt::Key_Escape);
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(menu.getColor(), foreign.rgb());
}

void tst_VTColorMenu::theRightButtonChoosesNothing()
{
    VTColorMenu menu(nullptr);
    menu.setColor(foreign);
    ModalDriver driver;
    driver.next([](QWidget *popup) {
        QTest::mouseClick(part(popup, "palette"), Qt::RightButton, Qt::NoModifier,
                          cellCenter(1, 3));
        QVERIFY(popup->isVisible());
        press(popup, Qt::Key_Escape);
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(menu.getColor(), foreign.rgb());
}

void tst_VTColorMenu::aClickBetweenThePartsLeavesTheMenuOpen()
{
    VTColorMenu menu(nullptr);
    ModalDriver driver;
    driver.next([](QWidget *popup) {
        QTest::mouseClick(part(popup, "palette"), Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
        QVERIFY(popup->isVisible());
        QTest::mouseClick(part(popup, "hexField"), Qt::LeftButton, Qt::NoModifier, QPoint(2, 2));
        QVERIFY(popup->isVisible());
        QTest::mouseClick(hexMessage(popup), Qt::LeftButton);
        QVERIFY(popup->isVisible());
        press(popup, Qt::Key_Escape);
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorMenu::theArrowKeysMoveInTheGridAndReturnChooses_data()
{
    QTest::addColumn<QVector<int>>("keys");
    QTest::addColumn<QColor>("expected");
    using Keys = QVector<int>;
    QTest::newRow("Return at once") << Keys{Qt::Key_Return} << red;
    QTest::newRow("Enter at once") << Keys{Qt::Key_Enter} << red;
    QTest::newRow("Space at once") << Keys{Qt::Key_Space} << red;
    QTest::newRow("right") << Keys{Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Return}
                           << yellow;
    QTest::newRow("right and left")
        << Keys{Qt::Key_Right, Qt::Key_Right, Qt::Key_Left, Qt::Key_Left, Qt::Key_Return} << red;
    QTest::newRow("left goes to the end of the row above")
        << Keys{Qt::Key_Left, Qt::Key_Return} << white;
    QTest::newRow("up") << Keys{Qt::Key_Up, Qt::Key_Return} << black;
    QTest::newRow("down and up") << Keys{Qt::Key_Down, Qt::Key_Up, Qt::Key_Return} << red;
    QTest::newRow("left of the first stays")
        << Keys{Qt::Key_Up, Qt::Key_Left, Qt::Key_Return} << black;
    QTest::newRow("end and home of the row")
        << Keys{Qt::Key_Right, Qt::Key_End, Qt::Key_Home, Qt::Key_Return} << red;
    QTest::newRow("end of the row") << Keys{Qt::Key_Up, Qt::Key_End, Qt::Key_Return} << white;
}

void tst_VTColorMenu::theArrowKeysMoveInTheGridAndReturnChooses()
{
    QFETCH(QVector<int>, keys);
    QFETCH(QColor, expected);
    VTColorMenu menu(nullptr);
    menu.setColor(red);
    ModalDriver driver;
    driver.next([&](QWidget *popup) {
        for (const int key : qAsConst(keys)) {
            QVERIFY(popup->isVisible());
            press(popup, static_cast<Qt::Key>(key));
        }
        QVERIFY(!popup->isVisible());
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(menu.getColor(), expected.rgb());
}

void tst_VTColorMenu::theCursorStartsOnTheSetColor()
{
    VTColorMenu menu(nullptr);
    menu.setColor(yellow);
    ModalDriver driver;
    driver.next([](QWidget *popup) { press(popup, Qt::Key_Return); });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(menu.getColor(), yellow.rgb());
}

void tst_VTColorMenu::onlyTheSetColorIsMarked()
{
    VTColorMenu menu(nullptr);
    menu.setColor(yellow);
    QWidget *const grid = part(&menu, "palette");
    grid->resize(grid->sizeHint());
    const int rows = (grid->height() - 2 * margin) / cell;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            QCOMPARE(isPlain(swatchImage(grid, row, column)), row != 1 || column != 3);
    }
}

void tst_VTColorMenu::tabGoesFromPartToPart()
{
    chooseHex(foreign); // so that there is a recent colour
    VTColorMenu menu(nullptr);
    menu.setColor(red);
    ModalDriver driver;
    driver.next([&](QWidget *popup) {
        QCOMPARE(popup->focusWidget(), part(popup, "palette"));
        press(popup, Qt::Key_Tab);
        QCOMPARE(popup->focusWidget(), part(popup, "recent"));
        press(popup, Qt::Key_Tab);
        QCOMPARE(popup->focusWidget(), hexEdit(popup));
        press(popup, Qt::Key_Tab);
        QCOMPARE(menu.activeAction(), moreColors(&menu));
        press(popup, Qt::Key_Backtab);
        QCOMPARE(popup->focusWidget(), hexEdit(popup));
        press(popup, Qt::Key_Backtab);
        QCOMPARE(popup->focusWidget(), part(popup, "recent"));
        press(popup, Qt::Key_Backtab);
        QCOMPARE(popup->focusWidget(), part(popup, "palette"));
        press(popup, Qt::Key_Escape);
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorMenu::downFromTheLastRowLeavesTheGrid()
{
    VTColorMenu menu(nullptr);
    menu.setColor(red);
    ModalDriver driver;
    driver.next([](QWidget *popup) {
        QWidget *const grid = part(popup, "palette");
        const int rows = (grid->height() - 2 * margin) / cell;
        for (int row = 1; row < rows; ++row) {
            QCOMPARE(popup->focusWidget(), grid);
            press(popup, Qt::Key_Down);
        }
        QVERIFY(popup->focusWidget() != grid);
        press(popup, Qt::Key_Up);
        QCOMPARE(popup->focusWidget(), grid);
        press(popup, Qt::Key_Escape);
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorMenu::tabAfterAClickGoesOnFromThere()
{
    VTColorMenu menu(nullptr);
    ModalDriver driver;
    driver.next([&](QWidget *popup) {
        QTest::mouseClick(hexEdit(popup), Qt::LeftButton);
        QCOMPARE(popup->focusWidget(), hexEdit(popup));
        press(popup, Qt::Key_Tab);
        QCOMPARE(menu.activeAction(), moreColors(&menu));
        press(popup, Qt::Key_Escape);
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorMenu::theHexFieldShowsTheSetColor()
{
    VTColorMenu menu(nullptr);
    menu.setColor(QColor(18, 171, 205));
    QCOMPARE(hexEdit(&menu)->text(), QStringLiteral("#12abcd"));
}

void tst_VTColorMenu::theHexFieldTakesAColor_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("six digits") << "#12abcd" << QColor(0x12, 0xab, 0xcd);
    QTest::newRow("capitals") << "#12ABCD" << QColor(0x12, 0xab, 0xcd);
    QTest::newRow("without the sign") << "12abcd" << QColor(0x12, 0xab, 0xcd);
    QTest::newRow("three digits are doubled") << "#1af" << QColor(0x11, 0xaa, 0xff);
    QTest::newRow("blanks around it") << "  #12abcd " << QColor(0x12, 0xab, 0xcd);
}

void tst_VTColorMenu::theHexFieldTakesAColor()
{
    QFETCH(QString, typed);
    QFETCH(QColor, expected);
    VTColorMenu menu(nullptr);
    menu.setColor(foreign);
    ModalDriver driver;
    driver.next([&](QWidget *popup) {
        QLineEdit *const edit = hexEdit(popup);
        while (popup->focusWidget() != edit)
            press(popup, Qt::Key_Tab);
        // What was there is selected, so typing replaces it.
        QTest::keyClicks(edit, typed);
        QCOMPARE(edit->text(), typed);
        QCOMPARE(hexMessage(popup)->text().trimmed(), QString());
        press(popup, Qt::Key_Return);
        QVERIFY(!popup->isVisible());
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(menu.getColor(), expected.rgb());
}

void tst_VTColorMenu::theHexFieldSaysWhatIsWrong_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("message");
    QTest::newRow("nothing") << ""
                             << "Type 3 or 6 hexadecimal digits";
    QTest::newRow("the sign alone") << "#"
                                    << "Type 3 or 6 hexadecimal digits";
    QTest::newRow("a strange letter") << "#12g456"
                                      << "Not a hexadecimal digit: g";
    QTest::newRow("a second sign") << "##123456"
                                   << "Not a hexadecimal digit: #";
    QTest::newRow("a blank inside") << "12 456"
                                    << "Not a hexadecimal digit:  ";
    QTest::newRow("a color's name") << "red"
                                    << "Not a hexadecimal digit: r";
    QTest::newRow("a digit of another script")
        << QStringLiteral("12345\u0661") << QStringLiteral("Not a hexadecimal digit: \u0661");
    QTest::newRow("four digits") << "#1234"
                                 << "3 or 6 digits are needed, not 4";
    QTest::newRow("seven digits") << "1234567"
                                  << "3 or 6 digits are needed, not 7";
}

void tst_VTColorMenu::theHexFieldSaysWhatIsWrong()
{
    QFETCH(QString, typed);
    QFETCH(QString, message);
    VTColorMenu menu(nullptr);
    menu.setColor(foreign);
    ModalDriver driver;
    driver.next([&](QWidget *popup) {
        QLineEdit *const edit = hexEdit(popup);
        QTest::mouseClick(edit, Qt::LeftButton);
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        edit->insert(typed);
        QCOMPARE(hexMessage(popup)->text(), message);
        // Return neither chooses nor closes.
        press(popup, Qt::Key_Return);
        QVERIFY(popup->isVisible());
        QCOMPARE(hexMessage(popup)->text(), message);
        press(popup, Qt::Key_Escape);
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(menu.getColor(), foreign.rgb());
}

void tst_VTColorMenu::noMessageIsWiderThanTheMenu()
{
    VTColorMenu menu(nullptr);
    ModalDriver driver;
    driver.next([](QWidget *popup) {
        for (const char *typed : {"", "xyz", "12345678901234567890"}) {
            hexEdit(popup)->setText(QLatin1String(typed));
            QLabel *const message = hexMessage(popup);
            QVERIFY(message->sizeHint().width() <= message->width());
        }
        press(popup, Qt::Key_Escape);
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorMenu::recentColorsAreSharedByAllMenus()
{
    const QColor color(50, 60, 70);
    chooseHex(color);
    VTColorMenu menu(nullptr);
    menu.setColor(red);
    ModalDriver driver;
    driver.next([](QWidget *popup) {
        QTest::mouseClick(part(popup, "recent"), Qt::LeftButton, Qt::NoModifier, cellCenter(0, 0));
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(menu.getColor(), color.rgb());
}

void tst_VTColorMenu::theLatestRecentColorComesFirstAndOnlyOnce()
{
    const QColor first(50, 60, 71);
    const QColor second(50, 60, 72);
    chooseHex(first);
    chooseHex(second);
    QCOMPARE(shownRecentColors().mid(0, 2), QVector<QColor>({second, first}));
    chooseHex(first);
    QCOMPARE(shownRecentColors().mid(0, 2), QVector<QColor>({first, second}));
    QCOMPARE(shownRecentColors().count(first), 1);
}

void tst_VTColorMenu::recentColorsFillOneRow()
{
    QVector<QColor> expected;
    for (int i = 0; i < columns + 1; ++i) {
        const QColor color(90, 10, 10 * i);
        chooseHex(color);
        expected.prepend(color);
    }
    expected.removeLast();
    QCOMPARE(shownRecentColors(), expected);
}

void tst_VTColorMenu::dismissedColorsAreNotRecent()
{
    const QColor chosen(12, 34, 56);
    chooseHex(chosen);
    VTColorMenu menu(nullptr);
    menu.setColor(QColor(65, 43, 21));
    ModalDriver driver;
    driver.next([](QWidget *popup) { press(popup, Qt::Key_Escape); });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(shownRecentColors().constFirst(), chosen);
}

void tst_VTColorMenu::moreColorsOpensTheToolkitsDialog()
{
    QWidget parent;
    VTColorMenu menu(&parent);
    menu.setColor(QColor(120, 121, 122));
    QCOMPARE(moreColors(&menu)->text(), QStringLiteral("More colors\u2026"));
    ModalDriver driver;
    driver.next([&](QWidget *popup) {
        while (menu.activeAction() != moreColors(&menu))
            press(popup, Qt::Key_Tab);
        press(popup, Qt::Key_Return);
    });
    driver.next([&](QWidget *window) {
        auto *const dialog = qobject_cast<QColorDialog *>(window);
        QVERIFY(dialog);
        QVERIFY(dialog->testOption(QColorDialog::DontUseNativeDialog));
        QCOMPARE(dialog->parentWidget(), &parent);
        QCOMPARE(dialog->currentColor(), QColor(120, 121, 122));
        dialog->setCurrentColor(QColor::fromHsv(200, 100, 50));
        QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                          Qt::LeftButton);
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    const QColor expected(QColor::fromHsv(200, 100, 50).rgb());
    QCOMPARE(menu.getColor(), expected.rgb());
    QCOMPARE(shownRecentColors().constFirst(), expected);
}

void tst_VTColorMenu::cancelingTheDialogKeepsTheSetColor()
{
    VTColorMenu menu(nullptr);
    menu.setColor(foreign);
    ModalDriver driver;
    driver.next([&](QWidget *popup) {
        QTest::mouseClick(popup, Qt::LeftButton, Qt::NoModifier,
                          menu.actionGeometry(moreColors(&menu)).center());
    });
    driver.next([](QWidget *window) {
        qobject_cast<QColorDialog *>(window)->setCurrentColor(Qt::green);
        QTest::keyClick(window, Qt::Key_Escape);
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(menu.getColor(), foreign.rgb());
}

void tst_VTColorMenu::theGridIsRichAndHasNoColorTwice()
{
    VTColorMenu menu(nullptr);
    menu.setColor(foreign);
    QWidget *const grid = part(&menu, "palette");
    grid->resize(grid->sizeHint());
    const QImage image = grid->grab().toImage();
    QSet<QRgb> colors;
    const int rows = (grid->height() - 2 * margin) / cell;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            colors.insert(image.pixel(cellCenter(row, column)));
    }
    QCOMPARE(colors.size(), rows * columns);
    QVERIFY(colors.size() >= 64);
}

VT_TEST_MAIN(tst_VTColorMenu)
#include "tst_VTColorMenu.moc"
