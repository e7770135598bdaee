#pragma once

#include "vomap/VOEvenColorRamp.h"

namespace VTObjects {

/// An even ramp with a predefined source list. As constructed it has no source and no output
/// colour; split without sources of its own, it takes the built-in list.
///
/// That list is a spectrum for maps, ten colours from dark blue over green, pale yellow and orange
/// to dark red. Its lightness L* rises from 25 to 94 in the middle and falls to 31 again, without
/// a bend between, so that it reads as low and high and a printed copy in grey keeps the middle
/// apart from both ends; neighbours differ by 13 to 28 (CIEDE2000).
class VOMAP_EXPORT VOPredefineColorRamp : public VOEvenColorRamp
{
public:
    VOPredefineColorRamp();
    ~VOPredefineColorRamp() override;

    bool split(unsigned int count) override;
    using VOColorRamp::category;
    using VOColorRamp::clone;
    VOColorRamp *clone() override;
    ColorRampType category() override;

protected:
    VOPredefineColorRamp(const VOPredefineColorRamp &) = default;
    VOPredefineColorRamp &operator=(const VOPredefineColorRamp &) = default;
};

} // namespace VTObjects
