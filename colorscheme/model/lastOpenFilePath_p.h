#pragma once

#include <QString>

namespace vtcontrolcolorscheme {

/// The folder or file at which the file dialogs for schemes start: the host's setting
/// "history/lastOpenFilePath", or empty where there is none. Only read, never written.
///
/// A value that begins with "VTSDE30_" names a data source and no file, and counts as empty.
QString lastOpenFilePath();

} // namespace vtcontrolcolorscheme
