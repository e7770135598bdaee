#include "vomap/VOColorSchemeTeam.h"

#include <algorithm>

namespace VTObjects {

VOColorSchemeTeam::VOColorSchemeTeam() = default;

VOColorSchemeTeam::VOColorSchemeTeam(const VOColorSchemeTeam &other) = default;

VOColorSchemeTeam::VOColorSchemeTeam(VOColorSchemeTeam &&other) noexcept = default;

VOColorSchemeTeam &VOColorSchemeTeam::operator=(const VOColorSchemeTeam &other) = default;

VOColorSchemeTeam &VOColorSchemeTeam::operator=(VOColorSchemeTeam &&other) noexcept = default;

VOColorSchemeTeam::~VOColorSchemeTeam() = default;

bool VOColorSchemeTeam::contains(const VOString &name) const
{
    return index(name) >= 0;
}

int VOColorSchemeTeam::index(const VOString &name) const
{
    const auto found =
        std::find_if(groups.cbegin(), groups.cend(),
                     [&name](const VOColorSchemeGroup &group) { return group.name == name; });
    return found == groups.cend() ? -1 : static_cast<int>(found - groups.cbegin());
}

} // namespace VTObjects
