#include "colorscheme/manager/VTLineEditWidget.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "tests/support/ManagerTest.h"
#include "tests/support/TestMain.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOColorSchemeNotifier.h"
#include "vomap/VOStringConversion.h"

#include <QDir>
#include <QSignalSpy>
#include <QtTest>

using namespace VTObjects;

/// What a host learns of a manager, and makes it do.
class tst_managerForHosts : public ManagerSchemesTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void theOutcomeTellsHowItEnded_data();
    void theOutcomeTellsHowItEnded();
    void theOutcomeIsKnownToWhoeverHearsOfTheEnd();
    void whatStandsInAnOpenFieldIsDiscardedToo();
    void aFailedSaveIsTheOutcomeAndIsToldOnce();
    void anOkIsOneChangeOfTheStore();
    void aPickerFollowsARenamedScheme();
    void aPickerFollowsASchemeAndNotItsCopy();
    void aPickerOfADeletedSchemeKeepsItsColors();
    void nothingIsReloadedBelowAManager();
    void aSchemeIsShownByItsId();
    void aSchemeThatIsNotShownChangesNothing_data();
    void aSchemeThatIsNotShownChangesNothing();
    void showingASchemeKeepsWhatWasEdited();
    void aReadOnlyTeamIsOnlyLookedAt_data();
    void aReadOnlyTeamIsOnlyLookedAt();
    void aTeamCanBeMadeWritableAgain();

private:
    VOColorSchemeManager &records() { return *VOColorSchemeManager::instance(); }
    void rename(int row, const QString &name);
    void endWith(const QString &way);
};

// A name is changed in the table that is shown.
void tst_managerForHosts::rename(int row, const QString &name)
{
    QVERIFY(user->model->setData(user->model->index(row, 2), name));
}

void tst_managerForHosts::endWith(const QString &way)
{
    ModalDriver driver;
    if (way == "Yes" || way == "No")
        driver.next(pressText(way == "Yes" ? "Yes" : "Cancel"));
    if (way == "accept()")
        manager->accept();
    else if (way == "done()")
        manager->done(7);
    else if (way == "hide()")
        manager->hide();
    else if (way == "Escape")
        QTest::keyClick(manager.get(), Qt::Key_Escape);
    else if (way == "close")
        manager->close();
    else
        QTest::mouseClick(way == "Cancel" ? user->cancel : user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!manager->isVisible());
}

void tst_managerForHosts::theOutcomeTellsHowItEnded_data()
{
    QTest::addColumn<bool>("edited");
    QTest::addColumn<QString>("way");
    QTest::addColumn<int>("outcome");
    for (const char *way : {"Ok", "Cancel", "Escape", "close", "accept()", "done()", "hide()"})
        QTest::addRow("nothing, %s", way)
            << false << way << int(VTColorSchemeManager::NothingChanged);
    for (const char *way : {"No", "Cancel", "Escape", "close", "accept()", "done()", "hide()"})
        QTest::addRow("edited, %s", way) << true << way << int(VTColorSchemeManager::Discarded);
    QTest::newRow("edited, Yes") << true << "Yes" << int(VTColorSchemeManager::Saved);
}

void tst_managerForHosts::theOutcomeTellsHowItEnded()
{
    QFETCH(bool, edited);
    QFETCH(QString, way);
    QFETCH(int, outcome);
    open();
    user->click(1, 0);
    if (edited)
        rename(0, "edited");
    endWith(way);
    QCOMPARE(int(manager->outcome()), outcome);
    QCOMPARE(records().customTeam.groups[0].contains("edited"), way == "Yes");
}

void tst_managerForHosts::theOutcomeIsKnownToWhoeverHearsOfTheEnd()
{
    open();
    user->click(1, 0);
    rename(0, "edited");
    QVector<int> heard;
    const auto hear = [&] { heard.append(manager->outcome()); };
    connect(manager.get(), &QDialog::accepted, this, hear);
    connect(manager.get(), &QDialog::finished, this, hear);
    endWith("accept()");
    const int discarded = VTColorSchemeManager::Discarded;
    QCOMPARE(heard, (QVector<int>{discarded, discarded}));
    QVERIFY(!manager->discarded().isEmpty);
}

void tst_managerForHosts::whatStandsInAnOpenFieldIsDiscardedToo()
{
    open();
    user->click(1, 0);
    user->table->edit(user->model->index(0, 2));
    auto *field = user->table->findChild<VTLineEditWidget *>();
    QVERIFY(field);
    field->lineEdit()->selectAll();
    QTest::keyClicks(field->lineEdit(), "typed");
    endWith("close");
    QCOMPARE(manager->outcome(), VTColorSchemeManager::Discarded);
    QVERIFY(manager->discarded().edited[CustomTeamNode].groups[0].contains("typed"));
    QVERIFY(!records().find({L"Custom", L"Mine", L"typed"}));
}

void tst_managerForHosts::aFailedSaveIsTheOutcomeAndIsToldOnce()
{
    QVERIFY(records().save());
    records().clearProblems();
    const QString folder = store->storeDirectory();
    QVERIFY(QDir().rename(folder, folder + "-away"));
    QFile file(folder);
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QSignalSpy failed(VOColorSchemeNotifier::instance(), &VOColorSchemeNotifier::saveFailed);
    const QSignalSpy changed(VOColorSchemeNotifier::instance(),
                             &VOColorSchemeNotifier::storeChanged);
    open();
    user->click(1, 0);
    rename(0, "edited");
    endWith("Yes");
    QCOMPARE(manager->outcome(), VTColorSchemeManager::SaveFailed);
    QCOMPARE(failed.count(), 1);
    QCOMPARE(failed[0][0].toString(), folder);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(records().problems().size(), std::size_t(1));
    QCOMPARE(records().problems()[0].kind, VOStoreProblem::NotSaved);
    QVERIFY(records().problems()[0].team == "Custom");
    // The edits are there, and a save later on writes them.
    QVERIFY(records().find({L"Custom", L"Mine", L"edited"}));
    manager.reset();
    QVERIFY(QFile::remove(folder));
    QVERIFY(QDir().rename(folder + "-away", folder));
    QVERIFY(records().save());
    QVERIFY(records().problems().empty());
    QVERIFY(records().load());
    QVERIFY(records().find({L"Custom", L"Mine", L"edited"}));
    QCOMPARE(failed.count(), 1);
    QCOMPARE(changed.count(), 1);
}

void tst_managerForHosts::anOkIsOneChangeOfTheStore()
{
    QVERIFY(records().save());
    const QSignalSpy changed(VOColorSchemeNotifier::instance(),
                             &VOColorSchemeNotifier::storeChanged);
    open();
    user->click(1, 0);
    rename(0, "edited");
    QCOMPARE(changed.count(), 0);
    endWith("Yes");
    QCOMPARE(changed.count(), 1);
    open();
    user->click(1, 0);
    rename(0, "dropped");
    endWith("No");
    open();
    endWith("Ok");
    QCOMPARE(changed.count(), 1);
}

void tst_managerForHosts::aPickerFollowsARenamedScheme()
{
    VTColorSchemeComboBox picker;
    picker.setDefaultGroup("Custom", "Mine", 2);
    VTColorSchemeComboBox builtIn;
    builtIn.setDefaultGroup("Default", "Unique", 0);
    open();
    user->click(1, 0);
    rename(2, "renamed");
    user->click(0, 1);
    rename(0, "unique");
    QCOMPARE(picker.currentSchemeId().toText(), QString("Custom/Mine/c"));
    endWith("Yes");
    QCOMPARE(picker.currentSchemeId().toText(), QString("Custom/Mine/renamed"));
    QCOMPARE(builtIn.currentSchemeId().toText(), QString("Default/Unique/unique"));
}

void tst_managerForHosts::aPickerFollowsASchemeAndNotItsCopy()
{
    VTColorSchemeComboBox picker;
    picker.setDefaultGroup("Custom", "Mine", 2);
    VTColorSchemeComboBox deleted;
    deleted.setDefaultGroup("Custom", "Mine", 0);
    open();
    user->click(1, 0);
    user->select({0, 2});
    const std::unique_ptr<QMenu> menu(manager->customMenu());
    QCOMPARE(menu->actions().size(), 1);
    menu->actions()[0]->trigger();
    manager->onFavorite({0, 2});
    rename(2, "renamed");
    user->select({0});
    ModalDriver driver;
    driver.next(pressText("Delete"));
    user->command("actionDelete_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    endWith("Yes");
    QVERIFY(records().find({L"Custom", L"Empty", L"c"}));
    QCOMPARE(picker.currentSchemeId().toText(), QString("Custom/Mine/renamed"));
    // The copies of the deleted one are other schemes.
    QVERIFY(records().find({L"Custom", L"Empty", L"a"}));
    QVERIFY(records().find({L"Favorite", L"Mine", L"a"}));
    QVERIFY(deleted.currentSchemeId().isNull());
}

void tst_managerForHosts::aPickerOfADeletedSchemeKeepsItsColors()
{
    VTColorSchemeComboBox picker;
    picker.setDefaultGroup("Custom", "Mine", 2);
    const VOColorScheme before = picker.currentScheme();
    open();
    user->click(1, 0);
    ModalDriver driver;
    driver.next(pressText("Delete"));
    user->command("actionDelete_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    endWith("Yes");
    QVERIFY(picker.currentSchemeId().isNull());
    QVERIFY(VOColorSchemeManager::areEqual(picker.currentScheme(), before));
    QCOMPARE(picker.groupName(), QString());
}

void tst_managerForHosts::nothingIsReloadedBelowAManager()
{
    QVERIFY(records().save());
    open();
    // Another program saves meanwhile, and the host looks.
    QFile file(store->storeDirectory() + "/custom.team");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QVERIFY(!records().reloadIfChanged());
    QVERIFY(records().problems().empty());
    manager.reset();
    QVERIFY(!records().reloadIfChanged());
    QCOMPARE(records().problems().size(), std::size_t(1));
    records().clearProblems();
}

void tst_managerForHosts::aSchemeIsShownByItsId()
{
    open();
    for (const char *text : {"Custom/Mine/d", "Favorite/DEM/f2", "Default/Unique/u"}) {
        const VOColorSchemeId id = VOColorSchemeId::fromText(text);
        QVERIFY2(manager->showScheme(id), text);
        QCOMPARE(user->tree->currentIndex().data().toString(),
                 id.team == "Default" ? QString("For unique") : toQString(id.group));
        const QString name = toQString(id.scheme);
        QCOMPARE(user->table->selectedRowNumbers(), {user->names().indexOf(name)});
        QCOMPARE(user->table->currentIndex().row(), user->names().indexOf(name));
    }
    // Nothing was modified by it.
    endWith("Ok");
    QCOMPARE(manager->outcome(), VTColorSchemeManager::NothingChanged);
}

void tst_managerForHosts::aSchemeThatIsNotShownChangesNothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("null") << "";
    QTest::newRow("no such scheme") << "Custom/Mine/zzz";
    QTest::newRow("no such group") << "Default/zzz/d1";
    QTest::newRow("of a group without a node") << "Default/Secret/s";
}

void tst_managerForHosts::aSchemeThatIsNotShownChangesNothing()
{
    QFETCH(QString, text);
    records().defaultTeam.groups.push_back(makeGroup("Secret", {"s"}));
    open();
    user->click(1, 0);
    user->select({2});
    QVERIFY(!manager->showScheme(VOColorSchemeId::fromText(text)));
    QCOMPARE(user->tree->currentIndex(), user->node(1, 0));
    QCOMPARE(user->table->selectedRowNumbers(), {2});
}

void tst_managerForHosts::showingASchemeKeepsWhatWasEdited()
{
    open();
    user->click(1, 0);
    rename(2, "edited");
    QVERIFY(manager->showScheme({L"Favorite", L"Old", L"o"}));
    QVERIFY(!manager->showScheme({L"Custom", L"Mine", L"c"}));
    QVERIFY(manager->showScheme({L"Custom", L"Mine", L"edited"}));
    QCOMPARE(user->names()[2], QString("edited"));
    endWith("Yes");
    QVERIFY(records().find({L"Custom", L"Mine", L"edited"}));
}

void tst_managerForHosts::aReadOnlyTeamIsOnlyLookedAt_data()
{
    QTest::addColumn<int>("team");
    QTest::newRow("default") << int(DefaultTeamNode);
    QTest::newRow("custom") << int(CustomTeamNode);
    QTest::newRow("favorite") << int(FavoriteTeamNode);
}

void tst_managerForHosts::aReadOnlyTeamIsOnlyLookedAt()
{
    QFETCH(int, team);
    open();
    manager->setTeamReadOnly(NodeType(team), true);
    user->click(team, 0);
    user->select({0, 1});
    const QStringList names = user->names();
    const int groups = user->groups(team).size();
    // None of this opens anything, or it would be closed by force and told.
    ModalDriver driver;
    for (const char *command :
         {"actionAdd_scheme", "actionEdit_scheme", "actionDelete_scheme", "actionImport_scheme"})
        user->command(command);
    if (team == CustomTeamNode) {
        user->command("actionAdd_group");
        user->command("actionDelete_group");
    }
    user->table->onDoubleClicked(user->model->index(0, 1));
    QTest::mouseDClick(user->table->viewport(), Qt::LeftButton, {},
                       user->table->visualRect(user->model->index(0, 2)).center());
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Return})
        QTest::keyClick(user->table, key);
    QVERIFY(!user->table->findChild<VTLineEditWidget *>());
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(manager->isVisible());
    QCOMPARE(user->names(), names);
    QCOMPARE(user->groups(team).size(), groups);
    QVERIFY(!user->node(team, 0).data(Qt::ToolTipRole).toString().isEmpty());
    // Nothing gets in from elsewhere either.
    const int other = team == CustomTeamNode ? DefaultTeamNode : CustomTeamNode;
    user->click(other, 0);
    user->select({0});
    const std::unique_ptr<QMenu> defaults(manager->defaultMenu());
    const std::unique_ptr<QMenu> customs(manager->customMenu());
    QCOMPARE(defaults->isEmpty(), team == DefaultTeamNode);
    QCOMPARE(customs->isEmpty(), team == CustomTeamNode);
    if (team == FavoriteTeamNode) {
        manager->onFavorite({0});
        QCOMPARE(user->groups(team).size(), groups);
    }
    endWith("Ok");
    QCOMPARE(manager->outcome(), VTColorSchemeManager::NothingChanged);
}

void tst_managerForHosts::aTeamCanBeMadeWritableAgain()
{
    open();
    manager->setTeamReadOnly(CustomTeamNode, true);
    user->click(1, 0);
    manager->setTeamReadOnly(CustomTeamNode, false);
    QVERIFY(user->node(1, 0).data(Qt::ToolTipRole).toString().isEmpty());
    manager->setTeamReadOnly(GroupNode, true); // no team
    user->select({0});
    ModalDriver driver;
    driver.next(pressText("Delete"));
    user->command("actionDelete_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->names().size(), 5);
}

VT_TEST_MAIN(tst_managerForHosts)
#include "tst_managerForHosts.moc"
