#pragma once

#include <cstdint>

namespace VTObjects {

/// A bijective mixing function of 32 bits: multiplications and shifts with the constants that C.
/// Wellons' search for low bias found (2018).
constexpr std::uint32_t mixedBits(std::uint32_t bits)
{
    bits ^= bits >> 16;
    bits *= 0x7feb352dU;
    bits ^= bits >> 15;
    bits *= 0x846ca68bU;
    bits ^= bits >> 16;
    return bits;
}

/// A permutation of the numbers below 2^24, another one for each key: only steps that can be
/// undone, each cut to 24 bits.
constexpr std::uint32_t shuffled24Bits(std::uint32_t number, std::uint32_t key)
{
    constexpr std::uint32_t mask = 0xffffffU;
    std::uint32_t bits = (number + key) & mask;
    bits = (bits * 0xa6ca6bU) & mask;
    bits ^= bits >> 12;
    bits = (bits * 0x5851f5U + (key >> 8)) & mask;
    bits ^= bits >> 11;
    bits = (bits * 0xc6ca6bU) & mask;
    bits ^= bits >> 13;
    return bits;
}

} // namespace VTObjects
