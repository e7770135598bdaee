#include "colorscheme/manager/ColorSchemeNodeInfo.h"
#include "tests/support/ManagerTest.h"
#include "tests/support/ManagerUser.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QtTest>

using VTObjects::toQString;
using VTObjects::VOColorSchemeManager;

/// The manager's commands on schemes, and OK.
class tst_managerSchemes_favorites : public ManagerSchemesTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void favoritesMirrorTheNameOfTheirGroup();
    void favoritesAreCopiedAgainAndAgain();
    void favoringWithoutRowsStillMakesTheGroup();
    void favoringWithoutAGroupDoesNothing();
    void favoringRowsThatDoNotExistIsHarmless();
    void favoritesOfAFavoritesGroupHaveNoName();
};

void tst_managerSchemes_favorites::favoritesMirrorTheNameOfTheirGroup()
{
    open();
    user->click(0, 1);
    manager->onFavorite({0});
    user->click(1, 0);
    manager->onFavorite({1, 3});
    QCOMPARE(user->groups(2), (QStringList{"DEM", "Old", "For unique", "Mine"}));
    const auto info = user->node(2, 2).data(Qt::UserRole + 1).value<ColorSchemeNodeInfo>();
    QCOMPARE(toQString(info.name), QStringLiteral("Unique"));
    QCOMPARE(info.type, int(GroupNode));
    QVERIFY(!user->node(2, 2).data(Qt::DecorationRole).value<QIcon>().isNull());
    QCOMPARE(toQString(workingCopy(*manager, 2).groups[2].name), QStringLiteral("Unique"));
    QCOMPARE(copyNames(2, 2), QStringList{"u"});
    QCOMPARE(copyNames(2, 3), (QStringList{"b", "d"}));
    user->click(2, 3);
    QCOMPARE(user->names(), (QStringList{"b", "d"}));
}

void tst_managerSchemes_favorites::favoritesAreCopiedAgainAndAgain()
{
    open();
    user->click(0, 0);
    user->model->setData(user->model->index(1, 2), QStringLiteral("edited"));
    manager->onFavorite({1});
    manager->onFavorite({1});
    QCOMPARE(user->groups(2), (QStringList{"DEM", "Old"}));
    QCOMPARE(copyNames(2, 0), (QStringList{"f1", "f2", "edited", "edited"}));
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Yes")));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(schemeNames(VOColorSchemeManager::instance()->favoriteTeam.groups[0]),
             (QStringList{"f1", "f2", "edited", "edited"}));
}

void tst_managerSchemes_favorites::favoringWithoutRowsStillMakesTheGroup()
{
    open();
    user->click(1, 0);
    manager->onFavorite({});
    QCOMPARE(user->groups(2), (QStringList{"DEM", "Old", "Mine"}));
    QCOMPARE(copyNames(2, 2), QStringList());
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Cancel")));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_managerSchemes_favorites::favoringWithoutAGroupDoesNothing()
{
    VOColorSchemeManager::instance()->customTeam.groups.clear();
    open();
    user->click(1);
    manager->onFavorite({0, 1});
    QCOMPARE(user->groups(2), (QStringList{"DEM", "Old"}));
    ModalDriver driver;
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_managerSchemes_favorites::favoringRowsThatDoNotExistIsHarmless()
{
    open();
    user->click(1, 0);
    manager->onFavorite({-1, 5, 6, 1000});
    QCOMPARE(copyNames(2, 2), QStringList{"f"});
}

void tst_managerSchemes_favorites::favoritesOfAFavoritesGroupHaveNoName()
{
    // The menu never offers it; who calls it gets a group without a name.
    open();
    user->click(2, 0);
    manager->onFavorite({0});
    QCOMPARE(user->groups(2), (QStringList{"DEM", "Old", ""}));
    QCOMPARE(copyNames(2, 2), QStringList{"f1"});
    // And nothing gets lost when that one is shown.
    user->click(2, 2);
    manager->onFavorite({0});
    user->click(2, 0);
    QCOMPARE(copyNames(2, 2), (QStringList{"f1", "f1"}));
}

VT_TEST_MAIN(tst_managerSchemes_favorites)
#include "tst_managerSchemes_favorites.moc"
