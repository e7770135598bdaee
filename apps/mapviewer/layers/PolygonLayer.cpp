#include "apps/mapviewer/layers/PolygonLayer.h"

#include "apps/mapviewer/layers/NumberText.h"
#include "apps/mapviewer/layers/RampColors.h"

#include <QCoreApplication>
#include <QPen>
#include <QSet>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <limits>

namespace mapviewer {

namespace {

constexpr int mostLegendValues = 12;
constexpr double outlineWidth = 0.8;

QString translated(const char *text)
{
    return QCoreApplication::translate("PolygonLayer", text);
}

QString textOf(const QVariant &value)
{
    return value.type() == QVariant::Double ? numberText(value.toDouble()) : value.toString();
}

} // namespace

PolygonLayer::PolygonLayer(const QString &title, PolygonSet set)
    : MapLayer(title)
    , polygons(std::move(set))
    , bounds(polygons.extent())
    , outline(Qt::white)
{
    const QStringList names = polygons.fieldNames();
    for (const QString &name : names) {
        if (name.compare(QLatin1String("name"), Qt::CaseInsensitive) == 0)
            m_nameField = name;
    }
    setClassificationMethod(ClassificationMethod::UniqueValues);
    if (!names.isEmpty())
        setField(m_nameField.isEmpty() ? names.first() : m_nameField);
}

QVector<ClassificationMethod> PolygonLayer::availableMethods() const
{
    if (polygons.isNumeric(m_field))
        return {ClassificationMethod::Quantiles, ClassificationMethod::EqualIntervals,
                ClassificationMethod::UniqueValues};
    return {ClassificationMethod::UniqueValues};
}

void PolygonLayer::setField(const QString &name)
{
    if (!polygons.fieldNames().contains(name))
        return;
    m_field = name;
    column.clear();
    numbers.clear();
    const bool numeric = polygons.isNumeric(name);
    for (const PolygonFeature &feature : polygons.features) {
        column.push_back(feature.attributes.value(name));
        numbers.push_back(numeric && column.back().isValid()
                              ? column.back().toDouble()
                              : std::numeric_limits<double>::quiet_NaN());
    }
    setClassificationMethod(availableMethods().contains(classificationMethod())
                                ? classificationMethod()
                                : ClassificationMethod::UniqueValues);
}

void PolygonLayer::recolor()
{
    if (classificationMethod() == ClassificationMethod::UniqueValues) {
        unique = UniqueValues(column);
        colors = uniqueColors(ramp(), unique.count());
        return;
    }
    if (classificationMethod() == ClassificationMethod::Quantiles) {
        breaks = quantiles(numbers, classCount());
    } else {
        double low = std::numeric_limits<double>::quiet_NaN();
        double high = low;
        for (const double number : numbers) {
            low = std::fmin(low, number);
            high = std::fmax(high, number);
        }
        breaks = equalIntervals(low, high, classCount());
    }
    colors = classColors(ramp(), breaks.count());
}

QRgb PolygonLayer::colorOf(int feature) const
{
    if (feature < 0 || feature >= int(column.size()))
        return noValueColor;
    const auto index = std::size_t(feature);
    const int number = classificationMethod() == ClassificationMethod::UniqueValues
                           ? unique.classOf(column[index])
                           : breaks.classOf(numbers[index]);
    return colors.value(number, noValueColor);
}

void PolygonLayer::paint(QPainter *painter, const MapView &view) const
{
    const QPointF origin = view.toScreen(QPointF(0.0, 0.0));
    const QTransform toScreen(view.scaleX(), 0.0, 0.0, -view.scale(), origin.x(), origin.y());
    const QRectF seen = view.visible();
    painter->save();
    painter->setClipRect(view.target(), Qt::IntersectClip);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(outline, outlineWidth));
    for (std::size_t i = 0; i < polygons.features.size(); ++i) {
        const PolygonFeature &feature = polygons.features[i];
        // Not QRectF::intersects, to which an area without width is no area.
        if (feature.bounds.left() > seen.right() || feature.bounds.right() < seen.left() ||
            feature.bounds.top() > seen.bottom() || feature.bounds.bottom() < seen.top())
            continue;
        painter->setBrush(QColor(colorOf(int(i))));
        painter->drawPath(toScreen.map(feature.path));
    }
    painter->restore();
}

QString PolygonLayer::repetitionText() const
{
    const int values = unique.count();
    if (!ramp() || values == 0)
        return {};
    if (rampColors(ramp()).isEmpty())
        return translated("The scheme has no colors.");
    // Counted as they are seen: a scheme may hold one color twice.
    const int different = QSet<QRgb>(colors.begin(), colors.end()).size();
    if (different >= values)
        return {};
    if (different == 1)
        return translated("%1 values, 1 color: colors repeat").arg(values);
    return translated("%1 values, %2 colors: colors repeat").arg(values).arg(different);
}

Legend PolygonLayer::legend() const
{
    Legend legend;
    legend.title = title();
    legend.caption = m_field;
    const int classes = classificationMethod() == ClassificationMethod::UniqueValues
                            ? unique.count()
                            : breaks.count();
    if (classificationMethod() == ClassificationMethod::UniqueValues) {
        for (int i = 0; i < std::min(classes, mostLegendValues); ++i)
            legend.classes.append({colors.at(i), textOf(unique.values[std::size_t(i)])});
        QStringList remarks;
        if (classes > mostLegendValues)
            remarks.append(translated("and %1 more").arg(classes - mostLegendValues));
        remarks.append(repetitionText());
        remarks.removeAll(QString());
        legend.remark = remarks.join(QLatin1Char('\n'));
    } else {
        const QStringList texts =
            numberTexts(QVector<double>(breaks.bounds.begin(), breaks.bounds.end()));
        const std::vector<int> counts = breaks.counts(numbers);
        for (int i = 0; i < classes; ++i) {
            legend.classes.append({colors.at(i), translated("%1  (%2)")
                                                     .arg(rangeText(texts.at(i), texts.at(i + 1)))
                                                     .arg(counts[std::size_t(i)])});
        }
        // The high values at the top, as in the legend of a grid.
        std::reverse(legend.classes.begin(), legend.classes.end());
    }
    const bool gaps = std::any_of(column.begin(), column.end(),
                                  [](const QVariant &value) { return !value.isValid(); });
    if (gaps || column.empty())
        legend.classes.append({noValueColor, translated("no value")});
    return legend;
}

IdentifyResult PolygonLayer::identify(const QPointF &position) const
{
    const int feature = polygons.featureAt(position);
    if (feature < 0)
        return {};
    const QVariantMap &attributes = polygons.features[std::size_t(feature)].attributes;
    const QVariant value = attributes.value(m_field);
    QString text = value.isValid() ? textOf(value) : translated("no value");
    if (!m_nameField.isEmpty() && m_nameField != m_field)
        text = attributes.value(m_nameField).toString() + QStringLiteral(": ") + text;
    return {true, text, colorOf(feature)};
}

} // namespace mapviewer
