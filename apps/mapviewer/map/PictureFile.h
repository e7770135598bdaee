#pragma once

#include "apps/mapviewer/map/MapPicture.h"

#include <QString>
#include <QStringList>

namespace mapviewer {

/// The endings of the picture files that this build can write, small and without a dot: "png",
/// "svg" where the toolkit's module for it was there when it was built, "pdf".
QStringList pictureEndings();

/// For a file dialog: one filter an ending, in the same order.
QStringList pictureFilters();

/// The file as its ending wants it: pixels for "png", text and lines that stay sharp at any size
/// for "svg" and "pdf". A simulated vision is simulated pixel by pixel, so it makes pixels of all
/// of them. False, with an older file of that name as it was and one sentence for the user in
/// `problem` (never null), for another ending and for what cannot be written.
bool writePicture(const QString &path, const MapLayers &layers, const MapView &view,
                  const MapStyle &style, const PictureSettings &settings, QString *problem);

} // namespace mapviewer
