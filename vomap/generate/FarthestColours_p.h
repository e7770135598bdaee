#pragma once

#include "vomap/generate/fixedPointColour_p.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace VTObjects {

/// Colours to choose from, with their places in DIN99o under each vision.
class ColourPool
{
public:
    struct Plane
    {
        std::vector<std::int16_t> lightness;
        std::vector<std::int16_t> a;
        std::vector<std::int16_t> b;
    };

    void reserve(int count);
    void append(FixedPointColour::Rgb8 colour);
    /// The same as appending other.at(index), without computing it again.
    void appendFrom(const ColourPool &other, int index);
    int size() const { return static_cast<int>(colours.size()); }
    FixedPointColour::Rgb8 at(int index) const { return colours[static_cast<std::size_t>(index)]; }
    const Plane &plane(int vision) const { return planes[static_cast<std::size_t>(vision)]; }

private:
    std::vector<FixedPointColour::Rgb8> colours;
    std::array<Plane, FixedPointColour::visionCount> planes;
};

/// Picks colours from a pool one by one, each as far as can be from all that are taken (T. F.
/// Gonzalez, "Clustering to minimize the maximum intercluster distance", 1985), where the
/// distance under the worst of three dichromacies counts as well as the normal one.
///
/// DIN99o distances make a short list of the whole pool, CIEDE2000 decides in the short list.
/// Among equals the first of the pool wins.
class FarthestColours
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
    static constexpr std::int64_t clearlyApart = std::int64_t(12 * 64 * 16) * (12 * 64 * 16);

    /// The pool must outlive this.
    explicit FarthestColours(const ColourPool &pool);

    /// Counts a colour, of the pool or not, as taken.
    void take(FixedPointColour::Rgb8 colour);
    /// Position in the pool of the best colour, which is not yet taken by that; -1 where nothing
    /// but taken colours is left.
    int farthest(Rule rule);
    /// The square of the distance, in DIN99o, to the nearest taken colour by the same weights, in
    /// units of 2^-20.
    std::int64_t score(int index, int dichromatWeight) const;

private:
    using Looks = std::array<FixedPointColour::Appearance, FixedPointColour::visionCount>;

    // CIEDE2000 to the nearest of the first `known` taken colours.
    struct Exact
    {
        Looks looks;
        std::int64_t normal;
        std::int64_t dichromat;
        std::size_t known = 0;
    };

    static Looks looksOf(FixedPointColour::Rgb8 colour);
    std::int64_t exactScore(int index, int dichromatWeight);

    const ColourPool *pool;
    std::vector<std::int32_t> nearestNormal;
    std::vector<std::int32_t> nearestDichromat;
    std::vector<std::int32_t> exactSlot; // into `exact`, -1 where a colour was never short-listed
    std::vector<Exact> exact;
    std::vector<Looks> taken;
    std::vector<std::pair<std::int64_t, int>> shortList; // score and position, the best first
};

} // namespace VTObjects
