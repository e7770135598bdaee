#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "tests/support/DropDown.h"
#include "tests/support/DropDownKeysTest.h"
#include "tests/support/TestMain.h"

#include <QApplication>
#include <QBoxLayout>
#include <QSignalSpy>
#include <QtTest>

/// Typing letters in the drop-down.
class tst_dropDownKeyboard_letters : public DropDownKeysTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void typingFindsANameByItsStart();
    void typingFindsANameThatHoldsIt();
    void typedLettersAreShownAndCanBeTakenBack();
    void escapeClearsTheLettersFirst();
    void movingOnEndsTheLetters_data();
    void movingOnEndsTheLetters();
    void pauseStartsAnotherName();
    void sameLetterAgainStepsOn();
    void blankBelongsToANameBegun();
};

void tst_dropDownKeyboard_letters::typingFindsANameByItsStart()
{
    open([](QWidget *opened) {
        const DropDown parts(opened);
        QTest::keyClicks(opened, QStringLiteral("GRAY"));
        QCOMPARE(parts.highlighted(), QList<int>{3});
        QTest::keyClick(opened, Qt::Key_Escape);
        QTest::keyClick(opened, Qt::Key_R); // before "Blue to red", which only holds it
        QCOMPARE(parts.highlighted(), QList<int>{4});
        opened->close();
    });
}

void tst_dropDownKeyboard_letters::typingFindsANameThatHoldsIt()
{
    open([](QWidget *opened) {
        const DropDown parts(opened);
        QTest::keyClicks(opened, QStringLiteral("eeN"));
        QCOMPARE(parts.highlighted(), QList<int>{2});
        QTest::keyClick(opened, Qt::Key_Escape);
        QTest::keyClicks(opened, QStringLiteral("to"));
        QCOMPARE(parts.highlighted(), QList<int>{1});
        opened->close();
    });
}

void tst_dropDownKeyboard_letters::typedLettersAreShownAndCanBeTakenBack()
{
    QApplication::setKeyboardInputInterval(1000000); // all letters belong together
    open([](QWidget *opened) {
        const DropDown parts(opened);
        const auto shown = [opened] {
            auto *column = qobject_cast<QVBoxLayout *>(opened->layout());
            auto *label = qobject_cast<QLabel *>(column->itemAt(2)->widget());
            return label && label->isVisible() ? label : nullptr;
        };
        const int height = parts.area->height();
        QVERIFY(!shown());
        QTest::keyClick(opened, Qt::Key_Backspace); // nothing to take back
        QTest::keyClicks(opened, QStringLiteral("gra"));
        QCOMPARE(shown()->text(), QStringLiteral("gra"));
        QVERIFY(!shown()->font().strikeOut());
        QVERIFY(!shown()->geometry().intersects(parts.area->geometry())); // over no entry
        QCOMPARE(parts.highlighted(), QList<int>{3});
        QTest::keyClicks(opened, QStringLiteral("x"));
        QCOMPARE(shown()->text(), QStringLiteral("grax"));
        QVERIFY(shown()->font().strikeOut()); // no name has it
        QCOMPARE(parts.highlighted(), QList<int>{3});
        QTest::keyClick(opened, Qt::Key_Backspace);
        QCOMPARE(shown()->text(), QStringLiteral("gra"));
        QVERIFY(!shown()->font().strikeOut());
        QTest::keyClick(opened, Qt::Key_Backspace);
        QCOMPARE(parts.highlighted(), QList<int>{2}); // "gr" finds "Greens" first
        QTest::keyClick(opened, Qt::Key_Backspace);
        QTest::keyClick(opened, Qt::Key_Backspace);
        QVERIFY(!shown());
        QCOMPARE(opened->layout()->count(), 3);
        QCOMPARE(parts.area->height(), height);
        opened->close();
    });
}

void tst_dropDownKeyboard_letters::escapeClearsTheLettersFirst()
{
    open([](QWidget *opened) {
        QTest::keyClicks(opened, QStringLiteral("red"));
        QTest::keyClick(opened, Qt::Key_Escape);
        QVERIFY(opened->isVisible());
        QCOMPARE(opened->layout()->count(), 3);
        QCOMPARE(DropDown(opened).highlighted(), QList<int>{4});
        QTest::keyClick(opened, Qt::Key_Escape);
        QVERIFY(!opened->isVisible());
    });
}

void tst_dropDownKeyboard_letters::movingOnEndsTheLetters_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Down") << int(Qt::Key_Down);
    QTest::newRow("Home") << int(Qt::Key_Home);
    QTest::newRow("PageUp") << int(Qt::Key_PageUp);
    QTest::newRow("Tab") << int(Qt::Key_Tab);
}

void tst_dropDownKeyboard_letters::movingOnEndsTheLetters()
{
    QFETCH(int, key);
    open([key](QWidget *opened) {
        QTest::keyClicks(opened, QStringLiteral("gr"));
        QCOMPARE(opened->layout()->count(), 4);
        QTest::keyClick(opened, static_cast<Qt::Key>(key));
        QCOMPARE(opened->layout()->count(), 3);
        QTest::keyClicks(opened, QStringLiteral("re"));
        QCOMPARE(DropDown(opened).highlighted(), QList<int>{4});
        opened->close();
    });
}

void tst_dropDownKeyboard_letters::pauseStartsAnotherName()
{
    QApplication::setKeyboardInputInterval(0); // every letter comes after a pause
    open([](QWidget *opened) {
        const DropDown parts(opened);
        QTest::keyClick(opened, Qt::Key_G);
        QTest::keyClick(opened, Qt::Key_R); // goes on, as long as there is such a name
        QCOMPARE(parts.highlighted(), QList<int>{2});
        QTest::keyClick(opened, Qt::Key_B);
        QCOMPARE(parts.highlighted(), QList<int>{0});
        opened->close();
    });
}

void tst_dropDownKeyboard_letters::sameLetterAgainStepsOn()
{
    for (int interval : {0, 1000000}) {
        QApplication::setKeyboardInputInterval(interval);
        open([](QWidget *opened) {
            const DropDown parts(opened);
            QTest::keyClick(opened, Qt::Key_B);
            QCOMPARE(parts.highlighted(), QList<int>{0});
            QTest::keyClick(opened, Qt::Key_B);
            QCOMPARE(parts.highlighted(), QList<int>{1});
            QTest::keyClick(opened, Qt::Key_B); // around the end
            QCOMPARE(parts.highlighted(), QList<int>{0});
            opened->close();
        });
    }
}

void tst_dropDownKeyboard_letters::blankBelongsToANameBegun()
{
    QApplication::setKeyboardInputInterval(1000000);
    QSignalSpy changed(picker, &VTColorSchemeComboBox::currentRampChanged);
    open([](QWidget *opened) {
        QTest::keyClicks(opened, QStringLiteral("blue "));
        QVERIFY(opened->isVisible());
        QCOMPARE(DropDown(opened).highlighted(), QList<int>{1});
        opened->close();
    });
    QCOMPARE(changed.count(), 0);
}

VT_TEST_MAIN(tst_dropDownKeyboard_letters)
#include "tst_dropDownKeyboard_letters.moc"
