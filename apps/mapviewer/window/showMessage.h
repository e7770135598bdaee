#pragma once

#include <QMessageBox>

namespace mapviewer {

/// Tells something by a box with one button and waits until it is closed. The text is shown as it
/// is: names of files may look like mark-up.
void showMessage(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text,
                 QMessageBox::StandardButton button = QMessageBox::Close);

} // namespace mapviewer
