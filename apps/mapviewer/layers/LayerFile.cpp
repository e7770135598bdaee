#include "apps/mapviewer/layers/LayerFile.h"

#include "apps/mapviewer/layers/AsciiGridReader.h"
#include "apps/mapviewer/layers/GeoJsonReader.h"
#include "apps/mapviewer/layers/GridLayer.h"
#include "apps/mapviewer/layers/PolygonLayer.h"

#include <QFile>

namespace mapviewer {

namespace {

constexpr int lookAhead = 4096;

bool looksLikeJson(const QByteArray &text)
{
    QByteArray start = text.left(lookAhead);
    if (start.startsWith("\xEF\xBB\xBF"))
        start.remove(0, 3);
    start = start.trimmed();
    return start.startsWith('{') || start.startsWith('[');
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
    if (looksLikeJson(text)) {
        if (auto polygons = readGeoJson(text, problem))
            return std::make_unique<PolygonLayer>(title, std::move(*polygons));
    } else if (auto grid = readAsciiGrid(text, problem)) {
        return std::make_unique<GridLayer>(title, std::move(*grid), unit);
    }
    return nullptr;
}

} // namespace mapviewer
