#pragma once

#include "tests/support/ColorJudge.h"
#include "vomap/VOColorScheme.h"

#include <QString>

/// Whether a built-in scheme shows the hues that its name and its description name.
///
/// Colours are compared in OKLCh, the cylinder of OKLab: B. Ottosson, "A perceptual color space for
/// image processing" (2020). The words are those for hues and for white, gray and black, with the
/// part of the space that goes by each. Such a part is wide, since people disagree, and must hold
/// its references: the named colors of CSS Color Module Level 4 that bear the word, or, where those
/// have none, what the answers of the xkcd color name survey (R. Munroe, 2010) gave for it.
namespace HueClaims {

struct Lch
{
    double lightness = 0.0; ///< 0 to 1
    double chroma = 0.0;    ///< 0 to about 0.32
    double hue = 0.0;       ///< degrees
};
Lch lchOf(const ColorJudge::Triple &rgb);

struct HueWord
{
    const char *name;
    double fromHue; ///< degrees; the range may pass 360
    double toHue;
    double leastChroma;
    double mostChroma;
    double leastLightness;
    double mostLightness;
    const char *references; ///< hexadecimal, with blanks between them
};
/// The word of this name, or of its plural; null if there is none.
const HueWord *wordOf(const QString &text);
bool shows(const HueWord &word, const Lch &color);
/// The reference that its own word does not hold; empty if there is none.
QString strayReference();

/// What is wrong with what the scheme says of its hues; empty if nothing is:
/// - each hue word is shown by a color; one of "gray-green" by either of the two;
/// - a ramp "A over B to C" shows A in its first quarter and C in its last one;
/// - a random ramp that names hues shows no other ("Greens"; "Red to yellow": from one to the
/// other).
QString wrongHue(const VTObjects::VOColorScheme &scheme);

} // namespace HueClaims
