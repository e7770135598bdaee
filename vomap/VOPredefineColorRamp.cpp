#include "vomap/VOPredefineColorRamp.h"

namespace VTObjects {

VOPredefineColorRamp::VOPredefineColorRamp() = default;

VOPredefineColorRamp::~VOPredefineColorRamp() = default;

bool VOPredefineColorRamp::split(unsigned int count)
{
    if (sourceColors.isEmpty())
        sourceColors = {{49, 54, 149},  {69, 117, 180},  {116, 173, 209},
                        {102, 189, 99}, {217, 239, 139}, {254, 224, 139},
                        {253, 174, 97}, {244, 109, 67},  {165, 0, 38}};
    return VOEvenColorRamp::split(count);
}

VOColorRamp *VOPredefineColorRamp::clone()
{
    return new VOPredefineColorRamp(*this);
}

VOColorRamp::ColorRampType VOPredefineColorRamp::category()
{
    return PredefineRamp;
}

} // namespace VTObjects
