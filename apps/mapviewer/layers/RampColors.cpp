#include "apps/mapviewer/layers/RampColors.h"

#include "vomap/VOColorRamp.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace mapviewer {

using VTObjects::VOColorRamp;

namespace {

bool isRandom(VOColorRamp *ramp)
{
    const VOColorRamp::ColorRampType kind = ramp->category();
    return kind == VOColorRamp::RandomRamp || kind == VOColorRamp::RandomHsvRamp;
}

int mixed(int from, int to, double share)
{
    return int(std::lround(from + (to - from) * share));
}

} // namespace

QVector<QRgb> rampColors(VOColorRamp *ramp)
{
    QVector<QRgb> colors;
    const unsigned int level = ramp ? ramp->getLevel() : 0;
    colors.reserve(int(level));
    for (unsigned int i = 0; i < level; ++i) {
        const VTObjects::rgb_color<float> color = ramp->getColor(i);
        colors.append(qRgb(int(color.red), int(color.green), int(color.blue)));
    }
    return colors;
}

QRgb colorAlong(const QVector<QRgb> &colors, double position)
{
    const double place = std::clamp(position, 0.0, 1.0) * (colors.size() - 1);
    const int index = std::min(int(place), colors.size() - 1);
    const QRgb from = colors.at(index);
    const QRgb to = colors.at(std::min(index + 1, colors.size() - 1));
    const double share = place - index;
    return qRgb(mixed(qRed(from), qRed(to), share), mixed(qGreen(from), qGreen(to), share),
                mixed(qBlue(from), qBlue(to), share));
}

QVector<QRgb> classColors(VOColorRamp *ramp, int count)
{
    if (ramp && isRandom(ramp))
        return uniqueColors(ramp, count);
    const QVector<QRgb> colors = rampColors(ramp);
    if (colors.isEmpty())
        return QVector<QRgb>(count, noValueColor);
    QVector<QRgb> spread;
    spread.reserve(count);
    for (int i = 0; i < count; ++i)
        spread.append(colorAlong(colors, count == 1 ? 0.5 : double(i) / (count - 1)));
    return spread;
}

QVector<QRgb> uniqueColors(VOColorRamp *ramp, int count)
{
    QVector<QRgb> colors = rampColors(ramp);
    if (ramp && isRandom(ramp) && colors.size() < count) {
        // On a copy: the scheme itself keeps the number of colours that its author gave it.
        const std::unique_ptr<VOColorRamp> more(ramp->clone());
        if (more->split(static_cast<unsigned int>(count))) {
            const QVector<QRgb> longer = rampColors(more.get());
            // Colours that were changed by hand stay; only the missing ones are new.
            colors += longer.mid(colors.size());
        }
    }
    if (colors.isEmpty())
        return QVector<QRgb>(count, noValueColor);
    QVector<QRgb> picked;
    picked.reserve(count);
    for (int i = 0; i < count; ++i)
        picked.append(colors.at(i % colors.size()));
    return picked;
}

} // namespace mapviewer
