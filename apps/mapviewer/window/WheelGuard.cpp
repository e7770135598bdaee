#include "apps/mapviewer/window/WheelGuard.h"

#include <QEvent>
#include <QWidget>

namespace mapviewer {

WheelGuard::WheelGuard(QWidget *guarded)
    : QObject(guarded)
    , box(guarded)
{
    // By the wheel alone a box does not get the focus either.
    box->setFocusPolicy(Qt::StrongFocus);
    box->installEventFilter(this);
}

bool WheelGuard::eventFilter(QObject *, QEvent *event)
{
    if (event->type() != QEvent::Wheel || box->hasFocus())
        return false;
    event->ignore();
    return true;
}

} // namespace mapviewer
