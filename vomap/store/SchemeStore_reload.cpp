// What other processes save while this one runs, and what is told of it all.
#include "vomap/VOStringConversion.h"
#include "vomap/store/SchemeStoreFound_p.h"
#include "vomap/store/SchemeStore_p.h"
#include "vomap/store/builtInSchemes_p.h"
#include "vomap/store/teamMerge_p.h"

#include <algorithm>
#include <utility>

namespace VTObjects {

bool SchemeStore::reload(const StoreFolder &place, const Teams &teams)
{
    // What lies in a folder that was never loaded is no change of what is here.
    if (folder.empty() || folder != place.path)
        return false;
    const bool before = std::exchange(news, false);
    for (const VOTeamKind which : allTeams) {
        if (isReplaced(which))
            reloadTeam(which, *teams[which]);
    }
    return std::exchange(news, news || before);
}

// Whether somebody else wrote the file. One that is gone is no change: the next save brings it
// back.
bool SchemeStore::isReplaced(VOTeamKind which)
{
    Known &now = known[which];
    const std::string path = pathOf(which);
    const FileStamp stamp = stampOf(path);
    if (!stamp.exists || (now.stamp.isSettled && stamp == now.stamp))
        return false;
    now.stamp = stamp;
    return now.base.size() == 0 || !fileHolds(path, now.base.view());
}

void SchemeStore::reloadTeam(VOTeamKind which, VOColorSchemeTeam &team)
{
    Known &now = known[which];
    Found found(pathOf(which));
    if (found.isMissing())
        return;
    if (!found.isWhole() && !found.isNewer()) {
        // What is here is all there is. The next save sets the file aside, or says why it cannot.
        tell(found.read == ReadState::Unreadable
                 ? loadProblem(VOStoreProblem::Unreadable, which, team, QString())
                 : replacedProblem(which, team, QString()));
        return;
    }
    if (found.isNewer())
        tell(loadProblem(VOStoreProblem::NewerRelease, which, found.content.team, QString()));
    TeamContent theirs = std::move(found.content);
    if (which == DefaultTeam && !found.isNewer())
        upgradeBuiltIns(theirs, builtInTeam());
    const bool changedHere = checksumOf(which, team) != now.clean;
    TeamContent base;
    bool complete = false;
    if (now.base.size() == 0 && which == DefaultTeam)
        base.team = builtInTeam(); // nothing was there when this process began
    else if (decodeTeam(now.base.view(), base, complete) == TeamFileState::Damaged)
        base = TeamContent();
    TeamExtras mine = std::exchange(now.extras, theirs.extras);
    if (which == DefaultTeam)
        now.extras.builtIns = joinedLists(mine.builtIns, theirs.extras.builtIns);
    now.newer = found.isNewer();
    now.base = std::move(found.bytes);
    now.clean = checksumOf(which, theirs.team);
    team = changedHere ? mergedTeam(base.team, team, theirs.team) : std::move(theirs.team);
    show(which, changedHere ? checksumOf(which, team) : now.clean);
}

// Of the team as a save would write it now; 0 for one that no file can hold.
std::uint64_t SchemeStore::checksumOf(VOTeamKind which, const VOColorSchemeTeam &team) const
{
    ByteBuffer bytes;
    return encodeTeam(team, known[which].extras, bytes) ? sealOf(bytes.view()) : 0;
}

void SchemeStore::show(VOTeamKind which, std::uint64_t checksum)
{
    news = news || known[which].shown != checksum;
    known[which].shown = checksum;
}

// What is found again stands there once; two damaged files are two.
void SchemeStore::tell(VOStoreProblem problem)
{
    if (problem.path.isEmpty())
        forget(problem.kind, problem.team);
    problems.push_back(std::move(problem));
}

void SchemeStore::forget(VOStoreProblem::Kind kind, const VOString &team)
{
    const auto isIt = [&](const VOStoreProblem &problem) {
        const bool hasFile = kind != VOStoreProblem::FolderMissing && !problem.path.isEmpty();
        return problem.kind == kind && problem.team == team && !hasFile;
    };
    problems.erase(std::remove_if(problems.begin(), problems.end(), isIt), problems.end());
}

} // namespace VTObjects
