// Prints the golden hash of the colour generators and leaves with 1 where it is another than the
// tests know. tools/check-golden-colors compiles this with several compilers and flags.
#include "tests/support/goldenColors.h"
#include "vomap/generate/evenColors_p.h"
#include "vomap/generate/hsvColors_p.h"
#include "vomap/generate/randomColors_p.h"

#include <cinttypes>
#include <cstdio>
#include <cstring>

using GoldenColors::Colors;

int main(int argc, char **argv)
{
    const bool all = argc > 1 && std::strcmp(argv[1], "--all-seeds") == 0;
    const std::uint64_t found = GoldenColors::hash(
        all ? GoldenColors::allSeeds : GoldenColors::fewSeeds,
        [](int seed, unsigned int count) {
            Colors colors(count);
            VTObjects::fillWithRandomColors(seed, colors.data(), count);
            return colors;
        },
        [](int seed, const GoldenColors::Bounds &b, unsigned int count) {
            Colors colors(count);
            const VTObjects::HsvBox box(b[0], b[1], b[2], b[3], b[4], b[5]);
            VTObjects::fillWithHsvColors(seed, box, colors.data(), count);
            return colors;
        },
        [](const Colors &sources, unsigned int count) {
            Colors colors(count);
            VTObjects::fillWithEvenColors(sources.data(), sources.size(), colors.data(), count);
            return colors;
        });
    const std::uint64_t expected =
        all ? GoldenColors::hashOfAllSeeds : GoldenColors::hashOfFewSeeds;
    std::printf("%016" PRIx64 "%s\n", found, found == expected ? "" : " differs");
    return found == expected ? 0 : 1;
}
