#include "tests/support/TestMain.h"
#include "tests/support/rampColors.h"
#include "tests/support/toString.h"
#include "vomap/VOPredefineColorRamp.h"

#include <QtTest>

#include <limits>
#include <memory>

using namespace VTObjects;
using RampColors::Color;

class tst_VOPredefineColorRamp : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aNewRampIsEmpty();
    void withoutSourcesTheBuiltInListIsTaken();
    void theBuiltInListReadsAsLowAndHigh();
    void ownSourcesWin();
    void aRefusedSplitLeavesTheSourcesAsTheyWere();
    void aCloneIsIndependent();
};

void tst_VOPredefineColorRamp::aNewRampIsEmpty()
{
    VOPredefineColorRamp ramp;
    QCOMPARE(ramp.getLevel(), 0U);
    QCOMPARE(ramp.getSourceColorCount(), 0U);
    QCOMPARE(int(ramp.category()), 3);
    VOColorRamp *base = &ramp;
    QVERIFY(dynamic_cast<VOEvenColorRamp *>(base));
}

void tst_VOPredefineColorRamp::withoutSourcesTheBuiltInListIsTaken()
{
    VOPredefineColorRamp ramp;
    QVERIFY(ramp.split(19));
    QCOMPARE(ramp.getLevel(), 19U);
    QCOMPARE(ramp.getSourceColorCount(), 10U);
    for (int i = 0; i < 10; ++i)
        QCOMPARE(ramp.getColor(static_cast<unsigned int>(2 * i)), ramp.getSourceColor(i));
    QCOMPARE(ramp.getColor(0), Color(43, 48, 140));
    QCOMPARE(ramp.getColor(18), Color(146, 8, 42));
}

void tst_VOPredefineColorRamp::theBuiltInListReadsAsLowAndHigh()
{
    VOPredefineColorRamp ramp;
    QVERIFY(ramp.split(10));
    const std::vector<Color> colors = RampColors::of(ramp);
    for (std::size_t i = 1; i < colors.size(); ++i) {
        const ColorJudge::Triple before = RampColors::lab(colors[i - 1]);
        const ColorJudge::Triple here = RampColors::lab(colors[i]);
        QVERIFY(i <= 5 ? here[0] > before[0] : here[0] < before[0]);
        const double step = ColorJudge::difference(before, here);
        QVERIFY(step > 12.5 && step < 28.5);
    }
}

void tst_VOPredefineColorRamp::ownSourcesWin()
{
    Color sources[] = {{1, 2, 3}, {200, 100, 50}};
    VOPredefineColorRamp ramp;
    QVERIFY(ramp.setSourceColor(2, sources));
    QVERIFY(ramp.split(3));
    QCOMPARE(ramp.getSourceColorCount(), 2U);
    QCOMPARE(ramp.getColor(0), sources[0]);
    QCOMPARE(ramp.getColor(2), sources[1]);
}

void tst_VOPredefineColorRamp::aRefusedSplitLeavesTheSourcesAsTheyWere()
{
    VOPredefineColorRamp ramp;
    QVERIFY(!ramp.split(std::numeric_limits<unsigned int>::max()));
    QCOMPARE(ramp.getSourceColorCount(), 0U);
    QCOMPARE(ramp.getLevel(), 0U);
}

void tst_VOPredefineColorRamp::aCloneIsIndependent()
{
    auto ramp = std::make_unique<VOPredefineColorRamp>();
    QVERIFY(ramp->split(7));
    const std::vector<Color> colors = RampColors::of(*ramp);
    const std::unique_ptr<VOColorRamp> copy(ramp->clone());
    ramp->deleteAll();
    ramp.reset();
    QCOMPARE(int(copy->category()), 3);
    QCOMPARE(RampColors::of(*copy), colors);
    auto *predefined = dynamic_cast<VOPredefineColorRamp *>(copy.get());
    QVERIFY(predefined);
    QCOMPARE(predefined->getSourceColorCount(), 10U);
}

VT_TEST_GUILESS_MAIN(tst_VOPredefineColorRamp)
#include "tst_VOPredefineColorRamp.moc"
