#pragma once

#include "vomap/vomap_export.h"

#include <QString>

#include <array>

namespace VTObjects {

/// The three teams of the store. The numbers never change: nodes of the manager's tree and buttons
/// of the group chooser carry them.
enum VOTeamKind : int {
    DefaultTeam = 0, ///< the built-in groups
    CustomTeam = 1,  ///< the user's own groups
    FavoriteTeam = 2 ///< groups of schemes marked as favourites
};
inline constexpr std::array<VOTeamKind, 3> allTeams = {DefaultTeam, CustomTeam, FavoriteTeam};

/// Whether a number stands for a team.
constexpr bool isTeamKind(int number)
{
    return number >= DefaultTeam && number <= FavoriteTeam;
}

/// The key by which settings, project files and the picker name a team: "Default", "Custom" or
/// "Favorite". Never translated.
VOMAP_EXPORT QString teamKey(VOTeamKind kind);
/// The team of a key, letter case ignored. Deliberate: any other text means the favourites.
VOMAP_EXPORT VOTeamKind teamKindOf(const QString &key);

/// The keys of the groups that come with the library, in the order in which they are shown. They
/// are the groups' names in the default team, in every language; views show captions for them.
inline constexpr std::array<const char *, 6> builtInGroups = {"DEM",   "Unique", "Range",
                                                              "Graph", "Even",   "Random"};

} // namespace VTObjects
