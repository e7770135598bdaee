#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "colorscheme/picker/VTColorSchemeGroupMenu.h"
#include "tests/colorscheme/picker/DropDown.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/RealInput.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using namespace VTObjects;

namespace {

QPoint centerOf(const QWidget *widget)
{
    return widget->mapToGlobal(widget->rect().center());
}

QPushButton *groupOf(const QWidget *chooser, const QString &text)
{
    for (QPushButton *button : chooser->findChildren<QPushButton *>()) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

/// Schemes that are told apart by their number of colours: scheme i has i % 50 + 1.
VOColorSchemeGroup manySchemes(const QString &name, int count)
{
    VOColorSchemeGroup group;
    group.name = toVOString(name);
    for (int i = 0; i < count; ++i) {
        VOColorScheme scheme;
        scheme.name = toVOString(QStringLiteral("scheme %1").arg(i));
        auto *ramp = new VOEvenColorRamp;
        rgb_color<float> ends[] = {{200, 30, 30}, {20, 60, 220}};
        ramp->setSourceColor(2, ends);
        ramp->split(static_cast<unsigned int>(i % 50 + 1));
        scheme.colorRamp = ramp;
        group.schemes.push_back(scheme);
    }
    return group;
}

} // namespace

/// The picker in real windows, driven through the window system.
class tst_pickerWindows : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void hoveredEntryIsBlueAndAClickChoosesItOnce();
    void wheelScrollsAndTheEntryBelowThePointerLightsUp();
    void lastOfAThousandEntriesIsReached_data();
    void lastOfAThousandEntriesIsReached();
    void pressReleasedElsewhereChoosesNothing();
    void clickBesideTheDropDownClosesIt();
    void clickOnThePickerClosesIt();
    void groupOfEachTeamIsPicked_data();
    void groupOfEachTeamIsPicked();
    void userDefineIsAnswered_data();
    void userDefineIsAnswered();
    void keyboardAloneChooses_data();
    void keyboardAloneChooses();
    void pickerAtTheEdgeOfTheScreen_data();
    void pickerAtTheEdgeOfTheScreen();
    void pickerInAScrolledDialog();
    void pickerWithoutAParent();

private:
    void open(const ModalDriver::Handler &handler);

    std::unique_ptr<TestStore> store;
    std::unique_ptr<QDialog> dialog;
    std::unique_ptr<QSignalSpy> changed;
    QLineEdit *before = nullptr;
    VTColorSchemeComboBox *picker = nullptr;
    VOColorSchemeManager *records = nullptr;
};

void tst_pickerWindows::init()
{
    store = std::make_unique<TestStore>();
    records = VOColorSchemeManager::instance();
    records->customTeam.groups = {manySchemes(QStringLiteral("Mine"), 30),
                                  manySchemes(QStringLiteral("Yours"), 3)};
    records->favoriteTeam.groups = {manySchemes(QStringLiteral("Best"), 2)};
    dialog = std::make_unique<QDialog>();
    dialog->setGeometry(400, 200, 400, 300);
    before = new QLineEdit(dialog.get());
    picker = new VTColorSchemeComboBox(dialog.get());
    picker->setGeometry(60, 60, 200, 26);
    QVERIFY(picker->setDefaultGroup(QStringLiteral("Custom"), 0, 0));
    changed = std::make_unique<QSignalSpy>(picker, &VTColorSchemeComboBox::currentRampChanged);
    RealInput::moveTo(QPoint(5, 5));
    dialog->show();
    dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
}

void tst_pickerWindows::cleanup()
{
    RealInput::releaseButton();
    changed.reset();
    dialog.reset();
    store.reset();
    for (const QWidget *widget : QApplication::topLevelWidgets())
        QVERIFY2(widget->windowType() == Qt::Desktop, widget->metaObject()->className());
}

/// Clicks on the picker and leaves the drop-down to the handler.
void tst_pickerWindows::open(const ModalDriver::Handler &handler)
{
    ModalDriver driver;
    driver.next([&handler](QWidget *opened) {
        QVERIFY(qobject_cast<VTColorSchemeMenu *>(opened));
        QVERIFY(QTest::qWaitForWindowExposed(opened));
        handler(opened);
    });
    RealInput::click(picker);
    QTRY_VERIFY2_WITH_TIMEOUT(driver.allSeen(), qPrintable(driver.problem()), 30000);
    QTRY_VERIFY(!QApplication::activePopupWidget());
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

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

void tst_pickerWindows::groupOfEachTeamIsPicked_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("team");
    QTest::addColumn<QString>("name");
    QTest::newRow("favorite") << QStringLiteral("Best") << QStringLiteral("Favorite")
                              << QStringLiteral("Best");
    QTest::newRow("default") << QStringLiteral("For graph") << QStringLiteral("Default")
                             << QStringLiteral("Graph");
    QTest::newRow("custom") << QStringLiteral("Yours") << QStringLiteral("Custom")
                            << QStringLiteral("Yours");
}

void tst_pickerWindows::groupOfEachTeamIsPicked()
{
    QFETCH(QString, group);
    QFETCH(QString, team);
    QFETCH(QString, name);
    const VOColorSchemeTeam &expected = team == QLatin1String("Default")  ? records->defaultTeam
                                        : team == QLatin1String("Custom") ? records->customTeam
                                                                          : records->favoriteTeam;
    const int index = expected.index(toVOString(name));
    QVERIFY(index >= 0);
    const QStringList schemes = schemeNames(expected.groups[static_cast<std::size_t>(index)]);
    VOColorRamp *const ramp = picker->currentColorRamp();

    QPointer<QWidget> dropDown;
    ModalDriver driver;
    driver.next([&dropDown](QWidget *opened) {
        dropDown = opened;
        QVERIFY(QTest::qWaitForWindowExposed(opened));
        RealInput::click(centerOf(DropDown(opened).bar));
    });
    driver.next([&group, &dropDown](QWidget *chooser) {
        QVERIFY(qobject_cast<VTColorSchemeGroupMenu *>(chooser));
        QVERIFY(QTest::qWaitForWindowExposed(chooser));
        const DropDown parts(dropDown);
        QCOMPARE(chooser->geometry().right(), parts.bar->mapToGlobal(QPoint(0, 0)).x() - 3);
        QCOMPARE(chooser->y(), parts.bar->mapToGlobal(QPoint(0, parts.bar->height() - 1)).y());
        QPushButton *const button = groupOf(chooser, group);
        QVERIFY(button);
        // Once it is gone, the drop-down lists the group, and a click chooses of it
        auto *const bar = parts.bar;
        connect(bar, &VTColorSchemeGroupButton::textChanged, bar, [&dropDown] {
            QTimer::singleShot(0, dropDown, [&dropDown] {
                RealInput::click(centerOf(DropDown(dropDown).strip(1)));
            });
        });
        RealInput::click(button);
    });
    // Between the two the picker still shows its old scheme.
    connect(picker, &VTColorSchemeComboBox::currentRampChanged, picker, [&] {
        QCOMPARE(DropDown(dropDown).names(), schemes);
        QCOMPARE(DropDown(dropDown).bar->text(), group);
    });
    RealInput::click(picker);
    QTRY_COMPARE_WITH_TIMEOUT(changed->count(), 1, 30000);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(picker->currentColorRamp() != ramp);
    const VOColorScheme &scheme = expected.groups[static_cast<std::size_t>(index)].schemes[1];
    QCOMPARE(picker->currentColorRamp()->getLevel(), scheme.colorRamp->getLevel());
}

void tst_pickerWindows::userDefineIsAnswered_data()
{
    QTest::addColumn<QString>("button"); // nothing: Escape
    QTest::addColumn<bool>("existed");
    QTest::addColumn<int>("signalCount");
    QTest::addColumn<int>("groupCount");
    QTest::newRow("OK") << QStringLiteral("pushButton_ok") << false << 1 << 3;
    QTest::newRow("Cancel") << QStringLiteral("pushButton_cancel") << false << 0 << 2;
    QTest::newRow("Escape") << QString() << false << 0 << 2;
    QTest::newRow("OK, old group") << QStringLiteral("pushButton_ok") << true << 1 << 3;
    QTest::newRow("Escape, old group") << QString() << true << 0 << 3;
}

void tst_pickerWindows::userDefineIsAnswered()
{
    QFETCH(QString, button);
    QFETCH(bool, existed);
    QFETCH(int, signalCount);
    QFETCH(int, groupCount);
    if (existed)
        records->customTeam.groups.push_back(makeGroup(QStringLiteral("User define"), {}));
    ModalDriver driver;
    driver.next([](QWidget *opened) {
        QVERIFY(QTest::qWaitForWindowExposed(opened));
        RealInput::click(centerOf(DropDown(opened).userDefine));
    });
    driver.next([&button](QWidget *editor) {
        QVERIFY(qobject_cast<VTColorSchemeEditor *>(editor));
        QVERIFY(QTest::qWaitForWindowActive(editor));
        QVERIFY(!QApplication::activePopupWidget()); // the drop-down is out of the way
        if (button.isEmpty())
            RealInput::press(QStringLiteral("Escape"));
        else
            RealInput::click(centerOf(editor->findChild<QPushButton *>(button)));
    });
    RealInput::click(picker);
    QTRY_VERIFY2_WITH_TIMEOUT(driver.allSeen(), qPrintable(driver.problem()), 30000);
    QTRY_VERIFY(!QApplication::activeModalWidget() ||
                QApplication::activeModalWidget() == dialog.get());
    QTRY_COMPARE(changed->count(), signalCount);
    QCOMPARE(records->customTeam.groups.size(), static_cast<std::size_t>(groupCount));
    if (groupCount == 3) {
        QCOMPARE(schemeNames(records->customTeam.groups[2]),
                 QStringList(QStringLiteral("add_scheme1")));
    }
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
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
        // Below the picker, wherever that is
        QCOMPARE(opened->pos(), window.mapToGlobal(QPoint(0, 25)));
        const DropDown parts(opened);
        if (bottom) { // the entries are out of sight, but not out of reach
            RealInput::press(QStringLiteral("Down"));
            QTRY_COMPARE(parts.highlighted(), QList<int>{0});
            RealInput::press(QStringLiteral("Down"));
            QTRY_COMPARE(parts.highlighted(), QList<int>{1});
            RealInput::press(QStringLiteral("Return"));
        } else {
            const QRect strip(parts.strip(1)->mapToGlobal(QPoint(0, 0)), parts.strip(1)->size());
            RealInput::click(strip.intersected(screen).center());
        }
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
