#include "tests/support/ManagerUser.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"

#include <QMenu>
#include <QRandomGenerator>
#include <QtTest>

#include <memory>

using VTObjects::VOColorSchemeManager;

/// What the manager does at once it does as if row by row, and that in groups of 10,000 schemes.
class tst_managerLongLists : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void invertingEndsAsRowByRow();
    void deletingEndsAsRowByRow();
    void tenThousandRowsAreInverted();
    void tenThousandRowsAreFavored();
    void tenThousandRowsAreDeleted();
    void tenThousandCopiesGetNumbersOfTheirOwn();

private:
    void open(const VTObjects::VOColorSchemeGroup &group);

    std::unique_ptr<TestStore> store;
    std::unique_ptr<VTColorSchemeManager> manager;
    std::unique_ptr<ManagerUser> user;
};

namespace {

constexpr int many = 10000;

QStringList numberedNames(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names.append(QStringLiteral("s%1").arg(i));
    return names;
}

QVector<int> someRows(QRandomGenerator &random, int count)
{
    QVector<int> rows;
    for (int row = 0; row < count; ++row) {
        if (random.bounded(3) != 0)
            rows.append(row);
    }
    std::shuffle(rows.begin(), rows.end(), random);
    return rows;
}

void selectInOrder(VTColorSchemeView &view, const QVector<int> &rows, int current)
{
    view.setCurrentIndex(view.schemeModel()->index(current, 2));
    view.clearSelection();
    for (const int row : rows)
        view.selectionModel()->select(view.schemeModel()->index(row, 0),
                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

} // namespace

void tst_managerLongLists::init()
{
    store = std::make_unique<TestStore>();
}

void tst_managerLongLists::cleanup()
{
    user.reset();
    manager.reset();
    store.reset();
}

void tst_managerLongLists::open(const VTObjects::VOColorSchemeGroup &group)
{
    user.reset();
    VOColorSchemeManager::instance()->customTeam.groups = {group, makeGroup("Other", {})};
    manager = std::make_unique<VTColorSchemeManager>();
    user = std::make_unique<ManagerUser>(*manager);
    manager->show();
    QVERIFY(QTest::qWaitForWindowExposed(manager.get()));
    user->click(1, 0);
}

void tst_managerLongLists::invertingEndsAsRowByRow()
{
    constexpr int rowCount = 12;
    const auto group = makeGroup("g", numberedNames(rowCount));
    open(group);
    VTColorSchemeView twin(nullptr);
    twin.setGroup(1, 0, group);
    twin.resize(800, 400); // no column scrolled out
    twin.show();
    QRandomGenerator random(7);
    for (int round = 0; round < 100; ++round) {
        const QVector<int> rows = someRows(random, rowCount);
        const int current = random.bounded(rowCount);
        selectInOrder(*user->table, rows, current);
        user->command("actionInvert_select");

        selectInOrder(twin, rows, current);
        twin.clearSelection();
        twin.setSelectionMode(QAbstractItemView::MultiSelection);
        for (int row = 0; row < rowCount; ++row) {
            if (!rows.contains(row))
                twin.selectRow(row);
        }
        twin.setSelectionMode(QAbstractItemView::ExtendedSelection);

        QCOMPARE(user->table->selectedRowNumbers(), twin.selectedRowNumbers());
        QCOMPARE(user->table->currentIndex().row(), twin.currentIndex().row());
        QCOMPARE(user->table->currentIndex().column(), twin.currentIndex().column());
        QCOMPARE(user->table->selectionMode(), twin.selectionMode());
    }
}

void tst_managerLongLists::deletingEndsAsRowByRow()
{
    constexpr int rowCount = 9;
    const auto group = makeGroup("g", numberedNames(rowCount));
    open(group);
    QRandomGenerator random(7);
    for (int round = 0; round < 100; ++round) {
        QVector<int> rows = someRows(random, rowCount);
        if (rows.isEmpty())
            continue;
        const int current = random.bounded(rowCount);
        user->table->setGroup(1, 0, group);
        selectInOrder(*user->table, rows, current);
        ModalDriver driver;
        driver.next(pressText(QStringLiteral("Delete")));
        user->command("actionDelete_scheme");
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));

        VTColorSchemeView twin(nullptr);
        twin.setGroup(1, 0, group);
        twin.resize(800, 400); // no column scrolled out
        twin.show();
        selectInOrder(twin, rows, current);
        std::sort(rows.begin(), rows.end(), std::greater<>());
        for (const int row : qAsConst(rows))
            twin.schemeModel()->removeScheme(row, QModelIndex());

        QCOMPARE(user->names(), schemeNames(twin.schemeModel()->group()));
        const int next = qMin(rows.last(), user->model->rowCount() - 1);
        QCOMPARE(user->table->selectedRowNumbers(), next < 0 ? QVector<int>() : QVector<int>{next});
        QCOMPARE(user->table->currentIndex().row(), next);
    }
}

void tst_managerLongLists::tenThousandRowsAreInverted()
{
    open(makeGroup("g", numberedNames(many)));
    QItemSelection everyOther;
    for (int row = 0; row < many; row += 2)
        everyOther.append(
            QItemSelectionRange(user->model->index(row, 0), user->model->index(row, 4)));
    user->table->selectionModel()->select(everyOther, QItemSelectionModel::ClearAndSelect);
    user->command("actionInvert_select");
    const QVector<int> rows = user->table->selectedRowNumbers();
    QCOMPARE(rows.size(), many / 2);
    for (int i = 0; i < rows.size(); ++i)
        QCOMPARE(rows[i], 2 * i + 1);
    QCOMPARE(user->table->currentIndex().row(), many - 1);
}

void tst_managerLongLists::tenThousandRowsAreFavored()
{
    open(makeGroup("g", numberedNames(many)));
    user->command("actionSelect_all");
    user->table->onFavorite();
    QCOMPARE(schemeNames(workingCopy(*manager, 2).groups.at(0)), numberedNames(many));
}

void tst_managerLongLists::tenThousandRowsAreDeleted()
{
    open(makeGroup("g", numberedNames(many)));
    user->command("actionSelect_all");
    user->table->selectionModel()->select(
        user->model->index(5000, 0), QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Delete")));
    user->command("actionDelete_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->names(), QStringList{"s5000"});
}

void tst_managerLongLists::tenThousandCopiesGetNumbersOfTheirOwn()
{
    VOColorSchemeManager::instance()->defaultTeam.groups = {makeGroup("DEM", numberedNames(many))};
    open(makeGroup("g", numberedNames(many)));
    user->command("actionSelect_all");
    const std::unique_ptr<QMenu> menu(manager->defaultMenu());
    menu->actions().first()->trigger();
    const QStringList names = schemeNames(workingCopy(*manager, 0).groups.at(0));
    QCOMPARE(names.size(), 2 * many);
    for (int i = 0; i < many; ++i)
        QCOMPARE(names[many + i], QStringLiteral("add_scheme%1").arg(i + 1));
}

VT_TEST_MAIN(tst_managerLongLists)
#include "tst_managerLongLists.moc"
