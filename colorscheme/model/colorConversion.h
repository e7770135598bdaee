#pragma once

#include "vomap/rgb_color.h"

#include <QColor>

namespace VTObjects {

/// A ramp's colour as the toolkit's: components cut toward zero, opaque.
inline QColor toQColor(const VTObjects::rgb_color<float> &color)
{
    return QColor(static_cast<int>(color.red), static_cast<int>(color.green),
                  static_cast<int>(color.blue));
}

/// The toolkit's colour as a ramp's: whole components from 0 to 255, alpha dropped.
inline VTObjects::rgb_color<float> toRgbColor(const QColor &color)
{
    return VTObjects::rgb_color<float>(static_cast<float>(color.red()),
                                       static_cast<float>(color.green()),
                                       static_cast<float>(color.blue()));
}

} // namespace VTObjects
