#include "vomap/store/SchemeStore_p.h"

#include "vomap/VOStringConversion.h"
#include "vomap/store/SchemeStoreFound_p.h"
#include "vomap/store/builtInSchemes_p.h"
#include "vomap/store/teamMerge_p.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace VTObjects {

struct SchemeStore::Work
{
    VOTeamKind which = DefaultTeam;
    const VOColorSchemeTeam *team = nullptr;
    ByteBuffer bytes;  // to be written
    ByteBuffer base;   // the team as it is in memory, if that is not what is written
    TeamExtras extras; // as written
    std::unique_ptr<Found> damaged;
    std::string aside; // where the damaged thing went
    bool linked = false;
    bool renamed = false;
    bool replaces = false; // a good file, which becomes the last good copy
    bool changes = false;  // that file holds something else
    std::string kept;      // the file's place in the history
};

bool SchemeStore::save(const StoreFolder &place, const std::vector<Saving> &savings)
{
    reason.clear();
    try {
        if (write(place, savings))
            return true;
    } catch (const std::exception &) { // there is too little memory
        fail(StoreFailure::OutOfMemory);
    }
    tellFailure(savings);
    return false;
}

bool SchemeStore::write(const StoreFolder &place, const std::vector<Saving> &savings)
{
    if (folder != place.path) {
        // What was loaded elsewhere says nothing about what is there.
        for (Known &each : known) {
            each.base.clear();
            each.stamp = FileStamp();
            each.clean = 0;
        }
        folder = place.path;
    }
    if (folder.empty())
        return fail(StoreFailure::NoSuchFolder);
    if (place.mustExist && !somethingIsAt(folder))
        return fail(StoreFailure::FolderMissing);
    if (!makeFolder(folder))
        return fail(StoreFailure::FolderRefused);
    FolderLock lock;
    if (!lock.acquire(pathOfLock(), lockTimeout))
        return fail(lock.isTaken() ? StoreFailure::LockTaken : StoreFailure::LockRefused);
    std::vector<Work> works(savings.size());
    for (std::size_t i = 0; i < savings.size(); ++i) {
        works[i].which = savings[i].which;
        works[i].team = savings[i].team;
        works[i].bytes = std::move(known[works[i].which].spare);
        finishInterrupted(works[i].which);
        if (!prepare(works[i]))
            return false;
    }
    if (!commit(works))
        return false;
    for (Work &work : works) {
        Known &now = known[work.which];
        const bool merged = work.base.size() > 0;
        now.spare = std::move(now.base);
        now.base = std::move(merged ? work.base : work.bytes);
        now.extras = std::move(work.extras);
        now.newer = false;
        // What others saved is on disk and not here: the next reload has to look.
        now.stamp = merged ? FileStamp() : stampOf(pathOf(work.which));
        now.clean = sealOf(now.base.view());
        show(work.which, now.clean);
        forget(VOStoreProblem::NotSaved, toVOString(teamKey(work.which)));
        if (work.damaged)
            tell(replacedProblem(work.which, *work.team, shownPath(work.aside)));
    }
    return true;
}

bool SchemeStore::fail(StoreFailure why)
{
    const bool systemKnows = why == StoreFailure::FolderRefused ||
                             why == StoreFailure::LockRefused || why == StoreFailure::WriteRefused;
    reason = reasonOf(why, systemKnows ? systemReason() : QString());
    return false;
}

// Of the teams that were to be saved, those that hold something new; all if none does.
void SchemeStore::tellFailure(const std::vector<Saving> &savings)
{
    std::vector<Saving> waiting;
    for (const Saving &saving : savings) {
        forget(VOStoreProblem::NotSaved, toVOString(teamKey(saving.which)));
        const std::uint64_t checksum = checksumOf(saving.which, *saving.team);
        if (checksum != known[saving.which].clean)
            waiting.push_back(saving);
        show(saving.which, checksum);
    }
    for (const Saving &saving : waiting.empty() ? savings : waiting)
        tell(notSavedProblem(saving.which, *saving.team, reason));
}

// Decides what to write, from what is on disk.
bool SchemeStore::prepare(Work &work)
{
    const Known &now = known[work.which];
    const std::string path = pathOf(work.which);
    const auto put = [this](bool encoded) { return encoded || fail(StoreFailure::Unwritable); };
    work.extras = now.extras;
    if (work.which == DefaultTeam && work.extras.builtIns.empty())
        work.extras.builtIns = builtInList(builtInTeam());
    if (now.base.size() > 0 && fileHolds(path, now.base.view())) {
        if (now.newer)
            return fail(StoreFailure::Newer);
        work.replaces = true;
        const bool encoded = put(encodeTeam(*work.team, work.extras, work.bytes));
        work.changes = encoded && work.bytes.view() != now.base.view();
        return encoded;
    }
    auto found = std::make_unique<Found>(path);
    if (found->read == ReadState::Unreadable)
        return fail(StoreFailure::Unreadable);
    if (found->isNewer())
        return fail(StoreFailure::Newer);
    if (found->isMissing())
        return put(encodeTeam(*work.team, work.extras, work.bytes));
    if (found->isWhole()) {
        work.replaces = true;
        const bool merged = put(merge(work, found->content));
        work.changes = merged && work.bytes.view() != found->bytes.view();
        return merged;
    }
    // What is left of it is joined with what was known of it, so that a loss is not a deletion.
    TeamContent theirs;
    TeamContent base;
    bool complete = false;
    if (found->read == ReadState::Read)
        salvageTeam(found->bytes.view(), theirs);
    if (decodeTeam(now.base.view(), base, complete) == TeamFileState::Whole)
        addMissing(theirs.team, base.team);
    work.damaged = std::move(found);
    return put(merge(work, theirs));
}

bool SchemeStore::merge(Work &work, const TeamContent &theirs) const
{
    TeamContent base;
    bool complete = false;
    if (decodeTeam(known[work.which].base.view(), base, complete) != TeamFileState::Whole)
        base = TeamContent();
    if (!encodeTeam(*work.team, work.extras, work.base))
        return false;
    if (!theirs.extras.teamFields.empty())
        work.extras.teamFields = theirs.extras.teamFields;
    if (!theirs.extras.otherRecords.empty())
        work.extras.otherRecords = theirs.extras.otherRecords;
    if (work.which == DefaultTeam)
        work.extras.builtIns = joinedLists(work.extras.builtIns, theirs.extras.builtIns);
    return encodeTeam(mergedTeam(base.team, *work.team, theirs.team), work.extras, work.bytes);
}

// Up to the sync of the folder everything can be undone, and is when something fails. From there
// on the save counts; what then cannot be tidied, the next load or save tidies.
bool SchemeStore::commit(std::vector<Work> &works)
{
    StoreHistory history(folder); // looks at its folder, so before the system has a reason to tell
    const bool written = std::all_of(works.begin(), works.end(), [this](const Work &work) {
        return writeSynced(pathOf(work.which, newSuffix), work.bytes.view(), pathOf(work.which));
    });
    bool done = written &&
                std::all_of(works.begin(), works.end(), [this](Work &work) { return link(work); });
    for (Work &work : works) {
        if (done)
            keepState(work, history);
        done = done && renameOver(pathOf(work.which, newSuffix), pathOf(work.which));
        work.renamed = done;
    }
    if (!done || !syncFolder(folder)) {
        fail(StoreFailure::WriteRefused); // first, while the system knows why
        rollBack(works);
        return false;
    }
    for (const Work &work : works) {
        if (work.replaces)
            renameOver(pathOf(work.which, oldSuffix), pathOf(work.which, lastSuffix));
        else
            removeFile(pathOf(work.which, oldSuffix));
    }
    history.prune(historyLimits);
    static_cast<void>(syncFolder(folder));
    return true;
}

// A state less in the history is not worth failing a save for.
void SchemeStore::keepState(Work &work, StoreHistory &history) const
{
    if (work.replaces && work.changes && historyLimits.states > 0)
        work.kept = history.keep(work.which, pathOf(work.which));
}

// Keeps what is about to be replaced under a second name.
bool SchemeStore::link(Work &work) const
{
    const std::string path = pathOf(work.which);
    if (work.damaged) {
        work.aside = setAside(path, *work.damaged);
        if (work.aside.empty())
            return false;
        if (work.damaged->read == ReadState::NotAFile)
            return true;
    } else if (!work.replaces) {
        return true;
    }
    work.linked = linkAs(path, pathOf(work.which, oldSuffix));
    return work.linked;
}

void SchemeStore::rollBack(std::vector<Work> &works) const
{
    for (Work &work : works) {
        const std::string path = pathOf(work.which);
        const std::string old = pathOf(work.which, oldSuffix);
        if (work.renamed)
            putBack(work.linked ? old : std::string(), path);
        if (work.damaged && !work.linked && !work.aside.empty())
            putBack(work.aside, path); // a folder, which has no second name
        removeFile(old);
        removeFile(pathOf(work.which, newSuffix));
        if (!work.kept.empty())
            removeFile(work.kept);
    }
    static_cast<void>(syncFolder(folder));
}

} // namespace VTObjects
