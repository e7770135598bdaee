#include "vomap/store/HostGroups_p.h"

#include "vomap/VOTeamKind.h"

#include <algorithm>
#include <utility>

namespace VTObjects {

bool HostGroups::contains(const VOString &name) const
{
    return std::find(m_names.begin(), m_names.end(), name) != m_names.end();
}

bool HostGroups::add(const VOColorSchemeGroup &group, const QString &caption,
                     VOColorSchemeTeam &team)
{
    const bool isOurs = std::any_of(builtInGroups.begin(), builtInGroups.end(),
                                    [&group](const char *key) { return group.name == key; });
    if (group.name == L"" || isOurs || contains(group.name))
        return false;
    m_names.push_back(group.name);
    groups.push_back(group);
    if (!caption.isEmpty())
        setCaption(group.name, caption);
    takeFrom(team);
    putInto(team);
    return true;
}

void HostGroups::putInto(VOColorSchemeTeam &team) const
{
    takeFrom(team);
    team.groups.insert(team.groups.end(), groups.begin(), groups.end());
}

std::vector<VOColorSchemeGroup> HostGroups::takeFrom(VOColorSchemeTeam &team) const
{
    const auto first = std::stable_partition(
        team.groups.begin(), team.groups.end(),
        [this](const VOColorSchemeGroup &group) { return !contains(group.name); });
    std::vector<VOColorSchemeGroup> taken(std::make_move_iterator(first),
                                          std::make_move_iterator(team.groups.end()));
    team.groups.erase(first, team.groups.end());
    return taken;
}

HostGroups::Aside::Aside(const HostGroups &hosts, VOColorSchemeTeam &team)
    : hosts(hosts)
    , team(team)
{
    if (!hosts.names().empty())
        kept = hosts.takeFrom(team);
}

HostGroups::Aside::~Aside()
{
    for (std::size_t i = 0; i < hosts.groups.size(); ++i) {
        const auto found =
            std::find_if(kept.begin(), kept.end(), [&](const VOColorSchemeGroup &group) {
                return group.name == hosts.m_names[i];
            });
        if (found != kept.end())
            team.groups.push_back(std::move(*found));
        else
            team.groups.push_back(hosts.groups[i]);
    }
}

} // namespace VTObjects
