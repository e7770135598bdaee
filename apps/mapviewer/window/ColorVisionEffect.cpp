#include "apps/mapviewer/window/ColorVisionEffect.h"

#include <QPainter>
#include <QPixmap>

namespace mapviewer {

ColorVisionEffect::ColorVisionEffect(QObject *parent)
    : QGraphicsEffect(parent)
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
    QPoint offset;
    const QPixmap source = sourcePixmap(Qt::DeviceCoordinates, &offset, NoPad);
    if (source.isNull())
        return;
    painter->save();
    painter->setWorldTransform(QTransform());
    painter->drawImage(offset, simulated(source.toImage(), vision));
    painter->restore();
}

} // namespace mapviewer
