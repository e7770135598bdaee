#include "tests/support/TestMain.h"
#include "tests/support/rampColors.h"
#include "tests/support/toString.h"
#include "vomap/VORandomColorRampForHsv.h"

#include <QtTest>

#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <set>

using namespace VTObjects;
using RampColors::Color;

namespace {

using Bounds = QList<int>; // minH, maxH, minS, maxS, minV, maxV

void setBounds(VORandomColorRampForHsv &ramp, const Bounds &bounds)
{
    ramp.minH = bounds.at(0);
    ramp.maxH = bounds.at(1);
    ramp.minS = bounds.at(2);
    ramp.maxS = bounds.at(3);
    ramp.minV = bounds.at(4);
    ramp.maxV = bounds.at(5);
}

std::vector<Color> colorsOf(int seed, const Bounds &bounds, unsigned int count)
{
    VORandomColorRampForHsv ramp;
    ramp.setSeed(seed);
    setBounds(ramp, bounds);
    return ramp.split(count) ? RampColors::of(ramp) : std::vector<Color>();
}

// The bounds in order, by the published rule and not by the library's code.
struct Box
{
    explicit Box(const Bounds &bounds)
    {
        for (int i = 0; i < 3; ++i) {
            std::array<double, 2> ends;
            for (int j = 0; j < 2; ++j) {
                const int bound = bounds.at(2 * i + j);
                const int wrapped = i == 0 && bound > 360 ? bound % 360 : bound;
                ends[static_cast<std::size_t>(j)] = qBound(0, wrapped, i == 0 ? 360 : 100);
            }
            low[i] = std::min(ends[0], ends[1]);
            high[i] = std::max(ends[0], ends[1]);
        }
    }
    double low[3];
    double high[3];
};

double fallAt(double hue, int middle)
{
    double off = std::fabs(hue / 60.0 - middle);
    off = std::min(off, 6.0 - off);
    return std::clamp(off - 1.0, 0.0, 1.0);
}

// How far the nearest colour of the box is, in steps of the component that is furthest off. For
// one hue the components of a box's colours run over intervals; hues are tried in small steps.
double stepsOutside(const Box &box, const Color &color)
{
    const double parts[3] = {color.red, color.green, color.blue};
    double best = 1000.0;
    const int tries = 400;
    const double top = *std::max_element(parts, parts + 3);
    const double bottom = *std::min_element(parts, parts + 3);
    double ownHue = 0.0;
    if (top > bottom) {
        const double chroma = top - bottom;
        if (top == parts[0])
            ownHue = 60.0 * (parts[1] - parts[2]) / chroma;
        else if (top == parts[1])
            ownHue = 120.0 + 60.0 * (parts[2] - parts[0]) / chroma;
        else
            ownHue = 240.0 + 60.0 * (parts[0] - parts[1]) / chroma;
        if (ownHue < 0.0)
            ownHue += 360.0;
    }
    // Its own hue first: nearly every colour is found there.
    for (int i = -1; i <= tries; ++i) {
        const double hue = i < 0 ? std::clamp(ownHue, box.low[0], box.high[0])
                                 : box.low[0] + (box.high[0] - box.low[0]) * i / tries;
        for (const double nudge : {0.0, -1.0, -0.5, 0.5, 1.0}) {
            const double value = std::clamp((top + nudge) / 2.55, box.low[2], box.high[2]);
            const double full = value * 2.55;
            for (const double more : {0.0, -1.0, -0.5, 0.5, 1.0}) {
                const double saturation =
                    std::clamp(full > 0.0 ? 100.0 * (full - bottom - more) / full : 0.0, box.low[1],
                               box.high[1]);
                double worst = 0.0;
                for (int part = 0; part < 3; ++part) {
                    const double exact = full * (1.0 - saturation / 100.0 * fallAt(hue, 2 * part));
                    worst = std::max(worst, std::fabs(exact - parts[part]));
                }
                best = std::min(best, worst);
            }
        }
        if (best <= 0.5)
            return best;
    }
    return best;
}

} // namespace

class tst_VORandomColorRampForHsv : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aNewRampIsEmptyAndUnbounded();
    void theFieldsLieInTheirOrder();
    void thePublishedVectorsComeOut_data();
    void thePublishedVectorsComeOut();
    void colorsStandApartInTheirBox_data();
    void colorsStandApartInTheirBox();
    void aThousandRandomBoxesKeepTheirColors();
    void aWideBoxHoldsItsColorsExactly();
    void boundsAreBroughtIntoOrder_data();
    void boundsAreBroughtIntoOrder();
    void theFieldsKeepWhatWasWritten();
    void aLongerRampBeginsWithTheShorterOne();
    void aThousandColorsAreDistinct();
    void aSmallBoxRepeatsItsColors();
    void aMillionColorsComeOut();
    void aLevelBeyondAllMemoryLeavesTheRampAsItWas();
    void aCloneIsIndependent();
};

void tst_VORandomColorRampForHsv::aNewRampIsEmptyAndUnbounded()
{
    VORandomColorRampForHsv ramp;
    QCOMPARE(ramp.getLevel(), 0U);
    QCOMPARE(int(ramp.category()), 1);
    QCOMPARE(ramp.seed, 0);
    QVERIFY(!ramp.paramsChanged);
    QCOMPARE(ramp.minH, 0);
    QCOMPARE(ramp.maxH, 360);
    QCOMPARE(ramp.minS, 0);
    QCOMPARE(ramp.maxS, 100);
    QCOMPARE(ramp.minV, 0);
    QCOMPARE(ramp.maxV, 100);
    QVERIFY(ramp.split(0));
    QCOMPARE(ramp.getLevel(), 0U);
}

void tst_VORandomColorRampForHsv::theFieldsLieInTheirOrder()
{
    VORandomColorRampForHsv ramp;
    const auto place = [](const void *field) { return reinterpret_cast<quintptr>(field); };
    QVERIFY(place(&ramp.seed) < place(&ramp.paramsChanged));
    QVERIFY(place(&ramp.paramsChanged) < place(&ramp.minH));
    const int *const fields[] = {&ramp.minH, &ramp.maxH, &ramp.minS,
                                 &ramp.maxS, &ramp.minV, &ramp.maxV};
    for (int i = 1; i < 6; ++i)
        QCOMPARE(place(fields[i]), place(fields[i - 1]) + sizeof(int));
}

void tst_VORandomColorRampForHsv::thePublishedVectorsComeOut_data()
{
    QTest::addColumn<Bounds>("bounds");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the editor's first bounds")
        << Bounds{1, 100, 1, 99, 1, 99}
        << QString("a49998 4cc708 a81102 4b673a fcdc36 a27711 55403b fc7065");
    QTest::newRow("pastel") << Bounds{0, 360, 20, 45, 85, 100}
                            << QString("ccda97 7c78da db7980 7ebee0 86efdd f1cbfe e9bea8 cd7fd9");
    QTest::newRow("blues") << Bounds{200, 250, 20, 100, 20, 100}
                           << QString("1a2939 907dff 5dc2fb 1a00c5 0069a1 d3ccff 090136 827e9e");
}

void tst_VORandomColorRampForHsv::thePublishedVectorsComeOut()
{
    QFETCH(Bounds, bounds);
    QFETCH(QString, expected);
    QStringList found;
    for (const Color &color : colorsOf(1, bounds, 8))
        found << QString::number(RampColors::packed(color), 16).rightJustified(6, QLatin1Char('0'));
    QCOMPARE(found.join(QLatin1Char(' ')), expected);
}

void tst_VORandomColorRampForHsv::colorsStandApartInTheirBox_data()
{
    QTest::addColumn<Bounds>("bounds");
    QTest::addColumn<double>("aim");
    QTest::newRow("the editor's first bounds") << Bounds{1, 100, 1, 99, 1, 99} << 19.0;
    QTest::newRow("pastel") << Bounds{0, 360, 20, 45, 85, 100} << 14.0;
    QTest::newRow("blues") << Bounds{200, 250, 0, 100, 0, 100} << 11.0;
}

void tst_VORandomColorRampForHsv::colorsStandApartInTheirBox()
{
    QFETCH(Bounds, bounds);
    QFETCH(double, aim);
    std::vector<double> normal;
    std::vector<double> dichromat;
    for (int seed = 0; seed <= 1000; ++seed) {
        const auto pairs = RampColors::smallestPairs(colorsOf(seed, bounds, 10), {10});
        normal.push_back(pairs[0].normal);
        dichromat.push_back(pairs[0].dichromat);
    }
    qInfo("N = 10: smallest CIEDE2000 pair over seeds 0..1000: median %.2f, worst %.2f; worst "
          "dichromacy: median %.2f, worst %.2f",
          RampColors::median(normal), RampColors::smallest(normal), RampColors::median(dichromat),
          RampColors::smallest(dichromat));
    QVERIFY(RampColors::median(normal) >= aim);
}

void tst_VORandomColorRampForHsv::aThousandRandomBoxesKeepTheirColors()
{
    std::mt19937 generator(20240611);
    const auto drawn = [&generator](int low, int high) {
        return low + static_cast<int>(generator() % static_cast<unsigned int>(high - low + 1));
    };
    double worst = 0.0;
    for (int i = 0; i < 1000; ++i) {
        Bounds bounds;
        for (int j = 0; j < 6; ++j) {
            // Half of them as the editor allows, half within the usual scale; inverted ones come
            // by themselves.
            const int usual = j < 2 ? 360 : 100;
            bounds << drawn(0, i % 2 == 0 ? usual : 1000);
        }
        if (i % 5 == 0) { // degenerate: without any extent in one or all directions
            bounds[1] = i % 10 == 0 ? bounds.at(0) : bounds.at(1);
            bounds[3] = i % 15 == 0 ? bounds.at(2) : bounds.at(3);
            bounds[5] = i % 20 == 0 ? bounds.at(4) : bounds.at(5);
        }
        const Box box(bounds);
        const std::vector<Color> colors = colorsOf(i, bounds, 20);
        QCOMPARE(colors.size(), std::size_t(20));
        for (const Color &color : colors) {
            QVERIFY(RampColors::isWhole(color));
            worst = std::max(worst, stepsOutside(box, color));
        }
    }
    qInfo("1000 random boxes x 20 colors: at most %.3f steps of 8 bits outside", worst);
    QVERIFY(worst <= 1.0);
}

void tst_VORandomColorRampForHsv::aWideBoxHoldsItsColorsExactly()
{
    for (int seed = 0; seed < 20; ++seed) {
        for (const Color &color : colorsOf(seed, {200, 250, 20, 90, 30, 80}, 300)) {
            const double top = std::max({color.red, color.green, color.blue});
            const double bottom = std::min({color.red, color.green, color.blue});
            QVERIFY(top >= 0.30 * 255.0 && top <= 0.80 * 255.0);
            QVERIFY(top - bottom >= 0.20 * top - 1e-9 && top - bottom <= 0.90 * top + 1e-9);
            QVERIFY(color.blue == top);
            const double hue = 240.0 + 60.0 * (color.red - color.green) / (top - bottom);
            QVERIFY(hue >= 200.0 - 1e-9 && hue <= 250.0 + 1e-9);
        }
    }
}

void tst_VORandomColorRampForHsv::boundsAreBroughtIntoOrder_data()
{
    QTest::addColumn<Bounds>("given");
    QTest::addColumn<Bounds>("same");
    const Bounds plain = {40, 80, 30, 90, 50, 100};
    QTest::newRow("hue in the wrong order") << Bounds{80, 40, 30, 90, 50, 100} << plain;
    QTest::newRow("saturation in the wrong order") << Bounds{40, 80, 90, 30, 50, 100} << plain;
    QTest::newRow("value in the wrong order") << Bounds{40, 80, 30, 90, 100, 50} << plain;
    QTest::newRow("hue wraps") << Bounds{400, 440, 30, 90, 50, 100} << plain;
    QTest::newRow("hue wraps twice") << Bounds{760, 80, 30, 90, 50, 100} << plain;
    QTest::newRow("360 does not wrap")
        << Bounds{0, 720 + 1, 0, 100, 0, 100} << Bounds{0, 1, 0, 100, 0, 100};
    QTest::newRow("value is cut") << Bounds{40, 80, 30, 90, 50, 1000} << plain;
    QTest::newRow("saturation is cut")
        << Bounds{40, 80, 30, 101, 50, 100} << Bounds{40, 80, 30, 100, 50, 100};
    QTest::newRow("negative counts as 0")
        << Bounds{-90, 80, -1, 90, -5, 100} << Bounds{0, 80, 0, 90, 0, 100};
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    QTest::newRow("the ends of int")
        << Bounds{least, most, least, most, least, most} << Bounds{0, most % 360, 0, 100, 0, 100};
}

void tst_VORandomColorRampForHsv::boundsAreBroughtIntoOrder()
{
    QFETCH(Bounds, given);
    QFETCH(Bounds, same);
    QCOMPARE(colorsOf(4, given, 30), colorsOf(4, same, 30));
}

void tst_VORandomColorRampForHsv::theFieldsKeepWhatWasWritten()
{
    VORandomColorRampForHsv ramp;
    setBounds(ramp, {400, -3, 120, 7, 101, -1});
    ramp.paramsChanged = true;
    QVERIFY(ramp.split(3));
    QCOMPARE(ramp.minH, 400);
    QCOMPARE(ramp.maxH, -3);
    QCOMPARE(ramp.minS, 120);
    QCOMPARE(ramp.maxV, -1);
    QVERIFY(ramp.paramsChanged);
}

void tst_VORandomColorRampForHsv::aLongerRampBeginsWithTheShorterOne()
{
    const Bounds boxes[] = {{1, 100, 1, 99, 1, 99},
                            {0, 360, 0, 100, 0, 100},
                            {10, 12, 50, 51, 50, 51},
                            {5, 5, 5, 5, 5, 5}};
    for (const Bounds &bounds : boxes) {
        const std::vector<Color> longest = colorsOf(9, bounds, 3000);
        std::vector<unsigned int> levels;
        for (unsigned int level = 2; level <= 100; ++level)
            levels.push_back(level);
        levels.insert(levels.end(), {1023, 1024, 1025, 2048});
        for (const unsigned int level : levels) {
            const std::vector<Color> shorter = colorsOf(9, bounds, level);
            QCOMPARE(shorter.size(), std::size_t(level));
            QVERIFY(std::equal(shorter.begin(), shorter.end(), longest.begin()));
        }
    }
}

void tst_VORandomColorRampForHsv::aThousandColorsAreDistinct()
{
    for (const Bounds &bounds : {Bounds{1, 100, 1, 99, 1, 99}, Bounds{0, 360, 20, 45, 85, 100},
                                 Bounds{200, 250, 0, 100, 0, 100}}) {
        std::set<unsigned int> kinds;
        for (const Color &color : colorsOf(1, bounds, 1000))
            kinds.insert(RampColors::packed(color));
        QCOMPARE(kinds.size(), std::size_t(1000));
    }
}

void tst_VORandomColorRampForHsv::aSmallBoxRepeatsItsColors()
{
    // One place only
    for (const Color &color : colorsOf(1, {120, 120, 100, 100, 100, 100}, 10))
        QCOMPARE(color, Color(0.0F, 255.0F, 0.0F));
    // Greys: 256 of them
    std::set<unsigned int> grays;
    for (const Color &color : colorsOf(1, {0, 360, 0, 0, 0, 100}, 600)) {
        QVERIFY(color.red == color.green && color.green == color.blue);
        grays.insert(RampColors::packed(color));
    }
    QCOMPARE(grays.size(), std::size_t(256));
    // Black
    for (const Color &color : colorsOf(1, {0, 360, 0, 100, 0, 0}, 5))
        QCOMPARE(color, Color());
}

void tst_VORandomColorRampForHsv::aMillionColorsComeOut()
{
    std::set<unsigned int> kinds;
    const std::vector<Color> colors = colorsOf(1, {0, 360, 0, 100, 0, 100}, 1000000);
    QCOMPARE(colors.size(), std::size_t(1000000));
    for (std::size_t i = 0; i < colors.size(); i += 10)
        kinds.insert(RampColors::packed(colors[i]));
    QCOMPARE(kinds.size(), std::size_t(100000));
}

void tst_VORandomColorRampForHsv::aLevelBeyondAllMemoryLeavesTheRampAsItWas()
{
    VORandomColorRampForHsv ramp;
    QVERIFY(ramp.split(5));
    const std::vector<Color> before = RampColors::of(ramp);
    QVERIFY(!ramp.split(std::numeric_limits<unsigned int>::max()));
    QCOMPARE(RampColors::of(ramp), before);
}

void tst_VORandomColorRampForHsv::aCloneIsIndependent()
{
    auto ramp = std::make_unique<VORandomColorRampForHsv>();
    ramp->setSeed(8);
    setBounds(*ramp, {10, 20, 30, 40, 50, 60});
    ramp->paramsChanged = true;
    QVERIFY(ramp->split(4));
    ramp->setColor(3, Color(1.0F, 2.0F, 3.0F));
    const std::vector<Color> colors = RampColors::of(*ramp);
    const std::unique_ptr<VOColorRamp> copy(ramp->clone());
    ramp.reset();
    QCOMPARE(int(copy->category()), 1);
    QCOMPARE(RampColors::of(*copy), colors);
    auto *hsv = dynamic_cast<VORandomColorRampForHsv *>(copy.get());
    QVERIFY(hsv);
    QCOMPARE(hsv->seed, 8);
    QVERIFY(hsv->paramsChanged);
    const Bounds bounds = {hsv->minH, hsv->maxH, hsv->minS, hsv->maxS, hsv->minV, hsv->maxV};
    QCOMPARE(bounds, (Bounds{10, 20, 30, 40, 50, 60}));
}

VT_TEST_GUILESS_MAIN(tst_VORandomColorRampForHsv)
#include "tst_VORandomColorRampForHsv.moc"
