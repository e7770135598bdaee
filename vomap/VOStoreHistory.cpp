#include "vomap/VOStoreHistory.h"

#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vomap/files/TeamFile_p.h"
#include "vomap/files/fileSystem_p.h"
#include "vomap/store/HostGroups_p.h"
#include "vomap/store/NamedIndex_p.h"
#include "vomap/store/SchemeStore_p.h"

#include <QFile>

#include <algorithm>
#include <exception>
#include <limits>

namespace VTObjects {

namespace {

constexpr std::uint64_t anyLength = std::numeric_limits<std::int64_t>::max();

// Want of memory is a failure like any other: nothing is thrown out of here.
template <typename Action>
bool succeeds(Action action)
{
    try {
        return action();
    } catch (const std::exception &) {
        return false;
    }
}

template <typename Named>
typename std::vector<Named>::const_iterator findNamed(const std::vector<Named> &list,
                                                      const VOString &name)
{
    return std::find_if(list.begin(), list.end(),
                        [&](const Named &named) { return named.name == name; });
}

// The list's own element of that name, or a new one at its end.
template <typename Named>
Named &placeFor(std::vector<Named> &list, const Named &named)
{
    const auto at = findNamed(list, named.name);
    if (at != list.end())
        return list[static_cast<std::size_t>(at - list.begin())];
    list.emplace_back();
    return list.back();
}

} // namespace

VOTeamDifference teamDifference(const VOColorSchemeTeam &earlier, const VOColorSchemeTeam &later)
{
    VOTeamDifference difference;
    const NamedIndex<VOColorSchemeGroup> before(earlier.groups);
    const NamedIndex<VOColorSchemeGroup> after(later.groups);
    static const std::vector<VOColorScheme> none;
    const auto id = [&](const NamedKey &group, const NamedKey &scheme) {
        return VOColorSchemeId{later.name, group.first, scheme.first};
    };
    // Every group of both, the later ones first: in the order in which a person sees them.
    std::vector<NamedKey> keys = after.inOrder();
    for (const NamedKey &key : before.inOrder()) {
        if (!after.find(key))
            keys.push_back(key);
    }
    for (const NamedKey &key : keys) {
        const VOColorSchemeGroup *const then = before.find(key);
        const VOColorSchemeGroup *const now = after.find(key);
        const NamedIndex<VOColorScheme> old(then ? then->schemes : none);
        const NamedIndex<VOColorScheme> present(now ? now->schemes : none);
        for (const NamedKey &scheme : present.inOrder()) {
            const VOColorScheme *const was = old.find(scheme);
            if (!was)
                difference.added.push_back(id(key, scheme));
            else if (schemeChecksum(*was) != schemeChecksum(*present.find(scheme)))
                difference.changed.push_back(id(key, scheme));
        }
        for (const NamedKey &scheme : old.inOrder()) {
            if (!present.find(scheme))
                difference.removed.push_back(id(key, scheme));
        }
    }
    return difference;
}

VOStoreHistory::VOStoreHistory(VOColorSchemeManager &store)
    : store(&store)
{
}

std::vector<VOSavedState> VOStoreHistory::states(VOTeamKind team) const
{
    std::vector<VOSavedState> result;
    succeeds([&] {
        const StoreHistory history(store->store->directory());
        for (const StoreHistory::State &each : history.states()) {
            if (each.which != team)
                continue;
            VOSavedState state;
            state.team = each.which;
            state.number = each.number;
            state.saved = QDateTime::fromMSecsSinceEpoch(each.saved, Qt::UTC);
            state.size = each.size;
            state.path = toVOString(QFile::decodeName(each.path.c_str()));
            result.push_back(std::move(state));
        }
        return true;
    });
    return result;
}

bool VOStoreHistory::read(const VOSavedState &state, VOColorSchemeTeam &team) const
{
    return succeeds([&] {
        ByteBuffer bytes;
        TeamContent content;
        bool complete = false;
        if (readWholeFile(nativePath(state.path), anyLength, bytes) != ReadState::Read ||
            decodeTeam(bytes.view(), content, complete) != TeamFileState::Whole)
            return false;
        team = std::move(content.team);
        return true;
    });
}

bool VOStoreHistory::restoreTeam(const VOSavedState &state)
{
    return succeeds([&] {
        // What a host has added is not of the user's store, and stays.
        const HostGroups::Aside aside(*store->hosts, store->defaultTeam);
        return read(state, store->team(state.team));
    });
}

bool VOStoreHistory::restoreGroup(const VOSavedState &state, const VOString &group)
{
    return succeeds([&] {
        VOColorSchemeTeam then;
        if (!read(state, then))
            return false;
        const auto wanted = findNamed(then.groups, group);
        if (wanted == then.groups.end())
            return false;
        placeFor(store->team(state.team).groups, *wanted) = *wanted;
        return true;
    });
}

bool VOStoreHistory::restoreScheme(const VOSavedState &state, const VOString &group,
                                   const VOString &scheme)
{
    return succeeds([&] {
        VOColorSchemeTeam then;
        if (!read(state, then))
            return false;
        const auto from = findNamed(then.groups, group);
        if (from == then.groups.end())
            return false;
        const auto wanted = findNamed(from->schemes, scheme);
        if (wanted == from->schemes.end())
            return false;
        VOColorSchemeGroup &into = placeFor(store->team(state.team).groups, *from);
        into.name = from->name;
        placeFor(into.schemes, *wanted) = *wanted;
        return true;
    });
}

void VOStoreHistory::setLimits(int states, std::uint64_t bytes)
{
    store->store->historyLimits = {std::max(states, 0), bytes};
}

int VOStoreHistory::maxStates() const
{
    return store->store->historyLimits.states;
}

std::uint64_t VOStoreHistory::maxBytes() const
{
    return store->store->historyLimits.bytes;
}

} // namespace VTObjects
