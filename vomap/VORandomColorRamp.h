#pragma once

#include "vomap/VOColorRampContainer.h"

namespace VTObjects {

/// Output colours drawn at random from a seed: the same colours for the same seed on every
/// platform, and split(n + 1) starts with the colours of split(n).
class VOMAP_EXPORT VORandomColorRamp : public VOColorRampContainer
{
public:
    VORandomColorRamp();
    ~VORandomColorRamp() override;

    bool split(unsigned int count) override;
    VOColorRamp *clone() override;
    ColorRampType category() override;

    /// Takes effect with the next split(). Any int is a seed.
    void setSeed(int seed);

    int seed = 0;

protected:
    VORandomColorRamp(const VORandomColorRamp &) = default;
    VORandomColorRamp &operator=(const VORandomColorRamp &) = default;
};

} // namespace VTObjects
