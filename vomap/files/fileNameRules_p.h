#pragma once

#include "vobase/VOString.h"

#include <QtGlobal>

#include <vector>

namespace VTObjects {

/// What a platform can store as the name of a file.
enum class FileNameRules {
    Unix,   ///< 255 bytes of UTF-8, no "/"
    Windows ///< 255 units of UTF-16, none of <>:"|?*, no device name, no full stop or blank at the
            ///< end
};

#ifdef Q_OS_WIN
constexpr FileNameRules ownFileNameRules = FileNameRules::Windows;
#else
constexpr FileNameRules ownFileNameRules = FileNameRules::Unix;
#endif

/// safeFileName() and safeFileNames() by the rules of any platform.
VOString safeFileNameBy(FileNameRules rules, const VOString &name);
std::vector<VOString> safeFileNamesBy(FileNameRules rules, const std::vector<VOString> &names);

} // namespace VTObjects
