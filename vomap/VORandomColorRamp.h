#pragma once

#include "vomap/VOColorRampContainer.h"

namespace VTObjects {

/// Output colours drawn at random from a seed: the same colours for the same seed on every
/// platform, and split(n + 1) starts with the colours of split(n).
///
/// The seed chooses the first colour; each further one is as far as can be from all before it and
/// from white and black, by CIEDE2000 and with the three dichromacies counted in (farthest point
/// first; docs/colour-generation.md gives the method, its sources and test vectors). No colour is
/// darker than L* 25 or lighter than L* 90 among the first 1,024; up to 2^24 colours are distinct,
/// and then the row begins anew. Components are whole numbers.
class VOMAP_EXPORT VORandomColorRamp : public VOColorRampContainer
{
public:
    VORandomColorRamp();
    ~VORandomColorRamp() override;

    bool split(unsigned int count) override;
    using VOColorRamp::category;
    using VOColorRamp::clone;
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
