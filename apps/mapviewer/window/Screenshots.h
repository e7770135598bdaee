#pragma once

#include <QString>

namespace mapviewer {

class MapWindow;

/// Shows every window of the program in turn and writes a PNG of each into `folder`, which is made
/// if need be; prints each path. False, with the reason on the standard error, when one cannot be
/// written.
bool writeScreenshots(MapWindow *window, const QString &folder);

} // namespace mapviewer
