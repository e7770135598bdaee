#include "tests/support/ManagerTest.h"
#include "tests/support/ManagerUser.h"
#include "tests/support/TestMain.h"
#include "vomap/VOColorSchemeManager.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QSignalSpy>
#include <QtTest>

using VTObjects::VOColorSchemeManager;

/// The manager's commands on schemes, and OK.
class tst_managerSchemes_files : public ManagerSchemesTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void importReadsManyFilesPastABadOne();
    void eachBadFileIsNamedWithWhatIsWrong();
    void importedNamesAreSuffixedOnce();
    void whatIsImportedIsSelectedAndInSight();
    void importTurnsBackslashes();
    void importStartsAtTheLastPath();
    void importNeedsAShownGroup_data();
    void importNeedsAShownGroup();
    void importGoesIntoTheShownGroup();
    void importingNothingModifiesNothing();
    void importingOnlyBadFilesStillAsksToSave();
    void exportIsThatOfTheTable();
};

void tst_managerSchemes_files::importReadsManyFilesPastABadOne()
{
    const QStringList paths{writeFile(QStringLiteral("1.vcs"), QStringLiteral("x")),
                            store->path(QStringLiteral("2.vcs")),
                            writeFile(QStringLiteral("3.vcs"), QStringLiteral("y"))};
    QFile bad(paths[1]);
    QVERIFY(bad.open(QIODevice::WriteOnly));
    bad.write("no scheme");
    bad.close();
    open();
    user->click(1, 1);
    QSignalSpy inserted(user->model, &QAbstractItemModel::rowsInserted);
    ModalDriver driver;
    driver.next([&](QWidget *window) {
        auto *dialog = qobject_cast<QFileDialog *>(window);
        QVERIFY(dialog);
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Open color scheme file"));
        QCOMPARE(dialog->nameFilters(), QStringList{"*.vcs"});
        QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFiles);
        QVERIFY(dialog->testOption(QFileDialog::DontUseNativeDialog));
        choose(paths)(dialog);
    });
    driver.next([&](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        QVERIFY(box);
        QCOMPARE(box->windowTitle(), QStringLiteral("Open color scheme file"));
        QCOMPARE(box->text(), QStringLiteral("Failed to open file!"));
        QCOMPARE(box->icon(), QMessageBox::Information);
        QCOMPARE(box->standardButtons(), QMessageBox::StandardButtons(QMessageBox::Close));
        QCOMPARE(user->names(), QStringList{"x"});
        box->close();
    });
    user->command("actionImport_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->names(), (QStringList{"x", "y"}));
    QCOMPARE(inserted.count(), 2);
    user->click(0, 0);
    QCOMPARE(copyNames(1, 1), (QStringList{"x", "y"}));
}

void tst_managerSchemes_files::eachBadFileIsNamedWithWhatIsWrong()
{
    const QStringList paths{writeFile(QStringLiteral("cut.vcs"), QStringLiteral("x")),
                            store->path(QStringLiteral("picture.vcs")),
                            store->path(QStringLiteral("empty.vcs")),
                            writeFile(QStringLiteral("good.vcs"), QStringLiteral("y"))};
    QFile cut(paths[0]);
    QVERIFY(cut.resize(cut.size() - 20));
    QFile picture(paths[1]);
    QVERIFY(picture.open(QIODevice::WriteOnly));
    picture.write("GIF89a");
    picture.close();
    QFile empty(paths[2]);
    QVERIFY(empty.open(QIODevice::WriteOnly));
    empty.close();
    open();
    user->click(1, 1);
    QStringList below;
    ModalDriver driver;
    driver.next(choose(paths));
    for (int i = 0; i < 3; ++i) {
        driver.next([&below](QWidget *window) {
            auto *box = qobject_cast<QMessageBox *>(window);
            QVERIFY(box);
            QCOMPARE(box->text(), QStringLiteral("Failed to open file!"));
            below.append(box->informativeText());
            box->close();
        });
    }
    user->command("actionImport_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(below.size(), 3);
    QVERIFY2(below[0].startsWith(QLatin1String("cut.vcs: The text is damaged in line ")),
             qPrintable(below[0]));
    QCOMPARE(below[1], QStringLiteral("picture.vcs: It is no color scheme file."));
    QCOMPARE(below[2], QStringLiteral("empty.vcs: The file is empty."));
    QCOMPARE(user->names(), QStringList{"y"});
}

void tst_managerSchemes_files::importedNamesAreSuffixedOnce()
{
    const QString path = writeFile(QStringLiteral("a.vcs"), QStringLiteral("a"));
    open();
    user->click(1, 0);
    for (int i = 0; i < 2; ++i) {
        ModalDriver driver;
        driver.next(choose({path}));
        user->command("actionImport_scheme");
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    }
    QCOMPARE(user->names().mid(6), (QStringList{"a_1", "a_1"}));
}

void tst_managerSchemes_files::whatIsImportedIsSelectedAndInSight()
{
    auto &schemes = VOColorSchemeManager::instance()->customTeam.groups[0].schemes;
    schemes.assign(200, makeScheme(QStringLiteral("old")));
    const QStringList paths{writeFile(QStringLiteral("1.vcs"), QStringLiteral("x")),
                            writeFile(QStringLiteral("2.vcs"), QStringLiteral("y")),
                            writeFile(QStringLiteral("3.vcs"), QStringLiteral("z"))};
    open();
    user->click(1, 0);
    const auto importAll = [this](const QStringList &files) {
        ModalDriver driver;
        driver.next(choose(files));
        user->command("actionImport_scheme");
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    };
    importAll(paths);
    QCOMPARE(user->table->selectedRowNumbers(), (QVector<int>{200, 201, 202}));
    QCOMPARE(user->table->currentIndex().row(), 200);
    const QRect sight = user->table->viewport()->rect();
    for (const int row : {200, 202})
        QVERIFY(sight.contains(user->table->visualRect(user->model->index(row, 0))));
    // More than there is room for show from the first on.
    QStringList many;
    for (int i = 0; i < 60; ++i)
        many.append(writeFile(QStringLiteral("m%1.vcs").arg(i), QStringLiteral("m")));
    importAll(many);
    QCOMPARE(user->table->selectedRowNumbers().size(), 60);
    QCOMPARE(user->table->currentIndex().row(), 203);
    QVERIFY(sight.contains(user->table->visualRect(user->model->index(203, 0))));
}

void tst_managerSchemes_files::importTurnsBackslashes()
{
    // Here a file's name may hold a backslash; as a path it means the folder below.
    QVERIFY(QDir(store->path()).mkdir(QStringLiteral("x")));
    writeFile(QStringLiteral("x/y.vcs"), QStringLiteral("below"));
    const QString path = writeFile(QStringLiteral("x\\y.vcs"), QStringLiteral("beside"));
    open();
    user->click(1, 1);
    ModalDriver driver;
    driver.next(choose({path}));
    user->command("actionImport_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->names(), QStringList{"below"});
}

void tst_managerSchemes_files::importStartsAtTheLastPath()
{
    store->setLastOpenFilePath(store->path());
    open();
    QString folder;
    ModalDriver driver;
    driver.next([&](QWidget *dialog) {
        folder = qobject_cast<QFileDialog *>(dialog)->directory().canonicalPath();
        dialog->close();
    });
    user->command("actionImport_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(folder, QDir(store->path()).canonicalPath());
}

void tst_managerSchemes_files::importNeedsAShownGroup_data()
{
    QTest::addColumn<int>("team");
    QTest::addColumn<bool>("asks");
    QTest::newRow("no node") << -1 << false;
    QTest::newRow("built-in team") << 0 << true;
    QTest::newRow("custom team without groups") << 1 << false;
    QTest::newRow("favorites with groups") << 2 << true;
}

void tst_managerSchemes_files::importNeedsAShownGroup()
{
    QFETCH(int, team);
    QFETCH(bool, asks);
    VOColorSchemeManager::instance()->customTeam.groups.clear();
    open();
    user->tree->setCurrentIndex(team < 0 ? QModelIndex() : user->node(team));
    ModalDriver driver;
    if (asks)
        driver.next([](QWidget *dialog) { dialog->close(); });
    user->command("actionImport_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_managerSchemes_files::importGoesIntoTheShownGroup()
{
    const QString path = writeFile(QStringLiteral("x.vcs"), QStringLiteral("x"));
    open();
    user->click(2, 1);
    user->tree->setCurrentIndex(user->node(1, 0));
    ModalDriver driver;
    driver.next(choose({path}));
    user->command("actionImport_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->names(), (QStringList{"o", "x"}));
    user->click(1, 0);
    QCOMPARE(copyNames(2, 1), (QStringList{"o", "x"}));
    QCOMPARE(copyNames(1, 0).size(), 6);
}

void tst_managerSchemes_files::importingNothingModifiesNothing()
{
    open();
    ModalDriver driver;
    driver.next([](QWidget *dialog) { dialog->close(); });
    user->command("actionImport_scheme");
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!manager->isVisible());
}

void tst_managerSchemes_files::importingOnlyBadFilesStillAsksToSave()
{
    QFile bad(store->path(QStringLiteral("bad.vcs")));
    QVERIFY(bad.open(QIODevice::WriteOnly));
    bad.close();
    open();
    ModalDriver driver;
    driver.next(choose({bad.fileName()}));
    driver.next([](QWidget *box) { box->close(); });
    user->command("actionImport_scheme");
    driver.next(pressText(QStringLiteral("Cancel")));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_managerSchemes_files::exportIsThatOfTheTable()
{
    open();
    user->click(1, 0);
    user->select({1, 4});
    ModalDriver driver;
    driver.next(choose({store->path()}));
    driver.next(pressText(QStringLiteral("OK")));
    user->command("actionExport_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(QDir(store->path()).entryList(QDir::Files), (QStringList{"b.vcs", "e.vcs"}));
}

VT_TEST_MAIN(tst_managerSchemes_files)
#include "tst_managerSchemes_files.moc"
