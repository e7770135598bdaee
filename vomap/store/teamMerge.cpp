#include "vomap/store/teamMerge_p.h"

#include "vomap/store/NamedIndex_p.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace VTObjects {

namespace {

const std::vector<VOColorScheme> &schemesOf(const VOColorSchemeGroup *group)
{
    static const std::vector<VOColorScheme> none;
    return group ? group->schemes : none;
}

bool areEqual(const VOColorScheme &left, const VOColorScheme &right)
{
    return schemeChecksum(left) == schemeChecksum(right);
}

VOString freeName(const VOString &name, const std::set<std::wstring> &taken)
{
    for (int number = 1;; ++number) {
        std::wstring candidate = name.text() + L"_" + std::to_wstring(number);
        if (taken.count(candidate) == 0)
            return VOString(candidate);
    }
}

VOColorScheme renamed(const VOColorScheme &scheme, std::set<std::wstring> &taken)
{
    VOColorScheme copy = scheme;
    copy.name = freeName(scheme.name, taken);
    taken.insert(copy.name.text());
    return copy;
}

// The group as far as its schemes go; a null pointer for a side that does not have it.
std::vector<VOColorScheme> mergedSchemes(const VOColorSchemeGroup *base,
                                         const VOColorSchemeGroup *mine,
                                         const VOColorSchemeGroup *theirs)
{
    const NamedIndex<VOColorScheme> inBase(schemesOf(base));
    const NamedIndex<VOColorScheme> inMine(schemesOf(mine));
    const NamedIndex<VOColorScheme> inTheirs(schemesOf(theirs));
    std::set<std::wstring> taken;
    for (const NamedIndex<VOColorScheme> *index : {&inMine, &inTheirs}) {
        for (const NamedKey &key : index->inOrder())
            taken.insert(key.first);
    }

    std::vector<VOColorScheme> merged;
    for (const NamedKey &key : inMine.inOrder()) {
        const VOColorScheme *const was = inBase.find(key);
        const VOColorScheme &own = *inMine.find(key);
        const VOColorScheme *const other = inTheirs.find(key);
        const bool unchanged = was && areEqual(*was, own);
        if (!unchanged)
            merged.push_back(own); // deleted there, it stays: somebody works with it here
        else if (other)
            merged.push_back(*other);
    }
    for (const NamedKey &key : inTheirs.inOrder()) {
        const VOColorScheme *const was = inBase.find(key);
        const VOColorScheme *const own = inMine.find(key);
        const VOColorScheme &other = *inTheirs.find(key);
        if (was && areEqual(*was, other))
            continue;
        if (!own)
            merged.push_back(other);
        else if (!areEqual(*own, other) && !(was && areEqual(*was, *own)))
            merged.push_back(renamed(other, taken));
    }
    return merged;
}

} // namespace

VOColorSchemeTeam mergedTeam(const VOColorSchemeTeam &base, const VOColorSchemeTeam &mine,
                             const VOColorSchemeTeam &theirs)
{
    const NamedIndex<VOColorSchemeGroup> inBase(base.groups);
    const NamedIndex<VOColorSchemeGroup> inMine(mine.groups);
    const NamedIndex<VOColorSchemeGroup> inTheirs(theirs.groups);
    std::vector<NamedKey> keys = inMine.inOrder();
    for (const NamedKey &key : inTheirs.inOrder()) {
        if (!inMine.find(key))
            keys.push_back(key);
    }

    VOColorSchemeTeam merged;
    merged.name = mine.name;
    for (const NamedKey &key : keys) {
        const VOColorSchemeGroup *const was = inBase.find(key);
        const VOColorSchemeGroup *const own = inMine.find(key);
        const VOColorSchemeGroup *const other = inTheirs.find(key);
        VOColorSchemeGroup group;
        group.name = key.first;
        group.unknownFields = own && own->unknownFields ? own->unknownFields
                              : other                   ? other->unknownFields
                                                        : nullptr;
        group.origin = own ? own->origin : other ? other->origin : 0;
        group.schemes = mergedSchemes(was, own, other);
        const bool kept = (own && other) || !was;
        if (kept || !group.schemes.empty())
            merged.groups.push_back(std::move(group));
    }
    return merged;
}

void addMissing(VOColorSchemeTeam &team, const VOColorSchemeTeam &source)
{
    for (const VOColorSchemeGroup &group : source.groups) {
        int at = team.index(group.name);
        if (at < 0) {
            at = static_cast<int>(team.groups.size());
            team.groups.emplace_back();
            team.groups.back().name = group.name;
            team.groups.back().unknownFields = group.unknownFields;
        }
        VOColorSchemeGroup &target = team.groups[static_cast<std::size_t>(at)];
        std::set<std::wstring> taken;
        for (const VOColorScheme &scheme : target.schemes)
            taken.insert(scheme.name.text());
        for (const VOColorScheme &scheme : group.schemes) {
            if (taken.count(scheme.name.text()) == 0)
                target.schemes.push_back(scheme);
        }
    }
}

std::vector<BuiltInScheme> builtInList(const VOColorSchemeTeam &builtIn)
{
    std::vector<BuiltInScheme> list;
    for (const VOColorSchemeGroup &group : builtIn.groups) {
        for (const VOColorScheme &scheme : group.schemes)
            list.push_back({group.name, scheme.name, schemeChecksum(scheme)});
    }
    return list;
}

std::vector<BuiltInScheme> joinedLists(const std::vector<BuiltInScheme> &mine,
                                       const std::vector<BuiltInScheme> &theirs)
{
    std::map<std::pair<std::wstring, std::wstring>, std::uint64_t> all;
    for (const std::vector<BuiltInScheme> *list : {&theirs, &mine}) {
        for (const BuiltInScheme &scheme : *list)
            all[{scheme.group, scheme.scheme}] = scheme.checksum;
    }
    std::vector<BuiltInScheme> joined;
    joined.reserve(all.size());
    for (const auto &[name, checksum] : all)
        joined.push_back({name.first, name.second, checksum});
    return joined;
}

void upgradeBuiltIns(TeamContent &content, const VOColorSchemeTeam &builtIn)
{
    using Name = std::pair<std::wstring, std::wstring>;
    std::map<Name, std::uint64_t> listed;
    std::set<std::wstring> listedGroups;
    for (const BuiltInScheme &scheme : content.extras.builtIns) {
        listed[Name(scheme.group, scheme.scheme)] = scheme.checksum;
        listedGroups.insert(scheme.group);
    }
    VOColorSchemeTeam &team = content.team;
    for (const VOColorSchemeGroup &group : builtIn.groups) {
        if (!team.contains(group.name) && listedGroups.count(group.name.text()) == 0) {
            team.groups.emplace_back();
            team.groups.back().name = group.name;
        }
        const int at = team.index(group.name);
        if (at < 0)
            continue; // deleted as a whole
        std::vector<VOColorScheme> &schemes = team.groups[static_cast<std::size_t>(at)].schemes;
        std::set<std::wstring> taken;
        for (const VOColorScheme &scheme : schemes)
            taken.insert(scheme.name.text());
        for (const VOColorScheme &scheme : group.schemes) {
            const auto was = listed.find(Name(group.name.text(), scheme.name.text()));
            const auto own = std::find_if(
                schemes.begin(), schemes.end(),
                [&scheme](const VOColorScheme &present) { return present.name == scheme.name; });
            const bool present = own != schemes.end();
            if (was != listed.end()) {
                if (present && schemeChecksum(*own) == was->second)
                    *own = scheme;
            } else if (!present) {
                schemes.push_back(scheme);
            } else if (!areEqual(*own, scheme)) {
                schemes.push_back(renamed(scheme, taken));
            }
        }
    }
    // What an older release did not know stays on the list, or the newer one would offer it again.
    for (const BuiltInScheme &scheme : builtInList(builtIn))
        listed[Name(scheme.group, scheme.scheme)] = scheme.checksum;
    content.extras.builtIns.clear();
    for (const auto &[name, checksum] : listed)
        content.extras.builtIns.push_back({name.first, name.second, checksum});
}

} // namespace VTObjects
