#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace VTObjects {

class VOColorScheme;

/// The text of a scheme file (.vcs); docs/file-formats.md has its grammar.

constexpr std::string_view schemeFormat = "vtcontrolcolorscheme.scheme";
constexpr int schemeSchema = 1;
constexpr std::size_t maxSchemeText = 4'194'304; ///< bytes, 4 MiB
constexpr std::size_t maxSchemeColors = 100000;  ///< in one list

/// The names of the ramp kinds, at the positions of their numbers.
constexpr std::string_view rampKinds[] = {"random", "randomHsv", "even", "predefined"};
/// The bounds of the HSV kind, in the order of its fields.
constexpr std::string_view boundNames[] = {"minH", "maxH", "minS", "maxS", "minV", "maxV"};

/// Why a text is no scheme.
struct SchemeFault
{
    enum Kind {
        None,
        Empty,
        TooLong,
        Foreign,   ///< something else than a scheme file
        Newer,     ///< of a schema that this release does not know
        Damaged,   ///< at `line`
        Incomplete ///< without the member `missing`
    };

    Kind kind = None;
    int line = 0;                  ///< from 1
    std::string_view missing = {}; ///< a literal
};

/// False for a scheme without a ramp, with a ramp of a foreign class, or too long for a reader.
bool writeSchemeText(const VOColorScheme &scheme, std::string &text);
/// False, with `scheme` as it was, if the text is not one whole scheme in every respect; `fault`,
/// if any, tells why.
bool readSchemeText(std::string_view text, VOColorScheme &scheme, SchemeFault *fault = nullptr);

} // namespace VTObjects
