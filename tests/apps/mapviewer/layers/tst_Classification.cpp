#include "apps/mapviewer/layers/Classification.h"
#include "tests/support/TestMain.h"

#include <QtTest>

#include <cmath>
#include <limits>

using namespace mapviewer;

using Numbers = std::vector<double>;

class tst_Classification : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void equalIntervalsHaveOneWidth();
    void equalIntervalsEndExactlyAtTheGreatest();
    void oneValueIsOneClass();
    void nothingToClassGivesNoClass();
    void quantilesOfTenNumbers();
    void quantilesKeepEqualValuesTogether_data();
    void quantilesKeepEqualValuesTogether();
    void quantilesLeaveNaNOut();
    void moreClassesThanValues();
    void aBoundBelongsToTheClassAboveIt();
    void uniqueValuesAreSortedNumbersFirst();
    void unknownAndInvalidValuesHaveNoClass();
};

static const double noValue = std::numeric_limits<double>::quiet_NaN();

void tst_Classification::equalIntervalsHaveOneWidth()
{
    QCOMPARE(equalIntervals(0, 10, 4).bounds, Numbers({0, 2.5, 5, 7.5, 10}));
    QCOMPARE(equalIntervals(-6, 6, 3).count(), 3);
}

void tst_Classification::equalIntervalsEndExactlyAtTheGreatest()
{
    // 0.7 / 7 * 7 is not 0.7.
    const ClassBreaks breaks = equalIntervals(0.0, 0.7, 7);
    QVERIFY(breaks.bounds.back() == 0.7);
    QCOMPARE(breaks.classOf(0.7), 6);
}

void tst_Classification::oneValueIsOneClass()
{
    for (const ClassBreaks &breaks : {equalIntervals(5, 5, 4), quantiles({5, 5, 5}, 4)}) {
        QCOMPARE(breaks.count(), 1);
        QCOMPARE(breaks.classOf(5), 0);
        QCOMPARE(breaks.classOf(4.9), -1);
    }
}

void tst_Classification::nothingToClassGivesNoClass()
{
    for (const ClassBreaks &breaks :
         {equalIntervals(noValue, noValue, 3), equalIntervals(0, 1, 0), quantiles({}, 3),
          quantiles({noValue}, 3), quantiles({1, 2}, 0), ClassBreaks()}) {
        QCOMPARE(breaks.count(), 0);
        QCOMPARE(breaks.classOf(1), -1);
        QVERIFY(breaks.counts({1, 2}).empty());
    }
}

void tst_Classification::quantilesOfTenNumbers()
{
    const Numbers values = {10, 1, 9, 2, 8, 3, 7, 4, 6, 5};
    const ClassBreaks breaks = quantiles(values, 5);
    QCOMPARE(breaks.bounds, Numbers({1, 3, 5, 7, 9, 10}));
    QCOMPARE(breaks.counts(values), std::vector<int>({2, 2, 2, 2, 2}));
    // 10 into 3: floor(10 / 3) = 3 and floor(20 / 3) = 6.
    QCOMPARE(quantiles(values, 3).bounds, Numbers({1, 4, 7, 10}));
    QCOMPARE(quantiles(values, 3).counts(values), std::vector<int>({3, 3, 4}));
}

void tst_Classification::quantilesKeepEqualValuesTogether_data()
{
    QTest::addColumn<Numbers>("values");
    QTest::addColumn<int>("count");
    QTest::addColumn<Numbers>("bounds");
    QTest::addColumn<std::vector<int>>("counts");
    QTest::newRow("ties at the bottom")
        << Numbers{1, 1, 1, 1, 2, 3} << 3 << Numbers{1, 2, 3} << std::vector<int>{4, 2};
    QTest::newRow("ties at the top")
        << Numbers{0, 0, 1, 1} << 2 << Numbers{0, 1, 1} << std::vector<int>{2, 2};
    QTest::newRow("ties in the middle")
        << Numbers{1, 5, 5, 5, 5, 9} << 3 << Numbers{1, 5, 9} << std::vector<int>{1, 5};
}

void tst_Classification::quantilesKeepEqualValuesTogether()
{
    QFETCH(Numbers, values);
    QFETCH(int, count);
    QFETCH(Numbers, bounds);
    QFETCH(std::vector<int>, counts);
    const ClassBreaks breaks = quantiles(values, count);
    QCOMPARE(breaks.bounds, bounds);
    QCOMPARE(breaks.counts(values), counts);
}

void tst_Classification::quantilesLeaveNaNOut()
{
    const ClassBreaks breaks = quantiles({noValue, 1, noValue, 2}, 2);
    QCOMPARE(breaks.bounds, Numbers({1, 2, 2}));
    QCOMPARE(breaks.classOf(noValue), -1);
    QCOMPARE(breaks.counts({noValue, 1, 2}), std::vector<int>({1, 1}));
}

void tst_Classification::moreClassesThanValues()
{
    const ClassBreaks breaks = quantiles({1, 2}, 5);
    QCOMPARE(breaks.bounds, Numbers({1, 2, 2}));
}

void tst_Classification::aBoundBelongsToTheClassAboveIt()
{
    const ClassBreaks breaks = equalIntervals(0, 10, 2);
    QCOMPARE(breaks.classOf(0), 0);
    QCOMPARE(breaks.classOf(4.999), 0);
    QCOMPARE(breaks.classOf(5), 1);
    QCOMPARE(breaks.classOf(10), 1);
    QCOMPARE(breaks.classOf(10.001), -1);
    QCOMPARE(breaks.classOf(-0.001), -1);
}

void tst_Classification::uniqueValuesAreSortedNumbersFirst()
{
    const UniqueValues unique({QVariant("b"), QVariant(10.0), QVariant(), QVariant("a"),
                               QVariant(9.0), QVariant("b"), QVariant(10.0)});
    QCOMPARE(unique.values,
             std::vector<QVariant>({QVariant(9.0), QVariant(10.0), QVariant("a"), QVariant("b")}));
    QCOMPARE(unique.classOf(QVariant("b")), 3);
    QCOMPARE(unique.classOf(QVariant(9.0)), 0);
}

void tst_Classification::unknownAndInvalidValuesHaveNoClass()
{
    const UniqueValues unique({QVariant("a"), QVariant("c")});
    QCOMPARE(unique.classOf(QVariant("b")), -1);
    QCOMPARE(unique.classOf(QVariant("d")), -1);
    QCOMPARE(unique.classOf(QVariant()), -1);
    QCOMPARE(unique.classOf(QVariant(1.0)), -1);
    QCOMPARE(UniqueValues().count(), 0);
}

VT_TEST_APPLESS_MAIN(tst_Classification)
#include "tst_Classification.moc"
