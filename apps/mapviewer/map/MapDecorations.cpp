#include "apps/mapviewer/map/MapDecorations_p.h"

#include "apps/mapviewer/layers/NumberText.h"
#include "apps/mapviewer/layers/earth_p.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cmath>

namespace mapviewer {

namespace {

constexpr double leastLineDistance = 90.0;
constexpr double widestScaleBar = 140.0;
constexpr double widestRegion = 60.0; // degrees of latitude over which one bar still serves
constexpr double labelMargin = 3.0;
constexpr double leastPointSize = 6.0;
constexpr double smallerBy = 1.5; // points
constexpr std::array<double, 14> graticuleSteps = {0.005, 0.01, 0.02, 0.05, 0.1,  0.2,  0.5,
                                                   1.0,   2.0,  5.0,  10.0, 15.0, 30.0, 45.0};

QString degreesText(double degrees, const QString &positive, const QString &negative)
{
    // Rounded first: a sum of steps may miss zero by a hair and must not become "0° S".
    const double rounded = std::round(degrees * 1e6) / 1e6;
    QString number = numberText(std::abs(rounded)) + QChar(0x00b0);
    if (rounded == 0.0)
        return isolated(number);
    return isolated(number + QChar(0x00a0) + (rounded > 0.0 ? positive : negative));
}

QFont smaller(QFont font)
{
    font.setPointSizeF(std::max(font.pointSizeF() - smallerBy, leastPointSize));
    return font;
}

QString translated(const char *text)
{
    return QCoreApplication::translate("MapDecorations", text);
}

} // namespace

double graticuleStep(double pixelsPerDegree)
{
    const auto step =
        std::find_if(graticuleSteps.begin(), graticuleSteps.end(), [=](double degrees) {
            return degrees * pixelsPerDegree >= leastLineDistance;
        });
    return step == graticuleSteps.end() ? graticuleSteps.back() : *step;
}

QString longitudeText(double degrees)
{
    return degreesText(degrees, translated("E"), translated("W"));
}

QString latitudeText(double degrees)
{
    return degreesText(degrees, translated("N"), translated("S"));
}

ScaleBar scaleBar(const MapView &view)
{
    double metersPerPixel = 1.0 / view.scaleX();
    if (view.geographic()) {
        if (view.visible().height() > widestRegion)
            return {};
        const double latitude = std::clamp(view.center().y(), -89.0, 89.0);
        metersPerPixel *= metersPerDegree * std::cos(latitude * degreesToRadians);
    }
    const double longest = metersPerPixel * widestScaleBar;
    double length = std::pow(10.0, std::floor(std::log10(longest)));
    for (const double factor : {5.0, 2.0}) {
        if (length * factor <= longest) {
            length *= factor;
            break;
        }
    }
    // A map that is not in degrees does not say its unit.
    const QString text =
        isolated(!view.geographic() ? numberText(length)
                 : length >= 1000.0 ? translated("%1 km").arg(numberText(length / 1000.0))
                                    : translated("%1 m").arg(numberText(length)));
    return {length / metersPerPixel, text};
}

MapLabel::MapLabel(QPainter *painter, const MapStyle &style)
    : painter(painter)
    , style(style)
    , font(smaller(style.font))
    , metrics(font, painter->device())
{
}

double MapLabel::width(const QString &text) const
{
    return std::ceil(metrics.horizontalAdvance(text)) + 2.0 * labelMargin;
}

double MapLabel::height() const
{
    return std::ceil(metrics.height());
}

void MapLabel::draw(const QPointF &topLeft, const QString &text) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(style.halo);
    painter->drawRoundedRect(QRectF(topLeft, QSizeF(width(text), height())), labelMargin,
                             labelMargin);
    painter->setFont(font);
    painter->setPen(style.ink);
    painter->drawText(topLeft + QPointF(labelMargin, metrics.ascent()), text);
    painter->restore();
}

} // namespace mapviewer
