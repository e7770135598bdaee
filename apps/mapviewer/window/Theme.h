#pragma once

#include <QPalette>
#include <QString>

namespace mapviewer {

/// The window's colours in the light and in the dark.
QPalette lightPalette();
QPalette darkPalette();

/// What the palette does not reach, for the panel of layers: the picker draws its arrow in black,
/// so in the dark its face stays light.
QString panelStyleSheet(bool dark);

} // namespace mapviewer
