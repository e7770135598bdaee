#include "vomap/VORandomColorRamp.h"

#include "vomap/generate/generatedColors_p.h"
#include "vomap/generate/randomColors_p.h"

namespace VTObjects {

VORandomColorRamp::VORandomColorRamp() = default;

VORandomColorRamp::~VORandomColorRamp() = default;

bool VORandomColorRamp::split(unsigned int count)
{
    return generateColors(colors, count, [this](rgb_color<float> *first, std::size_t size) {
        fillWithRandomColors(seed, first, size);
    });
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
