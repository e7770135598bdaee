#include "vomap/VOColorRamp.h"
#include "vomap/store/builtInSchemes_p.h"

#include <QtTest>

using namespace VTObjects;

class tst_builtInGroup : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aDamagedFileGivesNoGroup_data();
    void aDamagedFileGivesNoGroup();
};

void tst_builtInGroup::aDamagedFileGivesNoGroup_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::newRow("no JSON") << QByteArray("{\"group\"") << QByteArray("{group");
    QTest::newRow("no group name") << QByteArray("\"group\"") << QByteArray("\"grp\"");
    QTest::newRow("no schemes") << QByteArray("\"schemes\"") << QByteArray("\"scheme\"");
    QTest::newRow("no name") << QByteArray("\"First\"") << QByteArray("\"\"");
    QTest::newRow("a name twice") << QByteArray("\"Second\"") << QByteArray("\"First\"");
    QTest::newRow("no author") << QByteArray("\"A\"") << QByteArray("1");
    QTest::newRow("no description") << QByteArray("\"D\"") << QByteArray("null");
    QTest::newRow("unknown kind") << QByteArray("\"even\"") << QByteArray("\"odd\"");
    QTest::newRow("no level") << QByteArray("\"level\": 3") << QByteArray("\"level\": \"3\"");
    QTest::newRow("broken level") << QByteArray("\"level\": 3") << QByteArray("\"level\": 3.5");
    QTest::newRow("level 1") << QByteArray("\"level\": 3") << QByteArray("\"level\": 1");
    QTest::newRow("level 257") << QByteArray("\"level\": 3") << QByteArray("\"level\": 257");
    QTest::newRow("one source") << QByteArray("\"#000000\", ") << QByteArray();
    QTest::newRow("no hash") << QByteArray("#000000") << QByteArray("0000000");
    QTest::newRow("short colour") << QByteArray("#000000") << QByteArray("#00000");
    QTest::newRow("no colour") << QByteArray("#000000") << QByteArray("#00000g");
    QTest::newRow("fewer colours than the level")
        << QByteArray("\"level\": 2") << QByteArray("\"level\": 3");
    QTest::newRow("a colour misspelt") << QByteArray("#405060") << QByteArray("405060");
    QTest::newRow("no seed") << QByteArray("\"seed\": 7") << QByteArray("\"sead\": 7");
    QTest::newRow("one bound") << QByteArray("[0, 360]") << QByteArray("[360]");
    QTest::newRow("three bounds") << QByteArray("[0, 360]") << QByteArray("[0, 360, 360]");
    QTest::newRow("hue 721") << QByteArray("[0, 360]") << QByteArray("[0, 721]");
    QTest::newRow("saturation 101") << QByteArray("[20, 45]") << QByteArray("[20, 101]");
    QTest::newRow("value below 0") << QByteArray("[85, 100]") << QByteArray("[-1, 100]");
}

void tst_builtInGroup::aDamagedFileGivesNoGroup()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    const QByteArray good =
        "{\"group\": \"G\", \"schemes\": ["
        "{\"name\": \"First\", \"author\": \"A\", \"description\": \"D\", \"kind\": \"even\","
        " \"level\": 3, \"sources\": [\"#000000\", \"#ffffff\"]},"
        "{\"name\": \"Third\", \"author\": \"C\", \"description\": \"F\", \"kind\": \"random\","
        " \"level\": 2, \"seed\": 1, \"colours\": [\"#102030\", \"#405060\"]},"
        "{\"name\": \"Second\", \"author\": \"B\", \"description\": \"E\", \"kind\": "
        "\"random-hsv\","
        " \"level\": 4, \"seed\": 7, \"hue\": [0, 360], \"saturation\": [20, 45],"
        " \"value\": [85, 100]}]}";
    const auto group = builtInGroup(good);
    QVERIFY(group.has_value());
    QCOMPARE(group->schemes.size(), size_t(3));
    QCOMPARE(group->schemes[0].colorRamp->getLevel(), 3U);
    QCOMPARE(group->schemes[1].colorRamp->getLevel(), 2U);
    QCOMPARE(group->schemes[1].colorRamp->getColor(1).green, 80.0F);
    QCOMPARE(group->schemes[2].colorRamp->getLevel(), 4U);

    QByteArray damaged = good;
    damaged.replace(from, to);
    QVERIFY(damaged != good);
    QVERIFY(!builtInGroup(damaged).has_value());
}

QTEST_GUILESS_MAIN(tst_builtInGroup)
#include "tst_builtInGroup.moc"
