#pragma once

#include "apps/mapviewer/layers/AsciiGrid.h"

#include <vector>

namespace mapviewer {

/// Where the light comes from and how steep the ground is made to look.
struct HillShadeLight
{
    double azimuth = 315.0;    ///< degrees clockwise from north
    double altitude = 45.0;    ///< degrees above the horizon
    double exaggeration = 1.0; ///< vertical: a factor on the heights
};

/// The ground length of a cell's sides, in the unit of the heights.
struct CellLengths
{
    double x = 1.0;
    double y = 1.0;
};

/// A grid in degrees has cells of so many metres at its middle latitude; any other is taken to
/// have its heights in the unit of its map.
CellLengths cellLengths(const AsciiGrid &grid);

/// The brightness of each cell under the light, from 0 (turned away from it) to 1 (square to it);
/// NaN where the cell has no value. Slopes are Horn's weighted differences over the eight
/// neighbours; a neighbour without value, or beyond the edge, counts as level with the cell.
///
/// B. K. P. Horn, "Hill shading and the reflectance map", Proceedings of the IEEE 69 (1981).
std::vector<float> hillShade(const AsciiGrid &grid, const CellLengths &cell,
                             const HillShadeLight &light);

/// The vertical exaggeration at which the mean slope of the grid appears as 15 degrees, at least 1
/// and at most 20: shading that can be seen, on plains and on mountains.
double readableExaggeration(const AsciiGrid &grid, const CellLengths &cell);

} // namespace mapviewer
