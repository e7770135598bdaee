#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"

class QSettings;

/// Whether, and where, the library remembers what its users made of its dialogs: the sizes of the
/// manager, the editor and the add-group dialog, and the widths of the manager's columns that can
/// be dragged. Without rememberIn() every dialog opens as it always does, and the library writes no
/// settings at all.
///
///     QSettings settings;
///     VTDialogLayout::rememberIn(&settings);
///
/// A dialog looks there when it is constructed and writes there when it is hidden, and only what
/// its user has changed by then. What is remembered is bounded by the screen that the dialog opens
/// on. Values that somebody else has spoilt count as none.
class VTCONTROLCOLORSCHEME_EXPORT VTDialogLayout
{
public:
    VTDialogLayout() = delete;

    /// Keeps it in the host's settings, below the group "vtcontrolcolorscheme" (of the group that
    /// they have open at that moment, if any). They are not owned; with their end, or with null,
    /// the remembering ends. The last call counts for the whole process. On the user-interface
    /// thread.
    static void rememberIn(QSettings *settings);
};
