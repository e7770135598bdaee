#pragma once

#include "apps/mapviewer/layers/FileProblem.h"
#include "apps/mapviewer/map/ColorVision.h"
#include "apps/mapviewer/map/MapRenderer.h"
#include "apps/mapviewer/window/LayerState.h"

#include "colorscheme/manager/VTDiscardedSchemes.h"

#include <QMainWindow>

#include <memory>

class QActionGroup;
class QSettings;
class QLabel;
class QScrollArea;
class QToolBar;
class QVBoxLayout;
class VTColorSchemeManager;

namespace mapviewer {

class ColorVisionWindows;
class LayerCard;
class MapWidget;
class NoticeBar;
class StoreGuard;

/// The host: the map, layers with a picker each at its right, what lies under the pointer below.
/// The pickers' menus open below them and to their left, over the map. Starts with the layers of
/// the last run, at first with the maps that ship with the program.
class MapWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit MapWindow(QWidget *parent = nullptr);
    ~MapWindow() override;

    /// Adds an ASCII grid or a GeoJSON file as the uppermost layer and shows it. False, with
    /// nothing changed and the reason in `problem` (never null), when it is refused.
    bool openFile(const QString &path, FileProblem *problem);
    /// The same, with a message box about a file that is refused; later files are looked for beside
    /// it.
    void openFileOrTell(const QString &path);
    /// Shows the layer of that file if there is one, else opens it so.
    void showFile(const QString &path);
    /// Writes the present view with its legends, in the format that the ending names. False, with
    /// the reason in `problem` (never null), when it cannot.
    bool exportMap(const QString &path, QString *problem) const;
    /// Takes all schemes from another folder, now and at the next start; from the default place for
    /// an empty name. False when the user would rather keep what is not saved. A notice tells what
    /// is wrong with it.
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
    /// The manager again, with the changes that were discarded in it last.
    void bringBackDiscarded();
    /// The earlier states of the store, to look at and to bring back.
    void showHistory();
    /// Shows one layer as large as it fits.
    void showLayer(const MapLayer *layer);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void addOwnMaps();
    void restoreLayers();
    void takeLayers(const QVector<LayerState> &states);
    void tellMissingLayers();
    void rememberLayers() const;
    bool hasLayerOf(const QString &path) const;
    /// Of `state` only the scheme counts, which may be empty.
    void addLayer(std::unique_ptr<MapLayer> layer, const LayerState &state);
    void removeLayer(LayerCard *card);
    void followVisibility(const LayerCard *card);
    void leaveEmptyMap();
    void markCards();
    void orderTabs();

    void buildCenter();
    void buildFileMenu(QToolBar *bar);
    void buildSchemeMenu(QToolBar *bar);
    void buildViewMenu(QToolBar *bar);
    void buildHelpMenu();
    void buildStatusBar();
    QWidget *makeHint();
    /// Above the map, below older ones. Takes it over.
    void showNotice(NoticeBar *notice);

    void onOpen(const QString &caption, const QString &filter);
    void run(VTColorSchemeManager *manager);
    void setDiscarded(const VTDiscardedSchemes &schemes);
    void onOpenStore();
    void onStoreOpened();
    void onRestoreBuiltIns();
    void showStoreName();
    void onExport();
    void onAbout();
    void onPointed(const QPointF &position, const MapLayer *layer, const IdentifyResult &result);
    void onPointerLeft();
    void restoreState();
    void fitScreen();
    void syncCards();
    void fitPanel();

    std::unique_ptr<QSettings> dialogSettings; // where the library keeps the sizes of its dialogs
    MapLayers layers;
    QVector<LayerState> missing; // layers of the last run whose files are not there now
    QStringList missingReasons;  // of each, a line
    bool started = false;        // all layers of the last run are back
    MapWidget *m_map = nullptr;
    QScrollArea *panelArea = nullptr;
    QWidget *panel = nullptr;
    QWidget *hint = nullptr; // none once the user has closed it for good
    QVBoxLayout *cardColumn = nullptr;
    QVBoxLayout *noticeColumn = nullptr;
    QLabel *positionLabel = nullptr;
    QLabel *swatchLabel = nullptr;
    QLabel *valueLabel = nullptr;
    QAction *darkAction = nullptr;
    QAction *graticuleAction = nullptr;
    QActionGroup *visionActions = nullptr;
    QLabel *storeLabel = nullptr;
    QAction *defaultStoreAction = nullptr;
    QAction *bringBackAction = nullptr;
    VTDiscardedSchemes discarded; // of the open store
    ColorVisionWindows *seenWindows;
    StoreGuard *guard;
    ColorVision vision = ColorVision::Normal;
};

} // namespace mapviewer
