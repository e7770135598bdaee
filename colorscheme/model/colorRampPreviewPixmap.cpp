#include "colorscheme/model/colorRampPreviewPixmap.h"

#include "colorscheme/model/colorConversion.h"
#include "vomap/VOColorRamp.h"
#include "vtgiscore/VTSymbolUtils.h"

#include <QPainter>

namespace {

/// Calls paint(left, width, colour index) for each band from left to right.
template <typename Paint>
void forEachBand(unsigned int level, int width, const Paint &paint)
{
    if (level <= static_cast<unsigned int>(width)) {
        const int bands = static_cast<int>(level);
        const int quotient = width / bands;
        const int remainder = width % bands;
        for (int i = 0, left = 0; i < bands; ++i) {
            const int bandWidth = i < remainder ? quotient + 1 : quotient;
            paint(left, bandWidth, static_cast<unsigned int>(i));
            left += bandWidth;
        }
        return;
    }
    // More colours than pixels. A working image of one column a colour, shrunk by the toolkit
    // without smoothing, would show in each pixel the column just left of the pixel's centre, found
    // in steps of 1/65536 column that are made and rounded as here. Those columns are painted at
    // once, so that the costs depend on the strip and not on the number of colours.
    const double scale = static_cast<double>(width) / level;
    const auto step = static_cast<qint64>(65536 / scale);
    for (int x = 0; x < width; ++x)
        paint(x, 1, static_cast<unsigned int>(((step + 1) / 2 - 1 + x * step) >> 16));
}

} // namespace

QPixmap colorRampPreviewPixmap(VTObjects::VOColorRamp *ramp, QSize size)
{
    const unsigned int level = ramp ? ramp->getLevel() : 0;
    if (level == 0 || size.isEmpty())
        return QPixmap();
    QPixmap pixmap(size);
    // A strip that is shrunk by the toolkit comes without an alpha channel, and so does this one.
    if (level <= static_cast<unsigned int>(size.width()))
        pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    VTSymbolUtils::drawStippledBackground(&painter, QRect(QPoint(0, 0), size));
    forEachBand(level, size.width(), [&](int left, int width, unsigned int index) {
        const QColor color = toQColor(ramp->getColor(index));
        painter.setPen(Qt::black);
        painter.fillRect(left, 0, width, size.height(), color);
    });
    return pixmap;
}
