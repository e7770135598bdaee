#pragma once

#include <QRgb>
#include <QVector>

namespace VTObjects {
class VOColorRamp;
}

namespace mapviewer {

/// The ramp's own colours in their order, opaque, each component truncated as in the previews.
/// Null and empty ramps have none.
QVector<QRgb> rampColors(VTObjects::VOColorRamp *ramp);

/// One colour for each of `count` ordered classes: the two ends of the ramp at the two ends, the
/// rest spread evenly and mixed between neighbours where they fall between; the middle for a
/// single class. Random ramps have no order to spread, so they give their colours one by one.
/// Grey when the ramp has no colours.
QVector<QRgb> classColors(VTObjects::VOColorRamp *ramp, int count);

/// One colour for each of `count` values that have no order: the ramp's colours one by one. When
/// there are too few, a random ramp is asked for more, and any other begins anew.
QVector<QRgb> uniqueColors(VTObjects::VOColorRamp *ramp, int count);

/// A position from 0 to 1 along the colours, mixed linearly between neighbours. `colors` is not
/// empty; positions outside are cut.
QRgb colorAlong(const QVector<QRgb> &colors, double position);

/// What has no value, or whose ramp has no colour, is shown in this grey.
constexpr QRgb noValueColor = 0xffc4c7ca;

} // namespace mapviewer
