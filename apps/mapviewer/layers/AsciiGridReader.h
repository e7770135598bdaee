#pragma once

#include "apps/mapviewer/layers/AsciiGrid.h"
#include "apps/mapviewer/layers/FileProblem.h"

#include <QByteArray>

#include <optional>

namespace mapviewer {

/// More cells than this are refused: a grid is held in memory, four bytes a cell.
constexpr qint64 maximumGridCells = 50'000'000;

/// Reads an ESRI ASCII grid.
///
/// Header keys may come in any order and any mixture of upper and lower case: "ncols", "nrows",
/// "xllcorner" or "xllcenter", "yllcorner" or "yllcenter", "cellsize", and "NODATA_value", which
/// may be left out (-9999 then). Each key stands once, with its value on the same line; corner and
/// centre do not mix. The values follow, separated by blanks or line ends in any way, and there
/// are exactly ncols x nrows of them. Anything else is refused: `problem` (never null) then names
/// the line and the reason, and nothing is returned.
std::optional<AsciiGrid> readAsciiGrid(const QByteArray &text, FileProblem *problem);

} // namespace mapviewer
