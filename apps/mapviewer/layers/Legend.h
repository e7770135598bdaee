#pragma once

#include <QColor>
#include <QPainter>
#include <QRgb>
#include <QString>
#include <QVector>

namespace mapviewer {

/// What the colours of one layer mean: either a strip with round numbers along it, or a list of
/// classes.
struct Legend
{
    struct Class
    {
        QRgb color = 0;
        QString text;
    };
    struct Tick
    {
        double position = 0.0; ///< 0 to 1 along the strip
        QString text;
    };

    QString title;       ///< the layer
    QString caption;     ///< what is shown, and its unit; may be empty
    QVector<QRgb> strip; ///< empty for a legend of classes
    QVector<Tick> ticks; ///< ascending
    QVector<Class> classes;
    QString remark; ///< below all else, for what was left out; may be empty
};

/// How a legend is drawn; the same on the panel and in an exported picture.
struct LegendStyle
{
    QFont font;
    QColor text;
    QColor frame; ///< thin line around swatches
    bool withTitle = true;
    Qt::LayoutDirection direction = Qt::LeftToRight; ///< swatches stand where lines begin
};

/// Draws the legend from `origin` downwards, `width` wide, and returns its height. With a null
/// `painter` it only measures.
double drawLegend(QPainter *painter, const QPointF &origin, double width, const Legend &legend,
                  const LegendStyle &style);

} // namespace mapviewer
