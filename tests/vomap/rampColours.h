#pragma once

#include "tests/support/ColourJudge.h"
#include "vomap/VOColorRamp.h"

#include <algorithm>
#include <array>
#include <vector>

/// Reads ramps for the tests of this folder and measures what they hold.
namespace RampColours {

using Colour = VTObjects::rgb_color<float>;

inline std::vector<Colour> of(VTObjects::VOColorRamp &ramp)
{
    std::vector<Colour> colours(ramp.getLevel());
    for (unsigned int i = 0; i < ramp.getLevel(); ++i)
        colours[i] = ramp.getColor(i);
    return colours;
}

inline ColourJudge::Triple triple(const Colour &colour)
{
    return {colour.red, colour.green, colour.blue};
}

inline ColourJudge::Triple lab(const Colour &colour)
{
    return ColourJudge::labSeenBy(ColourJudge::NormalVision, triple(colour));
}

/// 0xRRGGBB of a colour with whole components.
inline unsigned int packed(const Colour &colour)
{
    return static_cast<unsigned int>(colour.red) << 16 |
           static_cast<unsigned int>(colour.green) << 8 | static_cast<unsigned int>(colour.blue);
}

inline bool isWhole(const Colour &colour)
{
    const auto whole = [](float part) {
        return part == static_cast<float>(static_cast<int>(part));
    };
    return whole(colour.red) && whole(colour.green) && whole(colour.blue);
}

/// The smallest CIEDE2000 difference among the first colours.
struct SmallestPairs
{
    double normal = 1000.0;
    double dichromat = 1000.0; ///< in the worst of the three dichromacies
};

/// One entry for each of `sizes`, which rise.
inline std::vector<SmallestPairs> smallestPairs(const std::vector<Colour> &colours,
                                                const std::vector<std::size_t> &sizes)
{
    std::vector<std::array<ColourJudge::Triple, ColourJudge::VisionCount>> seen(colours.size());
    for (std::size_t i = 0; i < colours.size(); ++i) {
        for (int vision = 0; vision < ColourJudge::VisionCount; ++vision)
            seen[i][static_cast<std::size_t>(vision)] = ColourJudge::labSeenBy(
                static_cast<ColourJudge::Vision>(vision), triple(colours[i]));
    }
    std::vector<SmallestPairs> result;
    SmallestPairs smallest;
    std::size_t i = 0;
    for (const std::size_t size : sizes) {
        for (; i < size; ++i) {
            for (std::size_t j = 0; j < i; ++j) {
                smallest.normal =
                    std::min(smallest.normal, ColourJudge::difference(seen[i][0], seen[j][0]));
                for (std::size_t vision = 1; vision < ColourJudge::VisionCount; ++vision)
                    smallest.dichromat =
                        std::min(smallest.dichromat,
                                 ColourJudge::difference(seen[i][vision], seen[j][vision]));
            }
        }
        result.push_back(smallest);
    }
    return result;
}

inline double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

inline double smallest(const std::vector<double> &values)
{
    return *std::min_element(values.begin(), values.end());
}

} // namespace RampColours
