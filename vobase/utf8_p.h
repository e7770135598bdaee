#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace VTObjects {

/// Strict UTF-8, both ways, without the toolkit's strings: those know no values past U+10FFFF and
/// replace what they find odd. Inline, so that every library has it without exporting it.

constexpr bool isHighSurrogate(char32_t value)
{
    return value >= 0xD800 && value <= 0xDBFF;
}
constexpr bool isLowSurrogate(char32_t value)
{
    return value >= 0xDC00 && value <= 0xDFFF;
}
/// Whether this is a Unicode scalar value: no surrogate, and not past the last code point. UTF-8
/// encodes these and no others.
constexpr bool isScalarValue(char32_t value)
{
    return value <= 0x10FFFF && !isHighSurrogate(value) && !isLowSurrogate(value);
}

/// The code unit of one wide character, whatever sign wchar_t has.
constexpr char32_t codeUnitOf(wchar_t character)
{
    return sizeof(wchar_t) == 2 ? static_cast<char16_t>(character)
                                : static_cast<char32_t>(character);
}

/// Takes one code point off the front of the text. False, with the text as it was, if there is no
/// valid one.
inline bool takeCodePoint(std::string_view &utf8, char32_t &codePoint)
{
    if (utf8.empty())
        return false;
    const auto byteAt = [&utf8](std::size_t at) { return static_cast<unsigned char>(utf8[at]); };
    const unsigned char lead = byteAt(0);
    std::size_t length = 1;
    char32_t smallest = 0;
    char32_t value = lead;
    if (lead >= 0xC0 && lead < 0xE0) {
        length = 2;
        smallest = 0x80;
        value = lead & 0x1FU;
    } else if (lead >= 0xE0 && lead < 0xF0) {
        length = 3;
        smallest = 0x800;
        value = lead & 0x0FU;
    } else if (lead >= 0xF0 && lead < 0xF8) {
        length = 4;
        smallest = 0x10000;
        value = lead & 0x07U;
    } else if (lead >= 0x80) {
        return false;
    }
    if (length > utf8.size())
        return false;
    for (std::size_t at = 1; at < length; ++at) {
        if ((byteAt(at) & 0xC0U) != 0x80)
            return false;
        value = (value << 6) | (byteAt(at) & 0x3FU);
    }
    if (value < smallest || !isScalarValue(value))
        return false;
    codePoint = value;
    utf8.remove_prefix(length);
    return true;
}

/// The code point at `at`, where wchar_t has 16 bits a whole pair; moves `at` behind it. A lone
/// surrogate comes out as it is.
inline char32_t takeCodePoint(std::wstring_view wide, std::size_t &at)
{
    const char32_t unit = codeUnitOf(wide[at++]);
    if (sizeof(wchar_t) == 2 && isHighSurrogate(unit) && at < wide.size() &&
        isLowSurrogate(codeUnitOf(wide[at])))
        return 0x10000 + ((unit - 0xD800) << 10) + (codeUnitOf(wide[at++]) - 0xDC00);
    return unit;
}

/// Appends one code point, which must be a scalar value.
inline void appendUtf8(std::string &utf8, char32_t codePoint)
{
    const auto trail = [&utf8, codePoint](int shift) {
        utf8 += static_cast<char>(0x80 | ((codePoint >> shift) & 0x3F));
    };
    if (codePoint < 0x80) {
        utf8 += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        utf8 += static_cast<char>(0xC0 | (codePoint >> 6));
        trail(0);
    } else if (codePoint < 0x10000) {
        utf8 += static_cast<char>(0xE0 | (codePoint >> 12));
        trail(6);
        trail(0);
    } else {
        utf8 += static_cast<char>(0xF0 | (codePoint >> 18));
        trail(12);
        trail(6);
        trail(0);
    }
}

/// Appends wide text; false, with part of it appended, where a character is no scalar value.
inline bool appendUtf8(std::string &utf8, std::wstring_view wide)
{
    for (std::size_t at = 0; at < wide.size();) {
        const char32_t codePoint = takeCodePoint(wide, at);
        if (!isScalarValue(codePoint))
            return false;
        appendUtf8(utf8, codePoint);
    }
    return true;
}

/// Appends one code point as wide text: two characters where wchar_t has 16 bits.
inline void appendWide(std::wstring &wide, char32_t codePoint)
{
    if (sizeof(wchar_t) == 2 && codePoint > 0xFFFF) {
        wide += static_cast<wchar_t>(0xD7C0 + (codePoint >> 10));
        wide += static_cast<wchar_t>(0xDC00 + (codePoint & 0x3FF));
    } else {
        wide += static_cast<wchar_t>(codePoint);
    }
}

} // namespace VTObjects
