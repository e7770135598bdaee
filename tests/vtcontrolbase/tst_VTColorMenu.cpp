#include "vtcontrolbase/VTColorMenu.h"

#include "tests/support/ColorMenuParts.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"

#include <QtTest>

using namespace ColorMenuParts;

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
    void theGridIsRichAndHasNoColorTwice();
};

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
