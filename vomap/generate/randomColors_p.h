#pragma once

#include "vomap/rgb_color.h"

#include <cstddef>

namespace VTObjects {

/// Writes the first `count` colours of the sequence that belongs to a seed.
///
/// All components are whole numbers. The first thousand colours are chosen far from each other,
/// from white and from black, also for dichromats; then follow all other colours of 8 bits a
/// component in an order of their own, each once; after 2^24 colours the sequence begins anew.
/// Seeds that differ by an odd number share none of their first colours.
void fillWithRandomColors(int seed, rgb_color<float> *colors, std::size_t count);

} // namespace VTObjects
