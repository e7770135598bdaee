#include "tests/support/ColorJudge.h"
#include "tests/support/TestMain.h"

#include <QtTest>

#include <cmath>

using ColorJudge::Triple;
Q_DECLARE_METATYPE(ColorJudge::Triple)

class tst_ColorJudge : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theDifferenceMatchesThePublishedPairs_data();
    void theDifferenceMatchesThePublishedPairs();
    void whiteAndBlackHaveTheirPlaces();
    void graysLookTheSameInEveryVision();
    void aDichromatSeesNoMoreInWhatIsLeft();
    void confusedColorsFallTogether_data();
    void confusedColorsFallTogether();
};

void tst_ColorJudge::theDifferenceMatchesThePublishedPairs_data()
{
    QTest::addColumn<Triple>("first");
    QTest::addColumn<Triple>("second");
    QTest::addColumn<double>("expected");
    struct Pair
    {
        Triple first;
        Triple second;
        double expected;
    };
    // Sharma, Wu and Dalal 2005, table 1
    const Pair pairs[] = {
        {{50.0000, 2.6772, -79.7751}, {50.0000, 0.0000, -82.7485}, 2.0425},
        {{50.0000, 3.1571, -77.2803}, {50.0000, 0.0000, -82.7485}, 2.8615},
        {{50.0000, 2.8361, -74.0200}, {50.0000, 0.0000, -82.7485}, 3.4412},
        {{50.0000, -1.3802, -84.2814}, {50.0000, 0.0000, -82.7485}, 1.0000},
        {{50.0000, -1.1848, -84.8006}, {50.0000, 0.0000, -82.7485}, 1.0000},
        {{50.0000, -0.9009, -85.5211}, {50.0000, 0.0000, -82.7485}, 1.0000},
        {{50.0000, 0.0000, 0.0000}, {50.0000, -1.0000, 2.0000}, 2.3669},
        {{50.0000, -1.0000, 2.0000}, {50.0000, 0.0000, 0.0000}, 2.3669},
        {{50.0000, 2.4900, -0.0010}, {50.0000, -2.4900, 0.0009}, 7.1792},
        {{50.0000, 2.4900, -0.0010}, {50.0000, -2.4900, 0.0010}, 7.1792},
        {{50.0000, 2.4900, -0.0010}, {50.0000, -2.4900, 0.0011}, 7.2195},
        {{50.0000, 2.4900, -0.0010}, {50.0000, -2.4900, 0.0012}, 7.2195},
        {{50.0000, -0.0010, 2.4900}, {50.0000, 0.0009, -2.4900}, 4.8045},
        {{50.0000, -0.0010, 2.4900}, {50.0000, 0.0010, -2.4900}, 4.8045},
        {{50.0000, -0.0010, 2.4900}, {50.0000, 0.0011, -2.4900}, 4.7461},
        {{50.0000, 2.5000, 0.0000}, {50.0000, 0.0000, -2.5000}, 4.3065},
        {{50.0000, 2.5000, 0.0000}, {73.0000, 25.0000, -18.0000}, 27.1492},
        {{50.0000, 2.5000, 0.0000}, {61.0000, -5.0000, 29.0000}, 22.8977},
        {{50.0000, 2.5000, 0.0000}, {56.0000, -27.0000, -3.0000}, 31.9030},
        {{50.0000, 2.5000, 0.0000}, {58.0000, 24.0000, 15.0000}, 19.4535},
        {{50.0000, 2.5000, 0.0000}, {50.0000, 3.1736, 0.5854}, 1.0000},
        {{50.0000, 2.5000, 0.0000}, {50.0000, 3.2972, 0.0000}, 1.0000},
        {{50.0000, 2.5000, 0.0000}, {50.0000, 1.8634, 0.5757}, 1.0000},
        {{50.0000, 2.5000, 0.0000}, {50.0000, 3.2592, 0.3350}, 1.0000},
        {{60.2574, -34.0099, 36.2677}, {60.4626, -34.1751, 39.4387}, 1.2644},
        {{63.0109, -31.0961, -5.8663}, {62.8187, -29.7946, -4.0864}, 1.2630},
        {{61.2901, 3.7196, -5.3901}, {61.4292, 2.2480, -4.9620}, 1.8731},
        {{35.0831, -44.1164, 3.7933}, {35.0232, -40.0716, 1.5901}, 1.8645},
        {{22.7233, 20.0904, -46.6940}, {23.0331, 14.9730, -42.5619}, 2.0373},
        {{36.4612, 47.8580, 18.3852}, {36.2715, 50.5065, 21.2231}, 1.4146},
        {{90.8027, -2.0831, 1.4410}, {91.1528, -1.6435, 0.0447}, 1.4441},
        {{90.9257, -0.5406, -0.9208}, {88.6381, -0.8985, -0.7239}, 1.5381},
        {{6.7747, -0.2908, -2.4247}, {5.8714, -0.0985, -2.2286}, 0.6377},
        {{2.0776, 0.0795, -1.1350}, {0.9033, -0.0636, -0.5514}, 0.9082},
    };
    int number = 0;
    for (const Pair &pair : pairs)
        QTest::addRow("pair %d", ++number) << pair.first << pair.second << pair.expected;
    QCOMPARE(number, 34);
}

void tst_ColorJudge::theDifferenceMatchesThePublishedPairs()
{
    QFETCH(Triple, first);
    QFETCH(Triple, second);
    QFETCH(double, expected);
    QVERIFY(std::fabs(ColorJudge::difference(first, second) - expected) < 0.00005);
    QVERIFY(std::fabs(ColorJudge::difference(second, first) - expected) < 0.00005);
}

void tst_ColorJudge::whiteAndBlackHaveTheirPlaces()
{
    const Triple white = ColorJudge::labSeenBy(ColorJudge::NormalVision, {255.0, 255.0, 255.0});
    QVERIFY(std::fabs(white[0] - 100.0) < 1e-4);
    QVERIFY(std::hypot(white[1], white[2]) < 1e-2);
    const Triple black = ColorJudge::labSeenBy(ColorJudge::NormalVision, {0.0, 0.0, 0.0});
    QVERIFY(std::fabs(black[0]) < 1e-9);
    // sRGB's primaries in CIE L*a*b* for D65
    const Triple red = ColorJudge::labSeenBy(ColorJudge::NormalVision, {255.0, 0.0, 0.0});
    QVERIFY(std::fabs(red[0] - 53.24) < 0.01);
    QVERIFY(std::fabs(red[1] - 80.09) < 0.02);
    QVERIFY(std::fabs(red[2] - 67.20) < 0.02);
}

void tst_ColorJudge::graysLookTheSameInEveryVision()
{
    for (double gray = 0.0; gray <= 255.0; gray += 15.0) {
        const Triple normal = ColorJudge::labSeenBy(ColorJudge::NormalVision, {gray, gray, gray});
        for (int vision = ColorJudge::ProtanVision; vision < ColorJudge::VisionCount; ++vision) {
            const Triple seen =
                ColorJudge::labSeenBy(static_cast<ColorJudge::Vision>(vision), {gray, gray, gray});
            QVERIFY(ColorJudge::difference(normal, seen) < 0.01);
        }
    }
}

void tst_ColorJudge::aDichromatSeesNoMoreInWhatIsLeft()
{
    // Tritan vision is a projection: seeing the picture of a colour gives that picture again.
    for (int bits = 0; bits < 512; ++bits) {
        const Triple light = {(bits & 7) / 7.0, (bits >> 3 & 7) / 7.0, (bits >> 6 & 7) / 7.0};
        const Triple once = ColorJudge::seenUncutBy(ColorJudge::TritanVision, light);
        const Triple twice = ColorJudge::seenUncutBy(ColorJudge::TritanVision, once);
        for (std::size_t i = 0; i < once.size(); ++i)
            QVERIFY(std::fabs(once[i] - twice[i]) < 2e-5);
    }
}

void tst_ColorJudge::confusedColorsFallTogether_data()
{
    QTest::addColumn<int>("vision");
    QTest::addColumn<Triple>("first");
    QTest::addColumn<Triple>("second");
    QTest::newRow("protan: red and dark olive")
        << int(ColorJudge::ProtanVision) << Triple{200.0, 30.0, 30.0} << Triple{95.0, 80.0, 20.0};
    QTest::newRow("deutan: orange and green")
        << int(ColorJudge::DeutanVision) << Triple{190.0, 110.0, 30.0}
        << Triple{100.0, 150.0, 30.0};
    QTest::newRow("tritan: blue and teal")
        << int(ColorJudge::TritanVision) << Triple{30.0, 110.0, 160.0}
        << Triple{20.0, 115.0, 105.0};
}

void tst_ColorJudge::confusedColorsFallTogether()
{
    QFETCH(int, vision);
    QFETCH(Triple, first);
    QFETCH(Triple, second);
    const auto apart = [&](ColorJudge::Vision eye) {
        return ColorJudge::difference(ColorJudge::labSeenBy(eye, first),
                                      ColorJudge::labSeenBy(eye, second));
    };
    QVERIFY(apart(static_cast<ColorJudge::Vision>(vision)) * 2.0 < apart(ColorJudge::NormalVision));
}

VT_TEST_GUILESS_MAIN(tst_ColorJudge)
#include "tst_ColorJudge.moc"
