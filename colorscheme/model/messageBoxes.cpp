#include "colorscheme/model/messageBoxes_p.h"

#include <QAbstractButton>
#include <QLabel>

namespace vtcontrolcolorscheme {

void tellFailure(QWidget *parent, const QString &title, const QString &text, const QString &below)
{
    QMessageBox box(QMessageBox::Information, title, text, QMessageBox::Close, parent);
    box.setInformativeText(below);
    // The box has no format of its own for this label, which would take a name for rich text.
    if (auto *label = box.findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel")))
        label->setTextFormat(Qt::PlainText);
    box.exec();
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
