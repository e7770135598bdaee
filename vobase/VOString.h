#pragma once

#include "vobase/vobase_export.h"

#include <memory>
#include <string>

namespace VTObjects {

/// The wide string of all records: names, authors, descriptions, paths.
///
/// It holds any sequence of wide characters, NUL and lone surrogates included, and changes none of
/// them. Copies share their characters until one of them is written, so copying is cheap; by
/// behaviour every copy is independent. Not for use from several threads at once.
///
/// A null pointer counts as the empty string wherever a pointer is taken. Narrow text is read as
/// UTF-8; a byte that is no valid UTF-8 stands for the character of its own value (ISO 8859-1), so
/// that nothing is lost.
class VOBASE_EXPORT VOString
{
public:
    VOString();
    VOString(const VOString &other);
    VOString(VOString &&other) noexcept = default;
    VOString(const char *text);
    VOString(const wchar_t *text);
    VOString(const std::wstring &text);
    virtual ~VOString();

    /// Orders by the values of the wide characters: below 0, 0 or above 0 as this string stands
    /// before, equals or stands behind the other one. No locale, no case folding.
    virtual int compareTo(const VOString &other) const;
    /// Exact comparison: letter case and blanks count.
    virtual bool operator==(const char *other) const;
    virtual bool operator==(const wchar_t *other) const;
    virtual bool operator==(const VOString &other) const;
    virtual bool operator!=(const VOString &other) const;
    virtual bool operator!=(const char *other) const;
    virtual bool operator!=(const wchar_t *other) const;

    VOString &operator=(const VOString &other);
    VOString &operator=(VOString &&other) noexcept = default;
    VOString &operator=(const wchar_t *text);
    VOString &operator=(const std::wstring &text);

    const VOString &operator+=(const wchar_t *text);
    VOString operator+(const VOString &other) const;
    VOString operator+(const char *other) const;

    /// Replaces every character `from` by `to` in this string and returns a copy of the result.
    VOString replace(wchar_t from, wchar_t to);
    /// As replace(), but answers how many characters were replaced.
    int Replace(wchar_t from, wchar_t to);

    operator const std::wstring() const;
    /// The characters without a copy of them, valid until this string changes or goes.
    const std::wstring &text() const;

private:
    std::shared_ptr<const std::wstring> shared; // null: the empty string
};

/// For ordered containers: QMap and std::map sort their keys by compareTo().
inline bool operator<(const VOString &left, const VOString &right)
{
    return left.compareTo(right) < 0;
}

} // namespace VTObjects
