#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "tests/support/ManagerTest.h"
#include "tests/support/TestMain.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QtTest>

using namespace VTObjects;

/// What a manager's user has discarded can be had back.
class tst_discardedSchemes : public ManagerSchemesTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void onlyWhatWasDiscardedIsKept();
    void discardedChangesComeBackAndAreSavedByOk_data();
    void discardedChangesComeBackAndAreSavedByOk();
    void theyCanBeDiscardedAgain();
    void aDialogThatTakesUpNothingIsNotModified();
    void whatTheStoreGotSinceStays();
    void bothSidesOfOneSchemeStay();
    void aPickerFollowsASchemeThatWasRenamedThere();
    void aPickerFollowsItInAStoreThatHasChanged();

private:
    static VOColorSchemeManager &records() { return *VOColorSchemeManager::instance(); }
    // Renames the first scheme of the first custom group, adds a group, and leaves by that way.
    VTDiscardedSchemes discard(const QString &way);
    // A new manager that takes them up.
    void openAgain(const VTDiscardedSchemes &again);
    void leave(const QString &way);
    QStringList customNames(std::size_t group) const
    {
        return schemeNames(records().customTeam.groups.at(group));
    }
};

VTDiscardedSchemes tst_discardedSchemes::discard(const QString &way)
{
    open();
    user->click(1, 0);
    const bool renamed = user->model->setData(user->model->index(0, 2), "renamed");
    leave(way);
    return renamed ? manager->discarded() : VTDiscardedSchemes();
}

void tst_discardedSchemes::openAgain(const VTDiscardedSchemes &again)
{
    user.reset();
    manager.reset();
    manager = std::make_unique<VTColorSchemeManager>(again, nullptr);
    user = std::make_unique<ManagerUser>(*manager);
    manager->show();
    QVERIFY(QTest::qWaitForWindowActive(manager.get()));
}

void tst_discardedSchemes::leave(const QString &way)
{
    ModalDriver driver;
    if (way == "Yes" || way == "No")
        driver.next(pressText(way == "Yes" ? "Yes" : "Cancel"));
    if (way == "Escape")
        QTest::keyClick(manager.get(), Qt::Key_Escape);
    else
        QTest::mouseClick(way == "Cancel" ? user->cancel : user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!manager->isVisible());
}

void tst_discardedSchemes::onlyWhatWasDiscardedIsKept()
{
    QVERIFY(VTDiscardedSchemes().isEmpty);
    open();
    leave("Cancel");
    QVERIFY(manager->discarded().isEmpty);
    QVERIFY(discard("Yes").isEmpty);
    records().customTeam.groups[0].schemes[0].name = VOString(L"other");
    QVERIFY(!discard("Cancel").isEmpty);
}

void tst_discardedSchemes::discardedChangesComeBackAndAreSavedByOk_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"Cancel", "Escape", "No"})
        QTest::newRow(way) << way;
}

void tst_discardedSchemes::discardedChangesComeBackAndAreSavedByOk()
{
    QFETCH(QString, way);
    const QStringList before = customNames(0);
    const VTDiscardedSchemes discarded = discard(way);
    QVERIFY(!discarded.isEmpty);
    QCOMPARE(customNames(0), before);
    openAgain(discarded);
    user->click(1, 0);
    QCOMPARE(user->model->index(0, 2).data().toString(), QString("renamed"));
    QCOMPARE(customNames(0), before);
    leave("Yes");
    QCOMPARE(manager->outcome(), VTColorSchemeManager::Saved);
    QCOMPARE(customNames(0), QStringList("renamed") + before.mid(1));
    QVERIFY(records().load());
    QCOMPARE(customNames(0), QStringList("renamed") + before.mid(1));
}

void tst_discardedSchemes::theyCanBeDiscardedAgain()
{
    const QStringList before = customNames(0);
    openAgain(discard("Cancel"));
    leave("Cancel");
    QCOMPARE(manager->outcome(), VTColorSchemeManager::Discarded);
    QCOMPARE(customNames(0), before);
    openAgain(manager->discarded());
    leave("Yes");
    QCOMPARE(customNames(0), QStringList("renamed") + before.mid(1));
}

void tst_discardedSchemes::aDialogThatTakesUpNothingIsNotModified()
{
    openAgain(VTDiscardedSchemes());
    leave("Ok"); // which would have to ask
    QCOMPARE(manager->outcome(), VTColorSchemeManager::NothingChanged);
}

void tst_discardedSchemes::whatTheStoreGotSinceStays()
{
    const QStringList before = customNames(0);
    const VTDiscardedSchemes discarded = discard("Cancel");
    records().customTeam.groups[0].schemes.push_back(makeScheme("since"));
    records().customTeam.groups.insert(records().customTeam.groups.begin(),
                                       makeGroup("First", {"x"}));
    openAgain(discarded);
    leave("Yes");
    const int mine = records().customTeam.index(VOString(L"Mine"));
    QVERIFY(mine >= 0);
    QVERIFY(records().customTeam.contains(VOString(L"First")));
    QCOMPARE(customNames(std::size_t(mine)),
             QStringList("renamed") + before.mid(1) + QStringList("since"));
}

void tst_discardedSchemes::bothSidesOfOneSchemeStay()
{
    open();
    user->click(1, 0);
    const QString name = customNames(0).first();
    QVERIFY(user->model->setData(user->model->index(0, 3), "discarded author"));
    leave("Cancel");
    const VTDiscardedSchemes discarded = manager->discarded();
    records().customTeam.groups[0].schemes[0].author = VOString(L"later author");
    openAgain(discarded);
    leave("Yes");
    QStringList authors;
    for (const VOColorScheme &scheme : records().customTeam.groups[0].schemes) {
        if (toQString(scheme.name).startsWith(name))
            authors << toQString(scheme.author);
    }
    QVERIFY2(authors.contains("discarded author"), qPrintable(authors.join(", ")));
    QVERIFY2(authors.contains("later author"), qPrintable(authors.join(", ")));
}

void tst_discardedSchemes::aPickerFollowsASchemeThatWasRenamedThere()
{
    VTColorSchemeComboBox picker;
    QVERIFY(picker.setDefaultGroup("Custom", "Mine", 0));
    openAgain(discard("Cancel"));
    leave("Yes");
    QCOMPARE(picker.currentSchemeId().toText(), QString("Custom/Mine/renamed"));
}

void tst_discardedSchemes::aPickerFollowsItInAStoreThatHasChanged()
{
    VTColorSchemeComboBox picker;
    QVERIFY(picker.setDefaultGroup("Custom", "Mine", 0));
    const VTDiscardedSchemes discarded = discard("Cancel");
    std::vector<VOColorScheme> &schemes = records().customTeam.groups[0].schemes;
    schemes.insert(schemes.begin(), makeScheme("in front"));
    openAgain(discarded);
    leave("Yes");
    QCOMPARE(picker.currentSchemeId().toText(), QString("Custom/Mine/renamed"));
}

VT_TEST_MAIN(tst_discardedSchemes)
#include "tst_discardedSchemes.moc"
