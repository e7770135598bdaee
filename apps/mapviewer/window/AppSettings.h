#pragma once

#include <QSettings>
#include <QString>

namespace mapviewer {

/// The settings file that the scheme library reads too, so that its file dialogs start where this
/// program opened a file last.
QSettings appSettings();

/// In these settings: the folder of the scheme store that was opened last.
const QString storeFolderKey = QStringLiteral("mapviewer/store");

} // namespace mapviewer
