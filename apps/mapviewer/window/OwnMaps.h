#pragma once

#include "apps/mapviewer/layers/FileProblem.h"
#include "apps/mapviewer/layers/MapLayer.h"

#include <QStringList>

#include <memory>

namespace mapviewer {

/// The files of the maps that ship with the program, the lowest layer first.
QStringList ownMapFiles();

/// A layer of any file, with its title; of an own one also with its source and its first grading.
/// Null, with the reason in `problem` (never null), when the file is refused.
std::unique_ptr<MapLayer> readMap(const QString &path, FileProblem *problem);

/// The built-in schemes that suit an own map best, the best first; empty for any other file.
QStringList schemesFor(const QString &path);

} // namespace mapviewer
