// How the keyboard and the pointer share the one highlighted entry of the drop-down.
#include "colorscheme/picker/VTColorSchemeGroupButton.h"
#include "colorscheme/picker/VTColorSchemeMenu.h"
#include "colorscheme/picker/VTSchemeMenuActionWidget.h"
#include "vomap/VOStringConversion.h"

#include <QAccessible>
#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QScrollBar>
#include <QWidgetAction>

#include <algorithm>

using VTObjects::toQString;

void VTColorSchemeMenu::keyPressEvent(QKeyEvent *event)
{
    const int last = static_cast<int>(group.schemes.size()) - 1;
    const bool alt = event->modifiers() & Qt::AltModifier;
    switch (event->key()) {
    case Qt::Key_Down:
        moveTo(current + 1);
        break;
    case Qt::Key_Up:
        if (alt)
            close();
        else
            moveTo(current < 0 ? last : current - 1);
        break;
    case Qt::Key_Home:
        moveTo(0);
        break;
    case Qt::Key_End:
        moveTo(last);
        break;
    case Qt::Key_PageDown:
        moveTo(std::max(current, 0) + entriesPerPage());
        break;
    case Qt::Key_PageUp:
        moveTo(current < 0 ? last : current - entriesPerPage());
        break;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        focusNextPrevChild(event->key() == Qt::Key_Tab);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (auto *const button = qobject_cast<QAbstractButton *>(focusWidget()))
            button->click();
        else
            chooseCurrent();
        break;
    case Qt::Key_F4:
        close();
        break;
    case Qt::Key_Escape:
        QMenu::keyPressEvent(event);
        break;
    default: {
        const QString text = event->text();
        const bool printable = !text.isEmpty() && text.at(0).isPrint();
        if (!printable || alt || event->modifiers() & Qt::ControlModifier)
            QMenu::keyPressEvent(event);
        else
            typeAhead(text);
    }
    }
}

// From the entries to "User define", to the group bar, and back. The base class would step through
// its actions, of which there are none.
bool VTColorSchemeMenu::focusNextPrevChild(bool next)
{
    QList<QWidget *> stops{this, customButton, groupButton};
    if (customButton->isHidden())
        stops.removeOne(customButton);
    const int here = std::max(stops.indexOf(focusWidget()), 0);
    const int target = (here + (next ? 1 : stops.size() - 1)) % stops.size();
    stops[target]->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

QAction *VTColorSchemeMenu::actionOf(int index) const
{
    const QWidget *const list = scrollArea->widget();
    return list ? list->actions().value(index) : nullptr;
}

VTSchemeMenuActionWidget *VTColorSchemeMenu::entryOf(int index) const
{
    const auto *const action = qobject_cast<QWidgetAction *>(actionOf(index));
    return action ? qobject_cast<VTSchemeMenuActionWidget *>(action->defaultWidget()) : nullptr;
}

void VTColorSchemeMenu::highlight(int index)
{
    if (index == current)
        return;
    if (VTSchemeMenuActionWidget *const entry = entryOf(current))
        entry->setHighlighted(false);
    current = index;
    if (VTSchemeMenuActionWidget *const entry = entryOf(current))
        entry->setHighlighted(true);
}

// By key: to the entry, or to the nearest one that exists.
void VTColorSchemeMenu::moveTo(int index)
{
    const int count = static_cast<int>(group.schemes.size());
    if (count == 0)
        return;
    setFocus(); // away from a bar, so that Return means the entry
    highlight(qBound(0, index, count - 1));
    VTSchemeMenuActionWidget *const entry = entryOf(current);
    if (!entry)
        return;
    showEntry(entry);
    QAccessibleEvent event(entry, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

void VTColorSchemeMenu::showEntry(const QWidget *entry)
{
    const QScopedValueRollback<bool> guard(movingByKey, true);
    QScrollBar *const bar = scrollArea->verticalScrollBar();
    const int top = entry->y();
    const int bottom = top + entry->height() - scrollArea->viewport()->height();
    bar->setValue(qBound(bottom, bar->value(), top));
}

// What the wheel or the bar brings below the pointer is what a click would choose.
void VTColorSchemeMenu::followPointer()
{
    const QMenu *const list = qobject_cast<QMenu *>(scrollArea->widget());
    if (movingByKey || !list)
        return;
    const QWidget *const viewport = scrollArea->viewport();
    if (!viewport->rect().contains(viewport->mapFromGlobal(QCursor::pos())))
        return;
    const QAction *const action = list->actionAt(list->mapFromGlobal(QCursor::pos()));
    highlight(action ? action->data().toInt() : -1);
}

int VTColorSchemeMenu::entriesPerPage() const
{
    const QWidget *const entry = entryOf(0);
    const int height = entry ? entry->height() : 0;
    return height > 0 ? std::max(1, scrollArea->viewport()->height() / height) : 1;
}

void VTColorSchemeMenu::typeAhead(const QString &text)
{
    const bool goesOn =
        !typed.isEmpty() && sinceTyped.elapsed() < QApplication::keyboardInputInterval();
    if (text == QLatin1String(" ") && !goesOn) { // no name is looked for by a blank
        chooseCurrent();
        return;
    }
    sinceTyped.start();
    typed = goesOn ? typed + text : text;
    // The same letter again and again steps through the names that begin with it.
    int found = goesOn ? findEntry(typed, std::max(current, 0)) : -1;
    if (found < 0) {
        const bool repeated = typed.count(text.at(0)) == typed.size();
        if (!repeated)
            typed = text;
        found = findEntry(text, current + 1);
    }
    if (found >= 0)
        moveTo(found);
}

// The next entry from the given one on whose name begins so, around the end; -1 for none.
int VTColorSchemeMenu::findEntry(const QString &start, int from) const
{
    const int count = static_cast<int>(group.schemes.size());
    for (int i = 0; i < count; ++i) {
        const int index = (from + i) % count;
        const QString name = toQString(group.schemes[static_cast<std::size_t>(index)].name);
        if (name.startsWith(start, Qt::CaseInsensitive))
            return index;
    }
    return -1;
}

void VTColorSchemeMenu::chooseCurrent()
{
    if (QAction *const action = actionOf(current))
        action->trigger();
}
