#pragma once

#include "vomap/VOStringConversion.h"

namespace vtcontrolcolorscheme {

/// A path that the user chose, as the records' library takes it: with "/" for every "\".
inline VTObjects::VOString toFilePath(const QString &chosen)
{
    VTObjects::VOString path = VTObjects::toVOString(chosen);
    path.Replace(L'\\', L'/');
    return path;
}

} // namespace vtcontrolcolorscheme
