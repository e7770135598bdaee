#include "tests/support/MapWindowTest.h"

#include "tests/support/DropDown.h"
#include "tests/support/ManagerUser.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/RealInput.h"
#include "tests/support/TestMain.h"

#include "apps/mapviewer/map/MapWidget.h"
#include "apps/mapviewer/window/StoreGuard.h"
#include "apps/mapviewer/window/ThemeStyle.h"

#include "colorscheme/manager/VTLineEditWidget.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "colorscheme/picker/VTColorSchemeGroupMenu.h"
#include "vomap/VOColorSchemeManager.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QToolButton>
#include <QUrl>
#include <QWindow>
#include <QtTest>

#include <sys/file.h>

using namespace mapviewer;
using namespace VTObjects;

/// The window on real screens, worked by mouse and keyboard.
class tst_mapWindowScreens : public MapWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new ThemeStyle); }
    void init();
    void cleanup();

    void theWindowFitsTheScreenItStartsOn();
    void aWindowLeftOnALargerScreenFitsThisOne();
    void theTitleNamesTheProgramOnce();
    void theMenusOfAPickerOpenWhereTheyBelong_data();
    void theMenusOfAPickerOpenWhereTheyBelong();
    void theWheelOverABoxWithoutFocusScrollsThePanel();
    void aFailedSaveIsToldAndTriedAgain();
    void damageAtTheStartIsShownAndItsFolderOpened();

public Q_SLOTS:
    void onFolderOpened(const QUrl &url) { openedFolder = url.toLocalFile(); }

private:
    /// As at the program's start: of its own size.
    void start();
    QRect freeScreen() const { return window->screen()->availableGeometry(); }

    QFile locked;
    QString openedFolder;
};

static QString placeOf(const QRect &rect)
{
    return QString("%1,%2 %3x%4").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
}

// The window manager may still be placing a window that has just come, and a click then misses it.
static void clickUntilItCloses(QPushButton *button)
{
    const QPointer<QPushButton> wanted(button);
    const auto closed = [&] { return !wanted || !wanted->isVisible(); };
    for (int i = 0; i < 20 && !closed(); ++i) {
        RealInput::click(wanted);
        if (QTest::qWaitFor(closed, 1000))
            return;
    }
}

void tst_mapWindowScreens::init()
{
    store = std::make_unique<TestStore>();
    RealInput::moveTo(QPoint(0, 0));
}

void tst_mapWindowScreens::cleanup()
{
    QDesktopServices::unsetUrlHandler("file");
    locked.close();
    tearDown();
}

void tst_mapWindowScreens::start()
{
    window = std::make_unique<MapWindow>();
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    // With the frame that the window manager puts around it.
    QTRY_VERIFY(window->frameGeometry() != window->geometry());
}

void tst_mapWindowScreens::theWindowFitsTheScreenItStartsOn()
{
    start();
    QTRY_VERIFY2(freeScreen().contains(window->frameGeometry()),
                 qPrintable(placeOf(window->frameGeometry())));
    // It uses what there is.
    QVERIFY(window->width() > freeScreen().width() * 9 / 10 || window->width() >= 1280);
    QVERIFY(window->map()->width() >= 320 && window->map()->height() >= 240);
}

void tst_mapWindowScreens::aWindowLeftOnALargerScreenFitsThisOne()
{
    start();
    window->resize(freeScreen().size() * 2);
    QApplication::processEvents();
    window->close();
    start();
    QTRY_VERIFY2(freeScreen().contains(window->frameGeometry()),
                 qPrintable(placeOf(window->frameGeometry())));
}

void tst_mapWindowScreens::theTitleNamesTheProgramOnce()
{
    QGuiApplication::setApplicationDisplayName("Map Viewer");
    start();
    const auto title = [this] {
        QProcess tool;
        tool.start("xdotool", {"getwindowname", QString::number(window->winId())});
        tool.waitForFinished();
        return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
    };
    QTRY_COMPARE(title(), QString("Map Viewer"));
    window->setVision(ColorVision::Gray);
    QTRY_COMPARE(title(), QString("Simulated gray vision – Map Viewer"));
    QGuiApplication::setApplicationDisplayName(QString());
}

void tst_mapWindowScreens::theMenusOfAPickerOpenWhereTheyBelong_data()
{
    QTest::addColumn<bool>("maximized");
    QTest::newRow("as it starts") << false;
    QTest::newRow("maximized") << true;
}

void tst_mapWindowScreens::theMenusOfAPickerOpenWhereTheyBelong()
{
    QFETCH(bool, maximized);
    start();
    if (maximized) {
        window->showMaximized();
        QTRY_VERIFY(window->frameGeometry().height() >= freeScreen().height() - 1);
        QTRY_COMPARE(window->windowHandle()->geometry().size(), window->size());
    }
    VTColorSchemeComboBox *picker = window->cards().first()->picker();
    QRect dropDown;
    QRect chooser;
    ModalDriver driver;
    driver.next([&](QWidget *menu) {
        dropDown = menu->frameGeometry();
        RealInput::click(DropDown(menu).bar);
    });
    driver.next([&](QWidget *groups) {
        const auto *button = static_cast<QWidget *>(groups->parent());
        const auto wanted = [&] {
            return button->parentWidget()->mapToGlobal(
                QPoint(button->x() - (groups->width() - 1) - 3, button->geometry().bottom()));
        };
        QTRY_COMPARE(groups->frameGeometry().topLeft(), wanted());
        chooser = groups->frameGeometry();
        RealInput::press("Escape");
        RealInput::press("Escape");
    });
    RealInput::click(picker);
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    // Nothing had to be moved to fit.
    const QPoint wanted = picker->parentWidget()->mapToGlobal(
        QPoint(picker->geometry().left(), picker->geometry().bottom()));
    QCOMPARE(dropDown.topLeft(), wanted);
    QVERIFY2(freeScreen().contains(dropDown), qPrintable(placeOf(dropDown)));
    QVERIFY2(freeScreen().contains(chooser), qPrintable(placeOf(chooser)));
}

void tst_mapWindowScreens::theWheelOverABoxWithoutFocusScrollsThePanel()
{
    start();
    window->resize(window->width(), 420);
    QTRY_COMPARE(window->height(), 420);
    QScrollBar *bar = window->findChild<QScrollArea *>()->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 0);
    LayerCard *relief = card("Relief and sea floor");
    auto *methods = relief->findChild<QComboBox *>("classificationMethod");
    window->map()->setFocus();
    RealInput::moveTo(RealInput::centerOf(methods));
    RealInput::wheelDown(1);
    QTRY_VERIFY(bar->value() > 0);
    QCOMPARE(methods->currentIndex(), 0);
    LayerCard *countries = card("Countries");
    for (const char *name : {"field", "classCount"}) {
        auto *box = countries->findChild<QWidget *>(name);
        window->findChild<QScrollArea *>()->ensureWidgetVisible(box, 0, 60);
        const int before = bar->value();
        const Legend legend = countries->layer()->legend();
        RealInput::moveTo(RealInput::centerOf(box));
        RealInput::wheelDown(1);
        QTRY_VERIFY2(bar->value() > before, name);
        QCOMPARE(countries->layer()->legend().caption, legend.caption);
        QCOMPARE(countries->layer()->legend().classes.size(), legend.classes.size());
    }
    // Whoever has gone to the box means it.
    auto *count = countries->findChild<QSpinBox *>("classCount");
    window->findChild<QScrollArea *>()->ensureWidgetVisible(count);
    count->setFocus();
    const int classes = count->value();
    RealInput::moveTo(RealInput::centerOf(count));
    RealInput::wheelDown(1);
    QTRY_COMPARE(count->value(), classes - 1);
}

void tst_mapWindowScreens::aFailedSaveIsToldAndTriedAgain()
{
    start();
    QVERIFY(QDir().mkpath(store->storeDirectory()));
    locked.setFileName(store->storeDirectory() + "/store.lock");
    QVERIFY(locked.open(QIODevice::ReadWrite));
    QCOMPARE(::flock(locked.handle(), LOCK_EX), 0);
    QRect box;
    ModalDriver driver;
    driver.next([](QWidget *dialog) {
        auto *manager = qobject_cast<VTColorSchemeManager *>(dialog);
        QVERIFY(manager);
        ManagerUser user(*manager);
        user.click(1);
        user.command("actionAdd_group");
        // Not by the real pointer, which may still find the dialog that has just closed.
        QTest::mouseClick(user.ok, Qt::LeftButton);
    });
    driver.next([](QWidget *naming) {
        QVERIFY(QTest::qWaitForWindowActive(naming));
        auto *name = naming->findChild<VTLineEditWidget *>()->lineEdit();
        // A window that has only just come may lose the first keys.
        RealInput::click(name);
        RealInput::press("ctrl+a");
        QTRY_COMPARE(name->selectedText(), name->text());
        RealInput::type("valleys");
        QTRY_COMPARE(name->text(), QString("valleys"));
        RealInput::press("Return");
    });
    driver.next(pressText("Yes"));
    driver.next([&](QWidget *told) {
        box = told->frameGeometry();
        locked.close();
        clickUntilItCloses(told->findChild<QPushButton *>("tryAgain"));
    });
    RealInput::press("ctrl+m");
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(freeScreen().contains(box));
    QFile file(store->storeDirectory() + "/custom.team");
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("valleys"));
}

void tst_mapWindowScreens::damageAtTheStartIsShownAndItsFolderOpened()
{
    VOColorSchemeManager::instance()->customTeam.groups = {makeGroup("Mine", {"one"})};
    QVERIFY(VOColorSchemeManager::instance()->save());
    QFile file(store->storeDirectory() + "/custom.team");
    QVERIFY(file.open(QIODevice::ReadWrite));
    file.seek(file.size() / 2);
    file.write("damage damage damage");
    file.close();
    VOColorSchemeManager::instance()->load();
    QDesktopServices::setUrlHandler("file", this, "onFolderOpened");
    start();
    auto *bar = window->findChild<QWidget *>("storeProblems");
    QVERIFY(bar);
    QVERIFY(bar->findChild<QLabel *>("text")->text().contains("\"Custom\""));
    const QRect place(bar->mapToGlobal(QPoint(0, 0)), bar->size());
    QVERIFY(freeScreen().contains(place));
    // The map has not lost its place to it, nor to a second one.
    QVERIFY(window->map()->height() >= 240);
    FileProblem problem;
    const QString path = writeFile("gone.asc", "ncols 1\nnrows 1\nxllcorner 0\nyllcorner 0\n"
                                               "cellsize 1\n1\n");
    QVERIFY(window->openFile(path, &problem));
    QVERIFY(QFile::remove(path));
    window->close();
    start();
    bar = window->findChild<QWidget *>("storeProblems");
    QVERIFY(bar && window->findChild<QWidget *>("missingMaps"));
    QVERIFY(window->map()->height() >= 160);
    QVERIFY(freeScreen().contains(window->frameGeometry()));
    RealInput::click(bar->findChild<QPushButton *>("openFolder"));
    QTRY_COMPARE(QFileInfo(openedFolder), QFileInfo(store->storeDirectory() + "/damaged"));
    RealInput::click(bar->findChild<QToolButton *>("closeNotice"));
    QTRY_VERIFY(VOColorSchemeManager::instance()->problems().empty());
}

VT_TEST_MAIN(tst_mapWindowScreens)
#include "tst_mapWindowScreens.moc"
