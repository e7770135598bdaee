#pragma once

#include "tests/support/ColorJudge.h"
#include "vomap/VOColorRamp.h"

#include <algorithm>
#include <array>
#include <vector>

/// Reads ramps for the tests of this folder and measures what they hold.
namespace RampColors {

using Color = VTObjects::rgb_color<float>;

inline std::vector<Color> of(VTObjects::VOColorRamp &ramp)
{
    std::vector<Color> colors(ramp.getLevel());
    for (unsigned int i = 0; i < ramp.getLevel(); ++i)
        colors[i] = ramp.getColor(i);
    return colors;
}

inline ColorJudge::Triple triple(const Color &color)
{
    return {color.red, color.green, color.blue};
}

inline ColorJudge::Triple lab(const Color &color)
{
    return ColorJudge::labSeenBy(ColorJudge::NormalVision, triple(color));
}

/// 0xRRGGBB of a colour with whole components.
inline unsigned int packed(const Color &color)
{
    return static_cast<unsigned int>(color.red) << 16 |
           static_cast<unsigned int>(color.green) << 8 | static_cast<unsigned int>(color.blue);
}

inline bool isWhole(const Color &color)
{
    const auto whole = [](float part) {
        return part == static_cast<float>(static_cast<int>(part));
    };
    return whole(color.red) && whole(color.green) && whole(color.blue);
}

/// The smallest CIEDE2000 difference among the first colours.
struct SmallestPairs
{
    double normal = 1000.0;
    double dichromat = 1000.0; ///< in the worst of the three dichromacies
};

/// One entry for each of `sizes`, which rise.
inline std::vector<SmallestPairs> smallestPairs(const std::vector<Color> &colors,
                                                const std::vector<std::size_t> &sizes)
{
    std::vector<std::array<ColorJudge::Triple, ColorJudge::VisionCount>> seen(colors.size());
    for (std::size_t i = 0; i < colors.size(); ++i) {
        for (int vision = 0; vision < ColorJudge::VisionCount; ++vision)
            seen[i][static_cast<std::size_t>(vision)] =
                ColorJudge::labSeenBy(static_cast<ColorJudge::Vision>(vision), triple(colors[i]));
    }
    std::vector<SmallestPairs> result;
    SmallestPairs smallest;
    std::size_t i = 0;
    for (const std::size_t size : sizes) {
        for (; i < size; ++i) {
            for (std::size_t j = 0; j < i; ++j) {
                smallest.normal =
                    std::min(smallest.normal, ColorJudge::difference(seen[i][0], seen[j][0]));
                for (std::size_t vision = 1; vision < ColorJudge::VisionCount; ++vision)
                    smallest.dichromat =
                        std::min(smallest.dichromat,
                                 ColorJudge::difference(seen[i][vision], seen[j][vision]));
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

} // namespace RampColors
