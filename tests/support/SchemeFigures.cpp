#include "tests/support/SchemeFigures.h"

#include "vomap/VOColorRamp.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <memory>

namespace SchemeFigures {

using namespace ColorJudge;
using namespace VTObjects;

namespace {

struct TypeName
{
    const char *name;
    Type type;
};

constexpr TypeName typeNames[] = {{"Sequential", Sequential},  {"Diverging", Diverging},
                                  {"Two-sided", TwoSided},     {"Cyclic", Cyclic},
                                  {"Two-part", TwoPart},       {"Elevation tint", ElevationTint},
                                  {"Qualitative", Qualitative}};

Colors listOf(VOColorRamp &ramp)
{
    Colors colors;
    for (unsigned int i = 0; i < ramp.getLevel(); ++i) {
        const rgb_color<float> color = ramp.getColor(i);
        colors.push_back({double(color.red), double(color.green), double(color.blue)});
    }
    return colors;
}

bool allApart(const Colors &colors, double apart, bool allVisions)
{
    return (allVisions ? smallestPairOfAllVisions(colors) : smallestPair(colors, NormalVision)) >=
           apart;
}

} // namespace

std::optional<Claims> claimsOf(const QString &description)
{
    static const QRegularExpression pattern(QStringLiteral(
        "^(?<type>[A-Z][a-z -]+), "
        "(?:3 to (?<most>\\d+) classes(?<again> and the first one again)?|(?<count>\\d+) classes), "
        "(?:(?<not>not )?color-blind safe(?: up to (?<upTo>\\d+) classes)?"
        "(?: in its first (?<first>\\d+))?)\\. "
        "[A-Z][^.]*?(?:; (?<sources>\\d+) colors, within (?<distance>\\d\\.\\d) of the original)?"
        "\\.$"));
    const QRegularExpressionMatch match = pattern.match(description);
    if (!match.hasMatch())
        return std::nullopt;
    Claims claims;
    claims.typeName = match.captured(QStringLiteral("type"));
    const auto *found =
        std::find_if(std::begin(typeNames), std::end(typeNames), [&](const TypeName &known) {
            return claims.typeName == QLatin1String(known.name);
        });
    if (found == std::end(typeNames))
        return std::nullopt;
    claims.type = found->type;
    const QString count = match.captured(QStringLiteral("count"));
    const QString upTo = match.captured(QStringLiteral("upTo"));
    const QString first = match.captured(QStringLiteral("first"));
    const bool closed = !match.captured(QStringLiteral("again")).isEmpty();
    // Sets have a number of classes and a beginning; ramps have a range of numbers.
    if ((claims.type == Qualitative) == count.isEmpty() || closed != (claims.type == Cyclic) ||
        (claims.type == Qualitative ? !upTo.isEmpty() : !first.isEmpty()))
        return std::nullopt;
    claims.classes = (count.isEmpty() ? match.captured(QStringLiteral("most")) : count).toInt();
    if (!match.captured(QStringLiteral("not")).isEmpty())
        claims.safe = 0;
    else if (const QString part = upTo + first; !part.isEmpty())
        claims.safe = part.toInt();
    else
        claims.safe = claims.classes;
    claims.sources = match.captured(QStringLiteral("sources")).toInt();
    claims.distance = match.captured(QStringLiteral("distance")).toDouble();
    return claims;
}

Colors colorsOf(const VOColorScheme &scheme)
{
    return listOf(*scheme.colorRamp);
}

Colors colorsAt(const VOColorScheme &scheme, int length)
{
    const std::unique_ptr<VOColorRamp> ramp(scheme.colorRamp->clone());
    return ramp->split(static_cast<unsigned int>(length)) ? listOf(*ramp) : Colors();
}

double smallestPair(const Colors &colors, Vision vision)
{
    Colors seen;
    for (const Triple &color : colors)
        seen.push_back(labSeenBy(vision, color));
    double smallest = INFINITY;
    for (size_t i = 1; i < seen.size(); ++i) {
        for (size_t j = 0; j < i; ++j)
            smallest = std::min(smallest, difference(seen[i], seen[j]));
    }
    return smallest;
}

double smallestPairOfAllVisions(const Colors &colors)
{
    double smallest = INFINITY;
    for (const Vision vision : {NormalVision, ProtanVision, DeutanVision, TritanVision})
        smallest = std::min(smallest, smallestPair(colors, vision));
    return smallest;
}

int turns(const Colors &colors, Vision vision, double slack)
{
    int count = 0;
    int direction = 0;
    double low = labSeenBy(vision, colors.front())[0];
    double high = low;
    for (const Triple &color : colors) {
        const double lightness = labSeenBy(vision, color)[0];
        if (direction >= 0 && lightness < high - slack) {
            count += direction;
            direction = -1;
            low = lightness;
        } else if (direction <= 0 && lightness > low + slack) {
            count -= direction;
            direction = 1;
            high = lightness;
        }
        low = std::min(low, lightness);
        high = std::max(high, lightness);
    }
    return count;
}

double lightnessRange(const Colors &colors, Vision vision)
{
    double low = INFINITY;
    double high = -INFINITY;
    for (const Triple &color : colors) {
        const double lightness = labSeenBy(vision, color)[0];
        low = std::min(low, lightness);
        high = std::max(high, lightness);
    }
    return high - low;
}

double endsInLightness(const Colors &colors)
{
    return std::fabs(labSeenBy(NormalVision, colors.front())[0] -
                     labSeenBy(NormalVision, colors.back())[0]);
}

double ends(const Colors &colors)
{
    return difference(labSeenBy(NormalVision, colors.front()),
                      labSeenBy(NormalVision, colors.back()));
}

int classesApart(const VOColorScheme &scheme, Type type, double apart, bool allVisions)
{
    if (type == Qualitative) {
        // A set is used from its beginning.
        Colors colors = colorsOf(scheme);
        while (colors.size() > 1 && !allApart(colors, apart, allVisions))
            colors.pop_back();
        return static_cast<int>(colors.size());
    }
    int most = 0;
    for (int count = 3; count <= mostClasses; ++count) {
        Colors colors = colorsAt(scheme, type == Cyclic ? count + 1 : count);
        colors.resize(static_cast<size_t>(count));
        if (!allApart(colors, apart, allVisions))
            break;
        most = count;
    }
    return most;
}

} // namespace SchemeFigures
