#include "apps/mapviewer/window/CardFrame.h"

#include <QPainter>

namespace mapviewer {

namespace {

constexpr double cornerRadius = 5.0;
constexpr int borderAlpha = 55;

} // namespace

CardFrame::CardFrame(QWidget *parent)
    : QWidget(parent)
{
}

void CardFrame::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor border = palette().color(QPalette::WindowText);
    border.setAlpha(borderAlpha);
    painter.setPen(border);
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius,
                            cornerRadius);
}

} // namespace mapviewer
