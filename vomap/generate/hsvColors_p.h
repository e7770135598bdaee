#pragma once

#include "vomap/generate/HsvBox_p.h"
#include "vomap/rgb_color.h"

#include <cstddef>

namespace VTObjects {

/// Writes the first `count` colours of the sequence that belongs to a seed and a box.
///
/// As fillWithRandomColors(), inside a box: the first colours are chosen far from each other;
/// further ones are drawn from the box, new ones as long as some are found easily. A box that
/// holds fewer colours than are asked for repeats them. Every colour is a colour of the box
/// rounded to whole components, and lies in the box itself too unless that holds too few such.
void fillWithHsvColors(int seed, const HsvBox &box, rgb_color<float> *colors, std::size_t count);

} // namespace VTObjects
