#pragma once

#include <QPoint>
#include <QRect>

class QWidget;

namespace vtcontrolcolorscheme {

/// `wanted` where it lies within `available`; otherwise moved the shortest way that makes it fit,
/// and made smaller only where no place is large enough.
QRect placeWithin(const QRect &wanted, const QRect &available);

/// The area for popups of the screen that shows the widget: where its middle lies, or else its
/// window. In global coordinates.
QRect availableArea(const QWidget *widget);

/// Whether the pointer lies on the widget, and still where it was at `noted`: something else has
/// moved the widget there, and nobody points at it.
bool pointerRestsOn(const QWidget *widget, const QPoint &noted);

} // namespace vtcontrolcolorscheme
