#include "apps/mapviewer/map/PictureFile.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#ifdef MAPVIEWER_WITH_SVG
#include <QSvgGenerator>
#endif

#include <vector>

namespace mapviewer {

namespace {

constexpr double pointsPerInch = 72.0;

QString translated(const char *text)
{
    return QCoreApplication::translate("PictureFile", text);
}

struct Page
{
    const MapLayers &layers;
    const MapView &view;
    const MapStyle &style;
    const PictureSettings &settings;

    void paint(QPainter *painter) const
    {
        if (settings.vision == ColorVision::Normal) {
            paintMapPicture(painter, layers, view, style, settings);
            return;
        }
        painter->drawImage(QRectF(QPointF(0.0, 0.0), QSizeF(settings.size)),
                           mapPicture(layers, view, style, settings));
    }
};

// That of pictures, so that letters have one size in all formats.
int dotsPerInch()
{
    return QImage(1, 1, QImage::Format_RGB32).logicalDpiX();
}

bool writePng(const Page &page, QBuffer *buffer)
{
    return mapPicture(page.layers, page.view, page.style, page.settings).save(buffer, "PNG");
}

bool writePdf(const Page &page, QBuffer *buffer)
{
    QPdfWriter writer(buffer);
    writer.setTitle(page.settings.title);
    writer.setCreator(QGuiApplication::applicationDisplayName());
    writer.setResolution(dotsPerInch());
    const QSizeF points = QSizeF(page.settings.size) * (pointsPerInch / dotsPerInch());
    writer.setPageSize(QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    page.paint(&painter);
    return painter.end();
}

#ifdef MAPVIEWER_WITH_SVG
bool writeSvg(const Page &page, QBuffer *buffer)
{
    QSvgGenerator generator;
    generator.setOutputDevice(buffer);
    generator.setTitle(page.settings.title);
    generator.setResolution(dotsPerInch());
    generator.setSize(page.settings.size);
    generator.setViewBox(QRect(QPoint(0, 0), page.settings.size));
    QPainter painter;
    if (!painter.begin(&generator))
        return false;
    page.paint(&painter);
    return painter.end();
}
#endif

struct Format
{
    QString ending;
    QString filter;
    bool (*write)(const Page &page, QBuffer *buffer);
};

std::vector<Format> formats()
{
    return {{QStringLiteral("png"), translated("PNG picture (*.png)"), &writePng},
#ifdef MAPVIEWER_WITH_SVG
            {QStringLiteral("svg"), translated("SVG drawing (*.svg)"), &writeSvg},
#endif
            {QStringLiteral("pdf"), translated("PDF document (*.pdf)"), &writePdf}};
}

// "png, svg or pdf", each as `pattern` has it.
QString listed(const QString &pattern, bool large = false)
{
    QStringList parts;
    for (const QString &ending : pictureEndings())
        parts.append(pattern.arg(large ? ending.toUpper() : ending));
    const QString last = parts.takeLast();
    return translated("%1 or %2").arg(parts.join(QStringLiteral(", ")), last);
}

} // namespace

QStringList pictureEndings()
{
    QStringList endings;
    for (const Format &format : formats())
        endings.append(format.ending);
    return endings;
}

QStringList pictureFilters()
{
    QStringList filters;
    for (const Format &format : formats())
        filters.append(format.filter);
    return filters;
}

bool writePicture(const QString &path, const MapLayers &layers, const MapView &view,
                  const MapStyle &style, const PictureSettings &settings, QString *problem)
{
    const QString ending = QFileInfo(path).suffix().toLower();
    for (const Format &format : formats()) {
        if (format.ending != ending)
            continue;
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QSaveFile file(path);
        // Whole or not at all: an older picture is not lost to a full disk.
        if (format.write({layers, view, style, settings}, &buffer) &&
            file.open(QIODevice::WriteOnly) && file.write(buffer.data()) == buffer.data().size() &&
            file.commit())
            return true;
        *problem = translated("%1 could not be written: %2.").arg(path, file.errorString());
        return false;
    }
    *problem = translated("%1: a map is written as %2. Choose a name that ends in %3.")
                   .arg(QFileInfo(path).fileName(), listed(QStringLiteral("%1"), true),
                        listed(QStringLiteral("\".%1\"")));
    return false;
}

} // namespace mapviewer
