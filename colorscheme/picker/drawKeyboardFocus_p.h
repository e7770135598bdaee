#pragma once

#include <QPainter>
#include <QWidget>

namespace vtcontrolcolorscheme {

/// Draws a frame along the widget's border if the keyboard has brought the focus there: a button
/// whose border comes from a style sheet does not show its focus by itself.
inline void drawKeyboardFocus(QPainter &painter, const QWidget *widget)
{
    if (!widget->hasFocus() || !widget->window()->testAttribute(Qt::WA_KeyboardFocusChange))
        return;
    painter.setPen(widget->palette().color(QPalette::Highlight));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(widget->rect().adjusted(0, 0, -1, -1));
    painter.drawRect(widget->rect().adjusted(1, 1, -2, -2));
}

} // namespace vtcontrolcolorscheme
