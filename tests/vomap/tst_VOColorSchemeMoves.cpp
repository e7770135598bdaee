#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOColorSchemeMoves.h"
#include "vomap/VOColorSchemeNotifier.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"

#include <QObject>
#include <QtTest>

#include <algorithm>
#include <memory>

using namespace VTObjects;

// Copies of the teams are edited as a manager does it, and the ids of schemes are looked for.
class tst_VOColorSchemeMoves : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void anUntouchedSchemeKeepsItsId();
    void aRenamedSchemeIsFound();
    void aMovedSchemeIsFoundInItsNewGroupAndTeam();
    void aSchemeThatIsGoneHasNoId();
    void aNewSchemeOfTheNameIsAnother();
    void oneOfSeveralOfANameIsTheSameOneAfterwards();
    void aGroupIsFoundWhereItStands();
    void theStoreHasNoMarksAfterwards();
    void aSecondEditingBeginsWhereTheFirstEnded();
    void aMarkFromElsewhereIsNone();

private:
    VOColorSchemeManager &manager() { return *VOColorSchemeManager::instance(); }
    VOColorSchemeGroup &group(std::size_t at) { return copies[CustomTeam].groups[at]; }
    VOColorSchemeId idOf(const char *scheme) const { return {L"Custom", L"one", scheme}; }
    // Writes the copies into the store and asks for a scheme meanwhile.
    QString moved(const VOColorSchemeId &was, int number = 0);

    std::unique_ptr<TestStore> store;
    VOColorSchemeMoves::Teams copies;
    std::unique_ptr<VOColorSchemeMoves> moves;
};

void tst_VOColorSchemeMoves::init()
{
    store = std::make_unique<TestStore>();
    manager().customTeam.groups = {makeGroup("one", {"a", "b", "c"}), makeGroup("two", {"x"})};
    manager().favoriteTeam.groups = {makeGroup("one", {"a"})};
    for (const VOTeamKind kind : allTeams)
        copies[kind] = manager().team(kind);
    moves = std::make_unique<VOColorSchemeMoves>(copies);
}

void tst_VOColorSchemeMoves::cleanup()
{
    moves.reset();
    store.reset();
}

QString tst_VOColorSchemeMoves::moved(const VOColorSchemeId &was, int number)
{
    QString now = "not told";
    QObject host;
    connect(VOColorSchemeNotifier::instance(), &VOColorSchemeNotifier::schemesMoved, &host,
            [&](const VOColorSchemeMoves &told) {
                int found = number;
                const VOColorSchemeId id = told.movedTo(was, found);
                now = id.toText() + (found > 0 ? QString("#%1").arg(found) : QString());
                if (number == 0 && told.movedTo(was) != id)
                    now = "differs";
                if (!id.isNull() && !manager().find(id))
                    now = "not in the store";
            });
    manager().takeEdited(copies, *moves);
    return now;
}

void tst_VOColorSchemeMoves::anUntouchedSchemeKeepsItsId()
{
    QCOMPARE(moved(idOf("b")), QString("Custom/one/b"));
    QCOMPARE(moved({L"Favorite", L"one", L"a"}), QString("Favorite/one/a"));
    const VOColorSchemeGroup &first = manager().defaultTeam.groups[0];
    const VOColorSchemeId builtIn{L"Default", first.name, first.schemes[1].name};
    QCOMPARE(moved(builtIn), builtIn.toText());
}

void tst_VOColorSchemeMoves::aRenamedSchemeIsFound()
{
    group(0).schemes[1].name = L"B";
    QCOMPARE(moved(idOf("b")), QString("Custom/one/B"));
    QVERIFY(manager().find(idOf("B")));
}

void tst_VOColorSchemeMoves::aMovedSchemeIsFoundInItsNewGroupAndTeam()
{
    std::rotate(group(0).schemes.begin(), group(0).schemes.begin() + 1, group(0).schemes.end());
    group(1).schemes.push_back(std::move(group(0).schemes[0]));
    group(0).schemes.erase(group(0).schemes.begin());
    QCOMPARE(moved(idOf("b")), QString("Custom/two/b"));
    copies[FavoriteTeam].groups[0].schemes.push_back(std::move(group(1).schemes.back()));
    group(1).schemes.pop_back();
    QCOMPARE(moved({L"Custom", L"two", L"b"}), QString("Favorite/one/b"));
}

void tst_VOColorSchemeMoves::aSchemeThatIsGoneHasNoId()
{
    group(0).schemes.erase(group(0).schemes.begin() + 1);
    QCOMPARE(moved(idOf("b")), QString());
    QCOMPARE(moved(idOf("never there")), QString());
    QCOMPARE(moved(VOColorSchemeId()), QString());
    copies[CustomTeam].groups.clear();
    QCOMPARE(moved(idOf("a")), QString());
}

void tst_VOColorSchemeMoves::aNewSchemeOfTheNameIsAnother()
{
    group(0).schemes[1] = makeScheme("b");
    group(0).schemes.push_back(makeScheme("a"));
    QCOMPARE(moved(idOf("b")), QString());
    // Two that changed their names.
    std::swap(group(0).schemes[0].name, group(0).schemes[2].name);
    QCOMPARE(moved(idOf("a")), QString("Custom/one/c"));
}

void tst_VOColorSchemeMoves::oneOfSeveralOfANameIsTheSameOneAfterwards()
{
    for (VOColorScheme &scheme : group(0).schemes)
        scheme.name = L"same";
    QCOMPARE(moved(idOf("c")), QString("Custom/one/same#2"));
    group(0).schemes.erase(group(0).schemes.begin());
    QCOMPARE(moved(idOf("same"), 2), QString("Custom/one/same#1"));
    group(0).schemes[1].name = L"c";
    QCOMPARE(moved(idOf("same"), 1), QString("Custom/one/c"));
    QCOMPARE(moved(idOf("same")), QString("Custom/one/same"));
    QCOMPARE(moved(idOf("same"), 1), QString());
}

void tst_VOColorSchemeMoves::aGroupIsFoundWhereItStands()
{
    copies[CustomTeam].groups.insert(copies[CustomTeam].groups.begin(), makeGroup("new", {}));
    group(2).name = L"renamed";
    copies[FavoriteTeam].groups.clear();
    moves->setEdited(copies);
    QCOMPARE(moves->groupMovedTo(CustomTeam, L"one"), 1);
    QCOMPARE(moves->groupMovedTo(CustomTeam, L"two"), 2);
    QCOMPARE(moves->groupMovedTo(CustomTeam, L"one", 1), -1);
    QCOMPARE(moves->groupMovedTo(CustomTeam, L"new"), -1);
    QCOMPARE(moves->groupMovedTo(FavoriteTeam, L"one"), -1);
    QCOMPARE(moves->groupMovedTo(DefaultTeam, manager().defaultTeam.groups[3].name), 3);
}

void tst_VOColorSchemeMoves::theStoreHasNoMarksAfterwards()
{
    QVERIFY(group(0).schemes[1].origin != 0);
    moved(VOColorSchemeId());
    for (const VOTeamKind kind : allTeams) {
        for (const VOColorSchemeGroup &group : manager().team(kind).groups) {
            QCOMPARE(group.origin, 0U);
            for (const VOColorScheme &scheme : group.schemes)
                QCOMPARE(scheme.origin, 0U);
        }
    }
}

void tst_VOColorSchemeMoves::aSecondEditingBeginsWhereTheFirstEnded()
{
    group(0).schemes[1].name = L"B";
    moved(VOColorSchemeId());
    QCOMPARE(moved(idOf("b")), QString());
    group(0).schemes[1].name = L"BB";
    QCOMPARE(moved(idOf("B")), QString("Custom/one/BB"));
}

// A host put a record here that it had copied out of another, larger editing.
void tst_VOColorSchemeMoves::aMarkFromElsewhereIsNone()
{
    constexpr std::uint32_t fromElsewhere = 4000000000U;
    group(0).schemes[0].origin = fromElsewhere;
    group(1).origin = fromElsewhere;
    QCOMPARE(moved(idOf("b")), QString("Custom/one/b"));
    QCOMPARE(moved(idOf("a")), QString());
    QCOMPARE(moved(idOf("b")), QString("Custom/one/b"));
}

VT_TEST_GUILESS_MAIN(tst_VOColorSchemeMoves)
#include "tst_VOColorSchemeMoves.moc"
