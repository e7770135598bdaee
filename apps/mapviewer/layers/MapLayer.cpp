#include "apps/mapviewer/layers/MapLayer.h"

#include <algorithm>

namespace mapviewer {

MapLayer::MapLayer(const QString &title)
    : m_title(title)
{
}

MapLayer::~MapLayer() = default;

void MapLayer::setRamp(VTObjects::VOColorRamp *ramp)
{
    m_ramp.reset(ramp ? ramp->clone() : nullptr);
    recolor();
}

void MapLayer::setClassificationMethod(ClassificationMethod method)
{
    if (!availableMethods().contains(method))
        return;
    m_method = method;
    recolor();
}

void MapLayer::setClassCount(int count)
{
    m_classCount = std::clamp(count, fewestClasses, mostClasses);
    recolor();
}

} // namespace mapviewer
