#include "apps/mapviewer/window/LegendWidget.h"

#include <QPainter>

#include <cmath>

namespace mapviewer {

namespace {

constexpr int usualWidth = 240;

} // namespace

LegendWidget::LegendWidget(QWidget *parent)
    : QWidget(parent)
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void LegendWidget::setLegend(const Legend &legend)
{
    m_legend = legend;
    QStringList lines;
    for (const Legend::Class &entry : legend.classes)
        lines.append(entry.text);
    setAccessibleDescription(lines.join(QStringLiteral("; ")));
    updateGeometry();
    update();
}

LegendStyle LegendWidget::legendStyle() const
{
    QColor frame = palette().color(QPalette::WindowText);
    frame.setAlpha(110);
    // The card that holds the legend bears the title already.
    return {font(), palette().color(QPalette::WindowText), frame, false, layoutDirection()};
}

int LegendWidget::heightForWidth(int width) const
{
    return int(std::ceil(drawLegend(nullptr, {}, width, m_legend, legendStyle())));
}

QSize LegendWidget::sizeHint() const
{
    return QSize(usualWidth, heightForWidth(usualWidth));
}

void LegendWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawLegend(&painter, {}, width(), m_legend, legendStyle());
}

} // namespace mapviewer
