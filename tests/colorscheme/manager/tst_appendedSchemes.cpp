#include "colorscheme/manager/WorkingCopies_p.h"
#include "tests/support/ManagerUser.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"

#include <QAction>
#include <QMenu>
#include <QtTest>

#include <memory>

using vtcontrolcolorscheme::WorkingCopies;
using VTObjects::VOColorSchemeManager;

/// Schemes that are appended to the very group that the table shows. Neither the tree nor the
/// context menu offers that, but a host can keep a copy-to menu while the user goes on to another
/// group. Table and working copy then hold the group both.
class tst_appendedSchemes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void copiesIntoTheShownBuiltInGroupAreNumberedOn();
    void copiesIntoTheShownCustomGroupClashWithEarlierOnes();
    void theyOutliveACallFromCode();
    void favoritesOfTheNamelessGroupAreInItAtOnce();
    void aGroupsOwnSchemesCanBeAppendedToIt();

private:
    void copyTwice(QMenu *menu);
    QStringList copyNames(int team, int group) const;

    std::unique_ptr<TestStore> store;
    std::unique_ptr<VTColorSchemeManager> manager;
    std::unique_ptr<ManagerUser> user;
};

void tst_appendedSchemes::init()
{
    store = std::make_unique<TestStore>();
    auto *records = VOColorSchemeManager::instance();
    records->defaultTeam.groups = {makeGroup("DEM", {"a", "b"})};
    records->customTeam.groups = {makeGroup("Twin", {"c"}), makeGroup("Twin", {"d"})};
    records->favoriteTeam.groups = {makeGroup("", {"f"})};
    manager = std::make_unique<VTColorSchemeManager>();
    user = std::make_unique<ManagerUser>(*manager);
    manager->show();
    QVERIFY(QTest::qWaitForWindowExposed(manager.get()));
}

void tst_appendedSchemes::cleanup()
{
    user.reset();
    manager.reset();
    store.reset();
}

void tst_appendedSchemes::copyTwice(QMenu *menu)
{
    const std::unique_ptr<QMenu> owner(menu);
    QCOMPARE(menu->actions().size(), 1);
    menu->actions().first()->trigger();
    menu->actions().first()->trigger();
}

QStringList tst_appendedSchemes::copyNames(int team, int group) const
{
    return schemeNames(workingCopy(*manager, team).groups.at(std::size_t(group)));
}

void tst_appendedSchemes::copiesIntoTheShownBuiltInGroupAreNumberedOn()
{
    user->click(1, 0);
    QMenu *menu = manager->defaultMenu();
    user->click(0, 0);
    user->select({0});
    copyTwice(menu);
    const QStringList expected{"a", "b", "add_scheme1", "add_scheme2"};
    QCOMPARE(user->names(), expected);
    QCOMPARE(copyNames(0, 0), expected);
}

void tst_appendedSchemes::copiesIntoTheShownCustomGroupClashWithEarlierOnes()
{
    user->click(1, 1);
    QMenu *menu = manager->customMenu();
    user->click(1, 0);
    user->model->setData(user->model->index(0, 2), QStringLiteral("edited"));
    user->select({0});
    copyTwice(menu);
    // The first copy finds the working copy without that name yet, the second one finds it taken.
    QCOMPARE(user->names(), (QStringList{"edited", "edited", "add_scheme1"}));
    QCOMPARE(copyNames(1, 0), (QStringList{"c", "edited", "add_scheme1"}));
    QCOMPARE(copyNames(1, 1), QStringList{"d"});
}

void tst_appendedSchemes::theyOutliveACallFromCode()
{
    user->click(1, 1);
    QMenu *menu = manager->customMenu();
    user->click(1, 0);
    user->select({0});
    copyTwice(menu);
    QVERIFY(QMetaObject::invokeMethod(manager.get(), "onTeamViewClicked",
                                      Q_ARG(QModelIndex, user->node(1, 0))));
    QCOMPARE(user->names(), (QStringList{"c", "add_scheme1", "add_scheme1"}));
}

void tst_appendedSchemes::favoritesOfTheNamelessGroupAreInItAtOnce()
{
    user->click(2, 0);
    manager->onFavorite({0});
    QCOMPARE(user->names(), (QStringList{"f", "f"}));
    QCOMPARE(copyNames(2, 0), (QStringList{"f", "f"}));
}

void tst_appendedSchemes::aGroupsOwnSchemesCanBeAppendedToIt()
{
    const QStringList expected{"a", "b", "a", "b"};
    QSignalSpy inserted(user->model, &QAbstractItemModel::rowsInserted);
    user->model->appendSchemes(user->model->group().schemes);
    QCOMPARE(user->names(), expected);
    QCOMPARE(inserted.count(), 2);

    WorkingCopies copies;
    copies.append({0, 0}, copies.group({0, 0})->schemes);
    QCOMPARE(schemeNames(*copies.group({0, 0})), expected);
}

VT_TEST_MAIN(tst_appendedSchemes)
#include "tst_appendedSchemes.moc"
