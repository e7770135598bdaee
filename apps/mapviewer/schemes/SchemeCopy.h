#pragma once

#include "vomap/VOColorSchemeGroup.h"
#include "vomap/VOColorSchemeId.h"

namespace mapviewer {

/// A scheme of the user's own on which an editor can be opened: the chosen one itself if it is in
/// the custom team, else a copy of it, appended to the custom group "My schemes", which is made
/// if need be. Nobody else may add or remove custom groups meanwhile.
class SchemeCopy
{
public:
    /// `id` names the chosen scheme, and `picked` is that scheme as it was when it was chosen. With
    /// a null id the copy is a new scheme with a clone of `ramp`, which is not null.
    SchemeCopy(const VTObjects::VOColorSchemeId &id, const VTObjects::VOColorScheme &picked,
               VTObjects::VOColorRamp *ramp);

    /// The scheme's group in the store; never null.
    VTObjects::VOColorSchemeGroup *group() const;
    /// The positions of the group in the custom team, and of the scheme in the group.
    int groupIndex() const { return m_groupIndex; }
    int schemeIndex() const { return m_schemeIndex; }
    /// True for a copy, false for a scheme that was there before.
    bool isNew() const { return m_isNew; }

    /// Takes the copy out again, unless the editor has done so, and the group if it was made for
    /// it. A scheme that was there before stays.
    void discard();

private:
    void append(const VTObjects::VOColorScheme &scheme);

    int m_groupIndex = -1;
    int m_schemeIndex = -1;
    bool m_isNew = false;
    bool newGroup = false;
};

} // namespace mapviewer
