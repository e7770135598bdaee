#pragma once

#include <QKeySequence>

class QAction;
class QWidget;

namespace vtcontrolcolorscheme {

/// Gives a command of a tool bar a key, which its tool-tip names from then on. The key works while
/// `view` itself has the keyboard; without a view, in the whole window. To be called again when the
/// text has changed.
void setActionKey(QAction *action, const QKeySequence &key, QWidget *view = nullptr);

/// Names, in the tool-tip of a command, a key that somebody else gives it.
void nameActionKey(QAction *action, const QKeySequence &key);

} // namespace vtcontrolcolorscheme
