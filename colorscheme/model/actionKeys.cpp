#include "colorscheme/model/actionKeys_p.h"

#include <QAction>
#include <QWidget>

namespace vtcontrolcolorscheme {

void setActionKey(QAction *action, const QKeySequence &key, QWidget *view)
{
    action->setShortcut(key);
    action->setShortcutContext(view ? Qt::WidgetShortcut : Qt::WindowShortcut);
    if (view && !view->actions().contains(action))
        view->addAction(action);
    action->setToolTip(
        QStringLiteral("%1 (%2)").arg(action->text(), key.toString(QKeySequence::NativeText)));
}

} // namespace vtcontrolcolorscheme
