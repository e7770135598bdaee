#include "vomap/VOColorSchemeGroup.h"

#include <algorithm>

namespace VTObjects {

VOColorSchemeGroup::VOColorSchemeGroup() = default;

VOColorSchemeGroup::VOColorSchemeGroup(const VOColorSchemeGroup &other) = default;

VOColorSchemeGroup::VOColorSchemeGroup(VOColorSchemeGroup &&other) noexcept = default;

VOColorSchemeGroup &VOColorSchemeGroup::operator=(const VOColorSchemeGroup &other) = default;

VOColorSchemeGroup &VOColorSchemeGroup::operator=(VOColorSchemeGroup &&other) noexcept = default;

VOColorSchemeGroup::~VOColorSchemeGroup() = default;

bool VOColorSchemeGroup::contains(const VOString &name) const
{
    return std::any_of(schemes.cbegin(), schemes.cend(),
                       [&name](const VOColorScheme &scheme) { return scheme.name == name; });
}

bool VOColorSchemeGroup::schemeNameChangeCheck(int index, const VOString &newName) const
{
    const VOColorScheme *const own = index >= 0 && static_cast<std::size_t>(index) < schemes.size()
                                         ? &schemes[static_cast<std::size_t>(index)]
                                         : nullptr;
    return std::none_of(schemes.cbegin(), schemes.cend(), [&](const VOColorScheme &scheme) {
        return &scheme != own && scheme.name == newName;
    });
}

} // namespace VTObjects
