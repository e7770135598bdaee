#pragma once

#include "vomap/VOTeamKind.h"

#include <QtGlobal>

namespace vtcontrolcolorscheme {

/// What a built-in group is called in views. Two contexts of translation, as the picker and the
/// manager each look it up in their own; the text is the same.
struct BuiltInGroupCaption
{
    const char *ofPicker;
    const char *ofManager;
};

/// At the positions of VTObjects::builtInGroups.
inline constexpr BuiltInGroupCaption builtInGroupCaptions[VTObjects::builtInGroups.size()] = {
    {QT_TRANSLATE_NOOP("QObject", "For DEM"), QT_TRANSLATE_NOOP("VTColorSchemeManager", "For DEM")},
    {QT_TRANSLATE_NOOP("QObject", "For unique"),
     QT_TRANSLATE_NOOP("VTColorSchemeManager", "For unique")},
    {QT_TRANSLATE_NOOP("QObject", "For unique range"),
     QT_TRANSLATE_NOOP("VTColorSchemeManager", "For unique range")},
    {QT_TRANSLATE_NOOP("QObject", "For graph"),
     QT_TRANSLATE_NOOP("VTColorSchemeManager", "For graph")},
    {QT_TRANSLATE_NOOP("QObject", "Even scheme"),
     QT_TRANSLATE_NOOP("VTColorSchemeManager", "Even scheme")},
    {QT_TRANSLATE_NOOP("QObject", "Random scheme"),
     QT_TRANSLATE_NOOP("VTColorSchemeManager", "Random scheme")},
};

} // namespace vtcontrolcolorscheme
