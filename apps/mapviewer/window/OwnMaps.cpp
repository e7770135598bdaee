#include "apps/mapviewer/window/OwnMaps.h"

#include "apps/mapviewer/layers/GridLayer.h"
#include "apps/mapviewer/layers/LayerFile.h"
#include "apps/mapviewer/layers/PolygonLayer.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace mapviewer {

namespace {

const QString countriesFile = QStringLiteral(":/mapviewer/data/countries.geojson");
const QString terrainFile = QStringLiteral(":/mapviewer/data/terrain.asc");
const QString reliefFile = QStringLiteral(":/mapviewer/data/relief.asc");

QString translated(const char *text)
{
    return QCoreApplication::translate("OwnMaps", text);
}

QString titleOf(const QString &path)
{
    if (path == countriesFile)
        return translated("Countries");
    if (path == terrainFile)
        return translated("Terrain");
    if (path == reliefFile)
        return translated("Relief and sea floor");
    return QFileInfo(path).completeBaseName();
}

void gradeFirst(MapLayer *layer)
{
    if (auto *countries = dynamic_cast<PolygonLayer *>(layer)) {
        countries->setField(QStringLiteral("GDP per head (USD)"));
        countries->setClassificationMethod(ClassificationMethod::Quantiles);
        countries->setSource(translated("Countries: made with Natural Earth (public domain)"));
    }
    if (auto *heights = dynamic_cast<GridLayer *>(layer)) {
        heights->setHillShading(true);
        heights->setZeroInMiddle(true);
        heights->setSource(translated("Heights: agencies of the United States government"));
    }
}

} // namespace

QStringList ownMapFiles()
{
    return {countriesFile, terrainFile, reliefFile};
}

std::unique_ptr<MapLayer> readMap(const QString &path, FileProblem *problem)
{
    const bool own = ownMapFiles().contains(path);
    const QString unit = own ? translated("m") : QString();
    std::unique_ptr<MapLayer> layer = readLayerFile(path, titleOf(path), unit, problem);
    if (layer && own)
        gradeFirst(layer.get());
    return layer;
}

QStringList schemesFor(const QString &path)
{
    if (path == countriesFile)
        return {QStringLiteral("Yellow to red"), QStringLiteral("Political, soft")};
    if (path == terrainFile)
        return {QStringLiteral("Temperate hills"), QStringLiteral("Dry relief")};
    if (path == reliefFile)
        return {QStringLiteral("Sea and land"), QStringLiteral("Lowland to snow")};
    return {};
}

} // namespace mapviewer
