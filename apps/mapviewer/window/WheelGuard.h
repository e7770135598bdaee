#pragma once

#include <QObject>

class QWidget;

namespace mapviewer {

/// Leaves the wheel over a box to what scrolls behind it, as long as the box has not the focus:
/// whoever scrolls a panel does not mean the box that comes by under the pointer.
class WheelGuard : public QObject
{
    Q_OBJECT
public:
    /// Lives as long as `box`.
    explicit WheelGuard(QWidget *box);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *box;
};

} // namespace mapviewer
