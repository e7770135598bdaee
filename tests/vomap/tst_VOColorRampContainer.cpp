#include "colorscheme/model/colorConversion.h"
#include "tests/support/TestMain.h"
#include "tests/support/rampColors.h"
#include "tests/support/toString.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOPredefineColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <memory>

using namespace VTObjects;
using RampColors::Color;

class tst_VOColorRampContainer : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void colorsAreAppendedAndRead();
    void oneColorIsOverwritten();
    void oneColorIsRemoved();
    void allColorsAreRemoved();
    void whatIsOutOfRangeDoesNothing_data();
    void whatIsOutOfRangeDoesNothing();
    void componentsAreClampedAtTheDoor_data();
    void componentsAreClampedAtTheDoor();
    void aCopyStaysAsItIsWhenTheOriginalIsWritten();
    void everyKindTellsItsClass();
    void aConstantRampIsRead_data();
    void aConstantRampIsRead();
    void aConstantRampIsReadByItsOwnClassToo();
};

namespace {

/// A host's own ramp, which knows only what is prescribed for it.
class GrayRamp : public VOColorRamp
{
public:
    bool split(unsigned int count) override
    {
        level = count;
        return true;
    }
    rgb_color<float> getColor(unsigned int index) override
    {
        return Color(float(index), float(index), float(index));
    }
    void setColor(unsigned int, rgb_color<float>) override {}
    void addColor(rgb_color<float>) override {}
    void deleteColor(unsigned int) override {}
    void deleteAll() override { level = 0; }
    unsigned int getLevel() override { return level; }
    VOColorRamp *clone() override { return new GrayRamp(*this); }
    ColorRampType category() override { return RandomRamp; }

private:
    unsigned int level = 0;
};

} // namespace

void tst_VOColorRampContainer::colorsAreAppendedAndRead()
{
    VORandomColorRamp ramp;
    ramp.addColor(Color(1.5F, 2, 3));
    ramp.addColor(Color(4, 5, 6));
    QCOMPARE(ramp.getLevel(), 2U);
    QCOMPARE(ramp.getColor(0), Color(1.5F, 2, 3));
    QCOMPARE(ramp.getColor(1), Color(4, 5, 6));
}

void tst_VOColorRampContainer::oneColorIsOverwritten()
{
    VOEvenColorRamp ramp;
    QVERIFY(ramp.split(3));
    ramp.setColor(1, Color(7, 8, 9));
    QCOMPARE(RampColors::of(ramp), (std::vector<Color>{{}, {7, 8, 9}, {}}));
}

void tst_VOColorRampContainer::oneColorIsRemoved()
{
    VOEvenColorRamp ramp;
    for (int i = 1; i <= 3; ++i)
        ramp.addColor(Color(float(i), 0, 0));
    ramp.deleteColor(1);
    QCOMPARE(RampColors::of(ramp), (std::vector<Color>{{1, 0, 0}, {3, 0, 0}}));
}

void tst_VOColorRampContainer::allColorsAreRemoved()
{
    VORandomColorRamp ramp;
    ramp.setSeed(5);
    QVERIFY(ramp.split(4));
    ramp.deleteAll();
    QCOMPARE(ramp.getLevel(), 0U);
    QCOMPARE(ramp.seed, 5);
}

void tst_VOColorRampContainer::whatIsOutOfRangeDoesNothing_data()
{
    QTest::addColumn<unsigned int>("index");
    QTest::newRow("one past the end") << 2U;
    QTest::newRow("far past the end") << 1000000U;
    QTest::newRow("negative for int") << 0x80000000U;
    QTest::newRow("largest") << std::numeric_limits<unsigned int>::max();
}

void tst_VOColorRampContainer::whatIsOutOfRangeDoesNothing()
{
    QFETCH(unsigned int, index);
    VORandomColorRamp ramp;
    ramp.addColor(Color(1, 2, 3));
    ramp.addColor(Color(4, 5, 6));
    const std::vector<Color> before = RampColors::of(ramp);
    QCOMPARE(ramp.getColor(index), Color());
    ramp.setColor(index, Color(9, 9, 9));
    ramp.deleteColor(index);
    QCOMPARE(RampColors::of(ramp), before);
}

void tst_VOColorRampContainer::componentsAreClampedAtTheDoor_data()
{
    QTest::addColumn<float>("given");
    QTest::addColumn<float>("kept");
    using Limits = std::numeric_limits<float>;
    QTest::newRow("below") << -0.5F << 0.0F;
    QTest::newRow("far below") << -Limits::max() << 0.0F;
    QTest::newRow("minus infinity") << -Limits::infinity() << 0.0F;
    QTest::newRow("not a number") << Limits::quiet_NaN() << 0.0F;
    QTest::newRow("zero") << 0.0F << 0.0F;
    QTest::newRow("smallest") << Limits::denorm_min() << Limits::denorm_min();
    QTest::newRow("a fraction") << 12.345F << 12.345F;
    QTest::newRow("top") << 255.0F << 255.0F;
    QTest::newRow("above") << 255.5F << 255.0F;
    QTest::newRow("infinity") << Limits::infinity() << 255.0F;
}

void tst_VOColorRampContainer::componentsAreClampedAtTheDoor()
{
    QFETCH(float, given);
    QFETCH(float, kept);
    VORandomColorRamp ramp;
    ramp.addColor(Color(given, 1, 2));
    ramp.addColor(Color());
    ramp.setColor(1, Color(3, given, given));
    QCOMPARE(ramp.getColor(0), Color(kept, 1, 2));
    QCOMPARE(ramp.getColor(1), Color(3, kept, kept));
    // A negative zero would leave its sign in files.
    QVERIFY(!std::signbit(ramp.getColor(0).red));
    ramp.setColor(0, Color(-0.0F, 0, 0));
    QVERIFY(!std::signbit(ramp.getColor(0).red));
}

void tst_VOColorRampContainer::aCopyStaysAsItIsWhenTheOriginalIsWritten()
{
    VOEvenColorRamp ramp;
    ramp.addColor(Color(1, 2, 3));
    const std::unique_ptr<VOColorRamp> copy(ramp.clone());
    ramp.setColor(0, Color(9, 9, 9));
    ramp.addColor(Color(8, 8, 8));
    QCOMPARE(copy->getLevel(), 1U);
    QCOMPARE(copy->getColor(0), Color(1, 2, 3));
    copy->deleteAll();
    QCOMPARE(ramp.getLevel(), 2U);
}

void tst_VOColorRampContainer::everyKindTellsItsClass()
{
    const std::unique_ptr<VOColorRamp> ramps[] = {
        std::make_unique<VORandomColorRamp>(), std::make_unique<VORandomColorRampForHsv>(),
        std::make_unique<VOEvenColorRamp>(), std::make_unique<VOPredefineColorRamp>()};
    for (int kind = 0; kind < 4; ++kind) {
        VOColorRamp *ramp = ramps[kind].get();
        QCOMPARE(int(ramp->category()), kind);
        QVERIFY(dynamic_cast<VOColorRampContainer *>(ramp));
        QCOMPARE(dynamic_cast<VORandomColorRamp *>(ramp) != nullptr, kind <= 1);
        QCOMPARE(dynamic_cast<VORandomColorRampForHsv *>(ramp) != nullptr, kind == 1);
        QCOMPARE(dynamic_cast<VOEvenColorRamp *>(ramp) != nullptr, kind >= 2);
        QCOMPARE(dynamic_cast<VOPredefineColorRamp *>(ramp) != nullptr, kind == 3);
        QCOMPARE(ramp->getLevel(), 0U);
    }
    QCOMPARE(int(VOColorRamp::RandomRamp), 0);
    QCOMPARE(int(VOColorRamp::RandomHsvRamp), 1);
    QCOMPARE(int(VOColorRamp::EvenRamp), 2);
    QCOMPARE(int(VOColorRamp::PredefineRamp), 3);
}

void tst_VOColorRampContainer::aConstantRampIsRead_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("random") << 0;
    QTest::newRow("HSV") << 1;
    QTest::newRow("even") << 2;
    QTest::newRow("predefined") << 3;
    QTest::newRow("a host's") << 4;
}

void tst_VOColorRampContainer::aConstantRampIsRead()
{
    QFETCH(int, kind);
    std::unique_ptr<VOColorRamp> ramp;
    switch (kind) {
    case 0:
        ramp = std::make_unique<VORandomColorRamp>();
        break;
    case 1:
        ramp = std::make_unique<VORandomColorRampForHsv>();
        break;
    case 2:
        ramp = std::make_unique<VOEvenColorRamp>();
        break;
    case 3:
        ramp = std::make_unique<VOPredefineColorRamp>();
        break;
    default:
        ramp = std::make_unique<GrayRamp>();
    }
    QVERIFY(ramp->split(7));
    const VOColorRamp &read = *ramp;
    QCOMPARE(read.getLevel(), 7U);
    QCOMPARE(read.category(), ramp->category());
    const std::unique_ptr<VOColorRamp> copy(read.clone());
    QCOMPARE(copy->getLevel(), 7U);
    const QVector<QColor> drawn = toQColors(read);
    QCOMPARE(drawn.size(), 7);
    for (unsigned int i = 0; i < 8; ++i) { // and one past the end
        QCOMPARE(read.getColor(i), ramp->getColor(i));
        QCOMPARE(copy->getColor(i), ramp->getColor(i));
        if (i < 7)
            QCOMPARE(drawn.at(int(i)), toQColor(ramp->getColor(i)));
    }
    ramp->deleteAll();
    QVERIFY(toQColors(read).isEmpty());
}

void tst_VOColorRampContainer::aConstantRampIsReadByItsOwnClassToo()
{
    VOPredefineColorRamp predefined;
    Color sources[] = {{1, 2, 3}, {4, 5, 6}};
    QVERIFY(predefined.setSourceColor(2, sources));
    QVERIFY(predefined.split(2));
    const VOPredefineColorRamp &read = predefined;
    QCOMPARE(read.getLevel(), 2U);
    QCOMPARE(read.getColor(1), Color(4, 5, 6));
    QCOMPARE(read.category(), VOColorRamp::PredefineRamp);
    QCOMPARE(read.getSourceColorCount(), 2U);
    QCOMPARE(read.getSourceColor(1), Color(4, 5, 6));
    QCOMPARE(read.getSourceColor(2), Color());
    const VORandomColorRampForHsv random;
    QCOMPARE(random.getLevel(), 0U);
    QCOMPARE(random.category(), VOColorRamp::RandomHsvRamp);
    const std::unique_ptr<VOColorRamp> copy(random.clone());
    QCOMPARE(copy->category(), VOColorRamp::RandomHsvRamp);
}

VT_TEST_GUILESS_MAIN(tst_VOColorRampContainer)
#include "tst_VOColorRampContainer.moc"
