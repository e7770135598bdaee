#pragma once

#include "apps/mapviewer/layers/MapView.h"
#include "apps/mapviewer/map/MapRenderer.h"

#include <QPixmap>
#include <QWidget>

namespace mapviewer {

/// The map: drag to pan, turn the wheel or double-click to zoom, point to read, click an inset to
/// go there. Keys: arrows, plus, minus, and Home for the whole map.
class MapWidget : public QWidget
{
    Q_OBJECT
public:
    /// `layers` outlives this widget and is only read; call refresh() when it has changed.
    MapWidget(const MapLayers &layers, QWidget *parent);

    const MapView &view() const { return m_view; }
    const MapStyle &mapStyle() const { return style; }
    void setMapStyle(const MapStyle &mapStyle);

    /// Draws anew: layers were added, removed, hidden or recoloured.
    void refresh();
    void showExtent(const QRectF &extent);
    /// All visible layers that share the coordinates of what is shown now; else those of the
    /// uppermost layer.
    void showAll();
    void zoomBy(double factor);

Q_SIGNALS:
    /// The pointer moved. `layer` is the one that has something there, or null.
    void pointed(const QPointF &position, const mapviewer::MapLayer *layer,
                 const mapviewer::IdentifyResult &result);
    /// Another part of the map is shown, perhaps in other coordinates.
    void viewChanged();
    /// The pointer left the map.
    void pointerLeft();
    /// The user clicked that layer's inset.
    void insetClicked(const mapviewer::MapLayer *layer);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    const MapLayer *insetAt(const QPointF &pixel) const;
    void report(const QPointF &pixel);

    const MapLayers &layers;
    MapStyle style;
    MapRenderer renderer;
    MapView m_view;
    QRectF wanted;   // the extent that was asked for last; empty once the user has moved away
    QPixmap picture; // null when it must be drawn anew
    QPointF dragFrom;
    bool dragging = false;
    bool dragged = false; // far enough to be no click
};

} // namespace mapviewer
