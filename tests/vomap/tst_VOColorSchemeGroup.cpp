#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeGroup.h"

#include <QObject>
#include <QtTest>

using namespace VTObjects;

class tst_VOColorSchemeGroup : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void containsItsSchemesByExactName();
    void aSchemeMayTakeEveryNameThatNoOtherBears_data();
    void aSchemeMayTakeEveryNameThatNoOtherBears();
    void destroyingACopyLeavesTheOriginalIntact();
    void copiesAndMovesKeepEverySchemeInOrder();
};

void tst_VOColorSchemeGroup::containsItsSchemesByExactName()
{
    const VOColorSchemeGroup group = makeGroup("group", {"Red", "Blue"});
    QVERIFY(group.contains("Red"));
    QVERIFY(group.contains("Blue"));
    QVERIFY(!group.contains("red"));
    QVERIFY(!group.contains("Red "));
    QVERIFY(!group.contains(""));
    QVERIFY(!VOColorSchemeGroup().contains(""));
}

void tst_VOColorSchemeGroup::aSchemeMayTakeEveryNameThatNoOtherBears_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("allowed");
    QTest::newRow("its own name") << 0 << "Red" << true;
    QTest::newRow("a free name") << 0 << "Green" << true;
    QTest::newRow("another's name") << 0 << "Blue" << false;
    QTest::newRow("another's name in other letters") << 0 << "blue" << true;
    QTest::newRow("a name that it shares already") << 2 << "Blue" << false;
    QTest::newRow("no scheme, taken name") << -1 << "Red" << false;
    QTest::newRow("past the end, taken name") << 3 << "Red" << false;
    QTest::newRow("no scheme, free name") << -1 << "Green" << true;
}

void tst_VOColorSchemeGroup::aSchemeMayTakeEveryNameThatNoOtherBears()
{
    QFETCH(int, index);
    QFETCH(QString, name);
    QFETCH(bool, allowed);
    const VOColorSchemeGroup group = makeGroup("group", {"Red", "Blue", "Blue"});
    QCOMPARE(group.schemeNameChangeCheck(index, VOString(name.toStdWString())), allowed);
}

void tst_VOColorSchemeGroup::destroyingACopyLeavesTheOriginalIntact()
{
    const VOColorSchemeGroup group = makeGroup("group", {"Red", "Blue"});
    const QByteArray before = dump(group);
    {
        VOColorSchemeGroup copy = group;
        copy.schemes[0].colorRamp->deleteAll();
        copy.schemes.erase(copy.schemes.begin());
    }
    QCOMPARE(dump(group), before);
}

void tst_VOColorSchemeGroup::copiesAndMovesKeepEverySchemeInOrder()
{
    VOColorSchemeGroup group = makeGroup("group", {"c", "a", "b"});
    group.unknownFields = std::make_shared<const std::string>("later");
    const QByteArray before = dump(group);
    VOColorSchemeGroup copy(group);
    QCOMPARE(dump(copy), before);
    QCOMPARE(*copy.unknownFields, std::string("later"));
    VOColorSchemeGroup moved(std::move(copy));
    QCOMPARE(dump(moved), before);
    VOColorSchemeGroup assigned;
    assigned = std::move(moved);
    QCOMPARE(dump(assigned), before);
    QCOMPARE(schemeNames(assigned), QStringList({"c", "a", "b"}));
}

VT_TEST_APPLESS_MAIN(tst_VOColorSchemeGroup)
#include "tst_VOColorSchemeGroup.moc"
