#include "vomap/VORandomColorRamp.h"

#include <limits>
#include <new>
#include <random>

namespace VTObjects {

VORandomColorRamp::VORandomColorRamp() = default;

VORandomColorRamp::~VORandomColorRamp() = default;

bool VORandomColorRamp::split(unsigned int count)
{
    if (count > static_cast<unsigned int>(std::numeric_limits<int>::max() / 16))
        return false;
    QVector<rgb_color<float>> output;
    try {
        output.resize(static_cast<int>(count));
    } catch (const std::bad_alloc &) {
        return false;
    }
    std::mt19937 generator(static_cast<std::mt19937::result_type>(seed));
    for (rgb_color<float> &color : output) {
        const auto bits = generator();
        color = rgb_color<float>(float((bits >> 16) & 0xFF), float((bits >> 8) & 0xFF),
                                 float(bits & 0xFF));
    }
    colors = output;
    return true;
}

VOColorRamp *VORandomColorRamp::clone()
{
    return new VORandomColorRamp(*this);
}

VOColorRamp::ColorRampType VORandomColorRamp::category()
{
    return RandomRamp;
}

void VORandomColorRamp::setSeed(int seed)
{
    this->seed = seed;
}

} // namespace VTObjects
