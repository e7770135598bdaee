#include "apps/mapviewer/window/LayerState.h"

#include "apps/mapviewer/layers/GridLayer.h"
#include "apps/mapviewer/layers/PolygonLayer.h"

#include <QSettings>

#include <algorithm>
#include <array>
#include <utility>

namespace mapviewer {

namespace {

const QString arrayKey = QStringLiteral("mapviewer/layers");
const QString sizeKey = QStringLiteral("mapviewer/layers/size");
const QString pathKey = QStringLiteral("path");
const QString visibleKey = QStringLiteral("visible");
const QString methodKey = QStringLiteral("method");
const QString classCountKey = QStringLiteral("classes");
const QString fieldKey = QStringLiteral("field");
const QString hillShadingKey = QStringLiteral("hillShading");
const QString zeroInMiddleKey = QStringLiteral("zeroInMiddle");
const QString schemeKey = QStringLiteral("scheme");

// By name, so that settings outlive a new order of the methods.
const std::array<std::pair<ClassificationMethod, QString>, 4> methodNames = {
    {{ClassificationMethod::Unclassed, QStringLiteral("continuous")},
     {ClassificationMethod::EqualIntervals, QStringLiteral("equalIntervals")},
     {ClassificationMethod::Quantiles, QStringLiteral("quantiles")},
     {ClassificationMethod::UniqueValues, QStringLiteral("uniqueValues")}}};

QString nameOf(ClassificationMethod method)
{
    const auto found = std::find_if(methodNames.begin(), methodNames.end(),
                                    [=](const auto &entry) { return entry.first == method; });
    return found == methodNames.end() ? QString() : found->second;
}

ClassificationMethod methodOf(const QString &name)
{
    const auto found = std::find_if(methodNames.begin(), methodNames.end(),
                                    [&](const auto &entry) { return entry.second == name; });
    return found == methodNames.end() ? ClassificationMethod::Unclassed : found->first;
}

} // namespace

LayerState LayerState::of(const MapLayer &layer)
{
    LayerState state;
    state.path = layer.path();
    state.visible = layer.isVisible();
    state.method = layer.classificationMethod();
    state.classCount = layer.classCount();
    if (const auto *polygons = dynamic_cast<const PolygonLayer *>(&layer))
        state.field = polygons->field();
    if (const auto *grid = dynamic_cast<const GridLayer *>(&layer)) {
        state.hillShading = grid->hillShading();
        state.zeroInMiddle = grid->zeroInMiddle();
    }
    return state;
}

void LayerState::applyTo(MapLayer *layer) const
{
    layer->setVisible(visible);
    if (classCount <= 0)
        return;
    layer->setClassCount(classCount);
    if (auto *polygons = dynamic_cast<PolygonLayer *>(layer))
        polygons->setField(field);
    layer->setClassificationMethod(method);
    if (auto *grid = dynamic_cast<GridLayer *>(layer)) {
        grid->setZeroInMiddle(zeroInMiddle);
        grid->setHillShading(hillShading);
    }
}

std::optional<QVector<LayerState>> readLayerStates(QSettings *settings)
{
    if (!settings->contains(sizeKey))
        return std::nullopt;
    QVector<LayerState> states;
    const int count = settings->beginReadArray(arrayKey);
    for (int i = 0; i < count; ++i) {
        settings->setArrayIndex(i);
        LayerState state;
        state.path = settings->value(pathKey).toString();
        state.visible = settings->value(visibleKey, true).toBool();
        state.method = methodOf(settings->value(methodKey).toString());
        state.classCount = settings->value(classCountKey).toInt();
        state.field = settings->value(fieldKey).toString();
        state.hillShading = settings->value(hillShadingKey).toBool();
        state.zeroInMiddle = settings->value(zeroInMiddleKey).toBool();
        state.scheme = settings->value(schemeKey).toString();
        if (!state.path.isEmpty())
            states.append(state);
    }
    settings->endArray();
    return states;
}

void writeLayerStates(QSettings *settings, const QVector<LayerState> &states)
{
    settings->remove(arrayKey);
    settings->beginWriteArray(arrayKey, states.size());
    for (int i = 0; i < states.size(); ++i) {
        const LayerState &state = states.at(i);
        settings->setArrayIndex(i);
        settings->setValue(pathKey, state.path);
        settings->setValue(visibleKey, state.visible);
        settings->setValue(methodKey, nameOf(state.method));
        settings->setValue(classCountKey, state.classCount);
        settings->setValue(fieldKey, state.field);
        settings->setValue(hillShadingKey, state.hillShading);
        settings->setValue(zeroInMiddleKey, state.zeroInMiddle);
        settings->setValue(schemeKey, state.scheme);
    }
    settings->endArray();
}

} // namespace mapviewer
