#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "colorscheme/picker/VTColorSchemeGroupMenu.h"
#include "tests/support/DropDown.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/PickerWindowTest.h"
#include "tests/support/RealInput.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QApplication>
#include <QtTest>

using RealInput::centerOf;

using namespace VTObjects;

/// The picker in real windows, driven through the window system.
class tst_pickerWindows_furtherWindows : public PickerWindowTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void groupOfEachTeamIsPicked_data();
    void groupOfEachTeamIsPicked();
    void userDefineIsAnswered_data();
    void userDefineIsAnswered();
};

void tst_pickerWindows_furtherWindows::groupOfEachTeamIsPicked_data()
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

void tst_pickerWindows_furtherWindows::groupOfEachTeamIsPicked()
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

void tst_pickerWindows_furtherWindows::userDefineIsAnswered_data()
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

void tst_pickerWindows_furtherWindows::userDefineIsAnswered()
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

VT_TEST_MAIN(tst_pickerWindows_furtherWindows)
#include "tst_pickerWindows_furtherWindows.moc"
