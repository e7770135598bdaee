#pragma once

#include <QAbstractButton>
#include <QMessageBox>

namespace vtcontrolcolorscheme {

/// Asks with a warning box whose two buttons bear the given texts; true if the user pressed the
/// accepting one.
inline bool isConfirmed(QWidget *parent, const QString &title, const QString &text,
                        QMessageBox::StandardButton accept, const QString &acceptText,
                        const QString &cancelText)
{
    QMessageBox box(QMessageBox::Warning, title, text, accept | QMessageBox::Cancel, parent,
                    Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
    // The text can hold a name that the user typed.
    box.setTextFormat(Qt::PlainText);
    box.button(accept)->setText(acceptText);
    box.button(QMessageBox::Cancel)->setText(cancelText);
    return box.exec() == accept;
}

} // namespace vtcontrolcolorscheme
