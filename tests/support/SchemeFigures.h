#pragma once

#include "tests/support/ColorJudge.h"
#include "vomap/VOColorScheme.h"

#include <QString>

#include <array>
#include <optional>
#include <vector>

/// What a built-in scheme says of itself, and what is computed from its colours.
namespace SchemeFigures {

enum Type { Sequential, Diverging, TwoSided, Cyclic, TwoPart, ElevationTint, Qualitative };

/// The first sentence of a description, in numbers.
struct Claims
{
    Type type = Sequential;
    QString typeName;
    int classes = 0; ///< as many can be told apart
    int safe = 0;    ///< as many by all readers; 0: said not to be safe
    int sources = 0; ///< 0: not fitted to an original
    double distance = 0.0;
};

/// None if the description does not follow the pattern.
std::optional<Claims> claimsOf(const QString &description);

using Colors = std::vector<ColorJudge::Triple>;
using PerVision = std::array<double, ColorJudge::VisionCount>;

/// The colours as they stand, and those of the same ramp at another length.
Colors colorsOf(const VTObjects::VOColorScheme &scheme);
Colors colorsAt(const VTObjects::VOColorScheme &scheme, int length);

double smallestPair(const Colors &colors, ColorJudge::Vision vision);
double smallestPairOfAllVisions(const Colors &colors);
/// How often L* changes its direction; reversals up to the slack do not count.
int turns(const Colors &colors, ColorJudge::Vision vision, double slack);
double lightnessRange(const Colors &colors, ColorJudge::Vision vision);
/// How far apart the first and the last colour are, in L* and in CIEDE2000.
double endsInLightness(const Colors &colors);
double ends(const Colors &colors);

/// The largest count up to which each number of classes, 3 and more, keeps every pair of classes
/// apart: in normal vision, or in all four.
int classesApart(const VTObjects::VOColorScheme &scheme, Type type, double apart, bool allVisions);

/// Most classes that a ramp claims.
constexpr int mostClasses = 12;
/// As many colours as a continuous raster shows, and what rounding does to L* there.
constexpr int smoothLength = 256;
constexpr double rounding = 0.25;
/// Two classes that are told apart; two classes of a qualitative set.
constexpr double apartEnough = 8.0;
constexpr double distinctEnough = 15.0;
constexpr double leastRange = 50.0;
constexpr double endsTogether = 8.0;
constexpr double returned = 3.0;
/// Fewer classes are not called safe.
constexpr int leastSafe = 4;

} // namespace SchemeFigures
