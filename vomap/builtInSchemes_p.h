#pragma once

#include "vomap/VOColorSchemeTeam.h"

namespace VTObjects {

/// The default team as the library ships it: the groups "DEM", "Unique", "Range", "Graph", "Even"
/// and "Random".
VOColorSchemeTeam builtInTeam();

} // namespace VTObjects
