#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "tests/support/toString.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/files/RampParts_p.h"

#include <QObject>
#include <QtTest>

#include <limits>

using namespace VTObjects;

class tst_rampParts : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aRampPutTogetherFromItsPartsIsTheSame_data();
    void aRampPutTogetherFromItsPartsIsTheSame();
    void wholeListsAreClampedLikeSingleColors();
    void listsAreSharedUntilOneIsWritten();
    void componentsAreFiniteAndFrom0To255();
};

void tst_rampParts::aRampPutTogetherFromItsPartsIsTheSame_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("random") << int(VOColorRamp::RandomRamp);
    QTest::newRow("HSV") << int(VOColorRamp::RandomHsvRamp);
    QTest::newRow("even") << int(VOColorRamp::EvenRamp);
    QTest::newRow("predefined") << int(VOColorRamp::PredefineRamp);
}

void tst_rampParts::aRampPutTogetherFromItsPartsIsTheSame()
{
    QFETCH(int, kind);
    SchemeSamples samples(51);
    RampParts parts; // the same for all, so that nothing of one ramp may stay for the next
    for (int i = 0; i < 50; ++i) {
        VOColorScheme scheme = samples.scheme(VOColorRamp::ColorRampType(kind));
        const QByteArray before = dump(scheme);
        QVERIFY(takeApart(*scheme.colorRamp, parts));
        delete scheme.colorRamp;
        scheme.colorRamp = putTogether(parts).release();
        QCOMPARE(dump(scheme), before);
    }
}

void tst_rampParts::wholeListsAreClampedLikeSingleColors()
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const QVector<rgb_color<float>> list = {{1, 2, 3}, {-1, 256, nan}, {0, 255, 127.5F}};
    VOEvenColorRamp ramp;
    ramp.setColorList(list);
    ramp.setSourceColorList(list);
    for (const rgb_color<float> color : {ramp.getColor(1), ramp.getSourceColor(1)})
        QCOMPARE(color, rgb_color<float>(0, 255, 0));
    QCOMPARE(ramp.getColor(0), list[0]);
    QCOMPARE(ramp.getSourceColor(2), list[2]);
    QCOMPARE(ramp.getLevel(), 3U);
    QCOMPARE(ramp.getSourceColorCount(), 3U);
}

void tst_rampParts::listsAreSharedUntilOneIsWritten()
{
    const QVector<rgb_color<float>> list = {{1, 2, 3}, {4, 5, 6}};
    VOEvenColorRamp ramp;
    ramp.setColorList(list);
    QCOMPARE(ramp.colorList().constData(), list.constData());
    ramp.setColor(0, {7, 8, 9});
    QCOMPARE(list[0], rgb_color<float>(1, 2, 3));
    QCOMPARE(ramp.getColor(0), rgb_color<float>(7, 8, 9));
}

void tst_rampParts::componentsAreFiniteAndFrom0To255()
{
    const float infinity = std::numeric_limits<float>::infinity();
    for (const float good : {0.0F, std::numeric_limits<float>::denorm_min(), 127.5F, 255.0F})
        QVERIFY(isComponent(good));
    for (const float bad : {-1.0F, -std::numeric_limits<float>::denorm_min(), 255.1F, infinity,
                            -infinity, std::numeric_limits<float>::quiet_NaN()}) {
        QVERIFY(!isComponent(bad));
        const float values[] = {1, 2, bad, 3};
        QVERIFY(!areComponents(values, 4));
        QVERIFY(areComponents(values, 2));
    }
}

VT_TEST_APPLESS_MAIN(tst_rampParts)
#include "tst_rampParts.moc"
