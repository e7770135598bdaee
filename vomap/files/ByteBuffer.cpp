#include "vomap/files/ByteBuffer_p.h"

#include <algorithm>
#include <utility>

namespace VTObjects {

void ByteBuffer::reserve(std::size_t wanted)
{
    if (wanted <= room)
        return;
    std::unique_ptr<char[]> larger(new char[wanted]); // not make_unique, which would clear it
    if (used > 0)
        std::memcpy(larger.get(), bytes.get(), used);
    bytes = std::move(larger);
    room = wanted;
}

void ByteBuffer::grow(std::size_t count)
{
    reserve(std::max(used + count, std::max<std::size_t>(256, used + used / 2)));
}

} // namespace VTObjects
