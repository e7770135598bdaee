#include "vomap/VOColorSchemeMoves.h"

#include "vomap/VOStringConversion.h"
#include "vomap/store/teamMerge_p.h"

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

} // namespace

VOColorSchemeMoves::VOColorSchemeMoves(Teams &copies)
    : origins(1)
{
    for (const VOTeamKind kind : allTeams) {
        for (VOColorSchemeGroup &group : copies[kind].groups) {
            group.origin = static_cast<std::uint32_t>(origins.size());
            origins.push_back({group.name, 0, kind});
            for (VOColorScheme &scheme : group.schemes) {
                scheme.origin = static_cast<std::uint32_t>(origins.size());
                origins.push_back({scheme.name, group.origin, kind});
            }
        }
    }
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
        const Origin &origin = origins[i];
        if (origin.group == 0)
            continue;
        if (origin.group != group) {
            group = origin.group;
            isGroup = origins[group].name == was.group;
        }
        if (isGroup && origin.team == team && origin.name == was.scheme && number-- == 0)
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
    for (const VOTeamKind kind : allTeams) {
        for (const VOColorSchemeGroup &group : (*edited)[kind].groups) {
            for (const VOColorScheme &scheme : group.schemes) {
                if (scheme.origin != origin)
                    continue;
                const VOColorSchemeId now{toVOString(teamKey(kind)), group.name, scheme.name};
                // Those before it that the same id would name.
                for (const VOColorSchemeGroup &other : (*edited)[kind].groups) {
                    if (other.name != group.name)
                        continue;
                    for (const VOColorScheme &each : other.schemes) {
                        if (&each == &scheme)
                            return now;
                        number += each.name == scheme.name ? 1 : 0;
                    }
                }
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
        if (origins[i].team == team && origins[i].group == 0 && origins[i].name == was &&
            number-- == 0)
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
    for (const VOTeamKind kind : allTeams) {
        for (const VOColorSchemeGroup &group : (*edited)[kind].groups) {
            if (group.origin != 0)
                origins[group.origin] = {group.name, 0, kind};
            for (const VOColorScheme &scheme : group.schemes) {
                if (scheme.origin != 0)
                    origins[scheme.origin] = {scheme.name, group.origin, kind};
            }
        }
    }
    edited = nullptr;
}

} // namespace VTObjects
