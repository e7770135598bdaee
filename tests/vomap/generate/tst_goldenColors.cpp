#include "tests/support/goldenColors.h"

#include "tests/support/TestMain.h"
#include "tests/support/rampColors.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"

#include <QtTest>

using namespace VTObjects;
using GoldenColors::Colors;

class tst_goldenColors : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theRampsGenerateTheGoldenColors();
};

void tst_goldenColors::theRampsGenerateTheGoldenColors()
{
    const bool all = qEnvironmentVariableIsSet("VT_LONG_TESTS");
    const std::uint64_t found = GoldenColors::hash(
        all ? GoldenColors::allSeeds : GoldenColors::fewSeeds,
        [](int seed, unsigned int count) {
            VORandomColorRamp ramp;
            ramp.setSeed(seed);
            return ramp.split(count) ? RampColors::of(ramp) : Colors();
        },
        [](int seed, const GoldenColors::Bounds &bounds, unsigned int count) {
            VORandomColorRampForHsv ramp;
            ramp.setSeed(seed);
            ramp.minH = bounds[0];
            ramp.maxH = bounds[1];
            ramp.minS = bounds[2];
            ramp.maxS = bounds[3];
            ramp.minV = bounds[4];
            ramp.maxV = bounds[5];
            return ramp.split(count) ? RampColors::of(ramp) : Colors();
        },
        [](Colors sources, unsigned int count) {
            VOEvenColorRamp ramp;
            const bool done =
                ramp.setSourceColor(static_cast<long>(sources.size()), sources.data()) &&
                ramp.split(count);
            return done ? RampColors::of(ramp) : Colors();
        });
    qInfo("golden hash of %s seeds: %016llx", all ? "1001" : "28",
          static_cast<unsigned long long>(found));
    QCOMPARE(found, all ? GoldenColors::hashOfAllSeeds : GoldenColors::hashOfFewSeeds);
}

VT_TEST_GUILESS_MAIN(tst_goldenColors)
#include "tst_goldenColors.moc"
