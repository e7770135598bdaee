#include "tests/support/ComboBoxTest.h"
#include "tests/support/DropDown.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "tests/support/toString.h"
#include "vomap/VOColorSchemeMoves.h"
#include "vomap/VOColorSchemeNotifier.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"

#include <QSignalSpy>
#include <QtTest>

#include <functional>

using namespace VTObjects;

namespace {

struct Position
{
};
int VTColorSchemeComboBox::*positionIn(Position);
// An explicit instantiation may name what is private.
template <int VTColorSchemeComboBox::*member>
struct PrivateMember
{
    friend int VTColorSchemeComboBox::*positionIn(Position) { return member; }
};
template struct PrivateMember<&VTColorSchemeComboBox::groupIndex>;

} // namespace

// Which scheme of the store a picker shows, and what becomes of it.
class tst_VTColorSchemeComboBox_store : public ComboBoxTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void whatWasSetIsToldAsAnId();
    void whatTheUserChoseIsToldAsAnId();
    void aGroupThatIsOnlyListedChangesNoId();
    void aRampOfTheHostHasNoId();
    void theSecondSchemeOfANameIsTheCurrentOne();
    void anIdMakesItsSchemeCurrent();
    void anIdOfNothingChangesNothing_data();
    void anIdOfNothingChangesNothing();
    void theListedGroupIsFoundWhereverItStands();
    void aPositionCountsMoreThanANameFromBefore();
    void aListedGroupThatIsGoneIsNotReplacedByItsNeighbour();
    void aListedGroupThatWasRenamedInPlaceIsStillListed();
    void aSchemeThatAManagerRenamedOrMovedIsFollowed();
    void aSchemeThatAManagerDeletedLeavesItsColors();
    void oneOfTwoOfANameIsFollowedAndNotTheOther();
    void aSchemeThatIsGoneOtherwiseHasNoId();
    void aFollowingPickerTakesOverWhatTheSchemeBecame();
    void settersDoNotTellOfARamp();
    void propertiesTellThatTheyChanged();

private:
    // As a manager does it.
    void edit(const std::function<void(VOColorSchemeMoves::Teams &)> &edits);
};

void tst_VTColorSchemeComboBox_store::edit(
    const std::function<void(VOColorSchemeMoves::Teams &)> &edits)
{
    VOColorSchemeMoves::Teams copies;
    for (const VOTeamKind kind : allTeams)
        copies[kind] = store()->team(kind);
    VOColorSchemeMoves moves(copies);
    edits(copies);
    store()->takeEdited(copies, moves);
    QVERIFY(store()->save());
}

void tst_VTColorSchemeComboBox_store::whatWasSetIsToldAsAnId()
{
    VTColorSchemeComboBox box;
    QVERIFY(box.currentSchemeId().isNull());
    QVERIFY(!box.currentScheme().colorRamp);
    QCOMPARE(box.currentScheme().name, L"");
    store()->customTeam.groups = {makeGroup("one", {"a", "b"}), makeGroup("two", {"c"})};
    QVERIFY(box.setDefaultGroup("custom", "one", 1));
    QCOMPARE(box.currentSchemeId().toText(), QString("Custom/one/b"));
    QCOMPARE(box.currentScheme().name, L"b");
    QCOMPARE(box.currentScheme().colorRamp, box.currentColorRamp());
    QVERIFY(box.setDefaultGroup("Custom", 1, 0));
    QCOMPARE(box.currentSchemeId().toText(), QString("Custom/two/c"));
    // A stand-in is what it is.
    QVERIFY(box.setDefaultGroup("Default", "no such group", 0));
    QCOMPARE(box.currentSchemeId().group, store()->defaultTeam.groups[0].name);
    QCOMPARE(box.currentSchemeId().scheme, box.currentScheme().name);
    // No scheme of the group was made current.
    QVERIFY(box.setDefaultGroup("Custom", 1, -1));
    QCOMPARE(box.currentSchemeId().group, store()->defaultTeam.groups[0].name);
}

void tst_VTColorSchemeComboBox_store::whatTheUserChoseIsToldAsAnId()
{
    store()->favoriteTeam.groups = {makeGroup("one", {"a", "b", "c"})};
    VTColorSchemeComboBox box;
    box.setDefaultGroup("Favorite", 0, 0);
    QStringList told;
    connect(&box, &VTColorSchemeComboBox::currentRampChanged, &box,
            [&] { told.append("ramp " + box.currentSchemeId().toText()); });
    connect(&box, &VTColorSchemeComboBox::currentSchemeChanged, &box,
            [&] { told.append("scheme " + box.currentSchemeId().toText()); });
    ModalDriver driver;
    driver.next([](QWidget *menu) { DropDown(menu).actions()[2]->trigger(); });
    box.click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(told, QStringList({"scheme Favorite/one/c", "ramp Favorite/one/c"}));
    QCOMPARE(box.currentScheme().name, L"c");
}

void tst_VTColorSchemeComboBox_store::aGroupThatIsOnlyListedChangesNoId()
{
    store()->customTeam.groups = {makeGroup("one", {"a"}), makeGroup("two", {"b"})};
    VTColorSchemeComboBox box;
    box.setDefaultGroup("Custom", 0, 0);
    box.listGroup(CustomTeam, 1);
    QCOMPARE(box.currentSchemeId().toText(), QString("Custom/one/a"));
    QCOMPARE(box.groupName(), QString("two"));
}

void tst_VTColorSchemeComboBox_store::aRampOfTheHostHasNoId()
{
    OpenComboBox box;
    store()->customTeam.groups = {makeGroup("one", {"a"})};
    box.setDefaultGroup("Custom", 0, 0);
    VOColorScheme other = makeScheme("other");
    box.setColorRamp(other.colorRamp);
    QVERIFY(box.currentSchemeId().isNull());
    QCOMPARE(box.currentScheme().name, L"a"); // as ever
    box.setDefaultGroup("Custom", 0, 0);
    QVERIFY(!box.currentSchemeId().isNull());
    box.setScheme(other);
    QVERIFY(box.currentSchemeId().isNull());
}

void tst_VTColorSchemeComboBox_store::theSecondSchemeOfANameIsTheCurrentOne()
{
    store()->customTeam.groups = {makeGroup("one", {"a", "same", "same"})};
    store()->customTeam.groups[0].schemes[2].author = L"second";
    VTColorSchemeComboBox box;
    box.setDefaultGroup("Custom", 0, 2);
    QCOMPARE(box.currentSchemeId().toText(), QString("Custom/one/same"));
    QCOMPARE(box.currentScheme().author, L"second");
}

void tst_VTColorSchemeComboBox_store::anIdMakesItsSchemeCurrent()
{
    store()->customTeam.groups = {makeGroup("one", {"a"}), makeGroup("two", {"b", "c"}),
                                  makeGroup("two", {"d"})};
    VTColorSchemeComboBox box;
    for (const char *text : {"Custom/two/c", "Custom/one/a", "Custom/two/d"}) {
        const VOColorSchemeId id = VOColorSchemeId::fromText(text);
        QVERIFY(box.setCurrentScheme(id));
        QVERIFY(box.currentSchemeId() == id);
        QCOMPARE(box.currentScheme().name, id.scheme);
    }
    QCOMPARE(listed(box), QStringList({"two", "d"}));
    const VOColorSchemeGroup &even =
        store()->defaultTeam.groups[std::size_t(store()->defaultTeam.index("Even"))];
    QVERIFY(box.setCurrentScheme({L"Default", L"Even", even.schemes[1].name}));
    QCOMPARE(box.currentScheme().name, even.schemes[1].name);
    QCOMPARE(listed(box).first(), QString("Even scheme"));
}

void tst_VTColorSchemeComboBox_store::anIdOfNothingChangesNothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("null") << "";
    QTest::newRow("no such scheme") << "Custom/one/z";
    QTest::newRow("no such group") << "Custom/zzz/a";
    QTest::newRow("no stand-in in the default team") << "Default/zzz/a";
}

void tst_VTColorSchemeComboBox_store::anIdOfNothingChangesNothing()
{
    QFETCH(QString, text);
    store()->customTeam.groups = {makeGroup("one", {"a", "b"})};
    VTColorSchemeComboBox box;
    box.setDefaultGroup("Custom", 0, 1);
    const QSignalSpy told(&box, &VTColorSchemeComboBox::currentSchemeChanged);
    QVERIFY(!box.setCurrentScheme(VOColorSchemeId::fromText(text)));
    QCOMPARE(box.currentSchemeId().toText(), QString("Custom/one/b"));
    QCOMPARE(listed(box), QStringList({"one", "a", "b"}));
    QCOMPARE(told.count(), 0);
}

void tst_VTColorSchemeComboBox_store::theListedGroupIsFoundWhereverItStands()
{
    std::vector<VOColorSchemeGroup> &groups = store()->customTeam.groups;
    groups = {makeGroup("one", {"a"}), makeGroup("two", {"b"}), makeGroup("three", {"c"})};
    VTColorSchemeComboBox box;
    box.setDefaultGroup("Custom", 1, 0);
    groups.erase(groups.begin());
    QCOMPARE(listed(box), QStringList({"two", "b"}));
    groups.insert(groups.begin(), {makeGroup("x", {}), makeGroup("y", {})});
    QCOMPARE(listed(box), QStringList({"two", "b"}));
    std::reverse(groups.begin(), groups.end());
    QCOMPARE(listed(box), QStringList({"two", "b"}));
    QCOMPARE(box.groupName(), QString("two"));
}

// Whoever gets at the members, as a debugger does.
void tst_VTColorSchemeComboBox_store::aPositionCountsMoreThanANameFromBefore()
{
    VTColorSchemeComboBox box;
    QVERIFY(box.setDefaultGroup(QStringLiteral("Custom"), 0, 0));
    const QStringList first = listed(box);
    box.*positionIn(Position()) = 1;
    QCOMPARE(listed(box).first(), toQString(store()->customTeam.groups[1].name));
    box.*positionIn(Position()) = 99;
    QCOMPARE(listed(box), QStringList{QString()});
    box.*positionIn(Position()) = 0;
    QCOMPARE(listed(box), first);
}

void tst_VTColorSchemeComboBox_store::aListedGroupThatIsGoneIsNotReplacedByItsNeighbour()
{
    std::vector<VOColorSchemeGroup> &groups = store()->customTeam.groups;
    groups = {makeGroup("one", {"a"}), makeGroup("two", {"b"})};
    VTColorSchemeComboBox box;
    box.setDefaultGroup("Custom", 0, 0);
    groups.erase(groups.begin());
    QCOMPARE(listed(box), QStringList({""}));
    QCOMPARE(box.groupName(), QString());
    // The same by a manager, which made another group besides.
    groups = {makeGroup("one", {"a"}), makeGroup("two", {"b"})};
    box.setDefaultGroup("Custom", 0, 0);
    edit([](VOColorSchemeMoves::Teams &teams) {
        teams[CustomTeam].groups.erase(teams[CustomTeam].groups.begin());
        teams[CustomTeam].groups.push_back(makeGroup("three", {"c"}));
    });
    QCOMPARE(listed(box), QStringList({""}));
}

void tst_VTColorSchemeComboBox_store::aListedGroupThatWasRenamedInPlaceIsStillListed()
{
    std::vector<VOColorSchemeGroup> &groups = store()->customTeam.groups;
    groups = {makeGroup("one", {"a"}), makeGroup("two", {"b"})};
    VTColorSchemeComboBox box;
    box.setDefaultGroup("Custom", 0, 0);
    groups[0].name = L"uno";
    QCOMPARE(listed(box), QStringList({"uno", "a"}));
    edit([](VOColorSchemeMoves::Teams &teams) {
        teams[CustomTeam].groups[0].name = L"eins";
        std::swap(teams[CustomTeam].groups[0], teams[CustomTeam].groups[1]);
    });
    QCOMPARE(listed(box), QStringList({"eins", "a"}));
}

void tst_VTColorSchemeComboBox_store::aSchemeThatAManagerRenamedOrMovedIsFollowed()
{
    store()->customTeam.groups = {makeGroup("one", {"a", "b"}), makeGroup("two", {})};
    VTColorSchemeComboBox box;
    box.setDefaultGroup("Custom", 0, 1);
    const QSignalSpy told(&box, &VTColorSchemeComboBox::currentSchemeChanged);
    edit([](VOColorSchemeMoves::Teams &teams) {
        teams[CustomTeam].groups[0].schemes[1].name = L"B";
    });
    QCOMPARE(box.currentSchemeId().toText(), QString("Custom/one/B"));
    QCOMPARE(box.schemeName(), QString("B"));
    QCOMPARE(told.count(), 1);
    edit([](VOColorSchemeMoves::Teams &teams) {
        std::vector<VOColorSchemeGroup> &groups = teams[CustomTeam].groups;
        groups[1].schemes.push_back(std::move(groups[0].schemes[1]));
        groups[0].schemes.pop_back();
    });
    QCOMPARE(box.currentSchemeId().toText(), QString("Custom/two/B"));
    QCOMPARE(told.count(), 2);
}

void tst_VTColorSchemeComboBox_store::aSchemeThatAManagerDeletedLeavesItsColors()
{
    store()->customTeam.groups = {redAndGreen("one", 7)};
    VTColorSchemeComboBox box;
    box.setDefaultGroup("Custom", 0, 1);
    const QImage before = face(box);
    edit([](VOColorSchemeMoves::Teams &teams) { teams[CustomTeam].groups[0].schemes.pop_back(); });
    QVERIFY(box.currentSchemeId().isNull());
    QCOMPARE(face(box), before);
    QCOMPARE(firstColor(box), QColor(0, 200, 7));
    // Another scheme that takes the name later is another scheme.
    edit([](VOColorSchemeMoves::Teams &teams) {
        teams[CustomTeam].groups[0].schemes.push_back(redAndGreen("", 9).schemes[1]);
    });
    QVERIFY(box.currentSchemeId().isNull());
}

void tst_VTColorSchemeComboBox_store::oneOfTwoOfANameIsFollowedAndNotTheOther()
{
    store()->customTeam.groups = {makeGroup("one", {"same", "same"})};
    VTColorSchemeComboBox first;
    VTColorSchemeComboBox second;
    first.setDefaultGroup("Custom", 0, 0);
    second.setDefaultGroup("Custom", 0, 1);
    edit([](VOColorSchemeMoves::Teams &teams) {
        teams[CustomTeam].groups[0].schemes[1].name = L"other";
    });
    QCOMPARE(first.currentSchemeId().toText(), QString("Custom/one/same"));
    QCOMPARE(second.currentSchemeId().toText(), QString("Custom/one/other"));
    edit([](VOColorSchemeMoves::Teams &teams) {
        teams[CustomTeam].groups[0].schemes.erase(teams[CustomTeam].groups[0].schemes.begin());
    });
    QVERIFY(first.currentSchemeId().isNull());
    QCOMPARE(second.currentSchemeId().toText(), QString("Custom/one/other"));
}

void tst_VTColorSchemeComboBox_store::aSchemeThatIsGoneOtherwiseHasNoId()
{
    store()->customTeam.groups = {makeGroup("one", {"a"})};
    VTColorSchemeComboBox box;
    box.setDefaultGroup("Custom", 0, 0);
    store()->customTeam.groups.clear();
    QVERIFY(box.currentSchemeId().isNull());
    QCOMPARE(box.currentScheme().name, L"a");
}

void tst_VTColorSchemeComboBox_store::aFollowingPickerTakesOverWhatTheSchemeBecame()
{
    store()->customTeam.groups = {redAndGreen("one", 7)};
    QVERIFY(store()->save());
    VTColorSchemeComboBox box;
    VTColorSchemeComboBox still;
    QVERIFY(!box.followsStore());
    box.setFollowsStore(true);
    for (VTColorSchemeComboBox *each : {&box, &still})
        each->setDefaultGroup("Custom", 0, 0);
    const QSignalSpy told(&box, &VTColorSchemeComboBox::currentSchemeChanged);
    const QSignalSpy ramp(&box, &VTColorSchemeComboBox::currentRampChanged);
    store()->customTeam.groups[0].schemes[0] = solidScheme("one red", {1, 2, 3});
    QVERIFY(store()->save());
    QCOMPARE(firstColor(box), QColor(1, 2, 3));
    QCOMPARE(faceColor(box), QColor(1, 2, 3));
    QCOMPARE(firstColor(still), QColor(200, 0, 7));
    QCOMPARE(told.count(), 1);
    QCOMPARE(ramp.count(), 0); // the user chose nothing
    // Another scheme is nothing to it.
    store()->customTeam.groups[0].schemes[1].author = L"changed";
    QVERIFY(store()->save());
    QCOMPARE(told.count(), 1);
    still.setFollowsStore(true);
    QCOMPARE(firstColor(still), QColor(1, 2, 3));
}

void tst_VTColorSchemeComboBox_store::settersDoNotTellOfARamp()
{
    store()->customTeam.groups = {makeGroup("one", {"a", "b"})};
    VTColorSchemeComboBox box;
    const QSignalSpy ramp(&box, &VTColorSchemeComboBox::currentRampChanged);
    const QSignalSpy told(&box, &VTColorSchemeComboBox::currentSchemeChanged);
    box.setDefaultGroup("Custom", 0, 0);
    box.setCurrentScheme({L"Custom", L"one", L"b"});
    box.setColorRamp(box.currentColorRamp());
    QCOMPARE(told.count(), 3);
    QVERIFY(!box.setDefaultGroup("Custom", 3, 0));
    QCOMPARE(told.count(), 3);
    QCOMPARE(ramp.count(), 0);
}

void tst_VTColorSchemeComboBox_store::propertiesTellThatTheyChanged()
{
    const QMetaObject &meta = VTColorSchemeComboBox::staticMetaObject;
    for (const char *name : {"team", "group", "schemeName"}) {
        const QMetaProperty property = meta.property(meta.indexOfProperty(name));
        QVERIFY2(property.isWritable() && property.hasNotifySignal(), name);
        QCOMPARE(property.notifySignal().name(), QByteArray("currentSchemeChanged"));
    }
    store()->customTeam.groups = {makeGroup("one", {"a"})};
    VTColorSchemeComboBox box;
    const QSignalSpy told(&box, meta.property(meta.indexOfProperty("schemeName")).notifySignal());
    box.setDefaultGroup("Custom", 0, 0);
    QCOMPARE(told.count(), 1);
    QCOMPARE(box.property("schemeName").toString(), QString("a"));
    QCOMPARE(box.property("group").toString(), QString("one"));
    QCOMPARE(box.property("team").toString(), QString("Custom"));
}

VT_TEST_MAIN(tst_VTColorSchemeComboBox_store)
#include "tst_VTColorSchemeComboBox_store.moc"
