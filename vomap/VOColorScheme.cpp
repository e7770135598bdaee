#include "vomap/VOColorScheme.h"

#include "vomap/VOColorRamp.h"

namespace VTObjects {

VOColorScheme::VOColorScheme() = default;

VOColorScheme::VOColorScheme(const VOColorScheme &other)
    : name(other.name)
    , author(other.author)
    , describe(other.describe)
    , colorRamp(other.colorRamp ? other.colorRamp->clone() : nullptr)
    , unknownFields(other.unknownFields)
    , origin(other.origin)
{
}

VOColorScheme &VOColorScheme::operator=(const VOColorScheme &other)
{
    // The clone comes first: other may be this record.
    *this = VOColorScheme(other);
    return *this;
}

VOColorScheme::~VOColorScheme()
{
    delete colorRamp;
}

} // namespace VTObjects
