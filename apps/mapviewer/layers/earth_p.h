#pragma once

namespace mapviewer {

constexpr double degreesToRadians = 3.14159265358979323846 / 180.0;

/// On the ground, along a meridian and along the equator.
constexpr double metersPerDegree = 111'320.0;

} // namespace mapviewer
