#include "tests/support/SchemeFaults.h"

#include "vomap/VOEvenColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"

#include <cmath>
#include <memory>

using namespace VTObjects;

namespace {

constexpr unsigned int leastColors = 2;
constexpr unsigned int mostColors = 256;
constexpr int mostSeed = 100000;
constexpr int fullTurn = 360;
constexpr int fullPercent = 100;

bool areWhole(const QVector<rgb_color<float>> &colors)
{
    const auto isWhole = [](float value) { return std::floor(value) == value; };
    for (const rgb_color<float> &color : colors) {
        if (!isWhole(color.red) || !isWhole(color.green) || !isWhole(color.blue))
            return false;
    }
    return true;
}

bool areBounds(int low, int high, int most)
{
    return low >= 0 && low <= high && high <= most;
}

QVector<rgb_color<float>> listOf(VOColorRamp &ramp)
{
    QVector<rgb_color<float>> colors;
    for (unsigned int i = 0; i < ramp.getLevel(); ++i)
        colors.append(ramp.getColor(i));
    return colors;
}

bool isEqual(const rgb_color<float> &one, const rgb_color<float> &other)
{
    return one.red == other.red && one.green == other.green && one.blue == other.blue;
}

} // namespace

QString faultOf(const VOColorScheme &scheme)
{
    if (scheme.name == L"" || scheme.author == L"" || scheme.describe == L"")
        return QStringLiteral("an empty text");
    VOColorRamp *ramp = scheme.colorRamp;
    if (!ramp)
        return QStringLiteral("no ramp");
    if (ramp->getLevel() < leastColors || ramp->getLevel() > mostColors)
        return QStringLiteral("too few or too many colors");
    const QVector<rgb_color<float>> colors = listOf(*ramp);
    if (!areWhole(colors))
        return QStringLiteral("a color with a fraction");
    if (auto *even = dynamic_cast<VOEvenColorRamp *>(ramp)) {
        if (even->sourceColorList().size() < int(leastColors))
            return QStringLiteral("too few source colors");
        if (!areWhole(even->sourceColorList()))
            return QStringLiteral("a source color with a fraction");
    }
    if (auto *random = dynamic_cast<VORandomColorRamp *>(ramp);
        random && (random->seed < 0 || random->seed > mostSeed))
        return QStringLiteral("a seed out of range");
    if (auto *bounded = dynamic_cast<VORandomColorRampForHsv *>(ramp)) {
        // The generator wraps a hue above 360 for itself and swaps bounds in the wrong order: such
        // bounds say another range than they seem to.
        if (!areBounds(bounded->minH, bounded->maxH, fullTurn) ||
            !areBounds(bounded->minS, bounded->maxS, fullPercent) ||
            !areBounds(bounded->minV, bounded->maxV, fullPercent))
            return QStringLiteral("bounds out of range or order");
        if (!bounded->paramsChanged)
            return QStringLiteral("bounds that nobody chose");
    }
    const std::unique_ptr<VOColorRamp> again(ramp->clone());
    if (!again->split(ramp->getLevel()))
        return QStringLiteral("a ramp that cannot be split");
    const QVector<rgb_color<float>> made = listOf(*again);
    if (!std::equal(made.begin(), made.end(), colors.begin(), colors.end(), isEqual))
        return QStringLiteral("other colors than its parameters give");
    return QString();
}
