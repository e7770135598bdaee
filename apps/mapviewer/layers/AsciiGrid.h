#pragma once

#include <QPointF>
#include <QRectF>

#include <vector>

namespace mapviewer {

/// A raster of one number a cell, as an ESRI ASCII grid holds it.
struct AsciiGrid
{
    int columns = 0;
    int rows = 0;
    double west = 0.0;         ///< x of the western edge of the first column
    double south = 0.0;        ///< y of the southern edge of the last row
    double cellSize = 1.0;     ///< width and height of a cell, in map units
    std::vector<float> values; ///< row by row from the north-west corner; NaN where there is none

    float at(int row, int column) const;
    /// The cell that covers a point of the map; NaN outside.
    float valueAt(const QPointF &position) const;
    /// Left is west, top() is the *southern* edge: y grows northwards.
    QRectF extent() const;
    /// Smallest and largest value; both NaN when no cell has one.
    std::pair<float, float> range() const;
};

/// Whether an extent can only sensibly be longitude and latitude in degrees. The two text formats
/// read here do not say, so this goes by the numbers.
bool isGeographic(const QRectF &extent);

} // namespace mapviewer
