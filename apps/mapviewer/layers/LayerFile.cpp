#include "apps/mapviewer/layers/LayerFile.h"

#include "apps/mapviewer/layers/AsciiGridReader.h"
#include "apps/mapviewer/layers/GeoJsonReader.h"
#include "apps/mapviewer/layers/GridLayer.h"
#include "apps/mapviewer/layers/PolygonLayer.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace mapviewer {

namespace {

constexpr int lookAhead = 4096;

QString translated(const char *text)
{
    return QCoreApplication::translate("LayerFile", text);
}

bool looksLikeJson(const QByteArray &text)
{
    QByteArray start = text.left(lookAhead);
    if (start.startsWith("\xEF\xBB\xBF"))
        start.remove(0, 3);
    start = start.trimmed();
    return start.startsWith('{') || start.startsWith('[');
}

// What to say of a file that is no GeoJSON and that nobody would take for an ASCII grid; empty for
// what may be one.
QString otherFormat(const QString &path, const QByteArray &text)
{
    const QString ending = QFileInfo(path).suffix().toLower();
    if (text.left(lookAhead).trimmed().isEmpty())
        return translated("The file is empty.");
    if (ending == QLatin1String("json") || ending == QLatin1String("geojson"))
        return translated("This is not GeoJSON: such a file begins with \"{\".");
    // A grid is plain text.
    if (text.left(lookAhead).contains('\0'))
        return translated("This is neither an ASCII grid nor GeoJSON, but no text at all.");
    return {};
}

} // namespace

std::unique_ptr<MapLayer> readLayerFile(const QString &path, const QString &title,
                                        const QString &unit, FileProblem *problem)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problem->line = 0;
        problem->text = file.errorString();
        return nullptr;
    }
    const QByteArray text = file.readAll();
    std::unique_ptr<MapLayer> layer;
    if (looksLikeJson(text)) {
        if (auto polygons = readGeoJson(text, problem))
            layer = std::make_unique<PolygonLayer>(title, std::move(*polygons));
    } else if (const QString other = otherFormat(path, text); !other.isEmpty()) {
        problem->line = 0;
        problem->text = other;
    } else if (auto grid = readAsciiGrid(text, problem)) {
        layer = std::make_unique<GridLayer>(title, std::move(*grid), unit);
    }
    if (layer)
        layer->setPath(path);
    return layer;
}

} // namespace mapviewer
