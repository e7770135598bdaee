#include "vtcontrolbase/ColorSwatchGrid_p.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace vtcontrolbase {

namespace {

constexpr int cellSize = 22; // pixels, the frame of the cursor included
constexpr int gap = 2;       // between a cell's edge and its colour
constexpr int margin = 4;    // around all cells

/// Black or white, whichever stands out against the colour. The weights are those of luma in
/// Rec. ITU-R BT.601.
QColor contrasting(const QColor &color)
{
    const int luma = (299 * color.red() + 587 * color.green() + 114 * color.blue()) / 1000;
    return luma > 140 ? Qt::black : Qt::white;
}

} // namespace

ColorSwatchGrid::ColorSwatchGrid(int columns, QWidget *parent)
    : QWidget(parent)
    , columns(columns)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    // A click between the cells must not reach the menu below, which would close.
    setAttribute(Qt::WA_NoMousePropagation);
}

void ColorSwatchGrid::setColors(const QVector<QColor> &newColors)
{
    colors = newColors;
    setMarkedColor(marked);
    updateGeometry();
}

void ColorSwatchGrid::setMarkedColor(const QColor &color)
{
    marked = color;
    pressed = -1;
    int first = 0;
    while (first < colors.size() && !isMarked(first))
        ++first;
    m_cursor = -1;
    setCursorCell(first < colors.size() ? first : 0);
    update();
}

QRect ColorSwatchGrid::cellRect(int index) const
{
    if (index < 0 || index >= colors.size())
        return QRect();
    return QRect(margin + index % columns * cellSize, margin + index / columns * cellSize, cellSize,
                 cellSize);
}

bool ColorSwatchGrid::isMarked(int index) const
{
    return index >= 0 && index < colors.size() && marked.isValid() &&
           colors.at(index).rgb() == marked.rgb();
}

QSize ColorSwatchGrid::sizeHint() const
{
    const int rows = (colors.size() + columns - 1) / columns;
    return QSize(columns * cellSize + 2 * margin, rows * cellSize + 2 * margin);
}

QSize ColorSwatchGrid::minimumSizeHint() const
{
    return sizeHint();
}

bool ColorSwatchGrid::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const int cell = cellAt(help->pos());
        if (cell >= 0)
            QToolTip::showText(help->globalPos(), colors.at(cell).name(), this, cellRect(cell));
        else
            QToolTip::hideText();
        return true;
    }
    return QWidget::event(event);
}

void ColorSwatchGrid::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    update();
}

void ColorSwatchGrid::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    update();
}

void ColorSwatchGrid::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (m_cursor >= 0)
            Q_EMIT chosen(colors.at(m_cursor));
        return;
    default:
        if (!moveCursor(event->key()))
            QWidget::keyPressEvent(event); // ignored, so the parent gets it
    }
}

bool ColorSwatchGrid::moveCursor(int key)
{
    const int last = colors.size() - 1;
    const int rowStart = m_cursor - m_cursor % columns;
    int target = -1;
    switch (key) {
    case Qt::Key_Left:
        target = std::max(m_cursor - 1, 0);
        break;
    case Qt::Key_Right:
        target = std::min(m_cursor + 1, last);
        break;
    case Qt::Key_Up:
        target = m_cursor - columns;
        break;
    case Qt::Key_Down:
        target = rowStart + columns > last ? -1 : std::min(m_cursor + columns, last);
        break;
    case Qt::Key_Home:
        target = rowStart;
        break;
    case Qt::Key_End:
        target = std::min(rowStart + columns - 1, last);
        break;
    default:
        break;
    }
    if (target < 0)
        return false;
    setCursorCell(target);
    return true;
}

void ColorSwatchGrid::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    update();
}

void ColorSwatchGrid::mouseMoveEvent(QMouseEvent *event)
{
    const int cell = cellAt(event->pos());
    if (cell >= 0)
        setCursorCell(cell);
}

void ColorSwatchGrid::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    pressed = cellAt(event->pos());
    if (pressed >= 0)
        setCursorCell(pressed);
}

void ColorSwatchGrid::mouseReleaseEvent(QMouseEvent *event)
{
    // The release of the click that opened the menu comes without a press and chooses nothing.
    const int cell = cellAt(event->pos());
    if (event->button() == Qt::LeftButton && cell >= 0 && cell == pressed)
        Q_EMIT chosen(colors.at(cell));
    pressed = -1;
}

void ColorSwatchGrid::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    for (int i = 0; i < colors.size(); ++i) {
        const QRect swatch = cellRect(i).adjusted(gap, gap, -gap, -gap);
        painter.fillRect(swatch, QColor(128, 128, 128));
        painter.fillRect(swatch.adjusted(1, 1, -1, -1), colors.at(i));
        if (isMarked(i)) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(contrasting(colors.at(i)), 2));
            painter.drawEllipse(QRectF(swatch).center(), 4, 4);
            painter.setRenderHint(QPainter::Antialiasing, false);
        }
    }
    if (m_cursor >= 0 && (hasFocus() || underMouse())) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(cellRect(m_cursor).adjusted(1, 1, -1, -1));
    }
}

int ColorSwatchGrid::cellAt(const QPoint &position) const
{
    const QPoint inside = position - QPoint(margin, margin);
    if (inside.x() < 0 || inside.y() < 0 || inside.x() >= columns * cellSize)
        return -1;
    const int index = inside.y() / cellSize * columns + inside.x() / cellSize;
    return index < colors.size() ? index : -1;
}

void ColorSwatchGrid::setCursorCell(int index)
{
    if (index >= colors.size())
        index = -1;
    if (m_cursor == index)
        return;
    m_cursor = index;
    setAccessibleDescription(index >= 0 ? colors.at(index).name() : QString());
    update();
}

} // namespace vtcontrolbase
