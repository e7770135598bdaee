#pragma once

#include "vomap/VOColorRamp.h"

#include <QVector>

#include <array>
#include <memory>

namespace VTObjects {

/// Everything a ramp of any kind consists of, for those who write it down or read it. What a kind
/// does not have is empty.
struct RampParts
{
    VOColorRamp::ColorRampType kind = VOColorRamp::RandomRamp;
    int seed = 0;
    bool paramsChanged = false;
    std::array<int, 6> bounds = {}; ///< minH, maxH, minS, maxS, minV, maxV
    QVector<rgb_color<float>> sources;
    QVector<rgb_color<float>> colors;
};

constexpr bool hasSeed(VOColorRamp::ColorRampType kind)
{
    return kind == VOColorRamp::RandomRamp || kind == VOColorRamp::RandomHsvRamp;
}
constexpr bool hasSources(VOColorRamp::ColorRampType kind)
{
    return kind == VOColorRamp::EvenRamp || kind == VOColorRamp::PredefineRamp;
}

/// Takes the ramp apart; the lists are shared with it. False for a ramp whose class is not the one
/// that its category names.
bool takeApart(VOColorRamp &ramp, RampParts &parts);
/// A ramp of these parts.
std::unique_ptr<VOColorRamp> putTogether(const RampParts &parts);

/// Finite, and from 0 to 255; false for what is no number.
constexpr bool isComponent(float value)
{
    return value >= 0.0F && value <= 255.0F;
}

/// The same of all of them, without a branch for each.
inline bool areComponents(const float *values, std::size_t count)
{
    unsigned int good = 1;
    for (std::size_t i = 0; i < count; ++i)
        good &= static_cast<unsigned int>(isComponent(values[i]));
    return good != 0;
}

} // namespace VTObjects
