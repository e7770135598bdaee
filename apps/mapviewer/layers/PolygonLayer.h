#pragma once

#include "apps/mapviewer/layers/Classification.h"
#include "apps/mapviewer/layers/MapLayer.h"
#include "apps/mapviewer/layers/PolygonSet.h"

namespace mapviewer {

/// Areas coloured by one of their attributes.
class PolygonLayer final : public MapLayer
{
public:
    PolygonLayer(const QString &title, PolygonSet polygons);

    /// Unique values for any attribute; quantiles and equal intervals for numbers.
    QVector<ClassificationMethod> availableMethods() const override;
    QRectF extent() const override { return bounds; }
    void paint(QPainter *painter, const MapView &view) const override;
    Legend legend() const override;
    IdentifyResult identify(const QPointF &position) const override;

    QStringList fieldNames() const { return polygons.fieldNames(); }
    QString field() const { return m_field; }
    /// Ignored when no feature has it. A method that does not suit it becomes unique values.
    void setField(const QString &name);
    /// The attribute that names a feature in the read-out: "Name" in any case, else none.
    QString nameField() const { return m_nameField; }

    /// The line between areas.
    void setOutline(const QColor &color) { outline = color; }
    /// The fill of a feature, by its index.
    QRgb colorOf(int feature) const;

protected:
    void recolor() override;

private:
    /// Says that values share a color, or that there is none; empty where each has one of its own.
    QString repetitionText() const;

    PolygonSet polygons;
    QRectF bounds;
    QString m_field;
    QString m_nameField;
    std::vector<QVariant> column;
    std::vector<double> numbers; // of the column; NaN where there is none
    ClassBreaks breaks;
    UniqueValues unique;
    QVector<QRgb> colors;
    QColor outline;
};

} // namespace mapviewer
