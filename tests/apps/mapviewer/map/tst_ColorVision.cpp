#include "apps/mapviewer/map/ColorVision.h"
#include "tests/support/TestMain.h"

#include <QtTest>

using namespace mapviewer;

class tst_ColorVision : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void graysStayGrays_data();
    void graysStayGrays();
    void knownColorsBecomeKnownColors_data();
    void knownColorsBecomeKnownColors();
    void redAndGreenLoseTheirDifferenceForDeutans();
    void normalVisionChangesNothing();
    void alphaStays();
    void imagesAreTranslatedPixelByPixel();
};

static void addVisions()
{
    QTest::addColumn<int>("vision");
    QTest::newRow("protan") << int(ColorVision::Protan);
    QTest::newRow("deutan") << int(ColorVision::Deutan);
    QTest::newRow("tritan") << int(ColorVision::Tritan);
    QTest::newRow("gray") << int(ColorVision::Gray);
}

void tst_ColorVision::graysStayGrays_data()
{
    addVisions();
}

void tst_ColorVision::graysStayGrays()
{
    QFETCH(int, vision);
    for (const int level : {0, 1, 50, 128, 200, 255}) {
        const QRgb seen = simulated(qRgb(level, level, level), ColorVision(vision));
        // The rows of each matrix add up to 1, the published ones to six decimals.
        QVERIFY2(qAbs(qRed(seen) - level) <= 1 && qAbs(qGreen(seen) - level) <= 1 &&
                     qAbs(qBlue(seen) - level) <= 1,
                 qPrintable(QString::number(seen, 16)));
    }
}

void tst_ColorVision::knownColorsBecomeKnownColors_data()
{
    QTest::addColumn<QRgb>("color");
    QTest::addColumn<int>("vision");
    QTest::addColumn<QRgb>("seen");
    // The first column of each matrix, encoded: 0.152286 -> 109, 0.114503 -> 95, below 0 -> 0.
    QTest::newRow("red, protan") << qRgb(255, 0, 0) << int(ColorVision::Protan) << qRgb(109, 95, 0);
    QTest::newRow("red, deutan") << qRgb(255, 0, 0) << int(ColorVision::Deutan)
                                 << qRgb(163, 144, 0);
    QTest::newRow("red, tritan") << qRgb(255, 0, 0) << int(ColorVision::Tritan) << qRgb(255, 0, 15);
    QTest::newRow("red, gray") << qRgb(255, 0, 0) << int(ColorVision::Gray) << qRgb(127, 127, 127);
    QTest::newRow("green, gray") << qRgb(0, 255, 0) << int(ColorVision::Gray)
                                 << qRgb(220, 220, 220);
}

void tst_ColorVision::knownColorsBecomeKnownColors()
{
    QFETCH(QRgb, color);
    QFETCH(int, vision);
    QFETCH(QRgb, seen);
    QCOMPARE(simulated(color, ColorVision(vision)), seen);
}

void tst_ColorVision::redAndGreenLoseTheirDifferenceForDeutans()
{
    const auto distance = [](QRgb a, QRgb b) {
        return qAbs(qRed(a) - qRed(b)) + qAbs(qGreen(a) - qGreen(b)) + qAbs(qBlue(a) - qBlue(b));
    };
    const QRgb red = qRgb(200, 80, 60);
    const QRgb green = qRgb(110, 140, 50);
    const int seen =
        distance(simulated(red, ColorVision::Deutan), simulated(green, ColorVision::Deutan));
    QVERIFY(seen * 3 < distance(red, green));
}

void tst_ColorVision::normalVisionChangesNothing()
{
    QCOMPARE(simulated(qRgb(12, 130, 250), ColorVision::Normal), qRgb(12, 130, 250));
}

void tst_ColorVision::alphaStays()
{
    QCOMPARE(qAlpha(simulated(qRgba(255, 0, 0, 77), ColorVision::Protan)), 77);
}

void tst_ColorVision::imagesAreTranslatedPixelByPixel()
{
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setPixelColor(1, 0, Qt::red);
    image.setPixelColor(0, 1, Qt::red);
    image.setDevicePixelRatio(2.0);
    const QImage seen = simulated(image, ColorVision::Deutan);
    QCOMPARE(seen.size(), image.size());
    QCOMPARE(seen.devicePixelRatio(), 2.0);
    QCOMPARE(seen.pixel(1, 0), qRgb(163, 144, 0));
    QCOMPARE(seen.pixel(0, 1), qRgb(163, 144, 0));
    QCOMPARE(seen.pixel(0, 0), qRgb(255, 255, 255));
    QCOMPARE(seen.pixel(2, 0), qRgb(255, 255, 255));
}

VT_TEST_APPLESS_MAIN(tst_ColorVision)
#include "tst_ColorVision.moc"
