#pragma once

#include "apps/mapviewer/map/ColorVision.h"

#include <QObject>

class QWidget;

namespace mapviewer {

/// Shows every window of the program as another eye sees it: menus, drop-downs, dialogs and message
/// boxes that open later too.
class ColorVisionWindows : public QObject
{
    Q_OBJECT
public:
    explicit ColorVisionWindows(QObject *parent);
    /// All windows are themselves again.
    ~ColorVisionWindows() override;

    ColorVision vision() const { return m_vision; }
    void setVision(ColorVision vision);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void applyTo(QWidget *window) const;

    ColorVision m_vision = ColorVision::Normal;
};

} // namespace mapviewer
