#include "apps/mapviewer/window/ColorVisionEffect.h"

#include <QImage>
#include <QPainter>
#include <QWidget>

namespace mapviewer {

ColorVisionEffect::ColorVisionEffect(QWidget *seenWidget)
    : QGraphicsEffect(seenWidget)
    , widget(seenWidget)
{
    setEnabled(false);
}

void ColorVisionEffect::setVision(ColorVision seenWith)
{
    vision = seenWith;
    // Normal sight costs nothing: the widget then draws itself.
    setEnabled(vision != ColorVision::Normal);
    update();
}

void ColorVisionEffect::draw(QPainter *painter)
{
    // The effect's own source does without the background of a window: letters would be drawn over
    // themselves again and again, and a new window would be black.
    const double ratio = painter->device()->devicePixelRatioF();
    QImage seen(widget->size() * ratio, QImage::Format_ARGB32_Premultiplied);
    if (seen.isNull())
        return;
    seen.setDevicePixelRatio(ratio);
    seen.fill(Qt::transparent);
    widget->render(&seen, QPoint(), QRegion(),
                   QWidget::DrawWindowBackground | QWidget::DrawChildren);
    painter->drawImage(QPoint(), simulated(seen, vision));
}

} // namespace mapviewer
