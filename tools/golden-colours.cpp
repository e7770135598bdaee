// Prints the golden hash of the colour generators and leaves with 1 where it is another than the
// tests know. tools/check-golden-colours compiles this with several compilers and flags.
#include "tests/vomap/generate/goldenColours.h"
#include "vomap/generate/evenColours_p.h"
#include "vomap/generate/hsvColours_p.h"
#include "vomap/generate/randomColours_p.h"

#include <cinttypes>
#include <cstdio>
#include <cstring>

using GoldenColours::Colours;

int main(int argc, char **argv)
{
    const bool all = argc > 1 && std::strcmp(argv[1], "--all-seeds") == 0;
    const std::uint64_t found = GoldenColours::hash(
        all ? GoldenColours::allSeeds : GoldenColours::fewSeeds,
        [](int seed, unsigned int count) {
            Colours colours(count);
            VTObjects::fillWithRandomColours(seed, colours.data(), count);
            return colours;
        },
        [](int seed, const GoldenColours::Bounds &b, unsigned int count) {
            Colours colours(count);
            const VTObjects::HsvBox box(b[0], b[1], b[2], b[3], b[4], b[5]);
            VTObjects::fillWithHsvColours(seed, box, colours.data(), count);
            return colours;
        },
        [](const Colours &sources, unsigned int count) {
            Colours colours(count);
            VTObjects::fillWithEvenColours(sources.data(), sources.size(), colours.data(), count);
            return colours;
        });
    const std::uint64_t expected =
        all ? GoldenColours::hashOfAllSeeds : GoldenColours::hashOfFewSeeds;
    std::printf("%016" PRIx64 "%s\n", found, found == expected ? "" : " differs");
    return found == expected ? 0 : 1;
}
