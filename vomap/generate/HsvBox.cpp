#include "vomap/generate/HsvBox_p.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace VTObjects {

using namespace FixedPointColor;

namespace {

constexpr int fullTurn = 360;
constexpr int fullPercent = 100;

int degrees(int bound)
{
    return bound > fullTurn ? bound % fullTurn : std::max(bound, 0);
}

int percent(int bound)
{
    return std::clamp(bound, 0, fullPercent);
}

// Unit 2^-24 of a degree or of a percent.
constexpr int placeBits = 24;

std::int64_t placeIn(int low, int high, std::uint32_t fraction)
{
    // One more than the largest fraction would be 1: spread so that both bounds are reached.
    const std::int64_t spread = std::int64_t(fraction) + (fraction >> 31);
    return (std::int64_t(low) << placeBits) + (((high - low) * spread) >> (32 - placeBits));
}

} // namespace

HsvBox::HsvBox(int minH, int maxH, int minS, int maxS, int minV, int maxV)
    : hue{degrees(minH), degrees(maxH)}
    , saturation{percent(minS), percent(maxS)}
    , value{percent(minV), percent(maxV)}
{
    for (Range *range : {&hue, &saturation, &value}) {
        if (range->low > range->high)
            std::swap(range->low, range->high);
    }
}

Rgb8 HsvBox::at(std::uint32_t h, std::uint32_t s, std::uint32_t v) const
{
    const std::int64_t sixth = std::int64_t(60) << placeBits;
    const std::int64_t place = placeIn(hue.low, hue.high, h) % (6 * sixth);
    // Saturation and value with 30 fraction bits; the largest component in units of 2^-22.
    const std::int64_t part = (placeIn(saturation.low, saturation.high, s) << 6) / fullPercent;
    const std::int64_t top = 255 * ((placeIn(value.low, value.high, v) << 6) / fullPercent) >> 8;
    // How far each component falls below the largest one, as part of the whole fall: the largest
    // one is in the middle of its two sixths, the smallest one opposite.
    const auto component = [&](int middle) {
        std::int64_t off = std::abs(place - middle * sixth);
        off = std::min(off, 6 * sixth - off);
        const std::int64_t fall = (std::clamp<std::int64_t>(off - sixth, 0, sixth) << 6) / 60;
        const std::int64_t left = (std::int64_t(1) << 30) - ((fall * part) >> 30);
        return static_cast<std::uint8_t>((((top * left) >> 30) + (1 << 21)) >> 22);
    };
    return {component(0), component(2), component(4)};
}

bool HsvBox::contains(Rgb8 color) const
{
    const std::array<int, 3> parts = {color.red, color.green, color.blue};
    const int top = *std::max_element(parts.begin(), parts.end());
    const int chroma = top - *std::min_element(parts.begin(), parts.end());
    if (top * fullPercent < value.low * 255 || top * fullPercent > value.high * 255)
        return false;
    if (chroma == 0)
        return value.high == 0 || saturation.high == 0;
    if (chroma * fullPercent < saturation.low * top || chroma * fullPercent > saturation.high * top)
        return false;
    // The hue times the chroma, from 0 to 360 * chroma.
    int turn = 0;
    if (top == color.red)
        turn = 60 * (color.green - color.blue);
    else if (top == color.green)
        turn = 120 * chroma + 60 * (color.blue - color.red);
    else
        turn = 240 * chroma + 60 * (color.red - color.green);
    if (turn < 0)
        turn += fullTurn * chroma;
    // 0 and 360 degrees are one hue.
    return (turn >= hue.low * chroma && turn <= hue.high * chroma) ||
           (turn == 0 && hue.high == fullTurn);
}

} // namespace VTObjects
