#pragma once

#include "vomap/VOTeamKind.h"

namespace VTObjects {

/// The name of a team's file in the store's folder.
constexpr const char *teamFileName(VOTeamKind which)
{
    constexpr const char *names[] = {"default.team", "custom.team", "favorite.team"};
    return names[which];
}

} // namespace VTObjects
