#pragma once

#include <QString>

class QColor;

namespace VTObjects {
class VOColorRamp;
}

namespace vtcontrolcolorscheme {

/// A colour in words, such as "pale yellow": the nearest one of a small table of names.
/// "Nearest" is the CIE 1976 distance in L*a*b* (CIE 15, D65 white), after the sRGB transfer
/// function of IEC 61966-2-1. Alpha does not count.
QString describeColor(const QColor &color);

/// A ramp in words, for those who do not see its strip: "10 colors, from dark red through pale
/// yellow to blue". The words between "through" and "to" name the colour in the middle and are left
/// out if either end has the same name. "No colors" for null and for a ramp without colours. The
/// ramp is only read.
QString describeColorRamp(VTObjects::VOColorRamp *ramp);

} // namespace vtcontrolcolorscheme
