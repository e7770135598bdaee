#pragma once

#include "apps/mapviewer/layers/FileProblem.h"
#include "apps/mapviewer/map/ColorVision.h"
#include "apps/mapviewer/map/MapRenderer.h"

#include <QMainWindow>

class QActionGroup;
class QLabel;
class QScrollArea;
class QToolBar;
class QVBoxLayout;

namespace mapviewer {

class ColorVisionEffect;
class LayerCard;
class MapWidget;

/// The host: layers with a picker each at the left, the map beside them, what lies under the
/// pointer below. Starts with the data that ship with the program.
class MapWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit MapWindow(QWidget *parent = nullptr);
    ~MapWindow() override;

    /// Adds an ASCII grid or a GeoJSON file as the uppermost layer and shows it. False, with
    /// nothing changed and the reason in `problem` (never null), when it is refused.
    bool openFile(const QString &path, FileProblem *problem);
    /// The same, with a message box about a file that is refused.
    void openFileOrTell(const QString &path);
    /// Writes the present view with its legends, in the format that the ending names. False, with
    /// the reason in `problem` (never null), when it cannot.
    bool exportMap(const QString &path, QString *problem) const;
    /// Takes all schemes from another folder, now and at the next start. False, after a message
    /// box, when not all of it could be read.
    bool openStore(const QString &folder);

    MapWidget *map() const { return m_map; }
    /// From the top of the panel, and of the map, downwards.
    QList<LayerCard *> cards() const;
    void setDarkTheme(bool on);
    void setVision(ColorVision vision);
    /// The library's manager on the store; layers follow what was changed there.
    void manageSchemes();
    /// The library's editor on the scheme of one layer: on the scheme itself if it is the user's
    /// own, else on a copy that becomes so.
    void editScheme(LayerCard *card);
    /// Shows one layer as large as it fits.
    void showLayer(const MapLayer *layer);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void addOwnLayers();
    void addLayer(std::unique_ptr<MapLayer> layer, const QStringList &preferred);
    void removeLayer(LayerCard *card);

    void buildCenter();
    void buildFileMenu(QToolBar *bar);
    void buildSchemeMenu(QToolBar *bar);
    void buildViewMenu(QToolBar *bar);
    void buildHelpMenu();
    void buildStatusBar();
    QWidget *makeHint();

    void onOpen(const QString &caption, const QString &filter);
    void onOpenStore();
    void onExport();
    void onAbout();
    void onPointed(const QPointF &position, const MapLayer *layer, const IdentifyResult &result);
    void onPointerLeft();
    void restoreState();
    void syncCards();
    void fitPanel();

    MapLayers layers;
    MapWidget *m_map = nullptr;
    QScrollArea *panelArea = nullptr;
    QWidget *panel = nullptr;
    QVBoxLayout *cardColumn = nullptr;
    QLabel *positionLabel = nullptr;
    QLabel *swatchLabel = nullptr;
    QLabel *valueLabel = nullptr;
    QAction *darkAction = nullptr;
    QAction *graticuleAction = nullptr;
    QActionGroup *visionActions = nullptr;
    ColorVisionEffect *centerEffect = nullptr;
    ColorVisionEffect *statusEffect = nullptr;
    ColorVision vision = ColorVision::Normal;
};

} // namespace mapviewer
