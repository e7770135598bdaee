#include "colorscheme/manager/ColorSchemeNodeInfo.h"
#include "tests/support/ManagerTest.h"
#include "tests/support/ManagerUser.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QAction>
#include <QMenu>
#include <QtTest>

#include <memory>

using VTObjects::toQString;
using VTObjects::VOColorSchemeManager;

namespace {

QStringList textsOf(const QMenu &menu)
{
    QStringList texts;
    for (const QAction *action : menu.actions())
        texts.append(action->isSeparator() ? QStringLiteral("-") : action->text());
    return texts;
}

} // namespace

class tst_VTColorSchemeManager_menus : public ManagerTreeTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void copyMenusLeaveOutTheShownGroup();
    void copyMenusAreMadeAnewForTheCaller();
    void anEmptyTeamHasAnEmptyCopyMenu();
    void theContextMenuOffersGroupsAndFavorites();
    void theContextMenuOfFavoritesLacksFavorites();
    void theContextMenuNeedsASelectedRow();
    void aCommandFromTheContextMenuRuns();
    void oldContextMenusAreFreed();
};

void tst_VTColorSchemeManager_menus::copyMenusLeaveOutTheShownGroup()
{
    open();
    const auto menus = [this] {
        const std::unique_ptr<QMenu> defaults(manager->defaultMenu());
        const std::unique_ptr<QMenu> customs(manager->customMenu());
        return QVector<QStringList>{textsOf(*defaults), textsOf(*customs)};
    };
    QCOMPARE(menus(), (QVector<QStringList>{{"For unique"}, {"Mine", "Empty"}}));
    user->click(0, 1);
    QCOMPARE(menus(), (QVector<QStringList>{{"For DEM"}, {"Mine", "Empty"}}));
    user->click(1, 1);
    QCOMPARE(menus(), (QVector<QStringList>{{"For DEM", "For unique"}, {"Mine"}}));
    user->click(2, 0);
    QCOMPARE(menus(), (QVector<QStringList>{{"For DEM", "For unique"}, {"Mine", "Empty"}}));
}

void tst_VTColorSchemeManager_menus::copyMenusAreMadeAnewForTheCaller()
{
    open();
    const std::unique_ptr<QMenu> first(manager->defaultMenu());
    const std::unique_ptr<QMenu> second(manager->defaultMenu());
    QVERIFY(first != second);
    QVERIFY(!first->parent());
    const QAction *action = first->actions().first();
    QCOMPARE(action->parent(), first.get());
    QCOMPARE(action->data().value<ColorSchemeNodeInfo>().type, int(GroupNode));
    QCOMPARE(toQString(action->data().value<ColorSchemeNodeInfo>().name), QStringLiteral("Unique"));
}

void tst_VTColorSchemeManager_menus::anEmptyTeamHasAnEmptyCopyMenu()
{
    VOColorSchemeManager::instance()->defaultTeam.groups = {makeGroup("Secret", {"s"})};
    VOColorSchemeManager::instance()->customTeam.groups.clear();
    open();
    const std::unique_ptr<QMenu> defaults(manager->defaultMenu());
    const std::unique_ptr<QMenu> customs(manager->customMenu());
    QVERIFY(defaults->isEmpty());
    QVERIFY(customs->isEmpty());
}

void tst_VTColorSchemeManager_menus::theContextMenuOffersGroupsAndFavorites()
{
    open();
    user->click(1, 0);
    QMenu *menu = user->contextMenu(0);
    QVERIFY(menu);
    QCOMPARE(menu->parent(), user->table);
    QCOMPARE(textsOf(*menu), (QStringList{"Copy to", "Export", "Favorite"}));
    QVERIFY(menu->actions().at(2)->isVisible());
    const QMenu *copyTo = menu->actions().first()->menu();
    QCOMPARE(textsOf(*copyTo), (QStringList{"Default", "Custom"}));
    QCOMPARE(textsOf(*copyTo->actions().at(0)->menu()), (QStringList{"For DEM", "For unique"}));
    QCOMPARE(textsOf(*copyTo->actions().at(1)->menu()), QStringList{"Empty"});
    menu->close();
}

void tst_VTColorSchemeManager_menus::theContextMenuOfFavoritesLacksFavorites()
{
    open();
    user->click(2, 0);
    QMenu *menu = user->contextMenu(0);
    QVERIFY(menu);
    QVERIFY(!menu->actions().at(2)->isVisible());
    menu->close();
    user->click(1, 0);
    menu = user->contextMenu(0);
    QVERIFY(menu->actions().at(2)->isVisible());
    menu->close();
}

void tst_VTColorSchemeManager_menus::theContextMenuNeedsASelectedRow()
{
    open();
    user->table->clearSelection();
    QVERIFY(!user->contextMenu(0));
}

void tst_VTColorSchemeManager_menus::aCommandFromTheContextMenuRuns()
{
    open();
    user->click(1, 0);
    QMenu *menu = user->contextMenu(0);
    const QMenu *customs = menu->actions().first()->menu()->actions().at(1)->menu();
    QAction *target = customs->actions().first();
    menu->close();
    target->trigger();
    QCOMPARE(schemeNames(workingCopy(*manager, 1).groups[1]), QStringList{"m1"});
    menu = user->contextMenu(0);
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                      menu->actionGeometry(menu->actions().at(2)).center());
    QCOMPARE(user->groups(2), (QStringList{"DEM", "Mine"}));
}

void tst_VTColorSchemeManager_menus::oldContextMenusAreFreed()
{
    open();
    const int before = QApplication::allWidgets().size();
    QPointer<QMenu> last;
    for (int i = 0; i < 5; ++i) {
        QMenu *menu = user->contextMenu(0);
        QMenu *defaults = menu->actions().first()->menu()->actions().first()->menu();
        QVERIFY(defaults != last || i == 0);
        QVERIFY(i == 0 || !last);
        last = defaults;
        menu->close();
        QVERIFY(last); // a command of it may be about to run
    }
    QVERIFY(QApplication::allWidgets().size() <= before + 2);
    user.reset();
    manager.reset();
    QVERIFY(!last);
}

VT_TEST_MAIN(tst_VTColorSchemeManager_menus)
#include "tst_VTColorSchemeManager_menus.moc"
