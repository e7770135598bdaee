#include "apps/mapviewer/window/ThemeStyle.h"

#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTextEdit>

#include <algorithm>
#include <cmath>

namespace mapviewer {

namespace {

constexpr double leastContrast = 3.2; // a little more than needed, for what is rounded
constexpr int mixingSteps = 32;
constexpr double cornerRadius = 2.0;

double linear(double component)
{
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

// Relative luminance and contrast ratio as WCAG 2.1 has them.
double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

QColor mixed(const QColor &from, const QColor &to, double share)
{
    const auto between = [share](double a, double b) { return a + (b - a) * share; };
    return QColor::fromRgbF(between(from.redF(), to.redF()), between(from.greenF(), to.greenF()),
                            between(from.blueF(), to.blueF()));
}

void drawEdge(const QStyleOption *option, QPainter *painter, double radius)
{
    const QPalette &palette = option->palette;
    const bool focused = option->state.testFlag(QStyle::State_HasFocus);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(focused
                        ? palette.color(QPalette::Highlight)
                        : edgeColor(palette.color(QPalette::Base), palette.color(QPalette::Window),
                                    palette.color(QPalette::Text)));
    painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter->restore();
}

bool isTextField(const QWidget *widget)
{
    return qobject_cast<const QTextEdit *>(widget) || qobject_cast<const QPlainTextEdit *>(widget);
}

} // namespace

QColor edgeColor(const QColor &base, const QColor &window, const QColor &text)
{
    for (int i = 1; i < mixingSteps; ++i) {
        QColor edge = mixed(base, text, double(i) / mixingSteps);
        if (contrast(edge, base) >= leastContrast && contrast(edge, window) >= leastContrast)
            return edge;
    }
    return text;
}

ThemeStyle::ThemeStyle()
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{
}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                               QPainter *painter, const QWidget *widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    switch (element) {
    case PE_FrameLineEdit:
        drawEdge(option, painter, cornerRadius);
        break;
    case PE_IndicatorCheckBox:
        drawEdge(option, painter, 0.0);
        break;
    case PE_Frame:
        if (isTextField(widget))
            drawEdge(option, painter, 0.0);
        break;
    default:
        break;
    }
}

void ThemeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                    QPainter *painter, const QWidget *widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    const auto *box = qstyleoption_cast<const QStyleOptionSpinBox *>(option);
    if (control == CC_SpinBox && box && box->frame)
        drawEdge(option, painter, cornerRadius);
}

} // namespace mapviewer
