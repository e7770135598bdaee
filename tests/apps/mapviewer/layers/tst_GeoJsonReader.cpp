#include "apps/mapviewer/layers/GeoJsonReader.h"
#include "tests/support/TestMain.h"

#include "apps/mapviewer/layers/JsonLocator.h"

#include <QtTest>

using namespace mapviewer;

class tst_GeoJsonReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsEachKindOfRoot_data();
    void readsEachKindOfRoot();
    void holesAreNotCovered();
    void attributesKeepTheirTypes();
    void featuresWithoutPlaceAreLeftOut();
    void theLaterOfTwoOverlappingFeaturesIsFound();
    void refusesWithTheLine_data();
    void refusesWithTheLine();
    void locatorFollowsKeysWithEscapes();
    void locatorTakesTheLastOfTwoMembers();
    void locatorStopsWhereThePathEnds();
    void locatorSkipsBracketsInTexts();
};

static const QByteArray square = "[[[0,0],[4,0],[4,4],[0,4],[0,0]]]";

static QByteArray feature(const QByteArray &geometry, const QByteArray &properties = "{}")
{
    return "{\"type\":\"Feature\",\"properties\":" + properties + ",\"geometry\":" + geometry + "}";
}

static QByteArray polygon(const QByteArray &coordinates)
{
    return "{\"type\":\"Polygon\",\"coordinates\":" + coordinates + "}";
}

void tst_GeoJsonReader::readsEachKindOfRoot_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("features");
    QTest::newRow("Polygon") << polygon(square) << 1;
    QTest::newRow("MultiPolygon") << QByteArray("{\"type\":\"MultiPolygon\",\"coordinates\":[" +
                                                square + "]}")
                                  << 1;
    QTest::newRow("Feature") << feature(polygon(square)) << 1;
    QTest::newRow("FeatureCollection")
        << QByteArray("{\"type\":\"FeatureCollection\",\"features\":[" + feature(polygon(square)) +
                      "," + feature(polygon(square)) + "]}")
        << 2;
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF" + polygon(square)) << 1;
    QTest::newRow("positions with a height")
        << polygon("[[[0,0,7],[4,0,7],[4,4,7],[0,4,7],[0,0,7]]]") << 1;
    QTest::newRow("no attributes")
        << QByteArray("{\"type\":\"Feature\",\"properties\":null,\"geometry\":" + polygon(square) +
                      "}")
        << 1;
}

void tst_GeoJsonReader::readsEachKindOfRoot()
{
    QFETCH(QByteArray, text);
    QFETCH(int, features);
    FileProblem problem;
    const auto set = readGeoJson(text, &problem);
    QVERIFY2(set, qPrintable(problem.text));
    QCOMPARE(int(set->features.size()), features);
    QCOMPARE(set->extent(), QRectF(0, 0, 4, 4));
    QCOMPARE(set->featureAt({2, 2}), features - 1);
    QCOMPARE(set->featureAt({5, 2}), -1);
}

void tst_GeoJsonReader::holesAreNotCovered()
{
    FileProblem problem;
    const auto set = readGeoJson(polygon("[[[0,0],[4,0],[4,4],[0,4],[0,0]],"
                                         "[[1,1],[3,1],[3,3],[1,3],[1,1]]]"),
                                 &problem);
    QVERIFY2(set, qPrintable(problem.text));
    QCOMPARE(set->featureAt({0.5, 0.5}), 0);
    QCOMPARE(set->featureAt({2, 2}), -1);
}

void tst_GeoJsonReader::attributesKeepTheirTypes()
{
    FileProblem problem;
    const auto set = readGeoJson(
        "{\"type\":\"FeatureCollection\",\"features\":[" +
            feature(polygon(square), "{\"n\":\"A\",\"v\":3,\"w\":null,\"b\":true,\"o\":{}}") + "," +
            feature(polygon(square), "{\"n\":\"B\",\"v\":2.5,\"w\":1}") + "]}",
        &problem);
    QVERIFY2(set, qPrintable(problem.text));
    QCOMPARE(set->fieldNames(), QStringList({"b", "n", "v", "w"}));
    QVERIFY(set->isNumeric("v"));
    QVERIFY(set->isNumeric("w"));
    QVERIFY(!set->isNumeric("n"));
    QVERIFY(!set->isNumeric("b"));
    QVERIFY(!set->isNumeric("absent"));
    QCOMPARE(set->features[0].attributes.value("v"), QVariant(3.0));
    QVERIFY(!set->features[0].attributes.value("w").isValid());
}

void tst_GeoJsonReader::featuresWithoutPlaceAreLeftOut()
{
    FileProblem problem;
    const auto set = readGeoJson("{\"type\":\"FeatureCollection\",\"features\":[" +
                                     feature("null") + "," + feature(polygon(square)) + "]}",
                                 &problem);
    QVERIFY2(set, qPrintable(problem.text));
    QCOMPARE(int(set->features.size()), 1);
}

void tst_GeoJsonReader::theLaterOfTwoOverlappingFeaturesIsFound()
{
    FileProblem problem;
    const auto set =
        readGeoJson("{\"type\":\"FeatureCollection\",\"features\":[" + feature(polygon(square)) +
                        "," + feature(polygon("[[[0,0],[2,0],[2,2],[0,2],[0,0]]]")) + "]}",
                    &problem);
    QVERIFY(set);
    QCOMPARE(set->featureAt({1, 1}), 1);
    QCOMPARE(set->featureAt({3, 3}), 0);
}

void tst_GeoJsonReader::refusesWithTheLine_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("part"); // of the message

    const QByteArray open = "{\"type\":\"FeatureCollection\",\n\"features\":[\n";
    const QByteArray good = feature(polygon(square));
    const auto ring = [](const QByteArray &positions) {
        return "{\"type\":\"Polygon\",\n\"coordinates\":[\n[" + positions + "]]}";
    };
    QTest::newRow("empty file") << QByteArray() << 1 << "not valid JSON";
    QTest::newRow("no JSON") << QByteArray("{\n\"type\":\n}") << 3 << "not valid JSON";
    QTest::newRow("cut off") << QByteArray(open + good) << 3 << "not valid JSON";
    QTest::newRow("more after the end") << QByteArray(good + "\n\nx") << 3 << "not valid JSON";
    QTest::newRow("a list") << QByteArray("\n[1]") << 2 << "one object";
    QTest::newRow("no type") << QByteArray("\n{\"features\":[]}") << 2 << "lacks \"type\"";
    QTest::newRow("type is a number") << QByteArray("{\n\"type\":3}") << 2 << "must be a text";
    QTest::newRow("unknown type") << QByteArray("{\n\"a\":1,\n\"type\":\"Topology\"}") << 3
                                  << "\"Topology\" is no area";
    QTest::newRow("no features") << QByteArray("{\"type\":\"FeatureCollection\"}") << 1
                                 << "needs a list \"features\"";
    QTest::newRow("features is an object")
        << QByteArray("{\"type\":\"FeatureCollection\",\n\"features\":{}}") << 2
        << "needs a list \"features\"";
    QTest::newRow("no feature") << QByteArray(open + "]}") << 1 << "no polygon";
    QTest::newRow("only features without place")
        << QByteArray(open + feature("null") + "]}") << 1 << "no polygon";
    QTest::newRow("feature is a number")
        << QByteArray(open + good + ",\n7]}") << 4 << "Feature 2 is not an object";
    QTest::newRow("feature of another type")
        << QByteArray(open + good + ",\n{\"a\":[\n],\n\"type\":\"Polygon\"}]}") << 6
        << "holds a \"Polygon\"";
    QTest::newRow("no geometry") << QByteArray(open + "{\"type\":\"Feature\"}]}") << 3
                                 << "needs an object \"geometry\"";
    QTest::newRow("properties is a list")
        << QByteArray(open + "{\"type\":\"Feature\",\n\"properties\":[]}]}") << 4
        << "\"properties\" must be an object";
    QTest::newRow("a point") << QByteArray(open + good + ",\n" +
                                           feature("{\n\"type\":\"Point\",\"coordinates\":[1,2]}") +
                                           "]}")
                             << 5 << "\"Point\" is no area";
    QTest::newRow("no coordinates")
        << QByteArray("{\"type\":\"Feature\",\n\"geometry\":{\"type\":\"Polygon\"}}") << 2
        << "needs a list \"coordinates\"";
    QTest::newRow("no ring") << polygon("\n[]") << 2 << "one or more rings";
    QTest::newRow("no part") << QByteArray("{\"type\":\"MultiPolygon\",\n\"coordinates\":[]}") << 2
                             << "at least one polygon";
    QTest::newRow("part is a number")
        << QByteArray("{\"type\":\"MultiPolygon\",\n\"coordinates\":[\n7]}") << 3
        << "one or more rings";
    QTest::newRow("ring is a number") << polygon("[\n7]") << 2 << "list of positions";
    QTest::newRow("three positions")
        << QByteArray(ring("[0,0],[1,0],[0,0]")) << 3 << "at least 4 positions; this one has 3";
    QTest::newRow("open ring") << QByteArray(ring("[0,0],[1,0],[1,1],\n[0,1]")) << 3
                               << "not closed";
    QTest::newRow("ring open by a hair")
        << QByteArray(ring("[1,0],[1,1],[0,1],\n[1.0000000000000002,0]")) << 3 << "not closed";
    QTest::newRow("position is a number")
        << QByteArray(ring("[0,0],\n1,[1,1],[0,0]")) << 4 << "two or more numbers";
    QTest::newRow("position of one number")
        << QByteArray(ring("[0,0],[1,0],\n\n[1],[0,0]")) << 5 << "two or more numbers";
    QTest::newRow("position with a text")
        << QByteArray(ring("[0,0],[1,0],\n[1,\"1\"],[0,0]")) << 4 << "not a number";
    QTest::newRow("second ring") << polygon("[[[0,0],[4,0],[4,4],[0,4],[0,0]],\n[[1,1],[2,1]]]")
                                 << 2 << "at least 4";
}

void tst_GeoJsonReader::refusesWithTheLine()
{
    QFETCH(QByteArray, text);
    QFETCH(int, line);
    QFETCH(QString, part);
    FileProblem problem;
    QVERIFY(!readGeoJson(text, &problem));
    QVERIFY2(problem.text.contains(part), qPrintable(problem.text));
    QCOMPARE(problem.line, line);
}

void tst_GeoJsonReader::locatorFollowsKeysWithEscapes()
{
    const QByteArray text = "{\"a\\u0062\": 1,\n\"ab\\\"\": 2,\n\"x\": 3}";
    QCOMPARE(JsonLocator(text).lineOf({{"ab\"", -1}}), 2);
    QCOMPARE(JsonLocator(text).lineOf({{"ab", -1}}), 1);
    QCOMPARE(JsonLocator(text).lineOf({{"x", -1}}), 3);
}

void tst_GeoJsonReader::locatorTakesTheLastOfTwoMembers()
{
    QCOMPARE(JsonLocator("{\"a\":1,\n\"a\":2,\n\"b\":3}").lineOf({{"a", -1}}), 2);
}

void tst_GeoJsonReader::locatorStopsWhereThePathEnds()
{
    const QByteArray text = "{\"a\":\n[1,\n{\"b\":2}]}";
    QCOMPARE(JsonLocator(text).lineOf({{"a", -1}, {QString(), 1}, {"b", -1}}), 3);
    QCOMPARE(JsonLocator(text).lineOf({{"a", -1}, {QString(), 5}, {"b", -1}}), 2);
    QCOMPARE(JsonLocator(text).lineOf({{"absent", -1}}), 1);
}

void tst_GeoJsonReader::locatorSkipsBracketsInTexts()
{
    const QByteArray text = "{\"a\":[\"]}\\\"\",{\"c\":\"{\"}],\n\"b\":\n1}";
    QCOMPARE(JsonLocator(text).lineOf({{"b", -1}}), 3);
}

VT_TEST_APPLESS_MAIN(tst_GeoJsonReader)
#include "tst_GeoJsonReader.moc"
