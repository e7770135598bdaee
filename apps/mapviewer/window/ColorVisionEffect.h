#pragma once

#include "apps/mapviewer/map/ColorVision.h"

#include <QGraphicsEffect>

namespace mapviewer {

/// Shows a widget, with all that lies on it, as another eye sees it.
class ColorVisionEffect : public QGraphicsEffect
{
    Q_OBJECT
public:
    explicit ColorVisionEffect(QObject *parent);
    void setVision(ColorVision vision);

protected:
    void draw(QPainter *painter) override;

private:
    ColorVision vision = ColorVision::Normal;
};

} // namespace mapviewer
