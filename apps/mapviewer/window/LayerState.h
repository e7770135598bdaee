#pragma once

#include "apps/mapviewer/layers/MapLayer.h"

#include <QString>
#include <QVector>

#include <optional>

class QSettings;

namespace mapviewer {

/// What is remembered of a layer from one run to the next: where it comes from and how it is
/// graded.
struct LayerState
{
    QString path; ///< MapLayer::path()
    bool visible = true;
    ClassificationMethod method = ClassificationMethod::Unclassed;
    int classCount = 0; ///< 0: nothing is known but the path
    QString field;      ///< of polygons; else empty
    bool hillShading = false;
    bool zeroInMiddle = false;
    QString scheme; ///< as VOColorSchemeId::toText() has it; empty for none

    /// All but the scheme, which the layer does not know.
    static LayerState of(const MapLayer &layer);
    /// As far as it suits the layer: its data may have changed since.
    void applyTo(MapLayer *layer) const;
};

/// The uppermost first. Nothing where none were ever written; an empty list means no layer.
std::optional<QVector<LayerState>> readLayerStates(QSettings *settings);
void writeLayerStates(QSettings *settings, const QVector<LayerState> &states);

} // namespace mapviewer
