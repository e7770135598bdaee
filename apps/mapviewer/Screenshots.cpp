#include "apps/mapviewer/Screenshots.h"

#include "apps/mapviewer/LayerCard.h"
#include "apps/mapviewer/MapWidget.h"
#include "apps/mapviewer/MapWindow.h"

#include <QApplication>
#include <QDir>
#include <QTextStream>

namespace mapviewer {

namespace {

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

} // namespace

bool writeScreenshots(MapWindow *window, const QString &folder)
{
    Writer writer(folder);
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
    window->setVision(ColorVision::Deutan);
    writer.write(window, QStringLiteral("map-deutan-vision"));
    window->setVision(ColorVision::Normal);
    window->setDarkTheme(true);
    writer.write(window, QStringLiteral("map-dark"));
    window->setDarkTheme(false);
    const QString picture = QDir(folder).filePath(QStringLiteral("exported-map.png"));
    if (!window->exportMap(picture)) {
        writer.complain(picture);
        return false;
    }
    QTextStream(stdout) << picture << '\n';
    return writer.allWritten();
}

} // namespace mapviewer
