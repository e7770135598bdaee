#include "apps/mapviewer/window/Screenshots.h"

#include "apps/mapviewer/map/MapWidget.h"
#include "apps/mapviewer/window/LayerCard.h"
#include "apps/mapviewer/window/MapWindow.h"

#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/manager/VTColorSchemeManager.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "colorscheme/picker/VTColorSchemeGroupButton.h"
#include "colorscheme/picker/VTColorSchemeGroupMenu.h"
#include "colorscheme/picker/VTColorSchemeMenu.h"
#include "vomap/VOColorSchemeManager.h"
#include "vtcontrolbase/VTColorMenu.h"

#include <QApplication>
#include <QDir>
#include <QTextStream>

namespace mapviewer {

using namespace VTObjects;

namespace {

const QSize pictureSize(1280, 860);

class Writer
{
public:
    explicit Writer(const QString &folder)
        : folder(folder)
    {
        good = QDir().mkpath(folder);
        if (!good)
            complain(folder);
    }

    void write(QWidget *window, const QString &name)
    {
        // What a change has queued, layouts above all, must be done before the picture is taken.
        QApplication::processEvents();
        const QString path = folder.filePath(name + QStringLiteral(".png"));
        if (window->grab().save(path, "PNG")) {
            QTextStream(stdout) << path << '\n';
            return;
        }
        good = false;
        complain(path);
    }

    void complain(const QString &path)
    {
        QTextStream(stderr) << "mapviewer: " << path << " cannot be written\n";
    }

    bool allWritten() const { return good; }

private:
    QDir folder;
    bool good = true;
};

// The windows that wait for the user when they are run; here they are only shown.
void writeSchemeWindows(MapWindow *window, Writer *writer)
{
    VTColorSchemeManager manager(window);
    manager.show();
    writer->write(&manager, QStringLiteral("scheme-manager"));
    manager.hide();

    VOColorSchemeGroup group = VOColorSchemeManager::instance()->defaultTeam.groups.front();
    VTColorSchemeEditor editor(0, &group, false, window);
    editor.show();
    writer->write(&editor, QStringLiteral("scheme-editor"));
    editor.hide();

    VTColorSchemeMenu dropDown(QCoreApplication::translate("QObject", "For DEM"), group,
                               window->cards().first()->picker());
    dropDown.show();
    writer->write(&dropDown, QStringLiteral("picker-drop-down"));
    VTColorSchemeGroupMenu groups(dropDown.findChild<VTColorSchemeGroupButton *>());
    groups.show();
    writer->write(&groups, QStringLiteral("picker-groups"));
    groups.hide();
    dropDown.hide();

    VTColorMenu colors(window);
    colors.setColor(window->palette().color(QPalette::Highlight));
    colors.show();
    writer->write(&colors, QStringLiteral("color-menu"));
    colors.hide();
}

} // namespace

bool writeScreenshots(MapWindow *window, const QString &folder)
{
    Writer writer(folder);
    if (!writer.allWritten())
        return false;
    window->resize(pictureSize);
    window->show();
    writer.write(window, QStringLiteral("map-world"));
    const QList<LayerCard *> cards = window->cards();
    for (const LayerCard *card : cards) {
        if (card->layer()->title() == QLatin1String("Countries"))
            continue;
        window->showLayer(card->layer());
        writer.write(window, card == cards.first() ? QStringLiteral("map-relief")
                                                   : QStringLiteral("map-terrain"));
    }
    window->map()->showAll();
    writeSchemeWindows(window, &writer);
    window->setVision(ColorVision::Deutan);
    writer.write(window, QStringLiteral("map-deutan-vision"));
    window->setVision(ColorVision::Normal);
    window->setDarkTheme(true);
    writer.write(window, QStringLiteral("map-dark"));
    window->setDarkTheme(false);
    const QString picture = QDir(folder).filePath(QStringLiteral("exported-map.png"));
    if (QString problem; !window->exportMap(picture, &problem)) {
        QTextStream(stderr) << "mapviewer: " << problem << '\n';
        return false;
    }
    QTextStream(stdout) << picture << '\n';
    return writer.allWritten();
}

} // namespace mapviewer
