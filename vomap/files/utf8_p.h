#pragma once

#include <string>
#include <string_view>

namespace VTObjects {

/// Strict UTF-8, both ways, without the toolkit's strings: those know no values past U+10FFFF and
/// replace what they find odd.

constexpr bool isHighSurrogate(char32_t value)
{
    return value >= 0xD800 && value <= 0xDBFF;
}
constexpr bool isLowSurrogate(char32_t value)
{
    return value >= 0xDC00 && value <= 0xDFFF;
}
/// A surrogate, or past the last code point: nothing that UTF-8 could say.
constexpr bool isUnsayable(char32_t value)
{
    return (value >= 0xD800 && value <= 0xDFFF) || value > 0x10FFFF;
}

/// The code unit of one wide character, whatever sign wchar_t has.
constexpr char32_t codeUnitOf(wchar_t character)
{
    return sizeof(wchar_t) == 2 ? static_cast<char16_t>(character)
                                : static_cast<char32_t>(character);
}

/// Appends one code point, which must be sayable.
void appendUtf8(std::string &utf8, char32_t codePoint);
/// Appends wide text; false, with part of it appended, where a character is unsayable.
bool appendUtf8(std::string &utf8, std::wstring_view wide);
/// Appends one code point as wide text: two characters where wchar_t has 16 bits.
void appendWide(std::wstring &wide, char32_t codePoint);
/// Takes one code point off the front of the text. False, with the text as it was, if there is no
/// valid one.
bool takeCodePoint(std::string_view &utf8, char32_t &codePoint);
/// The code point at `at`, where wchar_t has 16 bits a whole pair; moves `at` behind it.
char32_t takeCodePoint(std::wstring_view wide, std::size_t &at);

} // namespace VTObjects
