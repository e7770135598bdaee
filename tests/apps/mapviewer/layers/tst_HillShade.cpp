#include "apps/mapviewer/layers/HillShade.h"
#include "tests/support/TestMain.h"

#include <QtTest>

#include <cmath>
#include <limits>

using namespace mapviewer;

class tst_HillShade : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void flatGroundHasTheSineOfTheAltitude();
    void aPlaneMatchesTheHandComputedCosine_data();
    void aPlaneMatchesTheHandComputedCosine();
    void slopesWeighTheEightNeighbors();
    void exaggerationMultipliesTheSlope();
    void groundTurnedAwayIsBlack();
    void cellsWithoutValueHaveNoShade();
    void aNeighborWithoutValueCountsAsLevel();
    void edgesCountAsLevel();
    void degreesBecomeMeters();
    void exaggerationMakesTheMeanSlopeFifteenDegrees();
    void exaggerationStaysWithinItsLimits();
};

static const float noValue = std::numeric_limits<float>::quiet_NaN();

static AsciiGrid grid3x3(const std::vector<float> &values)
{
    AsciiGrid grid;
    grid.columns = grid.rows = 3;
    grid.west = grid.south = 1000.0;
    grid.values = values;
    return grid;
}

static double shade(const AsciiGrid &grid, const HillShadeLight &light)
{
    return hillShade(grid, {1.0, 1.0}, light)[4];
}

void tst_HillShade::flatGroundHasTheSineOfTheAltitude()
{
    const AsciiGrid flat = grid3x3(std::vector<float>(9, 7.0F));
    QVERIFY(std::abs(shade(flat, {315.0, 45.0, 1.0}) - 0.70711) < 1e-5);
    QVERIFY(std::abs(shade(flat, {0.0, 30.0, 1.0}) - 0.5) < 1e-5);
    QVERIFY(std::abs(shade(flat, {123.0, 90.0, 1.0}) - 1.0) < 1e-5);
}

void tst_HillShade::aPlaneMatchesTheHandComputedCosine_data()
{
    QTest::addColumn<double>("azimuth");
    QTest::addColumn<double>("cosine");
    // A plane that rises one in one towards the east has the normal (-1, 0, 1) / sqrt 2. Light at
    // 45 degrees from the west is (-1, 0, 1) / sqrt 2 as well, from the east (1, 0, 1) / sqrt 2,
    // from north and south (0, +-1, 1) / sqrt 2.
    QTest::newRow("from the west") << 270.0 << 1.0;
    QTest::newRow("from the east") << 90.0 << 0.0;
    QTest::newRow("from the north") << 0.0 << 0.5;
    QTest::newRow("from the south") << 180.0 << 0.5;
    // (-1/2, 1/2, 1 / sqrt 2) times (-1, 0, 1) / sqrt 2
    QTest::newRow("from the north-west") << 315.0 << 0.5 / std::sqrt(2.0) + 0.5;
}

void tst_HillShade::aPlaneMatchesTheHandComputedCosine()
{
    QFETCH(double, azimuth);
    QFETCH(double, cosine);
    const AsciiGrid eastward = grid3x3({0, 1, 2, 0, 1, 2, 0, 1, 2});
    const double found = shade(eastward, {azimuth, 45.0, 1.0});
    QVERIFY2(std::abs(found - cosine) < 1e-5, qPrintable(QString::number(found)));
    // The same plane, turned by a quarter: it rises towards the north.
    const AsciiGrid northward = grid3x3({2, 2, 2, 1, 1, 1, 0, 0, 0});
    QVERIFY(std::abs(shade(northward, {azimuth - 90.0, 45.0, 1.0}) - cosine) < 1e-5);
}

void tst_HillShade::slopesWeighTheEightNeighbors()
{
    // Only the eastern neighbour is higher, by 4: slope 2 * 4 / 8 = 1. Only a corner: 4 / 8 both
    // ways.
    const HillShadeLight west{270.0, 45.0, 1.0};
    QVERIFY(std::abs(shade(grid3x3({0, 0, 0, 0, 0, 4, 0, 0, 0}), west) - 1.0) < 1e-5);
    const double corner = (0.5 / std::sqrt(2.0) + 1.0 / std::sqrt(2.0)) / std::sqrt(1.5);
    QVERIFY(std::abs(shade(grid3x3({0, 0, 4, 0, 0, 0, 0, 0, 0}), west) - corner) < 1e-5);
}

void tst_HillShade::exaggerationMultipliesTheSlope()
{
    const AsciiGrid gentle = grid3x3({0, 0.25F, 0.5F, 0, 0.25F, 0.5F, 0, 0.25F, 0.5F});
    QVERIFY(std::abs(shade(gentle, {270.0, 45.0, 4.0}) - 1.0) < 1e-5);
}

void tst_HillShade::groundTurnedAwayIsBlack()
{
    QCOMPARE(shade(grid3x3({0, 9, 18, 0, 9, 18, 0, 9, 18}), {90.0, 45.0, 1.0}), 0.0);
}

void tst_HillShade::cellsWithoutValueHaveNoShade()
{
    const std::vector<float> shades =
        hillShade(grid3x3({0, 0, 0, 0, noValue, 0, 0, 0, 0}), {1.0, 1.0}, {});
    QVERIFY(std::isnan(shades[4]));
    QVERIFY(!std::isnan(shades[3]));
}

void tst_HillShade::aNeighborWithoutValueCountsAsLevel()
{
    const HillShadeLight west{270.0, 45.0, 1.0};
    QCOMPARE(shade(grid3x3({0, 0, 0, 0, 0, noValue, 0, 0, 0}), west),
             shade(grid3x3(std::vector<float>(9, 0.0F)), west));
}

void tst_HillShade::edgesCountAsLevel()
{
    AsciiGrid one;
    one.columns = one.rows = 1;
    one.values = {5.0F};
    const std::vector<float> shades = hillShade(one, {1.0, 1.0}, {315.0, 45.0, 1.0});
    QVERIFY(std::abs(double(shades[0]) - 0.70711) < 1e-5);
}

void tst_HillShade::degreesBecomeMeters()
{
    AsciiGrid grid;
    grid.columns = grid.rows = 2;
    grid.west = 10.0;
    grid.south = 59.0;
    grid.cellSize = 1.0;
    QVERIFY(std::abs(cellLengths(grid).y - 111320.0) < 1e-6);
    QVERIFY(std::abs(cellLengths(grid).x - 55660.0) < 1e-6); // cos 60 degrees
    grid.west = 400000.0;
    grid.cellSize = 25.0;
    QCOMPARE(cellLengths(grid).x, 25.0);
    QCOMPARE(cellLengths(grid).y, 25.0);
}

void tst_HillShade::exaggerationMakesTheMeanSlopeFifteenDegrees()
{
    // Inner cells rise by 0.1, those of the two edges count as half as steep: mean 0.08.
    AsciiGrid grid;
    grid.columns = 5;
    grid.rows = 1;
    grid.west = 1000.0;
    grid.values = {0.0F, 0.1F, 0.2F, 0.3F, 0.4F};
    // With one row the two missing rows count as level, which leaves half of the weight.
    const double mean = (0.1 * 3 + 0.05 * 2) / 5 / 2;
    const double wanted = std::tan(15.0 * 3.14159265358979 / 180.0) / mean;
    QVERIFY(std::abs(readableExaggeration(grid, {1.0, 1.0}) - wanted) < 1e-4);
}

void tst_HillShade::exaggerationStaysWithinItsLimits()
{
    QCOMPARE(readableExaggeration(grid3x3(std::vector<float>(9, 1.0F)), {1.0, 1.0}), 1.0);
    QCOMPARE(readableExaggeration(grid3x3({0, 9, 18, 0, 9, 18, 0, 9, 18}), {1.0, 1.0}), 1.0);
    QCOMPARE(readableExaggeration(grid3x3({0, 1, 2, 0, 1, 2, 0, 1, 2}), {1e6, 1e6}), 20.0);
}

VT_TEST_APPLESS_MAIN(tst_HillShade)
#include "tst_HillShade.moc"
