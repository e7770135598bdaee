#pragma once

#include "colorscheme/picker/VTColorSchemeGroupButton.h"
#include "colorscheme/picker/VTColorSchemeMenu.h"
#include "colorscheme/picker/VTSchemeMenuActionWidget.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QWidgetAction>

/// The parts of a drop-down, found as anyone can find them.
class DropDown
{
public:
    explicit DropDown(QWidget *menu)
        : menu(qobject_cast<VTColorSchemeMenu *>(menu))
        , bar(menu->findChild<VTColorSchemeGroupButton *>(QString(), Qt::FindDirectChildrenOnly))
        , userDefine(menu->findChild<QPushButton *>(QString(), Qt::FindDirectChildrenOnly))
        , area(menu->findChild<QScrollArea *>(QString(), Qt::FindDirectChildrenOnly))
    {
    }

    /// The embedded list; null if it is empty.
    QMenu *list() const { return qobject_cast<QMenu *>(area->widget()); }
    QList<QAction *> actions() const { return list() ? list()->actions() : QList<QAction *>(); }
    VTSchemeMenuActionWidget *entry(int index) const
    {
        auto *action = qobject_cast<QWidgetAction *>(actions().value(index));
        return action ? qobject_cast<VTSchemeMenuActionWidget *>(action->defaultWidget()) : nullptr;
    }
    QLabel *name(int index) const { return entry(index)->findChildren<QLabel *>().value(0); }
    QLabel *strip(int index) const { return entry(index)->findChildren<QLabel *>().value(1); }
    QStringList names() const
    {
        QStringList result;
        for (int i = 0; i < actions().size(); ++i)
            result.append(name(i)->text());
        return result;
    }
    /// The entries whose names are blue.
    QList<int> highlighted() const
    {
        QList<int> result;
        for (int i = 0; i < actions().size(); ++i) {
            if (name(i)->styleSheet().contains(QLatin1String("51,153,255")))
                result.append(i);
        }
        return result;
    }
    /// True if all of the entry's height lies in the visible part of the list.
    bool isInSight(int index) const
    {
        const QRect place(entry(index)->mapTo(area->viewport(), QPoint(0, 0)),
                          entry(index)->size());
        return area->viewport()->rect().contains(place);
    }

    VTColorSchemeMenu *menu;
    VTColorSchemeGroupButton *bar;
    QPushButton *userDefine;
    QScrollArea *area;
};

/// The button of a group in the chooser; null if there is none of that text.
inline QPushButton *groupOf(const QWidget *chooser, const QString &text)
{
    for (QPushButton *button : chooser->findChildren<QPushButton *>()) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}
