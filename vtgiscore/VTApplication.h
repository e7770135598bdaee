#pragma once

#include "vtgiscore/vtgiscore_export.h"

#include <QString>

/// What the library asks its host application. Only static functions; user-interface thread.
class VTGISCORE_EXPORT VTApplication
{
public:
    VTApplication() = delete;

    /// The application's settings file, in INI format. Until a host sets another one it is
    /// "vtgis.ini" in the user's configuration folder for this application. The library reads it
    /// and never writes it; the file need not exist.
    static QString vtgisSettingsFilePath();
    /// For hosts and tests that keep their settings elsewhere; an empty path means the default
    /// place again.
    static void setVtgisSettingsFilePath(const QString &path);
};
