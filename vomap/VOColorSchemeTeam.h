#pragma once

#include "vomap/VOColorSchemeGroup.h"

#include <vector>

namespace VTObjects {

/// A named list of groups. A plain record with value semantics.
class VOMAP_EXPORT VOColorSchemeTeam
{
public:
    VOColorSchemeTeam();
    VOColorSchemeTeam(const VOColorSchemeTeam &other);
    VOColorSchemeTeam(VOColorSchemeTeam &&other) noexcept;
    VOColorSchemeTeam &operator=(const VOColorSchemeTeam &other);
    VOColorSchemeTeam &operator=(VOColorSchemeTeam &&other) noexcept;
    ~VOColorSchemeTeam();

    /// True if a group of exactly this name exists.
    bool contains(const VOString &name) const;
    /// The position of the first group of exactly this name, or -1.
    int index(const VOString &name) const;

    VOString name;
    std::vector<VOColorSchemeGroup> groups; ///< in display order
};

} // namespace VTObjects
