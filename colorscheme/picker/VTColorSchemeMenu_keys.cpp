// How the keyboard and the pointer share the one highlighted entry of the drop-down.
#include "colorscheme/picker/TypeAhead_p.h"
#include "colorscheme/picker/TypedLabel_p.h"
#include "colorscheme/picker/VTColorSchemeGroupButton.h"
#include "colorscheme/picker/VTColorSchemeMenu.h"
#include "colorscheme/picker/VTSchemeMenuActionWidget.h"
#include "colorscheme/picker/popupPlace_p.h"
#include "vomap/VOStringConversion.h"

#include <QAccessible>
#include <QCursor>
#include <QKeyEvent>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWidgetAction>

#include <algorithm>

using vtcontrolcolorscheme::pointerRestsOn;
using vtcontrolcolorscheme::TypedLabel;
using VTObjects::toQString;
using VTObjects::VOColorScheme;

namespace {

constexpr int rounding = 2; // pixels, between two ways of asking for the pointer at a scale

} // namespace

void VTColorSchemeMenu::keyPressEvent(QKeyEvent *event)
{
    const int last = static_cast<int>(group.schemes.size()) - 1;
    const int from = current < 0 ? latest : current;
    const bool alt = event->modifiers() & Qt::AltModifier;
    switch (event->key()) {
    case Qt::Key_Down:
        moveTo(from + 1);
        break;
    case Qt::Key_Up:
        if (alt)
            close();
        else
            moveTo(from < 0 ? last : from - 1);
        break;
    case Qt::Key_Home:
        moveTo(0);
        break;
    case Qt::Key_End:
        moveTo(last);
        break;
    case Qt::Key_PageDown:
        moveTo(std::max(from, 0) + entriesPerPage());
        break;
    case Qt::Key_PageUp:
        moveTo(from < 0 ? last : from - entriesPerPage());
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
    case Qt::Key_Backspace:
        takeBack();
        break;
    case Qt::Key_Escape:
        if (search->isEmpty())
            QMenu::keyPressEvent(event);
        else
            stopTyping();
        break;
    default: {
        const QString text = event->text();
        const bool printable = !text.isEmpty() && text.at(0).isPrint();
        if (!printable || alt || event->modifiers() & Qt::ControlModifier)
            QMenu::keyPressEvent(event);
        else
            find(text);
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
    stopTyping();
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
    if (VTSchemeMenuActionWidget *const entry = entryOf(current)) {
        entry->setHighlighted(true);
        latest = current;
    }
}

void VTColorSchemeMenu::pointTo(int index, const std::optional<QPoint> &pointer)
{
    const QWidget *const entry = entryOf(index);
    if (!entry)
        return;
    // An entry that comes to lie below a pointer at rest is seen there, and told just that place.
    const bool isNoted =
        pointer && isVisible() && (*pointer - restingPointer).manhattanLength() <= rounding;
    if (isNoted && pointerRestsOn(entry, restingPointer))
        return;
    highlight(index);
    pointed = true;
}

// Where the keyboard moved last, the pointer may go without taking the current entry along.
void VTColorSchemeMenu::leave(int index)
{
    if (index == current || (index < 0 && pointed))
        highlight(-1);
}

// By key: to the entry, or to the nearest one that exists.
void VTColorSchemeMenu::moveTo(int index)
{
    stopTyping();
    showFound(index);
}

void VTColorSchemeMenu::showFound(int index)
{
    const int count = static_cast<int>(group.schemes.size());
    if (count == 0)
        return;
    setFocus(); // away from a bar, so that Return means the entry
    restingPointer = QCursor::pos();
    pointed = false;
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
    const QScopedValueRollback<bool> guard(adjusting, true);
    QScrollBar *const bar = scrollArea->verticalScrollBar();
    const int top = entry->y();
    const int bottom = top + entry->height() - scrollArea->viewport()->height();
    bar->setValue(qBound(bottom, bar->value(), top));
}

// What the wheel or the bar brings below the pointer is what a click would choose.
void VTColorSchemeMenu::followPointer()
{
    const QMenu *const list = qobject_cast<QMenu *>(scrollArea->widget());
    if (adjusting || !list)
        return;
    const QWidget *const viewport = scrollArea->viewport();
    if (!viewport->rect().contains(viewport->mapFromGlobal(QCursor::pos())))
        return;
    const QAction *const action = list->actionAt(list->mapFromGlobal(QCursor::pos()));
    highlight(action ? action->data().toInt() : -1);
    pointed = true;
}

int VTColorSchemeMenu::entriesPerPage() const
{
    const QWidget *const entry = entryOf(0);
    const int height = entry ? entry->height() : 0;
    return height > 0 ? std::max(1, scrollArea->viewport()->height() / height) : 1;
}

QStringList VTColorSchemeMenu::names() const
{
    QStringList result;
    for (const VOColorScheme &scheme : group.schemes)
        result.append(toQString(scheme.name));
    return result;
}

void VTColorSchemeMenu::find(const QString &letter)
{
    if (letter == QLatin1String(" ") && !search->goesOn()) { // no name is looked for by a blank
        chooseCurrent();
        return;
    }
    if (group.schemes.empty())
        return;
    const int found = search->append(letter, names(), current);
    showTyped();
    if (found >= 0)
        showFound(found);
}

void VTColorSchemeMenu::takeBack()
{
    if (search->isEmpty())
        return;
    const int found = search->removeLast(names());
    showTyped();
    if (found >= 0)
        showFound(found);
}

void VTColorSchemeMenu::stopTyping()
{
    search->clear();
    showTyped();
}

// Below the entries and not over them: what lies over one takes the pointer away from it.
void VTColorSchemeMenu::showTyped()
{
    if (search->isEmpty() && !typed)
        return;
    const QScopedValueRollback<bool> guard(adjusting, true); // the list becomes lower or higher
    if (search->isEmpty()) {
        delete typed;
        typed = nullptr;
    } else {
        if (!typed) {
            typed = new TypedLabel(this);
            auto *const column = qobject_cast<QVBoxLayout *>(layout());
            column->insertWidget(column->indexOf(customButton), typed);
            typed->show();
        }
        layout()->activate();
        typed->showLetters(*search);
    }
    layout()->activate();
}

void VTColorSchemeMenu::chooseCurrent()
{
    if (QAction *const action = actionOf(current))
        action->trigger();
}
