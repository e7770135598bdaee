#pragma once

#include <memory>

namespace VTObjects {
class VOColorRamp;
}

namespace vtcontrolcolorscheme {

/// The ramp of every new scheme: an even ramp over (196, 69, 57), (255, 255, 191) and
/// (48, 95, 207), split into 10 colours.
std::unique_ptr<VTObjects::VOColorRamp> defaultColorRamp();

} // namespace vtcontrolcolorscheme
