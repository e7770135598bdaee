#pragma once

namespace VTObjects {

/// A colour of three components, without alpha. Ramps use it with float, each component from
/// 0 to 255; widgets cut the fraction off. Black by default.
template <typename T>
struct rgb_color
{
public:
    T red = T();
    T green = T();
    T blue = T();

    constexpr rgb_color() = default;
    constexpr rgb_color(T redPart, T greenPart, T bluePart)
        : red(redPart)
        , green(greenPart)
        , blue(bluePart)
    {
    }

    /// Exact comparison, component by component.
    friend constexpr bool operator==(const rgb_color &left, const rgb_color &right)
    {
        return left.red == right.red && left.green == right.green && left.blue == right.blue;
    }
    friend constexpr bool operator!=(const rgb_color &left, const rgb_color &right)
    {
        return !(left == right);
    }
};

} // namespace VTObjects
