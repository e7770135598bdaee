#pragma once

#include "vobase/VOString.h"
#include "vomap/vomap_export.h"

namespace VTObjects {

class VOColorRamp;

/// One colour scheme: a named ramp with an author and a description. A plain record with value
/// semantics: a copy owns a clone of the ramp, and the record deletes its ramp when it goes.
class VOMAP_EXPORT VOColorScheme
{
public:
    VOColorScheme();
    VOColorScheme(const VOColorScheme &other);
    /// Leaves `other` without a ramp.
    VOColorScheme(VOColorScheme &&other) noexcept;
    VOColorScheme &operator=(const VOColorScheme &other);
    VOColorScheme &operator=(VOColorScheme &&other) noexcept;
    ~VOColorScheme();

    VOString name; ///< unique within its group
    VOString author;
    VOString describe;
    /// Owned by the record; may be null. Whoever stores another ramp deletes this one first.
    VOColorRamp *colorRamp = nullptr;
};

} // namespace VTObjects
