#pragma once

#include "vomap/VOColorScheme.h"

namespace VTObjects {
class VOColorSchemeGroup;
}

namespace vtcontrolcolorscheme {

/// A scheme for the group as commands start it: "add_scheme" and a number for a name, the author
/// "Admin", the description "Even", the default ramp. It is not in the group yet.
VTObjects::VOColorScheme newScheme(const VTObjects::VOColorSchemeGroup &group);

} // namespace vtcontrolcolorscheme
