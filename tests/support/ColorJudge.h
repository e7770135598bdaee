#pragma once

#include <array>

/// Measures how far apart two sRGB colours look, in double precision and independent of the code
/// under test.
///
/// Difference: CIEDE2000 with kL = kC = kH = 1, as in G. Sharma, W. Wu and E. N. Dalal, "The
/// CIEDE2000 color-difference formula: implementation notes, supplementary test data, and
/// mathematical observations", Color Research and Application 30 (2005).
/// Colours: sRGB of IEC 61966-2-1, white point D65, components 0 to 255.
/// Visions: G. M. Machado, M. M. Oliveira and L. A. F. Fernandes, "A physiologically-based model
/// for simulation of color vision deficiency" (2009), severity 1.0, for protan and deutan;
/// H. Brettel, F. Vienot and J. D. Mollon, "Computerized simulation of color appearance for
/// dichromats" (1997) for tritan. Both work on linear light, and their results are cut to the
/// range of sRGB.
namespace ColorJudge {

enum Vision { NormalVision, ProtanVision, DeutanVision, TritanVision, VisionCount };

using Triple = std::array<double, 3>;

/// Linear light, 0 to 1, of an sRGB colour with components from 0 to 255.
Triple linearLight(const Triple &rgb);
/// The inverse of linearLight(); not rounded.
Triple encoded(const Triple &linear);
/// What is left of some linear light in a vision, cut to 0 to 1.
Triple seenBy(Vision vision, const Triple &linear);
/// The same before it is cut.
Triple seenUncutBy(Vision vision, const Triple &linear);
/// CIE L*a*b* (D65) of linear light.
Triple labOf(const Triple &linear);
/// CIE L*a*b* of an sRGB colour as a vision sees it.
Triple labSeenBy(Vision vision, const Triple &rgb);
/// CIEDE2000 between two L*a*b* colours.
double difference(const Triple &lab1, const Triple &lab2);

} // namespace ColorJudge
