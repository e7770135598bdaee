#include "vomap/files/RampParts_p.h"

#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOPredefineColorRamp.h"
#include "vomap/VORandomColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"

#include <typeinfo>

namespace VTObjects {

namespace {

// The ramp as its own class, which is the quick way, or as a class that it is derived from.
template <typename Ramp>
Ramp *as(VOColorRamp &ramp)
{
    return typeid(ramp) == typeid(Ramp) ? static_cast<Ramp *>(&ramp) : dynamic_cast<Ramp *>(&ramp);
}

template <typename Ramp>
std::unique_ptr<Ramp> withColors(const RampParts &parts)
{
    auto ramp = std::make_unique<Ramp>();
    ramp->setColorList(parts.colors);
    return ramp;
}

template <typename Ramp>
std::unique_ptr<VOColorRamp> spread(const RampParts &parts)
{
    auto ramp = withColors<Ramp>(parts);
    ramp->setSourceColorList(parts.sources);
    return ramp;
}

template <typename Ramp>
bool takeSourcesApart(VOColorRamp &ramp, RampParts &parts)
{
    const auto *even = as<Ramp>(ramp);
    if (!even)
        return false;
    parts.sources = even->sourceColorList();
    parts.colors = even->colorList();
    return true;
}

} // namespace

bool takeApart(VOColorRamp &ramp, RampParts &parts)
{
    parts.kind = ramp.category();
    switch (parts.kind) {
    case VOColorRamp::RandomHsvRamp: {
        const auto *bounded = as<VORandomColorRampForHsv>(ramp);
        if (!bounded)
            return false;
        parts.paramsChanged = bounded->paramsChanged;
        parts.bounds = {bounded->minH, bounded->maxH, bounded->minS,
                        bounded->maxS, bounded->minV, bounded->maxV};
        parts.seed = bounded->seed;
        parts.colors = bounded->colorList();
        return true;
    }
    case VOColorRamp::RandomRamp: {
        const auto *random = as<VORandomColorRamp>(ramp);
        if (!random)
            return false;
        parts.seed = random->seed;
        parts.colors = random->colorList();
        return true;
    }
    case VOColorRamp::EvenRamp:
        return takeSourcesApart<VOEvenColorRamp>(ramp, parts);
    case VOColorRamp::PredefineRamp:
        return takeSourcesApart<VOPredefineColorRamp>(ramp, parts);
    }
    return false;
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
