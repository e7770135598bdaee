#include "apps/mapviewer/layers/PolygonSet.h"

#include <QSet>

#include <algorithm>

namespace mapviewer {

QRectF PolygonSet::extent() const
{
    QRectF all;
    for (const PolygonFeature &feature : features)
        all = all.united(feature.bounds);
    return all;
}

QStringList PolygonSet::fieldNames() const
{
    QSet<QString> names;
    for (const PolygonFeature &feature : features) {
        for (auto entry = feature.attributes.begin(); entry != feature.attributes.end(); ++entry)
            names.insert(entry.key());
    }
    QStringList sorted = names.values();
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

bool PolygonSet::isNumeric(const QString &field) const
{
    bool any = false;
    for (const PolygonFeature &feature : features) {
        const QVariant value = feature.attributes.value(field);
        if (!value.isValid())
            continue;
        if (value.type() != QVariant::Double)
            return false;
        any = true;
    }
    return any;
}

int PolygonSet::featureAt(const QPointF &position) const
{
    for (std::size_t i = features.size(); i-- > 0;) {
        if (features[i].bounds.contains(position) && features[i].path.contains(position))
            return int(i);
    }
    return -1;
}

} // namespace mapviewer
