#include "tests/vomap/generate/goldenColours.h"

#include "tests/vomap/rampColours.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"

#include <QtTest>

using namespace VTObjects;
using GoldenColours::Colours;

class tst_goldenColours : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theRampsGenerateTheGoldenColours();
};

void tst_goldenColours::theRampsGenerateTheGoldenColours()
{
    const bool all = qEnvironmentVariableIsSet("VT_LONG_TESTS");
    const std::uint64_t found = GoldenColours::hash(
        all ? GoldenColours::allSeeds : GoldenColours::fewSeeds,
        [](int seed, unsigned int count) {
            VORandomColorRamp ramp;
            ramp.setSeed(seed);
            return ramp.split(count) ? RampColours::of(ramp) : Colours();
        },
        [](int seed, const GoldenColours::Bounds &bounds, unsigned int count) {
            VORandomColorRampForHsv ramp;
            ramp.setSeed(seed);
            ramp.minH = bounds[0];
            ramp.maxH = bounds[1];
            ramp.minS = bounds[2];
            ramp.maxS = bounds[3];
            ramp.minV = bounds[4];
            ramp.maxV = bounds[5];
            return ramp.split(count) ? RampColours::of(ramp) : Colours();
        },
        [](Colours sources, unsigned int count) {
            VOEvenColorRamp ramp;
            const bool done =
                ramp.setSourceColor(static_cast<long>(sources.size()), sources.data()) &&
                ramp.split(count);
            return done ? RampColours::of(ramp) : Colours();
        });
    qInfo("golden hash of %s seeds: %016llx", all ? "1001" : "28",
          static_cast<unsigned long long>(found));
    QCOMPARE(found, all ? GoldenColours::hashOfAllSeeds : GoldenColours::hashOfFewSeeds);
}

QTEST_GUILESS_MAIN(tst_goldenColours)
#include "tst_goldenColours.moc"
