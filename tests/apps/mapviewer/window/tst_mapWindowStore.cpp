#include "tests/support/MapWindowTest.h"

#include "tests/support/ManagerAtWork.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"

#include "apps/mapviewer/window/AppSettings.h"
#include "apps/mapviewer/window/StoreGuard.h"

#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "vomap/VOColorSchemeManager.h"

#include <QAction>
#include <QCheckBox>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>
#include <QUrl>
#include <QtTest>

#include <sys/file.h>

using namespace mapviewer;
using namespace VTObjects;

/// What the window says when the store is damaged or missing, or cannot be saved.
class tst_mapWindowStore : public MapWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup()
    {
        locked.close();
        QDesktopServices::unsetUrlHandler("file");
        tearDown();
    }

    void aFailedSaveOfTheManagerIsToldAndTriedAgain();
    void aFailedSaveIsDoneElsewhere();
    void aFailedUserDefineIsTold();
    void aFailedEditIsTold();
    void whatIsNotSavedIsKeptUntilOneQuits();
    void quittingWithUnsavedSchemesAsks_data();
    void quittingWithUnsavedSchemesAsks();
    void damageAtTheStartIsShown();
    void aHealthyStoreSaysNothing();
    void aMissingStoreFolderIsSaidAndNotReplaced();
    void theMissingFolderComesBack();
    void whatALayerShowedComesBackWithTheFolder();
    void discardedChangesAreBroughtBack();
    void discardedChangesGoWithTheirStore();
    void whatAnotherProgramSavedComesWithTheWindow();

public Q_SLOTS:
    void onFolderOpened(const QUrl &url) { openedFolder = url.toLocalFile(); }

private:
    void lockStore();
    void refuseSaves() const;
    void allowSaves() const;
    void editFirstScheme(ModalDriver *driver);
    QWidget *notice(const char *name) const
    {
        auto *found = window->findChild<QWidget *>(name);
        return found && !found->isHidden() ? found : nullptr;
    }
    static QString textOf(const QWidget *notice)
    {
        return notice->findChild<QLabel *>("text")->text();
    }

    QFile locked;
    QString openedFolder;
};

static std::vector<VOColorSchemeGroup> &customGroups()
{
    return VOColorSchemeManager::instance()->customTeam.groups;
}

static bool isOnDisk(const QString &folder, const QString &group)
{
    QFile file(folder + "/custom.team");
    return file.open(QIODevice::ReadOnly) && file.readAll().contains(group.toUtf8());
}

// As another program does while it saves; for longer than anybody waits.
void tst_mapWindowStore::lockStore()
{
    QVERIFY(QDir().mkpath(store->storeDirectory()));
    locked.setFileName(store->storeDirectory() + "/store.lock");
    QVERIFY(locked.open(QIODevice::ReadWrite));
    QCOMPARE(::flock(locked.handle(), LOCK_EX), 0);
}

// At once, where it does not matter why a save fails: a folder lies in its way.
void tst_mapWindowStore::refuseSaves() const
{
    QVERIFY(QDir().mkpath(store->storeDirectory() + "/custom.team.new/in the way"));
}

void tst_mapWindowStore::allowSaves() const
{
    QVERIFY(QDir(store->storeDirectory() + "/custom.team.new").removeRecursively());
}

// For ModalDriver: adds a group in the manager, and says "Ok" and "Yes".
static void addGroup(ModalDriver *driver, const QString &name)
{
    driver->next([](QWidget *dialog) {
        auto *manager = qobject_cast<VTColorSchemeManager *>(dialog);
        QVERIFY(manager);
        ManagerUser user(*manager);
        user.click(1);
        user.command("actionAdd_group");
        QTest::mouseClick(user.ok, Qt::LeftButton);
    });
    driver->next(enterName(name));
    driver->next(pressText("Yes"));
}

void tst_mapWindowStore::aFailedSaveOfTheManagerIsToldAndTriedAgain()
{
    lockStore();
    ModalDriver driver;
    addGroup(&driver, "Valleys");
    QString told;
    driver.next([&](QWidget *box) {
        told = static_cast<QMessageBox *>(box)->text() +
               static_cast<QMessageBox *>(box)->informativeText();
        // Still locked: it asks again.
        QTest::mouseClick(box->findChild<QPushButton *>("tryAgain"), Qt::LeftButton);
    });
    driver.next([&](QWidget *box) {
        QVERIFY(VOColorSchemeManager::instance()->customTeam.contains("Valleys"));
        locked.close();
        QTest::mouseClick(box->findChild<QPushButton *>("tryAgain"), Qt::LeftButton);
    });
    window->manageSchemes();
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY2(told.contains(QDir::toNativeSeparators(store->storeDirectory())), qPrintable(told));
    QVERIFY2(told.contains("busy"), qPrintable(told));
    QVERIFY(isOnDisk(store->storeDirectory(), "Valleys"));
    QVERIFY(!notice("unsavedSchemes"));
}

void tst_mapWindowStore::aFailedSaveIsDoneElsewhere()
{
    refuseSaves();
    const QString folder = store->path("elsewhere");
    QVERIFY(QDir().mkpath(folder));
    ModalDriver driver;
    addGroup(&driver, "Valleys");
    driver.next(pressNamed("saveElsewhere"));
    driver.next(::choose({folder}));
    window->manageSchemes();
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(isOnDisk(folder, "Valleys"));
    QVERIFY(!isOnDisk(store->storeDirectory(), "Valleys"));
    // That is the store from now on, and its name is shown.
    QCOMPARE(StoreGuard::chosenFolder(), folder);
    QCOMPARE(window->findChild<QLabel *>("store")->text(), QString("Schemes: elsewhere"));
    customGroups().push_back(makeGroup("Hills", {"one"}));
    QVERIFY(VOColorSchemeManager::instance()->save());
    QVERIFY(isOnDisk(folder, "Hills"));
}

void tst_mapWindowStore::aFailedUserDefineIsTold()
{
    refuseSaves();
    ModalDriver driver;
    driver.next([](QWidget *menu) {
        for (QPushButton *button : menu->findChildren<QPushButton *>()) {
            if (button->text() == "User define")
                QTest::mouseClick(button, Qt::LeftButton);
        }
    });
    driver.next(pressNamed("pushButton_ok"));
    QString told;
    driver.next([&](QWidget *box) {
        told = static_cast<QMessageBox *>(box)->text();
        QVERIFY(!QApplication::activePopupWidget());
        QTest::mouseClick(box->findChild<QPushButton *>("later"), Qt::LeftButton);
    });
    QTest::mouseClick(card("Countries")->picker(), Qt::LeftButton);
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY2(told.contains("could not be saved"), qPrintable(told));
    // The scheme is there and in use; a bar says that it is not on the disk yet.
    QCOMPARE(customGroups().size(), std::size_t(1));
    QVERIFY(notice("unsavedSchemes"));
    allowSaves();
    QTest::mouseClick(notice("unsavedSchemes")->findChild<QPushButton *>("save"), Qt::LeftButton);
    QVERIFY(!notice("unsavedSchemes"));
    QVERIFY(isOnDisk(store->storeDirectory(), "User define"));
}

void tst_mapWindowStore::editFirstScheme(ModalDriver *driver)
{
    driver->next(pressNamed("pushButton_ok"));
    QTest::mouseClick(card("Countries")->findChild<QToolButton *>("editScheme"), Qt::LeftButton);
}

void tst_mapWindowStore::aFailedEditIsTold()
{
    refuseSaves();
    ModalDriver driver;
    editFirstScheme(&driver);
    driver.next(pressNamed("later"));
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(card("Countries")->currentScheme().team, VOString("Custom"));
    QVERIFY(notice("unsavedSchemes"));
}

void tst_mapWindowStore::whatIsNotSavedIsKeptUntilOneQuits()
{
    refuseSaves();
    ModalDriver driver;
    editFirstScheme(&driver);
    driver.next(pressNamed("later"));
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    // Another store would take its place.
    const QString folder = store->path("elsewhere");
    QVERIFY(QDir().mkpath(folder));
    driver.next(pressNamed("later"));
    QVERIFY(!window->openStore(folder));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(customGroups().size(), std::size_t(1));
    QVERIFY(StoreGuard::chosenFolder().isEmpty());
    // A save that succeeds in the end, whosever, settles it.
    allowSaves();
    QVERIFY(VOColorSchemeManager::instance()->save());
    QVERIFY(window->openStore(folder));
}

void tst_mapWindowStore::quittingWithUnsavedSchemesAsks_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("unlocked");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<bool>("saved");
    QTest::newRow("Cancel") << "later" << false << false << false;
    QTest::newRow("Discard changes") << "discard" << false << true << false;
    QTest::newRow("Try again") << "tryAgain" << true << true << true;
}

void tst_mapWindowStore::quittingWithUnsavedSchemesAsks()
{
    QFETCH(QString, button);
    QFETCH(bool, unlocked);
    QFETCH(bool, closes);
    QFETCH(bool, saved);
    refuseSaves();
    ModalDriver driver;
    editFirstScheme(&driver);
    driver.next(pressNamed("later"));
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    if (unlocked)
        allowSaves();
    driver.next(pressNamed(button));
    QCOMPARE(window->close(), closes);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(isOnDisk(store->storeDirectory(), "My schemes"), saved);
}

void tst_mapWindowStore::damageAtTheStartIsShown()
{
    // Given a store whose custom team is damaged, and so is its copy
    customGroups() = {makeGroup("Mine", {"one"})};
    QVERIFY(VOColorSchemeManager::instance()->save());
    QFile file(store->storeDirectory() + "/custom.team");
    QVERIFY(file.open(QIODevice::ReadWrite));
    file.seek(file.size() / 2);
    file.write("damage damage damage");
    file.close();
    // When the program starts
    VOColorSchemeManager::instance()->load();
    open();
    // Then a bar says what was damaged, what stands in for it and where the file is
    QWidget *bar = notice("storeProblems");
    QVERIFY(bar);
    const QString text = textOf(bar);
    QVERIFY2(text.contains("\"Custom\""), qPrintable(text));
    QVERIFY2(text.contains("copy") || text.contains("read"), qPrintable(text));
    const QString aside = store->storeDirectory() + "/damaged";
    QVERIFY2(text.contains(QDir::toNativeSeparators(aside)), qPrintable(text));
    QVERIFY(window->centralWidget()->rect().contains(
        QRect(bar->mapTo(window->centralWidget(), QPoint(0, 0)), bar->size())));
    // And its button opens the folder
    QDesktopServices::setUrlHandler("file", this, "onFolderOpened");
    QTest::mouseClick(bar->findChild<QPushButton *>("openFolder"), Qt::LeftButton);
    QCOMPARE(QFileInfo(openedFolder), QFileInfo(aside));
    // Closed, it does not come back.
    QTest::mouseClick(bar->findChild<QToolButton *>("closeNotice"), Qt::LeftButton);
    open();
    QVERIFY(!notice("storeProblems"));
}

void tst_mapWindowStore::aHealthyStoreSaysNothing()
{
    QVERIFY(!notice("storeProblems"));
    QVERIFY(!notice("unsavedSchemes"));
    QVERIFY(VOColorSchemeManager::instance()->save());
    open();
    QVERIFY(!notice("storeProblems"));
}

void tst_mapWindowStore::aMissingStoreFolderIsSaidAndNotReplaced()
{
    const QString folder = store->path("on a stick");
    appSettings().setValue(storeFolderKey, folder);
    customGroups() = {makeGroup("Mine", {"one"})};
    StoreGuard::useChosenFolder();
    VOColorSchemeManager::instance()->load();
    open();
    QWidget *bar = notice("storeProblems");
    QVERIFY(bar);
    QVERIFY2(textOf(bar).contains(QDir::toNativeSeparators(folder)), qPrintable(textOf(bar)));
    QVERIFY(textOf(bar).contains("No other store is used in its place"));
    QVERIFY(customGroups().empty());
    QCOMPARE(window->findChild<QLabel *>("store")->text(), QString("Schemes: on a stick"));
    QVERIFY(!VOColorSchemeManager::instance()->save());
    QVERIFY(!QDir(folder).exists());
}

void tst_mapWindowStore::theMissingFolderComesBack()
{
    const QString folder = store->path("on a stick");
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(window->openStore(folder));
    customGroups() = {makeGroup("Mine", {"one"})};
    QVERIFY(VOColorSchemeManager::instance()->save());
    QVERIFY(QDir().rename(folder, folder + " away"));
    StoreGuard::useChosenFolder();
    VOColorSchemeManager::instance()->load();
    open();
    QVERIFY(notice("storeProblems"));
    QVERIFY(QDir().rename(folder + " away", folder));
    QTest::mouseClick(notice("storeProblems")->findChild<QPushButton *>("tryAgain"),
                      Qt::LeftButton);
    QVERIFY(!notice("storeProblems"));
    QVERIFY(VOColorSchemeManager::instance()->customTeam.contains("Mine"));
}

// What stands in for it meanwhile is no choice of the user's.
void tst_mapWindowStore::whatALayerShowedComesBackWithTheFolder()
{
    const QString folder = store->path("on a stick");
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(window->openStore(folder));
    customGroups() = {makeGroup("Mine", {"one"})};
    QVERIFY(VOColorSchemeManager::instance()->save());
    const VOColorSchemeId mine{"Custom", "Mine", "one"};
    QVERIFY(card("Terrain")->choose(mine));
    QVERIFY(QDir().rename(folder, folder + " away"));
    for (int start = 0; start < 2; ++start) {
        StoreGuard::useChosenFolder();
        VOColorSchemeManager::instance()->load();
        open();
        QVERIFY(card("Terrain")->currentScheme() != mine);
        card("Terrain")->findChild<QCheckBox *>("hillShading")->click(); // is remembered
    }
    QVERIFY(QDir().rename(folder + " away", folder));
    QTest::mouseClick(notice("storeProblems")->findChild<QPushButton *>("tryAgain"),
                      Qt::LeftButton);
    QCOMPARE(card("Terrain")->currentScheme(), mine);
    open();
    QCOMPARE(card("Terrain")->currentScheme(), mine);
}

void tst_mapWindowStore::whatAnotherProgramSavedComesWithTheWindow()
{
    // Given a file as another program will have saved it
    customGroups() = {makeGroup("Mine", {"one"})};
    customGroups()[0].schemes[0].colorRamp->setColor(9, rgb_color<float>(1.0F, 2.0F, 3.0F));
    QVERIFY(VOColorSchemeManager::instance()->save());
    QFile file(store->storeDirectory() + "/custom.team");
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray theirs = file.readAll();
    file.close();
    customGroups()[0].schemes[0].colorRamp->setColor(9, rgb_color<float>(4.0F, 5.0F, 6.0F));
    QVERIFY(VOColorSchemeManager::instance()->save());
    QVERIFY(card("Countries")->choose({"Custom", "Mine", "one"}));
    QCOMPARE(pixelAt(outback.x(), outback.y()), qRgb(4, 5, 6));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(theirs);
    file.close();
    // When the user comes back to this window
    QEvent activate(QEvent::WindowActivate);
    QApplication::sendEvent(window.get(), &activate);
    // Then the map is drawn with it
    QCOMPARE(pixelAt(outback.x(), outback.y()), qRgb(1, 2, 3));
}

static ModalDriver::Handler renameFirstScheme(const QString &name)
{
    return [name](QWidget *dialog) {
        QAbstractItemModel *schemes = dialog->findChild<QTableView *>()->model();
        QVERIFY(schemes->setData(schemes->index(0, 2), name));
        QTest::keyClick(dialog, Qt::Key_Escape);
    };
}

void tst_mapWindowStore::discardedChangesAreBroughtBack()
{
    QAction *bringBack = window->findChild<QAction *>("bringBackDiscarded");
    QVERIFY(!bringBack->isEnabled());
    ModalDriver driver;
    driver.next(renameFirstScheme("dropped"));
    window->findChild<QAction *>("manageSchemes")->trigger();
    QVERIFY(bringBack->isEnabled());
    // A look into the manager that changes nothing leaves them.
    driver.next([](QWidget *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    window->findChild<QAction *>("manageSchemes")->trigger();
    QVERIFY(bringBack->isEnabled());
    driver.next([](QWidget *dialog) {
        const QAbstractItemModel *schemes = dialog->findChild<QTableView *>()->model();
        QCOMPARE(schemes->index(0, 2).data().toString(), QString("dropped"));
        QTest::mouseClick(dialog->findChild<QPushButton *>("pushButton_ok"), Qt::LeftButton);
    });
    driver.next([](QWidget *box) {
        QTest::mouseClick(qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes),
                          Qt::LeftButton);
    });
    bringBack->trigger();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!bringBack->isEnabled());
    const VOColorSchemeTeam &team = VOColorSchemeManager::instance()->defaultTeam;
    QVERIFY(team.groups[std::size_t(team.index("DEM"))].contains("dropped"));
}

void tst_mapWindowStore::discardedChangesGoWithTheirStore()
{
    ModalDriver driver;
    driver.next(renameFirstScheme("dropped"));
    window->findChild<QAction *>("manageSchemes")->trigger();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(window->openStore(store->path()));
    QVERIFY(!window->findChild<QAction *>("bringBackDiscarded")->isEnabled());
}

VT_TEST_MAIN(tst_mapWindowStore)
#include "tst_mapWindowStore.moc"
