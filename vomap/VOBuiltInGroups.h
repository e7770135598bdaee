#pragma once

#include <array>

namespace VTObjects {

/// The keys of the groups that come with the library, in the order in which they are shown. They
/// are the groups' names in the default team, in every language; views show captions for them.
inline constexpr std::array<const char *, 6> builtInGroups = {"DEM",   "Unique", "Range",
                                                              "Graph", "Even",   "Random"};

} // namespace VTObjects
