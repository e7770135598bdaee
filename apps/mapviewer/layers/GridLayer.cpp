#include "apps/mapviewer/layers/GridLayer.h"

#include "apps/mapviewer/layers/HillShade.h"
#include "apps/mapviewer/layers/NumberText.h"
#include "apps/mapviewer/layers/RampColors.h"

#include <QCoreApplication>
#include <QPaintEngine>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace mapviewer {

namespace {

constexpr int legendTicks = 6;
// A ramp with few colours is stretched over this many, so that a pixel needs no mixing.
constexpr int stretchedColors = 1024;
constexpr float darkestShade = 0.35F; // of a colour, where no light falls
constexpr float lightestTint = 0.45F; // towards white, where the light falls square

int shadedComponent(int component, float shade, float level)
{
    if (shade <= level) {
        const float dark = darkestShade + (1.0F - darkestShade) * (shade / level);
        return int(std::lround(float(component) * dark));
    }
    const float light = lightestTint * (shade - level) / (1.0F - level);
    return int(std::lround(float(component) + (255.0F - float(component)) * light));
}

QRgb shaded(QRgb color, float shade, float level)
{
    return qRgb(shadedComponent(qRed(color), shade, level),
                shadedComponent(qGreen(color), shade, level),
                shadedComponent(qBlue(color), shade, level));
}

QVector<QRgb> stretched(const QVector<QRgb> &few, int count)
{
    QVector<QRgb> many;
    many.reserve(count);
    for (int i = 0; i < count; ++i)
        many.append(few.isEmpty() ? noValueColor : colorAlong(few, double(i) / (count - 1)));
    return many;
}

// A page has no pixels of its own; what is drawn cell by cell gets as many as a fine screen has.
double pixelRatioOf(const QPainter *painter)
{
    constexpr double pageRatio = 2.0;
    if (painter->paintEngine() && painter->paintEngine()->type() != QPaintEngine::Raster)
        return pageRatio;
    return painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
}

QString translated(const char *text)
{
    return QCoreApplication::translate("GridLayer", text);
}

} // namespace

GridLayer::GridLayer(const QString &title, AsciiGrid cells, const QString &valueUnit)
    : MapLayer(title)
    , grid(std::move(cells))
    , unit(valueUnit)
    , range(grid.range())
{
    recolor();
}

QVector<ClassificationMethod> GridLayer::availableMethods() const
{
    return {ClassificationMethod::Unclassed, ClassificationMethod::EqualIntervals,
            ClassificationMethod::Quantiles};
}

void GridLayer::setHillShading(bool on)
{
    m_hillShading = on;
    if (on && shades.empty()) {
        const CellLengths lengths = cellLengths(grid);
        HillShadeLight light;
        light.exaggeration = readableExaggeration(grid, lengths);
        shades = hillShade(grid, lengths, light);
        AsciiGrid flat;
        flat.columns = flat.rows = 1;
        flat.values = {0.0F};
        levelShade = hillShade(flat, {}, light).front();
    }
    recolor();
}

void GridLayer::setZeroInMiddle(bool on)
{
    m_zeroInMiddle = on && crossesZero();
    recolor();
}

double GridLayer::positionOf(double value) const
{
    const double low = range.first;
    const double high = range.second;
    if (m_zeroInMiddle)
        return value < 0.0 ? 0.5 - 0.5 * value / low : 0.5 + 0.5 * value / high;
    return high > low ? (value - low) / (high - low) : 0.5;
}

QRgb GridLayer::colorOf(float value) const
{
    if (classificationMethod() == ClassificationMethod::Unclassed) {
        const double place = std::clamp(positionOf(value), 0.0, 1.0) * (colors.size() - 1);
        return colors.at(int(std::lround(place)));
    }
    return colors.value(breaks.classOf(value), noValueColor);
}

void GridLayer::recolor()
{
    if (classificationMethod() == ClassificationMethod::Unclassed) {
        const QVector<QRgb> few = rampColors(ramp());
        if (m_zeroInMiddle) {
            const int half = (few.size() + 1) / 2;
            colors = stretched(few.mid(0, half), stretchedColors / 2) +
                     stretched(few.mid(few.size() - half), stretchedColors / 2);
        } else {
            colors = stretched(few, stretchedColors);
        }
    } else {
        if (classificationMethod() == ClassificationMethod::EqualIntervals) {
            breaks = equalIntervals(range.first, range.second, classCount());
        } else {
            breaks = quantiles(std::vector<double>(grid.values.begin(), grid.values.end()),
                               classCount());
        }
        colors = classColors(ramp(), breaks.count());
    }
    image = QImage(grid.columns, grid.rows, QImage::Format_ARGB32_Premultiplied);
    std::size_t index = 0;
    for (int row = 0; row < grid.rows; ++row) {
        auto *pixel = reinterpret_cast<QRgb *>(image.scanLine(row));
        for (int column = 0; column < grid.columns; ++column, ++index) {
            const float value = grid.values[index];
            if (std::isnan(value)) {
                pixel[column] = qRgba(0, 0, 0, 0);
                continue;
            }
            const QRgb color = colorOf(value);
            pixel[column] = m_hillShading ? shaded(color, shades[index], levelShade) : color;
        }
    }
}

GridLayer::Sample GridLayer::interpolatedAt(double column, double row) const
{
    // Between the centres of four cells; beyond the outer centres the last cell goes on.
    const double x = std::clamp(column, 0.0, grid.columns - 1.0);
    const double y = std::clamp(row, 0.0, grid.rows - 1.0);
    const int left = std::min(int(x), std::max(grid.columns - 2, 0));
    const int top = std::min(int(y), std::max(grid.rows - 2, 0));
    const int right = std::min(left + 1, grid.columns - 1);
    const int bottom = std::min(top + 1, grid.rows - 1);
    const auto fx = float(x - left);
    const auto fy = float(y - top);
    const auto at = [this](int r, int c) {
        return std::size_t(r) * std::size_t(grid.columns) + std::size_t(c);
    };
    const std::array<std::size_t, 4> cells = {at(top, left), at(top, right), at(bottom, left),
                                              at(bottom, right)};
    const std::array<float, 4> weights = {(1.0F - fx) * (1.0F - fy), fx * (1.0F - fy),
                                          (1.0F - fx) * fy, fx * fy};
    Sample sample{0.0F, 0.0F};
    for (std::size_t i = 0; i < cells.size(); ++i) {
        sample.value += weights[i] * grid.values[cells[i]];
        if (m_hillShading)
            sample.shade += weights[i] * shades[cells[i]];
    }
    if (std::isnan(sample.value)) {
        // Next to a gap nothing is mixed, so that gaps keep their cells' edges.
        const std::size_t row = fy < 0.5F ? 0 : 2;
        const std::size_t column = fx < 0.5F ? 0 : 1;
        const std::size_t nearest = cells[row + column];
        sample = {grid.values[nearest], m_hillShading ? shades[nearest] : 0.0F};
    }
    return sample;
}

void GridLayer::paintInterpolated(QPainter *painter, const QRectF &target, const QRectF &seen,
                                  double ratio) const
{
    const QRect area = QRectF(seen.topLeft() * ratio, seen.size() * ratio).toAlignedRect();
    QImage picture(area.size(), QImage::Format_ARGB32_Premultiplied);
    const double columnsPerPixel = grid.columns / (target.width() * ratio);
    const double rowsPerPixel = grid.rows / (target.height() * ratio);
    for (int y = 0; y < area.height(); ++y) {
        auto *pixel = reinterpret_cast<QRgb *>(picture.scanLine(y));
        const double row = (area.top() + y + 0.5 - target.top() * ratio) * rowsPerPixel;
        for (int x = 0; x < area.width(); ++x) {
            const double column = (area.left() + x + 0.5 - target.left() * ratio) * columnsPerPixel;
            const bool inside =
                column >= 0.0 && column < grid.columns && row >= 0.0 && row < grid.rows;
            const Sample sample = interpolatedAt(column - 0.5, row - 0.5);
            if (!inside || std::isnan(sample.value)) {
                pixel[x] = qRgba(0, 0, 0, 0);
                continue;
            }
            const QRgb color = colorOf(sample.value);
            pixel[x] = m_hillShading ? shaded(color, sample.shade, levelShade) : color;
        }
    }
    picture.setDevicePixelRatio(ratio);
    painter->drawImage(QPointF(area.topLeft()) / ratio, picture);
}

void GridLayer::paint(QPainter *painter, const MapView &view) const
{
    const QRectF target = view.toScreen(extent());
    const QRectF seen = target.intersected(view.target());
    if (seen.isEmpty())
        return;
    const double ratio = pixelRatioOf(painter);
    const bool continuous = classificationMethod() == ClassificationMethod::Unclassed;
    painter->save();
    painter->setClipRect(view.target(), Qt::IntersectClip);
    if (continuous && target.width() * ratio >= grid.columns) {
        // Heights are mixed and not colours: a coast runs between the cells, not along them.
        paintInterpolated(painter, target, seen, ratio);
        painter->restore();
        return;
    }
    // Only the cells that are seen, whole: far in, the whole grid would be a picture of millions
    // of pixels.
    const double cellWidth = target.width() / grid.columns;
    const double cellHeight = target.height() / grid.rows;
    const int left = std::max(0, int(std::floor((seen.left() - target.left()) / cellWidth)) - 1);
    const int top = std::max(0, int(std::floor((seen.top() - target.top()) / cellHeight)) - 1);
    const int right =
        std::min(grid.columns, int(std::ceil((seen.right() - target.left()) / cellWidth)) + 1);
    const int bottom =
        std::min(grid.rows, int(std::ceil((seen.bottom() - target.top()) / cellHeight)) + 1);
    const QRectF part(target.left() + left * cellWidth, target.top() + top * cellHeight,
                      (right - left) * cellWidth, (bottom - top) * cellHeight);
    const QRect source(left, top, right - left, bottom - top);
    if (continuous) {
        const QSize pixels = (part.size() * ratio).toSize().expandedTo(QSize(1, 1));
        const QImage small =
            image.copy(source).scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawImage(part, small, QRectF(small.rect()));
    } else {
        // Mixed colours are none of the legend's, so classes keep hard edges.
        painter->setRenderHint(QPainter::SmoothPixmapTransform, false);
        painter->drawImage(part, image, QRectF(source));
    }
    painter->restore();
}

QString GridLayer::valueText(double value) const
{
    return unit.isEmpty() ? numberText(value)
                          : isolated(numberText(value) + QLatin1Char(' ') + unit);
}

Legend GridLayer::legend() const
{
    Legend legend;
    legend.title = title();
    if (std::isnan(range.first)) {
        legend.remark = translated("No cell has a value.");
        return legend;
    }
    const QString inUnit = unit.isEmpty() ? QString() : translated("Heights in %1").arg(unit);
    legend.caption = inUnit;
    if (classificationMethod() == ClassificationMethod::Unclassed) {
        // A strip from one number to the same number would have no place for it.
        if (range.first == range.second) {
            legend.classes.append({colorOf(range.first), numberText(range.first)});
            return legend;
        }
        legend.strip = colors;
        QVector<double> marks = tickValues(range.first, range.second, legendTicks);
        const QStringList texts = numberTexts(marks);
        for (int i = 0; i < marks.size(); ++i)
            legend.ticks.append({positionOf(marks.at(i)), texts.at(i)});
        return legend;
    }
    const QVector<double> bounds(breaks.bounds.begin(), breaks.bounds.end());
    const QStringList texts = numberTexts(bounds);
    for (int i = 0; i < breaks.count(); ++i) {
        legend.classes.append({colors.at(i), rangeText(texts.at(i), texts.at(i + 1))});
    }
    // Maps have the high ground at the top of their legends.
    std::reverse(legend.classes.begin(), legend.classes.end());
    return legend;
}

IdentifyResult GridLayer::identify(const QPointF &position) const
{
    const float value = grid.valueAt(position);
    if (std::isnan(value))
        return {};
    return {true, valueText(value), colorOf(value)};
}

} // namespace mapviewer
