#include "vomap/VOColorRampContainer.h"

#include <utility>

namespace VTObjects {

namespace {

float clampedComponent(float value)
{
    // Written so that NaN, which compares false with everything, becomes 0.
    if (!(value > 0.0F))
        return 0.0F;
    return value < 255.0F ? value : 255.0F;
}

} // namespace

VOColorRamp::~VOColorRamp() = default;

VOColorRampContainer::~VOColorRampContainer() = default;

rgb_color<float> VOColorRampContainer::clamped(rgb_color<float> color)
{
    return rgb_color<float>(clampedComponent(color.red), clampedComponent(color.green),
                            clampedComponent(color.blue));
}

rgb_color<float> VOColorRampContainer::getColor(unsigned int index)
{
    return index < getLevel() ? colors.at(static_cast<int>(index)) : rgb_color<float>();
}

void VOColorRampContainer::setColor(unsigned int index, rgb_color<float> color)
{
    if (index < getLevel())
        colors[static_cast<int>(index)] = clamped(color);
}

void VOColorRampContainer::addColor(rgb_color<float> color)
{
    colors.append(clamped(color));
}

void VOColorRampContainer::deleteColor(unsigned int index)
{
    if (index < getLevel())
        colors.remove(static_cast<int>(index));
}

void VOColorRampContainer::deleteAll()
{
    colors.clear();
}

unsigned int VOColorRampContainer::getLevel()
{
    return static_cast<unsigned int>(colors.size());
}

QVector<rgb_color<float>> VOColorRampContainer::clamped(QVector<rgb_color<float>> list)
{
    for (int i = 0; i < list.size(); ++i) {
        const rgb_color<float> inside = clamped(list.at(i));
        if (inside != list.at(i))
            list[i] = inside;
    }
    return list;
}

void VOColorRampContainer::setColorList(QVector<rgb_color<float>> list)
{
    colors = clamped(std::move(list));
}

} // namespace VTObjects
