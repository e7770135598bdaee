#include "colorscheme/editor/editorControls_p.h"

#include "colorscheme/model/colorConversion.h"
#include "vomap/VOPredefineColorRamp.h"

#include <algorithm>
#include <vector>

using VTObjects::rgb_color;
using VTObjects::toQColor;
using VTObjects::toRgbColor;
using VTObjects::VOColorRamp;
using VTObjects::VOEvenColorRamp;
using VTObjects::VOPredefineColorRamp;
using VTObjects::VORandomColorRamp;
using VTObjects::VORandomColorRampForHsv;

namespace vtcontrolcolorscheme {

namespace {

/// The list takes the places of the first colours; what it has beyond the level is left out.
void overwriteFirstColors(VOColorRamp &ramp, const QVector<QColor> &colors, int level)
{
    const int count = std::min(colors.size(), level);
    for (int i = 0; i < count; ++i)
        ramp.setColor(static_cast<unsigned int>(i), toRgbColor(colors.at(i)));
}

void setSourceColors(VOEvenColorRamp &ramp, const QVector<QColor> &colors)
{
    std::vector<rgb_color<float>> sources;
    sources.reserve(static_cast<std::size_t>(colors.size()));
    std::transform(colors.cbegin(), colors.cend(), std::back_inserter(sources), toRgbColor);
    ramp.setSourceColor(static_cast<long>(sources.size()), sources.data());
}

} // namespace

std::unique_ptr<VOColorRamp> rampOf(const Ui::VTColorSchemeEditorBase &controls,
                                    const QVector<QColor> &colors)
{
    const int level = controls.spinBox_level->value();
    const auto count = static_cast<unsigned int>(level);
    switch (controls.comboBox_type->currentIndex()) {
    case VOColorRamp::RandomRamp: {
        auto ramp = std::make_unique<VORandomColorRamp>();
        ramp->setSeed(controls.spinBox_seed->value());
        ramp->split(count);
        overwriteFirstColors(*ramp, colors, level);
        return ramp;
    }
    case VOColorRamp::RandomHsvRamp: {
        auto ramp = std::make_unique<VORandomColorRampForHsv>();
        ramp->setSeed(controls.spinBox_seed->value());
        for (const HsvBound &bound : hsvBounds) {
            (*ramp).*bound.field = (controls.*bound.box)->value();
            ramp->paramsChanged = true;
        }
        ramp->split(count);
        overwriteFirstColors(*ramp, colors, level);
        return ramp;
    }
    case VOColorRamp::EvenRamp: {
        auto ramp = std::make_unique<VOEvenColorRamp>();
        setSourceColors(*ramp, colors);
        ramp->split(count);
        return ramp;
    }
    case VOColorRamp::PredefineRamp: {
        auto ramp = std::make_unique<VOPredefineColorRamp>();
        setSourceColors(*ramp, colors);
        ramp->split(count);
        return ramp;
    }
    default:
        return nullptr;
    }
}

QVector<QColor> listedColors(VOColorRamp &ramp)
{
    QVector<QColor> colors;
    if (auto *even = dynamic_cast<VOEvenColorRamp *>(&ramp)) {
        const int count = static_cast<int>(even->getSourceColorCount());
        colors.reserve(count);
        for (int i = 0; i < count; ++i)
            colors.append(toQColor(even->getSourceColor(i)));
        return colors;
    }
    const unsigned int level = ramp.getLevel();
    colors.reserve(static_cast<int>(level));
    for (unsigned int i = 0; i < level; ++i)
        colors.append(toQColor(ramp.getColor(i)));
    return colors;
}

} // namespace vtcontrolcolorscheme
