#include "apps/mapviewer/layers/HillShade.h"

#include "apps/mapviewer/layers/earth_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace mapviewer {

namespace {

constexpr double readableSlope = 15.0; // degrees
constexpr double greatestExaggeration = 20.0;

struct Slope
{
    double eastward;
    double northward;
};

Slope slopeAt(const AsciiGrid &grid, const CellLengths &cell, int row, int column)
{
    const double here = grid.at(row, column);
    const auto height = [&](int down, int right) {
        const int r = row + down;
        const int c = column + right;
        if (r < 0 || r >= grid.rows || c < 0 || c >= grid.columns)
            return here;
        const double value = grid.at(r, c);
        return std::isnan(value) ? here : value;
    };
    const double west = height(-1, -1) + 2.0 * height(0, -1) + height(1, -1);
    const double east = height(-1, 1) + 2.0 * height(0, 1) + height(1, 1);
    const double north = height(-1, -1) + 2.0 * height(-1, 0) + height(-1, 1);
    const double south = height(1, -1) + 2.0 * height(1, 0) + height(1, 1);
    return {(east - west) / (8.0 * cell.x), (north - south) / (8.0 * cell.y)};
}

} // namespace

CellLengths cellLengths(const AsciiGrid &grid)
{
    const QRectF extent = grid.extent();
    if (!isGeographic(extent))
        return {grid.cellSize, grid.cellSize};
    const double latitude = degreesToRadians * std::clamp(extent.center().y(), -89.0, 89.0);
    return {grid.cellSize * metersPerDegree * std::cos(latitude), grid.cellSize * metersPerDegree};
}

std::vector<float> hillShade(const AsciiGrid &grid, const CellLengths &cell,
                             const HillShadeLight &light)
{
    // The surface's normal is (-slope east, -slope north, 1); the brightness is the cosine of its
    // angle to the light.
    const double azimuth = degreesToRadians * light.azimuth;
    const double altitude = degreesToRadians * light.altitude;
    const double toEast = std::sin(azimuth) * std::cos(altitude);
    const double toNorth = std::cos(azimuth) * std::cos(altitude);
    const double upwards = std::sin(altitude);
    std::vector<float> shades(grid.values.size());
    std::size_t index = 0;
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column, ++index) {
            if (std::isnan(grid.values[index])) {
                shades[index] = std::numeric_limits<float>::quiet_NaN();
                continue;
            }
            const Slope slope = slopeAt(grid, cell, row, column);
            const double east = slope.eastward * light.exaggeration;
            const double north = slope.northward * light.exaggeration;
            const double cosine = (upwards - east * toEast - north * toNorth) /
                                  std::sqrt(1.0 + east * east + north * north);
            shades[index] = float(std::clamp(cosine, 0.0, 1.0));
        }
    }
    return shades;
}

double readableExaggeration(const AsciiGrid &grid, const CellLengths &cell)
{
    double sum = 0.0;
    std::size_t cells = 0;
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            if (std::isnan(grid.at(row, column)))
                continue;
            const Slope slope = slopeAt(grid, cell, row, column);
            sum += std::hypot(slope.eastward, slope.northward);
            ++cells;
        }
    }
    if (sum <= 0.0)
        return 1.0;
    const double mean = sum / double(cells);
    return std::clamp(std::tan(degreesToRadians * readableSlope) / mean, 1.0, greatestExaggeration);
}

} // namespace mapviewer
