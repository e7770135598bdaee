#include "tests/support/DropDownKeysTest.h"

#include "tests/support/windowsLeft.h"
#include "vomap/VOColorSchemeManager.h"

#include <QApplication>
#include <QtTest>

using namespace VTObjects;

void DropDownKeysTest::setUp()
{
    store = std::make_unique<TestStore>();
    inputInterval = QApplication::keyboardInputInterval();
    host = std::make_unique<QWidget>();
    host->setGeometry(200, 50, 400, 300);
    before = new QLineEdit(host.get());
    picker = new VTColorSchemeComboBox(host.get());
    picker->setGeometry(40, 60, 150, 24);
    listSchemes({QStringLiteral("Blues"), QStringLiteral("Blue to red"), QStringLiteral("Greens"),
                 QStringLiteral("Grays"), QStringLiteral("Reds")});
    host->show();
    host->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(host.get()));
}

void DropDownKeysTest::tearDown()
{
    QApplication::setKeyboardInputInterval(inputInterval);
    host.reset();
    store.reset();
    QCOMPARE(windowsLeft(), QStringList());
}

void DropDownKeysTest::open(const ModalDriver::Handler &handler)
{
    ModalDriver driver;
    driver.next(handler);
    QTest::keyClick(picker, Qt::Key_F4);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void DropDownKeysTest::listSchemes(const QStringList &names)
{
    VOColorSchemeManager::instance()->customTeam.groups = {
        makeGroup(QStringLiteral("Mine"), names)};
    QVERIFY(picker->setDefaultGroup(QStringLiteral("Custom"), 0, -1));
}
