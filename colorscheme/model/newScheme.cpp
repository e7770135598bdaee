#include "colorscheme/model/newScheme_p.h"

#include "colorscheme/model/GeneratedName_p.h"
#include "colorscheme/model/defaultColorRamp_p.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOStringConversion.h"

namespace vtcontrolcolorscheme {

VTObjects::VOColorScheme newScheme(const VTObjects::VOColorSchemeGroup &group)
{
    VTObjects::VOColorScheme scheme;
    scheme.name = VTObjects::toVOString(makeAddSchemeName(group));
    scheme.author = L"Admin";
    scheme.describe = L"Even";
    scheme.colorRamp = defaultColorRamp().release();
    return scheme;
}

} // namespace vtcontrolcolorscheme
