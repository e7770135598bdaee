#pragma once

#include "vomap/VOTeamKind.h"
#include "vomap/files/ByteBuffer_p.h"
#include "vomap/files/TeamFile_p.h"

#include <array>
#include <string>
#include <vector>

namespace VTObjects {

/// The store's folder on disk: three team files, their last good copies, the lock and the folder
/// of damaged files. docs/file-formats.md says what a load and a save do, step by step, and how
/// what other processes saved is merged. Nothing here keeps a team in memory.
class SchemeStore
{
public:
    static constexpr std::size_t teamCount = allTeams.size();

    SchemeStore();
    ~SchemeStore();
    SchemeStore(const SchemeStore &) = delete;
    SchemeStore &operator=(const SchemeStore &) = delete;

    /// An empty directory is one that cannot be: nothing is read from it or written into it.
    /// Reads the teams, in the order of VOTeamKind; no pointer may be null. True if all that is
    /// there could be read. A team of which nothing is there is as on a first start.
    bool load(const std::string &directory,
              const std::array<VOColorSchemeTeam *, teamCount> &teams);

    /// One team to be saved; the pointer must not be null.
    struct Saving
    {
        VOTeamKind which = DefaultTeam;
        const VOColorSchemeTeam *team = nullptr;
    };
    /// Writes all of them, or none and answers false.
    bool save(const std::string &directory, const std::vector<Saving> &savings);

private:
    // What this process knows of a team file.
    struct Known
    {
        ByteBuffer base;   // as loaded or saved last; empty for none
        ByteBuffer spare;  // room for the next save: large stores wait for fresh memory
        TeamExtras extras; // that the next save writes
        bool newer = false;
    };
    struct Found; // a team file that was looked for
    struct Work;  // a team that is being saved

    bool loadTeam(VOTeamKind which, bool locked, VOColorSchemeTeam &team);
    TeamContent recovered(VOTeamKind which, Found &found, Found &last) const;
    void putRecovered(VOTeamKind which, Found &found, Found &last, const TeamContent &content);
    void finishInterrupted(VOTeamKind which) const;
    std::string setAside(const std::string &path, const Found &found) const;

    bool prepare(Work &work) const;
    bool merge(Work &work, const TeamContent &theirs) const;
    bool commit(std::vector<Work> &works) const;
    bool link(Work &work) const;
    void rollBack(std::vector<Work> &works) const;

    std::string pathOf(VOTeamKind which, const char *suffix = "") const;
    std::string pathOfLock() const;

    std::string folder; // of the last load or save
    std::array<Known, teamCount> known;
};

/// The suffixes of a team's files: being written, being replaced, the last good copy.
constexpr const char newSuffix[] = ".new";
constexpr const char oldSuffix[] = ".old";
constexpr const char lastSuffix[] = ".last";
/// How long a load and a save wait for the lock.
constexpr int lockTimeout = 2000; // milliseconds

} // namespace VTObjects
