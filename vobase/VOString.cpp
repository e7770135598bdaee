#include "vobase/VOString.h"

#include <algorithm>

namespace VTObjects {

namespace {

// Where wchar_t has 16 bits, a character beyond them becomes a surrogate pair.
void appendCodePoint(std::wstring &wide, char32_t codePoint)
{
    if (sizeof(wchar_t) == 2 && codePoint > 0xFFFF) {
        codePoint -= 0x10000;
        wide += static_cast<wchar_t>(0xD800 + (codePoint >> 10));
        wide += static_cast<wchar_t>(0xDC00 + (codePoint & 0x3FF));
    } else {
        wide += static_cast<wchar_t>(codePoint);
    }
}

// Length in bytes of the UTF-8 sequence that starts at `at`; 0 where there is none.
int sequenceLength(const std::string &text, std::size_t at, char32_t &codePoint)
{
    const auto lead = static_cast<unsigned char>(text[at]);
    int length = 0;
    char32_t smallest = 0;
    if (lead < 0x80) {
        codePoint = lead;
        return 1;
    }
    if ((lead & 0xE0) == 0xC0) {
        length = 2;
        smallest = 0x80;
        codePoint = lead & 0x1F;
    } else if ((lead & 0xF0) == 0xE0) {
        length = 3;
        smallest = 0x800;
        codePoint = lead & 0x0F;
    } else if ((lead & 0xF8) == 0xF0) {
        length = 4;
        smallest = 0x10000;
        codePoint = lead & 0x07;
    } else {
        return 0;
    }
    if (at + static_cast<std::size_t>(length) > text.size())
        return 0;
    for (int i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[at + static_cast<std::size_t>(i)]);
        if ((next & 0xC0) != 0x80)
            return 0;
        codePoint = (codePoint << 6) | (next & 0x3F);
    }
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    return codePoint < smallest || codePoint > 0x10FFFF || surrogate ? 0 : length;
}

std::wstring widened(const char *text)
{
    if (!text)
        return std::wstring();
    const std::string narrow(text);
    std::wstring wide;
    wide.reserve(narrow.size());
    for (std::size_t at = 0; at < narrow.size();) {
        char32_t codePoint = 0;
        const int length = sequenceLength(narrow, at, codePoint);
        if (length == 0)
            codePoint = static_cast<unsigned char>(narrow[at]);
        appendCodePoint(wide, codePoint);
        at += static_cast<std::size_t>(std::max(length, 1));
    }
    return wide;
}

std::shared_ptr<const std::wstring> share(std::wstring text)
{
    return text.empty() ? nullptr : std::make_shared<const std::wstring>(std::move(text));
}

} // namespace

VOString::VOString() = default;

VOString::VOString(const VOString &other) = default;

VOString::VOString(const char *text)
    : shared(share(widened(text)))
{
}

VOString::VOString(const wchar_t *text)
    : shared(text ? share(text) : nullptr)
{
}

VOString::VOString(const std::wstring &text)
    : shared(share(text))
{
}

VOString::~VOString() = default;

const std::wstring &VOString::text() const
{
    static const std::wstring empty;
    return shared ? *shared : empty;
}

int VOString::compareTo(const VOString &other) const
{
    return shared == other.shared ? 0 : text().compare(other.text());
}

bool VOString::operator==(const char *other) const
{
    return text() == widened(other);
}

bool VOString::operator==(const wchar_t *other) const
{
    return other ? text() == other : !shared;
}

bool VOString::operator==(const VOString &other) const
{
    return shared == other.shared || text() == other.text();
}

bool VOString::operator!=(const VOString &other) const
{
    return !(*this == other);
}

bool VOString::operator!=(const char *other) const
{
    return !(*this == other);
}

bool VOString::operator!=(const wchar_t *other) const
{
    return !(*this == other);
}

VOString &VOString::operator=(const VOString &other) = default;

VOString &VOString::operator=(const wchar_t *text)
{
    shared = text ? share(text) : nullptr;
    return *this;
}

VOString &VOString::operator=(const std::wstring &text)
{
    shared = share(text);
    return *this;
}

const VOString &VOString::operator+=(const wchar_t *text)
{
    if (text)
        shared = share(this->text() + text);
    return *this;
}

VOString VOString::operator+(const VOString &other) const
{
    return VOString(text() + other.text());
}

VOString VOString::operator+(const char *other) const
{
    return VOString(text() + widened(other));
}

VOString VOString::replace(wchar_t from, wchar_t to)
{
    Replace(from, to);
    return *this;
}

int VOString::Replace(wchar_t from, wchar_t to)
{
    const auto count = std::count(text().cbegin(), text().cend(), from);
    if (count > 0 && from != to) {
        std::wstring changed = text();
        std::replace(changed.begin(), changed.end(), from, to);
        shared = share(std::move(changed));
    }
    return static_cast<int>(count);
}

VOString::operator const std::wstring() const
{
    return text();
}

} // namespace VTObjects
