#include "vtgiscore/VTSymbolUtils.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int cellSize = 5;

} // namespace

void VTSymbolUtils::drawStippledBackground(QPainter *painter, QRect rect)
{
    if (!painter || rect.isEmpty())
        return;
    painter->fillRect(rect, QColor(255, 255, 255));
    const QColor gray(229, 229, 229);
    for (int top = 0; top < rect.height(); top += cellSize) {
        for (int left = (top / cellSize) % 2 == 0 ? cellSize : 0; left < rect.width();
             left += 2 * cellSize) {
            painter->fillRect(rect.left() + left, rect.top() + top,
                              std::min(cellSize, rect.width() - left),
                              std::min(cellSize, rect.height() - top), gray);
        }
    }
}

QPixmap VTSymbolUtils::createColorPixmap(QSize size, QColor color)
{
    if (size.isEmpty())
        return QPixmap();
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawStippledBackground(&painter, pixmap.rect());
    painter.fillRect(pixmap.rect(), color);
    painter.setPen(QColor(128, 128, 128));
    painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
    return pixmap;
}
