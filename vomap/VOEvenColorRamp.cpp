#include "vomap/VOEvenColorRamp.h"

#include <cmath>
#include <limits>
#include <new>

namespace VTObjects {

VOEvenColorRamp::VOEvenColorRamp() = default;

VOEvenColorRamp::~VOEvenColorRamp() = default;

namespace {

rgb_color<float> between(rgb_color<float> from, rgb_color<float> to, double t)
{
    const auto mixed = [t](float a, float b) {
        return static_cast<float>(std::floor(a + (double(b) - double(a)) * t + 0.5));
    };
    return rgb_color<float>(mixed(from.red, to.red), mixed(from.green, to.green),
                            mixed(from.blue, to.blue));
}

} // namespace

bool VOEvenColorRamp::split(unsigned int count)
{
    if (count > static_cast<unsigned int>(std::numeric_limits<int>::max() / 16))
        return false;
    QVector<rgb_color<float>> output;
    try {
        output.resize(static_cast<int>(count));
    } catch (const std::bad_alloc &) {
        return false;
    }
    const int last = sourceColors.size() - 1;
    for (int i = 0; i < output.size() && last >= 0; ++i) {
        const qint64 scaled = qint64(i) * last;
        const qint64 steps = output.size() > 1 ? output.size() - 1 : 1;
        const int segment = static_cast<int>(scaled / steps);
        const qint64 rest = scaled % steps;
        output[i] = rest == 0 ? sourceColors.at(segment)
                              : between(sourceColors.at(segment), sourceColors.at(segment + 1),
                                        double(rest) / double(steps));
    }
    colors = output;
    return true;
}

VOColorRamp *VOEvenColorRamp::clone()
{
    return new VOEvenColorRamp(*this);
}

VOColorRamp::ColorRampType VOEvenColorRamp::category()
{
    return EvenRamp;
}

bool VOEvenColorRamp::setSourceColor(long count, rgb_color<float> *colors)
{
    if (count < 0 || count > std::numeric_limits<int>::max() / 16 || (count > 0 && !colors))
        return false;
    QVector<rgb_color<float>> sources;
    sources.reserve(static_cast<int>(count));
    for (long i = 0; i < count; ++i)
        sources.append(clamped(colors[i]));
    sourceColors = sources;
    return true;
}

rgb_color<float> VOEvenColorRamp::getSourceColor(int index)
{
    return index >= 0 && index < sourceColors.size() ? sourceColors.at(index) : rgb_color<float>();
}

unsigned int VOEvenColorRamp::getSourceColorCount()
{
    return static_cast<unsigned int>(sourceColors.size());
}

} // namespace VTObjects
