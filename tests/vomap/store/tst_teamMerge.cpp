#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/toString.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOStringConversion.h"
#include "vomap/store/teamMerge_p.h"

#include <QObject>
#include <QtTest>

using namespace VTObjects;

class tst_teamMerge : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void schemesAreJoined_data();
    void schemesAreJoined();
    void groupsAreJoined_data();
    void groupsAreJoined();
    void whatBothChangedIsKeptTwice();
    void bothKeepAFreeName();
    void equalChangesAreOneChange();
    void namesThatOccurTwiceAreKeptApart();
    void theOrderIsMineAndTheirsFollows();
    void mergingAgainAddsNothing();
    void missingSchemesAreAdded();
    void anUpgradeBringsWhatIsNew();
    void anUpgradeKeepsEditsAndDeletions();
    void anUpgradeReplacesWhatNobodyTouched();
    void anUpgradeKeepsADeletedGroupAway();
    void anUpgradeKeepsAUsersSchemeOfTheSameName();
    void anOlderReleaseDoesNotForgetWhatIsNewInANewer();
};

namespace {

// "a" is a scheme of that name, "a!" the same with a change.
VOColorSchemeGroup group(const QString &name, const QStringList &schemes)
{
    VOColorSchemeGroup made;
    made.name = toVOString(name);
    for (const QString &scheme : schemes) {
        made.schemes.push_back(makeScheme(scheme.left(1)));
        for (int i = scheme.count('!'); i > 0; --i)
            made.schemes.back().author += L"!";
    }
    return made;
}

VOColorSchemeTeam team(const QStringList &schemes)
{
    VOColorSchemeTeam made;
    made.groups.push_back(group("group", schemes));
    return made;
}

// The same notation.
QStringList content(const VOColorSchemeGroup &group)
{
    QStringList list;
    for (const VOColorScheme &scheme : group.schemes)
        list.append(toQString(scheme.name) +
                    QString(toQString(scheme.author).count('!'), QLatin1Char('!')));
    return list;
}

QStringList content(const VOColorSchemeTeam &team)
{
    return team.groups.empty() ? QStringList() : content(team.groups.front());
}

} // namespace

void tst_teamMerge::schemesAreJoined_data()
{
    QTest::addColumn<QStringList>("base");
    QTest::addColumn<QStringList>("mine");
    QTest::addColumn<QStringList>("theirs");
    QTest::addColumn<QStringList>("merged");
    using List = QStringList;
    QTest::newRow("nobody") << List{"a"} << List{"a"} << List{"a"} << List{"a"};
    QTest::newRow("I change") << List{"a"} << List{"a!"} << List{"a"} << List{"a!"};
    QTest::newRow("they change") << List{"a"} << List{"a"} << List{"a!"} << List{"a!"};
    QTest::newRow("both change") << List{"a"} << List{"a!"} << List{"a!!"} << List{"a!", "a_1!!"};
    QTest::newRow("both change alike") << List{"a"} << List{"a!"} << List{"a!"} << List{"a!"};
    QTest::newRow("I add") << List{} << List{"a"} << List{} << List{"a"};
    QTest::newRow("they add") << List{} << List{} << List{"a"} << List{"a"};
    QTest::newRow("both add") << List{} << List{"a"} << List{"b"} << List{"a", "b"};
    QTest::newRow("both add alike") << List{} << List{"a"} << List{"a"} << List{"a"};
    QTest::newRow("both add one name") << List{} << List{"a"} << List{"a!"} << List{"a", "a_1!"};
    QTest::newRow("I delete") << List{"a", "b"} << List{"b"} << List{"a", "b"} << List{"b"};
    QTest::newRow("they delete") << List{"a", "b"} << List{"a", "b"} << List{"b"} << List{"b"};
    QTest::newRow("both delete") << List{"a", "b"} << List{"b"} << List{"b"} << List{"b"};
    QTest::newRow("I delete, they change")
        << List{"a", "b"} << List{"b"} << List{"a!", "b"} << List{"b", "a!"};
    QTest::newRow("they delete, I change")
        << List{"a", "b"} << List{"a!", "b"} << List{"b"} << List{"a!", "b"};
}

void tst_teamMerge::schemesAreJoined()
{
    QFETCH(QStringList, base);
    QFETCH(QStringList, mine);
    QFETCH(QStringList, theirs);
    QFETCH(QStringList, merged);
    QCOMPARE(content(mergedTeam(team(base), team(mine), team(theirs))), merged);
}

void tst_teamMerge::groupsAreJoined_data()
{
    QTest::addColumn<QStringList>("base");
    QTest::addColumn<QStringList>("mine");
    QTest::addColumn<QStringList>("theirs");
    QTest::addColumn<QStringList>("merged");
    using List = QStringList;
    // A small letter is an empty group, a capital one has a scheme, "A!" a changed one.
    QTest::newRow("nobody") << List{"a"} << List{"a"} << List{"a"} << List{"a"};
    QTest::newRow("I add an empty one") << List{} << List{"a"} << List{} << List{"a"};
    QTest::newRow("they add an empty one") << List{} << List{} << List{"a"} << List{"a"};
    QTest::newRow("I delete an empty one") << List{"a"} << List{} << List{"a"} << List{};
    QTest::newRow("they delete an empty one") << List{"a"} << List{"a"} << List{} << List{};
    QTest::newRow("I delete a full one") << List{"A"} << List{} << List{"A"} << List{};
    QTest::newRow("they delete a full one") << List{"A"} << List{"A"} << List{} << List{};
    QTest::newRow("I delete, they change") << List{"A"} << List{} << List{"A!"} << List{"A!"};
    QTest::newRow("they delete, I change") << List{"A"} << List{"A!"} << List{} << List{"A!"};
    QTest::newRow("both add") << List{} << List{"A"} << List{"B"} << List{"A", "B"};
}

void tst_teamMerge::groupsAreJoined()
{
    QFETCH(QStringList, base);
    QFETCH(QStringList, mine);
    QFETCH(QStringList, theirs);
    QFETCH(QStringList, merged);
    const auto made = [](const QStringList &names) {
        VOColorSchemeTeam team;
        for (const QString &name : names)
            team.groups.push_back(group(
                name.left(1), name[0].isUpper() ? QStringList("s" + name.mid(1)) : QStringList()));
        return team;
    };
    QStringList result;
    for (const VOColorSchemeGroup &each : mergedTeam(made(base), made(mine), made(theirs)).groups)
        result.append(toQString(each.name) + content(each).join(QString()).remove('s'));
    QCOMPARE(result, merged);
}

void tst_teamMerge::whatBothChangedIsKeptTwice()
{
    VOColorSchemeTeam mine = team({"a"});
    VOColorSchemeTeam theirs = team({"a"});
    mine.groups[0].schemes[0].colorRamp->setColor(3, {1, 2, 3});
    theirs.groups[0].schemes[0].colorRamp->setColor(3, {4, 5, 6});
    const VOColorSchemeTeam merged = mergedTeam(team({"a"}), mine, theirs);
    QCOMPARE(content(merged), QStringList({"a", "a_1"}));
    QCOMPARE(merged.groups[0].schemes[0].colorRamp->getColor(3), rgb_color<float>(1, 2, 3));
    QCOMPARE(merged.groups[0].schemes[1].colorRamp->getColor(3), rgb_color<float>(4, 5, 6));
}

void tst_teamMerge::bothKeepAFreeName()
{
    VOColorSchemeTeam mine = team({"a!", "b"});
    mine.groups[0].schemes[1].name = L"a_1";
    VOColorSchemeTeam theirs = team({"a!!", "c"});
    theirs.groups[0].schemes[1].name = L"a_2";
    QCOMPARE(content(mergedTeam(team({"a"}), mine, theirs)),
             QStringList({"a!", "a_1", "a_3!!", "a_2"}));
}

void tst_teamMerge::equalChangesAreOneChange()
{
    VOColorSchemeTeam changed = team({"a"});
    changed.groups[0].schemes[0].colorRamp->deleteAll();
    const VOColorSchemeTeam merged = mergedTeam(team({"a"}), changed, changed);
    QCOMPARE(dump(merged), dump(changed));
}

void tst_teamMerge::namesThatOccurTwiceAreKeptApart()
{
    QCOMPARE(content(mergedTeam(team({"a", "a"}), team({"a", "a", "b"}), team({"a", "a!"}))),
             QStringList({"a", "a!", "b"}));
    QCOMPARE(content(mergedTeam(team({"a"}), team({"a"}), team({"a", "a"}))),
             QStringList({"a", "a"}));
}

void tst_teamMerge::theOrderIsMineAndTheirsFollows()
{
    QCOMPARE(content(mergedTeam(team({"a", "b"}), team({"b", "a", "c"}), team({"d", "a", "b"}))),
             QStringList({"b", "a", "c", "d"}));
}

void tst_teamMerge::mergingAgainAddsNothing()
{
    const VOColorSchemeTeam mine = team({"a!", "b"});
    const VOColorSchemeTeam merged = mergedTeam(team({"a"}), mine, team({"a!!", "c"}));
    // What was merged is on disk, what is mine was saved last.
    QCOMPARE(dump(mergedTeam(mine, mine, merged)), dump(merged));
}

void tst_teamMerge::missingSchemesAreAdded()
{
    VOColorSchemeTeam target = team({"a!"});
    VOColorSchemeTeam source = team({"a", "b"});
    source.groups.push_back(group("other", {"c"}));
    addMissing(target, source);
    QCOMPARE(content(target), QStringList({"a!", "b"}));
    QCOMPARE(content(target.groups[1]), QStringList({"c"}));
}

void tst_teamMerge::anUpgradeBringsWhatIsNew()
{
    TeamContent stored;
    stored.team = team({"a"});
    stored.extras.builtIns = builtInList(stored.team);
    VOColorSchemeTeam release = team({"a", "b"});
    release.groups.push_back(group("new", {"c"}));
    upgradeBuiltIns(stored, release);
    QCOMPARE(dump(stored.team), dump(release));
    QCOMPARE(stored.extras.builtIns.size(), std::size_t(3));
    // Deleted afterwards, it stays away.
    stored.team.groups[0].schemes.pop_back();
    upgradeBuiltIns(stored, release);
    QCOMPARE(content(stored.team), QStringList({"a"}));
}

void tst_teamMerge::anUpgradeKeepsEditsAndDeletions()
{
    TeamContent stored;
    stored.extras.builtIns = builtInList(team({"a", "b", "c"}));
    stored.team = team({"b!", "c", "d"}); // "a" was deleted, "b" edited, "d" is the user's own
    upgradeBuiltIns(stored, team({"a!!", "b!!", "c", "e"}));
    QCOMPARE(content(stored.team), QStringList({"b!", "c", "d", "e"}));
}

void tst_teamMerge::anUpgradeReplacesWhatNobodyTouched()
{
    TeamContent stored;
    stored.team = team({"a", "b"});
    stored.extras.builtIns = builtInList(stored.team);
    upgradeBuiltIns(stored, team({"a!", "b"}));
    QCOMPARE(content(stored.team), QStringList({"a!", "b"}));
    // And so again with the next release.
    upgradeBuiltIns(stored, team({"a!!", "b"}));
    QCOMPARE(content(stored.team), QStringList({"a!!", "b"}));
}

void tst_teamMerge::anUpgradeKeepsADeletedGroupAway()
{
    TeamContent stored;
    stored.extras.builtIns = builtInList(team({"a"}));
    upgradeBuiltIns(stored, team({"a", "b"}));
    QVERIFY(stored.team.groups.empty());
}

void tst_teamMerge::anUpgradeKeepsAUsersSchemeOfTheSameName()
{
    TeamContent stored;
    stored.extras.builtIns = builtInList(team({"a"}));
    stored.team = team({"a", "b!"});
    upgradeBuiltIns(stored, team({"a", "b"}));
    QCOMPARE(content(stored.team), QStringList({"a", "b!", "b_1"}));
    TeamContent same;
    same.extras.builtIns = builtInList(team({"a"}));
    same.team = team({"a", "b"});
    upgradeBuiltIns(same, team({"a", "b"}));
    QCOMPARE(content(same.team), QStringList({"a", "b"}));
}

void tst_teamMerge::anOlderReleaseDoesNotForgetWhatIsNewInANewer()
{
    TeamContent stored;
    stored.extras.builtIns = builtInList(team({"a", "b"}));
    stored.team = team({"a"}); // "b" came with the newer release and was deleted
    upgradeBuiltIns(stored, team({"a"}));
    upgradeBuiltIns(stored, team({"a", "b"}));
    QCOMPARE(content(stored.team), QStringList({"a"}));
}

VT_TEST_APPLESS_MAIN(tst_teamMerge)
#include "tst_teamMerge.moc"
