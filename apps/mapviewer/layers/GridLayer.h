#pragma once

#include "apps/mapviewer/layers/AsciiGrid.h"
#include "apps/mapviewer/layers/Classification.h"
#include "apps/mapviewer/layers/MapLayer.h"

#include <QImage>

namespace mapviewer {

/// A grid of heights, or of any other number.
class GridLayer final : public MapLayer
{
public:
    /// `unit` follows each value ("m") and may be empty.
    GridLayer(const QString &title, AsciiGrid grid, const QString &unit);

    QVector<ClassificationMethod> availableMethods() const override;
    QRectF extent() const override { return grid.extent(); }
    void paint(QPainter *painter, const MapView &view) const override;
    Legend legend() const override;
    IdentifyResult identify(const QPointF &position) const override;

    bool hillShading() const { return m_hillShading; }
    void setHillShading(bool on);

    /// Only a grid with values on both sides of zero can have the coast in the middle.
    bool crossesZero() const { return range.first < 0.0F && range.second > 0.0F; }
    /// When on, a continuous ramp has its middle at zero: the first half of its colours is for what
    /// lies below, the second half for what lies above, and the shore between them is sharp. A
    /// middle colour belongs to both halves.
    bool zeroInMiddle() const { return m_zeroInMiddle; }
    void setZeroInMiddle(bool on);

    /// One pixel a cell, shaded; transparent where there is no value.
    QImage cells() const { return image; }

protected:
    void recolor() override;

private:
    struct Sample
    {
        float value; // NaN where there is none
        float shade; // 0 without shading
    };
    Sample interpolatedAt(double column, double row) const;
    void paintInterpolated(QPainter *painter, const QRectF &target, const QRectF &seen,
                           double ratio) const;
    double positionOf(double value) const;
    QRgb colorOf(float value) const;
    QString valueText(double value) const;

    AsciiGrid grid;
    QString unit;
    std::pair<float, float> range;
    std::vector<float> shades; // empty until shading is first wanted
    float levelShade = 1.0F;   // of flat ground
    ClassBreaks breaks;
    QVector<QRgb> colors;
    QImage image;
    bool m_hillShading = false;
    bool m_zeroInMiddle = false;
};

} // namespace mapviewer
