#include "colorscheme/model/actionKeys_p.h"

#include <QAction>
#include <QCoreApplication>
#include <QWidget>

namespace vtcontrolcolorscheme {

void setActionKey(QAction *action, const QKeySequence &key, QWidget *view)
{
    action->setShortcut(key);
    action->setShortcutContext(view ? Qt::WidgetShortcut : Qt::WindowShortcut);
    if (view && !view->actions().contains(action))
        view->addAction(action);
    nameActionKey(action, key);
}

void nameActionKey(QAction *action, const QKeySequence &key)
{
    action->setToolTip(
        QCoreApplication::translate("VTColorSchemeManager", "%1 (%2)", "a command and its key")
            .arg(action->text(), key.toString(QKeySequence::NativeText)));
}

} // namespace vtcontrolcolorscheme
