#pragma once

#include <QWidget>

namespace mapviewer {

/// A sheet with rounded corners on which other widgets lie; its colours are the palette's.
class CardFrame : public QWidget
{
    Q_OBJECT
public:
    explicit CardFrame(QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace mapviewer
