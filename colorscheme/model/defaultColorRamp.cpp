#include "colorscheme/model/defaultColorRamp_p.h"

#include "vomap/VOEvenColorRamp.h"

using VTObjects::rgb_color;
using VTObjects::VOEvenColorRamp;

namespace vtcontrolcolorscheme {

std::unique_ptr<VTObjects::VOColorRamp> defaultColorRamp()
{
    rgb_color<float> sources[] = {{196, 69, 57}, {255, 255, 191}, {48, 95, 207}};
    auto ramp = std::make_unique<VOEvenColorRamp>();
    ramp->setSourceColor(3, sources);
    ramp->split(10);
    return ramp;
}

} // namespace vtcontrolcolorscheme
