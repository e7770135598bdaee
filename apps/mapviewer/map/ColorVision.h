#pragma once

#include <QImage>
#include <QRgb>

namespace mapviewer {

/// How the window is to be seen.
enum class ColorVision {
    Normal,
    Protan, ///< without the long-wave (red) cones
    Deutan, ///< without the middle-wave (green) cones
    Tritan, ///< without the short-wave (blue) cones
    Gray    ///< brightness alone, as on a black-and-white print
};

/// A colour as that eye sees it; alpha stays. The three deficiencies are the matrices of full
/// severity of G. M. Machado, M. M. Oliveira and L. A. F. Fernandes, "A physiologically-based model
/// for simulation of color vision deficiency", IEEE TVCG 15 (2009), applied to linear sRGB; grey is
/// the relative luminance of Rec. 709.
QRgb simulated(QRgb color, ColorVision vision);

/// The same for each pixel. The result has the format ARGB32_Premultiplied and the pixel ratio of
/// `image`.
QImage simulated(const QImage &image, ColorVision vision);

} // namespace mapviewer
