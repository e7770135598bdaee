#include "tests/apps/mapviewer/layers/mapFixtures.h"

#include "apps/mapviewer/layers/PolygonLayer.h"
#include "apps/mapviewer/layers/RampColors.h"

#include <QtTest>

using namespace mapviewer;

class tst_PolygonLayer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithUniqueNames();
    void uniqueValuesTakeOneColorEach();
    void quantilesOfANumber();
    void equalIntervalsOfANumber();
    void aTextHasOnlyUniqueValues();
    void featuresWithoutNumberAreGray();
    void legendCountsItsMembers();
    void longLegendsAreCut();
    void readingNamesTheFeature();
    void paintsFillsAndHoles();
    void aFileWithoutAttributesIsGray();
};

static const QRgb White = qRgb(255, 255, 255);
static const QRgb Red = qRgb(200, 0, 0);
static const QRgb Blue = qRgb(0, 0, 200);

// Four squares side by side, each 10 wide, from x = 1000.
static PolygonSet squares()
{
    PolygonSet set;
    set.features.push_back(
        squareOf({1000, 1000, 10, 10}, {{"Name", "A"}, {"kind", "x"}, {"n", 1.0}}));
    set.features.push_back(
        squareOf({1010, 1000, 10, 10}, {{"Name", "B"}, {"kind", "y"}, {"n", 2.0}}));
    set.features.push_back(
        squareOf({1020, 1000, 10, 10}, {{"Name", "C"}, {"kind", "x"}, {"n", 9.0}}));
    set.features.push_back(
        squareOf({1030, 1000, 10, 10}, {{"Name", "D"}, {"kind", "x"}, {"n", QVariant()}}));
    return set;
}

static QVector<QRgb> fills(const PolygonLayer &layer)
{
    return {layer.colorOf(0), layer.colorOf(1), layer.colorOf(2), layer.colorOf(3)};
}

void tst_PolygonLayer::startsWithUniqueNames()
{
    const PolygonLayer layer("p", squares());
    QCOMPARE(layer.field(), QString("Name"));
    QCOMPARE(layer.nameField(), QString("Name"));
    QCOMPARE(layer.grading(), Grading::UniqueValues);
    QCOMPARE(layer.extent(), QRectF(1000, 1000, 40, 10));
    QCOMPARE(layer.fieldNames(), QStringList({"Name", "kind", "n"}));
}

void tst_PolygonLayer::uniqueValuesTakeOneColorEach()
{
    PolygonLayer layer("p", squares());
    layer.setRamp(rampOf({Red, Blue}).get());
    QCOMPARE(fills(layer), QVector<QRgb>({Red, Blue, Red, Blue}));
    layer.setField("kind");
    QCOMPARE(fills(layer), QVector<QRgb>({Red, Blue, Red, Red}));
    layer.setField("absent");
    QCOMPARE(layer.field(), QString("kind"));
}

void tst_PolygonLayer::quantilesOfANumber()
{
    PolygonLayer layer("p", squares());
    layer.setRamp(rampOf({Red, White, Blue}).get());
    layer.setField("n");
    layer.setClassCount(3);
    layer.setGrading(Grading::Quantiles);
    QCOMPARE(fills(layer), QVector<QRgb>({Red, White, Blue, NoValueColor}));
}

void tst_PolygonLayer::equalIntervalsOfANumber()
{
    PolygonLayer layer("p", squares());
    layer.setRamp(rampOf({Red, Blue}).get());
    layer.setField("n");
    layer.setGrading(Grading::EqualIntervals);
    layer.setClassCount(2);
    QCOMPARE(fills(layer), QVector<QRgb>({Red, Red, Blue, NoValueColor}));
}

void tst_PolygonLayer::aTextHasOnlyUniqueValues()
{
    PolygonLayer layer("p", squares());
    QCOMPARE(layer.availableGradings(), QVector<Grading>({Grading::UniqueValues}));
    layer.setGrading(Grading::Quantiles);
    QCOMPARE(layer.grading(), Grading::UniqueValues);
    layer.setField("n");
    layer.setGrading(Grading::Quantiles);
    layer.setField("kind");
    QCOMPARE(layer.grading(), Grading::UniqueValues);
}

void tst_PolygonLayer::featuresWithoutNumberAreGray()
{
    PolygonLayer layer("p", squares());
    layer.setRamp(rampOf({Red, Blue}).get());
    layer.setField("n");
    QCOMPARE(layer.colorOf(3), NoValueColor);
    QCOMPARE(layer.legend().classes.last().text, QString("no value"));
    QCOMPARE(layer.legend().classes.last().color, NoValueColor);
    layer.setField("kind");
    QVERIFY(layer.legend().classes.last().text != "no value");
}

void tst_PolygonLayer::legendCountsItsMembers()
{
    PolygonLayer layer("p", squares());
    layer.setRamp(rampOf({Red, Blue}).get());
    layer.setField("n");
    layer.setGrading(Grading::EqualIntervals);
    layer.setClassCount(2);
    const Legend legend = layer.legend();
    QCOMPARE(legend.caption, QString("n"));
    QCOMPARE(legend.classes.at(0).text, QString("5 to 9  (1)"));
    QCOMPARE(legend.classes.at(0).color, Blue);
    QCOMPARE(legend.classes.at(1).text, QString("1 to 5  (2)"));
}

void tst_PolygonLayer::longLegendsAreCut()
{
    PolygonSet many;
    for (int i = 0; i < 20; ++i)
        many.features.push_back(squareOf(QRectF(1000 + i, 0, 1, 1), {{"v", double(i)}}));
    const PolygonLayer layer("p", many);
    const Legend legend = layer.legend();
    QCOMPARE(legend.classes.size(), 12);
    QCOMPARE(legend.remark, QString("and 8 more"));
}

void tst_PolygonLayer::readingNamesTheFeature()
{
    PolygonLayer layer("p", squares());
    layer.setRamp(rampOf({Red, Blue}).get());
    QCOMPARE(layer.readingAt({1005, 1005}).text, QString("A"));
    layer.setField("n");
    layer.setGrading(Grading::Quantiles);
    layer.setClassCount(2);
    const Reading reading = layer.readingAt({1025, 1005});
    QVERIFY(reading.found);
    QCOMPARE(reading.text, QString("C: 9"));
    QCOMPARE(reading.color, Blue);
    QCOMPARE(layer.readingAt({1035, 1005}).text, QString("D: no value"));
    QVERIFY(!layer.readingAt({1045, 1005}).found);
}

void tst_PolygonLayer::paintsFillsAndHoles()
{
    PolygonSet set = squares();
    QPainterPath ring;
    ring.setFillRule(Qt::OddEvenFill);
    ring.addRect(1000, 1000, 10, 10);
    ring.addRect(1004, 1004, 2, 2);
    set.features[0].path = ring;
    PolygonLayer layer("p", set);
    layer.setRamp(rampOf({Red, Blue}).get());
    QImage image(400, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    layer.paint(&painter, MapView::fitted(layer.extent(), image.rect(), false, 0));
    painter.end();
    QCOMPARE(image.pixel(20, 20), Red);
    QCOMPARE(image.pixel(50, 50), qRgb(0, 0, 0));
    QCOMPARE(image.pixel(150, 50), Blue);
    QCOMPARE(image.pixel(250, 50), Red);
    QCOMPARE(image.pixel(350, 50), Blue);
    // The outline between two areas is white unless it is set.
    QVERIFY(qRed(image.pixel(199, 50)) > 100 || qRed(image.pixel(200, 50)) > 100);
    QVERIFY(qGreen(image.pixel(199, 50)) > 60 || qGreen(image.pixel(200, 50)) > 60);
}

void tst_PolygonLayer::aFileWithoutAttributesIsGray()
{
    PolygonSet set;
    set.features.push_back(squareOf({0, 0, 1, 1}, {}));
    PolygonLayer layer("p", set);
    layer.setRamp(rampOf({Red}).get());
    QCOMPARE(layer.colorOf(0), NoValueColor);
    QCOMPARE(layer.legend().classes.size(), 1);
    QCOMPARE(layer.readingAt({0.5, 0.5}).text, QString("no value"));
}

QTEST_GUILESS_MAIN(tst_PolygonLayer)
#include "tst_PolygonLayer.moc"
