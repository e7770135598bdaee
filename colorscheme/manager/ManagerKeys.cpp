#include "colorscheme/manager/ManagerKeys_p.h"

#include "colorscheme/manager/VTColorSchemeView.h"
#include "colorscheme/model/actionKeys_p.h"

#include "ui_VTColorSchemeManagerBase.h"

#include <QKeyEvent>
#include <QToolButton>

namespace vtcontrolcolorscheme {

ManagerKeys::ManagerKeys(const Ui::VTColorSchemeManagerBase &ui, QObject *manager)
    : QObject(manager)
    , ui(ui)
    , tree(ui.teamView)
{
    QWidget *last = ui.teamView;
    const auto goOnTo = [&last](QWidget *next) {
        QWidget::setTabOrder(last, next);
        last = next;
    };
    const auto goOnToButton = [&goOnTo](QWidget *widget) {
        if (auto *button = qobject_cast<QToolButton *>(widget)) {
            // Not by a click: the keyboard stays in the table then.
            button->setFocusPolicy(Qt::TabFocus);
            goOnTo(button);
        }
    };
    const QList<QAction *> actions = ui.toolbar->actions();
    for (QAction *action : actions)
        goOnToButton(ui.toolbar->widgetForAction(action));
    // The toolkit's, behind which it hides what a narrow tool bar has no room for.
    goOnToButton(ui.toolbar->findChild<QToolButton *>(QStringLiteral("qt_toolbar_ext_button")));
    goOnTo(ui.schemeView);
    goOnTo(ui.pushButton_ok);
    goOnTo(ui.pushButton_cancel);

    nameKeys();
    // The window that they open would come again and again.
    for (QAction *action : {ui.actionAdd_scheme, ui.actionDelete_scheme})
        action->setAutoRepeat(false);
    tree->installEventFilter(this);
}

void ManagerKeys::nameKeys()
{
    // While the keyboard is in the table, and only there: an open field in it and the tree beside
    // it need the same keys.
    setActionKey(ui.actionAdd_scheme, Qt::Key_Insert, ui.schemeView);
    setActionKey(ui.actionDelete_scheme, Qt::Key_Delete, ui.schemeView);
    setActionKey(ui.actionSelect_all, Qt::CTRL + Qt::Key_A, ui.schemeView);
    nameActionKey(ui.actionEdit_scheme, Qt::Key_Return);
}

bool ManagerKeys::eventFilter(QObject *object, QEvent *event)
{
    if (object == tree && event->type() == QEvent::KeyPress) {
        const auto *press = static_cast<QKeyEvent *>(event);
        const bool isReturn = press->key() == Qt::Key_Return || press->key() == Qt::Key_Enter;
        const QModelIndex node = tree->currentIndex();
        // The table takes a modifier for one of its own when its first row is selected.
        if (isReturn && !(press->modifiers() & ~Qt::KeypadModifier) && node.isValid()) {
            Q_EMIT tree->clicked(node);
            return true;
        }
    }
    return QObject::eventFilter(object, event);
}

} // namespace vtcontrolcolorscheme
