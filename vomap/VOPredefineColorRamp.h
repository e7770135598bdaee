#pragma once

#include "vomap/VOEvenColorRamp.h"

namespace VTObjects {

/// An even ramp with a predefined source list. As constructed it has no source and no output
/// colour; split without sources of its own, it takes the built-in list: a spectrum for maps from
/// dark blue over green and yellow to dark red.
class VOMAP_EXPORT VOPredefineColorRamp : public VOEvenColorRamp
{
public:
    VOPredefineColorRamp();
    ~VOPredefineColorRamp() override;

    bool split(unsigned int count) override;
    VOColorRamp *clone() override;
    ColorRampType category() override;

protected:
    VOPredefineColorRamp(const VOPredefineColorRamp &) = default;
    VOPredefineColorRamp &operator=(const VOPredefineColorRamp &) = default;
};

} // namespace VTObjects
