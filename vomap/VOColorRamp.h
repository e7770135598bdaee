#pragma once

#include "vomap/rgb_color.h"
#include "vomap/vomap_export.h"

namespace VTObjects {

/// An ordered list of output colours, or a rule that generates them: what a scheme stands for.
/// The base of all kinds; deleted through this class.
///
/// Indices count from 0. Whatever is out of range is harmless: getColor() then gives black, the
/// list operations do nothing.
class VOMAP_EXPORT VOColorRamp
{
public:
    /// The kinds. The numbers are fixed: the editor's type box uses them as its item positions.
    enum ColorRampType {
        RandomRamp = 0,    ///< VORandomColorRamp
        RandomHsvRamp = 1, ///< VORandomColorRampForHsv
        EvenRamp = 2,      ///< VOEvenColorRamp
        PredefineRamp = 3  ///< VOPredefineColorRamp
    };

    virtual ~VOColorRamp();

    /// Generates the output list anew, so that it holds exactly `count` colours; 0 empties it.
    /// False, with the list as it was, where so many colours cannot be had.
    virtual bool split(unsigned int count) = 0;
    /// The output colour at `index`, components from 0 to 255; black past the end.
    virtual rgb_color<float> getColor(unsigned int index) = 0;
    /// Overwrites one output colour.
    virtual void setColor(unsigned int index, rgb_color<float> color) = 0;
    /// Appends an output colour.
    virtual void addColor(rgb_color<float> color) = 0;
    /// Removes one output colour; those behind it move up.
    virtual void deleteColor(unsigned int index) = 0;
    /// Empties the output list; the parameters stay.
    virtual void deleteAll() = 0;
    /// The number of output colours.
    virtual unsigned int getLevel() = 0;
    /// A new ramp of the same class with the same parameters and output colours, independent of
    /// this one. The caller owns it.
    virtual VOColorRamp *clone() = 0;
    /// The kind, from which the class follows.
    virtual ColorRampType category() = 0;

    // The same for a ramp that is only read: they call those above, which write nothing, and must
    // not in a class of a host either.
    rgb_color<float> getColor(unsigned int index) const { return own()->getColor(index); }
    unsigned int getLevel() const { return own()->getLevel(); }
    VOColorRamp *clone() const { return own()->clone(); }
    ColorRampType category() const { return own()->category(); }

protected:
    VOColorRamp() = default;
    VOColorRamp(const VOColorRamp &) = default;
    VOColorRamp &operator=(const VOColorRamp &) = default;

private:
    VOColorRamp *own() const { return const_cast<VOColorRamp *>(this); }
};

} // namespace VTObjects
