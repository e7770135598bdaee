#pragma once

#include <array>
#include <cstdint>

/// Colour arithmetic in integers only: no compiler flag, C library or processor changes a result.
///
/// Everything here is a published method in fixed point; docs/colour-generation.md lists sources
/// and the accuracy, and the tests compare each function with double precision.
namespace VTObjects::FixedPointColor {

/// A colour of sRGB with whole components, as screens and widgets show it.
struct Rgb8
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend constexpr bool operator==(Rgb8 left, Rgb8 right)
    {
        return left.red == right.red && left.green == right.green && left.blue == right.blue;
    }
    friend constexpr bool operator!=(Rgb8 left, Rgb8 right) { return !(left == right); }
};

/// The 24 bits 0xRRGGBB.
constexpr std::uint32_t packed(Rgb8 color)
{
    return std::uint32_t(color.red) << 16 | std::uint32_t(color.green) << 8 | color.blue;
}

constexpr Rgb8 unpacked(std::uint32_t bits)
{
    return {std::uint8_t(bits >> 16), std::uint8_t(bits >> 8), std::uint8_t(bits)};
}

/// How a colour reaches the eye: normally, or without one kind of cone.
enum Vision { NormalVision, ProtanVision, DeutanVision, TritanVision };
constexpr int visionCount = 4;

/// Linear light: 1.0 is this.
constexpr int linearBits = 24;
constexpr std::int64_t linearOne = std::int64_t(1) << linearBits;

/// Factors of published methods are rounded to this many fraction bits.
constexpr int factorBits = 20;
/// For constants only, whose products are no ties: the compiler itself computes this.
constexpr std::int64_t factor(double value)
{
    return static_cast<std::int64_t>(value * (1 << factorBits) + (value < 0 ? -0.5 : 0.5));
}

/// Unit of Lab and Appearance: one step of L* is this.
constexpr int labBits = 10;

/// CIE L*a*b* (D65), in units of 2^-labBits.
struct Lab
{
    std::int32_t lightness = 0;
    std::int32_t a = 0;
    std::int32_t b = 0;
};

/// DIN99o, a Euclidean space near to CIEDE2000, in units of 1/64. The square of a distance of any
/// two sRGB colours fits 31 bits.
struct Din99o
{
    std::int16_t lightness = 0;
    std::int16_t a = 0;
    std::int16_t b = 0;
};

/// What CIEDE2000 asks of one colour, in units of 2^-labBits; the hue as a fraction of 2^32.
struct Appearance
{
    std::int32_t lightness = 0;
    std::int32_t a = 0; ///< stretched near grey
    std::int32_t b = 0;
    std::int32_t chroma = 0;
    std::uint32_t hue = 0;
};

/// The largest whole number whose square does not exceed `value` (below 2^62).
std::int64_t squareRoot(std::int64_t value);
/// The largest whole number whose cube does not exceed `value` (not negative).
std::int64_t cubeRoot(std::int64_t value);

/// Linear light, 0 to linearOne, of a component given as `twice` times one half, 0 to 510. Takes
/// some 200 ns: tables are made of it.
std::int64_t linearOfHalves(int twice);
/// Linear light, 0 to linearOne, of a component from 0 to 255.
std::int64_t linearOf(std::uint8_t component);

Lab labSeenBy(Vision vision, Rgb8 color);
Din99o din99oOf(Lab lab);
Appearance appearanceOf(Lab lab);

/// The square of the CIEDE2000 difference (kL = kC = kH = 1), in units of 2^-(2 * labBits). Other
/// than there, each colour's a* is stretched by its own chroma and not by the mean of both.
std::int64_t squaredDifference(const Appearance &first, const Appearance &second);

} // namespace VTObjects::FixedPointColor
