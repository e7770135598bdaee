#include "vomap/VOEvenColorRamp.h"

#include "vomap/generate/evenColors_p.h"
#include "vomap/generate/generatedColors_p.h"

#include <utility>

namespace VTObjects {

VOEvenColorRamp::VOEvenColorRamp() = default;

VOEvenColorRamp::~VOEvenColorRamp() = default;

bool VOEvenColorRamp::split(unsigned int count)
{
    const auto fill = [this](rgb_color<float> *first, std::size_t size) {
        fillWithEvenColors(sourceColors.constData(), static_cast<std::size_t>(sourceColors.size()),
                           first, size);
    };
    // Nothing can fail on the way, so a list of its own is written in place: fetching fresh memory
    // would take as long as the colours.
    if (count > 0 && count == getLevel() && colors.isDetached()) {
        fill(colors.data(), count);
        return true;
    }
    return generateColors(colors, count, fill);
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
    if (count < 0 || count > static_cast<long>(maxLevel) || (count > 0 && !colors))
        return false;
    QVector<rgb_color<float>> sources;
    sources.reserve(static_cast<int>(count));
    for (long i = 0; i < count; ++i)
        sources.append(clamped(colors[i]));
    sourceColors = sources;
    return true;
}

void VOEvenColorRamp::setSourceColorList(QVector<rgb_color<float>> list)
{
    sourceColors = clamped(std::move(list));
}

rgb_color<float> VOEvenColorRamp::getSourceColor(int index)
{
    return std::as_const(*this).getSourceColor(index);
}

unsigned int VOEvenColorRamp::getSourceColorCount()
{
    return std::as_const(*this).getSourceColorCount();
}

rgb_color<float> VOEvenColorRamp::getSourceColor(int index) const
{
    return index >= 0 && index < sourceColors.size() ? sourceColors.at(index) : rgb_color<float>();
}

unsigned int VOEvenColorRamp::getSourceColorCount() const
{
    return static_cast<unsigned int>(sourceColors.size());
}

} // namespace VTObjects
