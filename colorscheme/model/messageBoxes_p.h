#pragma once

#include <QMessageBox>

namespace vtcontrolcolorscheme {

/// Says that something failed, in a box with one Close button. What stands below the text, if
/// anything, is plain text: it may name files.
void tellFailure(QWidget *parent, const QString &title, const QString &text,
                 const QString &below = QString());
/// Says that something succeeded, in a box with one Ok button.
void tellSuccess(QWidget *parent, const QString &title, const QString &text);

/// Asks with a warning box whose two buttons bear the given texts; true if the user pressed the
/// accepting one.
bool isConfirmed(QWidget *parent, const QString &title, const QString &text,
                 QMessageBox::StandardButton accept, const QString &acceptText,
                 const QString &cancelText);

} // namespace vtcontrolcolorscheme
