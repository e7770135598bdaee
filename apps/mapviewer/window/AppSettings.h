#pragma once

#include <QSettings>

namespace mapviewer {

/// The settings file that the scheme library reads too, so that its file dialogs start where this
/// program opened a file last.
QSettings appSettings();

} // namespace mapviewer
