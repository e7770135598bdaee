#pragma once

#include "vomap/VOStoreProblem.h"
#include "vomap/VOTeamKind.h"
#include "vomap/files/ByteBuffer_p.h"
#include "vomap/files/TeamFile_p.h"
#include "vomap/files/fileSystem_p.h"
#include "vomap/store/StoreHistory_p.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace VTObjects {

/// Why a save fails.
enum class StoreFailure {
    NoSuchFolder,  ///< no folder can bear that name
    FolderMissing, ///< it must be there, and is not
    FolderRefused, ///< it cannot be made
    LockTaken,     ///< another process keeps the lock
    LockRefused,   ///< the system does not let us lock
    Unreadable,    ///< what is on disk cannot be read, so that it must not be replaced
    Newer,         ///< a newer release wrote what is on disk
    Unwritable,    ///< a record that no file can hold
    WriteRefused,  ///< the system does not let us write
    OutOfMemory
};
/// For the user, with what the system says about it.
QString reasonOf(StoreFailure failure, const QString &systemSays);
/// A problem that was met when a team was loaded.
VOStoreProblem loadProblem(VOStoreProblem::Kind kind, VOTeamKind which,
                           const VOColorSchemeTeam &team, const QString &aside);
/// What is on disk was damaged, and a save replaces it or will.
VOStoreProblem replacedProblem(VOTeamKind which, const VOColorSchemeTeam &team,
                               const QString &aside);
VOStoreProblem notSavedProblem(VOTeamKind which, const VOColorSchemeTeam &team,
                               const QString &reason);
VOStoreProblem folderMissingProblem(const QString &folder);

/// Where a store lies.
struct StoreFolder
{
    std::string path;       // empty for one that cannot be
    bool mustExist = false; // it is never made
};

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

    using Teams = std::array<VOColorSchemeTeam *, teamCount>; ///< by VOTeamKind; none is null

    /// Reads the teams. True if all that is there could be read. A team of which nothing is there
    /// is as on a first start. Nothing is read from a folder that cannot be, or written into it.
    bool load(const StoreFolder &place, const Teams &teams);
    /// Takes into the teams what other processes saved since the last load or save here, and keeps
    /// what was changed here: merged as by a save. True if that changed a team. The files are left
    /// as they are, and nothing is waited for.
    bool reload(const StoreFolder &place, const Teams &teams);

    /// One team to be saved; the pointer must not be null.
    struct Saving
    {
        VOTeamKind which = DefaultTeam;
        const VOColorSchemeTeam *team = nullptr;
    };
    /// Writes all of them, or none and answers false.
    bool save(const StoreFolder &place, const std::vector<Saving> &savings);

    /// The folder of the last load or save.
    const std::string &directory() const { return folder; }
    StoreHistory::Limits historyLimits;

    /// Whether a team has become another one since this was asked last.
    bool takeNews() { return std::exchange(news, false); }
    /// What went wrong, in the order in which it did.
    std::vector<VOStoreProblem> problems;
    /// Why the last save failed, for the user.
    const QString &failure() const { return reason; }

private:
    // What this process knows of a team file.
    struct Known
    {
        ByteBuffer base;   // as loaded or saved last; empty for none
        ByteBuffer spare;  // room for the next save: large stores wait for fresh memory
        TeamExtras extras; // that the next save writes
        bool newer = false;
        FileStamp stamp;         // of the file when it was looked at last
        std::uint64_t clean = 0; // checksum of the team in memory when it was as on disk
        std::uint64_t shown = 0; // checksum of the team that was announced last
    };
    struct Found; // a team file that was looked for
    struct Work;  // a team that is being saved

    bool loadTeam(VOTeamKind which, bool locked, VOColorSchemeTeam &team);
    TeamContent recovered(VOTeamKind which, Found &found, Found &last,
                          VOStoreProblem::Kind &kind) const;
    std::string putRecovered(VOTeamKind which, Found &found, Found &last,
                             const TeamContent &content);
    void finishInterrupted(VOTeamKind which) const;
    std::string setAside(const std::string &path, const Found &found) const;

    bool isReplaced(VOTeamKind which);
    void reloadTeam(VOTeamKind which, VOColorSchemeTeam &team);

    bool write(const StoreFolder &place, const std::vector<Saving> &savings);
    void tellFailure(const std::vector<Saving> &savings);
    bool fail(StoreFailure why);

    // What is told of it, and when.
    std::uint64_t checksumOf(VOTeamKind which, const VOColorSchemeTeam &team) const;
    void show(VOTeamKind which, std::uint64_t checksum);
    void tell(VOStoreProblem problem);
    void forget(VOStoreProblem::Kind kind, const VOString &team);

    bool prepare(Work &work);
    bool merge(Work &work, const TeamContent &theirs) const;
    bool commit(std::vector<Work> &works);
    bool link(Work &work) const;
    void keepState(Work &work, StoreHistory &history) const;
    void rollBack(std::vector<Work> &works) const;

    std::string pathOf(VOTeamKind which, const char *suffix = "") const;
    std::string pathOfLock() const;

    std::string folder; // of the last load or save
    std::array<Known, teamCount> known;
    bool news = false;
    QString reason;
};

/// The suffixes of a team's files: being written, being replaced, the last good copy.
constexpr const char newSuffix[] = ".new";
constexpr const char oldSuffix[] = ".old";
constexpr const char lastSuffix[] = ".last";
/// How long a load and a save wait for the lock.
constexpr int lockTimeout = 2000; // milliseconds

} // namespace VTObjects
