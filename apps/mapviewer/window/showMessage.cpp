#include "apps/mapviewer/window/showMessage.h"

namespace mapviewer {

void showMessage(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text,
                 QMessageBox::StandardButton button)
{
    QMessageBox box(icon, title, text, button, parent);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace mapviewer
