#pragma once

#include "vomap/VORandomColorRamp.h"

namespace VTObjects {

/// Random colours bounded in hue, saturation and value.
///
/// Hue is in degrees, where values above 360 wrap; saturation and value are in percent, where
/// values above 100 are cut; what is negative counts as 0. Each bound is treated so for itself, and
/// then bounds in the wrong order are swapped. The fields keep what was written into them.
///
/// The colours are chosen as VORandomColorRamp does it, inside the bounds. Every colour is a
/// colour of the box, rounded to whole components; where the box holds enough of them, the rounded
/// colours lie inside it too. A box with fewer colours than asked for repeats them.
class VOMAP_EXPORT VORandomColorRampForHsv : public VORandomColorRamp
{
public:
    VORandomColorRampForHsv();
    ~VORandomColorRampForHsv() override;

    bool split(unsigned int count) override;
    using VOColorRamp::category;
    using VOColorRamp::clone;
    VOColorRamp *clone() override;
    ColorRampType category() override;

    /// True once somebody has chosen bounds of his own, false for a ramp with its first ones. Who
    /// writes one of the bounds sets this too; the ramp never clears it.
    bool paramsChanged = false;
    int minH = 0;
    int maxH = 360;
    int minS = 0;
    int maxS = 100;
    int minV = 0;
    int maxV = 100;

protected:
    VORandomColorRampForHsv(const VORandomColorRampForHsv &) = default;
    VORandomColorRampForHsv &operator=(const VORandomColorRampForHsv &) = default;
};

} // namespace VTObjects
