#pragma once

#include "vomap/VOColorRamp.h"
#include "vomap/rgb_color.h"

#include <QColor>
#include <QVector>

namespace VTObjects {

/// A ramp's colour for drawing. Red, green and blue count from 0 to 255 on both sides. Each loses
/// its fraction (127.9 is 127); nothing is clamped, and one outside of 0 to 255 gives an invalid
/// colour. Ramps have no alpha: the result is opaque.
inline QColor toQColor(const VTObjects::rgb_color<float> &color)
{
    return QColor(static_cast<int>(color.red), static_cast<int>(color.green),
                  static_cast<int>(color.blue));
}

/// A colour that a user chose, for a ramp: whole components from 0 to 255, alpha dropped.
/// toQColor() gives the same colour back. An invalid colour is black.
inline VTObjects::rgb_color<float> toRgbColor(const QColor &color)
{
    return VTObjects::rgb_color<float>(static_cast<float>(color.red()),
                                       static_cast<float>(color.green()),
                                       static_cast<float>(color.blue()));
}

/// All output colours of a ramp for drawing, in their order.
inline QVector<QColor> toQColors(const VTObjects::VOColorRamp &ramp)
{
    const unsigned int level = ramp.getLevel();
    QVector<QColor> colors;
    colors.reserve(static_cast<int>(level));
    for (unsigned int i = 0; i < level; ++i)
        colors.append(toQColor(ramp.getColor(i)));
    return colors;
}

} // namespace VTObjects
