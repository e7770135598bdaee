#include "vomap/VOPredefineColorRamp.h"

namespace VTObjects {

VOPredefineColorRamp::VOPredefineColorRamp() = default;

VOPredefineColorRamp::~VOPredefineColorRamp() = default;

bool VOPredefineColorRamp::split(unsigned int count)
{
    if (!sourceColors.isEmpty())
        return VOEvenColorRamp::split(count);
    sourceColors = {{43, 48, 140},   {42, 104, 188},  {60, 158, 196}, {112, 197, 164},
                    {184, 226, 134}, {250, 241, 145}, {253, 189, 96}, {241, 124, 62},
                    {209, 60, 48},   {146, 8, 42}};
    if (VOEvenColorRamp::split(count))
        return true;
    sourceColors.clear();
    return false;
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
