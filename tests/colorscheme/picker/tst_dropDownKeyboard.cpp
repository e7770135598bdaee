#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "colorscheme/picker/VTColorSchemeGroupMenu.h"
#include "tests/support/DropDown.h"
#include "tests/support/DropDownKeysTest.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "vomap/VORandomColorRamp.h"

#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

/// The picker and its drop-down without a mouse.
class tst_dropDownKeyboard : public DropDownKeysTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void tabReachesThePicker();
    void focusByKeyboardShows();
    void keyOpensTheDropDown_data();
    void keyOpensTheDropDown();
    void otherKeysLeaveItClosed_data();
    void otherKeysLeaveItClosed();
    void noEntryIsCurrentAtFirst();
    void pickedEntryIsTheFirstToBeCurrent();
    void keysGoOnFromThePickedEntry();
    void keysMoveTheCurrentEntry_data();
    void keysMoveTheCurrentEntry();
    void everyEntryOfALongListIsBroughtInSight();
    void keysInAnEmptyListDoNothing();
    void returnChoosesTheCurrentEntry_data();
    void returnChoosesTheCurrentEntry();
    void keyClosesWithoutAChoice_data();
    void keyClosesWithoutAChoice();
    void tabGoesToTheBarsAndBack();
    void barsActOnReturn();
    void pointerAndKeysShareOneEntry();
    void groupChangeForgetsTheCurrentEntry();
};

void tst_dropDownKeyboard::tabReachesThePicker()
{
    before->setFocus();
    QTest::keyClick(before, Qt::Key_Tab);
    QVERIFY(picker->hasFocus());
}

void tst_dropDownKeyboard::focusByKeyboardShows()
{
    before->setFocus();
    const QImage without = picker->grab().toImage();
    QTest::keyClick(before, Qt::Key_Tab);
    QVERIFY(picker->hasFocus());
    const QImage with = picker->grab().toImage();
    const QColor frame = picker->palette().color(QPalette::Highlight);
    for (const QPoint &place : {with.rect().topLeft(), with.rect().bottomRight()}) {
        QCOMPARE(with.pixelColor(place), frame);
        QVERIFY(without.pixelColor(place) != frame);
    }
    // Inside the frame nothing changes
    const QRect inside = with.rect().adjusted(2, 2, -2, -2);
    QCOMPARE(with.copy(inside), without.copy(inside));

    open([&frame](QWidget *opened) {
        const DropDown parts(opened);
        QVERIFY(parts.bar->grab().toImage().pixelColor(0, 0) != frame);
        QTest::keyClick(opened, Qt::Key_Backtab);
        QVERIFY(parts.bar->hasFocus());
        QCOMPARE(parts.bar->grab().toImage().pixelColor(0, 0), frame);
        opened->close();
    });
}

void tst_dropDownKeyboard::keyOpensTheDropDown_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("Space") << int(Qt::Key_Space) << int(Qt::NoModifier);
    QTest::newRow("Alt+Down") << int(Qt::Key_Down) << int(Qt::AltModifier);
    QTest::newRow("F4") << int(Qt::Key_F4) << int(Qt::NoModifier);
}

void tst_dropDownKeyboard::keyOpensTheDropDown()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    ModalDriver driver;
    driver.next([](QWidget *opened) {
        QVERIFY(qobject_cast<VTColorSchemeMenu *>(opened));
        opened->close();
    });
    QTest::keyClick(picker, static_cast<Qt::Key>(key), Qt::KeyboardModifiers(modifiers));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_dropDownKeyboard::otherKeysLeaveItClosed_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("Down") << int(Qt::Key_Down) << int(Qt::NoModifier);
    QTest::newRow("Alt+Up") << int(Qt::Key_Up) << int(Qt::AltModifier);
    QTest::newRow("F5") << int(Qt::Key_F5) << int(Qt::NoModifier);
}

void tst_dropDownKeyboard::otherKeysLeaveItClosed()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QTest::keyClick(picker, static_cast<Qt::Key>(key), Qt::KeyboardModifiers(modifiers));
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_dropDownKeyboard::noEntryIsCurrentAtFirst()
{
    QSignalSpy changed(picker, &VTColorSchemeComboBox::currentRampChanged);
    open([](QWidget *opened) {
        QCOMPARE(DropDown(opened).highlighted(), QList<int>());
        QTest::keyClick(opened, Qt::Key_Return);
        QVERIFY(opened->isVisible());
        opened->close();
    });
    QCOMPARE(changed.count(), 0);
}

void tst_dropDownKeyboard::pickedEntryIsTheFirstToBeCurrent()
{
    QStringList names;
    for (int i = 0; i < 1000; ++i)
        names.append(QStringLiteral("scheme %1").arg(i));
    listSchemes(names);
    QVERIFY(picker->setDefaultGroup(QStringLiteral("Custom"), 0, 517));
    QSignalSpy changed(picker, &VTColorSchemeComboBox::currentRampChanged);
    open([](QWidget *opened) {
        const DropDown parts(opened);
        QCOMPARE(parts.highlighted(), QList<int>{517});
        for (int i : {515, 516, 517, 518, 519})
            QVERIFY(parts.isInSight(i)); // with what lies beside it
        for (int i = 0; i < 1000; ++i)
            QCOMPARE(parts.entry(i)->isPicked(), i == 517);
        QTest::keyClick(opened, Qt::Key_Down);
        QCOMPARE(parts.highlighted(), QList<int>{518});
        QVERIFY(parts.entry(517)->isPicked());
        QTest::keyClick(opened, Qt::Key_Up);
        QTest::keyClick(opened, Qt::Key_Return);
    });
    QCOMPARE(changed.count(), 1);
    // A ramp from elsewhere is none of them
    VTObjects::VORandomColorRamp other;
    other.split(3);
    picker->setColorRamp(&other);
    open([](QWidget *opened) {
        QCOMPARE(DropDown(opened).highlighted(), QList<int>());
        QVERIFY(!DropDown(opened).entry(517)->isPicked());
        opened->close();
    });
}

void tst_dropDownKeyboard::keysGoOnFromThePickedEntry()
{
    QVERIFY(picker->setDefaultGroup(QStringLiteral("Custom"), 0, 2));
    ModalDriver driver;
    driver.next([](QWidget *opened) {
        const DropDown parts(opened);
        // By a click: it is marked, and lights up only when the pointer or a key goes there
        QCOMPARE(parts.highlighted(), QList<int>());
        QVERIFY(parts.entry(2)->isPicked());
        QTest::keyClick(opened, Qt::Key_Down);
        QCOMPARE(parts.highlighted(), QList<int>{3});
        opened->close();
    });
    QTest::mouseClick(picker, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_dropDownKeyboard::keysMoveTheCurrentEntry_data()
{
    QTest::addColumn<QVector<int>>("keys");
    QTest::addColumn<int>("current"); // of 30 entries
    QTest::addColumn<int>("pages");   // further down
    QTest::newRow("Down") << QVector<int>{Qt::Key_Down} << 0 << 0;
    QTest::newRow("Down, Down") << QVector<int>{Qt::Key_Down, Qt::Key_Down} << 1 << 0;
    QTest::newRow("Up") << QVector<int>{Qt::Key_Up} << 29 << 0;
    QTest::newRow("Down, Up") << QVector<int>{Qt::Key_Down, Qt::Key_Up} << 0 << 0;
    QTest::newRow("End") << QVector<int>{Qt::Key_End} << 29 << 0;
    QTest::newRow("End, Down") << QVector<int>{Qt::Key_End, Qt::Key_Down} << 29 << 0;
    QTest::newRow("End, Up") << QVector<int>{Qt::Key_End, Qt::Key_Up} << 28 << 0;
    QTest::newRow("End, Home") << QVector<int>{Qt::Key_End, Qt::Key_Home} << 0 << 0;
    QTest::newRow("Home, PageDown") << QVector<int>{Qt::Key_Home, Qt::Key_PageDown} << 0 << 1;
    QTest::newRow("End, PageDown") << QVector<int>{Qt::Key_End, Qt::Key_PageDown} << 29 << 0;
    QTest::newRow("End, PageUp") << QVector<int>{Qt::Key_End, Qt::Key_PageUp} << 29 << -1;
    QTest::newRow("Home, PageUp") << QVector<int>{Qt::Key_Home, Qt::Key_PageUp} << 0 << 0;
    QTest::newRow("PageUp") << QVector<int>{Qt::Key_PageUp} << 29 << 0;
}

void tst_dropDownKeyboard::keysMoveTheCurrentEntry()
{
    QFETCH(QVector<int>, keys);
    QFETCH(int, current);
    QFETCH(int, pages);
    QStringList names;
    for (int i = 0; i < 30; ++i)
        names.append(QStringLiteral("scheme %1").arg(i));
    listSchemes(names);
    open([&keys, current, pages](QWidget *opened) {
        const DropDown parts(opened);
        const int page = parts.area->viewport()->height() / parts.entry(0)->height();
        QVERIFY(page > 3 && page < 15);
        for (int key : keys) {
            QTest::keyClick(opened, static_cast<Qt::Key>(key));
            QCOMPARE(parts.highlighted().size(), 1);
            QVERIFY(parts.isInSight(parts.highlighted().constFirst()));
        }
        QCOMPARE(parts.highlighted(), QList<int>{current + pages * page});
        opened->close();
    });
}

void tst_dropDownKeyboard::everyEntryOfALongListIsBroughtInSight()
{
    QStringList names;
    for (int i = 0; i < 1000; ++i)
        names.append(QStringLiteral("scheme %1").arg(i));
    listSchemes(names);
    open([](QWidget *opened) {
        const DropDown parts(opened);
        for (int i = 0; i < 1000; ++i) {
            QTest::keyClick(opened, Qt::Key_Down);
            QVERIFY(parts.entry(i)->isHighlighted());
            QVERIFY(parts.isInSight(i));
        }
        for (int i = 999; i > 0; --i) {
            QVERIFY(parts.isInSight(i));
            QTest::keyClick(opened, Qt::Key_Up);
        }
        QCOMPARE(parts.highlighted(), QList<int>{0});
        opened->close();
    });
}

void tst_dropDownKeyboard::keysInAnEmptyListDoNothing()
{
    listSchemes({});
    open([](QWidget *opened) {
        for (Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End, Qt::Key_PageDown,
                            Qt::Key_PageUp, Qt::Key_Return, Qt::Key_B, Qt::Key_Space})
            QTest::keyClick(opened, key);
        QVERIFY(opened->isVisible());
        opened->close();
    });
}

void tst_dropDownKeyboard::returnChoosesTheCurrentEntry_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter") << int(Qt::Key_Enter);
    QTest::newRow("Space") << int(Qt::Key_Space);
}

void tst_dropDownKeyboard::returnChoosesTheCurrentEntry()
{
    QFETCH(int, key);
    QSignalSpy changed(picker, &VTColorSchemeComboBox::currentRampChanged);
    open([key](QWidget *opened) {
        QTest::keyClick(opened, Qt::Key_Down);
        QTest::keyClick(opened, Qt::Key_Down);
        QTest::keyClick(opened, static_cast<Qt::Key>(key));
        QVERIFY(!opened->isVisible());
    });
    QCOMPARE(changed.count(), 1);
    QVERIFY(picker->accessibleDescription().startsWith(QLatin1String("10 colors")));
}

void tst_dropDownKeyboard::keyClosesWithoutAChoice_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("Escape") << int(Qt::Key_Escape) << int(Qt::NoModifier);
    QTest::newRow("F4") << int(Qt::Key_F4) << int(Qt::NoModifier);
    QTest::newRow("Alt+Up") << int(Qt::Key_Up) << int(Qt::AltModifier);
}

void tst_dropDownKeyboard::keyClosesWithoutAChoice()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QSignalSpy changed(picker, &VTColorSchemeComboBox::currentRampChanged);
    open([key, modifiers](QWidget *opened) {
        QTest::keyClick(opened, Qt::Key_Down);
        QTest::keyClick(opened, static_cast<Qt::Key>(key), Qt::KeyboardModifiers(modifiers));
        QVERIFY(!opened->isVisible());
    });
    QCOMPARE(changed.count(), 0);
}

void tst_dropDownKeyboard::tabGoesToTheBarsAndBack()
{
    open([](QWidget *opened) {
        const DropDown parts(opened);
        const auto focused = [opened]() -> QWidget * {
            return opened->focusWidget() ? opened->focusWidget() : opened;
        };
        QTest::keyClick(focused(), Qt::Key_Tab);
        QCOMPARE(focused(), parts.userDefine);
        QTest::keyClick(focused(), Qt::Key_Tab);
        QCOMPARE(focused(), parts.bar);
        QTest::keyClick(focused(), Qt::Key_Tab);
        QCOMPARE(focused(), opened);
        QTest::keyClick(focused(), Qt::Key_Backtab);
        QCOMPARE(focused(), parts.bar);
        QTest::keyClick(focused(), Qt::Key_Backtab);
        QCOMPARE(focused(), parts.userDefine);
        // A letter or End takes the keyboard back to the entries.
        QTest::keyClick(focused(), Qt::Key_End);
        QCOMPARE(focused(), opened);
        QCOMPARE(parts.highlighted(), QList<int>{4});
        opened->close();
    });
}

void tst_dropDownKeyboard::barsActOnReturn()
{
    QSignalSpy changed(picker, &VTColorSchemeComboBox::currentRampChanged);
    ModalDriver driver;
    driver.next([](QWidget *opened) {
        QTest::keyClick(opened, Qt::Key_Down);
        QTest::keyClick(opened, Qt::Key_Backtab);
        QTest::keyClick(opened->focusWidget(), Qt::Key_Return);
        QVERIFY(opened->isVisible());
        opened->close();
    });
    driver.next([](QWidget *chooser) {
        QVERIFY(qobject_cast<VTColorSchemeGroupMenu *>(chooser));
        QTest::keyClick(chooser, Qt::Key_Escape);
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(changed.count(), 0); // and not the current entry
}

void tst_dropDownKeyboard::pointerAndKeysShareOneEntry()
{
    open([](QWidget *opened) {
        const DropDown parts(opened);
        QMenu *const list = parts.list();
        QTest::keyClick(opened, Qt::Key_End);
        QTest::mouseMove(list, list->actionGeometry(parts.actions()[1]).center());
        QCOMPARE(parts.highlighted(), QList<int>{1});
        QTest::keyClick(opened, Qt::Key_Down);
        QCOMPARE(parts.highlighted(), QList<int>{2});
        // The pointer takes away what it brought, and leaves what the keyboard did
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(list, &leave);
        QCOMPARE(parts.highlighted(), QList<int>{2});
        QTest::mouseMove(list, list->actionGeometry(parts.actions()[3]).center());
        QCOMPARE(parts.highlighted(), QList<int>{3});
        QCoreApplication::sendEvent(list, &leave);
        QCOMPARE(parts.highlighted(), QList<int>());
        QTest::keyClick(opened, Qt::Key_Up); // on from where it was
        QCOMPARE(parts.highlighted(), QList<int>{2});
        opened->close();
    });
}

void tst_dropDownKeyboard::groupChangeForgetsTheCurrentEntry()
{
    QSignalSpy changed(picker, &VTColorSchemeComboBox::currentRampChanged);
    open([](QWidget *opened) {
        const DropDown parts(opened);
        QTest::keyClick(opened, Qt::Key_End);
        parts.bar->setProperty("parent", 1);
        Q_EMIT parts.bar->textChanged(QStringLiteral("Mine"));
        QCOMPARE(parts.highlighted(), QList<int>());
        QTest::keyClick(opened, Qt::Key_Return);
        QVERIFY(opened->isVisible());
        QTest::keyClick(opened, Qt::Key_Down);
        QCOMPARE(parts.highlighted(), QList<int>{0});
        opened->close();
    });
    QCOMPARE(changed.count(), 0);
}

VT_TEST_MAIN(tst_dropDownKeyboard)
#include "tst_dropDownKeyboard.moc"
