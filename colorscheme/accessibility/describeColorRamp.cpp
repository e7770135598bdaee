#include "colorscheme/accessibility/describeColorRamp_p.h"

#include "colorscheme/model/colorConversion.h"
#include "vomap/VOColorRamp.h"

#include <QColor>
#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>

using VTObjects::toQColor;
using VTObjects::VOColorRamp;

namespace vtcontrolcolorscheme {

namespace {

constexpr char translationContext[] = "describeColorRamp";

struct NamedColor
{
    const char *name;
    int red;
    int green;
    int blue;
};

// A name that covers a wide field stands several times. Few names on purpose: a listener has to
// tell them apart.
constexpr NamedColor namedColors[] = {
    {QT_TRANSLATE_NOOP("describeColorRamp", "black"), 0, 0, 0},
    {QT_TRANSLATE_NOOP("describeColorRamp", "dark gray"), 75, 75, 75},
    {QT_TRANSLATE_NOOP("describeColorRamp", "gray"), 130, 130, 130},
    {QT_TRANSLATE_NOOP("describeColorRamp", "pale gray"), 205, 205, 205},
    {QT_TRANSLATE_NOOP("describeColorRamp", "white"), 255, 255, 255},
    {QT_TRANSLATE_NOOP("describeColorRamp", "dark red"), 120, 10, 15},
    {QT_TRANSLATE_NOOP("describeColorRamp", "dark red"), 190, 55, 50},
    {QT_TRANSLATE_NOOP("describeColorRamp", "red"), 235, 25, 25},
    {QT_TRANSLATE_NOOP("describeColorRamp", "red"), 245, 75, 60},
    {QT_TRANSLATE_NOOP("describeColorRamp", "pale red"), 245, 150, 140},
    {QT_TRANSLATE_NOOP("describeColorRamp", "pink"), 250, 105, 180},
    {QT_TRANSLATE_NOOP("describeColorRamp", "pale pink"), 255, 205, 220},
    {QT_TRANSLATE_NOOP("describeColorRamp", "dark brown"), 80, 45, 20},
    {QT_TRANSLATE_NOOP("describeColorRamp", "brown"), 145, 85, 40},
    {QT_TRANSLATE_NOOP("describeColorRamp", "pale brown"), 205, 165, 120},
    {QT_TRANSLATE_NOOP("describeColorRamp", "dark orange"), 210, 100, 15},
    {QT_TRANSLATE_NOOP("describeColorRamp", "orange"), 252, 150, 35},
    {QT_TRANSLATE_NOOP("describeColorRamp", "pale orange"), 253, 205, 150},
    {QT_TRANSLATE_NOOP("describeColorRamp", "dark yellow"), 175, 150, 25},
    {QT_TRANSLATE_NOOP("describeColorRamp", "yellow"), 255, 235, 40},
    {QT_TRANSLATE_NOOP("describeColorRamp", "pale yellow"), 255, 248, 190},
    {QT_TRANSLATE_NOOP("describeColorRamp", "olive green"), 110, 120, 35},
    {QT_TRANSLATE_NOOP("describeColorRamp", "yellow green"), 165, 215, 50},
    {QT_TRANSLATE_NOOP("describeColorRamp", "dark green"), 10, 85, 35},
    {QT_TRANSLATE_NOOP("describeColorRamp", "green"), 45, 160, 65},
    {QT_TRANSLATE_NOOP("describeColorRamp", "green"), 0, 235, 30},
    {QT_TRANSLATE_NOOP("describeColorRamp", "pale green"), 180, 230, 165},
    {QT_TRANSLATE_NOOP("describeColorRamp", "dark turquoise"), 0, 105, 105},
    {QT_TRANSLATE_NOOP("describeColorRamp", "turquoise"), 50, 195, 185},
    {QT_TRANSLATE_NOOP("describeColorRamp", "turquoise"), 0, 255, 255},
    {QT_TRANSLATE_NOOP("describeColorRamp", "pale turquoise"), 190, 238, 235},
    {QT_TRANSLATE_NOOP("describeColorRamp", "dark blue"), 10, 30, 110},
    {QT_TRANSLATE_NOOP("describeColorRamp", "dark blue"), 0, 0, 135},
    {QT_TRANSLATE_NOOP("describeColorRamp", "blue"), 20, 30, 240},
    {QT_TRANSLATE_NOOP("describeColorRamp", "blue"), 45, 100, 205},
    {QT_TRANSLATE_NOOP("describeColorRamp", "sky blue"), 85, 165, 230},
    {QT_TRANSLATE_NOOP("describeColorRamp", "pale blue"), 175, 210, 240},
    {QT_TRANSLATE_NOOP("describeColorRamp", "dark violet"), 75, 20, 125},
    {QT_TRANSLATE_NOOP("describeColorRamp", "violet"), 140, 65, 205},
    {QT_TRANSLATE_NOOP("describeColorRamp", "pale violet"), 210, 185, 235},
    {QT_TRANSLATE_NOOP("describeColorRamp", "dark purple"), 120, 15, 95},
    {QT_TRANSLATE_NOOP("describeColorRamp", "purple"), 200, 35, 175},
};

using Lab = std::array<double, 3>;

double linear(int component)
{
    const double value = component / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double labCurve(double value)
{
    constexpr double delta = 6.0 / 29.0;
    return value > delta * delta * delta ? std::cbrt(value)
                                         : value / (3 * delta * delta) + 4.0 / 29.0;
}

Lab toLab(int red, int green, int blue)
{
    const double r = linear(red);
    const double g = linear(green);
    const double b = linear(blue);
    // The rows of the sRGB matrix, each divided by its component of the D65 white point.
    const double x = labCurve((0.4124 * r + 0.3576 * g + 0.1805 * b) / 0.9505);
    const double y = labCurve(0.2126 * r + 0.7152 * g + 0.0722 * b);
    const double z = labCurve((0.0193 * r + 0.1192 * g + 0.9505 * b) / 1.0890);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double squaredDistance(const Lab &left, const Lab &right)
{
    double sum = 0;
    for (std::size_t i = 0; i < left.size(); ++i)
        sum += (left[i] - right[i]) * (left[i] - right[i]);
    return sum;
}

QString translated(const char *source)
{
    return QCoreApplication::translate(translationContext, source);
}

} // namespace

QString describeColor(const QColor &color)
{
    const Lab wanted = toLab(color.red(), color.green(), color.blue());
    // A long list describes thousands of colours at once.
    static const std::array<Lab, std::size(namedColors)> places = [] {
        std::array<Lab, std::size(namedColors)> result = {};
        std::transform(std::begin(namedColors), std::end(namedColors), result.begin(),
                       [](const NamedColor &c) { return toLab(c.red, c.green, c.blue); });
        return result;
    }();
    const char *name = "";
    double nearest = std::numeric_limits<double>::max();
    for (std::size_t i = 0; i < places.size(); ++i) {
        const double distance = squaredDistance(wanted, places[i]);
        if (distance < nearest) {
            nearest = distance;
            name = namedColors[i].name;
        }
    }
    return translated(name);
}

QString describeColorRamp(VOColorRamp *ramp)
{
    const unsigned int count = ramp ? ramp->getLevel() : 0;
    if (count == 0)
        return translated(QT_TRANSLATE_NOOP("describeColorRamp", "No colors"));
    const QString first = describeColor(toQColor(ramp->getColor(0)));
    if (count == 1)
        return translated(QT_TRANSLATE_NOOP("describeColorRamp", "1 color, %1")).arg(first);

    const QString middle = describeColor(toQColor(ramp->getColor((count - 1) / 2)));
    const QString last = describeColor(toQColor(ramp->getColor(count - 1)));
    if (middle != first && middle != last) {
        return translated(
                   QT_TRANSLATE_NOOP("describeColorRamp", "%1 colors, from %2 through %3 to %4"))
            .arg(QString::number(count), first, middle, last);
    }
    if (first != last) {
        return translated(QT_TRANSLATE_NOOP("describeColorRamp", "%1 colors, from %2 to %3"))
            .arg(QString::number(count), first, last);
    }
    return translated(QT_TRANSLATE_NOOP("describeColorRamp", "%1 colors, all %2"))
        .arg(QString::number(count), first);
}

} // namespace vtcontrolcolorscheme
