#pragma once

#include "apps/mapviewer/layers/MapLayer.h"
#include "apps/mapviewer/layers/MapView.h"

#include <QColor>
#include <QFont>

#include <memory>
#include <vector>

namespace mapviewer {

/// The layers of a map, the uppermost first.
using MapLayers = std::vector<std::unique_ptr<MapLayer>>;

/// The colours of all that is not a layer.
struct MapStyle
{
    QColor paper;     ///< beyond the globe, and behind maps that are not in degrees
    QColor water;     ///< the globe, where no layer covers it
    QColor graticule; ///< meridians and parallels; translucent
    QColor ink;       ///< texts, frames and the scale bar
    QColor halo;      ///< behind texts that stand on the map
    QFont font;
    bool withGraticule = true;

    static MapStyle light(const QFont &font);
    static MapStyle dark(const QFont &font);
};

/// A small map within the map, for a layer whose area would be a speck at the present scale. It is
/// filled by the middle of that area.
struct MapInset
{
    const MapLayer *layer = nullptr;
    MapView view;   ///< of the inset's own picture
    QRectF frame;   ///< picture and caption, in the pixels of the large map
    QRectF caption; ///< the strip with the layer's title
    QRectF marker;  ///< where the layer's area lies on the large map
};

/// Whether a layer can lie on the map of that view: degrees and the meters of a projection have
/// nothing in common, and files do not tell which projection it is.
bool sharesCoordinates(const MapLayer &layer, const MapView &view);

/// Draws maps: water, layers, graticule, insets, scale bar. Knows no widget, so that the window
/// and an exported picture are the same.
class MapRenderer
{
public:
    MapRenderer(const MapLayers &layers, const MapStyle &style);

    void paint(QPainter *painter, const MapView &view) const;
    /// The insets of that view, bottom left upwards: one for each visible layer that lies within
    /// the view and measures less than 28 pixels there, as far as there is room for them.
    std::vector<MapInset> insets(const MapView &view) const;
    /// What the uppermost visible layer that has something there says, insets included, and which
    /// layer that was (null when none).
    IdentifyResult identify(const MapView &view, const QPointF &pixel,
                            const MapLayer **layer) const;
    /// The place on the map under a pixel, which may be one of an inset.
    QPointF positionAt(const MapView &view, const QPointF &pixel) const;
    /// The united extent of the visible layers that share the coordinates of a view; where there
    /// are none, or the view is not set up yet, those of the uppermost visible layer. Of all layers
    /// when none is visible.
    QRectF extent(const MapView &view) const;
    /// Whether the layer takes part in that view. A visible layer in the same coordinates does,
    /// unless the view is so deep inside it (a fiftieth of its width) that it would be one flat
    /// colour around a smaller layer: the borders of the world say nothing on the map of a valley.
    bool isShownIn(const MapLayer &layer, const MapView &view) const;

private:
    void paintLayers(QPainter *painter, const MapView &view) const;
    void paintGlobe(QPainter *painter, const MapView &view) const;
    void paintGraticule(QPainter *painter, const MapView &view) const;
    void paintInset(QPainter *painter, const MapInset &inset) const;
    void paintScaleBar(QPainter *painter, const MapView &view) const;

    const MapLayers &layers;
    const MapStyle &style;
};

} // namespace mapviewer
