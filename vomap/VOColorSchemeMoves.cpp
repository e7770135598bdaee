#include "vomap/VOColorSchemeMoves.h"

#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"
#include "vomap/store/teamMerge_p.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace VTObjects {

namespace {

/// What a mark stands for: team, group and which one of its name, and the same of the scheme; no
/// name and -1 for the group itself.
using Place = std::tuple<int, std::wstring, int, std::wstring, int>;

template <typename Visit>
void visitMarks(const VOColorSchemeMoves::Teams &teams, Visit visit)
{
    for (const VOTeamKind kind : allTeams) {
        std::map<std::wstring, int> groups;
        for (const VOColorSchemeGroup &group : teams[kind].groups) {
            const int groupNumber = groups[group.name.text()]++;
            visit(group.origin, Place(kind, group.name.text(), groupNumber, std::wstring(), -1));
            std::map<std::wstring, int> schemes;
            for (const VOColorScheme &scheme : group.schemes) {
                const int number = schemes[scheme.name.text()]++;
                visit(scheme.origin,
                      Place(kind, group.name.text(), groupNumber, scheme.name.text(), number));
            }
        }
    }
}

// How many come before the scheme that the same id would name.
int numberOf(const VOColorSchemeTeam &team, const VOColorSchemeGroup &group,
             const VOColorScheme &scheme)
{
    int number = 0;
    for (const VOColorSchemeGroup &other : team.groups) {
        if (other.name != group.name)
            continue;
        for (const VOColorScheme &each : other.schemes) {
            if (&each == &scheme)
                return number;
            number += each.name == scheme.name ? 1 : 0;
        }
    }
    return number;
}

} // namespace

VOColorSchemeMoves::VOColorSchemeMoves(Teams &copies)
{
    std::size_t count = 1;
    for (const VOColorSchemeTeam &team : copies) {
        for (const VOColorSchemeGroup &group : team.groups)
            count += 1 + group.schemes.size();
    }
    origins.resize(count);
    groupOf.resize(count);
    std::uint32_t mark = 0;
    for (const VOTeamKind kind : allTeams) {
        for (VOColorSchemeGroup &group : copies[kind].groups) {
            group.origin = ++mark;
            remember(group.origin, group.name, 0, kind);
            for (VOColorScheme &scheme : group.schemes) {
                scheme.origin = ++mark;
                remember(scheme.origin, scheme.name, group.origin, kind);
            }
        }
    }
}

void VOColorSchemeMoves::remember(std::uint32_t mark, const VOString &name, std::uint32_t group,
                                  VOTeamKind team)
{
    origins[mark].name = name;
    origins[mark].team = team;
    groupOf[mark] = group;
}

VOColorSchemeMoves::~VOColorSchemeMoves() = default;

std::uint32_t VOColorSchemeMoves::originOf(const VOColorSchemeId &was, int number) const
{
    if (was.isNull())
        return 0;
    const int team = teamKindOf(toQString(was.team));
    std::uint32_t group = 0; // of the scheme before, and whether it is the one
    bool isGroup = false;
    for (std::uint32_t i = 1; i < origins.size(); ++i) {
        if (groupOf[i] != group && groupOf[i] != 0) {
            group = groupOf[i];
            isGroup = origins[group].name == was.group;
        }
        if (isGroup && groupOf[i] != 0 && origins[i].team == team &&
            origins[i].name == was.scheme && number-- == 0)
            return i;
    }
    return 0;
}

VOColorSchemeId VOColorSchemeMoves::movedTo(const VOColorSchemeId &was, int &number) const
{
    const std::uint32_t origin = originOf(was, number);
    number = 0;
    if (origin == 0 || !edited)
        return VOColorSchemeId();
    // Most schemes stay in their groups: all others are looked through only if need be.
    for (const bool inItsGroup : {true, false}) {
        for (const VOTeamKind kind : allTeams) {
            for (const VOColorSchemeGroup &group : (*edited)[kind].groups) {
                if ((group.origin == groupOf[origin]) != inItsGroup)
                    continue;
                const auto found = std::find_if(
                    group.schemes.begin(), group.schemes.end(),
                    [origin](const VOColorScheme &scheme) { return scheme.origin == origin; });
                if (found == group.schemes.end())
                    continue;
                number = numberOf((*edited)[kind], group, *found);
                return {toVOString(teamKey(kind)), group.name, found->name};
            }
        }
    }
    return VOColorSchemeId();
}

VOColorSchemeId VOColorSchemeMoves::movedTo(const VOColorSchemeId &was) const
{
    int number = 0;
    return movedTo(was, number);
}

int VOColorSchemeMoves::groupMovedTo(VOTeamKind team, const VOString &was, int number) const
{
    std::uint32_t origin = 0;
    for (std::uint32_t i = 1; i < origins.size() && origin == 0; ++i) {
        if (origins[i].team == team && groupOf[i] == 0 && origins[i].name == was && number-- == 0)
            origin = i;
    }
    if (origin == 0 || !edited)
        return -1;
    const std::vector<VOColorSchemeGroup> &groups = (*edited)[team].groups;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (groups[i].origin == origin)
            return static_cast<int>(i);
    }
    return -1;
}

VOColorSchemeMoves::Teams VOColorSchemeMoves::repeated(const Teams &before, const Teams &edited,
                                                       const Teams &now)
{
    Teams was = before;
    Teams base = now;
    const VOColorSchemeMoves marksThen(was);
    const VOColorSchemeMoves marksNow(base);
    std::map<Place, std::uint32_t> present;
    visitMarks(base, [&](std::uint32_t mark, const Place &place) { present[place] = mark; });
    std::vector<std::uint32_t> translated(marksThen.origins.size(), 0);
    visitMarks(was, [&](std::uint32_t mark, const Place &place) {
        const auto at = present.find(place);
        translated[mark] = at == present.end() ? 0 : at->second;
    });

    Teams mine = edited;
    const auto translate = [&](std::uint32_t &mark) {
        mark = mark < translated.size() ? translated[mark] : 0;
    };
    for (const VOTeamKind kind : allTeams) {
        for (VOColorSchemeGroup &group : mine[kind].groups) {
            translate(group.origin);
            for (VOColorScheme &scheme : group.schemes)
                translate(scheme.origin);
        }
        mine[kind] = mergedTeam(was[kind], mine[kind], base[kind]);
    }
    return mine;
}

// Those that are gone stay gone; what is new has no mark.
void VOColorSchemeMoves::settle()
{
    if (!edited)
        return;
    for (Origin &origin : origins)
        origin.team = -1;
    // A host can put in what it copied out of another editing.
    const auto isOurs = [this](std::uint32_t mark) { return mark != 0 && mark < origins.size(); };
    for (const VOTeamKind kind : allTeams) {
        for (const VOColorSchemeGroup &group : (*edited)[kind].groups) {
            if (!isOurs(group.origin))
                continue;
            remember(group.origin, group.name, 0, kind);
            for (const VOColorScheme &scheme : group.schemes) {
                if (isOurs(scheme.origin))
                    remember(scheme.origin, scheme.name, group.origin, kind);
            }
        }
    }
    edited = nullptr;
}

} // namespace VTObjects
