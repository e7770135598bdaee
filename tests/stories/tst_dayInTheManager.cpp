#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "tests/support/ManagerAtWork.h"
#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/windowsLeft.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vtgiscore/VTApplication.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QSpinBox>
#include <QtTest>

#include <memory>

using namespace VTObjects;

/// Every kind of command in one sitting, then the decision to keep it or not.
class tst_dayInTheManager : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void savedWorkIsExactlyWhatAnotherProcessFinds();
    void discardedWorkLeavesEveryByteAsItWas_data();
    void discardedWorkLeavesEveryByteAsItWas();

private:
    void doTheWork(ManagerAtWork &work);
    void expectTheWork();
    QString writeFile(const QString &file, const VOColorScheme &scheme);
    void expectExportedFiles() const;

    std::unique_ptr<TestStore> store;
    QString exported; // a folder
    // What the day is to come to, worked out beside the manager
    VOColorSchemeTeam defaults, customs, favorites;
};

namespace {

enum CustomGroup { Mine, Old, Fieldwork };

VOColorSchemeGroup groupOf(const QString &name, const std::vector<VOColorScheme> &schemes)
{
    VOColorSchemeGroup group;
    group.name = toVOString(name);
    group.schemes = schemes;
    return group;
}

VOColorScheme renamed(VOColorScheme scheme, const QString &name)
{
    scheme.name = toVOString(name);
    return scheme;
}

} // namespace

void tst_dayInTheManager::init()
{
    store = std::make_unique<TestStore>();
    store->setLastOpenFilePath(store->path());
    QVERIFY(QDir(store->path()).mkdir(QStringLiteral("exported")));
    exported = store->path(QStringLiteral("exported"));
    auto *records = VOColorSchemeManager::instance();
    records->customTeam.groups = {
        groupOf("Mine", {schemeOf("Sea", 3), schemeOf("Land", 4), schemeOf("Sky", 5)}),
        groupOf("Old", {schemeOf("Faded", 2)})};
    records->favoriteTeam.groups = {groupOf("Old", {schemeOf("Faded", 2)})};
    QVERIFY(records->save());
    defaults = records->defaultTeam;
    customs = records->customTeam;
    favorites = records->favoriteTeam;
}

void tst_dayInTheManager::cleanup()
{
    store.reset();
    QCOMPARE(windowsLeft(), QStringList());
}

QString tst_dayInTheManager::writeFile(const QString &file, const VOColorScheme &scheme)
{
    const QString path = store->path(file);
    if (!VOColorSchemeManager::saveFile(scheme, toVOString(path)))
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

void tst_dayInTheManager::doTheWork(ManagerAtWork &work)
{
    const QString rain = writeFile(QStringLiteral("1.vcs"), schemeOf("Rain", 8));
    const QString sky = writeFile(QStringLiteral("3.vcs"), schemeOf("Sky", 9));
    const QString broken = store->path(QStringLiteral("2.vcs"));
    QVERIFY(QFile::copy(rain, broken));
    QVERIFY(QFile::resize(broken, QFileInfo(broken).size() / 2));

    // A new group gets copies of two schemes of another one, and of a built-in one
    work.command("actionAdd_group", {enterName(QStringLiteral("Fieldwork"))});
    QCOMPARE(work.user.groups(1), (QStringList{"Mine", "Old", "Fieldwork"}));
    work.show(1, Mine);
    work.select({0, 2});
    work.chooseInMenu({"Copy to", "Custom", "Fieldwork"});
    work.show(0, 0);
    work.select({1});
    work.chooseInMenu({"Copy to", "Custom", "Fieldwork"});
    // The built-in groups may be changed too
    work.rename(0, QStringLiteral("Relief"));
    // Then a scheme of the user's own
    work.show(1, Fieldwork);
    QCOMPARE(work.user.names().size(), 3);
    work.command("actionAdd_scheme", {[](QWidget *editor) {
                     QVERIFY(qobject_cast<VTColorSchemeEditor *>(editor));
                     editor->findChild<QSpinBox *>(QStringLiteral("spinBox_level"))->setValue(7);
                     enterName(QStringLiteral("Heat"))(editor);
                 }});
    work.rename(0, QStringLiteral("Ocean"));
    work.select({3});
    work.chooseInMenu({"Favorite"});
    work.select({0});
    work.chooseInMenu({"Favorite"});
    QCOMPARE(work.user.groups(2), (QStringList{"Old", "Fieldwork"}));
    // Of three files the second is damaged
    work.command("actionImport_scheme", {choose({rain, broken, sky}), [](QWidget *box) {
                                             QCOMPARE(qobject_cast<QMessageBox *>(box)->text(),
                                                      QStringLiteral("Failed to open file!"));
                                             QTest::keyClick(box, Qt::Key_Return);
                                         }});
    QCOMPARE(work.user.names().mid(3), (QStringList{"Heat", "Rain", "Sky_1"}));
    work.select({0, 4});
    work.command("actionExport_scheme", {choose({exported}), pressText(QStringLiteral("OK"))});
    work.select({1});
    work.command("actionDelete_scheme", {pressText(QStringLiteral("Delete"))});
    // What is not needed any more: a group, and the last scheme of a favourites group
    work.show(1, Old);
    work.command("actionDelete_group", {pressText(QStringLiteral("Delete"))});
    work.show(2, 0);
    work.select({0});
    work.command("actionDelete_scheme", {pressText(QStringLiteral("Delete"))});
    QCOMPARE(work.user.groups(1), (QStringList{"Mine", "Fieldwork"}));
    QCOMPARE(work.user.groups(2), QStringList{"Fieldwork"});
}

void tst_dayInTheManager::expectTheWork()
{
    auto &relief = defaults.groups[std::size_t(defaults.index("DEM"))].schemes;
    customs.groups[Old] =
        groupOf("Fieldwork", {schemeOf("Ocean", 3), relief[1], schemeOf("Heat", 7),
                              schemeOf("Rain", 8), renamed(schemeOf("Sky", 9), "Sky_1")});
    favorites.groups = {groupOf("Fieldwork", {schemeOf("Heat", 7), schemeOf("Ocean", 3)})};
    relief[0].name = L"Relief";
}

void tst_dayInTheManager::expectExportedFiles() const
{
    QCOMPARE(QDir(exported).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             (QStringList{"Ocean.vcs", "Rain.vcs"}));
    VOColorScheme read;
    QVERIFY(VOColorSchemeManager::readFile(read, toVOString(exported + "/Ocean.vcs")));
    QCOMPARE(dump(read), dump(schemeOf("Ocean", 3)));
    QVERIFY(VOColorSchemeManager::readFile(read, toVOString(exported + "/Rain.vcs")));
    QCOMPARE(dump(read), dump(schemeOf("Rain", 8)));
}

void tst_dayInTheManager::savedWorkIsExactlyWhatAnotherProcessFinds()
{
    {
        ManagerAtWork work;
        doTheWork(work);
        if (QTest::currentTestFailed())
            return;
        work.finish(work.user.ok, {pressText(QStringLiteral("Yes"))});
        QCOMPARE(work.manager.result(), int(QDialog::Accepted));
    }
    expectTheWork();
    expectExportedFiles();
    const QByteArray expected = dumpOfRecords(defaults, customs, favorites);
    QCOMPARE(dump(VOColorSchemeManager::instance()->customTeam), dump(customs));
    QCOMPARE(dump(VOColorSchemeManager::instance()->favoriteTeam), dump(favorites));
    QCOMPARE(dumpOfRecords(), expected);
    QCOMPARE(dumpByAnotherProcess(store->storeDirectory()), expected);
}

void tst_dayInTheManager::discardedWorkLeavesEveryByteAsItWas_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("Cancel") << 0;
    QTest::newRow("the window's close button") << 1;
    QTest::newRow("Escape") << 2;
    QTest::newRow("OK, but not saved") << 3;
}

void tst_dayInTheManager::discardedWorkLeavesEveryByteAsItWas()
{
    QFETCH(int, way);
    const QString settings = VTApplication::vtgisSettingsFilePath();
    const auto everything = [&] { return filesBelow(QFileInfo(settings).path()); };
    const auto filesBefore = everything();
    QVERIFY(filesBefore.size() >= 4); // three teams and the settings
    const QByteArray before = dumpOfRecords(defaults, customs, favorites);
    {
        ManagerAtWork work;
        doTheWork(work);
        if (QTest::currentTestFailed())
            return;
        if (way == 0)
            work.finish(work.user.cancel);
        else if (way == 1)
            QVERIFY(work.manager.close());
        else if (way == 2)
            QTest::keyClick(&work.manager, Qt::Key_Escape);
        else
            work.finish(work.user.ok, {pressText(QStringLiteral("Cancel"))});
        QVERIFY(!work.manager.isVisible());
        QCOMPARE(work.manager.result(), int(way == 3 ? QDialog::Accepted : QDialog::Rejected));
    }
    QCOMPARE(dumpOfRecords(), before);
    QCOMPARE(dumpByAnotherProcess(store->storeDirectory()), before);
    // What was exported is out of the manager's hands, and the files to import lie beside it.
    expectExportedFiles();
    QVERIFY(QDir(store->path()).removeRecursively());
    QCOMPARE(everything(), filesBefore);
}

VT_TEST_MAIN(tst_dayInTheManager)
#include "tst_dayInTheManager.moc"
