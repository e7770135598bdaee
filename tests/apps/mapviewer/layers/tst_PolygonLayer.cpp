#include "tests/support/TestMain.h"
#include "tests/support/mapFixtures.h"

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
    void colorsThatRepeatAreSaid_data();
    void colorsThatRepeatAreSaid();
    void classesOfOneValueNameItOnce();
};

static const QRgb white = qRgb(255, 255, 255);
static const QRgb red = qRgb(200, 0, 0);
static const QRgb blue = qRgb(0, 0, 200);

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
    QCOMPARE(layer.classificationMethod(), ClassificationMethod::UniqueValues);
    QCOMPARE(layer.extent(), QRectF(1000, 1000, 40, 10));
    QCOMPARE(layer.fieldNames(), QStringList({"Name", "kind", "n"}));
}

void tst_PolygonLayer::uniqueValuesTakeOneColorEach()
{
    PolygonLayer layer("p", squares());
    layer.setRamp(rampOf({red, blue}).get());
    QCOMPARE(fills(layer), QVector<QRgb>({red, blue, red, blue}));
    layer.setField("kind");
    QCOMPARE(fills(layer), QVector<QRgb>({red, blue, red, red}));
    layer.setField("absent");
    QCOMPARE(layer.field(), QString("kind"));
}

void tst_PolygonLayer::quantilesOfANumber()
{
    PolygonLayer layer("p", squares());
    layer.setRamp(rampOf({red, white, blue}).get());
    layer.setField("n");
    layer.setClassCount(3);
    layer.setClassificationMethod(ClassificationMethod::Quantiles);
    QCOMPARE(fills(layer), QVector<QRgb>({red, white, blue, noValueColor}));
}

void tst_PolygonLayer::equalIntervalsOfANumber()
{
    PolygonLayer layer("p", squares());
    layer.setRamp(rampOf({red, blue}).get());
    layer.setField("n");
    layer.setClassificationMethod(ClassificationMethod::EqualIntervals);
    layer.setClassCount(2);
    QCOMPARE(fills(layer), QVector<QRgb>({red, red, blue, noValueColor}));
}

void tst_PolygonLayer::aTextHasOnlyUniqueValues()
{
    PolygonLayer layer("p", squares());
    QCOMPARE(layer.availableMethods(),
             QVector<ClassificationMethod>({ClassificationMethod::UniqueValues}));
    layer.setClassificationMethod(ClassificationMethod::Quantiles);
    QCOMPARE(layer.classificationMethod(), ClassificationMethod::UniqueValues);
    layer.setField("n");
    layer.setClassificationMethod(ClassificationMethod::Quantiles);
    layer.setField("kind");
    QCOMPARE(layer.classificationMethod(), ClassificationMethod::UniqueValues);
}

void tst_PolygonLayer::featuresWithoutNumberAreGray()
{
    PolygonLayer layer("p", squares());
    layer.setRamp(rampOf({red, blue}).get());
    layer.setField("n");
    QCOMPARE(layer.colorOf(3), noValueColor);
    QCOMPARE(layer.legend().classes.last().text, QString("no value"));
    QCOMPARE(layer.legend().classes.last().color, noValueColor);
    layer.setField("kind");
    QVERIFY(layer.legend().classes.last().text != "no value");
}

void tst_PolygonLayer::legendCountsItsMembers()
{
    PolygonLayer layer("p", squares());
    layer.setRamp(rampOf({red, blue}).get());
    layer.setField("n");
    layer.setClassificationMethod(ClassificationMethod::EqualIntervals);
    layer.setClassCount(2);
    const Legend legend = layer.legend();
    QCOMPARE(legend.caption, QString("n"));
    QCOMPARE(legend.classes.at(0).text, QString("5 to 9  (1)"));
    QCOMPARE(legend.classes.at(0).color, blue);
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
    layer.setRamp(rampOf({red, blue}).get());
    QCOMPARE(layer.identify({1005, 1005}).text, QString("A"));
    layer.setField("n");
    layer.setClassificationMethod(ClassificationMethod::Quantiles);
    layer.setClassCount(2);
    const IdentifyResult result = layer.identify({1025, 1005});
    QVERIFY(result.found);
    QCOMPARE(result.text, QString("C: 9"));
    QCOMPARE(result.color, blue);
    QCOMPARE(layer.identify({1035, 1005}).text, QString("D: no value"));
    QVERIFY(!layer.identify({1045, 1005}).found);
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
    layer.setRamp(rampOf({red, blue}).get());
    QImage image(400, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    layer.paint(&painter, MapView::fitted(layer.extent(), image.rect(), false, 0));
    painter.end();
    QCOMPARE(image.pixel(20, 20), red);
    QCOMPARE(image.pixel(50, 50), qRgb(0, 0, 0));
    QCOMPARE(image.pixel(150, 50), blue);
    QCOMPARE(image.pixel(250, 50), red);
    QCOMPARE(image.pixel(350, 50), blue);
    // The outline between two areas is white unless it is set.
    QVERIFY(qRed(image.pixel(199, 50)) > 100 || qRed(image.pixel(200, 50)) > 100);
    QVERIFY(qGreen(image.pixel(199, 50)) > 60 || qGreen(image.pixel(200, 50)) > 60);
}

void tst_PolygonLayer::aFileWithoutAttributesIsGray()
{
    PolygonSet set;
    set.features.push_back(squareOf({0, 0, 1, 1}, {}));
    PolygonLayer layer("p", set);
    layer.setRamp(rampOf({red}).get());
    QCOMPARE(layer.colorOf(0), noValueColor);
    QCOMPARE(layer.legend().classes.size(), 1);
    QCOMPARE(layer.identify({0.5, 0.5}).text, QString("no value"));
}

void tst_PolygonLayer::colorsThatRepeatAreSaid_data()
{
    QTest::addColumn<QVector<QRgb>>("colors");
    QTest::addColumn<QString>("remark");
    const QRgb green = qRgb(0, 160, 0);
    QTest::newRow("enough") << QVector<QRgb>{white, red, blue, green} << QString();
    QTest::newRow("one too few") << QVector<QRgb>{white, red, blue}
                                 << QString("4 values, 3 colors: colors repeat");
    QTest::newRow("two are one") << QVector<QRgb>{white, red, blue, red}
                                 << QString("4 values, 3 colors: colors repeat");
    QTest::newRow("one for all") << QVector<QRgb>{red}
                                 << QString("4 values, 1 color: colors repeat");
    QTest::newRow("none") << QVector<QRgb>{} << QString("The scheme has no colors.");
}

void tst_PolygonLayer::colorsThatRepeatAreSaid()
{
    QFETCH(QVector<QRgb>, colors);
    QFETCH(QString, remark);
    PolygonLayer layer("p", squares());
    layer.setRamp(rampOf(std::vector<QRgb>(colors.begin(), colors.end())).get());
    QCOMPARE(layer.legend().classes.size(), 4);
    QCOMPARE(layer.legend().remark, remark);
}

void tst_PolygonLayer::classesOfOneValueNameItOnce()
{
    PolygonSet set;
    for (const double x : {1000.0, 1010.0})
        set.features.push_back(squareOf({x, 1000, 10, 10}, {{"n", 7.0}}));
    PolygonLayer layer("p", set);
    layer.setRamp(rampOf({red, blue}).get());
    layer.setClassificationMethod(ClassificationMethod::Quantiles);
    QCOMPARE(layer.legend().classes.size(), 1);
    QCOMPARE(layer.legend().classes.first().text, QString("7  (2)"));
}

VT_TEST_GUILESS_MAIN(tst_PolygonLayer)
#include "tst_PolygonLayer.moc"
