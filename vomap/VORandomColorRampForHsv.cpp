#include "vomap/VORandomColorRampForHsv.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <random>

namespace VTObjects {

VORandomColorRampForHsv::VORandomColorRampForHsv() = default;

VORandomColorRampForHsv::~VORandomColorRampForHsv() = default;

namespace {

rgb_color<float> fromHsv(double hue, double saturation, double value)
{
    const auto component = [=](double n) {
        const double k = std::fmod(n + hue / 60.0, 6.0);
        const double fall = std::max(0.0, std::min({k, 4.0 - k, 1.0}));
        return static_cast<float>(255.0 * (value - value * saturation * fall));
    };
    return rgb_color<float>(component(5.0), component(3.0), component(1.0));
}

} // namespace

bool VORandomColorRampForHsv::split(unsigned int count)
{
    if (count > static_cast<unsigned int>(std::numeric_limits<int>::max() / 16))
        return false;
    QVector<rgb_color<float>> output;
    try {
        output.resize(static_cast<int>(count));
    } catch (const std::bad_alloc &) {
        return false;
    }
    const auto degrees = [](int value) { return value > 360 ? value % 360 : std::max(value, 0); };
    const auto percent = [](int value) { return std::clamp(value, 0, 100); };
    const auto [lowH, highH] = std::minmax({degrees(minH), degrees(maxH)});
    const auto [lowS, highS] = std::minmax({percent(minS), percent(maxS)});
    const auto [lowV, highV] = std::minmax({percent(minV), percent(maxV)});
    std::mt19937 generator(static_cast<std::mt19937::result_type>(seed));
    const auto drawn = [&generator](int low, int high) {
        return low + (high - low) * (generator() / 4294967295.0);
    };
    for (rgb_color<float> &color : output) {
        const double hue = drawn(lowH, highH);
        const double saturation = drawn(lowS, highS) / 100.0;
        color = fromHsv(hue, saturation, drawn(lowV, highV) / 100.0);
    }
    colors = output;
    return true;
}

VOColorRamp *VORandomColorRampForHsv::clone()
{
    return new VORandomColorRampForHsv(*this);
}

VOColorRamp::ColorRampType VORandomColorRampForHsv::category()
{
    return RandomHsvRamp;
}

} // namespace VTObjects
