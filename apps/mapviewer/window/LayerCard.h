#pragma once

#include "apps/mapviewer/layers/MapLayer.h"
#include "apps/mapviewer/window/CardFrame.h"
#include "apps/mapviewer/window/LayerState.h"

#include "vomap/VOColorSchemeId.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QSpinBox;
class QVBoxLayout;
class VTColorSchemeComboBox;

namespace mapviewer {

class GridLayer;
class LegendWidget;
class PolygonLayer;

/// One layer on the panel: whether it is shown, its scheme, how it is classified, its legend. This
/// is where the picker meets the map: a chosen ramp goes straight into the layer.
class LayerCard : public CardFrame
{
    Q_OBJECT
public:
    /// `layer` outlives the card and is changed by it. `preferred` names the schemes that suit
    /// the layer best, the best first; they serve until the user has chosen another.
    LayerCard(MapLayer *layer, const QStringList &preferred, QWidget *parent);

    MapLayer *layer() const { return m_layer; }
    VTColorSchemeComboBox *picker() const { return m_picker; }
    /// The scheme that was picked, by the names that it has now; null when the store has it no
    /// more.
    VTObjects::VOColorSchemeId currentScheme() const;
    /// What the next run shall find again.
    LayerState state() const;
    /// Says so on the card when the layer is in other coordinates than the map that is shown.
    void setOnMap(bool on);
    /// Shows another scheme of the store, as if the user had picked it. False if it is gone.
    bool choose(const VTObjects::VOColorSchemeId &id);
    /// The same for a scheme of the user's own by its place, where names do not tell two apart.
    void chooseOwn(int group, int scheme);
    /// Another store: finds the remembered scheme in it, else a default.
    void reloadScheme();
    /// The store has changed: takes the scheme as it is there now. When it is gone the layer
    /// keeps its colours.
    void syncWithStore();

Q_SIGNALS:
    /// The layer looks different now.
    void changed();
    /// The user showed or hid it; changed() follows.
    void visibilityChanged();
    void zoomRequested();
    void editRequested();
    void removeRequested();

private:
    void addHeader(QVBoxLayout *column);
    void addPicker(QVBoxLayout *column);
    void addClassification(QVBoxLayout *column);
    void addGridOptions(QVBoxLayout *column, GridLayer *grid);
    void take();
    void onMethodChosen(int index);
    void onFieldChosen(const QString &field);
    void fillMethods();
    void showChange();
    /// The built-in group that serves the layer's present classification.
    QString schemeGroup() const;
    QString settingsKey() const;

    /// What was chosen for the layer. The store may do without it at present: then the picker
    /// shows a stand-in, which nobody chose and which is not remembered.
    VTObjects::VOColorSchemeId chosen;
    VTObjects::VOColorSchemeId standIn;
    MapLayer *m_layer;
    PolygonLayer *polygons; // the layer if it is one, else null
    QStringList preferred;
    VTColorSchemeComboBox *m_picker = nullptr;
    QComboBox *methods = nullptr;
    QSpinBox *classCount = nullptr;
    LegendWidget *legend = nullptr;
    QLabel *elsewhere = nullptr;
};

} // namespace mapviewer
