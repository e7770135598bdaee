#pragma once

#include "vomap/rgb_color.h"

#include <array>
#include <cstdint>
#include <vector>

/// One number that stands for very many generated colours, to compare builds by. Free of Qt, so
/// that tools/check-golden-colors can compile it in any way.
namespace GoldenColors {

using Color = VTObjects::rgb_color<float>;
using Colors = std::vector<Color>;

constexpr int lastSeed = 1000;
/// Of seeds 0 to lastSeed every one, or one in 37.
constexpr int allSeeds = 1;
constexpr int fewSeeds = 37;
constexpr std::uint64_t hashOfAllSeeds = 0x72883236e6bb197bULL;
constexpr std::uint64_t hashOfFewSeeds = 0xa1bf2e31971ecdc3ULL;

using Bounds = std::array<int, 6>; // minH, maxH, minS, maxS, minV, maxV

/// FNV-1a, 64 bits, over the components as bytes; a component that is no whole number from 0 to
/// 255 spoils it for sure.
class Hash
{
public:
    void add(const Colors &colors)
    {
        for (const Color &color : colors) {
            for (const float part : {color.red, color.green, color.blue}) {
                const bool whole = part >= 0.0F && part <= 255.0F &&
                                   static_cast<float>(static_cast<int>(part)) == part;
                value =
                    (value ^ (whole ? static_cast<std::uint64_t>(part) : 0xbadU)) * 1099511628211U;
            }
        }
    }
    std::uint64_t value = 14695981039346656037U;
};

/// The six even ramps, by their sources.
inline std::vector<Colors> evenSources()
{
    return {{{196, 69, 57}, {255, 255, 191}, {48, 95, 207}},
            {{255, 255, 255}, {0, 0, 255}},
            {{0, 0, 0}, {255, 255, 255}},
            {{0, 0, 255}, {255, 255, 255}, {255, 0, 0}},
            {{0, 0, 255}, {255, 255, 0}},
            {{255, 0, 0}, {0, 255, 0}}};
}

/// random(seed, count), hsv(seed, bounds, count) and even(sources, count) answer Colours.
template <typename Random, typename Hsv, typename Even>
std::uint64_t hash(int seedStep, Random random, Hsv hsv, Even even)
{
    const std::array<Bounds, 3> boxes = {
        {{1, 100, 1, 99, 1, 99}, {0, 360, 20, 45, 85, 100}, {200, 250, 0, 100, 0, 100}}};
    Hash result;
    for (int seed = 0; seed <= lastSeed; seed += seedStep) {
        for (const unsigned int count : {5U, 10U, 20U, 50U}) {
            result.add(random(seed, count));
            result.add(hsv(seed, boxes[static_cast<std::size_t>(seed % 3)], count));
        }
    }
    for (const Colors &sources : evenSources()) {
        for (const unsigned int count : {2U, 3U, 10U, 64U, 255U, 1000U})
            result.add(even(sources, count));
    }
    return result.value;
}

} // namespace GoldenColors
