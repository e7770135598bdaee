#include "apps/mapviewer/layers/MapLayer.h"

#include <algorithm>

namespace mapviewer {

namespace {

constexpr int LeastClasses = 2;
constexpr int MostClasses = 12;

} // namespace

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

void MapLayer::setGrading(Grading grading)
{
    if (!availableGradings().contains(grading))
        return;
    m_grading = grading;
    recolor();
}

void MapLayer::setClassCount(int count)
{
    m_classCount = std::clamp(count, LeastClasses, MostClasses);
    recolor();
}

} // namespace mapviewer
