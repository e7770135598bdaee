#include "apps/mapviewer/layers/GridLayer.h"
#include "apps/mapviewer/layers/LayerFile.h"
#include "apps/mapviewer/layers/PolygonLayer.h"
#include "apps/mapviewer/map/MapWidget.h"
#include "apps/mapviewer/map/PictureFile.h"
#include "apps/mapviewer/window/AppSettings.h"
#include "apps/mapviewer/window/LayerCard.h"
#include "apps/mapviewer/window/MapWindow.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

namespace mapviewer {

namespace {

const QString lastFolderKey = QStringLiteral("history/lastOpenFilePath");
// Begins a place in a data base, which is no folder to start a file dialog in.
const QString databasePrefix = QStringLiteral("VTSDE30_");
const QString ownDataFolder = QStringLiteral(":/mapviewer/data/");

QString lastFolder()
{
    const QString folder = appSettings().value(lastFolderKey).toString();
    return folder.startsWith(databasePrefix) ? QString() : folder;
}

void rememberFolderOf(const QString &path)
{
    appSettings().setValue(lastFolderKey, QFileInfo(path).absolutePath());
}

} // namespace

void MapWindow::addOwnLayers()
{
    FileProblem problem;
    if (auto layer =
            readLayerFile(ownDataFolder + "countries.geojson", tr("Countries"), {}, &problem)) {
        auto *countries = static_cast<PolygonLayer *>(layer.get());
        countries->setField(QStringLiteral("GDP per head (USD)"));
        countries->setClassificationMethod(ClassificationMethod::Quantiles);
        countries->setSource(tr("Countries: made with Natural Earth (public domain)"));
        addLayer(std::move(layer),
                 {QStringLiteral("Yellow to red"), QStringLiteral("Political, soft")});
    }
    const QString unit = tr("m");
    const QString agencies = tr("Heights: agencies of the United States government");
    if (auto layer = readLayerFile(ownDataFolder + "terrain.asc", tr("Terrain"), unit, &problem)) {
        static_cast<GridLayer *>(layer.get())->setHillShading(true);
        layer->setSource(agencies);
        addLayer(std::move(layer),
                 {QStringLiteral("Temperate hills"), QStringLiteral("Dry relief")});
    }
    if (auto layer = readLayerFile(ownDataFolder + "relief.asc", tr("Relief and sea floor"), unit,
                                   &problem)) {
        auto *relief = static_cast<GridLayer *>(layer.get());
        relief->setHillShading(true);
        relief->setZeroInMiddle(true);
        layer->setSource(agencies);
        addLayer(std::move(layer),
                 {QStringLiteral("Sea and land"), QStringLiteral("Lowland to snow")});
    }
}

void MapWindow::addLayer(std::unique_ptr<MapLayer> layer, const QStringList &preferred)
{
    auto *card = new LayerCard(layer.get(), preferred, panel);
    layers.insert(layers.begin(), std::move(layer));
    cardColumn->insertWidget(0, card);
    connect(card, &LayerCard::changed, m_map, &MapWidget::refresh);
    connect(card, &LayerCard::zoomRequested, this, [this, card] { showLayer(card->layer()); });
    connect(card, &LayerCard::editRequested, this, [this, card] { editScheme(card); });
    // Queued, because the button that asks for it lies on the card.
    connect(
        card, &LayerCard::removeRequested, this, [this, card] { removeLayer(card); },
        Qt::QueuedConnection);
    fitPanel();
    m_map->refresh();
}

void MapWindow::removeLayer(LayerCard *card)
{
    const auto found = std::find_if(layers.begin(), layers.end(), [card](const auto &layer) {
        return layer.get() == card->layer();
    });
    delete card;
    layers.erase(found);
    onPointerLeft();
    m_map->refresh();
}

void MapWindow::buildFileMenu(QToolBar *bar)
{
    QMenu *menu = menuBar()->addMenu(tr("&File"));
    const QIcon open = style()->standardIcon(QStyle::SP_DialogOpenButton);
    QAction *grid = menu->addAction(open, tr("Open &grid…"), this, [this] {
        onOpen(tr("Open grid"), tr("ASCII grids (*.asc *.grd *.txt);;All files (*)"));
    });
    grid->setShortcut(QKeySequence::Open);
    QAction *polygons = menu->addAction(open, tr("Open &polygons…"), this, [this] {
        onOpen(tr("Open polygons"), tr("GeoJSON (*.geojson *.json);;All files (*)"));
    });
    polygons->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+O")));
    menu->addSeparator();
    QAction *save = menu->addAction(style()->standardIcon(QStyle::SP_DialogSaveButton),
                                    tr("&Export map…"), this, &MapWindow::onExport);
    save->setShortcut(QKeySequence(QStringLiteral("Ctrl+E")));
    menu->addSeparator();
    QAction *quit = menu->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);
    bar->addActions({grid, polygons, save});
}

bool MapWindow::openFile(const QString &path, FileProblem *problem)
{
    std::unique_ptr<MapLayer> layer =
        readLayerFile(path, QFileInfo(path).completeBaseName(), {}, problem);
    if (!layer)
        return false;
    rememberFolderOf(path);
    const MapLayer *added = layer.get();
    addLayer(std::move(layer), {});
    showLayer(added);
    return true;
}

void MapWindow::openFileOrTell(const QString &path)
{
    FileProblem problem;
    if (openFile(path, &problem))
        return;
    QMessageBox::warning(this, tr("The file cannot be opened"),
                         problem.message(QFileInfo(path).fileName()), QMessageBox::Close);
}

void MapWindow::onOpen(const QString &caption, const QString &filter)
{
    const QString path = QFileDialog::getOpenFileName(this, caption, lastFolder(), filter, nullptr,
                                                      QFileDialog::DontUseNativeDialog);
    if (!path.isEmpty())
        openFileOrTell(path);
}

bool MapWindow::exportMap(const QString &path, QString *problem) const
{
    PictureSettings settings;
    QStringList titles;
    for (const auto &layer : layers) {
        if (layer->isVisible() && sharesCoordinates(*layer, m_map->view()))
            titles.append(layer->title());
    }
    settings.title = titles.join(QStringLiteral(", "));
    settings.vision = vision;
    return writePicture(path, layers, m_map->view(), m_map->mapStyle(), settings, problem);
}

void MapWindow::onExport()
{
    const QStringList filters = pictureFilters();
    const QStringList endings = pictureEndings();
    QFileDialog dialog(this, tr("Export map"), lastFolder());
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(endings.first());
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString &filter) {
        dialog.setDefaultSuffix(endings.value(filters.indexOf(filter)));
    });
    dialog.selectFile(tr("map") + QLatin1Char('.') + endings.first());
    // What was refused can be put right without beginning anew.
    while (dialog.exec() == QDialog::Accepted) {
        const QString path = dialog.selectedFiles().value(0);
        QString problem;
        if (exportMap(path, &problem)) {
            rememberFolderOf(path);
            QMessageBox::information(this, tr("Export map"), tr("The map is in %1.").arg(path),
                                     QMessageBox::Ok);
            return;
        }
        QMessageBox::warning(this, tr("Export map"), problem, QMessageBox::Close);
    }
}

} // namespace mapviewer
