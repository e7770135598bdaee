#pragma once

#include "apps/mapviewer/map/MapRenderer.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QString>

namespace mapviewer {

/// Degrees between two lines, so that they stand at least 90 pixels apart; a divisor of 90 or a
/// round part of a degree.
double graticuleStep(double pixelsPerDegree);

/// "120° W", "0°", "12.5° E"
QString longitudeText(double degrees);
/// "45° N", "0°", "12.5° S"
QString latitudeText(double degrees);

/// A bar of a round length on the ground; no pixels when the map has no one scale, as the world
/// in degrees has not.
struct ScaleBar
{
    double pixels = 0.0;
    QString text;
};
ScaleBar scaleBar(const MapView &view);

/// A label that can be read on any map: on a background of its own, a little smaller than the map's
/// font.
class MapLabel
{
public:
    MapLabel(QPainter *painter, const MapStyle &style);

    /// Of the background.
    double width(const QString &text) const;
    double height() const;
    void draw(const QPointF &topLeft, const QString &text) const;

private:
    QPainter *painter;
    const MapStyle &style;
    QFont font;
    QFontMetricsF metrics;
};

} // namespace mapviewer
