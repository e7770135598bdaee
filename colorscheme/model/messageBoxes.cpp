#include "colorscheme/model/messageBoxes_p.h"

#include <QAbstractButton>

namespace vtcontrolcolorscheme {

void tellFailure(QWidget *parent, const QString &title, const QString &text)
{
    QMessageBox::information(parent, title, text, QMessageBox::Close);
}

void tellSuccess(QWidget *parent, const QString &title, const QString &text)
{
    QMessageBox::information(parent, title, text, QMessageBox::Ok);
}

bool isConfirmed(QWidget *parent, const QString &title, const QString &text,
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
