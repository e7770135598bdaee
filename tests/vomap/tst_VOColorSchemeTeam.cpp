#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeTeam.h"

#include <QObject>
#include <QtTest>

using namespace VTObjects;

class tst_VOColorSchemeTeam : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void findsTheFirstGroupOfAName();
    void anAbsentNameIsAtNoIndex();
    void copiesAreIndependent();
};

void tst_VOColorSchemeTeam::findsTheFirstGroupOfAName()
{
    VOColorSchemeTeam team;
    team.groups = {makeGroup("a", {}), makeGroup("b", {"first"}), makeGroup("b", {"second"})};
    QCOMPARE(team.index("a"), 0);
    QCOMPARE(team.index("b"), 1);
    QVERIFY(team.contains("a"));
    QVERIFY(team.contains("b"));
}

void tst_VOColorSchemeTeam::anAbsentNameIsAtNoIndex()
{
    VOColorSchemeTeam team;
    QCOMPARE(team.index(""), -1);
    QVERIFY(!team.contains(""));
    team.groups = {makeGroup("DEM", {})};
    QCOMPARE(team.index("dem"), -1);
    QVERIFY(!team.contains("dem"));
    QCOMPARE(team.index("Range"), -1);
}

void tst_VOColorSchemeTeam::copiesAreIndependent()
{
    VOColorSchemeTeam team;
    team.name = L"Custom";
    team.groups = {makeGroup("a", {"x", "y"}), makeGroup("b", {})};
    const QByteArray before = dump(team);
    {
        VOColorSchemeTeam copy(team);
        QCOMPARE(dump(copy), before);
        copy.groups[0].schemes.clear();
        copy.groups.erase(copy.groups.begin());
        VOColorSchemeTeam assigned;
        assigned = copy;
        QCOMPARE(dump(assigned), dump(copy));
    }
    QCOMPARE(dump(team), before);
    VOColorSchemeTeam moved(std::move(team));
    QCOMPARE(dump(moved), before);
    VOColorSchemeTeam target;
    target = std::move(moved);
    QCOMPARE(dump(target), before);
}

VT_TEST_APPLESS_MAIN(tst_VOColorSchemeTeam)
#include "tst_VOColorSchemeTeam.moc"
