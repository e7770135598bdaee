#pragma once

#include "vomap/rgb_color.h"

#include <cstddef>

namespace VTObjects {

/// Writes `count` colours spread evenly over the way through the source colours; black without
/// sources.
///
/// Between two sources the way is straight in OKLab with its lightness estimate Lr (B. Ottosson,
/// "A perceptual color space for image processing", 2020, and "Okhsv and Okhsl", 2021). A place
/// on a source gets exactly that source; every other colour has whole components. All in whole
/// numbers, so the same everywhere.
void fillWithEvenColors(const rgb_color<float> *sources, std::size_t sourceCount,
                        rgb_color<float> *colors, std::size_t count);

} // namespace VTObjects
