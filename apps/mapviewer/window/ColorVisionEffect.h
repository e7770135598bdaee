#pragma once

#include "apps/mapviewer/map/ColorVision.h"

#include <QGraphicsEffect>

namespace mapviewer {

/// Shows a widget, with all that lies on it, as another eye sees it.
class ColorVisionEffect : public QGraphicsEffect
{
    Q_OBJECT
public:
    /// Belongs to the widget; QWidget::setGraphicsEffect() puts it to use.
    explicit ColorVisionEffect(QWidget *seenWidget);
    void setVision(ColorVision vision);

protected:
    void draw(QPainter *painter) override;

private:
    QWidget *widget;
    ColorVision vision = ColorVision::Normal;
};

} // namespace mapviewer
