#include "tests/support/TestMain.h"
#include "tests/support/mapFixtures.h"

#include "apps/mapviewer/layers/GridLayer.h"
#include "apps/mapviewer/layers/RampColors.h"

#include <QtTest>

#include <cmath>
#include <limits>

using namespace mapviewer;

class tst_GridLayer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void continuousRampRunsFromSmallestToGreatest();
    void anotherRampRecolorsAtOnce();
    void theLayerKeepsNoPointerToTheRamp();
    void withoutARampAllIsGray();
    void cellsWithoutValueAreTransparent();
    void zeroInTheMiddleSplitsTheRamp();
    void theShoreIsSharp();
    void onlyAGridAcrossZeroHasItInTheMiddle();
    void equalIntervalsColorClasses();
    void quantilesColorClasses();
    void classCountIsCut();
    void uniqueValuesAreNotForGrids();
    void hillShadingKeepsFlatGroundAndDarkensSlopes();
    void continuousLegendHasRoundNumbers();
    void classLegendHasTheHighestClassOnTop();
    void aGridWithoutValuesSaysSo();
    void readingGivesValueUnitAndLegendColor();
    void paintsEachCellWhereItLies();
    void paintsTheSeenPartWhenFarIn();
    void aCoastRunsWhereTheHeightIsZero();
    void gapsKeepTheEdgesOfTheirCells();
    void aConstantGridHasItsValueInTheLegend_data();
    void aConstantGridHasItsValueInTheLegend();
};

static const float noValue = std::numeric_limits<float>::quiet_NaN();
static const QRgb black = qRgb(0, 0, 0);
static const QRgb white = qRgb(255, 255, 255);
static const QRgb red = qRgb(200, 0, 0);
static const QRgb blue = qRgb(0, 0, 200);
static const QRgb green = qRgb(0, 160, 0);

static QVector<QRgb> row(const GridLayer &layer)
{
    const QImage cells = layer.cells();
    QVector<QRgb> colors;
    for (int x = 0; x < cells.width(); ++x)
        colors.append(cells.pixel(x, 0));
    return colors;
}

void tst_GridLayer::continuousRampRunsFromSmallestToGreatest()
{
    GridLayer layer("g", gridOf(3, 1, {10, 20, 30}), {});
    layer.setRamp(rampOf({red, white, blue}).get());
    const QVector<QRgb> colors = row(layer);
    QCOMPARE(colors.first(), red);
    QCOMPARE(colors.last(), blue);
    // The stretched ramp has an even number of steps: the middle is one step off.
    QVERIFY(qAbs(qRed(colors.at(1)) - 255) <= 1 && qAbs(qBlue(colors.at(1)) - 255) <= 1);
}

void tst_GridLayer::anotherRampRecolorsAtOnce()
{
    GridLayer layer("g", gridOf(2, 1, {0, 1}), {});
    layer.setRamp(rampOf({red, white}).get());
    QCOMPARE(row(layer), QVector<QRgb>({red, white}));
    layer.setRamp(rampOf({blue, black}).get());
    QCOMPARE(row(layer), QVector<QRgb>({blue, black}));
}

void tst_GridLayer::theLayerKeepsNoPointerToTheRamp()
{
    GridLayer layer("g", gridOf(2, 1, {0, 1}), {});
    auto ramp = rampOf({red, white});
    layer.setRamp(ramp.get());
    ramp->setColor(0, VTObjects::rgb_color<float>(1.0F, 1.0F, 1.0F));
    ramp.reset();
    layer.setClassCount(5);
    QCOMPARE(row(layer), QVector<QRgb>({red, white}));
}

void tst_GridLayer::withoutARampAllIsGray()
{
    GridLayer layer("g", gridOf(2, 1, {0, 1}), {});
    QCOMPARE(row(layer), QVector<QRgb>({noValueColor, noValueColor}));
    layer.setRamp(rampOf({red, white}).get());
    layer.setRamp(nullptr);
    QCOMPARE(row(layer), QVector<QRgb>({noValueColor, noValueColor}));
    layer.setRamp(rampOf({}).get());
    layer.setClassificationMethod(ClassificationMethod::Quantiles);
    QCOMPARE(row(layer), QVector<QRgb>({noValueColor, noValueColor}));
}

void tst_GridLayer::cellsWithoutValueAreTransparent()
{
    GridLayer layer("g", gridOf(3, 1, {0, noValue, 1}), {});
    layer.setRamp(rampOf({red, white}).get());
    QCOMPARE(row(layer), QVector<QRgb>({red, qRgba(0, 0, 0, 0), white}));
    layer.setHillShading(true);
    QCOMPARE(qAlpha(row(layer).at(1)), 0);
}

void tst_GridLayer::zeroInTheMiddleSplitsTheRamp()
{
    // Given a grid that goes ten times as far down as up
    GridLayer layer("g", gridOf(5, 1, {-100, -50, 0, 5, 10}), {});
    layer.setRamp(rampOf({black, red, white}).get());
    QVERIFY(layer.crossesZero());
    layer.setZeroInMiddle(true);
    // Then both halves have half of the ramp
    const QVector<QRgb> colors = row(layer);
    QCOMPARE(colors.at(0), black);
    QVERIFY(qAbs(qRed(colors.at(1)) - 100) <= 1);
    QVERIFY(qAbs(qRed(colors.at(2)) - 200) <= 1 && qGreen(colors.at(2)) <= 1);
    QVERIFY(qAbs(qGreen(colors.at(3)) - 128) <= 1);
    QCOMPARE(colors.at(4), white);
    // And the legend has zero in the middle
    for (const Legend::Tick &tick : layer.legend().ticks) {
        if (tick.text == "0")
            QCOMPARE(tick.position, 0.5);
    }
}

void tst_GridLayer::theShoreIsSharp()
{
    GridLayer layer("g", gridOf(4, 1, {-100, -0.01F, 0, 100}), {});
    layer.setRamp(rampOf({black, blue, green, white}).get());
    layer.setZeroInMiddle(true);
    QCOMPARE(row(layer), QVector<QRgb>({black, blue, green, white}));
}

void tst_GridLayer::onlyAGridAcrossZeroHasItInTheMiddle()
{
    GridLayer layer("g", gridOf(2, 1, {0, 10}), {});
    QVERIFY(!layer.crossesZero());
    layer.setZeroInMiddle(true);
    QVERIFY(!layer.zeroInMiddle());
}

void tst_GridLayer::equalIntervalsColorClasses()
{
    GridLayer layer("g", gridOf(4, 1, {0, 1, 2, 10}), {});
    layer.setRamp(rampOf({red, white}).get());
    layer.setClassCount(2);
    layer.setClassificationMethod(ClassificationMethod::EqualIntervals);
    QCOMPARE(row(layer), QVector<QRgb>({red, red, red, white}));
}

void tst_GridLayer::quantilesColorClasses()
{
    GridLayer layer("g", gridOf(4, 1, {0, 1, 2, 10}), {});
    layer.setRamp(rampOf({red, white}).get());
    layer.setClassificationMethod(ClassificationMethod::Quantiles);
    layer.setClassCount(2);
    QCOMPARE(row(layer), QVector<QRgb>({red, red, white, white}));
}

void tst_GridLayer::classCountIsCut()
{
    GridLayer layer("g", gridOf(2, 1, {0, 1}), {});
    layer.setClassCount(1);
    QCOMPARE(layer.classCount(), 2);
    layer.setClassCount(500);
    QCOMPARE(layer.classCount(), 12);
}

void tst_GridLayer::uniqueValuesAreNotForGrids()
{
    GridLayer layer("g", gridOf(2, 1, {0, 1}), {});
    layer.setClassificationMethod(ClassificationMethod::UniqueValues);
    QCOMPARE(layer.classificationMethod(), ClassificationMethod::Unclassed);
}

void tst_GridLayer::hillShadingKeepsFlatGroundAndDarkensSlopes()
{
    // Flat at the left, then a slope that falls to the east, away from the light in the west.
    GridLayer layer("g", gridOf(6, 1, {9, 9, 9, 5, 1, 1}), {});
    layer.setRamp(rampOf({qRgb(120, 120, 120)}).get());
    const QVector<QRgb> plain = row(layer);
    QCOMPARE(plain, QVector<QRgb>(6, qRgb(120, 120, 120)));
    layer.setHillShading(true);
    const QVector<QRgb> shaded = row(layer);
    QCOMPARE(shaded.at(0), plain.at(0));
    QCOMPARE(shaded.at(1), plain.at(1));
    QVERIFY(qRed(shaded.at(3)) < 100);
    QVERIFY(qRed(shaded.at(3)) >= 42); // 0.35 of 120
    layer.setHillShading(false);
    QCOMPARE(row(layer), plain);
}

void tst_GridLayer::continuousLegendHasRoundNumbers()
{
    GridLayer layer("Heights", gridOf(2, 1, {0, 100}), "m");
    layer.setRamp(rampOf({red, white}).get());
    const Legend legend = layer.legend();
    QCOMPARE(legend.title, QString("Heights"));
    QVERIFY(legend.classes.isEmpty());
    QCOMPARE(legend.strip.first(), red);
    QCOMPARE(legend.strip.last(), white);
    QStringList texts;
    for (const Legend::Tick &tick : legend.ticks)
        texts.append(tick.text);
    QCOMPARE(texts, QStringList({"0", "20", "40", "60", "80", "100"}));
    QVERIFY(qAbs(legend.ticks.at(1).position - 0.2) < 1e-9);
}

void tst_GridLayer::classLegendHasTheHighestClassOnTop()
{
    GridLayer layer("g", gridOf(4, 1, {0, 1, 2, 10}), {});
    layer.setRamp(rampOf({red, white}).get());
    layer.setClassificationMethod(ClassificationMethod::EqualIntervals);
    layer.setClassCount(2);
    const Legend legend = layer.legend();
    QVERIFY(legend.strip.isEmpty());
    QCOMPARE(legend.classes.size(), 2);
    QCOMPARE(legend.classes.at(0).text, QString("5 to 10"));
    QCOMPARE(legend.classes.at(0).color, white);
    QCOMPARE(legend.classes.at(1).text, QString("0 to 5"));
    QCOMPARE(legend.classes.at(1).color, red);
}

void tst_GridLayer::aGridWithoutValuesSaysSo()
{
    GridLayer layer("g", gridOf(2, 1, {noValue, noValue}), {});
    layer.setRamp(rampOf({red, white}).get());
    QCOMPARE(layer.legend().remark, QString("No cell has a value."));
    layer.setClassificationMethod(ClassificationMethod::Quantiles);
    layer.setHillShading(true);
    QVERIFY(!layer.identify({1000.5, 1000.5}).found);
    QCOMPARE(row(layer), QVector<QRgb>(2, qRgba(0, 0, 0, 0)));
}

void tst_GridLayer::readingGivesValueUnitAndLegendColor()
{
    GridLayer layer("g", gridOf(2, 1, {0, 1204}), "m");
    layer.setRamp(rampOf({red, white}).get());
    layer.setHillShading(true);
    const IdentifyResult result = layer.identify({1001.5, 1000.5});
    QVERIFY(result.found);
    QCOMPARE(result.text, QString("1,204 m"));
    QCOMPARE(result.color, white);
    QVERIFY(!layer.identify({1002.5, 1000.5}).found);
}

void tst_GridLayer::paintsEachCellWhereItLies()
{
    GridLayer layer("g", gridOf(2, 2, {0, 1, 2, 3}), {});
    layer.setRamp(rampOf({red, white, blue, green}).get());
    layer.setClassificationMethod(ClassificationMethod::EqualIntervals);
    layer.setClassCount(4);
    QImage image(120, 120, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    layer.paint(&painter, MapView::fitted(layer.extent(), image.rect(), false, 10));
    painter.end();
    QCOMPARE(image.pixel(12, 12), red);
    QCOMPARE(image.pixel(58, 58), red);
    QCOMPARE(image.pixel(62, 12), white);
    QCOMPARE(image.pixel(12, 62), blue);
    QCOMPARE(image.pixel(107, 107), green);
    QCOMPARE(image.pixel(5, 60), black);
    QCOMPARE(image.pixel(115, 60), black);
}

void tst_GridLayer::paintsTheSeenPartWhenFarIn()
{
    std::vector<float> values(100 * 100, 0.0F);
    values[50 * 100 + 50] = 1.0F; // columns and rows from 0, rows from the north
    GridLayer layer("g", gridOf(100, 100, values), {});
    layer.setRamp(rampOf({red, white}).get());
    layer.setClassificationMethod(ClassificationMethod::EqualIntervals);
    layer.setClassCount(2);
    const MapView view = MapView::fitted(QRectF(1050, 1049, 1, 1), QRectF(0, 0, 90, 90), false, 30);
    QImage image(90, 90, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    layer.paint(&painter, view);
    painter.end();
    QCOMPARE(image.pixel(45, 45), white);
    QCOMPARE(image.pixel(32, 57), white);
    QCOMPARE(image.pixel(27, 45), red);
    QCOMPARE(image.pixel(45, 63), red);
    QCOMPARE(image.pixel(1, 88), red);
}

static QImage painted(const GridLayer &layer, int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::green);
    QPainter painter(&image);
    layer.paint(&painter, MapView::fitted(layer.extent(), image.rect(), false, 0));
    return image;
}

void tst_GridLayer::aCoastRunsWhereTheHeightIsZero()
{
    // Cells of 100 pixels with centres at 50 and 150; from -100 to 300 zero comes after a quarter.
    GridLayer layer("g", gridOf(2, 1, {-100, 300}), {});
    layer.setRamp(rampOf({blue, blue, red, red}).get());
    layer.setZeroInMiddle(true);
    const QImage image = painted(layer, 200, 100);
    for (const int y : {0, 50, 99}) {
        QCOMPARE(image.pixel(0, y), blue);
        QCOMPARE(image.pixel(74, y), blue);
        QCOMPARE(image.pixel(75, y), red);
        QCOMPARE(image.pixel(199, y), red);
    }
}

void tst_GridLayer::gapsKeepTheEdgesOfTheirCells()
{
    GridLayer layer("g", gridOf(3, 1, {0, noValue, 10}), {});
    layer.setRamp(rampOf({red, white}).get());
    layer.setHillShading(true);
    const QImage image = painted(layer, 300, 100);
    const QRgb empty = QColor(Qt::green).rgba();
    QVERIFY(image.pixel(99, 50) != empty);
    QCOMPARE(image.pixel(101, 50), empty);
    QCOMPARE(image.pixel(198, 50), empty);
    QVERIFY(image.pixel(201, 50) != empty);
}

void tst_GridLayer::aConstantGridHasItsValueInTheLegend_data()
{
    QTest::addColumn<int>("method");
    QTest::newRow("continuous") << int(ClassificationMethod::Unclassed);
    QTest::newRow("equal intervals") << int(ClassificationMethod::EqualIntervals);
    QTest::newRow("quantiles") << int(ClassificationMethod::Quantiles);
}

void tst_GridLayer::aConstantGridHasItsValueInTheLegend()
{
    QFETCH(int, method);
    GridLayer layer("g", gridOf(2, 1, {5, 5}), {});
    layer.setRamp(rampOf({red, blue, green}).get());
    layer.setClassificationMethod(ClassificationMethod(method));
    const Legend legend = layer.legend();
    QVERIFY(legend.strip.isEmpty());
    QCOMPARE(legend.classes.size(), 1);
    QCOMPARE(legend.classes.first().text, QString("5"));
    QCOMPARE(legend.classes.first().color, row(layer).first());
}

VT_TEST_GUILESS_MAIN(tst_GridLayer)
#include "tst_GridLayer.moc"
