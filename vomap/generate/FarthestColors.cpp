#include "vomap/generate/FarthestColors_p.h"

#include <algorithm>
#include <limits>

namespace VTObjects {

using namespace FixedPointColor;

namespace {

constexpr std::int64_t weightOne = 16;

// The smaller of both squares, the second one weighted; in units of 1 / weightOne^2.
std::int64_t weighted(std::int64_t normal, std::int64_t dichromat, std::int64_t weight)
{
    return std::min(normal * weightOne * weightOne, dichromat * weight * weight);
}

void lowerToDistance(const ColorPool::Plane &plane, Din99o from, std::vector<std::int32_t> &nearest)
{
    const std::int16_t *lightness = plane.lightness.data();
    const std::int16_t *a = plane.a.data();
    const std::int16_t *b = plane.b.data();
    std::int32_t *out = nearest.data();
    const std::size_t count = nearest.size();
    for (std::size_t i = 0; i < count; ++i) {
        const std::int32_t stepL = lightness[i] - from.lightness;
        const std::int32_t stepA = a[i] - from.a;
        const std::int32_t stepB = b[i] - from.b;
        const std::int32_t square = stepL * stepL + stepA * stepA + stepB * stepB;
        out[i] = square < out[i] ? square : out[i];
    }
}

} // namespace

void ColorPool::reserve(int count)
{
    const auto size = static_cast<std::size_t>(count);
    colors.reserve(size);
    for (Plane &plane : planes) {
        plane.lightness.reserve(size);
        plane.a.reserve(size);
        plane.b.reserve(size);
    }
}

void ColorPool::append(Rgb8 color)
{
    colors.push_back(color);
    for (int vision = 0; vision < visionCount; ++vision) {
        const Din99o place = din99oOf(labSeenBy(static_cast<Vision>(vision), color));
        Plane &plane = planes[static_cast<std::size_t>(vision)];
        plane.lightness.push_back(place.lightness);
        plane.a.push_back(place.a);
        plane.b.push_back(place.b);
    }
}

void ColorPool::appendFrom(const ColorPool &other, int index)
{
    const auto i = static_cast<std::size_t>(index);
    colors.push_back(other.colors[i]);
    for (std::size_t vision = 0; vision < planes.size(); ++vision) {
        planes[vision].lightness.push_back(other.planes[vision].lightness[i]);
        planes[vision].a.push_back(other.planes[vision].a[i]);
        planes[vision].b.push_back(other.planes[vision].b[i]);
    }
}

FarthestColors::FarthestColors(const ColorPool &pool)
    : pool(&pool)
    , nearestNormal(static_cast<std::size_t>(pool.size()), std::numeric_limits<std::int32_t>::max())
    , nearestDichromat(nearestNormal)
    , exactSlot(nearestNormal.size(), -1)
{
}

FarthestColors::Appearances FarthestColors::appearancesOf(Rgb8 color)
{
    Appearances appearances;
    for (int vision = 0; vision < visionCount; ++vision)
        appearances[static_cast<std::size_t>(vision)] =
            appearanceOf(labSeenBy(static_cast<Vision>(vision), color));
    return appearances;
}

void FarthestColors::take(Rgb8 color)
{
    for (int vision = 0; vision < visionCount; ++vision) {
        const Din99o place = din99oOf(labSeenBy(static_cast<Vision>(vision), color));
        lowerToDistance(pool->plane(vision), place,
                        vision == NormalVision ? nearestNormal : nearestDichromat);
    }
    taken.push_back(appearancesOf(color));
}

std::int64_t FarthestColors::score(int index, int dichromatWeight) const
{
    const auto i = static_cast<std::size_t>(index);
    return weighted(nearestNormal[i], nearestDichromat[i], dichromatWeight);
}

std::int64_t FarthestColors::exactScore(int index, int dichromatWeight)
{
    std::int32_t &slot = exactSlot[static_cast<std::size_t>(index)];
    if (slot < 0) {
        slot = static_cast<std::int32_t>(exact.size());
        constexpr std::int64_t far = std::int64_t(1) << 40;
        exact.push_back({appearancesOf(pool->at(index)), far, far, 0});
    }
    Exact &nearest = exact[static_cast<std::size_t>(slot)];
    for (; nearest.known < taken.size(); ++nearest.known) {
        const Appearances &other = taken[nearest.known];
        nearest.normal =
            std::min(nearest.normal,
                     squaredDifference(nearest.appearances[NormalVision], other[NormalVision]));
        for (std::size_t vision = ProtanVision; vision < other.size(); ++vision)
            nearest.dichromat = std::min(
                nearest.dichromat, squaredDifference(nearest.appearances[vision], other[vision]));
    }
    return weighted(nearest.normal, nearest.dichromat, dichromatWeight);
}

int FarthestColors::farthest(Rule rule)
{
    const auto limit = static_cast<std::size_t>(std::max(rule.shortList, 1));
    shortList.clear();
    std::int64_t bar = 0; // a taken colour has no distance and never comes over this
    for (int i = 0; i < pool->size(); ++i) {
        const std::int64_t found = score(i, rule.dichromatWeight);
        if (found <= bar)
            continue;
        const auto after = [](const std::pair<std::int64_t, int> &left, std::int64_t right) {
            return left.first >= right;
        };
        shortList.insert(std::lower_bound(shortList.begin(), shortList.end(), found, after),
                         {found, i});
        if (shortList.size() > limit)
            shortList.pop_back();
        if (shortList.size() == limit)
            bar = shortList.back().first;
    }
    if (limit == 1 || shortList.empty())
        return shortList.empty() ? -1 : shortList.front().second;

    int best = -1;
    std::int64_t bestScore = -1;
    for (const auto &entry : shortList) {
        const std::int64_t found = exactScore(entry.second, rule.dichromatWeight);
        if (found > bestScore || (found == bestScore && entry.second < best)) {
            bestScore = found;
            best = entry.second;
        }
    }
    return best;
}

} // namespace VTObjects
