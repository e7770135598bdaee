#pragma once

#include "vobase/VOString.h"
#include "vomap/vomap_export.h"

namespace VTObjects {

/// The file name, without folder and extension, under which a scheme of this name is exported.
///
/// A name is data and may hold anything; a file name must stay inside the folder that the user
/// chose. An ordinary name is returned as it is. One with "/", "\", control characters, full stops
/// in a row, or characters that no file name can have gets "_" in their place; a device name of
/// Windows (CON, NUL, COM1, ...) gets "_" in front; one past 240 bytes of UTF-8 is cut. All of
/// these end in "~" and 16 hexadecimal digits made from the whole name, so that different names
/// never share a file.
VOMAP_EXPORT VOString safeFileName(const VOString &name);

} // namespace VTObjects
