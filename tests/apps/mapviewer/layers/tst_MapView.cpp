#include "apps/mapviewer/layers/MapView.h"
#include "tests/support/TestMain.h"

#include <QtTest>

#include <cmath>

using namespace mapviewer;

class tst_MapView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fittedShowsAllWithItsMargin();
    void northIsUp();
    void screenAndMapAreInverse();
    void zoomKeepsThePlaceUnderThePointer_data();
    void zoomKeepsThePlaceUnderThePointer();
    void panFollowsTheDrag();
    void theStandardParallelMovesIn();
    void anotherTargetKeepsCenterAndScale();
};

static bool near(const QPointF &a, const QPointF &b, double slack)
{
    return std::abs(a.x() - b.x()) <= slack && std::abs(a.y() - b.y()) <= slack;
}

void tst_MapView::fittedShowsAllWithItsMargin()
{
    const QRectF extent(1000, 2000, 400, 100);
    const MapView view = MapView::fitted(extent, QRectF(0, 0, 500, 300), false, 50);
    QCOMPARE(view.toScreen(extent), QRectF(50, 100, 400, 100));
    QCOMPARE(view.scale(), 1.0);
    QCOMPARE(view.visible(), QRectF(950, 1900, 500, 300));
}

void tst_MapView::northIsUp()
{
    const MapView view = MapView::fitted(QRectF(0, 0, 10, 10), QRectF(0, 0, 100, 100), false, 0);
    QCOMPARE(view.toScreen(QPointF(0, 10)), QPointF(0, 0));
    QCOMPARE(view.toScreen(QPointF(10, 0)), QPointF(100, 100));
}

void tst_MapView::screenAndMapAreInverse()
{
    const MapView view =
        MapView::fitted(QRectF(-120, 30, 20, 20), QRectF(10, 20, 640, 480), true, 7);
    for (const QPointF &pixel : {QPointF(10, 20), QPointF(333.5, 77), QPointF(650, 500)})
        QVERIFY(near(view.toScreen(view.toMap(pixel)), pixel, 1e-9));
}

void tst_MapView::zoomKeepsThePlaceUnderThePointer_data()
{
    QTest::addColumn<bool>("geographic");
    QTest::addColumn<double>("factor");
    QTest::newRow("plane, in") << false << 1.25;
    QTest::newRow("plane, out") << false << 0.2;
    QTest::newRow("degrees, in") << true << 1.25;
    QTest::newRow("degrees, far in") << true << 40.0;
    QTest::newRow("degrees, out") << true << 0.8;
}

void tst_MapView::zoomKeepsThePlaceUnderThePointer()
{
    QFETCH(bool, geographic);
    QFETCH(double, factor);
    MapView view =
        MapView::fitted(QRectF(-180, -90, 360, 180), QRectF(0, 0, 900, 600), geographic, 10);
    const QPointF pointer(220, 170);
    const QPointF place = view.toMap(pointer);
    const double before = view.scale();
    view.zoom(factor, pointer);
    QVERIFY(near(view.toMap(pointer), place, 1e-6));
    QCOMPARE(view.scale(), before * factor);
}

void tst_MapView::panFollowsTheDrag()
{
    MapView view = MapView::fitted(QRectF(0, 0, 100, 100), QRectF(0, 0, 200, 200), false, 0);
    view.pan(QPointF(20, 10));
    QCOMPARE(view.center(), QPointF(40, 55));
}

void tst_MapView::theStandardParallelMovesIn()
{
    const QRectF target(0, 0, 800, 600);
    const MapView world = MapView::fitted(QRectF(-180, -90, 360, 180), target, true, 0);
    QVERIFY(std::abs(world.scaleX() / world.scale() - std::cos(36.0 * M_PI / 180.0)) < 1e-9);
    const MapView valley = MapView::fitted(QRectF(10, 59.9, 0.2, 0.2), target, true, 0);
    QVERIFY(std::abs(valley.scaleX() / valley.scale() - 0.5) < 1e-9);
    const MapView south = MapView::fitted(QRectF(10, -60.1, 0.2, 0.2), target, true, 0);
    QVERIFY(std::abs(south.scaleX() / south.scale() - 0.5) < 1e-9);
    const MapView plane = MapView::fitted(QRectF(10, 59.9, 0.2, 0.2), target, false, 0);
    QCOMPARE(plane.scaleX(), plane.scale());
}

void tst_MapView::anotherTargetKeepsCenterAndScale()
{
    MapView view = MapView::fitted(QRectF(0, 0, 100, 100), QRectF(0, 0, 200, 200), false, 0);
    view.setTarget(QRectF(0, 0, 400, 300));
    QCOMPARE(view.center(), QPointF(50, 50));
    QCOMPARE(view.scale(), 2.0);
    QCOMPARE(view.toScreen(QPointF(50, 50)), QPointF(200, 150));
}

VT_TEST_APPLESS_MAIN(tst_MapView)
#include "tst_MapView.moc"
