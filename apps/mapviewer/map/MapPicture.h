#pragma once

#include "apps/mapviewer/map/ColorVision.h"
#include "apps/mapviewer/map/MapRenderer.h"

#include <QImage>

namespace mapviewer {

/// How a map becomes a picture of its own.
struct PictureSettings
{
    QSize size = QSize(1400, 900); ///< before pixelRatio
    double pixelRatio = 2.0;       ///< fit for print
    QString title;
    ColorVision vision = ColorVision::Normal; ///< the margin says so unless it is normal
};

/// The present view with title, legends of the visible layers that lie on it and the sources of
/// their data.
QImage mapPicture(const MapLayers &layers, const MapView &view, const MapStyle &style,
                  const PictureSettings &settings);

/// The same on any page whose unit is a pixel of `settings.size`; its vision is left to the caller,
/// but for the remark.
void paintMapPicture(QPainter *painter, const MapLayers &layers, const MapView &view,
                     const MapStyle &style, const PictureSettings &settings);

/// "simulated deutan vision" and the like; empty for normal sight.
QString visionRemark(ColorVision vision);

} // namespace mapviewer
