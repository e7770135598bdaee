#include "apps/mapviewer/map/MapWidget.h"
#include "apps/mapviewer/map/PictureFile.h"
#include "apps/mapviewer/window/AppSettings.h"
#include "apps/mapviewer/window/MapWindow.h"
#include "apps/mapviewer/window/OwnMaps.h"
#include "apps/mapviewer/window/showMessage.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QStyle>
#include <QToolBar>

namespace mapviewer {

namespace {

const QString lastFolderKey = QStringLiteral("history/lastOpenFilePath");
// Begins a place in a data base, which is no folder to start a file dialog in.
const QString databasePrefix = QStringLiteral("VTSDE30_");

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
    QAction *samples = menu->addAction(tr("Add the &sample maps"), this, [this] {
        addOwnMaps();
        m_map->showAll();
    });
    samples->setObjectName(QStringLiteral("addSampleMaps"));
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
    std::unique_ptr<MapLayer> layer = readMap(QFileInfo(path).absoluteFilePath(), problem);
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
    showMessage(this, QMessageBox::Warning, tr("The file cannot be opened"),
                problem.message(QFileInfo(path).fileName()));
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
            showMessage(this, QMessageBox::Information, tr("Export map"),
                        tr("The map is in %1.").arg(QDir::toNativeSeparators(path)),
                        QMessageBox::Ok);
            return;
        }
        showMessage(this, QMessageBox::Warning, tr("Export map"), problem);
    }
}

} // namespace mapviewer
