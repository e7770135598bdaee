#pragma once

#include "vomap/VOColorSchemeTeam.h"

#include <QByteArray>

#include <optional>

namespace VTObjects {

/// The default team as the library ships it: the groups "DEM", "Unique", "Range", "Graph", "Even"
/// and "Random", read from the embedded files vomap/schemes/<group>.json.
VOColorSchemeTeam builtInTeam();

/// The group that such a file holds; none if anything in it is missing, misspelt or out of range.
std::optional<VOColorSchemeGroup> builtInGroup(const QByteArray &json);

} // namespace VTObjects
