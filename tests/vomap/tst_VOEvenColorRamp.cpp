#include "tests/support/TestMain.h"
#include "tests/support/rampColors.h"
#include "tests/support/toString.h"
#include "vomap/VOEvenColorRamp.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <memory>

using namespace VTObjects;
using RampColors::Color;
using Sources = std::vector<Color>;
Q_DECLARE_METATYPE(Sources)

namespace {

std::vector<Color> colorsOf(Sources sources, unsigned int count)
{
    VOEvenColorRamp ramp;
    if (!ramp.setSourceColor(static_cast<long>(sources.size()), sources.data()) ||
        !ramp.split(count))
        return {};
    return RampColors::of(ramp);
}

double variationOfSteps(const std::vector<Color> &colors)
{
    double sum = 0.0;
    double squares = 0.0;
    for (std::size_t i = 1; i < colors.size(); ++i) {
        const double step =
            ColorJudge::difference(RampColors::lab(colors[i - 1]), RampColors::lab(colors[i]));
        sum += step;
        squares += step * step;
    }
    const double count = static_cast<double>(colors.size() - 1);
    const double mean = sum / count;
    return std::sqrt(squares / count - mean * mean) / mean;
}

// The published formulas in double precision.
ColorJudge::Triple mixedByTheBook(const Color &from, const Color &to, double t)
{
    constexpr double k1 = 0.206;
    constexpr double k2 = 0.03;
    constexpr double k3 = (1.0 + k1) / (1.0 + k2);
    const auto oklab = [&](const Color &color) {
        const ColorJudge::Triple c = ColorJudge::linearLight(RampColors::triple(color));
        const double l = std::cbrt(0.4122214708 * c[0] + 0.5363325363 * c[1] + 0.0514459929 * c[2]);
        const double m = std::cbrt(0.2119034982 * c[0] + 0.6806995451 * c[1] + 0.1073969566 * c[2]);
        const double s = std::cbrt(0.0883024619 * c[0] + 0.2817188376 * c[1] + 0.6299787005 * c[2]);
        const double lightness = 0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s;
        const double u = k3 * lightness - k1;
        return ColorJudge::Triple{(u + std::sqrt(u * u + 4.0 * k2 * k3 * lightness)) / 2.0,
                                  1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
                                  0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
    };
    const ColorJudge::Triple a = oklab(from);
    const ColorJudge::Triple b = oklab(to);
    ColorJudge::Triple p;
    for (std::size_t i = 0; i < p.size(); ++i)
        p[i] = a[i] + (b[i] - a[i]) * t;
    const double lightness = (p[0] * p[0] + k1 * p[0]) / (k3 * (p[0] + k2));
    const double l = std::pow(lightness + 0.3963377774 * p[1] + 0.2158037573 * p[2], 3.0);
    const double m = std::pow(lightness - 0.1055613458 * p[1] - 0.0638541728 * p[2], 3.0);
    const double s = std::pow(lightness - 0.0894841775 * p[1] - 1.2914855480 * p[2], 3.0);
    ColorJudge::Triple light = {4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s,
                                -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s,
                                -0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s};
    for (double &part : light)
        part = std::clamp(part, 0.0, 1.0);
    return ColorJudge::encoded(light);
}

void addRamps()
{
    QTest::addColumn<Sources>("sources");
    QTest::addColumn<double>("aim");
    QTest::newRow("default ramp") << Sources{{196, 69, 57}, {255, 255, 191}, {48, 95, 207}} << 0.20;
    QTest::newRow("white to blue") << Sources{{255, 255, 255}, {0, 0, 255}} << 0.20;
    QTest::newRow("black to white") << Sources{{0, 0, 0}, {255, 255, 255}} << 0.20;
    QTest::newRow("blue, white, red") << Sources{{0, 0, 255}, {255, 255, 255}, {255, 0, 0}} << 0.20;
    QTest::newRow("blue to yellow") << Sources{{0, 0, 255}, {255, 255, 0}} << 0.22;
    QTest::newRow("red to green") << Sources{{255, 0, 0}, {0, 255, 0}} << 0.26;
}

} // namespace

class tst_VOEvenColorRamp : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aNewRampIsEmpty();
    void sourcesAreCopiedAndKept();
    void badSourceListsAreRefused();
    void sourcesAreClampedAtTheDoor();
    void settingSourcesLeavesTheColorsToTheNextSplit();
    void splittingLeavesExactlyTheLevel_data();
    void splittingLeavesExactlyTheLevel();
    void withoutSourcesAllIsBlack();
    void oneSourceFillsTheRamp();
    void theEndsAreTheOuterSources();
    void sourcesComeOutExactlyWhereTheyFit();
    void fewerColorsThanSourcesPickSources();
    void generatedColorsAreWhole();
    void theWayFollowsTheBook();
    void equalNeighborsStayWhatTheyAre();
    void stepsAreEven_data();
    void stepsAreEven();
    void lightnessTurnsOnlyWhereTheSourcesTurn_data();
    void lightnessTurnsOnlyWhereTheSourcesTurn();
    void roundingAloneMovesTheLightnessOfLongRamps_data();
    void roundingAloneMovesTheLightnessOfLongRamps();
    void aMillionColorsKeepTheEnds();
    void aLevelBeyondAllMemoryLeavesTheRampAsItWas();
    void aCloneIsIndependent();
};

void tst_VOEvenColorRamp::aNewRampIsEmpty()
{
    VOEvenColorRamp ramp;
    QCOMPARE(ramp.getLevel(), 0U);
    QCOMPARE(ramp.getSourceColorCount(), 0U);
    QCOMPARE(int(ramp.category()), 2);
}

void tst_VOEvenColorRamp::sourcesAreCopiedAndKept()
{
    Sources sources = {{1.5F, 2, 3}, {4, 5, 6}};
    VOEvenColorRamp ramp;
    QVERIFY(ramp.setSourceColor(2, sources.data()));
    sources[0] = Color(9, 9, 9);
    QCOMPARE(ramp.getSourceColorCount(), 2U);
    QCOMPARE(ramp.getSourceColor(0), Color(1.5F, 2, 3));
    QCOMPARE(ramp.getSourceColor(1), Color(4, 5, 6));
    QCOMPARE(ramp.getSourceColor(2), Color());
    QCOMPARE(ramp.getSourceColor(-1), Color());
    QVERIFY(ramp.setSourceColor(0, nullptr));
    QCOMPARE(ramp.getSourceColorCount(), 0U);
}

void tst_VOEvenColorRamp::badSourceListsAreRefused()
{
    Sources sources = {{1, 2, 3}};
    VOEvenColorRamp ramp;
    QVERIFY(ramp.setSourceColor(1, sources.data()));
    QVERIFY(!ramp.setSourceColor(-1, sources.data()));
    QVERIFY(!ramp.setSourceColor(2, nullptr));
    QVERIFY(!ramp.setSourceColor(std::numeric_limits<long>::max(), sources.data()));
    QCOMPARE(ramp.getSourceColorCount(), 1U);
    QCOMPARE(ramp.getSourceColor(0), Color(1, 2, 3));
}

void tst_VOEvenColorRamp::sourcesAreClampedAtTheDoor()
{
    const float infinite = std::numeric_limits<float>::infinity();
    const float none = std::numeric_limits<float>::quiet_NaN();
    Sources sources = {{-1, 256, none}, {infinite, -infinite, 255.5F}};
    VOEvenColorRamp ramp;
    QVERIFY(ramp.setSourceColor(2, sources.data()));
    QCOMPARE(ramp.getSourceColor(0), Color(0, 255, 0));
    QCOMPARE(ramp.getSourceColor(1), Color(255, 0, 255));
}

void tst_VOEvenColorRamp::settingSourcesLeavesTheColorsToTheNextSplit()
{
    Sources sources = {{1, 2, 3}};
    VOEvenColorRamp ramp;
    QVERIFY(ramp.setSourceColor(1, sources.data()));
    QCOMPARE(ramp.getLevel(), 0U);
    QVERIFY(ramp.split(2));
    sources[0] = Color(7, 8, 9);
    QVERIFY(ramp.setSourceColor(1, sources.data()));
    QCOMPARE(ramp.getColor(0), Color(1, 2, 3));
}

void tst_VOEvenColorRamp::splittingLeavesExactlyTheLevel_data()
{
    QTest::addColumn<unsigned int>("level");
    for (const unsigned int level : {0U, 1U, 2U, 3U, 10U, 64U, 255U, 1000U, 100000U})
        QTest::addRow("%u", level) << level;
}

void tst_VOEvenColorRamp::splittingLeavesExactlyTheLevel()
{
    QFETCH(unsigned int, level);
    for (const Sources &sources : {Sources{}, Sources{{5, 6, 7}}, Sources{{0, 0, 0}, {9, 9, 9}},
                                   Sources(50, Color(1, 2, 3))})
        QCOMPARE(colorsOf(sources, level).size(), std::size_t(level));
}

void tst_VOEvenColorRamp::withoutSourcesAllIsBlack()
{
    for (const Color &color : colorsOf({}, 5))
        QCOMPARE(color, Color());
}

void tst_VOEvenColorRamp::oneSourceFillsTheRamp()
{
    const Color source(12.25F, 200, 0.5F);
    for (const Color &color : colorsOf({source}, 5))
        QCOMPARE(color, source);
}

void tst_VOEvenColorRamp::theEndsAreTheOuterSources()
{
    const Sources sources = {{0.25F, 10.5F, 20}, {100, 3, 77}, {254.75F, 1, 2}};
    for (unsigned int level = 2; level <= 300; ++level) {
        const std::vector<Color> colors = colorsOf(sources, level);
        QCOMPARE(colors.front(), sources.front());
        QCOMPARE(colors.back(), sources.back());
    }
    QCOMPARE(colorsOf(sources, 1).front(), sources.front());
}

void tst_VOEvenColorRamp::sourcesComeOutExactlyWhereTheyFit()
{
    Sources sources;
    for (int count = 2; count <= 9; ++count) {
        sources.clear();
        for (int i = 0; i < count; ++i)
            sources.emplace_back(float(i * 37 % 256) + 0.5F, float(i * 91 % 256),
                                 float(i * 53 % 256));
        for (int times = 1; times <= 40; ++times) {
            const auto colors =
                colorsOf(sources, static_cast<unsigned int>((count - 1) * times + 1));
            for (int i = 0; i < count; ++i)
                QVERIFY(colors[static_cast<std::size_t>(i * times)] ==
                        sources[static_cast<std::size_t>(i)]);
        }
    }
}

void tst_VOEvenColorRamp::fewerColorsThanSourcesPickSources()
{
    const Sources sources = {{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 0, 0}};
    const std::vector<Color> three = colorsOf(sources, 3);
    QCOMPARE(three, (std::vector<Color>{sources[0], sources[2], sources[4]}));
    // 4 - 1 does not divide 5 - 1: the inner colours lie between sources
    const std::vector<Color> four =
        colorsOf({{0, 0, 0}, {30, 30, 30}, {90, 90, 90}, {150, 150, 150}, {255, 255, 255}}, 4);
    QVERIFY(four[1].red > 30 && four[1].red < 90);
    QVERIFY(four[2].red > 90 && four[2].red < 150);
}

void tst_VOEvenColorRamp::generatedColorsAreWhole()
{
    const Sources sources = {{0.25F, 10.5F, 20.125F}, {250.75F, 199.5F, 3.0F}};
    const std::vector<Color> colors = colorsOf(sources, 101);
    for (std::size_t i = 1; i + 1 < colors.size(); ++i)
        QVERIFY(RampColors::isWhole(colors[i]));
    QVERIFY(!RampColors::isWhole(colors.front()));
}

void tst_VOEvenColorRamp::theWayFollowsTheBook()
{
    double worst = 0.0;
    unsigned int bits = 1;
    const auto component = [&bits] {
        bits = bits * 1664525U + 1013904223U;
        return float(bits >> 24);
    };
    for (int i = 0; i < 1000; ++i) {
        const Color from(component(), component(), component());
        const Color to(component(), component(), component());
        const std::vector<Color> colors = colorsOf({from, to}, 11);
        for (std::size_t j = 1; j < 10; ++j) {
            const ColorJudge::Triple exact = mixedByTheBook(from, to, double(j) / 10.0);
            const ColorJudge::Triple found = RampColors::triple(colors[j]);
            for (std::size_t part = 0; part < 3; ++part)
                worst = std::max(worst, std::fabs(exact[part] - found[part]));
        }
    }
    qInfo("largest distance from the formulas in double precision: %.4f of a step", worst);
    QVERIFY(worst < 0.51);
}

void tst_VOEvenColorRamp::equalNeighborsStayWhatTheyAre()
{
    for (unsigned int bits = 0; bits < (1U << 24); bits += 4099) {
        const Color color(float(bits >> 16), float(bits >> 8 & 255), float(bits & 255));
        QCOMPARE(colorsOf({color, color}, 3)[1], color);
    }
}

void tst_VOEvenColorRamp::stepsAreEven_data()
{
    addRamps();
}

void tst_VOEvenColorRamp::stepsAreEven()
{
    QFETCH(Sources, sources);
    QFETCH(double, aim);
    const double variation = variationOfSteps(colorsOf(sources, 10));
    qInfo("10 colors: coefficient of variation of the steps %.3f", variation);
    QVERIFY(variation <= aim);
}

void tst_VOEvenColorRamp::lightnessTurnsOnlyWhereTheSourcesTurn_data()
{
    addRamps();
}

void tst_VOEvenColorRamp::lightnessTurnsOnlyWhereTheSourcesTurn()
{
    QFETCH(Sources, sources);
    const auto turns = [](const std::vector<Color> &colors) {
        int count = 0;
        double direction = 0.0;
        for (std::size_t i = 1; i < colors.size(); ++i) {
            const double step = RampColors::lab(colors[i])[0] - RampColors::lab(colors[i - 1])[0];
            count += step * direction < 0.0 ? 1 : 0;
            direction = step != 0.0 ? step : direction;
        }
        return count;
    };
    for (unsigned int level = 2; level <= 64; ++level) {
        const int most = level > 2 ? turns(sources) : 0;
        QVERIFY2(turns(colorsOf(sources, level)) <= most, qPrintable(QString::number(level)));
    }
    QCOMPARE(turns(colorsOf(sources, 11)), turns(sources));
}

void tst_VOEvenColorRamp::roundingAloneMovesTheLightnessOfLongRamps_data()
{
    addRamps();
}

void tst_VOEvenColorRamp::roundingAloneMovesTheLightnessOfLongRamps()
{
    QFETCH(Sources, sources);
    // Where a ramp has more colours than 8 bits can tell apart on its way, one component may go
    // up while another goes down.
    const bool rising = RampColors::lab(sources[1])[0] > RampColors::lab(sources[0])[0];
    double worst = 0.0;
    for (const unsigned int level : {255U, 1001U}) {
        const std::vector<Color> colors = colorsOf(sources, level);
        const std::size_t turn = (colors.size() - 1) / (sources.size() - 1);
        double reached = RampColors::lab(colors[0])[0];
        for (std::size_t i = 1; i <= turn; ++i) {
            const double lightness = RampColors::lab(colors[i])[0];
            worst = std::max(worst, rising ? reached - lightness : lightness - reached);
            reached = rising ? std::max(reached, lightness) : std::min(reached, lightness);
        }
    }
    qInfo("255 and 1001 colors: L* falls back by %.3f at most", worst);
    QVERIFY(worst < 0.5);
}

void tst_VOEvenColorRamp::aMillionColorsKeepTheEnds()
{
    const std::vector<Color> colors =
        colorsOf({{0, 0, 0}, {128, 128, 128}, {255, 255, 255}}, 1000001);
    QCOMPARE(colors.front(), Color(0, 0, 0));
    QCOMPARE(colors[500000], Color(128, 128, 128));
    QCOMPARE(colors.back(), Color(255, 255, 255));
    for (std::size_t i = 1; i < colors.size(); ++i)
        QVERIFY(colors[i].red >= colors[i - 1].red && colors[i].red == colors[i].green &&
                colors[i].red == colors[i].blue);
}

void tst_VOEvenColorRamp::aLevelBeyondAllMemoryLeavesTheRampAsItWas()
{
    Sources sources = {{1, 2, 3}};
    VOEvenColorRamp ramp;
    QVERIFY(ramp.setSourceColor(1, sources.data()));
    QVERIFY(ramp.split(3));
    QVERIFY(!ramp.split(std::numeric_limits<unsigned int>::max()));
    QCOMPARE(ramp.getLevel(), 3U);
    QCOMPARE(ramp.getColor(2), Color(1, 2, 3));
}

void tst_VOEvenColorRamp::aCloneIsIndependent()
{
    Sources sources = {{196, 69, 57}, {255, 255, 191}, {48, 95, 207}};
    auto ramp = std::make_unique<VOEvenColorRamp>();
    QVERIFY(ramp->setSourceColor(3, sources.data()));
    QVERIFY(ramp->split(10));
    QCOMPARE(ramp->getLevel(), 10U);
    const std::vector<Color> colors = RampColors::of(*ramp);
    const std::unique_ptr<VOColorRamp> copy(ramp->clone());
    ramp->setColor(0, Color(1, 1, 1));
    ramp.reset();
    QCOMPARE(int(copy->category()), 2);
    QCOMPARE(RampColors::of(*copy), colors);
    auto *even = dynamic_cast<VOEvenColorRamp *>(copy.get());
    QVERIFY(even);
    QCOMPARE(even->getSourceColorCount(), 3U);
    QCOMPARE(even->getSourceColor(1), sources[1]);
}

VT_TEST_GUILESS_MAIN(tst_VOEvenColorRamp)
#include "tst_VOEvenColorRamp.moc"
