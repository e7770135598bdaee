#pragma once

#include <cstdint>
#include <string_view>

namespace VTObjects {

/// XXH64 of the bytes, the checksum of the team files. Published by Yann Collet as "xxHash fast
/// digest algorithm", specification version 0.1.1, with public test values.
std::uint64_t xxHash64(std::string_view bytes, std::uint64_t seed = 0);

} // namespace VTObjects
