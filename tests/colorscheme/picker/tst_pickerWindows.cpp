#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "tests/support/DropDown.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/PickerWindowTest.h"
#include "tests/support/RealInput.h"
#include "tests/support/TestMain.h"
#include "vomap/VOColorRamp.h"

#include <QApplication>
#include <QDialog>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

using RealInput::centerOf;

using namespace VTObjects;

/// The picker in real windows, driven through the window system.
class tst_pickerWindows : public PickerWindowTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void hoveredEntryIsBlueAndAClickChoosesItOnce();
    void wheelScrollsAndTheEntryBelowThePointerLightsUp();
    void lastOfAThousandEntriesIsReached_data();
    void lastOfAThousandEntriesIsReached();
    void pressReleasedElsewhereChoosesNothing();
    void clickBesideTheDropDownClosesIt();
    void clickOnThePickerClosesIt();
    void keyboardAloneChooses_data();
    void keyboardAloneChooses();
    void pickerAtTheEdgeOfTheScreen_data();
    void pickerAtTheEdgeOfTheScreen();
    void pickerInAScrolledDialog();
    void pickerWithoutAParent();
};

void tst_pickerWindows::hoveredEntryIsBlueAndAClickChoosesItOnce()
{
    open([this](QWidget *opened) {
        const DropDown parts(opened);
        const QPoint corner(picker->x(), picker->y() + picker->height() - 1);
        QCOMPARE(opened->pos(), dialog->mapToGlobal(corner));
        QTRY_COMPARE(parts.bar->size(), parts.userDefine->size());
        QCOMPARE(parts.highlighted(), QList<int>());
        RealInput::moveTo(centerOf(parts.name(1)));
        QTRY_COMPARE(parts.highlighted(), QList<int>{1});
        QCOMPARE(parts.strip(1)->styleSheet(), QString());
        RealInput::moveTo(centerOf(parts.strip(3)));
        QTRY_COMPARE(parts.highlighted(), QList<int>{3});
        QVERIFY(parts.name(1)->styleSheet().contains(QLatin1String("255,255,255,255")));
        RealInput::moveTo(centerOf(parts.userDefine));
        QTRY_COMPARE(parts.highlighted(), QList<int>());
        RealInput::click(centerOf(parts.strip(4)));
    });
    QTRY_COMPARE(changed->count(), 1);
    QCOMPARE(picker->currentColorRamp()->getLevel(), 5U);
}

void tst_pickerWindows::wheelScrollsAndTheEntryBelowThePointerLightsUp()
{
    int chosen = -1;
    open([&chosen](QWidget *opened) {
        const DropDown parts(opened);
        const QScrollBar *const bar = parts.area->verticalScrollBar();
        const QPoint middle = centerOf(parts.area->viewport());
        RealInput::moveTo(middle);
        QTRY_COMPARE(parts.highlighted().size(), 1);
        RealInput::wheelDown(4);
        QTRY_VERIFY(bar->value() > 100);
        const auto below = [&parts, middle] {
            return parts.list()->actionAt(parts.list()->mapFromGlobal(middle))->data().toInt();
        };
        QTRY_COMPARE(parts.highlighted(), QList<int>{below()});
        QVERIFY(parts.list()->isVisible());
        chosen = below();
        RealInput::click(middle);
    });
    QTRY_COMPARE(changed->count(), 1);
    QVERIFY(chosen > 4);
    QCOMPARE(picker->currentColorRamp()->getLevel(), static_cast<unsigned int>(chosen + 1));
}

void tst_pickerWindows::lastOfAThousandEntriesIsReached_data()
{
    QTest::addColumn<QString>("means");
    for (const char *means : {"wheel", "bar", "keyboard"})
        QTest::newRow(means) << QString::fromLatin1(means);
}

void tst_pickerWindows::lastOfAThousandEntriesIsReached()
{
    QFETCH(QString, means);
    records->customTeam.groups[0] = manySchemes(QStringLiteral("Mine"), 1000);
    open([&means](QWidget *opened) {
        const DropDown parts(opened);
        QScrollBar *const bar = parts.area->verticalScrollBar();
        if (means == QLatin1String("wheel")) {
            RealInput::moveTo(centerOf(parts.area->viewport()));
            RealInput::wheelDown(800);
        } else if (means == QLatin1String("bar")) {
            const QPoint top = bar->mapToGlobal(QPoint(bar->width() / 2, 25));
            RealInput::drag(top, bar->mapToGlobal(QPoint(bar->width() / 2, bar->height() - 5)));
        } else {
            RealInput::press(QStringLiteral("End"));
        }
        QTRY_COMPARE_WITH_TIMEOUT(bar->value(), bar->maximum(), 20000);
        QTRY_VERIFY(parts.isInSight(999));
        if (means == QLatin1String("keyboard"))
            RealInput::press(QStringLiteral("Return"));
        else
            RealInput::click(centerOf(parts.strip(999)));
    });
    QTRY_COMPARE(changed->count(), 1);
    QCOMPARE(picker->currentColorRamp()->getLevel(), 50U);
}

void tst_pickerWindows::pressReleasedElsewhereChoosesNothing()
{
    open([](QWidget *opened) {
        const DropDown parts(opened);
        const QPoint start = centerOf(parts.strip(1));
        RealInput::drag(start, opened->mapToGlobal(QPoint(opened->width() + 60, 200)));
        RealInput::drag(start, centerOf(parts.userDefine));
        RealInput::drag(start, centerOf(parts.bar));
        RealInput::drag(start, centerOf(parts.strip(3)));
        RealInput::click(parts.list()->mapToGlobal(parts.list()->rect().topRight()) + QPoint(1, 0));
        // All of that has arrived once the pointer's last place shows
        RealInput::moveTo(centerOf(parts.strip(2)));
        QTRY_COMPARE(parts.highlighted(), QList<int>{2});
        QVERIFY(opened->isVisible());
        QVERIFY(parts.list()->isVisible());
        RealInput::press(QStringLiteral("Escape"));
    });
    QCOMPARE(changed->count(), 0);
}

void tst_pickerWindows::clickBesideTheDropDownClosesIt()
{
    open([](QWidget *opened) {
        RealInput::click(opened->mapToGlobal(QPoint(opened->width() + 30, 60)));
    });
    QCOMPARE(changed->count(), 0);
}

void tst_pickerWindows::clickOnThePickerClosesIt()
{
    open([this](QWidget * /*opened*/) { RealInput::click(picker); });
    // and the next click, made once that one is through, opens it again
    int opened = 0;
    open([&opened](QWidget *again) {
        ++opened;
        again->close();
    });
    QCOMPARE(opened, 1);
    QCOMPARE(changed->count(), 0);
}

void tst_pickerWindows::keyboardAloneChooses_data()
{
    QTest::addColumn<QString>("key");
    for (const char *key : {"space", "alt+Down", "F4"})
        QTest::newRow(key) << QString::fromLatin1(key);
}

void tst_pickerWindows::keyboardAloneChooses()
{
    QFETCH(QString, key);
    before->setFocus();
    RealInput::press(QStringLiteral("Tab"));
    QTRY_VERIFY(picker->hasFocus());
    ModalDriver driver;
    driver.next([](QWidget *opened) {
        QVERIFY(QTest::qWaitForWindowExposed(opened));
        const DropDown parts(opened);
        RealInput::press(QStringLiteral("Page_Down"));
        QTRY_VERIFY(!parts.highlighted().isEmpty());
        RealInput::press(QStringLiteral("Home"));
        QTRY_COMPARE(parts.highlighted(), QList<int>{0});
        RealInput::press(QStringLiteral("Down"));
        QTRY_COMPARE(parts.highlighted(), QList<int>{1});
        RealInput::type(QStringLiteral("scheme 27"));
        QTRY_COMPARE(parts.highlighted(), QList<int>{27});
        QVERIFY(parts.isInSight(27));
        RealInput::press(QStringLiteral("Return"));
    });
    QApplication::setKeyboardInputInterval(60000); // a busy machine types slowly
    RealInput::press(key);
    QTRY_COMPARE_WITH_TIMEOUT(changed->count(), 1, 30000);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(picker->currentColorRamp()->getLevel(), 28U);
}

void tst_pickerWindows::pickerAtTheEdgeOfTheScreen_data()
{
    QTest::addColumn<bool>("right");
    QTest::addColumn<bool>("bottom");
    QTest::newRow("top left") << false << false;
    QTest::newRow("top right") << true << false;
    QTest::newRow("bottom left") << false << true;
    QTest::newRow("bottom right") << true << true;
}

void tst_pickerWindows::pickerAtTheEdgeOfTheScreen()
{
    QFETCH(bool, right);
    QFETCH(bool, bottom);
    // A window that nobody moves back
    QWidget window(nullptr, Qt::X11BypassWindowManagerHint);
    const QRect screen = QApplication::primaryScreen()->geometry();
    window.setGeometry(right ? screen.right() - 89 : -110, bottom ? screen.bottom() - 25 : 0, 200,
                       26);
    VTColorSchemeComboBox edge(&window);
    edge.setGeometry(0, 0, 200, 26);
    edge.setDefaultGroup(QStringLiteral("Custom"), 0, 0);
    QSignalSpy chosen(&edge, &VTColorSchemeComboBox::currentRampChanged);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    ModalDriver driver;
    driver.next([&](QWidget *opened) {
        QVERIFY(QTest::qWaitForWindowExposed(opened));
        // As near to the place below the picker as the screen has room
        const QPoint below = window.mapToGlobal(QPoint(0, 25));
        QCOMPARE(opened->pos(), QPoint(qBound(0, below.x(), screen.width() - opened->width()),
                                       bottom ? screen.height() - opened->height() : 25));
        RealInput::click(centerOf(DropDown(opened).strip(1)));
    });
    const QRect face(window.pos(), window.size());
    RealInput::click(face.intersected(screen).center());
    QTRY_COMPARE_WITH_TIMEOUT(chosen.count(), 1, 30000);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(edge.currentColorRamp()->getLevel(), 2U);
}

void tst_pickerWindows::pickerInAScrolledDialog()
{
    QDialog scrolled;
    scrolled.setGeometry(300, 150, 320, 240);
    QScrollArea area(&scrolled);
    area.setGeometry(10, 10, 300, 220);
    auto *content = new QWidget;
    content->resize(900, 900);
    auto *inner = new VTColorSchemeComboBox(content);
    inner->setGeometry(400, 500, 180, 26);
    inner->setDefaultGroup(QStringLiteral("Custom"), 0, 0);
    area.setWidget(content);
    QSignalSpy chosen(inner, &VTColorSchemeComboBox::currentRampChanged);
    scrolled.show();
    QVERIFY(QTest::qWaitForWindowActive(&scrolled));
    area.horizontalScrollBar()->setValue(350);
    area.verticalScrollBar()->setValue(430);
    ModalDriver driver;
    driver.next([&scrolled](QWidget *opened) {
        QVERIFY(QTest::qWaitForWindowExposed(opened));
        QCOMPARE(opened->pos(),
                 scrolled.mapToGlobal(QPoint(10 + 1 + 400 - 350, 10 + 1 + 500 - 430 + 25)));
        RealInput::click(centerOf(DropDown(opened).strip(2)));
    });
    RealInput::click(inner);
    QTRY_COMPARE_WITH_TIMEOUT(chosen.count(), 1, 30000);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(inner->currentColorRamp()->getLevel(), 3U);
}

void tst_pickerWindows::pickerWithoutAParent()
{
    dialog->hide();
    VTColorSchemeComboBox single;
    single.setDefaultGroup(QStringLiteral("Custom"), 1, 0);
    QSignalSpy chosen(&single, &VTColorSchemeComboBox::currentRampChanged);
    single.move(500, 300);
    single.show();
    QVERIFY(QTest::qWaitForWindowActive(&single));
    ModalDriver driver;
    driver.next([&single](QWidget *opened) {
        QVERIFY(QTest::qWaitForWindowExposed(opened));
        QVERIFY(!opened->geometry().intersects(single.geometry())); // it is not moved there
        RealInput::click(centerOf(DropDown(opened).strip(2)));
    });
    RealInput::click(centerOf(&single));
    QTRY_COMPARE_WITH_TIMEOUT(chosen.count(), 1, 30000);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(single.currentColorRamp()->getLevel(), 3U);
}

VT_TEST_MAIN(tst_pickerWindows)
#include "tst_pickerWindows.moc"
