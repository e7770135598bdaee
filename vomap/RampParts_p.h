#pragma once

#include "vomap/VOColorRamp.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace VTObjects {

/// Everything a ramp of any kind consists of, for those who write it down or read it. What a kind
/// does not have is empty.
struct RampParts
{
    VOColorRamp::ColorRampType kind = VOColorRamp::RandomRamp;
    int seed = 0;
    bool paramsChanged = false;
    std::array<int, 6> bounds = {}; ///< minH, maxH, minS, maxS, minV, maxV
    std::vector<rgb_color<float>> sources;
    std::vector<rgb_color<float>> colors;
};

constexpr bool hasSeed(VOColorRamp::ColorRampType kind)
{
    return kind == VOColorRamp::RandomRamp || kind == VOColorRamp::RandomHsvRamp;
}
constexpr bool hasSources(VOColorRamp::ColorRampType kind)
{
    return kind == VOColorRamp::EvenRamp || kind == VOColorRamp::PredefineRamp;
}

/// Takes the ramp apart; the lists of `parts` keep their room. False for a ramp whose class is not
/// the one that its category names.
bool takeApart(VOColorRamp &ramp, RampParts &parts);
/// A ramp of these parts.
std::unique_ptr<VOColorRamp> putTogether(const RampParts &parts);

/// Finite, and from 0 to 255.
bool isComponent(float value);

} // namespace VTObjects
