#pragma once

#include "vtgiscore/vtgiscore_export.h"

#include <QColor>
#include <QPixmap>
#include <QRect>
#include <QSize>

class QPainter;

/// Small drawings that stand for a symbol. Sizes are in pixels.
class VTGISCORE_EXPORT VTSymbolUtils
{
public:
    VTSymbolUtils() = delete;

    /// Fills the rectangle with the checker that stands for transparency: cells of 5 x 5 pixels,
    /// white and light grey, starting with white at the rectangle's top left corner. The painter
    /// is left as it was; nothing outside the rectangle is touched.
    static void drawStippledBackground(QPainter *painter, QRect rect);

    /// A swatch: the colour over the checker, inside a grey border of one pixel. An opaque colour
    /// is exact inside the border. A null pixmap for an empty size.
    static QPixmap createColorPixmap(QSize size, QColor color);
};
