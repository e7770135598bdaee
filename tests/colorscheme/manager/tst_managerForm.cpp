#include "tests/support/ManagerUser.h"
#include "tests/support/Tagger.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"

#include <QAction>
#include <QLayout>
#include <QMessageBox>
#include <QStandardItemModel>
#include <QToolBar>
#include <QtTest>

#include <memory>

using VTObjects::VOColorSchemeManager;

/// What the manager looks like: icons, fonts, policies and texts.
class tst_managerForm : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void everyCommandShowsItsOwnIcon_data();
    void everyCommandShowsItsOwnIcon();
    void theNodesBearTheIconsOfTheirKinds();
    void onlyTheTeamsAreBold();
    void treeAndTableTakeTheRoomThatIsLeft();
    void theButtonsStandAtTheRight();
    void textsAreTranslatedInTheirContexts();
    void questionsAreTranslatedInTheManagersContext_data();
    void questionsAreTranslatedInTheManagersContext();
    void slotsArePrivate();

private:
    std::unique_ptr<TestStore> store;
};

namespace {

QImage imageOf(const QIcon &icon, int size)
{
    return icon.pixmap(size, size).toImage().convertToFormat(QImage::Format_ARGB32);
}

QImage imageOf(const QModelIndex &node, int size)
{
    return imageOf(node.data(Qt::DecorationRole).value<QIcon>(), size);
}

QImage imageOf(const char *file, int size)
{
    return imageOf(QIcon(QLatin1String(file)), size);
}

QString ofForm(const char *text)
{
    return QStringLiteral("VTColorSchemeManagerBase:") + QLatin1String(text);
}

QString ofManager(const char *text)
{
    return QStringLiteral("VTColorSchemeManager:") + QLatin1String(text);
}

} // namespace

void tst_managerForm::init()
{
    store = std::make_unique<TestStore>();
    auto *records = VOColorSchemeManager::instance();
    records->defaultTeam.groups.clear();
    for (const char *name : {"DEM", "Unique", "Range", "Graph", "Even", "Random"})
        records->defaultTeam.groups.push_back(makeGroup(name, {"d"}));
    records->customTeam.groups = {makeGroup("Mine", {"m"})};
    records->favoriteTeam.groups = {makeGroup("Old", {"f"})};
}

void tst_managerForm::cleanup()
{
    store.reset();
}

void tst_managerForm::everyCommandShowsItsOwnIcon_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("actionAdd_group") << ":/icon/AddGroup.png";
    QTest::newRow("actionDelete_group") << ":/icon/DeleteGroup.png";
    QTest::newRow("actionAdd_scheme") << ":/icon/AddScheme.png";
    QTest::newRow("actionEdit_scheme") << ":/icon/EditScheme.png";
    QTest::newRow("actionDelete_scheme") << ":/icon/DeleteScheme.png";
    QTest::newRow("actionSelect_all") << ":/icon/SelectAll.png";
    QTest::newRow("actionInvert_select") << ":/icon/InvertSelect.png";
    QTest::newRow("actionImport_scheme") << ":/icon/Import.png";
    QTest::newRow("actionExport_scheme") << ":/icon/Export.png";
}

void tst_managerForm::everyCommandShowsItsOwnIcon()
{
    QFETCH(QString, file);
    const VTColorSchemeManager manager;
    const auto *action = manager.findChild<QAction *>(QTest::currentDataTag());
    QVERIFY(action);
    const QImage image = imageOf(action->icon(), 24);
    QVERIFY(!image.isNull());
    QCOMPARE(image, imageOf(qPrintable(file), 24));
}

void tst_managerForm::theNodesBearTheIconsOfTheirKinds()
{
    VTColorSchemeManager manager;
    ManagerUser user(manager);
    // One that the user adds, and one that favouring adds, look like the others.
    ModalDriver driver;
    driver.next(pressNamed(QStringLiteral("pushButton_ok")));
    user.command("actionAdd_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    manager.onFavorite({0});
    QCOMPARE(imageOf(user.node(0), 24), imageOf(":/icon/Default.png", 24));
    QCOMPARE(imageOf(user.node(1), 24), imageOf(":/icon/Custom.png", 24));
    QCOMPARE(imageOf(user.node(2), 24), imageOf(":/icon/Favorite.png", 24));
    for (int team = 0; team < 3; ++team) {
        QCOMPARE(user.tree->model()->rowCount(user.node(team)), team == 0 ? 6 : 2);
        for (int row = 0; row < user.tree->model()->rowCount(user.node(team)); ++row)
            QCOMPARE(imageOf(user.node(team, row), 16), imageOf(":/icon/Group.png", 16));
    }
}

void tst_managerForm::onlyTheTeamsAreBold()
{
    VTColorSchemeManager manager;
    const ManagerUser user(manager);
    for (int team = 0; team < 3; ++team) {
        QVERIFY(user.node(team).data(Qt::FontRole).value<QFont>().bold());
        QVERIFY(!user.node(team, 0).data(Qt::FontRole).isValid());
    }
}

void tst_managerForm::treeAndTableTakeTheRoomThatIsLeft()
{
    VTColorSchemeManager manager;
    const ManagerUser user(manager);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    policy.setHorizontalStretch(1);
    QCOMPARE(user.tree->sizePolicy(), policy);
    policy.setHorizontalStretch(3);
    QCOMPARE(user.table->sizePolicy(), policy);
    const auto *bar = manager.findChild<QToolBar *>(QStringLiteral("toolbar"));
    QVERIFY(bar);
    policy = QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setControlType(bar->sizePolicy().controlType());
    QCOMPARE(bar->sizePolicy(), policy);
}

void tst_managerForm::theButtonsStandAtTheRight()
{
    const VTColorSchemeManager manager;
    const auto *row = manager.findChild<QLayout *>(QStringLiteral("horizontalLayout"));
    QVERIFY(row);
    QCOMPARE(row->count(), 3);
    const QSizePolicy spacer = row->itemAt(0)->spacerItem()->sizePolicy();
    QCOMPARE(spacer.horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(spacer.verticalPolicy(), QSizePolicy::Minimum);
}

void tst_managerForm::textsAreTranslatedInTheirContexts()
{
    const Tagger tagger;
    VTColorSchemeManager manager;
    const ManagerUser user(manager);
    QCOMPARE(manager.windowTitle(), ofForm("Color scheme manager"));
    QCOMPARE(user.ok->text(), ofForm("Ok"));
    QCOMPARE(user.cancel->text(), ofForm("Cancel"));
    QCOMPARE(manager.findChild<QToolBar *>()->windowTitle(), ofForm("result toolbar"));
    QCOMPARE(manager.findChild<QAction *>(QStringLiteral("actionImport_scheme"))->text(),
             ofForm("Import scheme"));
    QCOMPARE(user.node(0).data().toString(), ofManager("Default"));
    QCOMPARE(user.node(1).data().toString(), ofManager("Custom"));
    QCOMPARE(user.node(2).data().toString(), ofManager("Favorite"));
    QCOMPARE(user.groups(0), (QStringList{ofManager("For DEM"), ofManager("For unique"),
                                          ofManager("For unique range"), ofManager("For graph"),
                                          ofManager("Even scheme"), ofManager("Random scheme")}));
    // A favourites group mirrors the text of a built-in group; names of groups stay what they are.
    QCOMPARE(user.groups(1), QStringList{"Mine"});
    manager.onFavorite({0});
    QCOMPARE(user.groups(2), (QStringList{"Old", ofManager("For DEM")}));
}

void tst_managerForm::questionsAreTranslatedInTheManagersContext_data()
{
    QTest::addColumn<QString>("slot");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("accept");
    QTest::addColumn<QString>("acceptText");
    QTest::newRow("delete group") << "onDeleteGroup" << ofManager("Delete group")
                                  << ofManager(
                                         "The group(Mine) cannot be restored after deletion.") +
                                         "\n" + ofManager("Are you sure to delete it?")
                                  << int(QMessageBox::Ok) << ofManager("Delete");
    QTest::newRow("delete scheme")
        << "onDeleteScheme" << ofManager("Delete scheme")
        << ofManager("The color scheme cannot be restored after deletion.") + "\n" +
               ofManager("Are you sure to delete it?")
        << int(QMessageBox::Ok) << ofManager("Delete");
    QTest::newRow("save") << "onOk" << ofManager("Color schemes")
                          << ofManager("The color schemes have been modified.") + "\n" +
                                 ofManager("Do you need to save them?")
                          << int(QMessageBox::Yes) << ofManager("Yes");
}

void tst_managerForm::questionsAreTranslatedInTheManagersContext()
{
    QFETCH(QString, slot);
    QFETCH(int, accept);
    const Tagger tagger;
    VTColorSchemeManager manager;
    ManagerUser user(manager);
    manager.show();
    QVERIFY(QTest::qWaitForWindowExposed(&manager));
    user.click(1, 0);
    user.model->setData(user.model->index(0, 3), QStringLiteral("edited"));
    ModalDriver driver;
    driver.next([&](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        QVERIFY(box);
        QTEST(box->windowTitle(), "title");
        QTEST(box->text(), "text");
        QTEST(box->button(QMessageBox::StandardButton(accept))->text(), "acceptText");
        QCOMPARE(box->button(QMessageBox::Cancel)->text(), ofManager("Cancel"));
        QVERIFY(box->isModal());
        QVERIFY(box->windowFlags().testFlag(Qt::MSWindowsFixedSizeDialogHint));
        QCOMPARE(box->windowType(), Qt::Dialog);
        box->reject();
    });
    QVERIFY(QMetaObject::invokeMethod(&manager, qPrintable(slot)));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_managerForm::slotsArePrivate()
{
    const QMetaObject &meta = VTColorSchemeManager::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
        QCOMPARE(meta.method(i).access(), QMetaMethod::Private);
    }
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 15);
}

VT_TEST_MAIN(tst_managerForm)
#include "tst_managerForm.moc"
