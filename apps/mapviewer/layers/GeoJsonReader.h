#pragma once

#include "apps/mapviewer/layers/FileProblem.h"
#include "apps/mapviewer/layers/PolygonSet.h"

#include <QByteArray>

#include <optional>

namespace mapviewer {

/// Reads the polygons of a GeoJSON text (RFC 7946): a FeatureCollection, a Feature, a Polygon or a
/// MultiPolygon, holes included.
///
/// A feature whose geometry is null is legal and left out. Attributes that are objects or lists
/// are left out as well: nothing can be coloured by them. All else that is not as the format has
/// it is refused, and so are other kinds of geometry, open rings, rings of fewer than four
/// positions and texts without any polygon: `problem` (never null) then names the line and the
/// reason, and nothing is returned.
std::optional<PolygonSet> readGeoJson(const QByteArray &text, FileProblem *problem);

} // namespace mapviewer
