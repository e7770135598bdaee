#include "apps/mapviewer/layers/GeoJsonReader.h"

#include "apps/mapviewer/layers/JsonLocator.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace mapviewer {

namespace {

constexpr int leastRingPositions = 4;

class Reader
{
    Q_DECLARE_TR_FUNCTIONS(GeoJsonReader)

public:
    Reader(const QByteArray &source, FileProblem *report)
        : text(source)
        , problem(report)
    {
    }

    std::optional<PolygonSet> read();

private:
    // Where the reader stands, for the message; leaves again with the scope.
    class Inside
    {
    public:
        Inside(JsonPath &path, const JsonStep &step)
            : path(path)
        {
            path.append(step);
        }
        ~Inside() { path.removeLast(); }
        Q_DISABLE_COPY_MOVE(Inside)

    private:
        JsonPath &path;
    };

    bool fail(const QString &reason)
    {
        problem->line = JsonLocator(text).lineOf(path);
        problem->text = reason;
        return false;
    }

    bool readType(const QJsonObject &object, QString *type);
    bool readCollection(const QJsonObject &object);
    bool readFeature(const QJsonObject &object);
    bool readAttributes(const QJsonObject &object, QVariantMap *attributes);
    bool readGeometry(const QJsonObject &object, QPainterPath *area);
    bool readPolygon(const QJsonValue &value, QPainterPath *area);
    bool readRing(const QJsonValue &value, QPainterPath *area);
    bool readPosition(const QJsonValue &value, QPointF *position);
    void add(const QPainterPath &area, const QVariantMap &attributes);

    const QByteArray &text;
    FileProblem *problem;
    JsonPath path;
    PolygonSet polygons;
};

std::optional<PolygonSet> Reader::read()
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError) {
        problem->line = JsonLocator::lineOfOffset(text, error.offset);
        problem->text = tr("This is not valid JSON: %1.").arg(error.errorString());
        return std::nullopt;
    }
    bool good = false;
    QString type;
    if (!document.isObject()) {
        good = fail(tr("A GeoJSON file holds one object."));
    } else if (const QJsonObject root = document.object(); readType(root, &type)) {
        if (type == QLatin1String("FeatureCollection")) {
            good = readCollection(root);
        } else if (type == QLatin1String("Feature")) {
            good = readFeature(root);
        } else {
            QPainterPath area;
            good = readGeometry(root, &area);
            if (good)
                add(area, {});
        }
    }
    if (good && polygons.features.empty())
        good = fail(tr("The file holds no polygon."));
    if (!good)
        return std::nullopt;
    return std::move(polygons);
}

bool Reader::readType(const QJsonObject &object, QString *type)
{
    const QJsonValue value = object.value(QLatin1String("type"));
    const Inside here(path, {QStringLiteral("type"), -1});
    if (value.isUndefined())
        return fail(tr("The object lacks \"type\"."));
    if (!value.isString())
        return fail(tr("\"type\" must be a text."));
    *type = value.toString();
    return true;
}

bool Reader::readCollection(const QJsonObject &object)
{
    const QJsonValue features = object.value(QLatin1String("features"));
    const Inside list(path, {QStringLiteral("features"), -1});
    if (!features.isArray())
        return fail(tr("A FeatureCollection needs a list \"features\"."));
    const QJsonArray array = features.toArray();
    for (int i = 0; i < array.size(); ++i) {
        const Inside element(path, {QString(), i});
        if (!array.at(i).isObject())
            return fail(tr("Feature %1 is not an object.").arg(i + 1));
        const QJsonObject feature = array.at(i).toObject();
        QString type;
        if (!readType(feature, &type))
            return false;
        if (type != QLatin1String("Feature")) {
            const Inside here(path, {QStringLiteral("type"), -1});
            return fail(tr("The list \"features\" holds a \"%1\".").arg(type));
        }
        if (!readFeature(feature))
            return false;
    }
    return true;
}

bool Reader::readFeature(const QJsonObject &object)
{
    QVariantMap attributes;
    if (!readAttributes(object, &attributes))
        return false;
    const QJsonValue geometry = object.value(QLatin1String("geometry"));
    if (geometry.isNull())
        return true;
    const Inside here(path, {QStringLiteral("geometry"), -1});
    if (!geometry.isObject())
        return fail(tr("A Feature needs an object \"geometry\"."));
    QPainterPath area;
    if (!readGeometry(geometry.toObject(), &area))
        return false;
    add(area, attributes);
    return true;
}

bool Reader::readAttributes(const QJsonObject &object, QVariantMap *attributes)
{
    const QJsonValue value = object.value(QLatin1String("properties"));
    if (value.isUndefined() || value.isNull())
        return true;
    const Inside here(path, {QStringLiteral("properties"), -1});
    if (!value.isObject())
        return fail(tr("\"properties\" must be an object."));
    const QJsonObject properties = value.toObject();
    for (auto entry = properties.begin(); entry != properties.end(); ++entry) {
        if (entry->isObject() || entry->isArray())
            continue;
        // Every number as a double, so that a column has one type.
        attributes->insert(entry.key(), entry->isDouble() ? QVariant(entry->toDouble())
                                        : entry->isNull() ? QVariant()
                                                          : entry->toVariant());
    }
    return true;
}

bool Reader::readGeometry(const QJsonObject &object, QPainterPath *area)
{
    QString type;
    if (!readType(object, &type))
        return false;
    const bool multiple = type == QLatin1String("MultiPolygon");
    if (!multiple && type != QLatin1String("Polygon")) {
        const Inside here(path, {QStringLiteral("type"), -1});
        return fail(tr("\"%1\" is no area: only Polygon and MultiPolygon can be shown.").arg(type));
    }
    const QJsonValue coordinates = object.value(QLatin1String("coordinates"));
    const Inside here(path, {QStringLiteral("coordinates"), -1});
    if (!coordinates.isArray())
        return fail(tr("The geometry needs a list \"coordinates\"."));
    area->setFillRule(Qt::OddEvenFill);
    if (!multiple)
        return readPolygon(coordinates, area);
    const QJsonArray parts = coordinates.toArray();
    if (parts.isEmpty())
        return fail(tr("A MultiPolygon needs at least one polygon."));
    for (int i = 0; i < parts.size(); ++i) {
        const Inside element(path, {QString(), i});
        if (!readPolygon(parts.at(i), area))
            return false;
    }
    return true;
}

bool Reader::readPolygon(const QJsonValue &value, QPainterPath *area)
{
    if (!value.isArray() || value.toArray().isEmpty())
        return fail(tr("A polygon is a list of one or more rings."));
    const QJsonArray rings = value.toArray();
    for (int i = 0; i < rings.size(); ++i) {
        const Inside element(path, {QString(), i});
        if (!readRing(rings.at(i), area))
            return false;
    }
    return true;
}

bool Reader::readRing(const QJsonValue &value, QPainterPath *area)
{
    if (!value.isArray())
        return fail(tr("A ring is a list of positions."));
    const QJsonArray positions = value.toArray();
    if (positions.size() < leastRingPositions) {
        return fail(tr("A ring needs at least %1 positions; this one has %2.")
                        .arg(leastRingPositions)
                        .arg(positions.size()));
    }
    QPolygonF ring;
    ring.reserve(positions.size());
    for (int i = 0; i < positions.size(); ++i) {
        const Inside element(path, {QString(), i});
        QPointF position;
        if (!readPosition(positions.at(i), &position))
            return false;
        ring.append(position);
    }
    // Not QPointF's comparison, which takes neighbours of 1e-12 for the same.
    if (ring.first().x() != ring.last().x() || ring.first().y() != ring.last().y())
        return fail(tr("The ring is not closed: its last position differs from its first."));
    area->addPolygon(ring);
    area->closeSubpath();
    return true;
}

bool Reader::readPosition(const QJsonValue &value, QPointF *position)
{
    const QJsonArray numbers = value.toArray();
    if (!value.isArray() || numbers.size() < 2)
        return fail(tr("A position is a list of two or more numbers."));
    for (const QJsonValue &number : numbers) {
        if (!number.isDouble() || !std::isfinite(number.toDouble()))
            return fail(tr("A position holds something that is not a number."));
    }
    *position = QPointF(numbers.at(0).toDouble(), numbers.at(1).toDouble());
    return true;
}

void Reader::add(const QPainterPath &area, const QVariantMap &attributes)
{
    polygons.features.push_back({area, area.boundingRect(), attributes});
}

} // namespace

std::optional<PolygonSet> readGeoJson(const QByteArray &text, FileProblem *problem)
{
    return Reader(text, problem).read();
}

} // namespace mapviewer
