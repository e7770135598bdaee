#include "tests/support/TestStore.h"

#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOStringConversion.h"
#include "vtgiscore/VTApplication.h"

#include <QDir>
#include <QSettings>
#include <QtTest>

using namespace VTObjects;

TestStore::TestStore()
{
    if (!directory.isValid())
        qFatal("no temporary directory: %s", qPrintable(directory.errorString()));
    QDir(directory.path()).mkdir(QStringLiteral("files"));
    VTApplication::setVtgisSettingsFilePath(directory.filePath(QStringLiteral("settings.ini")));
    VOColorSchemeManager::setStoreDirectory(toVOString(storeDirectory()));
    if (!VOColorSchemeManager::instance()->load())
        qFatal("the empty store cannot be loaded");
}

TestStore::~TestStore()
{
    VTApplication::setVtgisSettingsFilePath(QString());
}

QString TestStore::path(const QString &file) const
{
    const QString files = directory.filePath(QStringLiteral("files"));
    return file.isEmpty() ? files : files + QLatin1Char('/') + file;
}

QString TestStore::storeDirectory() const
{
    return directory.filePath(QStringLiteral("store"));
}

void TestStore::setLastOpenFilePath(const QString &value)
{
    QSettings settings(VTApplication::vtgisSettingsFilePath(), QSettings::IniFormat);
    settings.setValue(QStringLiteral("history/lastOpenFilePath"), value);
}

VOColorScheme makeScheme(const QString &name)
{
    rgb_color<float> sources[] = {{196, 69, 57}, {255, 255, 191}, {48, 95, 207}};
    auto *ramp = new VOEvenColorRamp;
    ramp->setSourceColor(3, sources);
    ramp->split(10);
    VOColorScheme scheme;
    scheme.name = toVOString(name);
    scheme.author = L"Admin";
    scheme.describe = L"Even";
    scheme.colorRamp = ramp;
    return scheme;
}

VOColorSchemeGroup makeGroup(const QString &name, const QStringList &schemeNames)
{
    VOColorSchemeGroup group;
    group.name = toVOString(name);
    for (const QString &schemeName : schemeNames)
        group.schemes.push_back(makeScheme(schemeName));
    return group;
}

QStringList schemeNames(const VOColorSchemeGroup &group)
{
    QStringList names;
    for (const VOColorScheme &scheme : group.schemes)
        names.append(toQString(scheme.name));
    return names;
}
