#pragma once

#include "vomap/VOColorRampContainer.h"

namespace VTObjects {

/// Output colours spread evenly between a list of source colours: the first and the last output
/// colour are exactly the first and the last source colour.
///
/// The way between two sources is straight in OKLab (B. Ottosson, "A perceptual color space for
/// image processing", 2020) with the lightness estimate Lr in the place of L (the same, "Okhsv and
/// Okhsl", 2021). Colour i of n lies at i / (n - 1) of the whole way, where every source has the
/// same distance from the next; where that place is a source, which is the case for all sources
/// if n - 1 is a multiple of their number less one, the colour is exactly that source. All other
/// colours have whole components. The same colours come out on every platform.
class VOMAP_EXPORT VOEvenColorRamp : public VOColorRampContainer
{
public:
    VOEvenColorRamp();
    ~VOEvenColorRamp() override;

    /// One source colour fills the whole ramp; none gives black.
    bool split(unsigned int count) override;
    using VOColorRamp::category;
    using VOColorRamp::clone;
    VOColorRamp *clone() override;
    ColorRampType category() override;

    /// Copies `count` source colours from the array; split() then makes the output list of them.
    /// False, with nothing changed, for a negative count or a null array of one or more colours.
    bool setSourceColor(long count, rgb_color<float> *colors);
    /// The source colour at `index`; black out of range.
    rgb_color<float> getSourceColor(int index);
    unsigned int getSourceColorCount();
    rgb_color<float> getSourceColor(int index) const;
    unsigned int getSourceColorCount() const;
    /// The whole source list at once, shared and not copied.
    const QVector<rgb_color<float>> &sourceColorList() const { return sourceColors; }
    void setSourceColorList(QVector<rgb_color<float>> list);

protected:
    VOEvenColorRamp(const VOEvenColorRamp &) = default;
    VOEvenColorRamp &operator=(const VOEvenColorRamp &) = default;

    QVector<rgb_color<float>> sourceColors;
};

} // namespace VTObjects
