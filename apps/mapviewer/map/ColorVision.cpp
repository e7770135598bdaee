#include "apps/mapviewer/map/ColorVision.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace mapviewer {

namespace {

using Matrix = std::array<std::array<float, 3>, 3>;

constexpr Matrix protanMatrix = {{{{0.152286F, 1.052583F, -0.204868F}},
                                  {{0.114503F, 0.786281F, 0.099216F}},
                                  {{-0.003882F, -0.048116F, 1.051998F}}}};
constexpr Matrix deutanMatrix = {{{{0.367322F, 0.860646F, -0.227968F}},
                                  {{0.280085F, 0.672501F, 0.047413F}},
                                  {{-0.011820F, 0.042940F, 0.968881F}}}};
constexpr Matrix tritanMatrix = {{{{1.255528F, -0.076749F, -0.178779F}},
                                  {{-0.078411F, 0.930809F, 0.147602F}},
                                  {{0.004733F, 0.691367F, 0.303900F}}}};
constexpr Matrix grayMatrix = {
    {{{0.2126F, 0.7152F, 0.0722F}}, {{0.2126F, 0.7152F, 0.0722F}}, {{0.2126F, 0.7152F, 0.0722F}}}};

const Matrix &matrixOf(ColorVision vision)
{
    switch (vision) {
    case ColorVision::Protan:
        return protanMatrix;
    case ColorVision::Deutan:
        return deutanMatrix;
    case ColorVision::Tritan:
        return tritanMatrix;
    case ColorVision::Normal:
    case ColorVision::Gray:
        break;
    }
    return grayMatrix;
}

float toLinear(int component)
{
    const double c = component / 255.0;
    return float(c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4));
}

int toEncoded(double linear)
{
    const double c = std::clamp(linear, 0.0, 1.0);
    const double encoded = c <= 0.0031308 ? c * 12.92 : 1.055 * std::pow(c, 1.0 / 2.4) - 0.055;
    return int(std::lround(encoded * 255.0));
}

// A window has a million pixels, and powers are slow: both curves come from tables. The fine one
// has steps so small that even next to black an encoded value is off by one at most.
constexpr int fineSteps = 1 << 14;

struct Curves
{
    std::array<float, 256> linear;
    std::array<uchar, fineSteps + 1> encoded;

    Curves()
    {
        for (int i = 0; i < 256; ++i)
            linear[std::size_t(i)] = toLinear(i);
        for (int i = 0; i <= fineSteps; ++i)
            encoded[std::size_t(i)] = uchar(toEncoded(double(i) / fineSteps));
    }
};

} // namespace

QRgb simulated(QRgb color, ColorVision vision)
{
    if (vision == ColorVision::Normal)
        return color;
    static const Curves curves;
    const Matrix &matrix = matrixOf(vision);
    const float red = curves.linear[std::size_t(qRed(color))];
    const float green = curves.linear[std::size_t(qGreen(color))];
    const float blue = curves.linear[std::size_t(qBlue(color))];
    std::array<int, 3> seen{};
    for (std::size_t i = 0; i < seen.size(); ++i) {
        const float value = matrix[i][0] * red + matrix[i][1] * green + matrix[i][2] * blue;
        const float step = std::clamp(value, 0.0F, 1.0F) * float(fineSteps) + 0.5F;
        seen[i] = curves.encoded[std::size_t(step)];
    }
    return qRgba(seen[0], seen[1], seen[2], qAlpha(color));
}

QImage simulated(const QImage &image, ColorVision vision)
{
    QImage seen = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (vision == ColorVision::Normal)
        return seen;
    for (int y = 0; y < seen.height(); ++y) {
        auto *pixel = reinterpret_cast<QRgb *>(seen.scanLine(y));
        // Neighbours mostly have one colour: most pixels need no arithmetic.
        QRgb lastIn = 0;
        QRgb lastOut = 0;
        for (int x = 0; x < seen.width(); ++x, ++pixel) {
            if (x == 0 || *pixel != lastIn) {
                lastIn = *pixel;
                lastOut = qPremultiply(simulated(qUnpremultiply(lastIn), vision));
            }
            *pixel = lastOut;
        }
    }
    return seen;
}

} // namespace mapviewer
