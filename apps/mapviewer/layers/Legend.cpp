#include "apps/mapviewer/layers/Legend.h"

#include "apps/mapviewer/layers/NumberText.h"
#include "apps/mapviewer/layers/RampColors.h"

#include <QFontMetricsF>
#include <QRegularExpression>

#include <cmath>

namespace mapviewer {

namespace {

constexpr double swatchWidth = 26.0;
constexpr double swatchHeight = 13.0;
constexpr double rowGap = 4.0;
constexpr double stripHeight = 16.0;
constexpr double tickLength = 4.0;
constexpr double textGap = 8.0;

QString longestWord(const QString &line)
{
    QString longest;
    for (const QString &word : line.split(QRegularExpression(QStringLiteral("\\s")))) {
        if (word.size() > longest.size())
            longest = word;
    }
    return longest;
}

QString isolatedLines(const QString &text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString &line : lines)
        line = isolated(line);
    return lines.join(QLatin1Char('\n'));
}

// Draws, or only measures when there is no painter; remembers how far down it has come.
class LegendDrawing
{
public:
    LegendDrawing(QPainter *painter, const QPointF &origin, double width, const LegendStyle &style)
        : painter(painter)
        , style(style)
        , left(origin.x())
        , top(origin.y())
        , width(width)
        , y(origin.y())
    {
    }

    double height() const { return y - top; }

    void text(const QString &line, bool bold, double opacity)
    {
        if (line.isEmpty())
            return;
        QFont font = style.font;
        font.setBold(bold);
        const QFontMetricsF metrics(font);
        // A word that is longer than the line is broken rather than cut.
        const bool longWord = std::ceil(metrics.boundingRect(longestWord(line)).width()) > width;
        const int wrap = longWord ? Qt::TextWrapAnywhere : Qt::TextWordWrap;
        const QRectF bounds = metrics.boundingRect(QRectF(0, 0, width, 10'000), wrap, line);
        if (painter) {
            QColor color = style.text;
            color.setAlphaF(color.alphaF() * opacity);
            painter->setFont(font);
            painter->setPen(color);
            painter->setLayoutDirection(style.direction);
            painter->drawText(QRectF(left, y, width, bounds.height()), wrap, isolatedLines(line));
        }
        y += std::ceil(bounds.height()) + rowGap;
    }

    void row(const Legend::Class &entry)
    {
        const QFontMetricsF metrics(style.font);
        const double rowHeight = std::max(swatchHeight, std::ceil(metrics.height()));
        if (painter) {
            const bool mirrored = style.direction == Qt::RightToLeft;
            const double swatchLeft = mirrored ? left + width - swatchWidth - 1.0 : left;
            const QRectF swatch(swatchLeft + 0.5,
                                y + std::floor((rowHeight - swatchHeight) / 2.0) + 0.5, swatchWidth,
                                swatchHeight);
            painter->fillRect(swatch, QColor(entry.color));
            painter->setPen(style.frame);
            painter->setBrush(Qt::NoBrush);
            painter->drawRect(swatch);
            const double textWidth = width - swatchWidth - textGap;
            const double textLeft = mirrored ? left : left + swatchWidth + textGap;
            painter->setFont(style.font);
            painter->setPen(style.text);
            painter->setLayoutDirection(style.direction);
            painter->drawText(QRectF(textLeft, y, textWidth, rowHeight), Qt::AlignVCenter,
                              isolated(metrics.elidedText(entry.text, Qt::ElideRight, textWidth)));
        }
        y += rowHeight + rowGap;
    }

    void strip(const Legend &legend)
    {
        const QFontMetricsF metrics(style.font);
        const QRectF box(left + 0.5, y + 0.5, width - 1.0, stripHeight);
        if (painter) {
            const int columns = int(box.width());
            for (int i = 0; i < columns; ++i) {
                const QRgb color = colorAlong(legend.strip, double(i) / std::max(columns - 1, 1));
                painter->fillRect(QRectF(box.left() + i, box.top(), 1.5, box.height()),
                                  QColor(color));
            }
            painter->setPen(style.frame);
            painter->setBrush(Qt::NoBrush);
            painter->drawRect(box);
        }
        const double textTop = box.bottom() + tickLength + 1.0;
        double freeFrom = left - 1.0;
        for (const Legend::Tick &tick : legend.ticks) {
            const double x = box.left() + tick.position * box.width();
            const double textWidth = metrics.horizontalAdvance(tick.text);
            const double textLeft =
                std::max(left, std::min(x - textWidth / 2.0, left + width - textWidth));
            // A number that would run into the one before it is left out, its mark stays.
            const bool fits = textLeft >= freeFrom;
            if (fits)
                freeFrom = textLeft + textWidth + textGap;
            if (!painter)
                continue;
            painter->setPen(style.frame);
            painter->drawLine(QPointF(x, box.bottom()), QPointF(x, box.bottom() + tickLength));
            if (!fits)
                continue;
            painter->setFont(style.font);
            painter->setPen(style.text);
            painter->drawText(QPointF(textLeft, textTop + metrics.ascent()), tick.text);
        }
        y = std::ceil(textTop + metrics.height()) + rowGap;
    }

private:
    QPainter *painter;
    const LegendStyle &style;
    double left;
    double top;
    double width;
    double y;
};

} // namespace

double drawLegend(QPainter *painter, const QPointF &origin, double width, const Legend &legend,
                  const LegendStyle &style)
{
    LegendDrawing drawing(painter, origin, width, style);
    if (style.withTitle)
        drawing.text(legend.title, true, 1.0);
    drawing.text(legend.caption, false, 0.75);
    if (!legend.strip.isEmpty())
        drawing.strip(legend);
    for (const Legend::Class &entry : legend.classes)
        drawing.row(entry);
    drawing.text(legend.remark, false, 0.75);
    return drawing.height();
}

} // namespace mapviewer
