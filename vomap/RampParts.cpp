#include "vomap/RampParts_p.h"

#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOPredefineColorRamp.h"
#include "vomap/VORandomColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"

namespace VTObjects {

namespace {

template <typename Ramp>
std::unique_ptr<Ramp> withColors(const RampParts &parts)
{
    auto ramp = std::make_unique<Ramp>();
    ramp->setColors(parts.colors.data(), parts.colors.size());
    return ramp;
}

template <typename Ramp>
std::unique_ptr<VOColorRamp> spread(const RampParts &parts)
{
    auto ramp = withColors<Ramp>(parts);
    std::vector<rgb_color<float>> sources = parts.sources; // it is not taken as const
    ramp->setSourceColor(static_cast<long>(sources.size()), sources.data());
    return ramp;
}

} // namespace

bool isComponent(float value)
{
    return value >= 0.0F && value <= 255.0F; // false for what is no number
}

bool takeApart(VOColorRamp &ramp, RampParts &parts)
{
    parts.kind = ramp.category();
    parts.sources.clear();
    parts.colors.clear();
    switch (parts.kind) {
    case VOColorRamp::RandomHsvRamp: {
        const auto *bounded = dynamic_cast<VORandomColorRampForHsv *>(&ramp);
        if (!bounded)
            return false;
        parts.paramsChanged = bounded->paramsChanged;
        parts.bounds = {bounded->minH, bounded->maxH, bounded->minS,
                        bounded->maxS, bounded->minV, bounded->maxV};
        parts.seed = bounded->seed;
        break;
    }
    case VOColorRamp::RandomRamp: {
        const auto *random = dynamic_cast<VORandomColorRamp *>(&ramp);
        if (!random)
            return false;
        parts.seed = random->seed;
        break;
    }
    case VOColorRamp::EvenRamp:
    case VOColorRamp::PredefineRamp: {
        auto *even = dynamic_cast<VOEvenColorRamp *>(&ramp);
        if (!even)
            return false;
        const unsigned int count = even->getSourceColorCount();
        parts.sources.reserve(count);
        for (unsigned int i = 0; i < count; ++i)
            parts.sources.push_back(even->getSourceColor(static_cast<int>(i)));
        break;
    }
    default:
        return false;
    }
    const unsigned int level = ramp.getLevel();
    parts.colors.reserve(level);
    for (unsigned int i = 0; i < level; ++i)
        parts.colors.push_back(ramp.getColor(i));
    return true;
}

std::unique_ptr<VOColorRamp> putTogether(const RampParts &parts)
{
    switch (parts.kind) {
    case VOColorRamp::RandomRamp: {
        auto ramp = withColors<VORandomColorRamp>(parts);
        ramp->setSeed(parts.seed);
        return ramp;
    }
    case VOColorRamp::RandomHsvRamp: {
        auto ramp = withColors<VORandomColorRampForHsv>(parts);
        ramp->setSeed(parts.seed);
        ramp->paramsChanged = parts.paramsChanged;
        ramp->minH = parts.bounds[0];
        ramp->maxH = parts.bounds[1];
        ramp->minS = parts.bounds[2];
        ramp->maxS = parts.bounds[3];
        ramp->minV = parts.bounds[4];
        ramp->maxV = parts.bounds[5];
        return ramp;
    }
    case VOColorRamp::EvenRamp:
        return spread<VOEvenColorRamp>(parts);
    case VOColorRamp::PredefineRamp:
        return spread<VOPredefineColorRamp>(parts);
    }
    return nullptr;
}

} // namespace VTObjects
