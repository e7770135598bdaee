#pragma once

#include "vomap/VOColorSchemeTeam.h"

class QString;

namespace VTObjects {

/// The default team as the library has it: the groups "DEM", "Unique", "Range", "Graph", "Even" and
/// "Random", read from the embedded scheme files.
VOColorSchemeTeam builtInTeam();

/// The schemes of the files "0", "1", "2", ... in a folder, up to the first number that is missing.
/// A file that is no scheme file is left out. The group has no name.
VOColorSchemeGroup builtInGroup(const QString &folder);

} // namespace VTObjects
