#pragma once

#include "vomap/VOColorSchemeMoves.h"

/// What was changed in a VTColorSchemeManager and discarded there, in case it is wanted after all:
/// a plain value, which outlives the dialog. See VTColorSchemeManager::discarded().
struct VTDiscardedSchemes
{
    /// The store's teams under the dialog, by VOTeamKind, and what the dialog had made of them.
    VTObjects::VOColorSchemeMoves::Teams before;
    VTObjects::VOColorSchemeMoves::Teams edited;
    bool isEmpty = true;
};
