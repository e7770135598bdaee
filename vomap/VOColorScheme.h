#pragma once

#include "vobase/VOString.h"
#include "vomap/vomap_export.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace VTObjects {

class VOColorRamp;

/// One colour scheme: a named ramp with an author and a description. A plain record with value
/// semantics: a copy owns a clone of the ramp, and the record deletes its ramp when it goes.
class VOMAP_EXPORT VOColorScheme
{
public:
    VOColorScheme();
    VOColorScheme(const VOColorScheme &other);
    // Inline, because erasing from a vector of schemes is nothing but moves.
    VOColorScheme(VOColorScheme &&other) noexcept
        : name(std::move(other.name))
        , author(std::move(other.author))
        , describe(std::move(other.describe))
        , colorRamp(std::exchange(other.colorRamp, nullptr))
        , unknownFields(std::move(other.unknownFields))
        , origin(other.origin)
    {
    }
    VOColorScheme &operator=(const VOColorScheme &other);
    /// The two ramps change places.
    VOColorScheme &operator=(VOColorScheme &&other) noexcept
    {
        name = std::move(other.name);
        author = std::move(other.author);
        describe = std::move(other.describe);
        std::swap(colorRamp, other.colorRamp);
        unknownFields = std::move(other.unknownFields);
        origin = other.origin;
        return *this;
    }
    ~VOColorScheme();

    VOString name; ///< unique within its group
    VOString author;
    VOString describe;
    /// Owned by the record; may be null. Whoever stores another ramp deletes this one first.
    VOColorRamp *colorRamp = nullptr;
    /// What a later release of the library stored beside the fields above: kept through copies,
    /// written back by the store, not for anyone else. Null where there is nothing.
    std::shared_ptr<const std::string> unknownFields;
    /// In a copy that is being edited: which scheme of the store it was (VOColorSchemeMoves). Kept
    /// through copies of the record; whoever makes another scheme of it sets 0, as it is everywhere
    /// else. Not saved.
    std::uint32_t origin = 0;
};

} // namespace VTObjects
