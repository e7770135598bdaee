#pragma once

#include <QPainterPath>
#include <QRectF>
#include <QStringList>
#include <QVariantMap>

#include <vector>

namespace mapviewer {

/// One feature: an area with its attributes.
struct PolygonFeature
{
    QPainterPath path;      ///< all rings, closed, in map units with y northwards; odd-even filled
    QRectF bounds;          ///< of the path
    QVariantMap attributes; ///< text, numbers (double) and booleans; what was null is invalid
};

/// The features of one file, in the file's order.
struct PolygonSet
{
    std::vector<PolygonFeature> features;

    QRectF extent() const;
    /// Every attribute that any feature has, sorted by name.
    QStringList fieldNames() const;
    /// True when at least one feature has a number there and none has anything but a number.
    bool isNumeric(const QString &field) const;
    /// The feature that covers a point, the last drawn first; -1 when none does.
    int featureAt(const QPointF &position) const;
};

} // namespace mapviewer
