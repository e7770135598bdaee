#include "vomap/VOColorScheme.h"

#include "vomap/VOColorRamp.h"

#include <utility>

namespace VTObjects {

VOColorScheme::VOColorScheme() = default;

VOColorScheme::VOColorScheme(const VOColorScheme &other)
    : name(other.name)
    , author(other.author)
    , describe(other.describe)
    , colorRamp(other.colorRamp ? other.colorRamp->clone() : nullptr)
{
}

VOColorScheme::VOColorScheme(VOColorScheme &&other) noexcept
    : name(std::move(other.name))
    , author(std::move(other.author))
    , describe(std::move(other.describe))
    , colorRamp(std::exchange(other.colorRamp, nullptr))
{
}

VOColorScheme &VOColorScheme::operator=(const VOColorScheme &other)
{
    // The clone comes first: other may be this record.
    *this = VOColorScheme(other);
    return *this;
}

VOColorScheme &VOColorScheme::operator=(VOColorScheme &&other) noexcept
{
    if (this != &other) {
        name = std::move(other.name);
        author = std::move(other.author);
        describe = std::move(other.describe);
        delete colorRamp;
        colorRamp = std::exchange(other.colorRamp, nullptr);
    }
    return *this;
}

VOColorScheme::~VOColorScheme()
{
    delete colorRamp;
}

} // namespace VTObjects
