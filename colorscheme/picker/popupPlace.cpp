#include "colorscheme/picker/popupPlace_p.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace vtcontrolcolorscheme {

QRect placeWithin(const QRect &wanted, const QRect &available)
{
    QRect place(wanted.topLeft(), wanted.size().boundedTo(available.size()));
    place.moveLeft(qBound(available.left(), place.left(), available.right() - place.width() + 1));
    place.moveTop(qBound(available.top(), place.top(), available.bottom() - place.height() + 1));
    return place;
}

QRect availableArea(const QWidget *widget)
{
    const QScreen *screen = QGuiApplication::screenAt(widget->mapToGlobal(widget->rect().center()));
    if (!screen)
        screen = widget->screen();
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    return screen->availableGeometry();
}

bool pointerRestsOn(const QWidget *widget, const QPoint &noted)
{
    return QCursor::pos() == noted && widget->rect().contains(widget->mapFromGlobal(noted));
}

} // namespace vtcontrolcolorscheme
