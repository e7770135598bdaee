#pragma once

#include "vomap/VOColorRampContainer.h"

namespace VTObjects {

/// Output colours spread evenly between a list of source colours: the first and the last output
/// colour are exactly the first and the last source colour.
class VOMAP_EXPORT VOEvenColorRamp : public VOColorRampContainer
{
public:
    VOEvenColorRamp();
    ~VOEvenColorRamp() override;

    /// One source colour fills the whole ramp; none gives black.
    bool split(unsigned int count) override;
    VOColorRamp *clone() override;
    ColorRampType category() override;

    /// Copies `count` source colours from the array; split() then makes the output list of them.
    /// False, with nothing changed, for a negative count or a null array of one or more colours.
    bool setSourceColor(long count, rgb_color<float> *colors);
    /// The source colour at `index`; black out of range.
    rgb_color<float> getSourceColor(int index);
    unsigned int getSourceColorCount();

protected:
    VOEvenColorRamp(const VOEvenColorRamp &) = default;
    VOEvenColorRamp &operator=(const VOEvenColorRamp &) = default;

    QVector<rgb_color<float>> sourceColors;
};

} // namespace VTObjects
