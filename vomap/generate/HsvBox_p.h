#pragma once

#include "vomap/generate/fixedPointColor_p.h"

#include <cstdint>

namespace VTObjects {

/// Bounds of hue, saturation and value, brought into order.
class HsvBox
{
public:
    /// Hue in degrees: what is above 360 wraps, each bound for itself. Saturation and value in
    /// percent: what is above 100 is cut. What is negative counts as 0, and bounds in the wrong
    /// order change places.
    HsvBox(int minH, int maxH, int minS, int maxS, int minV, int maxV);

    /// The colour at a place of the box, each coordinate as a fraction of 2^32 from the lower
    /// bound to the upper one, rounded to whole components.
    FixedPointColor::Rgb8 at(std::uint32_t h, std::uint32_t s, std::uint32_t v) const;
    /// Whether the rounded colour itself lies within the bounds, exactly. A grey has no hue, so it
    /// does so only where the box holds nothing but greys.
    bool contains(FixedPointColor::Rgb8 color) const;

private:
    struct Range
    {
        int low = 0;
        int high = 0;
    };

    Range hue;
    Range saturation;
    Range value;
};

} // namespace VTObjects
