#pragma once

#include "vomap/VOColorScheme.h"

#include <vector>

namespace VTObjects {

/// A named list of schemes. A plain record with value semantics.
class VOMAP_EXPORT VOColorSchemeGroup
{
public:
    VOColorSchemeGroup();
    VOColorSchemeGroup(const VOColorSchemeGroup &other);
    VOColorSchemeGroup(VOColorSchemeGroup &&other) noexcept;
    VOColorSchemeGroup &operator=(const VOColorSchemeGroup &other);
    VOColorSchemeGroup &operator=(VOColorSchemeGroup &&other) noexcept;
    ~VOColorSchemeGroup();

    /// True if any scheme of the group has exactly this name.
    bool contains(const VOString &name) const;
    /// True if the scheme at `index` may take the name: no other scheme of the group bears it. Its
    /// own current name is no clash. An index that names no scheme excepts none.
    bool schemeNameChangeCheck(int index, const VOString &newName) const;

    VOString name;                      ///< unique within its team
    std::vector<VOColorScheme> schemes; ///< in display order
    /// As VOColorScheme::unknownFields.
    std::shared_ptr<const std::string> unknownFields;
    /// As VOColorScheme::origin.
    std::uint32_t origin = 0;
};

} // namespace VTObjects
