#include "apps/mapviewer/window/Screenshots.h"

#include "apps/mapviewer/map/MapWidget.h"
#include "apps/mapviewer/window/HistoryDialog.h"
#include "apps/mapviewer/window/LayerCard.h"
#include "apps/mapviewer/window/MapWindow.h"

#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/manager/VTAddColorSchemeGroupDialog.h"
#include "colorscheme/manager/VTColorSchemeManager.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "colorscheme/picker/VTColorSchemeGroupButton.h"
#include "colorscheme/picker/VTColorSchemeGroupMenu.h"
#include "colorscheme/picker/VTColorSchemeMenu.h"
#include "vomap/VOColorSchemeManager.h"
#include "vtcontrolbase/VTColorMenu.h"

#include <QApplication>
#include <QDir>
#include <QFontInfo>
#include <QTextStream>
#include <QTreeWidget>

namespace mapviewer {

using namespace VTObjects;

namespace {

const QSize pictureSize(1280, 860);
constexpr double largeText = 1.5;
// What a host with a dark window of its own might set for all of it.
const QString hostStyleSheet = QStringLiteral("QWidget{background-color:#2b2b2b;color:#eee}");

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

    void exportMap(const MapWindow &window, const QString &name)
    {
        const QString path = folder.filePath(name);
        QString problem;
        if (window.exportMap(path, &problem)) {
            QTextStream(stdout) << path << '\n';
            return;
        }
        good = false;
        QTextStream(stderr) << "mapviewer: " << problem << '\n';
    }

    bool allWritten() const { return good; }

private:
    QDir folder;
    bool good = true;
};

// Schemes of the user's own that were saved, changed and saved again.
void makeHistory()
{
    VOColorSchemeManager *const store = VOColorSchemeManager::instance();
    if (!store->customTeam.groups.empty())
        return;
    const std::vector<VOColorScheme> &some = store->defaultTeam.groups.front().schemes;
    if (some.size() < 6)
        return;
    VOColorSchemeGroup group;
    group.name = VOString(L"Alpine maps");
    group.schemes.assign(some.begin(), some.begin() + 4);
    store->customTeam.groups = {group};
    store->saveCustomTeam();
    std::vector<VOColorScheme> &schemes = store->customTeam.groups.front().schemes;
    schemes.erase(schemes.begin());
    const VOString name = schemes[1].name;
    schemes[1] = some[5];
    schemes[1].name = name;
    schemes.push_back(some[4]);
    store->saveCustomTeam();
}

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

    // A picker of its own, whose scheme is the first: the picture begins at the top of the list.
    VTColorSchemeComboBox picker(window);
    picker.resize(window->cards().first()->picker()->size());
    picker.setDefaultGroup(QStringLiteral("Default"), 0, 0);
    VTColorSchemeMenu dropDown(QCoreApplication::translate("QObject", "For DEM"), group, &picker);
    dropDown.show();
    writer->write(&dropDown, QStringLiteral("picker-drop-down"));
    VTColorSchemeGroupMenu groups(dropDown.findChild<VTColorSchemeGroupButton *>());
    groups.show();
    writer->write(&groups, QStringLiteral("picker-groups"));
    groups.hide();
    dropDown.hide();

    VTAddColorSchemeGroupDialog naming(QStringLiteral("Custom group1"), window);
    naming.show();
    writer->write(&naming, QStringLiteral("add-group"));
    naming.hide();

    makeHistory();
    HistoryDialog history(window);
    history.findChild<QTreeWidget *>(QStringLiteral("differences"))->setFocus();
    history.show();
    writer->write(&history, QStringLiteral("scheme-history"));
    history.hide();

    VTColorMenu colors(window);
    colors.setColor(window->palette().color(QPalette::Highlight));
    colors.show();
    writer->write(&colors, QStringLiteral("color-menu"));
    colors.hide();
}

// What the program can do with its maps; in one look, because the maps are the same in all.
void writeMaps(MapWindow *window, Writer *writer)
{
    const QList<LayerCard *> cards = window->cards();
    for (const LayerCard *card : cards) {
        if (card->layer()->title() == QLatin1String("Countries"))
            continue;
        window->showLayer(card->layer());
        writer->write(window, card == cards.first() ? QStringLiteral("map-relief")
                                                    : QStringLiteral("map-terrain"));
    }
    window->map()->showAll();
    window->setVision(ColorVision::Deutan);
    writer->write(window, QStringLiteral("map-deutan-vision"));
    window->setVision(ColorVision::Normal);
    writer->exportMap(*window, QStringLiteral("exported-map.png"));
}

} // namespace

QVector<ScreenshotLook> screenshotLooks()
{
    return {{QString(), ScreenshotLook::Light},
            {QStringLiteral("dark"), ScreenshotLook::Dark},
            {QStringLiteral("host-style"), ScreenshotLook::HostStyle},
            {QStringLiteral("large-text"), ScreenshotLook::LargeText},
            {QStringLiteral("right-to-left"), ScreenshotLook::RightToLeft}};
}

ScreenshotLook::Applied::Applied(Kind kind)
    : font(QApplication::font())
{
    if (kind == HostStyle)
        qApp->setStyleSheet(hostStyleSheet);
    if (kind == RightToLeft)
        QApplication::setLayoutDirection(Qt::RightToLeft);
    if (kind == LargeText) {
        QFont large = font;
        large.setPointSizeF(QFontInfo(font).pointSizeF() * largeText);
        QApplication::setFont(large);
    }
}

ScreenshotLook::Applied::~Applied()
{
    qApp->setStyleSheet(QString());
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QApplication::setFont(font);
}

bool writeScreenshots(MapWindow *window, const ScreenshotLook &look, const QString &folder)
{
    Writer writer(QDir(folder).filePath(look.folder));
    if (!writer.allWritten())
        return false;
    window->setDarkTheme(look.kind == ScreenshotLook::Dark);
    window->resize(pictureSize);
    window->show();
    writer.write(window, QStringLiteral("map-world"));
    writeSchemeWindows(window, &writer);
    if (look.kind == ScreenshotLook::Light)
        writeMaps(window, &writer);
    window->setDarkTheme(false);
    return writer.allWritten();
}

} // namespace mapviewer
