#include "apps/mapviewer/window/ColorVisionWindows.h"

#include "apps/mapviewer/window/ColorVisionEffect.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace mapviewer {

ColorVisionWindows::ColorVisionWindows(QObject *parent)
    : QObject(parent)
{
}

ColorVisionWindows::~ColorVisionWindows()
{
    setVision(ColorVision::Normal);
}

void ColorVisionWindows::setVision(ColorVision vision)
{
    // Normal sight costs nothing: no window is then looked at.
    if (m_vision == ColorVision::Normal && vision != ColorVision::Normal)
        qApp->installEventFilter(this);
    if (vision == ColorVision::Normal)
        qApp->removeEventFilter(this);
    m_vision = vision;
    for (QWidget *window : QApplication::topLevelWidgets())
        applyTo(window);
}

bool ColorVisionWindows::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show && watched->isWidgetType()) {
        auto *widget = static_cast<QWidget *>(watched);
        if (widget->isWindow())
            applyTo(widget);
    }
    return false;
}

void ColorVisionWindows::applyTo(QWidget *window) const
{
    auto *effect = qobject_cast<ColorVisionEffect *>(window->graphicsEffect());
    if (!effect) {
        // Whoever draws in a way of its own already goes on with that.
        if (m_vision == ColorVision::Normal || window->graphicsEffect())
            return;
        effect = new ColorVisionEffect(window);
        window->setGraphicsEffect(effect);
    }
    effect->setVision(m_vision);
}

} // namespace mapviewer
