#include "vtgiscore/VTApplication.h"

#include <QStandardPaths>

namespace {

QString &chosenPath()
{
    static QString path;
    return path;
}

} // namespace

QString VTApplication::vtgisSettingsFilePath()
{
    if (!chosenPath().isEmpty())
        return chosenPath();
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
           QStringLiteral("/vtgis.ini");
}

void VTApplication::setVtgisSettingsFilePath(const QString &path)
{
    chosenPath() = path;
}
