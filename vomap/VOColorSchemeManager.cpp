#include "vomap/VOColorSchemeManager.h"

#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOPredefineColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"
#include "vomap/VOStringConversion.h"
#include "vomap/builtInSchemes_p.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QStandardPaths>

#include <memory>
#include <utility>

namespace VTObjects {

namespace {

QString &storeDirectory()
{
    static QString directory;
    return directory;
}

QString storePath(const char *file)
{
    QString directory = storeDirectory();
    if (directory.isEmpty())
        directory = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                    QStringLiteral("/colorschemes");
    return directory + QLatin1Char('/') + QLatin1String(file);
}

QJsonArray colorToJson(rgb_color<float> color)
{
    return {double(color.red), double(color.green), double(color.blue)};
}

rgb_color<float> colorFromJson(const QJsonValue &value)
{
    const QJsonArray parts = value.toArray();
    return rgb_color<float>(float(parts.at(0).toDouble()), float(parts.at(1).toDouble()),
                            float(parts.at(2).toDouble()));
}

using Bound = std::pair<const char *, int VORandomColorRampForHsv::*>;
constexpr Bound bounds[] = {
    {"minH", &VORandomColorRampForHsv::minH}, {"maxH", &VORandomColorRampForHsv::maxH},
    {"minS", &VORandomColorRampForHsv::minS}, {"maxS", &VORandomColorRampForHsv::maxS},
    {"minV", &VORandomColorRampForHsv::minV}, {"maxV", &VORandomColorRampForHsv::maxV},
};

QJsonValue rampToJson(VOColorRamp *ramp)
{
    if (!ramp)
        return QJsonValue();
    QJsonObject object{{QStringLiteral("kind"), int(ramp->category())}};
    if (auto *random = dynamic_cast<VORandomColorRamp *>(ramp))
        object.insert(QStringLiteral("seed"), random->seed);
    if (auto *hsv = dynamic_cast<VORandomColorRampForHsv *>(ramp)) {
        object.insert(QStringLiteral("paramsChanged"), hsv->paramsChanged);
        for (const Bound &bound : bounds)
            object.insert(QLatin1String(bound.first), hsv->*bound.second);
    }
    if (auto *even = dynamic_cast<VOEvenColorRamp *>(ramp)) {
        QJsonArray sources;
        for (unsigned int i = 0; i < even->getSourceColorCount(); ++i)
            sources.append(colorToJson(even->getSourceColor(int(i))));
        object.insert(QStringLiteral("sources"), sources);
    }
    QJsonArray colors;
    for (unsigned int i = 0; i < ramp->getLevel(); ++i)
        colors.append(colorToJson(ramp->getColor(i)));
    object.insert(QStringLiteral("colors"), colors);
    return object;
}

std::unique_ptr<VOColorRamp> rampFromJson(const QJsonObject &object)
{
    std::unique_ptr<VOColorRamp> ramp;
    switch (object.value(QStringLiteral("kind")).toInt(-1)) {
    case VOColorRamp::RandomRamp:
        ramp = std::make_unique<VORandomColorRamp>();
        break;
    case VOColorRamp::RandomHsvRamp:
        ramp = std::make_unique<VORandomColorRampForHsv>();
        break;
    case VOColorRamp::EvenRamp:
        ramp = std::make_unique<VOEvenColorRamp>();
        break;
    case VOColorRamp::PredefineRamp:
        ramp = std::make_unique<VOPredefineColorRamp>();
        break;
    default:
        return nullptr;
    }
    if (auto *random = dynamic_cast<VORandomColorRamp *>(ramp.get()))
        random->setSeed(object.value(QStringLiteral("seed")).toInt());
    if (auto *hsv = dynamic_cast<VORandomColorRampForHsv *>(ramp.get())) {
        hsv->paramsChanged = object.value(QStringLiteral("paramsChanged")).toBool();
        for (const Bound &bound : bounds)
            hsv->*bound.second = object.value(QLatin1String(bound.first)).toInt();
    }
    if (auto *even = dynamic_cast<VOEvenColorRamp *>(ramp.get())) {
        QVector<rgb_color<float>> sources;
        for (const QJsonValue &value : object.value(QStringLiteral("sources")).toArray())
            sources.append(colorFromJson(value));
        even->setSourceColor(sources.size(), sources.data());
    }
    for (const QJsonValue &value : object.value(QStringLiteral("colors")).toArray())
        ramp->addColor(colorFromJson(value));
    return ramp;
}

QJsonObject schemeToJson(const VOColorScheme &scheme)
{
    return {{QStringLiteral("name"), toQString(scheme.name)},
            {QStringLiteral("author"), toQString(scheme.author)},
            {QStringLiteral("describe"), toQString(scheme.describe)},
            {QStringLiteral("ramp"), rampToJson(scheme.colorRamp)}};
}

VOColorScheme schemeFromJson(const QJsonObject &object)
{
    VOColorScheme scheme;
    scheme.name = toVOString(object.value(QStringLiteral("name")).toString());
    scheme.author = toVOString(object.value(QStringLiteral("author")).toString());
    scheme.describe = toVOString(object.value(QStringLiteral("describe")).toString());
    scheme.colorRamp = rampFromJson(object.value(QStringLiteral("ramp")).toObject()).release();
    return scheme;
}

bool writeJson(const QString &path, const QJsonObject &object)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(object).toJson()) >= 0 &&
           file.commit();
}

bool saveTeam(const VOColorSchemeTeam &team, const char *file)
{
    const QString path = storePath(file);
    QJsonArray groups;
    for (const VOColorSchemeGroup &group : team.groups) {
        QJsonArray schemes;
        for (const VOColorScheme &scheme : group.schemes)
            schemes.append(schemeToJson(scheme));
        groups.append(QJsonObject{{QStringLiteral("name"), toQString(group.name)},
                                  {QStringLiteral("schemes"), schemes}});
    }
    return QDir().mkpath(QFileInfo(path).path()) &&
           writeJson(path, {{QStringLiteral("groups"), groups}});
}

bool loadTeam(VOColorSchemeTeam &team, const char *file)
{
    QFile in(storePath(file));
    if (!in.exists())
        return true;
    if (!in.open(QIODevice::ReadOnly))
        return false;
    const QJsonDocument document = QJsonDocument::fromJson(in.readAll());
    if (!document.isObject())
        return false;
    team.groups.clear();
    for (const QJsonValue &value : document.object().value(QStringLiteral("groups")).toArray()) {
        VOColorSchemeGroup group;
        group.name = toVOString(value.toObject().value(QStringLiteral("name")).toString());
        for (const QJsonValue &scheme : value.toObject().value(QStringLiteral("schemes")).toArray())
            group.schemes.push_back(schemeFromJson(scheme.toObject()));
        team.groups.push_back(std::move(group));
    }
    return true;
}

} // namespace

VOColorSchemeManager::VOColorSchemeManager()
{
    load();
}

VOColorSchemeManager::~VOColorSchemeManager() = default;

VOColorSchemeManager *VOColorSchemeManager::instance()
{
    static VOColorSchemeManager manager;
    return &manager;
}

void VOColorSchemeManager::setStoreDirectory(const VOString &directory)
{
    storeDirectory() = toQString(directory);
}

bool VOColorSchemeManager::load()
{
    defaultTeam = builtInTeam();
    customTeam = VOColorSchemeTeam();
    customTeam.name = L"Custom";
    favoriteTeam = VOColorSchemeTeam();
    favoriteTeam.name = L"Favorite";
    const bool defaultRead = loadTeam(defaultTeam, "default.json");
    const bool customRead = loadTeam(customTeam, "custom.json");
    return loadTeam(favoriteTeam, "favorite.json") && defaultRead && customRead;
}

bool VOColorSchemeManager::save()
{
    const bool defaultSaved = saveTeam(defaultTeam, "default.json");
    const bool customSaved = saveCustomTeam();
    return saveTeam(favoriteTeam, "favorite.json") && defaultSaved && customSaved;
}

bool VOColorSchemeManager::saveCustomTeam()
{
    return saveTeam(customTeam, "custom.json");
}

bool VOColorSchemeManager::readFile(VOColorScheme &scheme, const VOString &path)
{
    QFile in(toQString(path));
    if (!in.open(QIODevice::ReadOnly))
        return false;
    VOColorScheme read = schemeFromJson(QJsonDocument::fromJson(in.readAll()).object());
    if (!read.colorRamp)
        return false;
    scheme = std::move(read);
    return true;
}

bool VOColorSchemeManager::saveFile(const VOColorScheme &scheme, const VOString &path)
{
    return scheme.colorRamp && writeJson(toQString(path), schemeToJson(scheme));
}

} // namespace VTObjects
