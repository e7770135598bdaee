#include "colorscheme/picker/pickerAccessibility_p.h"

#include "colorscheme/picker/EntryList_p.h"
#include "colorscheme/picker/VTColorSchemeGroupMenu.h"
#include "colorscheme/picker/VTColorSchemeMenu.h"
#include "colorscheme/picker/VTSchemeMenuActionWidget.h"

#include <QAccessibleWidget>
#include <QLayout>
#include <QScrollArea>
#include <QWidgetAction>

#include <algorithm>

namespace vtcontrolcolorscheme {

namespace {

VTSchemeMenuActionWidget *entryOf(QAction *action)
{
    auto *entryAction = qobject_cast<QWidgetAction *>(action);
    return entryAction ? qobject_cast<VTSchemeMenuActionWidget *>(entryAction->defaultWidget())
                       : nullptr;
}

/// An entry: an item of a list that can be pressed. Name and description are the widget's.
class EntryInterface : public QAccessibleWidget
{
public:
    explicit EntryInterface(VTSchemeMenuActionWidget *entry)
        : QAccessibleWidget(entry, QAccessible::ListItem)
    {
    }

    // What an entry is made of tells nothing that the entry does not.
    int childCount() const override { return 0; }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        const auto *entry = qobject_cast<VTSchemeMenuActionWidget *>(widget());
        state.focusable = true;
        state.selectable = true;
        state.focused = entry && entry->isHighlighted();
        state.selected = state.focused;
        state.checked = entry && entry->isPicked();
        state.checkable = state.checked; // all others are not to be told as "not checked"
        return state;
    }

    QStringList actionNames() const override { return {pressAction()}; }

    void doAction(const QString &name) override
    {
        if (name != pressAction() || !widget()->parentWidget())
            return;
        for (QAction *action : widget()->parentWidget()->actions()) {
            if (entryOf(action) == widget()) {
                action->trigger();
                return;
            }
        }
    }
};

/// The drop-down: the group bar, the list unless it is empty, and "User define". The scroll area
/// between is left out, for the toolkit looks for no menu below a widget.
class DropDownInterface : public QAccessibleWidget
{
public:
    explicit DropDownInterface(VTColorSchemeMenu *menu)
        : QAccessibleWidget(menu, QAccessible::PopupMenu)
    {
    }

    int childCount() const override { return parts().size(); }

    QAccessibleInterface *child(int index) const override
    {
        QWidget *const part = parts().value(index);
        return part ? QAccessible::queryAccessibleInterface(part) : nullptr;
    }

    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return child ? parts().indexOf(qobject_cast<QWidget *>(child->object())) : -1;
    }

private:
    QWidgetList parts() const
    {
        QWidgetList result;
        for (int i = 0; i < widget()->layout()->count(); ++i) {
            QWidget *part = widget()->layout()->itemAt(i)->widget();
            if (const auto *area = qobject_cast<QScrollArea *>(part))
                part = area->widget();
            if (part)
                result.append(part);
        }
        return result;
    }
};

/// The list of entries, a child of the drop-down. What else the toolkit puts into a menu is no
/// part of it.
class ListInterface : public QAccessibleWidget
{
public:
    explicit ListInterface(EntryList *list)
        : QAccessibleWidget(list, QAccessible::List)
    {
    }

    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(widget()->window());
    }

    int childCount() const override { return widget()->actions().size(); }

    QAccessibleInterface *child(int index) const override
    {
        VTSchemeMenuActionWidget *const entry = entryOf(widget()->actions().value(index));
        return entry ? QAccessible::queryAccessibleInterface(entry) : nullptr;
    }

    int indexOfChild(const QAccessibleInterface *child) const override
    {
        const QList<QAction *> actions = widget()->actions();
        const auto found = std::find_if(actions.begin(), actions.end(), [child](QAction *action) {
            return child && entryOf(action) == child->object();
        });
        return found == actions.end() ? -1 : static_cast<int>(found - actions.begin());
    }
};

QAccessibleInterface *pickerInterface(const QString & /*className*/, QObject *object)
{
    if (auto *entry = qobject_cast<VTSchemeMenuActionWidget *>(object))
        return new EntryInterface(entry);
    if (auto *list = dynamic_cast<EntryList *>(object))
        return new ListInterface(list);
    if (auto *menu = qobject_cast<VTColorSchemeMenu *>(object))
        return new DropDownInterface(menu);
    if (auto *chooser = qobject_cast<VTColorSchemeGroupMenu *>(object))
        return new QAccessibleWidget(chooser, QAccessible::PopupMenu);
    return nullptr;
}

} // namespace

void installPickerAccessibility()
{
    QAccessible::installFactory(pickerInterface);
}

} // namespace vtcontrolcolorscheme
