#include "vobase/VOVersion.h"

namespace VTObjects {

const char *libraryVersion()
{
    return VO_VERSION_TEXT;
}

} // namespace VTObjects
