#pragma once

#include "apps/mapviewer/schemes/SchemeChoice.h"

#include "vomap/VOColorSchemeGroup.h"

#include <optional>

namespace mapviewer {

/// A scheme of the user's own on which an editor can be opened: the chosen one itself if it is in
/// the custom team, else a copy of it, appended to the custom group "My schemes", which is made
/// if need be. Nobody else may add or remove custom groups meanwhile.
class SchemeCopy
{
public:
    /// Without a choice the copy is a new scheme with a clone of `ramp`, which is not null.
    SchemeCopy(const std::optional<SchemeChoice> &choice, VTObjects::VOColorRamp *ramp);

    /// The scheme's group in the store; never null.
    VTObjects::VOColorSchemeGroup *group() const;
    int schemeIndex() const { return m_schemeIndex; }
    /// True for a copy, false for a scheme that was there before.
    bool isNew() const { return m_isNew; }

    /// Where the scheme is now, by the name that the editor may have given it.
    SchemeChoice keep() const;
    /// Takes the copy out again, unless the editor has done so, and the group if it was made for
    /// it. A scheme that was there before stays.
    void discard();

private:
    void append(const VTObjects::VOColorScheme &scheme);

    int groupIndex = -1;
    int m_schemeIndex = -1;
    bool m_isNew = false;
    bool newGroup = false;
};

} // namespace mapviewer
