#pragma once

#include "apps/mapviewer/layers/FileProblem.h"
#include "apps/mapviewer/layers/MapLayer.h"

#include <memory>

namespace mapviewer {

/// A layer from an ASCII grid or a GeoJSON file; by content and not by suffix, as both go by many.
/// Null, with the reason in `problem` (never null), when the file cannot be read or is refused.
/// `unit` is that of a grid's values and may be empty.
std::unique_ptr<MapLayer> readLayerFile(const QString &path, const QString &title,
                                        const QString &unit, FileProblem *problem);

} // namespace mapviewer
