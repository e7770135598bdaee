#include "tests/support/TestMain.h"
#include "tests/support/mapFixtures.h"

#include "apps/mapviewer/layers/GridLayer.h"
#include "apps/mapviewer/layers/NumberText.h"
#include "apps/mapviewer/layers/PolygonLayer.h"
#include "apps/mapviewer/map/MapDecorations_p.h"
#include "apps/mapviewer/map/MapPicture.h"
#include "apps/mapviewer/map/MapRenderer.h"

#include <QtTest>

#include <cmath>

using namespace mapviewer;

class tst_MapRenderer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theUpperLayerCoversTheLower();
    void hiddenLayersAreNotDrawn();
    void specksGetAnInset();
    void theInsetIsDrawnAndRead();
    void noInsetForWhatCanBeSeenOrLiesOutside();
    void aWorldAroundAValleyIsLeftOut();
    void extentIsThatOfTheVisibleLayers();
    void pictureHasMapLegendAndRequestedSize();
    void pictureCanBeSeenWithOtherEyes();
    void graticuleStepsStandApart();
    void degreesAreWritten_data();
    void degreesAreWritten();
    void scaleBarHasARoundLength();
    void theWorldHasNoScaleBar();
    void legendHeightFollowsItsContent();
    void layersInOtherCoordinatesStayApart();
    void linesFromRightToLeftKeepNumbersWhole_data();
    void linesFromRightToLeftKeepNumbersWhole();
    void legendsFromRightToLeftAreMirrored();

private:
    QImage paint(const MapView &view) const;

    MapLayers layers;
    MapStyle style;
};

static const QRgb red = qRgb(200, 0, 0);
static const QRgb blue = qRgb(0, 0, 200);

// A world in one piece, and a valley of a tenth of a degree.
void tst_MapRenderer::init()
{
    layers.clear();
    style = MapStyle::light(QGuiApplication::font());
    style.withGraticule = false;
    AsciiGrid valley = gridOf(2, 2, {0, 0, 0, 5});
    valley.west = 10.0;
    valley.south = 50.0;
    valley.cellSize = 0.05;
    auto grid = std::make_unique<GridLayer>("Valley", valley, "m");
    grid->setRamp(rampOf({red}).get());
    PolygonSet set;
    set.features.push_back(squareOf({-180, -90, 360, 180}, {{"Name", "World"}}));
    auto world = std::make_unique<PolygonLayer>("World", set);
    world->setRamp(rampOf({blue}).get());
    layers.push_back(std::move(grid));
    layers.push_back(std::move(world));
}

QImage tst_MapRenderer::paint(const MapView &view) const
{
    QImage image(view.target().size().toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    MapRenderer(layers, style).paint(&painter, view);
    return image;
}

static MapView worldView()
{
    return MapView::fitted(QRectF(-180, -90, 360, 180), QRectF(0, 0, 800, 600), true, 0);
}

void tst_MapRenderer::theUpperLayerCoversTheLower()
{
    // Given a grid of one degree within the world, and a view of ten degrees
    AsciiGrid region = gridOf(1, 1, {3});
    region.west = 10.0;
    region.south = 50.0;
    auto grid = std::make_unique<GridLayer>("Region", region, QString());
    grid->setRamp(rampOf({red}).get());
    layers[0] = std::move(grid);
    const MapView view = MapView::fitted(QRectF(5, 45, 10, 10), QRectF(0, 0, 600, 600), true, 0);
    const QPoint inside = view.toScreen(QPointF(10.5, 50.5)).toPoint();
    // Then the first layer lies above the second
    QCOMPARE(paint(view).pixel(inside), red);
    QCOMPARE(paint(view).pixel(100, 100), blue);
    std::swap(layers[0], layers[1]);
    QCOMPARE(paint(view).pixel(inside), blue);
}

void tst_MapRenderer::hiddenLayersAreNotDrawn()
{
    layers[1]->setVisible(false);
    const QImage image = paint(worldView());
    QCOMPARE(image.pixel(400, 310), style.water.rgb());
    layers[1]->setVisible(true);
    QCOMPARE(paint(worldView()).pixel(600, 310), blue);
}

void tst_MapRenderer::specksGetAnInset()
{
    const MapRenderer renderer(layers, style);
    const std::vector<MapInset> insets = renderer.insets(worldView());
    QCOMPARE(int(insets.size()), 1);
    QCOMPARE(insets[0].layer, static_cast<const MapLayer *>(layers[0].get()));
    QVERIFY(QRectF(0, 0, 800, 600).contains(insets[0].frame));
    QVERIFY(insets[0].frame.contains(insets[0].caption));
    QVERIFY(insets[0].frame.contains(insets[0].view.target()));
    // The layer fills the picture.
    QVERIFY(insets[0]
                .view.toScreen(layers[0]->extent())
                .adjusted(-1e-6, -1e-6, 1e-6, 1e-6)
                .contains(insets[0].view.target()));
    layers[0]->setVisible(false);
    QVERIFY(renderer.insets(worldView()).empty());
}

void tst_MapRenderer::theInsetIsDrawnAndRead()
{
    const MapRenderer renderer(layers, style);
    const MapInset inset = renderer.insets(worldView()).front();
    const QPointF middle = inset.view.target().center();
    QCOMPARE(paint(worldView()).pixel(middle.toPoint()), red);
    const MapLayer *layer = nullptr;
    const IdentifyResult result =
        renderer.identify(worldView(), inset.view.toScreen(QPointF(10.075, 50.04)), &layer);
    QCOMPARE(layer, static_cast<const MapLayer *>(layers[0].get()));
    QCOMPARE(result.text, QString("5 m"));
    const QPointF place = renderer.positionAt(worldView(), middle);
    QVERIFY(std::abs(place.x() - 10.05) < 1e-6 && std::abs(place.y() - 50.05) < 1e-6);
    // Beside it the world is read.
    const IdentifyResult beside = renderer.identify(worldView(), QPointF(600, 310), &layer);
    QCOMPARE(beside.text, QString("World"));
    QCOMPARE(layer, static_cast<const MapLayer *>(layers[1].get()));
}

void tst_MapRenderer::noInsetForWhatCanBeSeenOrLiesOutside()
{
    const MapRenderer renderer(layers, style);
    const QRectF target(0, 0, 600, 600);
    QVERIFY(renderer.insets(MapView::fitted(layers[0]->extent(), target, true, 0)).empty());
    QVERIFY(renderer.insets(MapView::fitted(QRectF(-100, -40, 20, 20), target, true, 0)).empty());
    // No room: the inset would be larger than the map.
    QVERIFY(
        renderer
            .insets(MapView::fitted(QRectF(-180, -90, 360, 180), QRectF(0, 0, 120, 90), true, 0))
            .empty());
}

void tst_MapRenderer::aWorldAroundAValleyIsLeftOut()
{
    const MapRenderer renderer(layers, style);
    const MapView valley = MapView::fitted(layers[0]->extent(), QRectF(0, 0, 600, 600), true, 100);
    QVERIFY(renderer.isShownIn(*layers[0], valley));
    QVERIFY(!renderer.isShownIn(*layers[1], valley));
    QCOMPARE(paint(valley).pixel(20, 300), style.paper.rgb());
    const MapLayer *layer = layers[0].get();
    QVERIFY(!renderer.identify(valley, QPointF(20, 300), &layer).found);
    // Without the valley, or elsewhere, the world is what there is to see.
    layers[0]->setVisible(false);
    QVERIFY(renderer.isShownIn(*layers[1], valley));
    layers[0]->setVisible(true);
    QVERIFY(renderer.isShownIn(
        *layers[1], MapView::fitted(QRectF(40, 50, 0.1, 0.1), QRectF(0, 0, 600, 600), true, 0)));
    QVERIFY(renderer.isShownIn(*layers[1], worldView()));
}

void tst_MapRenderer::extentIsThatOfTheVisibleLayers()
{
    const MapRenderer renderer(layers, style);
    QCOMPARE(renderer.extent(worldView()), QRectF(-180, -90, 360, 180));
    layers[1]->setVisible(false);
    QCOMPARE(renderer.extent(worldView()), layers[0]->extent());
    layers[0]->setVisible(false);
    QCOMPARE(renderer.extent(worldView()), QRectF(-180, -90, 360, 180));
}

void tst_MapRenderer::pictureHasMapLegendAndRequestedSize()
{
    PictureSettings settings;
    settings.size = QSize(700, 500);
    settings.pixelRatio = 2.0;
    settings.title = "T";
    const QImage image = mapPicture(layers, worldView(), style, settings);
    QCOMPARE(image.size(), QSize(1400, 1000));
    QCOMPARE(image.pixel(2, 2), style.paper.rgb());
    // The legend's column holds the swatch of the world, the map its colour.
    int swatch = 0;
    int map = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == blue)
                ++(x > 1400 - 2 * 28 - 2 * 270 ? swatch : map);
        }
    }
    QVERIFY(swatch > 25 * 12 * 4 * 3 / 4);
    QVERIFY(map > 100000);
}

void tst_MapRenderer::pictureCanBeSeenWithOtherEyes()
{
    PictureSettings settings;
    settings.size = QSize(600, 400);
    settings.pixelRatio = 1.0;
    settings.vision = ColorVision::Gray;
    const QImage image = mapPicture(layers, worldView(), style, settings);
    for (int y = 0; y < image.height(); y += 3) {
        for (int x = 0; x < image.width(); x += 3) {
            const QRgb pixel = image.pixel(x, y);
            QVERIFY(qRed(pixel) == qGreen(pixel) && qGreen(pixel) == qBlue(pixel));
        }
    }
    QVERIFY(visionRemark(ColorVision::Normal).isEmpty());
    QVERIFY(!visionRemark(ColorVision::Gray).isEmpty());
}

void tst_MapRenderer::graticuleStepsStandApart()
{
    QCOMPARE(graticuleStep(2.5), 45.0);
    QCOMPARE(graticuleStep(3.0), 30.0);
    QCOMPARE(graticuleStep(90.0), 1.0);
    QCOMPARE(graticuleStep(89.9), 2.0);
    QCOMPARE(graticuleStep(0.001), 45.0);
    QCOMPARE(graticuleStep(1e9), 0.005);
}

void tst_MapRenderer::degreesAreWritten_data()
{
    QTest::addColumn<double>("degrees");
    QTest::addColumn<QString>("longitude");
    QTest::addColumn<QString>("latitude");
    const QChar degree(0x00b0);
    const QChar space(0x00a0);
    QTest::newRow("zero") << 0.0 << QString("0") + degree << QString("0") + degree;
    QTest::newRow("a hair below zero") << -1e-12 << QString("0") + degree << QString("0") + degree;
    QTest::newRow("positive") << 12.5 << QString("12.5") + degree + space + 'E'
                              << QString("12.5") + degree + space + 'N';
    QTest::newRow("negative") << -30.0 << QString("30") + degree + space + 'W'
                              << QString("30") + degree + space + 'S';
}

void tst_MapRenderer::degreesAreWritten()
{
    QFETCH(double, degrees);
    QFETCH(QString, longitude);
    QFETCH(QString, latitude);
    QCOMPARE(longitudeText(degrees), longitude);
    QCOMPARE(latitudeText(degrees), latitude);
}

void tst_MapRenderer::scaleBarHasARoundLength()
{
    // One pixel a unit: at most 140 pixels are 100 units.
    const ScaleBar plane =
        scaleBar(MapView::fitted(QRectF(1000, 1000, 500, 500), QRectF(0, 0, 500, 500), false, 0));
    QCOMPARE(plane.text, QString("100"));
    QVERIFY(std::abs(plane.pixels - 100.0) < 1e-9);
    // 600 pixels for a tenth of a degree: 18.55 m a pixel, 140 pixels are 2.6 km.
    const ScaleBar valley =
        scaleBar(MapView::fitted(QRectF(10, 50, 0.1, 0.1), QRectF(0, 0, 600, 600), true, 0));
    QCOMPARE(valley.text, QString("2 km"));
    QVERIFY(std::abs(valley.pixels - 2000.0 / (11132.0 / 600.0)) < 0.01);
}

void tst_MapRenderer::theWorldHasNoScaleBar()
{
    QCOMPARE(scaleBar(worldView()).pixels, 0.0);
}

void tst_MapRenderer::legendHeightFollowsItsContent()
{
    const LegendStyle legendStyle{style.font, Qt::black, Qt::gray, true};
    Legend legend;
    QCOMPARE(drawLegend(nullptr, {}, 200, legend, legendStyle), 0.0);
    legend.classes = {{red, "a"}, {blue, "b"}};
    const double two = drawLegend(nullptr, {}, 200, legend, legendStyle);
    legend.classes.append({red, "c"});
    const double three = drawLegend(nullptr, {}, 200, legend, legendStyle);
    QVERIFY(two > 0 && std::abs(three - two * 1.5) < 1e-9);
    legend.title = "Title";
    QVERIFY(drawLegend(nullptr, {}, 200, legend, legendStyle) > three);
    // Drawing and measuring agree.
    QImage image(200, 200, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    QCOMPARE(drawLegend(&painter, {}, 200, legend, legendStyle),
             drawLegend(nullptr, {}, 200, legend, legendStyle));
}

void tst_MapRenderer::layersInOtherCoordinatesStayApart()
{
    // Given a grid in meters, of some projection that nobody tells, above the world in degrees
    AsciiGrid cells = gridOf(2, 2, {1, 2, 3, 4});
    cells.west = 500000.0;
    cells.south = 5400000.0;
    cells.cellSize = 1000.0;
    layers.insert(layers.begin(), std::make_unique<GridLayer>("Projected", cells, "m"));
    layers[0]->setRamp(rampOf({red}).get());
    const QRectF there = layers[0]->extent();
    const MapRenderer renderer(layers, style);
    const QRectF target(0, 0, 600, 600);
    const MapView meters = MapView::fitted(there, target, false, 0);
    // Then each is all of its own map
    QCOMPARE(renderer.extent(worldView()), QRectF(-180, -90, 360, 180));
    QCOMPARE(renderer.extent(meters), there);
    QVERIFY(renderer.isShownIn(*layers[0], meters));
    QVERIFY(!renderer.isShownIn(*layers[0], worldView()));
    QVERIFY(!renderer.isShownIn(*layers[2], meters));
    QCOMPARE(paint(meters).pixel(300, 300), red);
    QCOMPARE(int(renderer.insets(worldView()).size()), 1);
    QCOMPARE(renderer.insets(worldView()).front().layer->title(), QString("Valley"));
    // Nor does a hidden layer keep a map that has nothing to show.
    layers[0]->setVisible(false);
    QCOMPARE(renderer.extent(meters), QRectF(-180, -90, 360, 180));
}

// What a line of text looks like, without the empty paper around it.
static QImage inkOf(const QString &text, Qt::LayoutDirection direction)
{
    QImage image(300, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setLayoutDirection(direction);
    painter.drawText(QPointF(20.0, 25.0), text);
    painter.end();
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                ink |= QRect(x, y, 1, 1);
        }
    }
    return image.copy(ink);
}

void tst_MapRenderer::linesFromRightToLeftKeepNumbersWhole_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("kind");
    QTest::newRow("below zero") << -1234.0 << "number";
    QTest::newRow("longitude") << -135.0 << "longitude";
    QTest::newRow("latitude") << 45.5 << "latitude";
}

void tst_MapRenderer::linesFromRightToLeftKeepNumbersWhole()
{
    QFETCH(double, value);
    QFETCH(QString, kind);
    const auto written = [&] {
        return kind == "number"      ? numberText(value)
               : kind == "longitude" ? longitudeText(value)
                                     : latitudeText(value);
    };
    const QString plain = written();
    const QImage expected = inkOf(plain, Qt::LeftToRight);
    QVERIFY(!expected.isNull());
    // Left to itself the line would turn it around.
    QVERIFY(inkOf(plain, Qt::RightToLeft) != expected);
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    const QString whole = written();
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    QCOMPARE(inkOf(whole, Qt::RightToLeft), expected);
}

void tst_MapRenderer::legendsFromRightToLeftAreMirrored()
{
    LegendStyle legendStyle{style.font, Qt::black, Qt::gray, true};
    Legend legend;
    legend.classes = {{red, "a"}};
    const auto swatchX = [&] {
        QImage image(200, 40, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        drawLegend(&painter, {}, 200, legend, legendStyle);
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, 9) == red)
                return x;
        }
        return -1;
    };
    QVERIFY(swatchX() >= 0 && swatchX() < 10);
    legendStyle.direction = Qt::RightToLeft;
    QVERIFY(swatchX() > 160);
}

VT_TEST_MAIN(tst_MapRenderer)
#include "tst_MapRenderer.moc"
