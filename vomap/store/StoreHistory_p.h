#pragma once

#include "vomap/VOTeamKind.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace VTObjects {

/// The earlier states of the teams, in the folder "history" of the store: each is a team file that
/// a save replaced, under a name that tells its team, its number and when it was saved.
///
/// A state is a second name of a file that is whole and on the disk already, so keeping one writes
/// nothing: whatever interrupts it, there is one state more or one less, and no half of one.
class StoreHistory
{
public:
    struct State
    {
        VOTeamKind which = DefaultTeam;
        std::uint32_t number = 0; ///< one more than that of the state before
        std::int64_t saved = 0;   ///< milliseconds since 1970-01-01 00:00 UTC
        std::uint64_t size = 0;   ///< bytes
        std::string path;
    };
    struct Limits
    {
        int states = 20;                               ///< of each team
        std::uint64_t bytes = std::uint64_t(64) << 20; ///< of all of them together
    };

    /// Looks for what is there.
    explicit StoreHistory(const std::string &storeFolder);

    /// The newest of each team first.
    const std::vector<State> &states() const { return all; }
    /// Keeps the file at `path` as the team's newest state. The path of the state; empty if that
    /// failed, or if the newest state is this very file already. Only under the store's lock.
    std::string keep(VOTeamKind which, const std::string &path);
    /// Removes the oldest states past the limits. Only under the store's lock.
    void prune(const Limits &limits);

private:
    std::string folder;
    std::vector<State> all;
};

} // namespace VTObjects
