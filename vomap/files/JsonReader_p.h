#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace VTObjects {

/// Reads JSON text (RFC 8259) from front to back, strictly: only valid UTF-8, no member twice in an
/// object, nesting of at most maxDepth, nothing behind the value. The caller asks for what it
/// expects; whatever is not there fails, and after the first failure everything fails.
///
/// Strings come out as wide characters, exactly as written: an escaped lone surrogate stays one.
class JsonReader
{
public:
    static constexpr std::size_t maxDepth = 32;

    explicit JsonReader(std::string_view text);

    bool isGood() const { return good; }
    bool fail();
    /// How many bytes were read; after a failure, before it.
    std::size_t position() const { return good ? length - rest.size() : failedAt; }

    /// True if the next value begins with this character: '{', '[', '"', 't', ...
    bool nextIs(char character);

    /// An object: enterObject(), then nextMember() until it answers false, at the closing brace or
    /// on failure; behind each member its value must be taken. The same with arrays.
    bool enterObject();
    bool nextMember(std::wstring &name);
    bool enterArray();
    bool nextElement();

    /// Appends to `text`.
    bool takeString(std::wstring &text);
    /// The number as it is written, in the grammar of JSON numbers.
    bool takeNumber(std::string_view &number);
    bool takeBoolean(bool &value);
    bool skipValue();
    /// True if nothing but blanks and line ends is left.
    bool atEnd();

private:
    struct Level
    {
        bool object = false;
        bool started = false;
        std::set<std::wstring> names;
    };

    bool take(char character);
    bool takeWord(std::string_view word);
    bool takeEscape(std::wstring &text);
    bool takeHexadecimal(char32_t &value);
    bool enter(bool object);
    bool next(char closing);
    void skipWhitespace();
    std::size_t takeDigits(std::size_t at) const;

    std::string_view rest;
    std::size_t length = 0; // of the whole text
    std::size_t failedAt = 0;
    std::vector<Level> levels;
    bool good = true;
};

} // namespace VTObjects
