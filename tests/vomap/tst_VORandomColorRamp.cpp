#include "tests/support/TestMain.h"
#include "tests/support/rampColors.h"
#include "tests/support/toString.h"
#include "vomap/VORandomColorRamp.h"

#include <QtTest>

#include <limits>
#include <memory>
#include <set>

using namespace VTObjects;
using RampColors::Color;

namespace {

std::vector<Color> colorsOf(int seed, unsigned int count)
{
    VORandomColorRamp ramp;
    ramp.setSeed(seed);
    return ramp.split(count) ? RampColors::of(ramp) : std::vector<Color>();
}

} // namespace

class tst_VORandomColorRamp : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aNewRampIsEmpty();
    void splittingLeavesExactlyTheLevel_data();
    void splittingLeavesExactlyTheLevel();
    void aLevelBeyondAllMemoryLeavesTheRampAsItWas();
    void theSeedAloneDecides();
    void thePublishedVectorsComeOut_data();
    void thePublishedVectorsComeOut();
    void colorsStandApartForEverySeed();
    void aLongerRampBeginsWithTheShorterOne();
    void aThousandColorsAreDistinct();
    void aMillionColorsAreDistinctAndWhole();
    void theLastColorIsFollowedByTheFirst();
    void neighboringSeedsShareNoColor();
    void colorsAreNeitherDarkNorPale();
    void aCloneIsIndependent();
    void overwrittenColorsStayUntilTheNextSplit();
};

void tst_VORandomColorRamp::aNewRampIsEmpty()
{
    VORandomColorRamp ramp;
    QCOMPARE(ramp.getLevel(), 0U);
    QCOMPARE(ramp.seed, 0);
    QCOMPARE(ramp.category(), VOColorRamp::RandomRamp);
    QCOMPARE(int(ramp.category()), 0);
}

void tst_VORandomColorRamp::splittingLeavesExactlyTheLevel_data()
{
    QTest::addColumn<unsigned int>("level");
    for (const unsigned int level :
         {0U, 1U, 2U, 3U, 10U, 47U, 48U, 49U, 1000U, 1024U, 1025U, 5000U})
        QTest::addRow("%u", level) << level;
}

void tst_VORandomColorRamp::splittingLeavesExactlyTheLevel()
{
    QFETCH(unsigned int, level);
    VORandomColorRamp ramp;
    QVERIFY(ramp.split(7));
    QVERIFY(ramp.split(level));
    QCOMPARE(ramp.getLevel(), level);
}

void tst_VORandomColorRamp::aLevelBeyondAllMemoryLeavesTheRampAsItWas()
{
    VORandomColorRamp ramp;
    QVERIFY(ramp.split(5));
    const std::vector<Color> before = RampColors::of(ramp);
    QVERIFY(!ramp.split(std::numeric_limits<unsigned int>::max()));
    QCOMPARE(RampColors::of(ramp), before);
}

void tst_VORandomColorRamp::theSeedAloneDecides()
{
    for (const int seed :
         {0, 1, 2, 1000, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        QCOMPARE(colorsOf(seed, 60), colorsOf(seed, 60));
        QVERIFY(colorsOf(seed, 60) != colorsOf(seed ^ 1, 60));
    }
    std::set<std::vector<unsigned int>> kinds;
    for (int seed = 0; seed < 1000; ++seed) {
        std::vector<unsigned int> first;
        for (const Color &color : colorsOf(seed, 8))
            first.push_back(RampColors::packed(color));
        kinds.insert(first);
    }
    qInfo("different rows of 8 colors from 1000 seeds: %zu", kinds.size());
    QVERIFY(kinds.size() >= 990);
}

void tst_VORandomColorRamp::thePublishedVectorsComeOut_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<QString>("expected");
    QTest::newRow("seed 0") << 0
                            << QString("a596f0 d24b00 0000e1 00ff87 694b5a a59687 008796 870f0f");
    QTest::newRow("seed 1") << 1
                            << QString("1eb4f0 f00000 1e1ed2 ffc300 877887 780f4b a5b487 1e875a");
    QTest::newRow("seed 2") << 2
                            << QString("871e78 3c870f ff87ff 0fff78 877878 004b3c 96b496 4b4b0f");
    QTest::newRow("seed 1000") << 1000
                               << QString(
                                      "4b2df0 f00f0f 0fc396 ff87ff 694b5a 788796 a5d21e 87000f");
    QTest::newRow("seed -1") << -1
                             << QString("4be196 b40fff 2d5a00 879696 78004b ff690f f0a5ff d21e4b");
}

void tst_VORandomColorRamp::thePublishedVectorsComeOut()
{
    QFETCH(int, seed);
    QFETCH(QString, expected);
    QStringList found;
    for (const Color &color : colorsOf(seed, 8))
        found << QString::number(RampColors::packed(color), 16).rightJustified(6, QLatin1Char('0'));
    QCOMPARE(found.join(QLatin1Char(' ')), expected);
}

void tst_VORandomColorRamp::colorsStandApartForEverySeed()
{
    struct Aim
    {
        std::size_t size;
        double median;
        double worst;
        double dichromatMedian;
    };
    const std::vector<Aim> aims = {{5, 28.0, 20.0, 20.0},
                                   {8, 22.0, 16.0, 14.0},
                                   {10, 21.0, 15.0, 9.0},
                                   {20, 16.0, 10.0, 6.0},
                                   {50, 10.0, 7.0, 3.5}};
    std::vector<std::size_t> sizes;
    for (const Aim &aim : aims)
        sizes.push_back(aim.size);
    std::vector<std::vector<double>> normal(aims.size());
    std::vector<std::vector<double>> dichromat(aims.size());
    for (int seed = 0; seed <= 1000; ++seed) {
        const auto pairs = RampColors::smallestPairs(colorsOf(seed, 50), sizes);
        for (std::size_t i = 0; i < aims.size(); ++i) {
            normal[i].push_back(pairs[i].normal);
            dichromat[i].push_back(pairs[i].dichromat);
        }
    }
    for (std::size_t i = 0; i < aims.size(); ++i) {
        qInfo("N = %2zu: smallest CIEDE2000 pair over seeds 0..1000: median %.2f, worst %.2f; "
              "worst dichromacy: median %.2f, worst %.2f",
              aims[i].size, RampColors::median(normal[i]), RampColors::smallest(normal[i]),
              RampColors::median(dichromat[i]), RampColors::smallest(dichromat[i]));
    }
    for (std::size_t i = 0; i < aims.size(); ++i) {
        QVERIFY(RampColors::median(normal[i]) >= aims[i].median);
        QVERIFY(RampColors::smallest(normal[i]) >= aims[i].worst);
        QVERIFY(RampColors::median(dichromat[i]) >= aims[i].dichromatMedian);
    }
}

void tst_VORandomColorRamp::aLongerRampBeginsWithTheShorterOne()
{
    for (const int seed : {0, 2, 17, -5}) {
        const std::vector<Color> longest = colorsOf(seed, 1100);
        std::vector<unsigned int> levels;
        for (unsigned int level = 2; level <= 100; ++level)
            levels.push_back(level);
        levels.insert(levels.end(), {127, 128, 129, 1023, 1024, 1025});
        for (const unsigned int level : levels) {
            const std::vector<Color> shorter = colorsOf(seed, level);
            QVERIFY(std::equal(shorter.begin(), shorter.end(), longest.begin()));
        }
    }
}

void tst_VORandomColorRamp::aThousandColorsAreDistinct()
{
    for (int seed = 0; seed < 20; ++seed) {
        std::set<unsigned int> kinds;
        for (const Color &color : colorsOf(seed, 1000))
            kinds.insert(RampColors::packed(color));
        QCOMPARE(kinds.size(), std::size_t(1000));
    }
}

void tst_VORandomColorRamp::aMillionColorsAreDistinctAndWhole()
{
    const std::vector<Color> colors = colorsOf(3, 1000000);
    std::vector<bool> seen(std::size_t(1) << 24, false);
    for (const Color &color : colors) {
        QVERIFY(RampColors::isWhole(color));
        QVERIFY(!seen[RampColors::packed(color)]);
        seen[RampColors::packed(color)] = true;
    }
    QCOMPARE(colors.size(), std::size_t(1000000));
}

void tst_VORandomColorRamp::theLastColorIsFollowedByTheFirst()
{
    constexpr unsigned int all = 1U << 24;
    VORandomColorRamp ramp;
    QVERIFY(ramp.split(all + 10));
    std::vector<bool> seen(all, false);
    for (unsigned int i = 0; i < all; ++i) {
        const unsigned int color = RampColors::packed(ramp.getColor(i));
        if (seen[color])
            QFAIL(qPrintable(QStringLiteral("color %1 comes twice").arg(i)));
        seen[color] = true;
    }
    for (unsigned int i = 0; i < 10; ++i)
        QCOMPARE(ramp.getColor(all + i), ramp.getColor(i));
}

void tst_VORandomColorRamp::neighboringSeedsShareNoColor()
{
    std::vector<Color> previous = colorsOf(0, 8);
    for (int seed = 1; seed <= 1000; ++seed) {
        const std::vector<Color> colors = colorsOf(seed, 8);
        for (const Color &color : colors)
            QVERIFY(std::find(previous.begin(), previous.end(), color) == previous.end());
        previous = colors;
    }
    qInfo("colors shared by neighboring seeds 0..1000 at N = 8: 0");
}

void tst_VORandomColorRamp::colorsAreNeitherDarkNorPale()
{
    for (int seed = 0; seed < 50; ++seed) {
        for (const Color &color : colorsOf(seed, 100)) {
            const double lightness = RampColors::lab(color)[0];
            QVERIFY(lightness >= 24.99 && lightness <= 90.01);
        }
    }
}

void tst_VORandomColorRamp::aCloneIsIndependent()
{
    auto ramp = std::make_unique<VORandomColorRamp>();
    ramp->setSeed(42);
    QVERIFY(ramp->split(5));
    ramp->setColor(2, Color(1.5F, 2.0F, 3.0F));
    const std::vector<Color> colors = RampColors::of(*ramp);
    const std::unique_ptr<VOColorRamp> copy(ramp->clone());
    ramp->setColor(0, Color(9.0F, 9.0F, 9.0F));
    ramp.reset();
    QCOMPARE(copy->category(), VOColorRamp::RandomRamp);
    QCOMPARE(RampColors::of(*copy), colors);
    auto *random = dynamic_cast<VORandomColorRamp *>(copy.get());
    QVERIFY(random);
    QCOMPARE(random->seed, 42);
}

void tst_VORandomColorRamp::overwrittenColorsStayUntilTheNextSplit()
{
    VORandomColorRamp ramp;
    QVERIFY(ramp.split(4));
    const std::vector<Color> generated = RampColors::of(ramp);
    ramp.setColor(1, Color(0.5F, 0.25F, 254.5F));
    QCOMPARE(ramp.getColor(1), Color(0.5F, 0.25F, 254.5F));
    QCOMPARE(ramp.getColor(2), generated[2]);
    QVERIFY(ramp.split(4));
    QCOMPARE(RampColors::of(ramp), generated);
}

VT_TEST_GUILESS_MAIN(tst_VORandomColorRamp)
#include "tst_VORandomColorRamp.moc"
