#include "vomap/files/JsonReader_p.h"

#include "vobase/utf8_p.h"

#include <utility>

namespace VTObjects {

namespace {

constexpr bool isBlank(char character)
{
    return character == ' ' || character == '\n' || character == '\r' || character == '\t';
}

/// A character of ASCII that stands for itself in a string.
constexpr bool isPlain(char character)
{
    return character >= ' ' && character <= '~' && character != '"' && character != '\\';
}

} // namespace

JsonReader::JsonReader(std::string_view text)
    : rest(text)
    , length(text.size())
{
    constexpr std::size_t usualDepth = 4; // of a scheme file
    levels.reserve(usualDepth);
}

bool JsonReader::fail()
{
    failedAt = position();
    good = false;
    rest = std::string_view();
    return false;
}

void JsonReader::skipWhitespace()
{
    // By hand: indented lists of numbers are blanks for the most part.
    std::size_t end = 0;
    while (end < rest.size() && isBlank(rest[end]))
        ++end;
    rest.remove_prefix(end);
}

bool JsonReader::nextIs(char character)
{
    skipWhitespace();
    return !rest.empty() && rest.front() == character;
}

bool JsonReader::take(char character)
{
    if (!nextIs(character))
        return fail();
    rest.remove_prefix(1);
    return true;
}

bool JsonReader::takeWord(std::string_view word)
{
    skipWhitespace();
    if (rest.substr(0, word.size()) != word)
        return fail();
    rest.remove_prefix(word.size());
    return true;
}

bool JsonReader::enter(bool object)
{
    if (levels.size() >= maxDepth || !take(object ? '{' : '['))
        return fail();
    levels.emplace_back();
    levels.back().object = object;
    return true;
}

bool JsonReader::enterObject()
{
    return enter(true);
}

bool JsonReader::enterArray()
{
    return enter(false);
}

// Steps over the comma; false behind the closing bracket, which is taken, and on failure.
bool JsonReader::next(char closing)
{
    if (!good || levels.empty() || levels.back().object != (closing == '}'))
        return fail();
    if (nextIs(closing)) {
        rest.remove_prefix(1);
        levels.pop_back();
        return false;
    }
    if (std::exchange(levels.back().started, true))
        return take(',');
    return true;
}

bool JsonReader::nextMember(std::wstring &name)
{
    if (!next('}'))
        return false;
    name.clear();
    if (!takeString(name) || !levels.back().names.insert(name).second)
        return fail();
    return take(':');
}

bool JsonReader::nextElement()
{
    return next(']');
}

bool JsonReader::takeHexadecimal(char32_t &value)
{
    if (rest.size() < 4)
        return fail();
    value = 0;
    for (int i = 0; i < 4; ++i) {
        const char digit = rest.front();
        rest.remove_prefix(1);
        value *= 16;
        if (digit >= '0' && digit <= '9')
            value += static_cast<char32_t>(digit - '0');
        else if (digit >= 'a' && digit <= 'f')
            value += static_cast<char32_t>(digit - 'a' + 10);
        else if (digit >= 'A' && digit <= 'F')
            value += static_cast<char32_t>(digit - 'A' + 10);
        else
            return fail();
    }
    return true;
}

// Behind the backslash.
bool JsonReader::takeEscape(std::wstring &text)
{
    if (rest.empty())
        return fail();
    const char kind = rest.front();
    rest.remove_prefix(1);
    constexpr std::string_view kinds = "\"\\/bfnrt";
    constexpr std::wstring_view meanings = L"\"\\/\b\f\n\r\t";
    const std::size_t simple = kinds.find(kind);
    if (simple != std::string_view::npos) {
        text += meanings[simple];
        return true;
    }
    char32_t value = 0;
    if (kind != 'u' || !takeHexadecimal(value))
        return fail();
    if (isHighSurrogate(value) && rest.substr(0, 2) == "\\u") {
        // Two escapes make one character only if they fit together.
        const std::string_view second = rest;
        char32_t low = 0;
        rest.remove_prefix(2);
        if (!takeHexadecimal(low))
            return false;
        if (isLowSurrogate(low))
            value = 0x10000 + ((value - 0xD800) << 10) + (low - 0xDC00);
        else
            rest = second;
    }
    appendWide(text, value);
    return true;
}

bool JsonReader::takeString(std::wstring &text)
{
    if (!take('"'))
        return false;
    while (!rest.empty()) {
        // What stands for itself goes over as a whole.
        std::size_t plain = 0;
        while (plain < rest.size() && isPlain(rest[plain]))
            ++plain;
        text.append(rest.begin(), rest.begin() + plain);
        rest.remove_prefix(plain);
        char32_t codePoint = 0;
        if (!takeCodePoint(rest, codePoint) || codePoint < 0x20)
            return fail();
        if (codePoint == U'"')
            return true;
        if (codePoint != U'\\')
            appendWide(text, codePoint);
        else if (!takeEscape(text))
            return false;
    }
    return fail();
}

// The position behind the digits that start at `at`; `at` itself if there is none.
std::size_t JsonReader::takeDigits(std::size_t at) const
{
    while (at < rest.size() && rest[at] >= '0' && rest[at] <= '9')
        ++at;
    return at;
}

bool JsonReader::takeNumber(std::string_view &number)
{
    skipWhitespace();
    std::size_t at = !rest.empty() && rest.front() == '-' ? 1 : 0;
    std::size_t digits = at;
    at = takeDigits(at);
    // One digit at least, and no zero in front of another.
    if (at == digits || (at > digits + 1 && rest[digits] == '0'))
        return fail();
    if (at < rest.size() && rest[at] == '.') {
        digits = ++at;
        at = takeDigits(at);
        if (at == digits)
            return fail();
    }
    if (at < rest.size() && (rest[at] == 'e' || rest[at] == 'E')) {
        ++at;
        if (at < rest.size() && (rest[at] == '+' || rest[at] == '-'))
            ++at;
        digits = at;
        at = takeDigits(at);
        if (at == digits)
            return fail();
    }
    number = rest.substr(0, at);
    rest.remove_prefix(at);
    return true;
}

bool JsonReader::takeBoolean(bool &value)
{
    value = nextIs('t');
    return takeWord(value ? "true" : "false");
}

bool JsonReader::skipValue()
{
    std::wstring text;
    std::string_view number;
    if (nextIs('{')) {
        enterObject();
        while (nextMember(text))
            skipValue();
        return good;
    }
    if (nextIs('[')) {
        enterArray();
        while (nextElement())
            skipValue();
        return good;
    }
    if (nextIs('"'))
        return takeString(text);
    if (nextIs('t') || nextIs('f')) {
        bool ignored = false;
        return takeBoolean(ignored);
    }
    return nextIs('n') ? takeWord("null") : takeNumber(number);
}

bool JsonReader::atEnd()
{
    skipWhitespace();
    return good && levels.empty() && rest.empty();
}

} // namespace VTObjects
