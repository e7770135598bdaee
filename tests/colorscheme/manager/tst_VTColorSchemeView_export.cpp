#include "tests/support/ManagerUser.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/ViewTest.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vomap/safeFileName.h"

#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QtTest>

#include <utility>

using VTObjects::safeFileName;
using VTObjects::toQString;
using VTObjects::toVOString;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeManager;

namespace {

const QString exportTitle = QStringLiteral("Export color scheme");

const QString exported = QStringLiteral("Export color scheme successfully!");

const QString notExported = QStringLiteral("Failed to export color scheme!");

/// Sees the box of a failed export, and keeps what stands below its text.
ModalDriver::Handler expectFailure(QString &below)
{
    return [&below](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        QVERIFY(box);
        below = box->informativeText();
        expectBox(exportTitle, notExported, QMessageBox::Close)(box);
    };
}

} // namespace

class tst_VTColorSchemeView_export : public ViewTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void exportWithoutSelectionIsRefused();
    void exportStartsAtTheLastPath();
    void exportWritesEverySelectedScheme();
    void exportCanBeCanceled();
    void exportTurnsBackslashes();
    void exportGoesOnAfterAFailure();
    void aFailedExportDoesNotSayWhichFiles();
    void exportOfTwoEqualNamesKeepsTheLater();
    void exportKeepsHarmlessNames();
    void exportGivesDifferentNamesDifferentFiles();
    void exportReplacesAnOlderFile();
    void exportKeepsInsideTheChosenFolder_data();
    void exportKeepsInsideTheChosenFolder();
    void exportPassesOverRowsThatAreGone();
};

void tst_VTColorSchemeView_export::exportWithoutSelectionIsRefused()
{
    view->setGroup(1, 0, makeGroup("g", {"a"}));
    ModalDriver driver;
    driver.next(
        expectBox(exportTitle, QStringLiteral("No color scheme selected!"), QMessageBox::Close));
    view->onExportScheme();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeView_export::exportStartsAtTheLastPath()
{
    store->setLastOpenFilePath(store->path());
    view->setGroup(1, 0, makeGroup("g", {"a"}));
    view->selectRow(0);
    ModalDriver driver;
    driver.next([&](QWidget *window) {
        auto *dialog = qobject_cast<QFileDialog *>(window);
        QVERIFY(dialog);
        QCOMPARE(dialog->windowTitle(), exportTitle);
        QCOMPARE(dialog->directory().canonicalPath(), QDir(store->path()).canonicalPath());
        QVERIFY(dialog->testOption(QFileDialog::ShowDirsOnly));
        QVERIFY(dialog->testOption(QFileDialog::DontUseNativeDialog));
        dialog->close();
    });
    view->onExportScheme();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeView_export::exportWritesEverySelectedScheme()
{
    view->setGroup(1, 0, makeGroup("g", {"a", "b", "c"}));
    selectRows(*view, {0, 2});
    ModalDriver driver;
    driver.next(choose({store->path()}));
    driver.next(expectBox(exportTitle, exported, QMessageBox::Ok));
    view->onExportScheme();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(QDir(store->path()).entryList(QDir::Files), (QStringList{"a.vcs", "c.vcs"}));
    VOColorScheme read;
    QVERIFY(VOColorSchemeManager::readFile(read, toVOString(store->path("c.vcs"))));
    QCOMPARE(toQString(read.name), QStringLiteral("c"));
}

void tst_VTColorSchemeView_export::exportCanBeCanceled()
{
    view->setGroup(1, 0, makeGroup("g", {"a"}));
    view->selectRow(0);
    ModalDriver driver;
    driver.next([](QWidget *dialog) { dialog->close(); });
    view->onExportScheme();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(QDir(store->path()).isEmpty());
}

void tst_VTColorSchemeView_export::exportTurnsBackslashes()
{
    // Here a folder's name may hold a backslash; as a path it means the folder below.
    QVERIFY(QDir(store->path()).mkdir(QStringLiteral("x\\y")));
    QVERIFY(QDir(store->path()).mkpath(QStringLiteral("x/y")));
    view->setGroup(1, 0, makeGroup("g", {"a"}));
    view->selectRow(0);
    ModalDriver driver;
    driver.next(choose({store->path(QStringLiteral("x\\y"))}));
    driver.next(expectBox(exportTitle, exported, QMessageBox::Ok));
    view->onExportScheme();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(QFile::exists(store->path(QStringLiteral("x/y/a.vcs"))));
}

void tst_VTColorSchemeView_export::exportGoesOnAfterAFailure()
{
    auto group = makeGroup("g", {"a", "without ramp", "c"});
    delete group.schemes[1].colorRamp;
    group.schemes[1].colorRamp = nullptr;
    view->setGroup(1, 0, group);
    view->selectAll();
    ModalDriver driver;
    driver.next(choose({store->path()}));
    driver.next(expectBox(exportTitle, notExported, QMessageBox::Close));
    view->onExportScheme();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(QDir(store->path()).entryList(QDir::Files), (QStringList{"a.vcs", "c.vcs"}));
}

void tst_VTColorSchemeView_export::aFailedExportDoesNotSayWhichFiles()
{
    auto group = makeGroup("g", {"a", "without ramp", "in the way"});
    delete group.schemes[1].colorRamp;
    group.schemes[1].colorRamp = nullptr;
    QVERIFY(QDir(store->path()).mkdir(QStringLiteral("in the way.vcs")));
    view->setGroup(1, 0, group);
    view->selectAll();
    QString below;
    ModalDriver driver;
    driver.next(choose({store->path()}));
    driver.next(expectFailure(below));
    view->onExportScheme();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(below, QString());
    QCOMPARE(QDir(store->path()).entryList(QDir::Files), QStringList{"a.vcs"});
}

void tst_VTColorSchemeView_export::exportKeepsHarmlessNames()
{
    const QStringList names{"0..100 m", "con", "nul.old", "wait...", "what?"};
    view->setGroup(1, 0, makeGroup("g", names));
    view->selectAll();
    ModalDriver driver;
    driver.next(choose({store->path()}));
    driver.next(expectBox(exportTitle, exported, QMessageBox::Ok));
    view->onExportScheme();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    for (const QString &name : names)
        QVERIFY2(QFile::exists(store->path(name + ".vcs")), qPrintable(name));
}

void tst_VTColorSchemeView_export::exportGivesDifferentNamesDifferentFiles()
{
    const QStringList names{"a/b", "a_b", "Red", "red"};
    view->setGroup(1, 0, makeGroup("g", names));
    view->selectAll();
    ModalDriver driver;
    driver.next(choose({store->path()}));
    driver.next(expectBox(exportTitle, exported, QMessageBox::Ok));
    view->onExportScheme();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    const QStringList files{"a_b (2).vcs", "a_b.vcs", "Red.vcs", "red (2).vcs"};
    for (int i = 0; i < names.size(); ++i) {
        VOColorScheme read;
        QVERIFY(VOColorSchemeManager::readFile(read, toVOString(store->path(files[i]))));
        QCOMPARE(toQString(read.name), names[i]);
    }
    QCOMPARE(QDir(store->path()).entryList(QDir::Files).size(), files.size());
}

void tst_VTColorSchemeView_export::exportReplacesAnOlderFile()
{
    QFile older(store->path(QStringLiteral("a.vcs")));
    QVERIFY(older.open(QIODevice::WriteOnly));
    older.write("older");
    older.close();
    view->setGroup(1, 0, makeGroup("g", {"a"}));
    view->selectAll();
    ModalDriver driver;
    driver.next(choose({store->path()}));
    driver.next(expectBox(exportTitle, exported, QMessageBox::Ok));
    view->onExportScheme();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(QDir(store->path()).entryList(QDir::Files), QStringList{"a.vcs"});
    VOColorScheme read;
    QVERIFY(VOColorSchemeManager::readFile(read, toVOString(older.fileName())));
}

void tst_VTColorSchemeView_export::exportOfTwoEqualNamesKeepsTheLater()
{
    auto group = makeGroup("g", {"a", "a"});
    group.schemes[1].describe = L"the later";
    view->setGroup(1, 0, group);
    view->selectAll();
    ModalDriver driver;
    driver.next(choose({store->path()}));
    driver.next(expectBox(exportTitle, exported, QMessageBox::Ok));
    view->onExportScheme();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    VOColorScheme read;
    QVERIFY(VOColorSchemeManager::readFile(read, toVOString(store->path("a.vcs"))));
    QCOMPARE(toQString(read.describe), QStringLiteral("the later"));
}

void tst_VTColorSchemeView_export::exportKeepsInsideTheChosenFolder_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("upwards") << QString("../up");
    QTest::newRow("absolute") << QString("/etc/scheme");
    QTest::newRow("below") << QString("sub/scheme");
    QTest::newRow("backslashes") << QString("..\\up");
    QTest::newRow("only dots") << QString("..");
    QTest::newRow("empty") << QString();
    QTest::newRow("line feed") << QString("a\nb");
    QTest::newRow("very long") << QString(400, QLatin1Char('x'));
}

void tst_VTColorSchemeView_export::exportKeepsInsideTheChosenFolder()
{
    QFETCH(QString, name);
    QVERIFY(QDir(store->path()).mkdir(QStringLiteral("chosen")));
    QVERIFY(QDir(store->path()).mkdir(QStringLiteral("chosen/sub")));
    view->setGroup(1, 0, makeGroup("g", {name}));
    view->selectRow(0);
    ModalDriver driver;
    driver.next(choose({store->path(QStringLiteral("chosen"))}));
    driver.next(expectBox(exportTitle, exported, QMessageBox::Ok));
    view->onExportScheme();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    const QDir chosen(store->path(QStringLiteral("chosen")));
    const QStringList files = chosen.entryList(QDir::Files | QDir::Hidden);
    QCOMPARE(files.size(), 1);
    QVERIFY(files.first().endsWith(QLatin1String(".vcs")));
    QVERIFY(QDir(store->path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
    QVERIFY(QDir(chosen.filePath(QStringLiteral("sub"))).isEmpty());
    // The name itself is in the file.
    VOColorScheme read;
    QVERIFY(VOColorSchemeManager::readFile(read, toVOString(chosen.filePath(files.first()))));
    QCOMPARE(toQString(read.name), name);
}

void tst_VTColorSchemeView_export::exportPassesOverRowsThatAreGone()
{
    view->setGroup(1, 0, makeGroup("g", {"a", "b"}));
    view->selectAll();
    ModalDriver driver;
    driver.next([&](QWidget *window) {
        auto &schemes = view->schemeModel()->group().schemes;
        schemes.erase(schemes.begin() + 1);
        schemes.shrink_to_fit();
        choose({store->path()})(window);
    });
    driver.next(expectBox(exportTitle, exported, QMessageBox::Ok));
    view->onExportScheme();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(QDir(store->path()).entryList(QDir::Files), QStringList{"a.vcs"});
}

VT_TEST_MAIN(tst_VTColorSchemeView_export)
#include "tst_VTColorSchemeView_export.moc"
