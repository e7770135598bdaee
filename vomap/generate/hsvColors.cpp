#include "vomap/generate/hsvColors_p.h"

#include "vomap/generate/FarthestColors_p.h"
#include "vomap/generate/randomBits_p.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace VTObjects {

using namespace FixedPointColor;

namespace {

constexpr std::size_t allColors = std::size_t(1) << 24;
constexpr int candidates = 2048;
constexpr std::size_t chosenColors = 1024;
// With so many rounded colours exactly inside, those that are inside before rounding only are
// not wanted.
constexpr int enough = 256;

// Points that fill a cube evenly, however many are taken (the additive recurrence of M. Roberts'
// "The unreasonable effectiveness of quasirandom sequences", 2018): multiples of the powers of
// 1 / g, g^4 = g + 1, here as fractions of 2^32.
class EvenPoints
{
public:
    explicit EvenPoints(std::uint32_t seed)
        : h(mixedBits(seed ^ 0x243f6a88U))
        , s(mixedBits(h))
        , v(mixedBits(s))
    {
    }
    Rgb8 next(const HsvBox &box)
    {
        h += 3518319155U;
        s += 2882110345U;
        v += 2360945575U;
        return box.at(h, reachingEnds(s), reachingEnds(v));
    }

private:
    // Stretched by a sixteenth at both ends and cut: the far colours lie on the box's faces.
    static std::uint32_t reachingEnds(std::uint32_t fraction)
    {
        const std::int64_t centered = std::int64_t(fraction) - (std::int64_t(1) << 31);
        const std::int64_t stretched = centered + centered / 8 + (std::int64_t(1) << 31);
        return static_cast<std::uint32_t>(
            std::clamp<std::int64_t>(stretched, 0, (std::int64_t(1) << 32) - 1));
    }

    std::uint32_t h;
    std::uint32_t s;
    std::uint32_t v;
};

FarthestColors::Rule ruleFor(std::size_t taken)
{
    if (taken < 20)
        return {52, 16};
    return {56, taken < 64 ? 8 : 1};
}

class Sequence
{
public:
    Sequence(int seed, const HsvBox &box, rgb_color<float> *colors, std::size_t count)
        : box(box)
        , points(static_cast<std::uint32_t>(seed))
        , colors(colors)
        , count(count)
    {
        std::vector<std::pair<std::uint32_t, int>> drawn;
        drawn.reserve(candidates);
        for (int i = 0; i < candidates; ++i)
            drawn.emplace_back(packed(points.next(box)), i);
        std::sort(drawn.begin(), drawn.end());
        const auto sameColor = [](const auto &left, const auto &right) {
            return left.first == right.first;
        };
        drawn.erase(std::unique(drawn.begin(), drawn.end(), sameColor), drawn.end());
        const auto earlier = [](const auto &left, const auto &right) {
            return left.second < right.second;
        };
        std::sort(drawn.begin(), drawn.end(), earlier);
        for (const auto &entry : drawn) {
            const Rgb8 color = unpacked(entry.first);
            (box.contains(color) ? inside : nearby).append(color);
        }
        onlyInside = inside.size() >= enough;
    }

    void fill()
    {
        choose(inside);
        if (!onlyInside)
            choose(nearby);
        if (made < count)
            draw();
        const std::size_t period = made;
        for (; made < count; ++made)
            colors[made] = colors[made - period];
    }

private:
    void put(Rgb8 color)
    {
        colors[made++] = {float(color.red), float(color.green), float(color.blue)};
    }

    void choose(const ColorPool &pool)
    {
        if (pool.size() == 0 || made >= count)
            return;
        FarthestColors search(pool);
        search.take({255, 255, 255});
        search.take({0, 0, 0});
        for (const Rgb8 color : chosen)
            search.take(color);
        std::vector<bool> left(static_cast<std::size_t>(pool.size()), true);
        int next = chosen.empty() ? firstOf(pool, search) : search.farthest(ruleFor(chosen.size()));
        while (next >= 0) {
            left[static_cast<std::size_t>(next)] = false;
            chosen.push_back(pool.at(next));
            put(chosen.back());
            if (made >= count)
                return;
            if (chosen.size() >= chosenColors)
                break;
            search.take(chosen.back());
            next = search.farthest(ruleFor(chosen.size()));
        }
        for (int i = 0; i < pool.size() && made < count; ++i) {
            if (left[static_cast<std::size_t>(i)])
                put(pool.at(i));
        }
    }

    // The seed has put the pool into its order.
    static int firstOf(const ColorPool &pool, const FarthestColors &search)
    {
        for (int i = 0; i < pool.size(); ++i) {
            if (search.score(i, ruleFor(0).dichromatWeight) >= FarthestColors::clearlyApart)
                return i;
        }
        return 0;
    }

    // Whatever the points bring next; a long row of known colours means that the box is empty.
    void draw()
    {
        std::vector<bool> seen(allColors, false);
        for (const ColorPool *pool : {&inside, &nearby}) {
            for (int i = 0; i < pool->size(); ++i)
                seen[packed(pool->at(i))] = true;
        }
        constexpr int patience = 4096;
        for (int vain = 0; made < count && vain < patience;) {
            const Rgb8 color = points.next(box);
            const bool known = seen[packed(color)];
            if (known || (onlyInside && !box.contains(color))) {
                ++vain;
                continue;
            }
            seen[packed(color)] = true;
            put(color);
            vain = 0;
        }
    }

    const HsvBox &box;
    EvenPoints points;
    rgb_color<float> *colors;
    std::size_t count;
    std::size_t made = 0;
    ColorPool inside;
    ColorPool nearby;
    bool onlyInside = false;
    std::vector<Rgb8> chosen;
};

} // namespace

void fillWithHsvColors(int seed, const HsvBox &box, rgb_color<float> *colors, std::size_t count)
{
    Sequence(seed, box, colors, count).fill();
}

} // namespace VTObjects
