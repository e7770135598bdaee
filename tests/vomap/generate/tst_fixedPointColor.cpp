#include "vomap/generate/fixedPointColor_p.h"

#include "tests/support/ColorJudge.h"
#include "tests/support/TestMain.h"
#include "vomap/generate/randomBits_p.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <vector>

using namespace VTObjects;
using namespace VTObjects::FixedPointColor;

namespace {

constexpr double unit = 1 << labBits;

ColorJudge::Triple triple(Rgb8 color)
{
    return {double(color.red), double(color.green), double(color.blue)};
}

// Every 61st colour: all components in all combinations of classes.
std::vector<Rgb8> manyColors(std::uint32_t step)
{
    std::vector<Rgb8> colors;
    for (std::uint32_t bits = 0; bits < (1U << 24); bits += step)
        colors.push_back(unpacked(bits));
    return colors;
}

} // namespace

class tst_fixedPointColor : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rootsAreExact();
    void linearLightFollowsTheStandard();
    void labFollowsDoublePrecisionInEveryVision();
    void din99oFollowsItsFormulas();
    void differencesFollowCiede2000();
    void shufflingMeetsEveryNumberOnce();
};

void tst_fixedPointColor::rootsAreExact()
{
    for (std::int64_t root = 0; root < 3000000000; root += 999983) {
        QCOMPARE(squareRoot(root * root), root);
        QCOMPARE(squareRoot(root * root + 2 * root), root);
    }
    for (std::int64_t root = 1; root <= 1 << 20; root += 1021) {
        QCOMPARE(cubeRoot(root * root * root), root);
        QCOMPARE(cubeRoot(root * root * root - 1), root - 1);
    }
}

void tst_fixedPointColor::linearLightFollowsTheStandard()
{
    double worst = 0.0;
    for (int twice = 0; twice <= 510; ++twice) {
        const double exact = ColorJudge::linearLight({twice / 2.0, 0.0, 0.0})[0];
        worst =
            std::max(worst, std::fabs(double(linearOfHalves(twice)) - exact * double(linearOne)));
        if (twice % 2 == 0)
            QCOMPARE(linearOf(static_cast<std::uint8_t>(twice / 2)), linearOfHalves(twice));
    }
    qInfo("linear light: off by %.3f units of 2^-24 at most", worst);
    QVERIFY(worst < 1.0);
    QCOMPARE(linearOf(0), std::int64_t(0));
    QCOMPARE(linearOf(255), linearOne);
}

void tst_fixedPointColor::labFollowsDoublePrecisionInEveryVision()
{
    double worst = 0.0;
    for (const Rgb8 color : manyColors(6151)) {
        for (int vision = 0; vision < visionCount; ++vision) {
            const Lab found = labSeenBy(static_cast<Vision>(vision), color);
            const ColorJudge::Triple exact =
                ColorJudge::labSeenBy(static_cast<ColorJudge::Vision>(vision), triple(color));
            worst = std::max({worst, std::fabs(found.lightness / unit - exact[0]),
                              std::fabs(found.a / unit - exact[1]),
                              std::fabs(found.b / unit - exact[2])});
        }
    }
    qInfo("L*a*b*: off by %.4f at most", worst);
    QVERIFY(worst < 0.02);
}

void tst_fixedPointColor::din99oFollowsItsFormulas()
{
    double worst = 0.0;
    constexpr double degree = 0.017453292519943295;
    for (const Rgb8 color : manyColors(6151)) {
        const Lab lab = labSeenBy(NormalVision, color);
        const double a = lab.a / unit;
        const double b = lab.b / unit;
        const double e = a * std::cos(26 * degree) + b * std::sin(26 * degree);
        const double f = 0.83 * (b * std::cos(26 * degree) - a * std::sin(26 * degree));
        const double g = std::hypot(e, f);
        const double chroma = g > 0.0 ? std::log(1.0 + 0.075 * g) / 0.0435 / g : 0.0;
        const Din99o found = din99oOf(lab);
        worst = std::max({worst,
                          std::fabs(found.lightness / 64.0 -
                                    303.67 * std::log(1.0 + 0.0039 * lab.lightness / unit)),
                          std::fabs(found.a / 64.0 - chroma * e),
                          std::fabs(found.b / 64.0 - chroma * f)});
    }
    qInfo("DIN99o: off by %.4f at most", worst);
    QVERIFY(worst < 0.05); // three units of 1/64
}

void tst_fixedPointColor::differencesFollowCiede2000()
{
    // What decides a choice are differences from 2 to 40.
    const std::vector<Rgb8> colors = manyColors(40961);
    std::vector<double> errors;
    for (std::size_t i = 0; i < colors.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            const auto lab1 = ColorJudge::labSeenBy(ColorJudge::NormalVision, triple(colors[i]));
            const auto lab2 = ColorJudge::labSeenBy(ColorJudge::NormalVision, triple(colors[j]));
            const double exact = ColorJudge::difference(lab1, lab2);
            if (exact < 2.0 || exact > 40.0)
                continue;
            const Appearance first = appearanceOf(labSeenBy(NormalVision, colors[i]));
            const Appearance second = appearanceOf(labSeenBy(NormalVision, colors[j]));
            const double found = std::sqrt(double(squaredDifference(first, second))) / unit;
            const double back = std::sqrt(double(squaredDifference(second, first))) / unit;
            QVERIFY(std::fabs(back - found) < 0.01 * found); // rounding only
            errors.push_back(std::fabs(found - exact) / exact);
        }
    }
    QVERIFY(errors.size() > 10000);
    std::sort(errors.begin(), errors.end());
    const double usual = errors[errors.size() / 2];
    const double most = errors[errors.size() * 9 / 10];
    const double all = errors[errors.size() * 99 / 100];
    qInfo("CIEDE2000 of %zu pairs: off by %.2f %% in the median, by %.2f %% in 9 of 10, by %.2f %% "
          "in 99 of 100",
          errors.size(), 100.0 * usual, 100.0 * most, 100.0 * all);
    // The few that are far off have a grey in them, whose hue the other colour's chroma turns.
    QVERIFY(usual < 0.01);
    QVERIFY(most < 0.05);
    QVERIFY(all < 0.20);
    const Appearance same = appearanceOf(labSeenBy(NormalVision, {12, 200, 77}));
    QCOMPARE(squaredDifference(same, same), std::int64_t(0));
}

void tst_fixedPointColor::shufflingMeetsEveryNumberOnce()
{
    for (const std::uint32_t key : {0U, 0xdeadbeefU}) {
        std::vector<bool> met(std::size_t(1) << 24, false);
        std::size_t count = 0;
        for (std::uint32_t number = 0; number < (1U << 24); ++number) {
            const std::uint32_t shuffled = shuffled24Bits(number, key);
            count += shuffled < (1U << 24) && !met[shuffled] ? 1 : 0;
            met[shuffled & 0xffffffU] = true;
        }
        QCOMPARE(count, std::size_t(1) << 24);
    }
}

VT_TEST_GUILESS_MAIN(tst_fixedPointColor)
#include "tst_fixedPointColor.moc"
