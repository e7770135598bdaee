#include "vomap/VORandomColorRampForHsv.h"

#include "vomap/generate/generatedColors_p.h"
#include "vomap/generate/hsvColors_p.h"

namespace VTObjects {

VORandomColorRampForHsv::VORandomColorRampForHsv() = default;

VORandomColorRampForHsv::~VORandomColorRampForHsv() = default;

bool VORandomColorRampForHsv::split(unsigned int count)
{
    const HsvBox box(minH, maxH, minS, maxS, minV, maxV);
    return generateColors(colors, count, [this, &box](rgb_color<float> *first, std::size_t size) {
        fillWithHsvColors(seed, box, first, size);
    });
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
