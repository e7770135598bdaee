#pragma once

#include <QtEndian>

#include <cstddef>
#include <string_view>

namespace VTObjects {

/// Takes little-endian numbers and runs of bytes off the front of a view. Past the end it gives
/// zeroes and empty runs and remembers that it did: ask isGood() after the last of a series.
class ByteReader
{
public:
    explicit ByteReader(std::string_view bytes)
        : rest(bytes)
    {
    }

    bool isGood() const { return good; }
    bool atEnd() const { return rest.empty(); }
    std::size_t left() const { return rest.size(); }

    template <typename Number>
    Number number()
    {
        const std::string_view raw = run(sizeof(Number));
        return raw.empty() ? Number() : qFromLittleEndian<Number>(raw.data());
    }
    std::string_view run(std::size_t count)
    {
        if (count > rest.size()) {
            fail();
            return std::string_view();
        }
        const std::string_view taken = rest.substr(0, count);
        rest.remove_prefix(count);
        return taken;
    }
    void fail()
    {
        good = false;
        rest = std::string_view();
    }

private:
    std::string_view rest;
    bool good = true;
};

} // namespace VTObjects
