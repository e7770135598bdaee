#include "vobase/VOString.h"

#include "vobase/utf8_p.h"

#include <algorithm>

namespace VTObjects {

namespace {

std::wstring widened(const char *text)
{
    if (!text)
        return std::wstring();
    std::string_view narrow(text);
    std::wstring wide;
    wide.reserve(narrow.size());
    while (!narrow.empty()) {
        char32_t codePoint = 0;
        if (!takeCodePoint(narrow, codePoint)) {
            codePoint = static_cast<unsigned char>(narrow.front());
            narrow.remove_prefix(1);
        }
        appendWide(wide, codePoint);
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
