#pragma once

#include "vomap/VOColorSchemeId.h"
#include "vomap/VOColorSchemeTeam.h"
#include "vomap/VOTeamKind.h"

#include <QDateTime>

#include <cstdint>
#include <vector>

namespace VTObjects {

class VOColorSchemeManager;

/// A state of a team that was saved once, and that a later save replaced.
struct VOMAP_EXPORT VOSavedState
{
    VOTeamKind team = VOTeamKind(0);
    std::uint32_t number = 0; ///< counts the team's states, from 1
    QDateTime saved;          ///< when, in UTC
    std::uint64_t size = 0;   ///< bytes of its file
    VOString path;            ///< its file, in the folder "history" of the store
};

/// What differs between two states of a team, scheme by scheme. A scheme is known by the names of
/// its group and of itself (and, where names occur twice, by their order), so one that was renamed
/// is removed under its old name and added under its new one.
struct VOMAP_EXPORT VOTeamDifference
{
    std::vector<VOColorSchemeId> added;   ///< only the later state has them
    std::vector<VOColorSchemeId> removed; ///< only the earlier one
    std::vector<VOColorSchemeId> changed; ///< both, but not with the same content

    bool isEmpty() const { return added.empty() && removed.empty() && changed.empty(); }
};
VOMAP_EXPORT VOTeamDifference teamDifference(const VOColorSchemeTeam &earlier,
                                             const VOColorSchemeTeam &later);

/// The earlier states of a store. Every save that changes a team keeps what it replaces: 20 states
/// of each team and 64 MiB of all teams together, unless setLimits() says otherwise. The present
/// state is none of them.
///
/// What is restored is in memory, like any other edit: save() brings it to the disk, and what was
/// there before becomes a state itself, so a restoring can be taken back. Use it from the
/// user-interface thread, and for no longer than the store lives. Nothing is thrown.
class VOMAP_EXPORT VOStoreHistory
{
public:
    explicit VOStoreHistory(VOColorSchemeManager &store);

    /// The team's states, the newest first. Empty if there are none or the folder cannot be read.
    std::vector<VOSavedState> states(VOTeamKind team) const;
    /// Reads one of them. False, with `team` as it was, if its file is gone, damaged or of a newer
    /// release.
    bool read(const VOSavedState &state, VOColorSchemeTeam &team) const;

    /// Makes the store's team what it was then.
    bool restoreTeam(const VOSavedState &state);
    /// Makes one group what it was then: in its place, or behind all others if it is gone. False,
    /// like the next, if the state cannot be read or does not have it.
    bool restoreGroup(const VOSavedState &state, const VOString &group);
    /// Makes one scheme what it was then: in its place, or at the end of its group, which comes
    /// back too if need be.
    bool restoreScheme(const VOSavedState &state, const VOString &group, const VOString &scheme);

    /// How many states of each team are kept, and how many bytes of all teams together; the next
    /// save that changes something keeps to it. 0 keeps none.
    void setLimits(int states, std::uint64_t bytes);
    int maxStates() const;
    std::uint64_t maxBytes() const;

private:
    VOColorSchemeManager *store;
};

} // namespace VTObjects
