#pragma once

#include "apps/mapviewer/layers/Legend.h"

#include <QWidget>

namespace mapviewer {

/// A legend on the panel; as high as its content at its width.
class LegendWidget : public QWidget
{
    Q_OBJECT
public:
    explicit LegendWidget(QWidget *parent);

    void setLegend(const Legend &legend);
    const Legend &legend() const { return m_legend; }

    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    LegendStyle legendStyle() const;

    Legend m_legend;
};

} // namespace mapviewer
