#include "tests/support/ManagerUser.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"

#include <QtTest>

#include <functional>
#include <memory>

using VTObjects::VOColorSchemeManager;

/// Which windows the commands open, and in front of what: a window stays above its parent and is
/// centred on it.
class tst_windowsOfTheManager : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void aCommandsWindowBelongsToTheManager_data();
    void aCommandsWindowBelongsToTheManager();
    void whatTheTableOpensBelongsToTheTable_data();
    void whatTheTableOpensBelongsToTheTable();

private:
    void checkWindow(const std::function<void()> &open, const QWidget *parent);

    std::unique_ptr<TestStore> store;
    std::unique_ptr<VTColorSchemeManager> manager;
    std::unique_ptr<ManagerUser> user;
};

void tst_windowsOfTheManager::init()
{
    store = std::make_unique<TestStore>();
    VOColorSchemeManager::instance()->customTeam.groups = {makeGroup("Mine", {"a"})};
    manager = std::make_unique<VTColorSchemeManager>();
    user = std::make_unique<ManagerUser>(*manager);
    manager->show();
    QVERIFY(QTest::qWaitForWindowExposed(manager.get()));
    user->click(1, 0);
}

void tst_windowsOfTheManager::cleanup()
{
    user.reset();
    manager.reset();
    store.reset();
}

void tst_windowsOfTheManager::checkWindow(const std::function<void()> &open, const QWidget *parent)
{
    QFETCH(QString, window);
    ModalDriver driver;
    driver.next([&](QWidget *opened) {
        QCOMPARE(QString(opened->metaObject()->className()), window);
        QCOMPARE(opened->parentWidget(), parent);
        opened->close();
    });
    open();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_windowsOfTheManager::aCommandsWindowBelongsToTheManager_data()
{
    QTest::addColumn<QString>("window");
    QTest::newRow("actionAdd_group") << "VTAddColorSchemeGroupDialog";
    QTest::newRow("actionDelete_group") << "QMessageBox";
    QTest::newRow("actionAdd_scheme") << "VTColorSchemeEditor";
    QTest::newRow("actionEdit_scheme") << "VTColorSchemeEditor";
    QTest::newRow("actionDelete_scheme") << "QMessageBox";
    QTest::newRow("actionImport_scheme") << "QFileDialog";
}

void tst_windowsOfTheManager::aCommandsWindowBelongsToTheManager()
{
    checkWindow([this] { user->command(QTest::currentDataTag()); }, manager.get());
}

void tst_windowsOfTheManager::whatTheTableOpensBelongsToTheTable_data()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<bool>("byDoubleClick");
    QTest::newRow("double-click") << "VTColorSchemeEditor" << true;
    QTest::newRow("export") << "QFileDialog" << false;
}

void tst_windowsOfTheManager::whatTheTableOpensBelongsToTheTable()
{
    QFETCH(bool, byDoubleClick);
    const auto open = [&] {
        if (byDoubleClick)
            user->table->onDoubleClicked(user->model->index(0, 1));
        else
            user->command("actionExport_scheme");
    };
    checkWindow(open, user->table);
}

VT_TEST_MAIN(tst_windowsOfTheManager)
#include "tst_windowsOfTheManager.moc"
