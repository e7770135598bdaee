#pragma once

#include <QPointF>
#include <QRectF>

namespace mapviewer {

/// Which part of the map is seen, and how large: the transformation between map units (y
/// northwards) and pixels (y downwards) of a target rectangle.
///
/// Longitudes and latitudes are drawn as an equidistant cylindrical projection. Its standard
/// parallel is 36 degrees while the view spans most of the globe, a fair shape for the lands where
/// most people live, and moves to the view's centre as it closes in: a valley has its true shape.
class MapView
{
public:
    MapView() = default;
    /// Shows all of `extent` in `target`, centred, with `margin` pixels around it.
    static MapView fitted(const QRectF &extent, const QRectF &target, bool geographic,
                          double margin);

    const QRectF &target() const { return m_target; }
    bool geographic() const { return m_geographic; }
    QPointF center() const { return m_center; }
    /// Pixels for a map unit northwards.
    double scale() const { return m_scale; }
    /// Pixels for a map unit eastwards.
    double scaleX() const { return m_scale * xFactor; }

    QPointF toScreen(const QPointF &position) const;
    QPointF toMap(const QPointF &pixel) const;
    QRectF toScreen(const QRectF &extent) const;
    /// The part of the map that the target shows.
    QRectF visible() const;

    /// Enlarges by `factor`; the map under `pixel` stays there.
    void zoom(double factor, const QPointF &pixel);
    /// Moves the map along with a drag by so many pixels.
    void pan(const QPointF &pixels);
    /// Keeps centre and scale and fills another rectangle.
    void setTarget(const QRectF &target);

private:
    void setParallel();

    QRectF m_target;
    QPointF m_center;
    double m_scale = 1.0;
    double xFactor = 1.0;
    bool m_geographic = false;
};

} // namespace mapviewer
