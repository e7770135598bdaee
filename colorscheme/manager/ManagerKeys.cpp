#include "colorscheme/manager/ManagerKeys_p.h"

#include "colorscheme/manager/VTColorSchemeView.h"

#include "ui_VTColorSchemeManagerBase.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QToolButton>

namespace vtcontrolcolorscheme {

namespace {

void nameKey(QAction *action, const QKeySequence &key)
{
    action->setToolTip(
        QCoreApplication::translate("VTColorSchemeManager", "%1 (%2)", "a command and its key")
            .arg(action->text(), key.toString(QKeySequence::NativeText)));
}

/// A key that stands for a command while the keyboard is in the table, and only there: an open
/// field in it and the tree beside it need the same keys.
void setKey(QAction *action, const QKeySequence &key, QWidget *table)
{
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    table->addAction(action);
    nameKey(action, key);
}

} // namespace

ManagerKeys::ManagerKeys(const Ui::VTColorSchemeManagerBase &ui, QObject *manager)
    : QObject(manager)
    , tree(ui.teamView)
{
    QWidget *last = ui.teamView;
    const auto goOnTo = [&last](QWidget *next) {
        QWidget::setTabOrder(last, next);
        last = next;
    };
    const QList<QAction *> actions = ui.toolbar->actions();
    for (QAction *action : actions) {
        if (auto *button = qobject_cast<QToolButton *>(ui.toolbar->widgetForAction(action))) {
            // Not by a click: the keyboard stays in the table then.
            button->setFocusPolicy(Qt::TabFocus);
            goOnTo(button);
        }
    }
    goOnTo(ui.schemeView);
    goOnTo(ui.pushButton_ok);
    goOnTo(ui.pushButton_cancel);

    setKey(ui.actionAdd_scheme, QKeySequence(Qt::Key_Insert), ui.schemeView);
    setKey(ui.actionDelete_scheme, QKeySequence(Qt::Key_Delete), ui.schemeView);
    setKey(ui.actionSelect_all, QKeySequence(Qt::CTRL + Qt::Key_A), ui.schemeView);
    nameKey(ui.actionEdit_scheme, QKeySequence(Qt::Key_Return));

    tree->installEventFilter(this);
}

bool ManagerKeys::eventFilter(QObject *object, QEvent *event)
{
    if (object == tree && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        const QModelIndex node = tree->currentIndex();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && node.isValid()) {
            Q_EMIT tree->clicked(node);
            return true;
        }
    }
    return QObject::eventFilter(object, event);
}

} // namespace vtcontrolcolorscheme
