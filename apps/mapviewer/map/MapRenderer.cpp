#include "apps/mapviewer/map/MapRenderer.h"

#include "apps/mapviewer/layers/AsciiGrid.h"
#include "apps/mapviewer/layers/NumberText.h"
#include "apps/mapviewer/map/MapDecorations_p.h"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <optional>

namespace mapviewer {

namespace {

const QRectF globeExtent(-180.0, -90.0, 360.0, 180.0);
constexpr double speckSize = 28.0; // pixels
constexpr double flatFactor = 50.0;
constexpr double insetMargin = 14.0;
constexpr double leastInsetWidth = 110.0;
constexpr double greatestInsetWidth = 230.0;
constexpr double insetShare = 0.21;  // of the map's width
constexpr double insetHeight = 0.75; // of the inset's width

/// The multiples of a step between two numbers, a hair beyond the second included.
QVector<double> multiples(double step, double from, double to)
{
    const double first = std::ceil(from / step);
    const int count = int(std::floor((to + 1e-9) / step) - first) + 1;
    QVector<double> all;
    for (int i = 0; i < count; ++i)
        all.append((first + i) * step);
    return all;
}

void paintAsPixels(QPainter *painter, const MapInset &inset)
{
    constexpr double ratio = 2.0;
    const QRectF area = inset.view.target();
    QImage picture((area.size() * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter inner(&picture);
    inner.translate(-area.topLeft());
    inset.layer->paint(&inner, inset.view);
    inner.end();
    painter->drawImage(area, picture, QRectF(picture.rect()));
}

} // namespace

MapStyle MapStyle::light(const QFont &font)
{
    return {QColor(0xf4, 0xf5, 0xf6),
            QColor(0xd6, 0xe4, 0xec),
            QColor(40, 70, 90, 46),
            QColor(0x2b, 0x34, 0x3b),
            QColor(255, 255, 255, 215),
            font,
            true};
}

MapStyle MapStyle::dark(const QFont &font)
{
    return {QColor(0x1d, 0x20, 0x23),
            QColor(0x2a, 0x36, 0x40),
            QColor(210, 225, 235, 42),
            QColor(0xe4, 0xe7, 0xea),
            QColor(20, 24, 28, 205),
            font,
            true};
}

MapRenderer::MapRenderer(const MapLayers &layers, const MapStyle &style)
    : layers(layers)
    , style(style)
{
}

bool sharesCoordinates(const MapLayer &layer, const MapView &view)
{
    return isGeographic(layer.extent()) == view.geographic();
}

QRectF MapRenderer::extent(const MapView &view) const
{
    const bool anyVisible =
        std::any_of(layers.begin(), layers.end(), [](const auto &any) { return any->isVisible(); });
    const auto counts = [=](const MapLayer &layer) { return layer.isVisible() || !anyVisible; };
    const auto stays = [&](const auto &any) {
        return counts(*any) && sharesCoordinates(*any, view);
    };
    const bool same = !view.target().isNull() && std::any_of(layers.begin(), layers.end(), stays);
    std::optional<bool> geographic;
    if (same)
        geographic = view.geographic();
    QRectF all;
    for (const auto &layer : layers) {
        if (!counts(*layer))
            continue;
        if (!geographic)
            geographic = isGeographic(layer->extent());
        if (isGeographic(layer->extent()) == *geographic)
            all = all.united(layer->extent());
    }
    return all;
}

bool MapRenderer::isShownIn(const MapLayer &layer, const MapView &view) const
{
    if (!layer.isVisible() || !sharesCoordinates(layer, view))
        return false;
    const QRectF seen = view.visible();
    const auto isFlat = [&seen](const MapLayer &any) {
        return any.extent().width() > seen.width() * flatFactor;
    };
    if (!isFlat(layer))
        return true;
    return std::none_of(layers.begin(), layers.end(), [&](const auto &other) {
        return other->isVisible() && sharesCoordinates(*other, view) && !isFlat(*other) &&
               other->extent().intersects(seen);
    });
}

std::vector<MapInset> MapRenderer::insets(const MapView &view) const
{
    std::vector<MapInset> found;
    const QRectF map = view.target();
    const double width =
        std::round(std::clamp(map.width() * insetShare, leastInsetWidth, greatestInsetWidth));
    const double captionHeight = std::ceil(QFontMetricsF(style.font).height()) + 4.0;
    double bottom = map.bottom() - insetMargin;
    // From the lowest layer up, so that on the map they stand in the order of the panel.
    for (auto layer = layers.rbegin(); layer != layers.rend(); ++layer) {
        const QRectF extent = (*layer)->extent();
        const QRectF marker = view.toScreen(extent);
        const bool speck = std::max(marker.width(), marker.height()) < speckSize;
        if (!(*layer)->isVisible() || !sharesCoordinates(**layer, view) || !speck ||
            !map.contains(marker.center()))
            continue;
        const double height = std::round(width * insetHeight) + captionHeight;
        const QRectF frame(map.left() + insetMargin, bottom - height, width, height);
        if (frame.top() < map.top() + insetMargin || frame.right() > map.right() - insetMargin)
            break;
        const QRectF caption(frame.left(), frame.top(), frame.width(), captionHeight);
        const QRectF picture = frame.adjusted(0.0, captionHeight, 0.0, 0.0);
        // Fitted, then enlarged until no edge of the picture is empty: frames of one shape stand
        // in a column, and the lines to their places do not cross them.
        MapView inside = MapView::fitted(extent, picture, isGeographic(extent), 0.0);
        const QSizeF shape = inside.toScreen(extent).size();
        inside.zoom(std::max(picture.width() / shape.width(), picture.height() / shape.height()),
                    picture.center());
        found.push_back({layer->get(), inside, frame, caption, marker});
        bottom = frame.top() - insetMargin;
    }
    return found;
}

void MapRenderer::paint(QPainter *painter, const MapView &view) const
{
    painter->save();
    painter->setClipRect(view.target(), Qt::IntersectClip);
    painter->fillRect(view.target(), style.paper);
    if (view.geographic())
        paintGlobe(painter, view);
    paintLayers(painter, view);
    if (view.geographic() && style.withGraticule)
        paintGraticule(painter, view);
    for (const MapInset &inset : insets(view))
        paintInset(painter, inset);
    paintScaleBar(painter, view);
    painter->restore();
}

void MapRenderer::paintGlobe(QPainter *painter, const MapView &view) const
{
    // Without the lands there is nothing to tell the sea from.
    const bool lands = std::all_of(layers.begin(), layers.end(), [&](const auto &layer) {
        return !layer->isVisible() || !sharesCoordinates(*layer, view) || isShownIn(*layer, view);
    });
    if (lands)
        painter->fillRect(view.toScreen(globeExtent).intersected(view.target()), style.water);
}

void MapRenderer::paintLayers(QPainter *painter, const MapView &view) const
{
    for (auto layer = layers.rbegin(); layer != layers.rend(); ++layer) {
        if (isShownIn(**layer, view))
            (*layer)->paint(painter, view);
    }
}

void MapRenderer::paintGraticule(QPainter *painter, const MapView &view) const
{
    const QRectF seen = view.visible().intersected(globeExtent);
    if (seen.isEmpty())
        return;
    const double step = graticuleStep(view.scale());
    const QRectF map = view.target();
    const QRectF lines = view.toScreen(seen);
    const MapLabel text(painter, style);
    // Above the globe where there is room, else along the edge of the map.
    const double labelTop = std::max(map.top() + 4.0, lines.top() - text.height() - 2.0);
    double free = map.left(); // of labels: far out meridians stand close to each other
    for (const double x : multiples(step, seen.left(), seen.right())) {
        const double column = std::round(view.toScreen(QPointF(x, 0.0)).x()) + 0.5;
        painter->setPen(QPen(style.graticule, 1.0));
        painter->drawLine(QPointF(column, lines.top()), QPointF(column, lines.bottom()));
        const double half = text.width(longitudeText(x)) / 2.0;
        if (column - half < free || column + half > map.right())
            continue;
        text.draw(QPointF(column - half, labelTop), longitudeText(x));
        free = column + half;
    }
    for (const double y : multiples(step, seen.top(), seen.bottom())) {
        const double row = std::round(view.toScreen(QPointF(0.0, y)).y()) + 0.5;
        painter->setPen(QPen(style.graticule, 1.0));
        painter->drawLine(QPointF(lines.left(), row), QPointF(lines.right(), row));
        // Not into the labels above, nor over the lower edge, where the poles say nothing new.
        const double top = row - text.height() / 2.0;
        if (top < labelTop + text.height() || top + text.height() > lines.bottom() - 4.0)
            continue;
        text.draw(QPointF(map.right() - text.width(latitudeText(y)) - 4.0, top), latitudeText(y));
    }
}

void MapRenderer::paintInset(QPainter *painter, const MapInset &inset) const
{
    painter->save();
    // Which place it is: a frame around the speck and a line from there to the picture.
    const QRectF spot =
        QRectF(inset.marker.center() - QPointF(4.0, 4.0), QSizeF(8.0, 8.0)).united(inset.marker);
    const QPointF start(std::clamp(spot.center().x(), inset.frame.left(), inset.frame.right()),
                        std::clamp(spot.center().y(), inset.frame.top(), inset.frame.bottom()));
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    for (const QPen &pen : {QPen(style.halo, 3.5), QPen(style.ink, 1.2)}) {
        painter->setPen(pen);
        painter->drawLine(start, spot.center());
        painter->drawRect(spot);
    }
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->fillRect(inset.frame, style.water);
    painter->fillRect(inset.caption, style.paper);
    if (painter->paintEngine() && painter->paintEngine()->type() == QPaintEngine::SVG)
        paintAsPixels(painter, inset); // such a page cannot cut a layer off at the inset's edge
    else
        inset.layer->paint(painter, inset.view);
    painter->setFont(style.font);
    painter->setPen(style.ink);
    const QString title =
        QFontMetricsF(style.font)
            .elidedText(inset.layer->title(), Qt::ElideRight, inset.caption.width() - 10.0);
    painter->drawText(inset.caption, Qt::AlignCenter, title);
    painter->setPen(QPen(style.ink, 1.0));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(inset.frame.adjusted(-0.5, -0.5, 0.5, 0.5));
    painter->restore();
}

void MapRenderer::paintScaleBar(QPainter *painter, const MapView &view) const
{
    const ScaleBar bar = scaleBar(view);
    if (bar.pixels <= 0.0)
        return;
    const QPointF right(view.target().right() - 70.0, view.target().bottom() - 14.0);
    const QPointF left = right - QPointF(bar.pixels, 0.0);
    const QPointF up(0.0, -5.0);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    for (const QPen &pen : {QPen(style.halo, 4.0), QPen(style.ink, 1.5)}) {
        painter->setPen(pen);
        painter->drawPolyline(QPolygonF({left + up, left, right, right + up}));
    }
    const MapLabel text(painter, style);
    text.draw((left + right) / 2.0 - QPointF(text.width(bar.text) / 2.0, text.height() + 5.0),
              bar.text);
    painter->restore();
}

QPointF MapRenderer::positionAt(const MapView &view, const QPointF &pixel) const
{
    for (const MapInset &inset : insets(view)) {
        if (inset.frame.contains(pixel))
            return inset.view.toMap(pixel);
    }
    return view.toMap(pixel);
}

IdentifyResult MapRenderer::identify(const MapView &view, const QPointF &pixel,
                                     const MapLayer **layer) const
{
    *layer = nullptr;
    for (const MapInset &inset : insets(view)) {
        if (!inset.frame.contains(pixel))
            continue;
        *layer = inset.layer;
        return inset.layer->identify(inset.view.toMap(pixel));
    }
    const QPointF position = view.toMap(pixel);
    for (const auto &candidate : layers) {
        if (!isShownIn(*candidate, view))
            continue;
        IdentifyResult result = candidate->identify(position);
        if (result.found) {
            *layer = candidate.get();
            return result;
        }
    }
    return {};
}

} // namespace mapviewer
