#pragma once

#include <QPainter>
#include <QStyle>
#include <QWidget>

namespace vtcontrolcolorscheme {

/// Draws a text on one of the picker's own grounds, which are light in every theme and under every
/// style sheet. So it is black, and neither a palette nor a style sheet has a say in it.
inline void drawDarkText(QPainter &painter, const QWidget *widget, const QRect &place,
                         Qt::Alignment alignment, const QString &text)
{
    const Qt::Alignment visual = QStyle::visualAlignment(widget->layoutDirection(), alignment);
    painter.setPen(Qt::black);
    painter.drawText(place, static_cast<int>(visual) | Qt::TextSingleLine, text);
}

} // namespace vtcontrolcolorscheme
