#include "apps/mapviewer/layers/MapView.h"

#include "apps/mapviewer/layers/earth_p.h"

#include <algorithm>
#include <cmath>

namespace mapviewer {

namespace {

// Between these heights of the view, in degrees, the standard parallel moves.
constexpr double worldSpan = 120.0;
constexpr double regionSpan = 30.0;
constexpr double greatestParallel = 80.0;
constexpr double worldParallel = 36.0;
constexpr double leastScale = 1e-9;
constexpr double greatestScale = 1e9;

} // namespace

MapView MapView::fitted(const QRectF &extent, const QRectF &target, bool geographic, double margin)
{
    MapView view;
    view.m_target = target;
    view.m_geographic = geographic;
    view.m_center = extent.center();
    const double width = std::max(target.width() - 2.0 * margin, 1.0);
    const double height = std::max(target.height() - 2.0 * margin, 1.0);
    const double extentWidth = std::max(extent.width(), 1e-9);
    const double extentHeight = std::max(extent.height(), 1e-9);
    // The standard parallel follows from the scale and the scale from the parallel; a few rounds
    // settle both, and the rule moves too gently for them to run apart.
    for (int round = 0; round < 8; ++round) {
        view.m_scale = std::min(width / (extentWidth * view.xFactor), height / extentHeight);
        view.setParallel();
    }
    view.m_scale = std::min(width / (extentWidth * view.xFactor), height / extentHeight);
    return view;
}

void MapView::setParallel()
{
    if (!m_geographic)
        return;
    const double span = m_target.height() / m_scale;
    const double closeness = std::clamp((worldSpan - span) / (worldSpan - regionSpan), 0.0, 1.0);
    const double latitude = std::clamp(m_center.y(), -greatestParallel, greatestParallel);
    const double parallel = std::abs(latitude) * closeness + worldParallel * (1.0 - closeness);
    xFactor = std::cos(parallel * degreesToRadians);
}

QPointF MapView::toScreen(const QPointF &position) const
{
    return QPointF(m_target.center().x() + (position.x() - m_center.x()) * scaleX(),
                   m_target.center().y() - (position.y() - m_center.y()) * m_scale);
}

QPointF MapView::toMap(const QPointF &pixel) const
{
    return QPointF(m_center.x() + (pixel.x() - m_target.center().x()) / scaleX(),
                   m_center.y() - (pixel.y() - m_target.center().y()) / m_scale);
}

QRectF MapView::toScreen(const QRectF &extent) const
{
    return QRectF(toScreen(extent.topLeft()), toScreen(extent.bottomRight())).normalized();
}

QRectF MapView::visible() const
{
    return QRectF(toMap(m_target.topLeft()), toMap(m_target.bottomRight())).normalized();
}

void MapView::zoom(double factor, const QPointF &pixel)
{
    const QPointF anchor = toMap(pixel);
    m_scale = std::clamp(m_scale * factor, leastScale, greatestScale);
    // The new scale first moves the centre, and the centre the parallel; then the anchor goes
    // back under the pixel.
    for (int round = 0; round < 2; ++round) {
        m_center += anchor - toMap(pixel);
        setParallel();
    }
    m_center += anchor - toMap(pixel);
}

void MapView::pan(const QPointF &pixels)
{
    m_center += QPointF(-pixels.x() / scaleX(), pixels.y() / m_scale);
    setParallel();
}

void MapView::setTarget(const QRectF &target)
{
    m_target = target;
    setParallel();
}

} // namespace mapviewer
