#include "colorscheme/model/lastOpenFilePath_p.h"

#include "vtgiscore/VTApplication.h"

#include <QSettings>

namespace vtcontrolcolorscheme {

QString lastOpenFilePath()
{
    const QSettings settings(VTApplication::vtgisSettingsFilePath(), QSettings::IniFormat);
    const QString path = settings.value(QStringLiteral("history/lastOpenFilePath")).toString();
    return path.startsWith(QLatin1String("VTSDE30_")) ? QString() : path;
}

} // namespace vtcontrolcolorscheme
