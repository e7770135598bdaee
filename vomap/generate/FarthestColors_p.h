#pragma once

#include "vomap/generate/fixedPointColor_p.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace VTObjects {

/// Colours to choose from, with their places in DIN99o under each vision.
class ColorPool
{
public:
    struct Plane
    {
        std::vector<std::int16_t> lightness;
        std::vector<std::int16_t> a;
        std::vector<std::int16_t> b;
    };

    void reserve(int count);
    void append(FixedPointColor::Rgb8 color);
    /// The same as appending other.at(index), without computing it again.
    void appendFrom(const ColorPool &other, int index);
    int size() const { return static_cast<int>(colors.size()); }
    FixedPointColor::Rgb8 at(int index) const { return colors[static_cast<std::size_t>(index)]; }
    const Plane &plane(int vision) const { return planes[static_cast<std::size_t>(vision)]; }

private:
    std::vector<FixedPointColor::Rgb8> colors;
    std::array<Plane, FixedPointColor::visionCount> planes;
};

/// Picks colours from a pool one by one, each as far as can be from all that are taken (T. F.
/// Gonzalez, "Clustering to minimize the maximum intercluster distance", 1985), where the
/// distance under the worst of three dichromacies counts as well as the normal one.
///
/// DIN99o distances make a short list of the whole pool, CIEDE2000 decides in the short list.
/// Among equals the first of the pool wins.
class FarthestColors
{
public:
    /// How the next colour is sought.
    struct Rule
    {
        /// A dichromatic difference counts this many sixteenths of itself. Above 16 it may fall
        /// behind the normal one, the more the larger this is.
        int dichromatWeight = 16;
        /// Length of the short list; 1 leaves the choice to DIN99o alone.
        int shortList = 1;
    };

    /// A score from which on a colour stands out: 12 units of DIN99o.
    static constexpr std::int64_t clearlyApart = std::int64_t(12) * 64 * 16 * 12 * 64 * 16;

    /// The pool must outlive this.
    explicit FarthestColors(const ColorPool &pool);

    /// Counts a colour, of the pool or not, as taken.
    void take(FixedPointColor::Rgb8 color);
    /// Position in the pool of the best colour, which is not yet taken by that; -1 where nothing
    /// but taken colours is left.
    int farthest(Rule rule);
    /// The square of the distance, in DIN99o, to the nearest taken colour by the same weights, in
    /// units of 2^-20.
    std::int64_t score(int index, int dichromatWeight) const;

private:
    using Appearances = std::array<FixedPointColor::Appearance, FixedPointColor::visionCount>;

    // CIEDE2000 to the nearest of the first `known` taken colours.
    struct Exact
    {
        Appearances appearances;
        std::int64_t normal;
        std::int64_t dichromat;
        std::size_t known = 0;
    };

    static Appearances appearancesOf(FixedPointColor::Rgb8 color);
    std::int64_t exactScore(int index, int dichromatWeight);

    const ColorPool *pool;
    std::vector<std::int32_t> nearestNormal;
    std::vector<std::int32_t> nearestDichromat;
    std::vector<std::int32_t> exactSlot; // into `exact`, -1 where a colour was never short-listed
    std::vector<Exact> exact;
    std::vector<Appearances> taken;
    std::vector<std::pair<std::int64_t, int>> shortList; // score and position, the best first
};

} // namespace VTObjects
