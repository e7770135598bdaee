#pragma once

#include "ui_VTColorSchemeEditorBase.h"
#include "vomap/VORandomColorRampForHsv.h"

#include <QColor>
#include <QVector>

#include <memory>

namespace vtcontrolcolorscheme {

/// One bound of the HSV random kind: where it is shown, where the ramp keeps it, and what it is
/// for a scheme of another kind.
struct HsvBound
{
    QSpinBox *Ui::VTColorSchemeEditorBase::*box;
    int VTObjects::VORandomColorRampForHsv::*field;
    int initial;
};

/// Deliberate: only the hue's initial maximum is 100, those of saturation and value are 99.
inline constexpr HsvBound hsvBounds[] = {
    {&Ui::VTColorSchemeEditorBase::spinBox_minh, &VTObjects::VORandomColorRampForHsv::minH, 1},
    {&Ui::VTColorSchemeEditorBase::spinBox_maxh, &VTObjects::VORandomColorRampForHsv::maxH, 100},
    {&Ui::VTColorSchemeEditorBase::spinBox_mins, &VTObjects::VORandomColorRampForHsv::minS, 1},
    {&Ui::VTColorSchemeEditorBase::spinBox_maxs, &VTObjects::VORandomColorRampForHsv::maxS, 99},
    {&Ui::VTColorSchemeEditorBase::spinBox_minv, &VTObjects::VORandomColorRampForHsv::minV, 1},
    {&Ui::VTColorSchemeEditorBase::spinBox_maxv, &VTObjects::VORandomColorRampForHsv::maxV, 99},
};

/// A new ramp made of what the controls and the colour list show; null for a kind that does not
/// exist.
std::unique_ptr<VTObjects::VOColorRamp> rampOf(const Ui::VTColorSchemeEditorBase &controls,
                                               const QVector<QColor> &colors);
/// What the colour list shows of a ramp: the source colours of a ramp that has some, else the
/// output colours. The ramp is only read.
QVector<QColor> listedColors(VTObjects::VOColorRamp &ramp);

} // namespace vtcontrolcolorscheme
