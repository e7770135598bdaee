#include "colorscheme/model/colorRampPreviewPixmap.h"

#include "colorscheme/model/colorConversion.h"
#include "vomap/VOColorRamp.h"
#include "vtgiscore/VTSymbolUtils.h"

#include <QPainter>

namespace {

/// Calls paint(left, width, colour index) for each band from left to right.
template <typename Paint>
void forEachBand(int level, int width, const Paint &paint)
{
    if (level <= width) {
        const int quotient = width / level;
        const int remainder = width % level;
        for (int i = 0, left = 0; i < level; ++i) {
            const int bandWidth = i < remainder ? quotient + 1 : quotient;
            paint(left, bandWidth, i);
            left += bandWidth;
        }
        return;
    }
    // More colours than pixels. A working image of one column a colour, shrunk without smoothing,
    // would show in each pixel the column just left of the pixel's centre, found in steps of
    // 1/65536 column. Those columns are painted at once, so that the costs depend on the strip and
    // not on the number of colours.
    const qint64 step = 65536 * qint64(level) / width;
    for (int x = 0; x < width; ++x)
        paint(x, 1, static_cast<int>((step / 2 - 1 + x * step) >> 16));
}

} // namespace

QPixmap colorRampPreviewPixmap(VTObjects::VOColorRamp *ramp, QSize size)
{
    if (!ramp || size.isEmpty())
        return QPixmap();
    const int level = static_cast<int>(ramp->getLevel());
    if (level <= 0)
        return QPixmap();
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    VTSymbolUtils::drawStippledBackground(&painter, QRect(QPoint(0, 0), size));
    forEachBand(level, size.width(), [&](int left, int width, int index) {
        const QColor color = toQColor(ramp->getColor(static_cast<unsigned int>(index)));
        painter.setPen(Qt::black);
        painter.fillRect(left, 0, width, size.height(), color);
    });
    return pixmap;
}
