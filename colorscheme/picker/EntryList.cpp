#include "colorscheme/picker/EntryList_p.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>
#include <QWidgetAction>

#include <algorithm>
#include <utility>

namespace vtcontrolcolorscheme {

namespace {

constexpr char plainMenu[] = "QMenu{border:0px;padding:0px;margin:0px;menu-scrollable:0}";

} // namespace

EntryListStyle::EntryListStyle(int widestBar)
    : QProxyStyle(QApplication::style()->objectName())
    , widestBar(widestBar)
{
}

int EntryListStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                              QStyleHintReturn *returnData) const
{
    // The toolkit covers the first entry of a menu that scrolls itself with two invisible widgets,
    // which take its pointer away. The area around this one scrolls it.
    if (hint == SH_Menu_Scrollable)
        return 0;
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
    case PM_MenuDesktopFrameWidth:
        // A menu that does not scroll itself breaks into columns where it is higher than the screen
        // less this on either side.
        return -QWIDGETSIZE_MAX;
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

EntryList::EntryList(Pointed pointed, Told left, QWidget *parent)
    : QMenu(parent)
    , pointed(std::move(pointed))
    , left(std::move(left))
{
}

void EntryList::wear(QStyle *style)
{
    setStyle(style);
    if (!this->style()->inherits("QStyleSheetStyle"))
        return;
    setStyleSheet(QString::fromLatin1(plainMenu));
    // The base class asks for what it is to be when it is made, and then only when its style
    // changes.
    ensurePolished();
    QEvent change(QEvent::StyleChange);
    changeEvent(&change);
}

// By the entry itself: a list that was never shown has not laid its entries out.
QAction *EntryList::actionOf(const QWidget *entry) const
{
    const QList<QAction *> all = actions();
    const auto found = std::find_if(all.begin(), all.end(), [entry](const QAction *action) {
        const auto *const one = qobject_cast<const QWidgetAction *>(action);
        return one && one->defaultWidget() == entry;
    });
    return found == all.end() ? nullptr : *found;
}

void EntryList::pointTo(const QWidget *entry, const QEvent *event)
{
    QAction *const action = actionOf(entry);
    if (!action)
        return;
    // The toolkit always tells where the pointer is. A program that sends the bare event means it.
    const auto *const enter = dynamic_cast<const QEnterEvent *>(event);
    pointed(action, enter ? std::make_optional(enter->globalPos()) : std::nullopt);
}

void EntryList::leave(const QWidget *entry)
{
    if (QAction *const action = actionOf(entry))
        left(action);
}

// The toolkit asks the entry below the pointer, and the list where that has nothing to tell.
bool EntryList::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *const help = static_cast<const QHelpEvent *>(event);
        const auto *const action = qobject_cast<QWidgetAction *>(actionAt(help->pos()));
        QWidget *const entry = action ? action->defaultWidget() : nullptr;
        if (entry && !entry->toolTip().isEmpty())
            QToolTip::showText(help->globalPos(), entry->toolTip(), entry);
        else
            QToolTip::hideText();
        return true;
    }
    return QMenu::event(event);
}

// The base class hides a menu as soon as a click misses its entries, and an embedded one would not
// come back. So none of the handlers below calls it.

void EntryList::mousePressEvent(QMouseEvent *event)
{
    pressed = event->button() == Qt::LeftButton ? actionAt(event->pos()) : nullptr;
}

void EntryList::mouseMoveEvent(QMouseEvent *event)
{
    if (QAction *const action = actionAt(event->pos()))
        pointed(action, event->globalPos());
    else
        left(nullptr);
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
    left(nullptr);
}

void EntryList::paintEvent(QPaintEvent *event)
{
    // Translucent or not: the scroll area counts on its widget to fill its place.
    QPainter(this).fillRect(event->rect(), Qt::white);
}

} // namespace vtcontrolcolorscheme
