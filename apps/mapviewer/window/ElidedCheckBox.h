#pragma once

#include <QCheckBox>

namespace mapviewer {

/// A check box that shows its text as it is, "&" included, and shortens it where there is too
/// little room, so that a long name makes nothing else wider. Its tool-tip is up to its owner.
class ElidedCheckBox : public QCheckBox
{
    Q_OBJECT
public:
    ElidedCheckBox(const QString &text, QWidget *parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString caption;
};

} // namespace mapviewer
