#include "tests/support/TestMain.h"
#include "tests/support/mapFixtures.h"

#include "apps/mapviewer/layers/RampColors.h"

#include "vomap/VORandomColorRamp.h"

#include <QtTest>

using namespace mapviewer;
using namespace VTObjects;

class tst_RampColors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void componentsAreTruncated();
    void nullAndEmptyRampsHaveNoColors();
    void classesSpreadOverTheRamp();
    void asManyClassesAsColorsTakeThemExactly();
    void oneClassTakesTheMiddle();
    void aRandomRampGivesItsColorsOneByOne();
    void uniqueColorsBeginAnew();
    void aRandomRampIsAskedForMore();
    void colorAlongMixesNeighbors();
};

static const QRgb black = qRgb(0, 0, 0);
static const QRgb white = qRgb(255, 255, 255);
static const QRgb red = qRgb(200, 0, 0);

void tst_RampColors::componentsAreTruncated()
{
    VOEvenColorRamp ramp;
    ramp.addColor(rgb_color<float>(254.9F, 0.9F, 100.0F));
    QCOMPARE(rampColors(&ramp), QVector<QRgb>({qRgb(254, 0, 100)}));
}

void tst_RampColors::nullAndEmptyRampsHaveNoColors()
{
    VOEvenColorRamp empty;
    for (VOColorRamp *ramp :
         {static_cast<VOColorRamp *>(nullptr), static_cast<VOColorRamp *>(&empty)}) {
        QVERIFY(rampColors(ramp).isEmpty());
        QCOMPARE(classColors(ramp, 2), QVector<QRgb>({noValueColor, noValueColor}));
        QCOMPARE(uniqueColors(ramp, 1), QVector<QRgb>({noValueColor}));
    }
}

void tst_RampColors::classesSpreadOverTheRamp()
{
    const auto ramp = rampOf({black, white});
    QCOMPARE(classColors(ramp.get(), 3), QVector<QRgb>({black, qRgb(128, 128, 128), white}));
    const auto five = rampOf({black, red, white, red, black});
    QCOMPARE(classColors(five.get(), 3), QVector<QRgb>({black, white, black}));
    QVERIFY(classColors(five.get(), 0).isEmpty());
}

void tst_RampColors::asManyClassesAsColorsTakeThemExactly()
{
    const auto ramp = rampOf({white, red, black});
    QCOMPARE(classColors(ramp.get(), 3), rampColors(ramp.get()));
}

void tst_RampColors::oneClassTakesTheMiddle()
{
    const auto ramp = rampOf({white, red, black});
    QCOMPARE(classColors(ramp.get(), 1), QVector<QRgb>({red}));
}

void tst_RampColors::aRandomRampGivesItsColorsOneByOne()
{
    VORandomColorRamp ramp;
    ramp.setSeed(7);
    QVERIFY(ramp.split(6));
    QCOMPARE(classColors(&ramp, 3), rampColors(&ramp).mid(0, 3));
}

void tst_RampColors::uniqueColorsBeginAnew()
{
    const auto ramp = rampOf({red, white});
    QCOMPARE(uniqueColors(ramp.get(), 5), QVector<QRgb>({red, white, red, white, red}));
    QCOMPARE(uniqueColors(ramp.get(), 1), QVector<QRgb>({red}));
}

void tst_RampColors::aRandomRampIsAskedForMore()
{
    // Given a random ramp of two colours, one of them changed by hand
    VORandomColorRamp ramp;
    ramp.setSeed(7);
    QVERIFY(ramp.split(2));
    ramp.setColor(1, rgb_color<float>(1.0F, 2.0F, 3.0F));
    // When four are wanted
    const QVector<QRgb> colors = uniqueColors(&ramp, 4);
    // Then the two stay, the others are the seed's, and the ramp is as it was
    VORandomColorRamp longer;
    longer.setSeed(7);
    QVERIFY(longer.split(4));
    const QVector<QRgb> fresh = rampColors(&longer);
    QCOMPARE(colors, QVector<QRgb>({fresh.at(0), qRgb(1, 2, 3), fresh.at(2), fresh.at(3)}));
    QCOMPARE(ramp.getLevel(), 2U);
}

void tst_RampColors::colorAlongMixesNeighbors()
{
    const QVector<QRgb> colors = {black, red, white};
    QCOMPARE(colorAlong(colors, 0.0), black);
    QCOMPARE(colorAlong(colors, 0.25), qRgb(100, 0, 0));
    QCOMPARE(colorAlong(colors, 0.5), red);
    QCOMPARE(colorAlong(colors, 1.0), white);
    QCOMPARE(colorAlong(colors, -3.0), black);
    QCOMPARE(colorAlong(colors, 3.0), white);
    QCOMPARE(colorAlong({red}, 0.7), red);
}

VT_TEST_APPLESS_MAIN(tst_RampColors)
#include "tst_RampColors.moc"
