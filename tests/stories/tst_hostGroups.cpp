#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "colorscheme/picker/VTColorSchemeGroupMenu.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/DropDown.h"
#include "tests/support/ManagerTest.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/StoreFixture.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOColorSchemeNotifier.h"
#include "vomap/VOStringConversion.h"

#include <QDirIterator>
#include <QSignalSpy>
#include <QtTest>

#include <functional>

using namespace VTObjects;

// A host's own built-in groups: from where it adds them to every place in which they show. The
// store keeps them as long as its process runs, so each test is a process.
class tst_hostGroups : public ManagerTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void theyStandBehindOurs();
    void someCannotBeAdded();
    void noFileHasThem();
    void theySurviveLoadingResettingAndReloading();
    void oneThatAnEarlierReleaseLeftIsReplacedAndGone();
    void thePickerOffersThem();
    void theManagerShowsThemAndNobodyChangesThem();
    void groupsAreCalledAsTheHostSays();

private:
    static VOColorSchemeManager &records() { return *VOColorSchemeManager::instance(); }
    static void addThem();
};

// The store is the process's: what one test adds is there in the next. So all use the same.
void tst_hostGroups::addThem()
{
    if (!records().hostGroups().empty())
        return;
    QVERIFY(records().addHostGroup(makeGroup("fathoms", {"shoals", "abyss"}), "For fathoms"));
    QVERIFY(records().addHostGroup(makeGroup("gusts", {"doldrums"}), QString()));
}

void tst_hostGroups::theyStandBehindOurs()
{
    const std::size_t ours = records().defaultTeam.groups.size();
    const QSignalSpy changed(VOColorSchemeNotifier::instance(),
                             &VOColorSchemeNotifier::storeChanged);
    addThem();
    QCOMPARE(changed.count(), 2);
    QCOMPARE(records().defaultTeam.groups.size(), ours + 2);
    QCOMPARE(records().defaultTeam.index("fathoms"), int(ours));
    QVERIFY(records().find({L"Default", L"gusts", L"doldrums"}));
    QCOMPARE(records().groupCaption("fathoms"), QString("For fathoms"));
    QCOMPARE(records().groupCaption("gusts"), QString("gusts"));
    QCOMPARE(records().groupCaption("DEM"), QString());
}

void tst_hostGroups::someCannotBeAdded()
{
    addThem();
    const std::size_t before = records().defaultTeam.groups.size();
    QVERIFY(!records().addHostGroup(makeGroup("", {"a"}), "x"));
    QVERIFY(!records().addHostGroup(makeGroup("DEM", {"a"}), "x"));
    QVERIFY(!records().addHostGroup(makeGroup("fathoms", {"a"}), "x"));
    QCOMPARE(records().defaultTeam.groups.size(), before);
    QCOMPARE(records().groupCaption("fathoms"), QString("For fathoms"));
}

void tst_hostGroups::noFileHasThem()
{
    addThem();
    records().customTeam.groups = {makeGroup("mine", {"kept"})};
    QVERIFY(records().save());
    records().defaultTeam.groups[0].schemes[0].author = L"edited";
    QVERIFY(records().save());
    int files = 0;
    for (QDirIterator entries(store->storeDirectory(), QDir::Files, QDirIterator::Subdirectories);
         entries.hasNext();) {
        QFile file(entries.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        for (const char *name : {"fathoms", "For fathoms", "shoals", "gusts", "doldrums"})
            QVERIFY2(!bytes.contains(name), qPrintable(file.fileName()));
        ++files;
    }
    QVERIFY(files >= 6);
    // A program without them sees the rest.
    ChildProcess other([] {
        VOColorSchemeManager &there = records();
        return there.load() && there.customTeam.contains("mine") &&
                       there.defaultTeam.groups[0].schemes[0].author == L"edited"
                   ? 0
                   : 1;
    });
    QCOMPARE(other.wait(), 0);
    QVERIFY(records().find({L"Default", L"fathoms", L"abyss"}));
}

void tst_hostGroups::theySurviveLoadingResettingAndReloading()
{
    addThem();
    const auto areThere = [] {
        const VOColorSchemeTeam &team = records().defaultTeam;
        const int last = int(team.groups.size()) - 1;
        return team.index("fathoms") == last - 1 && team.index("gusts") == last &&
               schemeNames(team.groups[std::size_t(last - 1)]) == QStringList({"shoals", "abyss"});
    };
    QVERIFY(records().save());
    QVERIFY(areThere());
    QVERIFY(records().load());
    QVERIFY(areThere());
    records().resetDefaultTeam();
    QVERIFY(areThere());
    ChildProcess other([] {
        records().defaultTeam.groups[0].schemes[0].author = L"edited there";
        return records().save() ? 0 : 1;
    });
    QCOMPARE(other.wait(), 0);
    QVERIFY(records().reloadIfChanged());
    QCOMPARE(toQString(records().defaultTeam.groups[0].schemes[0].author), QString("edited there"));
    QVERIFY(areThere());
    // Even where somebody takes them out.
    records().defaultTeam.groups.pop_back();
    QVERIFY(records().save());
    QVERIFY(areThere());
}

void tst_hostGroups::oneThatAnEarlierReleaseLeftIsReplacedAndGone()
{
    addThem();
    // Saved by a program that does not have them as a host's.
    const QString folder = store->storeDirectory();
    QVERIFY(records().save());
    records().defaultTeam.groups.push_back(makeGroup("left over", {"old"}));
    QVERIFY(records().save());
    QVERIFY(records().load());
    QVERIFY(records().defaultTeam.contains("left over"));
    ChildProcess next([] { // which ends with what it added
        if (!records().addHostGroup(makeGroup("left over", {"new"}), "New"))
            return 1;
        const VOColorSchemeTeam &team = records().defaultTeam;
        const VOColorSchemeGroup &group = team.groups.back();
        if (group.name != "left over" || schemeNames(group) != QStringList({"new"}) ||
            team.index("left over") != int(team.groups.size()) - 1)
            return 2;
        return records().save() ? 0 : 3;
    });
    QCOMPARE(next.wait(), 0);
    QVERIFY(records().load());
    QVERIFY(!records().defaultTeam.contains("left over"));
}

void tst_hostGroups::thePickerOffersThem()
{
    addThem();
    VTColorSchemeComboBox picker;
    QVERIFY(picker.setDefaultGroup("Default", "fathoms", 1));
    QCOMPARE(picker.currentSchemeId().toText(), QString("Default/fathoms/abyss"));
    ModalDriver driver;
    driver.next([&](QWidget *menu) {
        const DropDown parts(menu);
        QCOMPARE(parts.bar->text(), QString("For fathoms"));
        QCOMPARE(parts.names(), QStringList({"shoals", "abyss"}));
        driver.next([](QWidget *chooser) {
            QStringList groups;
            QPushButton *gusts = nullptr;
            for (QPushButton *button : chooser->findChildren<QPushButton *>()) {
                groups.append(button->text());
                if (button->text() == "gusts")
                    gusts = button;
            }
            QCOMPARE(groups, QStringList({"For DEM", "For unique", "For unique range", "For graph",
                                          "Even scheme", "Random scheme", "For fathoms", "gusts"}));
            gusts->click();
        });
        parts.bar->click();
        QCOMPARE(parts.bar->text(), QString("gusts"));
        QCOMPARE(parts.names(), QStringList({"doldrums"}));
        parts.actions()[0]->trigger();
    });
    picker.click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(picker.currentSchemeId().toText(), QString("Default/gusts/doldrums"));
}

void tst_hostGroups::theManagerShowsThemAndNobodyChangesThem()
{
    addThem();
    VTColorSchemeComboBox picker;
    picker.setDefaultGroup("Default", "fathoms", 1);
    records().customTeam.groups = {makeGroup("mine", {"a"})};
    open();
    QCOMPARE(user->groups(0),
             QStringList({"For DEM", "For unique", "For unique range", "For graph", "Even scheme",
                          "Random scheme", "For fathoms", "gusts"}));
    user->click(0, 6);
    QCOMPARE(user->names(), QStringList({"shoals", "abyss"}));
    user->select({0});
    ModalDriver driver;
    for (const char *command : {"actionAdd_scheme", "actionEdit_scheme", "actionDelete_scheme"})
        user->command(command);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->names(), QStringList({"shoals", "abyss"}));
    // They are no place to copy to, and a good one to copy from.
    const std::unique_ptr<QMenu> defaults(manager->defaultMenu());
    QCOMPARE(defaults->actions().size(), 6);
    manager->onFavorite({0});
    const std::unique_ptr<QMenu> customs(manager->customMenu());
    customs->actions().first()->trigger();
    ModalDriver saving;
    saving.next(pressText("Yes"));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(saving.allSeen(), qPrintable(saving.problem()));
    QCOMPARE(manager->outcome(), VTColorSchemeManager::Saved);
    QVERIFY(records().find({L"Favorite", L"fathoms", L"shoals"}));
    QVERIFY(records().find({L"Custom", L"mine", L"shoals"}));
    QCOMPARE(picker.currentSchemeId().toText(), QString("Default/fathoms/abyss"));
}

void tst_hostGroups::groupsAreCalledAsTheHostSays()
{
    addThem();
    records().setGroupCaption("DEM", "Relief");
    records().setGroupCaption("gusts", "For gusts");
    VTColorSchemeComboBox picker;
    picker.setDefaultGroup("Default", "DEM", 0);
    ModalDriver driver;
    driver.next([](QWidget *menu) {
        QCOMPARE(DropDown(menu).bar->text(), QString("Relief"));
        menu->close();
    });
    picker.click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    open();
    QCOMPARE(user->groups(0).first(), QString("Relief"));
    QCOMPARE(user->groups(0).last(), QString("For gusts"));
    // Its key stays, and its name comes back.
    QCOMPARE(picker.currentSchemeId().group, VOString("DEM"));
    records().setGroupCaption("DEM", QString());
    records().setGroupCaption("gusts", QString());
    open();
    QCOMPARE(user->groups(0).first(), QString("For DEM"));
    QCOMPARE(user->groups(0).last(), QString("gusts"));
}

VT_TEST_MAIN(tst_hostGroups)
#include "tst_hostGroups.moc"
