#include "tests/support/ComboBoxTest.h"

#include "tests/support/ModalDriver.h"
#include "tests/support/windowsLeft.h"
#include "vomap/VOStringConversion.h"

#include <QLabel>
#include <QScrollArea>
#include <QToolButton>
#include <QtTest>

using namespace VTObjects;

int CountedRamp::alive = 0;

void forceSize(QWidget *widget, QSize size)
{
    widget->ensurePolished();
    widget->setMinimumSize(1, 1);
    widget->resize(size);
}

VOColorScheme solidScheme(const QString &name, const rgb_color<float> &color)
{
    VOColorScheme scheme = makeScheme(name);
    delete scheme.colorRamp;
    scheme.colorRamp = new VOEvenColorRamp;
    scheme.colorRamp->addColor(color);
    return scheme;
}

VOColorSchemeGroup redAndGreen(const QString &name, float blue)
{
    VOColorSchemeGroup group;
    group.name = toVOString(name);
    group.schemes.push_back(
        solidScheme(name + QStringLiteral(" red"), rgb_color<float>(200, 0, blue)));
    group.schemes.push_back(
        solidScheme(name + QStringLiteral(" green"), rgb_color<float>(0, 200, blue)));
    return group;
}

QColor firstColor(VTColorSchemeComboBox &box)
{
    const rgb_color<float> color = box.currentColorRamp()->getColor(0);
    return QColor(int(color.red), int(color.green), int(color.blue));
}

QImage face(VTColorSchemeComboBox &box)
{
    forceSize(&box, QSize(150, 20));
    return box.grab().toImage();
}

QColor faceColor(VTColorSchemeComboBox &box)
{
    return face(box).pixelColor(70, 10);
}

QStringList listed(VTColorSchemeComboBox &box)
{
    QStringList shown;
    ModalDriver driver;
    driver.next([&](QWidget *menu) {
        shown.append(menu->findChild<QToolButton *>()->text());
        const QWidget *const list = menu->findChild<QScrollArea *>()->widget();
        const auto labels = list ? list->findChildren<QLabel *>() : QList<QLabel *>();
        for (const QLabel *label : labels) {
            if (!label->text().isEmpty())
                shown.append(label->text());
        }
        menu->close();
    });
    QTest::mouseClick(&box, Qt::LeftButton);
    return driver.allSeen() ? shown : QStringList(driver.problem());
}

VOColorSchemeManager *store()
{
    return VOColorSchemeManager::instance();
}

void ComboBoxTest::setUp()
{
    testStore = std::make_unique<TestStore>();
    store()->defaultTeam.groups = {redAndGreen("DEM", 1), redAndGreen("Unique", 2),
                                   redAndGreen("Range", 3), redAndGreen("Graph", 4),
                                   redAndGreen("Even", 5)};
    store()->customTeam.groups = {redAndGreen("Mine", 11), redAndGreen("Yours", 12)};
    store()->favoriteTeam.groups = {redAndGreen("DEM", 21), redAndGreen("Mine", 22)};
}

void ComboBoxTest::tearDown()
{
    testStore.reset();
    QCOMPARE(windowsLeft(), QStringList());
    QCOMPARE(CountedRamp::alive, 0);
}
