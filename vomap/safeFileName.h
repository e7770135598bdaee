#pragma once

#include "vobase/VOString.h"
#include "vomap/vomap_export.h"

#include <vector>

namespace VTObjects {

/// The file name, without folder and extension, under which a scheme of this name is exported.
///
/// A name is data and may hold anything; a file name must stay inside the folder that the user
/// chose, and the platform must be able to store it. All else stays as it is. "_" takes the place
/// of "/", "\", control characters, characters that no file name can have, and of each full stop of
/// "." and ".."; what is too long for a name of 255 bytes with the extension ".vcs" is cut behind a
/// whole character. On Windows, and only there, "_" takes the place of < > : " | ? * and of a full
/// stop or blank at the end, stands before the name of a device (CON, NUL, COM1, ...), and the 255
/// are units of UTF-16. Different names can give the same file name: see safeFileNames().
VOMAP_EXPORT VOString safeFileName(const VOString &name);

/// The same for schemes that are exported into one folder together: different names get different
/// files, on a disk too that takes "a" and "A", or a letter with its accent as one character and as
/// two, for the same. The names that can stay as they are have the first choice; then, in the order
/// given, a later one gets " (2)", " (3)", ... behind it. Equal names get the same file. The result
/// has a file name for each of `names`, in their order.
VOMAP_EXPORT std::vector<VOString> safeFileNames(const std::vector<VOString> &names);

} // namespace VTObjects
