#include "colorscheme/picker/EntryList_p.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace vtcontrolcolorscheme {

EntryListStyle::EntryListStyle(int widestBar)
    : QProxyStyle(QApplication::style()->objectName())
    , widestBar(widestBar)
{
}

int EntryListStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                              QStyleHintReturn *returnData) const
{
    // Otherwise a list that is higher than the screen breaks into columns, most of them out of
    // sight.
    if (hint == SH_Menu_Scrollable)
        return 1;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

int EntryListStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                                const QWidget *widget) const
{
    switch (metric) {
    case PM_MenuHMargin:
    case PM_MenuVMargin:
    case PM_MenuPanelWidth:
        return 0;
    case PM_ScrollBarExtent:
        return std::min(QProxyStyle::pixelMetric(metric, option, widget), widestBar);
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize EntryListStyle::sizeFromContents(ContentsType type, const QStyleOption *option,
                                       const QSize &size, const QWidget *widget) const
{
    return type == CT_Menu ? size : QProxyStyle::sizeFromContents(type, option, size, widget);
}

EntryList::EntryList(Hovered hovered, QWidget *parent)
    : QMenu(parent)
    , hovered(std::move(hovered))
{
}

// The base class hides a menu as soon as a click misses its entries, and an embedded one would not
// come back. So none of the handlers below calls it.

void EntryList::mousePressEvent(QMouseEvent *event)
{
    pressed = event->button() == Qt::LeftButton ? actionAt(event->pos()) : nullptr;
}

void EntryList::mouseMoveEvent(QMouseEvent *event)
{
    hovered(actionAt(event->pos()));
}

void EntryList::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    QAction *const action = actionAt(event->pos());
    const bool clicked = action && action == pressed;
    pressed = nullptr;
    if (clicked)
        action->trigger();
}

void EntryList::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

void EntryList::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
}

void EntryList::leaveEvent(QEvent * /*event*/)
{
    hovered(nullptr);
}

void EntryList::paintEvent(QPaintEvent *event)
{
    // Translucent or not: the scroll area counts on its widget to fill its place.
    QPainter(this).fillRect(event->rect(), Qt::white);
}

} // namespace vtcontrolcolorscheme
