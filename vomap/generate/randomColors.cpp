#include "vomap/generate/randomColors_p.h"

#include "vomap/generate/FarthestColors_p.h"
#include "vomap/generate/randomBits_p.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace VTObjects {

using namespace FixedPointColor;

namespace {

constexpr std::size_t allColors = std::size_t(1) << 24;
// From here on a choice would cost more than it gains: the differences are below those that
// anybody tells apart.
constexpr std::size_t chosenColors = 1024;
// Up to here a seed chooses from a share of the table that is its own.
constexpr std::size_t ownColors = 48;
// So many starts are tried for a first row of so many colours.
constexpr std::ptrdiff_t triedStarts = 3;
constexpr std::size_t firstRow = 5;

constexpr Rgb8 white = {255, 255, 255};
constexpr Rgb8 black = {0, 0, 0};

// The share of dichromats in the decision falls as colours grow many: below a certain difference
// it would only cost the others theirs.
FarthestColors::Rule ruleFor(std::size_t taken)
{
    struct Stage
    {
        std::size_t end;
        FarthestColors::Rule rule;
    };
    constexpr std::array<Stage, 6> stages = {{{5, {23, 16}},
                                              {8, {24, 16}},
                                              {12, {31, 16}},
                                              {20, {39, 16}},
                                              {64, {44, 16}},
                                              {128, {48, 4}}}};
    for (const Stage &stage : stages) {
        if (taken < stage.end)
            return stage.rule;
    }
    return {48, 1};
}

// Every 15th step of each component, without what is nearly black or nearly white.
ColorPool makeTable()
{
    constexpr int step = 15;
    constexpr std::int32_t darkest = 25 << labBits;
    constexpr std::int32_t lightest = 90 << labBits;
    ColorPool table;
    for (int red = 0; red < 256; red += step) {
        for (int green = 0; green < 256; green += step) {
            for (int blue = 0; blue < 256; blue += step) {
                const Rgb8 color =
                    unpacked(static_cast<std::uint32_t>(red << 16 | green << 8 | blue));
                const std::int32_t lightness = labSeenBy(NormalVision, color).lightness;
                if (lightness >= darkest && lightness <= lightest)
                    table.append(color);
            }
        }
    }
    return table;
}

const ColorPool &table()
{
    static const ColorPool instance = makeTable();
    return instance;
}

ColorPool ownShare(std::uint32_t seed)
{
    const ColorPool &all = table();
    ColorPool share;
    share.reserve(all.size() / 2);
    for (int i = 0; i < all.size(); ++i) {
        const std::uint32_t bits = mixedBits(static_cast<std::uint32_t>(i));
        // Half of the table is for odd seeds, half for even ones; of its half a seed leaves out a
        // quarter, so that seeds with the same start differ later.
        if ((bits & 1) == (seed & 1) && (mixedBits(bits ^ seed * 0x9e3779b9U) & 3) != 0)
            share.appendFrom(all, i);
    }
    return share;
}

// Colours that stand out from white and black, at the seed's choice.
std::vector<int> startsIn(const ColorPool &share, const FarthestColors &search, std::uint32_t seed)
{
    std::vector<std::pair<std::uint32_t, int>> order;
    for (int i = 0; i < share.size(); ++i) {
        if (search.score(i, ruleFor(0).dichromatWeight) >= FarthestColors::clearlyApart)
            order.emplace_back(mixedBits(packed(share.at(i)) + mixedBits(seed)), i);
    }
    const auto end =
        order.begin() + std::min<std::ptrdiff_t>(triedStarts, order.end() - order.begin());
    std::partial_sort(order.begin(), end, order.end());
    std::vector<int> starts;
    for (auto entry = order.begin(); entry != end; ++entry)
        starts.push_back(entry->second);
    return starts;
}

// Continues `colours` to `count` colours; the smallest score on the way.
std::int64_t extend(const ColorPool &pool, FarthestColors &search, std::vector<Rgb8> &colors,
                    std::size_t count)
{
    std::int64_t smallest = std::numeric_limits<std::int64_t>::max();
    while (colors.size() < count) {
        const FarthestColors::Rule rule = ruleFor(colors.size());
        const int next = search.farthest(rule);
        smallest = std::min(smallest, search.score(next, rule.dichromatWeight));
        colors.push_back(pool.at(next));
        search.take(colors.back());
    }
    return smallest;
}

std::vector<Rgb8> chosen(std::uint32_t seed, std::size_t count)
{
    const ColorPool share = ownShare(seed);
    FarthestColors fresh(share);
    fresh.take(white);
    fresh.take(black);
    // The first few colours hang on the start: the best row of a few starts is kept.
    std::vector<Rgb8> result;
    std::optional<FarthestColors> search;
    std::int64_t best = -1;
    for (const int start : startsIn(share, fresh, seed)) {
        FarthestColors tried = fresh;
        std::vector<Rgb8> row = {share.at(start)};
        tried.take(row.back());
        const std::int64_t smallest = extend(share, tried, row, firstRow);
        if (smallest > best) {
            best = smallest;
            result = std::move(row);
            search.emplace(std::move(tried));
        }
    }
    if (count > result.size())
        extend(share, *search, result, std::min(count, ownColors));
    if (count > result.size()) {
        FarthestColors all(table());
        all.take(white);
        all.take(black);
        for (const Rgb8 color : result)
            all.take(color);
        extend(table(), all, result, count);
    }
    result.resize(count);
    return result;
}

} // namespace

void fillWithRandomColors(int seed, rgb_color<float> *colors, std::size_t count)
{
    const auto bits = static_cast<std::uint32_t>(seed);
    const std::vector<Rgb8> first = chosen(bits, std::min(count, chosenColors));
    const auto put = [colors](std::size_t index, Rgb8 color) {
        colors[index] = {float(color.red), float(color.green), float(color.blue)};
    };
    for (std::size_t i = 0; i < first.size(); ++i)
        put(i, first[i]);
    if (count <= first.size())
        return;

    std::vector<bool> used(allColors, false);
    for (const Rgb8 color : first)
        used[packed(color)] = true;
    std::size_t next = first.size();
    const std::uint32_t key = mixedBits(bits);
    for (std::uint32_t i = 0; i < allColors && next < count; ++i) {
        const std::uint32_t color = shuffled24Bits(i, key);
        if (!used[color])
            put(next++, unpacked(color));
    }
    for (; next < count; ++next)
        colors[next] = colors[next - allColors];
}

} // namespace VTObjects
