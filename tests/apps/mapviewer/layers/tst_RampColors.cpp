#include "tests/apps/mapviewer/layers/mapFixtures.h"

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

static const QRgb Black = qRgb(0, 0, 0);
static const QRgb White = qRgb(255, 255, 255);
static const QRgb Red = qRgb(200, 0, 0);

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
        QCOMPARE(classColors(ramp, 2), QVector<QRgb>({NoValueColor, NoValueColor}));
        QCOMPARE(uniqueColors(ramp, 1), QVector<QRgb>({NoValueColor}));
    }
}

void tst_RampColors::classesSpreadOverTheRamp()
{
    const auto ramp = rampOf({Black, White});
    QCOMPARE(classColors(ramp.get(), 3), QVector<QRgb>({Black, qRgb(128, 128, 128), White}));
    const auto five = rampOf({Black, Red, White, Red, Black});
    QCOMPARE(classColors(five.get(), 3), QVector<QRgb>({Black, White, Black}));
    QVERIFY(classColors(five.get(), 0).isEmpty());
}

void tst_RampColors::asManyClassesAsColorsTakeThemExactly()
{
    const auto ramp = rampOf({White, Red, Black});
    QCOMPARE(classColors(ramp.get(), 3), rampColors(ramp.get()));
}

void tst_RampColors::oneClassTakesTheMiddle()
{
    const auto ramp = rampOf({White, Red, Black});
    QCOMPARE(classColors(ramp.get(), 1), QVector<QRgb>({Red}));
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
    const auto ramp = rampOf({Red, White});
    QCOMPARE(uniqueColors(ramp.get(), 5), QVector<QRgb>({Red, White, Red, White, Red}));
    QCOMPARE(uniqueColors(ramp.get(), 1), QVector<QRgb>({Red}));
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
    const QVector<QRgb> colors = {Black, Red, White};
    QCOMPARE(colorAlong(colors, 0.0), Black);
    QCOMPARE(colorAlong(colors, 0.25), qRgb(100, 0, 0));
    QCOMPARE(colorAlong(colors, 0.5), Red);
    QCOMPARE(colorAlong(colors, 1.0), White);
    QCOMPARE(colorAlong(colors, -3.0), Black);
    QCOMPARE(colorAlong(colors, 3.0), White);
    QCOMPARE(colorAlong({Red}, 0.7), Red);
}

QTEST_APPLESS_MAIN(tst_RampColors)
#include "tst_RampColors.moc"
