#pragma once

#include "vomap/VOStringConversion.h"

#include <QFileInfo>

namespace vtcontrolcolorscheme {

/// A path that the user chose, as the records' library takes it: with "/" for every "\".
inline VTObjects::VOString toFilePath(const QString &chosen)
{
    VTObjects::VOString path = VTObjects::toVOString(chosen);
    path.Replace(L'\\', L'/');
    return path;
}

/// What is wrong with a file, for below the text of a message box.
inline QString fileProblem(const QString &path, const QString &problem)
{
    return QFileInfo(path).fileName() + QStringLiteral(": ") + problem;
}

} // namespace vtcontrolcolorscheme
