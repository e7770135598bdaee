#pragma once

#include "vomap/VOColorSchemeTeam.h"
#include "vomap/files/TeamFile_p.h"

#include <vector>

namespace VTObjects {

/// Joins two states of a team that both came from `base`, as docs/file-formats.md says under
/// "Merge": nobody's work is lost, and a deletion wins only over what nobody changed.
VOColorSchemeTeam mergedTeam(const VOColorSchemeTeam &base, const VOColorSchemeTeam &mine,
                             const VOColorSchemeTeam &theirs);

/// Adds to `team` the schemes of `source` whose group and name it does not have.
void addMissing(VOColorSchemeTeam &team, const VOColorSchemeTeam &source);

/// The list of all schemes of a team, as the store remembers what it has been offered.
std::vector<BuiltInScheme> builtInList(const VOColorSchemeTeam &builtIn);

/// One list of all that is in either; what both know is as `mine` has it.
std::vector<BuiltInScheme> joinedLists(const std::vector<BuiltInScheme> &mine,
                                       const std::vector<BuiltInScheme> &theirs);

/// Brings a stored default team up to the built-in schemes of this release: what is new is added,
/// what the user never touched becomes the present version, and what the user edited or deleted
/// stays so. Then `content` lists all of them.
void upgradeBuiltIns(TeamContent &content, const VOColorSchemeTeam &builtIn);

} // namespace VTObjects
