#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOTeamKind.h"

#include <QtTest>

using namespace VTObjects;

class tst_VOTeamKind : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyTeamHasItsKeyAndItsNumber();
    void aKeyNamesItsTeamInAnyLetterCase_data();
    void aKeyNamesItsTeamInAnyLetterCase();
    void onlyThreeNumbersAreTeams();
    void theStoreGivesTheTeamOfAKind();
};

void tst_VOTeamKind::everyTeamHasItsKeyAndItsNumber()
{
    QStringList keys;
    QVector<int> numbers;
    for (const VOTeamKind kind : allTeams) {
        keys << teamKey(kind);
        numbers << kind;
    }
    QCOMPARE(keys, (QStringList{"Default", "Custom", "Favorite"}));
    QCOMPARE(numbers, (QVector<int>{0, 1, 2}));
}

void tst_VOTeamKind::aKeyNamesItsTeamInAnyLetterCase_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("kind");
    QTest::newRow("default") << QStringLiteral("Default") << int(DefaultTeam);
    QTest::newRow("default, small") << QStringLiteral("default") << int(DefaultTeam);
    QTest::newRow("custom, large") << QStringLiteral("CUSTOM") << int(CustomTeam);
    QTest::newRow("favorite") << QStringLiteral("Favorite") << int(FavoriteTeam);
    QTest::newRow("another text") << QStringLiteral("Mine") << int(FavoriteTeam);
    QTest::newRow("a blank more") << QStringLiteral("Default ") << int(FavoriteTeam);
    QTest::newRow("nothing") << QString() << int(FavoriteTeam);
}

void tst_VOTeamKind::aKeyNamesItsTeamInAnyLetterCase()
{
    QFETCH(QString, key);
    QTEST(int(teamKindOf(key)), "kind");
}

void tst_VOTeamKind::onlyThreeNumbersAreTeams()
{
    QVector<int> teams;
    for (int number = -2; number < 6; ++number) {
        if (isTeamKind(number))
            teams << number;
    }
    QCOMPARE(teams, (QVector<int>{0, 1, 2}));
}

void tst_VOTeamKind::theStoreGivesTheTeamOfAKind()
{
    const TestStore testStore;
    VOColorSchemeManager *store = VOColorSchemeManager::instance();
    QCOMPARE(&store->team(DefaultTeam), &store->defaultTeam);
    QCOMPARE(&store->team(CustomTeam), &store->customTeam);
    QCOMPARE(&store->team(FavoriteTeam), &store->favoriteTeam);
    const VOColorSchemeManager *constStore = store;
    QCOMPARE(&constStore->team(FavoriteTeam), &constStore->favoriteTeam);
}

VT_TEST_GUILESS_MAIN(tst_VOTeamKind)
#include "tst_VOTeamKind.moc"
