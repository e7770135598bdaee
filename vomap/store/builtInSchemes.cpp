#include "vomap/store/builtInSchemes_p.h"

#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOPredefineColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"
#include "vomap/VOStringConversion.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <memory>
#include <vector>

// Not in a namespace: the macro declares a function of its own. A program that links the static
// library has the files without a call, because whoever reads them comes through here.
static void initializeSchemeFiles()
{
    Q_INIT_RESOURCE(vomap_schemes);
}

namespace VTObjects {

namespace {

constexpr int mostColors = 256;

std::optional<QString> textOf(const QJsonObject &object, const char *key)
{
    const QString text = object.value(QLatin1String(key)).toString();
    return text.isEmpty() ? std::nullopt : std::make_optional(text);
}

std::optional<int> numberOf(const QJsonValue &value, int least, int most)
{
    const double number = value.toDouble(std::nan(""));
    if (!(number >= least && number <= most) || number != std::floor(number))
        return std::nullopt;
    return static_cast<int>(number);
}

/// Colours as "#rrggbb".
std::optional<std::vector<rgb_color<float>>> colorsOf(const QJsonArray &texts)
{
    std::vector<rgb_color<float>> colors;
    for (const QJsonValue &value : texts) {
        const QString text = value.toString();
        bool isNumber = false;
        const uint bits = text.midRef(1).toUInt(&isNumber, 16);
        if (text.size() != 7 || text.at(0) != QLatin1Char('#') || !isNumber)
            return std::nullopt;
        colors.emplace_back(float(bits >> 16), float(bits >> 8 & 255), float(bits & 255));
    }
    if (colors.size() < 2)
        return std::nullopt;
    return colors;
}

std::unique_ptr<VOColorRamp> evenRamp(std::unique_ptr<VOEvenColorRamp> ramp,
                                      const QJsonObject &object)
{
    auto sources = colorsOf(object.value(QLatin1String("sources")).toArray());
    if (!sources || !ramp->setSourceColor(static_cast<long>(sources->size()), sources->data()))
        return nullptr;
    return ramp;
}

bool readBounds(const QJsonObject &object, const char *key, int most, int &low, int &high)
{
    const QJsonArray bounds = object.value(QLatin1String(key)).toArray();
    const auto first = numberOf(bounds.at(0), 0, most);
    const auto second = numberOf(bounds.at(1), 0, most);
    if (bounds.size() != 2 || !first || !second)
        return false;
    low = *first;
    high = *second;
    return true;
}

std::unique_ptr<VOColorRamp> randomRamp(std::unique_ptr<VORandomColorRamp> ramp,
                                        const QJsonObject &object)
{
    const auto seed = numberOf(object.value(QLatin1String("seed")), 0, 100000);
    if (!seed)
        return nullptr;
    ramp->setSeed(*seed);
    if (auto *bounded = dynamic_cast<VORandomColorRampForHsv *>(ramp.get())) {
        if (!readBounds(object, "hue", 720, bounded->minH, bounded->maxH) ||
            !readBounds(object, "saturation", 100, bounded->minS, bounded->maxS) ||
            !readBounds(object, "value", 100, bounded->minV, bounded->maxV))
            return nullptr;
        bounded->paramsChanged = true;
    }
    return ramp;
}

/// The output list of a random ramp stands in the file too: it is the one its seed gives, but it
/// takes the start a tenth of the time to read it.
bool fill(VOColorRamp &ramp, int level, const QJsonArray &texts)
{
    if (texts.isEmpty())
        return ramp.split(static_cast<unsigned int>(level));
    const auto colors = colorsOf(texts);
    if (!colors || colors->size() != static_cast<size_t>(level))
        return false;
    for (const rgb_color<float> &color : *colors)
        ramp.addColor(color);
    return true;
}

std::unique_ptr<VOColorRamp> rampOf(const QJsonObject &object)
{
    const QString kind = object.value(QLatin1String("kind")).toString();
    std::unique_ptr<VOColorRamp> ramp;
    if (kind == QLatin1String("even"))
        ramp = evenRamp(std::make_unique<VOEvenColorRamp>(), object);
    else if (kind == QLatin1String("predefined"))
        ramp = evenRamp(std::make_unique<VOPredefineColorRamp>(), object);
    else if (kind == QLatin1String("random"))
        ramp = randomRamp(std::make_unique<VORandomColorRamp>(), object);
    else if (kind == QLatin1String("random-hsv"))
        ramp = randomRamp(std::make_unique<VORandomColorRampForHsv>(), object);
    const auto level = numberOf(object.value(QLatin1String("level")), 2, mostColors);
    const QJsonArray colors = object.value(QLatin1String("colours")).toArray();
    if (!ramp || !level || !fill(*ramp, *level, colors))
        return nullptr;
    return ramp;
}

std::optional<VOColorScheme> schemeOf(const QJsonObject &object)
{
    const auto name = textOf(object, "name");
    const auto author = textOf(object, "author");
    const auto description = textOf(object, "description");
    std::unique_ptr<VOColorRamp> ramp = rampOf(object);
    if (!name || !author || !description || !ramp)
        return std::nullopt;
    VOColorScheme scheme;
    scheme.name = toVOString(*name);
    scheme.author = toVOString(*author);
    scheme.describe = toVOString(*description);
    scheme.colorRamp = ramp.release();
    return scheme;
}

} // namespace

std::optional<VOColorSchemeGroup> builtInGroup(const QByteArray &json)
{
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    const auto name = textOf(object, "group");
    const QJsonArray schemes = object.value(QLatin1String("schemes")).toArray();
    if (!name || schemes.isEmpty())
        return std::nullopt;
    VOColorSchemeGroup group;
    group.name = toVOString(*name);
    group.schemes.reserve(static_cast<size_t>(schemes.size()));
    for (const QJsonValue &value : schemes) {
        auto scheme = schemeOf(value.toObject());
        if (!scheme || group.contains(scheme->name))
            return std::nullopt;
        group.schemes.push_back(std::move(*scheme));
    }
    return group;
}

VOColorSchemeTeam builtInTeam()
{
    initializeSchemeFiles();
    VOColorSchemeTeam team;
    team.name = L"Default";
    for (const char *name : {"DEM", "Unique", "Range", "Graph", "Even", "Random"}) {
        QFile file(QStringLiteral(":/vomap/schemes/%1.json").arg(QLatin1String(name)));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        if (auto group = builtInGroup(file.readAll()))
            team.groups.push_back(std::move(*group));
    }
    return team;
}

} // namespace VTObjects
