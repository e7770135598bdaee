#pragma once

#include <QtEndian>

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

namespace VTObjects {

/// Bytes that are about to be written or were just read. Unlike std::string it leaves new room
/// unset, which counts with files of many megabytes. Numbers are written little-endian.
class ByteBuffer
{
public:
    ByteBuffer() = default;
    /// Leaves `other` empty.
    ByteBuffer(ByteBuffer &&other) noexcept
        : bytes(std::move(other.bytes))
        , used(std::exchange(other.used, 0))
        , room(std::exchange(other.room, 0))
    {
    }
    ByteBuffer &operator=(ByteBuffer &&other) noexcept
    {
        bytes = std::move(other.bytes);
        used = std::exchange(other.used, 0);
        room = std::exchange(other.room, 0);
        return *this;
    }

    const char *data() const { return bytes.get(); }
    char *data() { return bytes.get(); }
    std::size_t size() const { return used; }
    std::string_view view() const { return std::string_view(bytes.get(), used); }

    void clear() { used = 0; }
    void reserve(std::size_t wanted);
    /// Sets the size; bytes that are new are unset.
    void resize(std::size_t wanted)
    {
        reserve(wanted);
        used = wanted;
    }

    /// Room for `count` more bytes, which the caller fills.
    char *extend(std::size_t count)
    {
        if (room - used < count)
            grow(count);
        char *const start = bytes.get() + used;
        used += count;
        return start;
    }
    void append(std::string_view more)
    {
        if (!more.empty())
            std::memcpy(extend(more.size()), more.data(), more.size());
    }
    template <typename Number>
    void appendNumber(Number number)
    {
        qToLittleEndian<Number>(number, extend(sizeof(Number)));
    }
    /// Overwrites a number that is already there.
    template <typename Number>
    void setNumber(std::size_t at, Number number)
    {
        qToLittleEndian<Number>(number, bytes.get() + at);
    }

private:
    void grow(std::size_t count);

    std::unique_ptr<char[]> bytes;
    std::size_t used = 0;
    std::size_t room = 0;
};

} // namespace VTObjects
