#include "vomap/generate/fixedPointColor_p.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace VTObjects::FixedPointColor {

namespace {

using Row = std::array<std::int64_t, 3>;
using Matrix = std::array<Row, 3>;
using Linear = std::array<std::int64_t, 3>;

// IEC 61966-2-1; each row divided by its sum, the white point D65.
constexpr Matrix xyzOfRgb = {{{factor(0.4339499), factor(0.3762098), factor(0.1898403)},
                              {factor(0.2126729), factor(0.7151522), factor(0.0721749)},
                              {factor(0.0177566), factor(0.1094680), factor(0.8727754)}}};

// Machado, Oliveira and Fernandes 2009, severity 1.0.
constexpr Matrix protan = {{{factor(0.152286), factor(1.052583), factor(-0.204868)},
                            {factor(0.114503), factor(0.786281), factor(0.099216)},
                            {factor(-0.003882), factor(-0.048116), factor(1.051998)}}};
constexpr Matrix deutan = {{{factor(0.367322), factor(0.860646), factor(-0.227968)},
                            {factor(0.280085), factor(0.672501), factor(0.047413)},
                            {factor(-0.011820), factor(0.042940), factor(0.968881)}}};

// Brettel, Vienot and Mollon 1997: two half planes, divided by a plane through the greys.
constexpr Matrix tritanOneSide = {{{factor(1.01277), factor(0.13548), factor(-0.14826)},
                                   {factor(-0.01243), factor(0.86812), factor(0.14431)},
                                   {factor(0.07589), factor(0.80500), factor(0.11911)}}};
constexpr Matrix tritanOtherSide = {{{factor(0.93678), factor(0.18979), factor(-0.12657)},
                                     {factor(0.06154), factor(0.81526), factor(0.12320)},
                                     {factor(-0.37562), factor(1.12767), factor(0.24796)}}};
constexpr Row tritanPlane = {factor(0.03901), factor(-0.02788), factor(-0.01113)};

std::int64_t dot(const Row &row, const Linear &light)
{
    return row[0] * light[0] + row[1] * light[1] + row[2] * light[2];
}

Linear cut(const Matrix &matrix, const Linear &light)
{
    Linear result;
    for (std::size_t i = 0; i < 3; ++i)
        result[i] = std::clamp<std::int64_t>(dot(matrix[i], light) >> factorBits, 0, linearOne);
    return result;
}

Linear seenBy(Vision vision, const Linear &light)
{
    switch (vision) {
    case NormalVision:
        break;
    case ProtanVision:
        return cut(protan, light);
    case DeutanVision:
        return cut(deutan, light);
    case TritanVision:
        return cut(dot(tritanPlane, light) >= 0 ? tritanOneSide : tritanOtherSide, light);
    }
    return light;
}

// A smooth function on 0..intervals*2^stepBits, straight between its nodes.
template <std::size_t intervals, int stepBits>
class Curve
{
public:
    template <typename Function>
    explicit Curve(Function valueAt)
    {
        for (std::size_t i = 0; i <= intervals; ++i)
            nodes[i] = static_cast<std::int32_t>(valueAt(static_cast<std::int64_t>(i) << stepBits));
    }
    std::int64_t operator()(std::int64_t x) const
    {
        const auto limited =
            std::clamp<std::int64_t>(x, 0, (std::int64_t(intervals) << stepBits) - 1);
        const auto i = static_cast<std::size_t>(limited >> stepBits);
        const std::int64_t rest = limited & ((std::int64_t(1) << stepBits) - 1);
        return nodes[i] + (((nodes[i + 1] - nodes[i]) * rest) >> stepBits);
    }

private:
    std::array<std::int32_t, intervals + 1> nodes{};
};

// Natural logarithm of value / 2^30 (one or more), with 30 fraction bits.
std::int64_t logarithm(std::int64_t value)
{
    constexpr std::int64_t ln2 = 744261118; // ln 2 * 2^30
    std::int64_t whole = 0;
    while (value >= std::int64_t(2) << 30) {
        value >>= 1;
        ++whole;
    }
    std::int64_t binary = whole << 30;
    for (int bit = 29; bit >= 0; --bit) {
        value = (value * value) >> 30;
        if (value >= std::int64_t(2) << 30) {
            value >>= 1;
            binary += std::int64_t(1) << bit;
        }
    }
    return ((binary >> 4) * ln2) >> 26;
}

// e to the power of -value / 2^28, with 28 fraction bits; value from 0 to 16 * 2^28.
std::int64_t fallingExponential(std::int64_t value)
{
    const std::int64_t x = value >> 6;
    const std::int64_t x2 = (x * x) >> 28;
    const std::int64_t x3 = (x2 * x) >> 28;
    const std::int64_t x4 = (x3 * x) >> 28;
    std::int64_t result = (std::int64_t(1) << 28) - x + x2 / 2 - x3 / 6 + x4 / 24;
    for (int i = 0; i < 6; ++i)
        result = (result * result) >> 28;
    return result;
}

// Sine of angle / 2^32 of a turn, with 28 fraction bits.
std::int64_t sine(std::uint32_t angle)
{
    constexpr std::uint32_t quarter = 1U << 30;
    const bool negative = angle >= 2 * quarter;
    std::int64_t x = angle & (2 * quarter - 1);
    if (x > quarter)
        x = 2 * std::int64_t(quarter) - x;
    constexpr std::int64_t halfPi = 421657428; // pi / 2 * 2^28
    x = (x * halfPi) >> 30;
    const std::int64_t x2 = (x * x) >> 28;
    std::int64_t term = x;
    std::int64_t sum = x;
    for (std::int64_t n = 2; n <= 12; n += 2) {
        term = -((term * x2) >> 28) / (n * (n + 1));
        sum += term;
    }
    return negative ? -sum : sum;
}

std::int64_t cosine(std::uint32_t angle)
{
    return sine(angle + (1U << 30));
}

constexpr std::uint32_t degrees(std::uint32_t whole)
{
    return static_cast<std::uint32_t>((std::uint64_t(whole) << 32) / 360);
}

// The angle of a direction as a fraction of 2^32, by turning it onto the first axis in halving
// steps (Volder's CORDIC, 1959).
std::uint32_t angleOf(std::int64_t x, std::int64_t y)
{
    constexpr std::array<std::uint32_t, 14> steps = {
        536870912, 316933406, 167458907, 85004756, 42667331, 21354465, 10679838,
        5340245,   2670163,   1335087,   667544,   333772,   166886,   83443};
    std::uint32_t angle = 0;
    if (x < 0) {
        x = -x;
        y = -y;
        angle = 1U << 31;
    }
    x *= 1 << 8;
    y *= 1 << 8;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const std::int64_t shiftedX = x >> i;
        const std::int64_t shiftedY = y >> i;
        if (y >= 0) {
            x += shiftedY;
            y -= shiftedX;
            angle += steps[i];
        } else {
            x -= shiftedY;
            y += shiftedX;
            angle -= steps[i];
        }
    }
    return angle;
}

// C^7 / (C^7 + 25^7) under the root, with 20 fraction bits; the chroma in halves.
std::int64_t saturationRoot(std::int64_t halves)
{
    std::int64_t power = 1;
    for (int i = 0; i < 7; ++i)
        power *= halves;
    constexpr std::int64_t half = 781250000000; // (2 * 25)^7
    return squareRoot((power / ((power + half) >> factorBits)) << factorBits);
}

constexpr int chromaHalves = 400; // no sRGB colour has a chroma above 150, stretched or not
constexpr int hueSteps = 1024;

struct Tables
{
    std::array<std::int64_t, 256> linear;
    Curve<4096, linearBits - 12> labCurve; // 20 fraction bits
    Curve<100, labBits> din99oLightness;
    Curve<chromaHalves, labBits - 1> din99oChroma;
    std::array<std::int64_t, chromaHalves> stretch;          // factorBits
    std::array<std::int64_t, 201> lightnessWeight;           // factorBits, by halves of L*
    std::array<std::int64_t, hueSteps> hueShape;             // 12 fraction bits
    std::array<std::int64_t, hueSteps> blueTurn;             // 12 fraction bits
    std::array<std::int64_t, chromaHalves> blueTurnByChroma; // 12 fraction bits

    Tables();
};

std::int64_t labCurveAt(std::int64_t light)
{
    constexpr std::int64_t knee = linearOne * 216 / 24389;
    if (light > knee)
        return cubeRoot(light << 36);
    return ((light * 24389 / 27 + 16 * linearOne) / 116) >> (linearBits - 20);
}

// DIN 6176: 303.67 ln(1 + 0.0039 L*)
std::int64_t din99oLightnessAt(std::int64_t lightness)
{
    const std::int64_t log = logarithm((std::int64_t(1) << 30) + (lightness << 20) * 39 / 10000);
    return (log * 30367 / 100) >> 24;
}

// The same standard: ln(1 + 0.075 G) / 0.0435
std::int64_t din99oChromaAt(std::int64_t chroma)
{
    const std::int64_t log = logarithm((std::int64_t(1) << 30) + (chroma << 20) * 75 / 1000);
    return (log * 10000 / 435) >> 24;
}

std::int64_t hueShapeAt(std::uint32_t hue)
{
    const std::int64_t sum = (std::int64_t(100) << 28) - 17 * cosine(hue - degrees(30)) +
                             24 * cosine(2 * hue) + 32 * cosine(3 * hue + degrees(6)) -
                             20 * cosine(4 * hue - degrees(63));
    return sum / 100 >> 16;
}

// sin(60 degrees * exp(-((h - 275) / 25)^2))
std::int64_t blueTurnAt(std::uint32_t hue)
{
    const auto off = std::int64_t(static_cast<std::int32_t>(hue - degrees(275)));
    const std::int64_t bump = off * 360 / 25 >> 4; // 28 fraction bits
    if (std::abs(bump) >= std::int64_t(4) << 28)
        return 0;
    const std::int64_t height = fallingExponential((bump * bump) >> 28);
    return sine(static_cast<std::uint32_t>((height * degrees(60)) >> 28)) >> 16;
}

Tables::Tables()
    : labCurve(labCurveAt)
    , din99oLightness(din99oLightnessAt)
    , din99oChroma(din99oChromaAt)
{
    for (std::size_t i = 0; i < linear.size(); ++i)
        linear[i] = linearOfHalves(2 * static_cast<int>(i));
    for (std::size_t i = 0; i < stretch.size(); ++i) {
        const std::int64_t root = saturationRoot(static_cast<std::int64_t>(i));
        stretch[i] = ((std::int64_t(1) << factorBits) - root) / 2;
        blueTurnByChroma[i] = 2 * root >> (factorBits - 12);
    }
    for (std::size_t i = 0; i < lightnessWeight.size(); ++i) {
        // 1 / (1 + 0.015 d^2 / sqrt(20 + d^2)) with d = L* - 50 in units of 2^-10
        const std::int64_t off = (static_cast<std::int64_t>(i) - 100) * 512;
        const std::int64_t square = off * off;
        const std::int64_t root = squareRoot(square + (std::int64_t(20) << 20));
        const std::int64_t weight = (1000 << 10) + 15 * (square / root);
        lightnessWeight[i] = (std::int64_t(1000) << (10 + factorBits)) / weight;
    }
    for (std::size_t i = 0; i < hueSteps; ++i) {
        const auto hue = static_cast<std::uint32_t>(i) << 22;
        hueShape[i] = hueShapeAt(hue);
        blueTurn[i] = blueTurnAt(hue);
    }
}

const Tables &tables()
{
    static const Tables instance;
    return instance;
}

} // namespace

std::int64_t squareRoot(std::int64_t value)
{
    // The library's root is only the first guess: what follows makes the answer exact.
    auto root = static_cast<std::int64_t>(std::sqrt(static_cast<double>(value)));
    while (root * root > value)
        --root;
    while ((root + 1) * (root + 1) <= value)
        ++root;
    return root;
}

std::int64_t cubeRoot(std::int64_t value)
{
    std::int64_t root = 0;
    for (int bit = 20; bit >= 0; --bit) {
        const std::int64_t tried = root | (std::int64_t(1) << bit);
        if (tried * tried * tried <= value)
            root = tried;
    }
    return root;
}

std::int64_t linearOfHalves(int twice)
{
    constexpr std::int64_t one = std::int64_t(1) << 30;
    // 0.04045 * 255 lies between 10 and 10.5; 658920 is 510 * 12.92 * 100.
    if (twice <= 20)
        return (twice * std::int64_t(100) * one / 658920 + (1 << (29 - linearBits))) >>
               (30 - linearBits);
    // x^2.4 is x^2 times the fifth root of x^2.
    const std::int64_t x = (twice * std::int64_t(1000) + 28050) * one / 538050;
    const std::int64_t square = (x * x) >> 30;
    std::int64_t root = 0;
    for (int bit = 30; bit >= 0; --bit) {
        const std::int64_t tried = root | (std::int64_t(1) << bit);
        const std::int64_t second = (tried * tried) >> 30;
        const std::int64_t fourth = (second * second) >> 30;
        if ((fourth * tried) >> 30 <= square)
            root = tried;
    }
    const std::int64_t light = (square * root) >> 30;
    return std::min((light + (1 << (29 - linearBits))) >> (30 - linearBits), linearOne);
}

std::int64_t linearOf(std::uint8_t component)
{
    return tables().linear[component];
}

Lab labSeenBy(Vision vision, Rgb8 color)
{
    const Tables &table = tables();
    const Linear light = seenBy(
        vision, {table.linear[color.red], table.linear[color.green], table.linear[color.blue]});
    const std::int64_t x = table.labCurve(dot(xyzOfRgb[0], light) >> factorBits);
    const std::int64_t y = table.labCurve(dot(xyzOfRgb[1], light) >> factorBits);
    const std::int64_t z = table.labCurve(dot(xyzOfRgb[2], light) >> factorBits);
    constexpr int down = 20 - labBits;
    const std::int64_t lightness = std::max<std::int64_t>(116 * y - (16 << 20), 0);
    return {static_cast<std::int32_t>(lightness >> down),
            static_cast<std::int32_t>((500 * (x - y)) >> down),
            static_cast<std::int32_t>((200 * (y - z)) >> down)};
}

Din99o din99oOf(Lab lab)
{
    constexpr std::int64_t cosine26 = factor(0.8987940462991670);
    constexpr std::int64_t sine26 = factor(0.4383711467890774);
    const std::int64_t e = (lab.a * cosine26 + lab.b * sine26) >> factorBits;
    const std::int64_t f = (lab.b * cosine26 - lab.a * sine26) / 100 * 83 >> factorBits;
    const std::int64_t radius = squareRoot(e * e + f * f);
    const Tables &table = tables();
    Din99o result;
    result.lightness = static_cast<std::int16_t>(table.din99oLightness(lab.lightness));
    if (radius > 0) {
        const std::int64_t chroma = table.din99oChroma(radius);
        result.a = static_cast<std::int16_t>(chroma * e / radius);
        result.b = static_cast<std::int16_t>(chroma * f / radius);
    }
    return result;
}

Appearance appearanceOf(Lab lab)
{
    const std::int64_t a = lab.a;
    const std::int64_t b = lab.b;
    const auto halves = static_cast<std::size_t>(squareRoot(a * a + b * b) >> (labBits - 1));
    const std::int64_t stretched = a + ((a * tables().stretch[halves]) >> factorBits);
    Appearance result;
    result.lightness = lab.lightness;
    result.a = static_cast<std::int32_t>(stretched);
    result.b = lab.b;
    result.chroma = static_cast<std::int32_t>(squareRoot(stretched * stretched + b * b));
    result.hue = angleOf(stretched, b);
    return result;
}

std::int64_t squaredDifference(const Appearance &first, const Appearance &second)
{
    const Tables &table = tables();
    const std::int64_t lightnessStep = second.lightness - first.lightness;
    const std::int64_t chromaStep = second.chroma - first.chroma;
    const std::int64_t aStep = second.a - first.a;
    const std::int64_t bStep = second.b - first.b;
    const auto turn = static_cast<std::int32_t>(second.hue - first.hue);
    const std::int64_t hueSquare = aStep * aStep + bStep * bStep - chromaStep * chromaStep;
    const std::int64_t hueLength = hueSquare > 0 ? squareRoot(hueSquare) : 0;
    const std::int64_t hueStep = turn < 0 ? -hueLength : hueLength;

    const std::int64_t chroma = (std::int64_t(first.chroma) + second.chroma) / 2;
    const auto chromaIndex = static_cast<std::size_t>(chroma >> (labBits - 1));
    const auto hueIndex = (first.hue + static_cast<std::uint32_t>(turn / 2)) >> 22;
    const auto lightIndex =
        static_cast<std::size_t>((first.lightness + second.lightness) >> labBits);

    constexpr std::int64_t thousand = 1000 << labBits;
    const std::int64_t l = (lightnessStep * table.lightnessWeight[lightIndex]) >> factorBits;
    const std::int64_t c = chromaStep * thousand / (thousand + 45 * chroma);
    const std::int64_t shape = table.hueShape[hueIndex];
    const std::int64_t h = hueStep * (thousand << 12) / ((thousand << 12) + 15 * chroma * shape);
    const std::int64_t rotation = table.blueTurn[hueIndex] * table.blueTurnByChroma[chromaIndex];
    return l * l + c * c + h * h - ((c * h * rotation) >> 24);
}

} // namespace VTObjects::FixedPointColor
