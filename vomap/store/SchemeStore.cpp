#include "vomap/store/SchemeStore_p.h"

#include "vomap/VOStringConversion.h"
#include "vomap/store/SchemeStoreFound_p.h"
#include "vomap/store/builtInSchemes_p.h"
#include "vomap/store/teamFileName_p.h"
#include "vomap/store/teamMerge_p.h"

#include <limits>
#include <utility>

namespace VTObjects {

namespace {

constexpr std::uint64_t anyLength = std::numeric_limits<std::int64_t>::max();

VOColorSchemeTeam builtInTeamOf(VOTeamKind which)
{
    VOColorSchemeTeam team;
    if (which == DefaultTeam)
        team = builtInTeam();
    team.name = toVOString(teamKey(which));
    return team;
}

} // namespace

SchemeStore::Found::Found(const std::string &path)
{
    read = readWholeFile(path, anyLength, bytes);
    if (read == ReadState::Read)
        state = decodeTeam(bytes.view(), content, complete);
}

SchemeStore::SchemeStore() = default;

SchemeStore::~SchemeStore() = default;

std::string SchemeStore::pathOf(VOTeamKind which, const char *suffix) const
{
    return folder + '/' + teamFileName(which) + suffix;
}

std::string SchemeStore::pathOfLock() const
{
    return folder + "/store.lock";
}

bool SchemeStore::load(const StoreFolder &place, const Teams &teams)
{
    folder = place.path;
    if (folder.empty()) {
        for (const VOTeamKind which : allTeams) {
            const std::uint64_t shown = known[which].shown;
            known[which] = Known();
            known[which].shown = shown;
            *teams[which] = builtInTeamOf(which);
            show(which, checksumOf(which, *teams[which]));
        }
        return false;
    }
    const bool isThere = somethingIsAt(folder);
    forget(VOStoreProblem::FolderMissing, VOString());
    bool all = isThere || !place.mustExist;
    if (!all)
        tell(folderMissingProblem(shownPath(folder)));
    FolderLock lock;
    // A folder that is not there is no reason to make one: nothing is saved yet.
    const bool locked = isThere && lock.acquire(pathOfLock(), lockTimeout);
    for (const VOTeamKind which : allTeams) {
        if (locked)
            finishInterrupted(which);
        all = loadTeam(which, locked, *teams[which]) && all;
    }
    return all;
}

// Only under the lock: what such a file belongs to is over then.
void SchemeStore::finishInterrupted(VOTeamKind which) const
{
    removeFile(pathOf(which, newSuffix));
    const std::string old = pathOf(which, oldSuffix);
    if (!somethingIsAt(old))
        return;
    const Found found(old);
    const bool replaced = found.isWhole() && !fileHolds(pathOf(which), found.bytes.view());
    if (!replaced || !renameOver(old, pathOf(which, lastSuffix)))
        removeFile(old);
}

bool SchemeStore::loadTeam(VOTeamKind which, bool locked, VOColorSchemeTeam &team)
{
    Known &now = known[which];
    const std::uint64_t shown = now.shown;
    now = Known();
    now.shown = shown;
    // Before the file is read: what is written meanwhile shows as a change.
    now.stamp = stampOf(pathOf(which));
    TeamContent content;
    bool good = true;
    bool asStored = false; // the bytes of the base are those of the team in memory
    Found found(pathOf(which));
    if (found.isWhole() || found.isNewer()) {
        good = found.complete;
        content = std::move(found.content);
        now.newer = found.isNewer();
        now.base = std::move(found.bytes);
        asStored = true;
        if (now.newer)
            tell(loadProblem(VOStoreProblem::NewerRelease, which, content.team, QString()));
    } else if (found.isMissing() && !somethingIsAt(pathOf(which, lastSuffix))) {
        content.team = builtInTeamOf(which);
        if (which == DefaultTeam)
            content.extras.builtIns = builtInList(content.team);
    } else {
        good = false;
        Found last(pathOf(which, lastSuffix));
        VOStoreProblem::Kind kind = VOStoreProblem::Damaged;
        content = recovered(which, found, last, kind);
        std::string aside;
        if (locked && found.read != ReadState::Unreadable)
            aside = putRecovered(which, found, last, content);
        tell(loadProblem(kind, which, content.team, shownPath(aside)));
    }
    if (which == DefaultTeam && !now.newer) {
        upgradeBuiltIns(content, builtInTeam());
        asStored = false;
    }
    now.extras = std::move(content.extras);
    team = std::move(content.team);
    now.clean = asStored ? sealOf(now.base.view()) : checksumOf(which, team);
    show(which, now.clean);
    return good;
}

// What can be had of a team whose file cannot be taken as it is.
TeamContent SchemeStore::recovered(VOTeamKind which, Found &found, Found &last,
                                   VOStoreProblem::Kind &kind) const
{
    const bool unreadable = found.read == ReadState::Unreadable;
    if (last.isWhole()) {
        kind = unreadable ? VOStoreProblem::Unreadable : VOStoreProblem::Restored;
        return std::move(last.content);
    }
    TeamContent content;
    bool knowsBuiltIns = false;
    if (found.read == ReadState::Read)
        knowsBuiltIns = salvageTeam(found.bytes.view(), content);
    if (last.read == ReadState::Read) {
        TeamContent older;
        const bool olderKnows = salvageTeam(last.bytes.view(), older);
        addMissing(content.team, older.team);
        if (olderKnows && !knowsBuiltIns)
            content.extras.builtIns = std::move(older.extras.builtIns);
        knowsBuiltIns = knowsBuiltIns || olderKnows;
    }
    kind = unreadable                    ? VOStoreProblem::Unreadable
           : content.team.groups.empty() ? VOStoreProblem::Damaged
                                         : VOStoreProblem::PartlyLost;
    if (content.team.groups.empty())
        content.team = builtInTeamOf(which);
    // Its name may be among what was lost.
    if (content.team.name == L"")
        content.team.name = toVOString(teamKey(which));
    // Without the list nobody knows what the user deleted: nothing is offered again.
    if (which == DefaultTeam && !knowsBuiltIns)
        content.extras.builtIns = builtInList(builtInTeam());
    return content;
}

// Sets the damaged files aside and makes what was recovered the team's file. If any of it fails,
// all stays as it is: the next load or save will try again. Where a damaged file is now.
std::string SchemeStore::putRecovered(VOTeamKind which, Found &found, Found &last,
                                      const TeamContent &content)
{
    const std::string path = pathOf(which);
    const std::string fresh = pathOf(which, newSuffix);
    ByteBuffer bytes;
    if (last.isWhole())
        bytes.append(last.bytes.view());
    else if (!encodeTeam(content.team, content.extras, bytes))
        return std::string();
    if (!writeSynced(fresh, bytes.view(), path))
        return std::string();
    std::string asides[2];
    bool aside = true;
    if (found.isDamaged()) {
        asides[0] = setAside(path, found);
        aside = !asides[0].empty();
    }
    if (aside && last.isDamaged()) {
        asides[1] = setAside(pathOf(which, lastSuffix), last);
        aside = !asides[1].empty();
    }
    const std::string &told = asides[asides[0].empty() ? 1 : 0];
    if (!aside || !renameOver(fresh, path) || !syncFolder(folder)) {
        removeFile(fresh);
        return told;
    }
    if (last.isDamaged())
        removeFile(pathOf(which, lastSuffix));
    known[which].base = std::move(bytes);
    known[which].stamp = stampOf(path);
    return told;
}

// Gives the damaged thing a name that nothing has in the folder of such things; empty on failure.
// A file keeps its old name besides, until it is replaced.
std::string SchemeStore::setAside(const std::string &path, const Found &found) const
{
    const std::string damaged = folder + "/damaged";
    if (!makeFolder(damaged))
        return std::string();
    const std::string start = damaged + path.substr(path.rfind('/')) + '.';
    int number = 1;
    while (somethingIsAt(start + std::to_string(number)))
        ++number;
    std::string aside = start + std::to_string(number);
    const bool done =
        found.read == ReadState::NotAFile ? renameOver(path, aside) : linkAs(path, aside);
    return done && syncFolder(damaged) ? aside : std::string();
}

} // namespace VTObjects
