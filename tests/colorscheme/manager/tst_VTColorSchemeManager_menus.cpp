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
    void ofTwoGroupsOfOneNameTheChosenOneGetsTheCopies();
    void anActionOfAHostsOwnGoesByTheName();
    void anAmpersandIsShown();
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

void tst_VTColorSchemeManager_menus::ofTwoGroupsOfOneNameTheChosenOneGetsTheCopies()
{
    auto &groups = VOColorSchemeManager::instance()->customTeam.groups;
    groups = {makeGroup("Twin", {"first"}), makeGroup("Other", {}), makeGroup("Twin", {"second"})};
    open();
    user->select({0, 1});
    const std::unique_ptr<QMenu> menu(manager->customMenu());
    QCOMPARE(textsOf(*menu), (QStringList{"Twin", "Other", "Twin"}));
    menu->actions().at(2)->trigger();
    QCOMPARE(copyNames(1, 0), QStringList{"first"});
    QCOMPARE(copyNames(1, 2), (QStringList{"second", "d1", "d2"}));
    // The first of them moves away meanwhile, and the menu still means the other.
    user->click(1, 0);
    const std::unique_ptr<QMenu> stale(manager->customMenu());
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Delete")));
    user->command("actionDelete_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    user->click(0, 0);
    user->select({2});
    stale->actions().at(1)->trigger();
    QCOMPARE(copyNames(1, 1), (QStringList{"second", "d1", "d2", "d3"}));
}

void tst_VTColorSchemeManager_menus::anActionOfAHostsOwnGoesByTheName()
{
    open();
    user->select({0});
    QAction action;
    action.setData(
        QVariant::fromValue(ColorSchemeNodeInfo(VTObjects::VOString(L"Mine"), GroupNode)));
    QVERIFY(
        connect(&action, SIGNAL(triggered(bool)), manager.get(), SLOT(onCopyCustomGroup(bool))));
    action.trigger();
    QCOMPARE(copyNames(1, 0), (QStringList{"m1", "m2", "d1"}));
}

void tst_VTColorSchemeManager_menus::anAmpersandIsShown()
{
    VOColorSchemeManager::instance()->customTeam.groups = {
        makeGroup("Land & sea", {}), makeGroup("&&", {}), makeGroup("A&", {})};
    open();
    const std::unique_ptr<QMenu> menu(manager->customMenu());
    QStringList shown;
    for (const QAction *action : menu->actions()) {
        // What a menu makes of a text: one of two is shown, a single one marks the next letter.
        QString text = action->text();
        text.replace(QLatin1String("&&"), QString(QChar(1)));
        QVERIFY2(!text.contains(QLatin1Char('&')), qPrintable(text));
        shown.append(text.replace(QChar(1), QLatin1Char('&')));
    }
    QCOMPARE(shown, (QStringList{"Land & sea", "&&", "A&"}));
    QCOMPARE(user->groups(1), shown);
    // The target is found in spite of it.
    menu->actions().first()->trigger();
    QCOMPARE(copyNames(1, 0), QStringList{"d1"});
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
