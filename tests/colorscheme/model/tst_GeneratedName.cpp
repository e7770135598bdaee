#include "colorscheme/model/GeneratedName_p.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"

#include <QtTest>

using vtcontrolcolorscheme::GeneratedName;
using vtcontrolcolorscheme::makeAddSchemeName;

class tst_GeneratedName : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theNextNumberFollowsTheGreatest_data();
    void theNextNumberFollowsTheGreatest();
    void namesCanBeAddedBetweenTheQuestions();
    void aNewSchemeIsNumberedAmongTheGroupsSchemes();
};

void tst_GeneratedName::theNextNumberFollowsTheGreatest_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("next");
    QTest::newRow("no names") << QStringList() << QString("rename_1");
    QTest::newRow("other names") << QStringList{"a", "7"} << QString("rename_1");
    QTest::newRow("one") << QStringList{"rename_1"} << QString("rename_2");
    QTest::newRow("a gap stays") << QStringList{"rename_1", "rename_4"} << QString("rename_5");
    QTest::newRow("any order") << QStringList{"rename_9", "rename_2"} << QString("rename_10");
    QTest::newRow("no number") << QStringList{"rename_"} << QString("rename_1");
    QTest::newRow("no integer") << QStringList{"rename_x", "rename_1.5"} << QString("rename_1");
    QTest::newRow("zero") << QStringList{"rename_0"} << QString("rename_1");
    QTest::newRow("negative") << QStringList{"rename_-3"} << QString("rename_1");
    QTest::newRow("other case") << QStringList{"Rename_5"} << QString("rename_1");
    QTest::newRow("number in front") << QStringList{"6rename_"} << QString("rename_7");
    QTest::newRow("text twice") << QStringList{"rename_1rename_2"} << QString("rename_13");
    QTest::newRow("leading zeros") << QStringList{"rename_007"} << QString("rename_8");
    QTest::newRow("a great number")
        << QStringList{"rename_2147483647"} << QString("rename_2147483648");
    QTest::newRow("the greatest number")
        << QStringList{"rename_9223372036854775807"} << QString("rename_9223372036854775808");
    QTest::newRow("beyond all numbers")
        << QStringList{"rename_9223372036854775808"} << QString("rename_1");
}

void tst_GeneratedName::theNextNumberFollowsTheGreatest()
{
    QFETCH(QStringList, names);
    GeneratedName name(QStringLiteral("rename_"));
    for (const QString &taken : names)
        name.add(taken);
    QTEST(name.next(), "next");
}

void tst_GeneratedName::namesCanBeAddedBetweenTheQuestions()
{
    GeneratedName name(QStringLiteral("Custom group"));
    QCOMPARE(name.next(), QStringLiteral("Custom group1"));
    name.add(name.next());
    QCOMPARE(name.next(), QStringLiteral("Custom group2"));
    name.add(name.next());
    QCOMPARE(name.next(), QStringLiteral("Custom group3"));
}

void tst_GeneratedName::aNewSchemeIsNumberedAmongTheGroupsSchemes()
{
    QCOMPARE(makeAddSchemeName(makeGroup("g", {})), QStringLiteral("add_scheme1"));
    QCOMPARE(makeAddSchemeName(makeGroup("g", {"add_scheme1", "add_schemeX", "add_scheme7"})),
             QStringLiteral("add_scheme8"));
}

VT_TEST_GUILESS_MAIN(tst_GeneratedName)
#include "tst_GeneratedName.moc"
