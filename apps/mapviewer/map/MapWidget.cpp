#include "apps/mapviewer/map/MapWidget.h"

#include "apps/mapviewer/layers/AsciiGrid.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>

namespace mapviewer {

namespace {

constexpr double fitMargin = 16.0;
constexpr double zoomStep = 1.25;
constexpr double wheelNotch = 120.0; // eighths of a degree, as the toolkit counts them
constexpr double keyPan = 60.0;      // pixels

} // namespace

MapWidget::MapWidget(const MapLayers &layers, QWidget *parent)
    : QWidget(parent)
    , layers(layers)
    , style(MapStyle::light(font()))
    , renderer(layers, style)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setMinimumSize(320, 160);
    setAccessibleName(tr("Map"));
}

void MapWidget::setMapStyle(const MapStyle &mapStyle)
{
    style = mapStyle;
    refresh();
}

void MapWidget::refresh()
{
    picture = QPixmap();
    update();
}

void MapWidget::showExtent(const QRectF &extent)
{
    wanted = extent;
    m_view = MapView::fitted(extent, rect(), isGeographic(extent), fitMargin);
    refresh();
    Q_EMIT viewChanged();
}

void MapWidget::showAll()
{
    if (!layers.empty())
        showExtent(renderer.extent(m_view));
}

void MapWidget::zoomBy(double factor)
{
    wanted = QRectF();
    m_view.zoom(factor, m_view.target().center());
    refresh();
}

void MapWidget::paintEvent(QPaintEvent *)
{
    const double ratio = devicePixelRatioF();
    if (picture.isNull() || picture.devicePixelRatio() != ratio) {
        picture = QPixmap((QSizeF(size()) * ratio).toSize());
        picture.setDevicePixelRatio(ratio);
        QPainter painter(&picture);
        renderer.paint(&painter, m_view);
    }
    QPainter(this).drawPixmap(0, 0, picture);
}

void MapWidget::resizeEvent(QResizeEvent *)
{
    // Whoever asked for an area and has not moved since still wants to see it.
    if (!wanted.isNull())
        showExtent(wanted);
    else
        m_view.setTarget(rect());
    refresh();
}

const MapLayer *MapWidget::insetAt(const QPointF &pixel) const
{
    for (const MapInset &inset : renderer.insets(m_view)) {
        if (inset.frame.contains(pixel))
            return inset.layer;
    }
    return nullptr;
}

void MapWidget::report(const QPointF &pixel)
{
    const MapLayer *layer = nullptr;
    const IdentifyResult result = renderer.identify(m_view, pixel, &layer);
    Q_EMIT pointed(renderer.positionAt(m_view, pixel), layer, result);
}

void MapWidget::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    dragFrom = event->localPos();
    dragging = true;
    dragged = false;
}

void MapWidget::mouseMoveEvent(QMouseEvent *event)
{
    if (dragging) {
        const QPointF moved = event->localPos() - dragFrom;
        if (!dragged && moved.manhattanLength() < QApplication::startDragDistance())
            return;
        dragged = true;
        setCursor(Qt::ClosedHandCursor);
        wanted = QRectF();
        m_view.pan(moved);
        dragFrom = event->localPos();
        refresh();
        return;
    }
    setCursor(insetAt(event->localPos()) ? Qt::PointingHandCursor : Qt::CrossCursor);
    report(event->localPos());
}

void MapWidget::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !dragging)
        return;
    dragging = false;
    setCursor(Qt::CrossCursor);
    if (dragged)
        return;
    if (const MapLayer *layer = insetAt(event->localPos()))
        Q_EMIT insetClicked(layer);
}

void MapWidget::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || insetAt(event->localPos()))
        return;
    wanted = QRectF();
    m_view.zoom(zoomStep * zoomStep, event->localPos());
    refresh();
}

void MapWidget::wheelEvent(QWheelEvent *event)
{
    const double notches = event->angleDelta().y() / wheelNotch;
    if (notches == 0.0)
        return;
    wanted = QRectF();
    m_view.zoom(std::pow(zoomStep, notches), event->position());
    refresh();
    report(event->position());
    event->accept();
}

void MapWidget::keyPressEvent(QKeyEvent *event)
{
    QPointF moved;
    switch (event->key()) {
    case Qt::Key_Left:
        moved = QPointF(keyPan, 0.0);
        break;
    case Qt::Key_Right:
        moved = QPointF(-keyPan, 0.0);
        break;
    case Qt::Key_Up:
        moved = QPointF(0.0, keyPan);
        break;
    case Qt::Key_Down:
        moved = QPointF(0.0, -keyPan);
        break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return zoomBy(zoomStep);
    case Qt::Key_Minus:
        return zoomBy(1.0 / zoomStep);
    case Qt::Key_Home:
        return showAll();
    default:
        return QWidget::keyPressEvent(event);
    }
    wanted = QRectF();
    m_view.pan(moved);
    refresh();
}

void MapWidget::leaveEvent(QEvent *)
{
    Q_EMIT pointerLeft();
}

} // namespace mapviewer
