#pragma once

#include "vomap/VOColorSchemeTeam.h"

class QString;

namespace VTObjects {

/// The default team as it is built in, read only once: a load compares the stored one with it.
const VOColorSchemeTeam &builtInTeam();

/// The same, read anew: the builtInGroups with the schemes of the embedded files.
VOColorSchemeTeam readBuiltInTeam();

/// The schemes of the files "0", "1", "2", ... in a folder, up to the first number that is missing.
/// A file that is no scheme file is left out. The group has no name.
VOColorSchemeGroup builtInGroup(const QString &folder);

} // namespace VTObjects
