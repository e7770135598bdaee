#include "tests/support/ManagerTest.h"

#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QAction>
#include <QMenu>
#include <QtTest>

using VTObjects::toVOString;
using VTObjects::VOColorSchemeManager;

void ManagerTest::setUp()
{
    store = std::make_unique<TestStore>();
}

void ManagerTest::tearDown()
{
    user.reset();
    manager.reset();
    store.reset();
}

void ManagerTest::open()
{
    user.reset();
    manager = std::make_unique<VTColorSchemeManager>();
    user = std::make_unique<ManagerUser>(*manager);
    manager->show();
    manager->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(manager.get()));
}

QStringList ManagerTest::copyNames(int team, int group) const
{
    return schemeNames(workingCopy(*manager, team).groups.at(std::size_t(group)));
}

void ManagerSchemesTest::setUp()
{
    ManagerTest::setUp();
    auto *records = VOColorSchemeManager::instance();
    records->defaultTeam.groups = {makeGroup("DEM", {"d1", "d2"}), makeGroup("Unique", {"u"})};
    records->customTeam.groups = {makeGroup("Mine", {"a", "b", "c", "d", "e", "f"}),
                                  makeGroup("Empty", {})};
    records->favoriteTeam.groups = {makeGroup("DEM", {"f1", "f2"}), makeGroup("Old", {"o"})};
}

QString ManagerSchemesTest::writeFile(const QString &file, const QString &schemeName)
{
    const QString path = store->path(file);
    if (!VOColorSchemeManager::saveFile(makeScheme(schemeName), toVOString(path)))
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

void ManagerTreeTest::setUp()
{
    ManagerTest::setUp();
    auto *records = VOColorSchemeManager::instance();
    records->defaultTeam.groups = {makeGroup("Unique", {"u1", "u2"}), makeGroup("Secret", {"s"}),
                                   makeGroup("DEM", {"d1", "d2", "d3"})};
    records->customTeam.groups = {makeGroup("Mine", {"m1", "m2"}), makeGroup("Empty", {})};
    records->favoriteTeam.groups = {makeGroup("DEM", {"f1"})};
}

void ManagerGroupsTest::setUp()
{
    ManagerTest::setUp();
    auto *records = VOColorSchemeManager::instance();
    records->defaultTeam.groups = {makeGroup("DEM", {"a", "b"}), makeGroup("Unique", {"u"})};
    records->customTeam.groups = {makeGroup("First", {"a", "b", "c"}), makeGroup("Second", {"s"}),
                                  makeGroup("Third", {"t1", "t2"})};
    records->favoriteTeam.groups = {makeGroup("DEM", {"f"})};
}

void ManagerGroupsTest::copyTo(int team, const QString &group)
{
    const std::unique_ptr<QMenu> menu(team == 0 ? manager->defaultMenu() : manager->customMenu());
    for (QAction *action : menu->actions()) {
        if (action->text() == group) {
            action->trigger();
            return;
        }
    }
    QFAIL("no such group in the menu");
}
