#pragma once

#include "vomap/rgb_color.h"

#include <QVector>

#include <cstddef>
#include <limits>
#include <new>
#include <utility>

namespace VTObjects {

/// The most colours that a ramp holds: as many as its list can take with room to spare.
constexpr unsigned int maxLevel = std::numeric_limits<int>::max() / 16;

/// Replaces a ramp's output list by `count` colours that `fill(first, count)` writes. False, with
/// the list as it was, for more than maxLevel and where memory does not suffice.
template <typename Fill>
bool generateColors(QVector<rgb_color<float>> &colors, unsigned int count, Fill fill)
{
    if (count > maxLevel)
        return false;
    try {
        QVector<rgb_color<float>> output(static_cast<int>(count));
        if (count > 0)
            fill(output.data(), std::size_t(count));
        colors = std::move(output);
    } catch (const std::bad_alloc &) {
        return false;
    }
    return true;
}

} // namespace VTObjects
