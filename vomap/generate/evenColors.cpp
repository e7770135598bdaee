#include "vomap/generate/evenColors_p.h"

#include "vomap/generate/fixedPointColor_p.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace VTObjects {

using namespace FixedPointColor;

namespace {

constexpr int placeBits = 30;

constexpr std::int64_t one = linearOne;

// Lr of Ottosson: k1 = 0.206, k2 = 0.03, k3 = (1 + k1) / (1 + k2)
constexpr std::int64_t k1 = factor(0.206) << (linearBits - factorBits);
constexpr std::int64_t k2 = factor(0.03) << (linearBits - factorBits);

// A source in OKLab, all with linearBits fraction bits. What a and b add to the three cone signals
// is kept instead of them: it is as straight as they are, and nearer to the result.
struct Place
{
    std::int64_t lightness = 0; // Lr
    std::int64_t l = 0;
    std::int64_t m = 0;
    std::int64_t s = 0;
};

// Cube root of light / one; the last four bits are of no account.
std::int64_t coneSignal(std::int64_t light)
{
    return cubeRoot(std::max<std::int64_t>(light, 0) << 36) << (linearBits - 20);
}

// Linear light of a component, straight between the whole ones.
std::int64_t linearOfFraction(float component)
{
    constexpr std::int64_t steps = 1 << 16;
    const auto scaled = static_cast<std::int64_t>(component * float(steps));
    const std::int64_t whole = scaled / steps;
    const std::int64_t low = linearOf(static_cast<std::uint8_t>(whole));
    if (whole >= 255)
        return low;
    const std::int64_t high = linearOf(static_cast<std::uint8_t>(whole + 1));
    return low + (high - low) * (scaled % steps) / steps;
}

Place placeOf(const rgb_color<float> &color)
{
    const std::int64_t red = linearOfFraction(color.red);
    const std::int64_t green = linearOfFraction(color.green);
    const std::int64_t blue = linearOfFraction(color.blue);
    const auto signal = [&](std::int64_t r, std::int64_t g, std::int64_t b) {
        return coneSignal((r * red + g * green + b * blue) >> factorBits);
    };
    const std::int64_t l = signal(factor(0.4122214708), factor(0.5363325363), factor(0.0514459929));
    const std::int64_t m = signal(factor(0.2119034982), factor(0.6806995451), factor(0.1073969566));
    const std::int64_t s = signal(factor(0.0883024619), factor(0.2817188376), factor(0.6299787005));
    const std::int64_t lightness =
        (factor(0.2104542553) * l + factor(0.7936177850) * m - factor(0.0040720468) * s) >>
        factorBits;
    // Lr = (u + sqrt(u^2 + 4 k2 k3 L)) / 2 with u = k3 L - k1
    const std::int64_t k3L = lightness * (one + k1) / (one + k2);
    const std::int64_t u = k3L - k1;
    const std::int64_t estimate = (u + squareRoot(u * u + 4 * k2 * k3L)) / 2;
    return {estimate, l - lightness, m - lightness, s - lightness};
}

struct Tables
{
    // L by Lr, with linearBits fraction bits: intervals of 2^-12, straight between.
    std::array<std::int32_t, 4097 + 1> lightness;
    // The smallest component that light in an interval of 2^-12 may have.
    std::array<std::uint8_t, 4096 + 1> component;
    // Where linear light rounds to a component rather than to the one below it.
    std::array<std::int32_t, 257> threshold;
    std::array<float, 256> shown;

    Tables()
    {
        for (std::size_t i = 0; i < lightness.size(); ++i) {
            const std::int64_t x = static_cast<std::int64_t>(i) << (linearBits - 12);
            // L = (x^2 + k1 x) / (k3 (x + k2))
            const std::int64_t fraction = x * (x + k1) / (x + k2);
            lightness[i] = static_cast<std::int32_t>(fraction * (one + k2) / (one + k1));
        }
        for (std::size_t i = 0; i < shown.size(); ++i)
            shown[i] = static_cast<float>(i);
        threshold[0] = 0;
        for (std::size_t i = 1; i < 256; ++i)
            threshold[i] = static_cast<std::int32_t>(linearOfHalves(2 * static_cast<int>(i) - 1));
        threshold[256] = static_cast<std::int32_t>(2 * one);
        std::size_t lowest = 0;
        for (std::size_t i = 0; i < component.size(); ++i) {
            const auto light = static_cast<std::int32_t>(i << (linearBits - 12));
            while (threshold[lowest + 1] <= light)
                ++lowest;
            component[i] = static_cast<std::uint8_t>(lowest);
        }
    }
};

const Tables &tables()
{
    static const Tables instance;
    return instance;
}

// Walks the straight way between two sources in equal steps.
class Walk
{
public:
    Walk()
        : table(&tables())
    {
    }

    // From `first` to `last`, beginning `done` of `steps` behind the first one, each time `stride`
    // further.
    void start(const Place &first, const Place &last, std::int64_t done, std::int64_t stride,
               std::int64_t steps)
    {
        // What the division drops adds up to less than 2^-26 on the longest way.
        const auto begin = [=](std::int64_t from, std::int64_t to) {
            const std::int64_t step = (to - from) * (std::int64_t(1) << placeBits) / steps;
            return Running{(from * (std::int64_t(1) << placeBits)) + step * done, step * stride};
        };
        lightness = begin(first.lightness, last.lightness);
        l = begin(first.l, last.l);
        m = begin(first.m, last.m);
        s = begin(first.s, last.s);
    }

    rgb_color<float> next()
    {
        const std::int64_t shown = lightnessOf(lightness.value >> placeBits);
        const std::int64_t x = cube(shown + (l.value >> placeBits));
        const std::int64_t y = cube(shown + (m.value >> placeBits));
        const std::int64_t z = cube(shown + (s.value >> placeBits));
        lightness.value += lightness.step;
        l.value += l.step;
        m.value += m.step;
        s.value += s.step;
        // Each row of the published matrix has the sum 1, so that two products do.
        return {component(y, factor(4.0767416621) * (x - y) + factor(0.2309699292) * (z - y)),
                component(y, factor(-1.2684380046) * (x - y) + factor(-0.3413193965) * (z - y)),
                component(y, factor(-0.0041960863) * (x - y) + factor(1.7076147010) * (z - y))};
    }

private:
    struct Running
    {
        std::int64_t value = 0; // linearBits + placeBits fraction bits
        std::int64_t step = 0;
    };
    // What lies between two sources lies in the table: a walk never steps beyond its ends.
    std::int64_t lightnessOf(std::int64_t estimate) const
    {
        const auto i = static_cast<std::size_t>(estimate >> restBits);
        const std::int64_t low = table->lightness[i];
        const std::int64_t step = table->lightness[i + 1] - low;
        return low + ((step * (estimate & ((1 << restBits) - 1))) >> restBits);
    }

    static std::int64_t cube(std::int64_t x) { return (((x * x) >> linearBits) * x) >> linearBits; }

    // Rounds linear light, given as one part with linearBits fraction bits and one with factorBits
    // more.
    float component(std::int64_t light, std::int64_t more) const
    {
        const std::int64_t cut = std::clamp<std::int64_t>(light + (more >> factorBits), 0, one);
        const std::size_t least = table->component[static_cast<std::size_t>(cut >> restBits)];
        // An interval holds one threshold at most, since no component is narrower than one.
        return table->shown[least + (cut >= table->threshold[least + 1] ? 1 : 0)];
    }

    static constexpr int restBits = linearBits - 12;

    const Tables *table;
    Running lightness;
    Running l;
    Running m;
    Running s;
};

} // namespace

void fillWithEvenColors(const rgb_color<float> *sources, std::size_t sourceCount,
                        rgb_color<float> *colors, std::size_t count)
{
    if (sourceCount == 0) {
        std::fill_n(colors, count, rgb_color<float>());
        return;
    }
    const std::size_t last = sourceCount - 1;
    const std::size_t steps = std::max<std::size_t>(count, 2) - 1;
    // Colour i lies at i * last / steps: on whole sources, and the rest in parts of `steps`.
    const std::size_t wholeStep = last / steps;
    const std::size_t restStep = last % steps;
    std::size_t whole = 0;
    std::size_t rest = 0;
    std::size_t prepared = sourceCount;
    Place end;
    Walk walk;
    for (std::size_t i = 0; i < count; ++i) {
        if (rest == 0) {
            colors[i] = sources[whole];
        } else {
            if (prepared != whole) {
                const Place start = prepared + 1 == whole ? end : placeOf(sources[whole]);
                end = placeOf(sources[whole + 1]);
                walk.start(start, end, static_cast<std::int64_t>(rest),
                           static_cast<std::int64_t>(restStep), static_cast<std::int64_t>(steps));
                prepared = whole;
            }
            colors[i] = walk.next();
        }
        whole += wholeStep;
        rest += restStep;
        if (rest >= steps) {
            rest -= steps;
            ++whole;
        }
    }
}

} // namespace VTObjects
