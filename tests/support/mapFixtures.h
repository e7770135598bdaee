#pragma once

#include "apps/mapviewer/layers/AsciiGrid.h"
#include "apps/mapviewer/layers/PolygonSet.h"

#include "vomap/VOEvenColorRamp.h"

#include <QRgb>
#include <QVariantMap>

#include <memory>
#include <vector>

/// An even ramp whose output colours are just these.
inline std::unique_ptr<VTObjects::VOColorRamp> rampOf(const std::vector<QRgb> &colors)
{
    auto ramp = std::make_unique<VTObjects::VOEvenColorRamp>();
    for (const QRgb color : colors) {
        ramp->addColor(VTObjects::rgb_color<float>(float(qRed(color)), float(qGreen(color)),
                                                   float(qBlue(color))));
    }
    return ramp;
}

/// Cells of one unit; far from zero, so that nobody takes them for degrees.
inline mapviewer::AsciiGrid gridOf(int columns, int rows, const std::vector<float> &values)
{
    mapviewer::AsciiGrid grid;
    grid.columns = columns;
    grid.rows = rows;
    grid.west = grid.south = 1000.0;
    grid.values = values;
    return grid;
}

inline mapviewer::PolygonFeature squareOf(const QRectF &bounds, const QVariantMap &attributes)
{
    QPainterPath path;
    path.addRect(bounds);
    return {path, bounds, attributes};
}
