#include "tests/support/ColorJudge.h"

#include <algorithm>
#include <cmath>

namespace ColorJudge {
namespace {

using Matrix = std::array<Triple, 3>;

constexpr double degree = 0.017453292519943295;

// sRGB to XYZ, each row divided by its sum, so that white is exactly (1, 1, 1).
constexpr Matrix xyzOfRgb = {
    {{0.4124564 / 0.9504700, 0.3575761 / 0.9504700, 0.1804375 / 0.9504700},
     {0.2126729, 0.7151522, 0.0721750},
     {0.0193339 / 1.0888300, 0.1191920 / 1.0888300, 0.9503041 / 1.0888300}}};

constexpr Matrix protan = {{{0.152286, 1.052583, -0.204868},
                            {0.114503, 0.786281, 0.099216},
                            {-0.003882, -0.048116, 1.051998}}};
constexpr Matrix deutan = {{{0.367322, 0.860646, -0.227968},
                            {0.280085, 0.672501, 0.047413},
                            {-0.011820, 0.042940, 0.968881}}};

// Brettel's two half planes for tritan, taken from cone space to linear sRGB: the confusion line
// is the blue cone's axis, the plane between the halves holds the greys.
constexpr Matrix tritanOneSide = {
    {{1.01277, 0.13548, -0.14826}, {-0.01243, 0.86812, 0.14431}, {0.07589, 0.80500, 0.11911}}};
constexpr Matrix tritanOtherSide = {
    {{0.93678, 0.18979, -0.12657}, {0.06154, 0.81526, 0.12320}, {-0.37562, 1.12767, 0.24796}}};
constexpr Triple tritanPlane = {0.03901, -0.02788, -0.01113};

double dot(const Triple &a, const Triple &b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Triple times(const Matrix &m, const Triple &v)
{
    return {dot(m[0], v), dot(m[1], v), dot(m[2], v)};
}

double labCurve(double t)
{
    constexpr double knee = 216.0 / 24389.0;
    return t > knee ? std::cbrt(t) : (24389.0 / 27.0 * t + 16.0) / 116.0;
}

double hueDegrees(double a, double b)
{
    if (a == 0.0 && b == 0.0)
        return 0.0;
    const double angle = std::atan2(b, a) / degree;
    return angle < 0.0 ? angle + 360.0 : angle;
}

} // namespace

Triple linearLight(const Triple &rgb)
{
    Triple linear;
    for (size_t i = 0; i < 3; ++i) {
        const double c = rgb[i] / 255.0;
        linear[i] = c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    }
    return linear;
}

Triple encoded(const Triple &linear)
{
    Triple rgb;
    for (size_t i = 0; i < 3; ++i) {
        const double c = linear[i];
        rgb[i] = 255.0 * (c <= 0.0031308 ? 12.92 * c : 1.055 * std::pow(c, 1.0 / 2.4) - 0.055);
    }
    return rgb;
}

Triple seenUncutBy(Vision vision, const Triple &linear)
{
    switch (vision) {
    case ProtanVision:
        return times(protan, linear);
    case DeutanVision:
        return times(deutan, linear);
    case TritanVision:
        return times(dot(tritanPlane, linear) >= 0.0 ? tritanOneSide : tritanOtherSide, linear);
    case NormalVision:
    case VisionCount:
        break;
    }
    return linear;
}

Triple seenBy(Vision vision, const Triple &linear)
{
    Triple seen = seenUncutBy(vision, linear);
    for (double &c : seen)
        c = std::clamp(c, 0.0, 1.0);
    return seen;
}

Triple labOf(const Triple &linear)
{
    const Triple xyz = times(xyzOfRgb, linear);
    const double x = labCurve(xyz[0]);
    const double y = labCurve(xyz[1]);
    const double z = labCurve(xyz[2]);
    return {116.0 * y - 16.0, 500.0 * (x - y), 200.0 * (y - z)};
}

Triple labSeenBy(Vision vision, const Triple &rgb)
{
    return labOf(seenBy(vision, linearLight(rgb)));
}

double difference(const Triple &lab1, const Triple &lab2)
{
    constexpr double pow25to7 = 6103515625.0;
    const double meanC = (std::hypot(lab1[1], lab1[2]) + std::hypot(lab2[1], lab2[2])) / 2.0;
    const double meanC7 = std::pow(meanC, 7.0);
    const double g = 0.5 * (1.0 - std::sqrt(meanC7 / (meanC7 + pow25to7)));
    const double a1 = (1.0 + g) * lab1[1];
    const double a2 = (1.0 + g) * lab2[1];
    const double c1 = std::hypot(a1, lab1[2]);
    const double c2 = std::hypot(a2, lab2[2]);
    const double h1 = hueDegrees(a1, lab1[2]);
    const double h2 = hueDegrees(a2, lab2[2]);

    const bool gray = c1 * c2 == 0.0;
    double hueStep = 0.0;
    double meanH = h1 + h2;
    if (!gray) {
        hueStep = h2 - h1;
        if (hueStep > 180.0)
            hueStep -= 360.0;
        else if (hueStep < -180.0)
            hueStep += 360.0;
        if (std::fabs(h1 - h2) > 180.0)
            meanH += meanH < 360.0 ? 360.0 : -360.0;
        meanH /= 2.0;
    }
    const double dL = lab2[0] - lab1[0];
    const double dC = c2 - c1;
    const double dH = 2.0 * std::sqrt(c1 * c2) * std::sin(hueStep / 2.0 * degree);
    const double meanL = (lab1[0] + lab2[0]) / 2.0;
    const double meanCp = (c1 + c2) / 2.0;

    const double t = 1.0 - 0.17 * std::cos((meanH - 30.0) * degree) +
                     0.24 * std::cos(2.0 * meanH * degree) +
                     0.32 * std::cos((3.0 * meanH + 6.0) * degree) -
                     0.20 * std::cos((4.0 * meanH - 63.0) * degree);
    const double bump = (meanH - 275.0) / 25.0;
    const double turn = 30.0 * std::exp(-bump * bump);
    const double c7 = std::pow(meanCp, 7.0);
    const double rC = 2.0 * std::sqrt(c7 / (c7 + pow25to7));
    const double l50 = (meanL - 50.0) * (meanL - 50.0);
    const double sL = 1.0 + 0.015 * l50 / std::sqrt(20.0 + l50);
    const double sC = 1.0 + 0.045 * meanCp;
    const double sH = 1.0 + 0.015 * meanCp * t;
    const double rT = -std::sin(2.0 * turn * degree) * rC;
    const double l = dL / sL;
    const double c = dC / sC;
    const double h = dH / sH;
    return std::sqrt(l * l + c * c + h * h + rT * c * h);
}

} // namespace ColorJudge
