#include "apps/mapviewer/window/AppSettings.h"

#include "vtgiscore/VTApplication.h"

namespace mapviewer {

QSettings appSettings()
{
    return QSettings(VTApplication::vtgisSettingsFilePath(), QSettings::IniFormat);
}

} // namespace mapviewer
