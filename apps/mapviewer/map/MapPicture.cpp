#include "apps/mapviewer/map/MapPicture.h"

#include <QCoreApplication>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>

namespace mapviewer {

namespace {

constexpr double pictureMargin = 28.0;
constexpr double legendWidth = 270.0;
constexpr double legendGap = 18.0;
constexpr double titleSize = 1.8; // times the map's font

QString translated(const char *text)
{
    return QCoreApplication::translate("MapPicture", text);
}

QString footer(const MapLayers &layers, const MapView &view, ColorVision vision)
{
    QStringList parts;
    for (const auto &layer : layers) {
        const bool thanked = layer->source().isEmpty() || parts.contains(layer->source());
        if (layer->isVisible() && sharesCoordinates(*layer, view) && !thanked)
            parts.append(layer->source());
    }
    const QString remark = visionRemark(vision);
    if (!remark.isEmpty())
        parts.append(translated("Colors as in %1").arg(remark));
    return parts.join(QStringLiteral("   ·   "));
}

} // namespace

QString visionRemark(ColorVision vision)
{
    switch (vision) {
    case ColorVision::Protan:
        return translated("simulated protan vision");
    case ColorVision::Deutan:
        return translated("simulated deutan vision");
    case ColorVision::Tritan:
        return translated("simulated tritan vision");
    case ColorVision::Gray:
        return translated("simulated gray vision");
    case ColorVision::Normal:
        break;
    }
    return {};
}

QImage mapPicture(const MapLayers &layers, const MapView &view, const MapStyle &style,
                  const PictureSettings &settings)
{
    QImage image((QSizeF(settings.size) * settings.pixelRatio).toSize(),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(settings.pixelRatio);
    QPainter painter(&image);
    paintMapPicture(&painter, layers, view, style, settings);
    painter.end();
    if (settings.vision == ColorVision::Normal)
        return image;
    return simulated(image, settings.vision);
}

void paintMapPicture(QPainter *painter, const MapLayers &layers, const MapView &view,
                     const MapStyle &style, const PictureSettings &settings)
{
    const QRectF page(QPointF(0.0, 0.0), QSizeF(settings.size));
    QFont titleFont = style.font;
    titleFont.setPointSizeF(QFontInfo(titleFont).pointSizeF() * titleSize);
    titleFont.setBold(true);
    const double titleHeight = QFontMetricsF(titleFont, painter->device()).height();
    const double lineHeight = QFontMetricsF(style.font, painter->device()).height();
    QRectF map = page.adjusted(pictureMargin, pictureMargin + titleHeight, -pictureMargin,
                               -pictureMargin - lineHeight);
    const QRectF legends(map.right() - legendWidth, map.top(), legendWidth, map.height());
    map.setRight(legends.left() - pictureMargin);
    const MapView fitted = MapView::fitted(view.visible(), map, view.geographic(), 0.0);
    MapRenderer(layers, style).paint(painter, fitted);
    // Around the map, and after it: not every kind of page can clip what runs over its edge.
    QPainterPath margin;
    margin.addRect(page);
    margin.addRect(map);
    painter->fillPath(margin, style.paper);

    painter->setPen(style.ink);
    painter->setFont(titleFont);
    painter->drawText(page.adjusted(pictureMargin, pictureMargin * 0.7, -pictureMargin, 0.0),
                      Qt::AlignLeft | Qt::AlignTop, settings.title);
    painter->setFont(style.font);
    painter->drawText(page.adjusted(pictureMargin, 0.0, -pictureMargin, -pictureMargin * 0.5),
                      Qt::AlignLeft | Qt::AlignBottom, footer(layers, view, settings.vision));
    painter->setPen(QPen(style.ink, 1.0));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(map);

    QColor frame = style.ink;
    frame.setAlpha(110);
    const LegendStyle legendStyle{style.font, style.ink, frame, true,
                                  QGuiApplication::layoutDirection()};
    double top = legends.top();
    for (const auto &layer : layers) {
        if (!layer->isVisible() || !sharesCoordinates(*layer, view))
            continue;
        const Legend legend = layer->legend();
        const double height = drawLegend(nullptr, {}, legendWidth, legend, legendStyle);
        // A legend that would run off the page is left out whole rather than cut.
        if (top + height > legends.bottom())
            break;
        drawLegend(painter, QPointF(legends.left(), top), legendWidth, legend, legendStyle);
        top += height + legendGap;
    }
}

} // namespace mapviewer
