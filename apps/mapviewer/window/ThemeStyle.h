#pragma once

#include <QProxyStyle>

namespace mapviewer {

/// The color of an edge that stands out from `base` and from `window`, at a contrast of 3 to 1 or
/// more: as much of `text` mixed into the base as that takes.
QColor edgeColor(const QColor &base, const QColor &window, const QColor &text);

/// The style that takes every color from the palette, as both themes need. Its own edges are
/// darker than the window, which leaves fields without any on a dark one; here fields and check
/// boxes have edges that can be seen on any palette.
class ThemeStyle : public QProxyStyle
{
    Q_OBJECT
public:
    ThemeStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget) const override;
};

} // namespace mapviewer
