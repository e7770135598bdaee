#include "apps/mapviewer/layers/AsciiGrid.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace mapviewer {

float AsciiGrid::at(int row, int column) const
{
    return values[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
                  static_cast<std::size_t>(column)];
}

float AsciiGrid::valueAt(const QPointF &position) const
{
    const double column = std::floor((position.x() - west) / cellSize);
    const double rowFromSouth = std::floor((position.y() - south) / cellSize);
    if (!(column >= 0 && column < columns && rowFromSouth >= 0 && rowFromSouth < rows))
        return std::numeric_limits<float>::quiet_NaN();
    return at(rows - 1 - static_cast<int>(rowFromSouth), static_cast<int>(column));
}

QRectF AsciiGrid::extent() const
{
    return QRectF(west, south, columns * cellSize, rows * cellSize);
}

std::pair<float, float> AsciiGrid::range() const
{
    const float none = std::numeric_limits<float>::quiet_NaN();
    std::pair<float, float> found(none, none);
    for (const float value : values) {
        if (std::isnan(value))
            continue;
        // fmin and fmax prefer the number over the NaN that stands there at first.
        found.first = std::fmin(found.first, value);
        found.second = std::fmax(found.second, value);
    }
    return found;
}

bool isGeographic(const QRectF &extent)
{
    // Half a cell of slack: global grids often centre their outer cells on the last meridian.
    constexpr double slack = 0.5;
    return extent.left() >= -180.0 - slack && extent.right() <= 360.0 + slack &&
           extent.top() >= -90.0 - slack && extent.bottom() <= 90.0 + slack;
}

} // namespace mapviewer
