#include "vomap/VOColorSchemeMoves.h"

#include "vomap/VOStringConversion.h"

namespace VTObjects {

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
    for (std::uint32_t i = 1; i < origins.size(); ++i) {
        const Origin &origin = origins[i];
        if (origin.team == team && origin.group != 0 && origin.name == was.scheme &&
            origins[origin.group].name == was.group && number-- == 0)
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
