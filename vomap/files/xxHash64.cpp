#include "vomap/files/xxHash64_p.h"

#include <QtEndian>

#include <cstddef>

namespace VTObjects {

namespace {

constexpr std::uint64_t prime1 = 0x9E3779B185EBCA87U;
constexpr std::uint64_t prime2 = 0xC2B2AE3D27D4EB4FU;
constexpr std::uint64_t prime3 = 0x165667B19E3779F9U;
constexpr std::uint64_t prime4 = 0x85EBCA77C2B2AE63U;
constexpr std::uint64_t prime5 = 0x27D4EB2F165667C5U;
constexpr std::size_t stripe = 32; // four lanes of eight bytes

constexpr std::uint64_t rotated(std::uint64_t value, int bits)
{
    return (value << bits) | (value >> (64 - bits));
}

constexpr std::uint64_t mixedIn(std::uint64_t lane, std::uint64_t input)
{
    return rotated(lane + input * prime2, 31) * prime1;
}

constexpr std::uint64_t merged(std::uint64_t hash, std::uint64_t lane)
{
    return (hash ^ mixedIn(0, lane)) * prime1 + prime4;
}

template <typename Word>
Word wordAt(const char *at)
{
    return qFromLittleEndian<Word>(at);
}

} // namespace

std::uint64_t xxHash64(std::string_view bytes, std::uint64_t seed)
{
    const char *at = bytes.data();
    std::size_t left = bytes.size();
    std::uint64_t hash = seed + prime5;
    if (left >= stripe) {
        std::uint64_t lane1 = seed + prime1 + prime2;
        std::uint64_t lane2 = seed + prime2;
        std::uint64_t lane3 = seed;
        std::uint64_t lane4 = seed - prime1;
        for (; left >= stripe; at += stripe, left -= stripe) {
            lane1 = mixedIn(lane1, wordAt<quint64>(at));
            lane2 = mixedIn(lane2, wordAt<quint64>(at + 8));
            lane3 = mixedIn(lane3, wordAt<quint64>(at + 16));
            lane4 = mixedIn(lane4, wordAt<quint64>(at + 24));
        }
        hash = rotated(lane1, 1) + rotated(lane2, 7) + rotated(lane3, 12) + rotated(lane4, 18);
        hash = merged(merged(merged(merged(hash, lane1), lane2), lane3), lane4);
    }
    hash += bytes.size();
    for (; left >= 8; at += 8, left -= 8)
        hash = rotated(hash ^ mixedIn(0, wordAt<quint64>(at)), 27) * prime1 + prime4;
    if (left >= 4) {
        hash = rotated(hash ^ (wordAt<quint32>(at) * prime1), 23) * prime2 + prime3;
        at += 4;
        left -= 4;
    }
    for (; left > 0; ++at, --left)
        hash = rotated(hash ^ (static_cast<unsigned char>(*at) * prime5), 11) * prime1;
    hash = (hash ^ (hash >> 33)) * prime2;
    hash = (hash ^ (hash >> 29)) * prime3;
    return hash ^ (hash >> 32);
}

} // namespace VTObjects
