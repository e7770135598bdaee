#include "apps/mapviewer/window/MapWindow.h"
#include "apps/mapviewer/window/Screenshots.h"
#include "apps/mapviewer/window/StoreGuard.h"
#include "apps/mapviewer/window/ThemeStyle.h"

#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vtgiscore/VTApplication.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>

#include <optional>

namespace {

// Pictures show the program as it comes, whatever this user has chosen, and change nothing of it.
int makeScreenshots(const QString &folder, const QStringList &files)
{
    const QTemporaryDir scratch;
    VTObjects::VOColorSchemeManager::setStoreDirectory(
        VTObjects::toVOString(scratch.filePath(QStringLiteral("store"))));
    for (const mapviewer::ScreenshotLook &look : mapviewer::screenshotLooks()) {
        // Each begins anew, or it would show the layers of the one before.
        VTApplication::setVtgisSettingsFilePath(
            scratch.filePath(look.folder + QStringLiteral("settings.ini")));
        const mapviewer::ScreenshotLook::Applied applied(look.kind);
        mapviewer::MapWindow window;
        for (const QString &file : files) {
            mapviewer::FileProblem problem;
            if (!window.openFile(file, &problem)) {
                QTextStream(stderr) << problem.message(QFileInfo(file).fileName()) << '\n';
                return 2;
            }
        }
        if (!mapviewer::writeScreenshots(&window, look, folder))
            return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("mapviewer"));
    QApplication::setApplicationDisplayName(QStringLiteral("Map Viewer"));
    QApplication::setStyle(new mapviewer::ThemeStyle);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows maps and colors them by schemes that you pick."));
    parser.addHelpOption();
    const QCommandLineOption screenshots(
        QStringLiteral("screenshots"),
        QStringLiteral("Write a PNG of every window into <folder>, print the paths and end."),
        QStringLiteral("folder"));
    parser.addOption(screenshots);
    parser.addPositionalArgument(QStringLiteral("files"),
                                 QStringLiteral("ASCII grids and GeoJSON polygons to show."),
                                 QStringLiteral("[files...]"));
    parser.process(application);

    if (parser.isSet(screenshots))
        return makeScreenshots(parser.value(screenshots), parser.positionalArguments());

    mapviewer::StoreGuard::useChosenFolder();
    mapviewer::MapWindow window;
    window.show();
    for (const QString &file : parser.positionalArguments())
        window.showFile(file);
    return QApplication::exec();
}
