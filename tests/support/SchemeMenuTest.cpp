#include "tests/support/SchemeMenuTest.h"

#include "tests/support/windowsLeft.h"

#include <QtTest>

using namespace VTObjects;

void SchemeMenuTest::setUp()
{
    store = std::make_unique<TestStore>();
    records = VOColorSchemeManager::instance();
    records->customTeam.groups.push_back(
        makeGroup(QStringLiteral("Mine"), {QStringLiteral("one"), QStringLiteral("two")}));
    records->customTeam.groups.push_back(makeGroup(QStringLiteral("Nothing"), {}));
    records->favoriteTeam.groups.push_back(
        makeGroup(QStringLiteral("Best"), {QStringLiteral("first"), QStringLiteral("second")}));
    host = std::make_unique<QWidget>();
    host->setGeometry(200, 50, 400, 300);
    picker = new VTColorSchemeComboBox(host.get());
    picker->setGeometry(40, 60, 150, 24);
    host->show();
}

void SchemeMenuTest::tearDown()
{
    host.reset();
    store.reset();
    QCOMPARE(windowsLeft(), QStringList());
}

QStringList SchemeMenuTest::numbered(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names.append(QStringLiteral("scheme %1").arg(i));
    return names;
}

void SchemeMenuTest::press(QWidget *widget, const QPoint &position)
{
    QTest::mousePress(widget, Qt::LeftButton, Qt::NoModifier, position);
}

void SchemeMenuTest::release(QWidget *widget, const QPoint &position)
{
    QTest::mouseRelease(widget, Qt::LeftButton, Qt::NoModifier, position);
}
