#pragma once

#include "vomap/VOColorSchemeId.h"
#include "vomap/VOColorSchemeTeam.h"
#include "vomap/vomap_export.h"

#include <array>
#include <cstdint>
#include <vector>

namespace VTObjects {

enum VOTeamKind : int; // its values, which a host may have names for itself, are not brought along

/// What becomes of groups and schemes while copies of the store's teams are edited. It marks the
/// copies once and finds the marks again, so nobody has to note what a command does.
class VOMAP_EXPORT VOColorSchemeMoves
{
public:
    using Teams = std::array<VOColorSchemeTeam, 3>; ///< by VOTeamKind

    /// Marks every group and scheme of the copies (`origin`) and remembers what it is called.
    explicit VOColorSchemeMoves(Teams &copies);
    ~VOColorSchemeMoves();
    VOColorSchemeMoves(const VOColorSchemeMoves &) = delete;
    VOColorSchemeMoves &operator=(const VOColorSchemeMoves &) = delete;

    /// The id of the scheme that had this one; null if it is gone. Where several schemes of a group
    /// bear one name, `number` says which of them is meant, from 0, and afterwards which of those
    /// with the new name it is.
    VOColorSchemeId movedTo(const VOColorSchemeId &was, int &number) const;
    /// The same for the first of them.
    VOColorSchemeId movedTo(const VOColorSchemeId &was) const;
    /// The position in its team of the group that had this name, and was the `number`th of it, from
    /// 0; -1 if it is gone.
    int groupMovedTo(VOTeamKind team, const VOString &was, int number = 0) const;

    /// What a store that holds `now` becomes when the edits are made to it that led from `before`
    /// to `edited`: merged, so that what happened in between is not lost. `edited` has the marks
    /// that were set in a copy of `before`, the result those that are set in a copy of `now`.
    static Teams repeated(const Teams &before, const Teams &edited, const Teams &now);

    /// For the store: what the copies have become, and that this is what they are from now on.
    void setEdited(const Teams &copies) { edited = &copies; }
    void settle();

private:
    struct Origin
    {
        VOString name;
        int team = -1; // none for what is gone
    };
    void remember(std::uint32_t mark, const VOString &name, std::uint32_t group, VOTeamKind team);
    std::uint32_t originOf(const VOColorSchemeId &was, int number) const;

    std::vector<Origin> origins; // at the numbers of the marks; 0 is none
    // The marks of the schemes' groups, 0 for a group: apart, because searching goes through them.
    std::vector<std::uint32_t> groupOf;
    const Teams *edited = nullptr;
};

} // namespace VTObjects
