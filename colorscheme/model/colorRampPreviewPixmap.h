#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"

#include <QPixmap>
#include <QSize>

namespace VTObjects {
class VOColorRamp;
}

/// Draws a ramp as a strip of `size` pixels: one solid band a colour, from left to right, each
/// component cut to an integer. All views show ramps through this one function.
///
/// With at least one pixel a colour the bands share the width as evenly as whole pixels allow, the
/// first ones taking what is left over. With more colours than pixels every column shows the
/// colour that lies at its place; nothing is smoothed.
///
/// The ramp is only read. A null pixmap for a null ramp, a ramp without colours, or an empty size.
VTCONTROLCOLORSCHEME_EXPORT QPixmap colorRampPreviewPixmap(VTObjects::VOColorRamp *ramp,
                                                           QSize size);
