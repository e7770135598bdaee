#include "vtcontrolbase/VTColorMenu.h"

#include "tests/support/ColorMenuParts.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/Tagger.h"
#include "tests/support/TestMain.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using namespace ColorMenuParts;

namespace {

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

class tst_VTColorMenu_otherColors : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theHexFieldShowsTheSetColor();
    void theHexFieldTakesAColor_data();
    void theHexFieldTakesAColor();
    void theHexFieldSaysWhatIsWrong_data();
    void theHexFieldSaysWhatIsWrong();
    void allTextsAreTranslatedAsTheMenus();
    void noMessageIsWiderThanTheMenu();
    void recentColorsAreSharedByAllMenus();
    void theLatestRecentColorComesFirstAndOnlyOnce();
    void recentColorsFillOneRow();
    void dismissedColorsAreNotRecent();
    void moreColorsOpensTheToolkitsDialog();
    void cancelingTheDialogKeepsTheSetColor();
};

void tst_VTColorMenu_otherColors::theHexFieldShowsTheSetColor()
{
    VTColorMenu menu(nullptr);
    menu.setColor(QColor(18, 171, 205));
    QCOMPARE(hexEdit(&menu)->text(), QStringLiteral("#12abcd"));
}

void tst_VTColorMenu_otherColors::theHexFieldTakesAColor_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("six digits") << "#12abcd" << QColor(0x12, 0xab, 0xcd);
    QTest::newRow("capitals") << "#12ABCD" << QColor(0x12, 0xab, 0xcd);
    QTest::newRow("without the sign") << "12abcd" << QColor(0x12, 0xab, 0xcd);
    QTest::newRow("three digits are doubled") << "#1af" << QColor(0x11, 0xaa, 0xff);
    QTest::newRow("blanks around it") << "  #12abcd " << QColor(0x12, 0xab, 0xcd);
}

void tst_VTColorMenu_otherColors::theHexFieldTakesAColor()
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

void tst_VTColorMenu_otherColors::theHexFieldSaysWhatIsWrong_data()
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

void tst_VTColorMenu_otherColors::theHexFieldSaysWhatIsWrong()
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

void tst_VTColorMenu_otherColors::allTextsAreTranslatedAsTheMenus()
{
    const Tagger tagger;
    VTColorMenu menu(nullptr);
    QStringList texts = {moreColors(&menu)->text(), part(&menu, "palette")->accessibleName(),
                         part(&menu, "recent")->accessibleName(), hexEdit(&menu)->accessibleName()};
    for (const char *typed : {"", "x", "12"}) {
        hexEdit(&menu)->setText(QLatin1String(typed));
        texts << hexMessage(&menu)->text();
    }
    // Translators know no class but the menu.
    for (const QString &text : qAsConst(texts))
        QVERIFY2(text.startsWith(QLatin1String("VTColorMenu:")), qPrintable(text));
}

void tst_VTColorMenu_otherColors::noMessageIsWiderThanTheMenu()
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

void tst_VTColorMenu_otherColors::recentColorsAreSharedByAllMenus()
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

void tst_VTColorMenu_otherColors::theLatestRecentColorComesFirstAndOnlyOnce()
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

void tst_VTColorMenu_otherColors::recentColorsFillOneRow()
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

void tst_VTColorMenu_otherColors::dismissedColorsAreNotRecent()
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

void tst_VTColorMenu_otherColors::moreColorsOpensTheToolkitsDialog()
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

void tst_VTColorMenu_otherColors::cancelingTheDialogKeepsTheSetColor()
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

VT_TEST_MAIN(tst_VTColorMenu_otherColors)
#include "tst_VTColorMenu_otherColors.moc"
