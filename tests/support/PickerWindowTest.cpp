#include "tests/support/PickerWindowTest.h"

#include "colorscheme/picker/VTColorSchemeMenu.h"
#include "tests/support/RealInput.h"
#include "tests/support/windowsLeft.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QApplication>
#include <QScreen>
#include <QtTest>

using namespace VTObjects;

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

void PickerWindowTest::setUp()
{
    store = std::make_unique<TestStore>();
    records = VOColorSchemeManager::instance();
    records->customTeam.groups = {manySchemes(QStringLiteral("Mine"), 30),
                                  manySchemes(QStringLiteral("Yours"), 3)};
    records->favoriteTeam.groups = {manySchemes(QStringLiteral("Best"), 2)};
    dialog = std::make_unique<QDialog>();
    // A small screen has no such place.
    const QSize screen = QApplication::primaryScreen()->size();
    dialog->setGeometry(qBound(0, screen.width() - 400, 400), qBound(0, screen.height() - 300, 200),
                        400, 300);
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

void PickerWindowTest::tearDown()
{
    RealInput::releaseButton();
    changed.reset();
    dialog.reset();
    store.reset();
    QCOMPARE(windowsLeft(), QStringList());
}

void PickerWindowTest::open(const ModalDriver::Handler &handler)
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
