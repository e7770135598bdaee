#include "vomap/safeFileName.h"

#include "vobase/utf8_p.h"
#include "vomap/files/xxHash64_p.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstdio>

namespace VTObjects {

namespace {

constexpr std::size_t longestName = 240; // bytes; file systems allow 255, the extension included
constexpr std::size_t longestCut = 200;  // before the digits

bool isForbidden(char32_t codePoint)
{
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0) || codePoint == U'/' ||
           codePoint == U'\\' || !isScalarValue(codePoint);
}

std::wstring withoutForbidden(const std::wstring &name)
{
    std::wstring safe;
    for (std::size_t at = 0; at < name.size();) {
        const char32_t codePoint = takeCodePoint(name, at);
        appendWide(safe, isForbidden(codePoint) ? U'_' : codePoint);
    }
    const std::wstring dotted = safe;
    for (std::size_t at = 0; at < dotted.size(); ++at) {
        const bool alone = dotted.size() == 1;
        const bool inRow = (at > 0 && dotted[at - 1] == L'.') ||
                           (at + 1 < dotted.size() && dotted[at + 1] == L'.');
        if (dotted[at] == L'.' && (alone || inRow))
            safe[at] = L'_';
    }
    return safe;
}

bool isDeviceName(const std::wstring &name)
{
    std::wstring start = name.substr(0, name.find(L'.'));
    // Not by the locale: only these letters matter.
    std::transform(start.begin(), start.end(), start.begin(), [](wchar_t letter) {
        return letter >= L'a' && letter <= L'z' ? static_cast<wchar_t>(letter - L'a' + L'A')
                                                : letter;
    });
    constexpr std::array<std::wstring_view, 4> plain = {L"CON", L"PRN", L"AUX", L"NUL"};
    const bool numbered = start.size() == 4 && start[3] >= L'1' && start[3] <= L'9' &&
                          (start.compare(0, 3, L"COM") == 0 || start.compare(0, 3, L"LPT") == 0);
    return numbered || std::find(plain.begin(), plain.end(), start) != plain.end();
}

std::wstring cut(const std::wstring &name, std::size_t longest)
{
    std::wstring kept;
    std::string utf8;
    for (std::size_t at = 0; at < name.size();) {
        const char32_t codePoint = takeCodePoint(name, at);
        appendUtf8(utf8, codePoint);
        if (utf8.size() > longest)
            break;
        appendWide(kept, codePoint);
    }
    return kept;
}

// 16 digits that two different names share practically never.
std::wstring digitsFor(const std::wstring &name)
{
    std::string bytes(name.size() * sizeof(quint32), '\0');
    for (std::size_t i = 0; i < name.size(); ++i)
        qToLittleEndian<quint32>(codeUnitOf(name[i]), &bytes[i * sizeof(quint32)]);
    std::array<wchar_t, 17> digits = {};
    std::swprintf(digits.data(), digits.size(), L"%016llx",
                  static_cast<unsigned long long>(xxHash64(bytes)));
    return digits.data();
}

} // namespace

VOString safeFileName(const VOString &name)
{
    const std::wstring &original = name.text();
    std::wstring safe = withoutForbidden(original);
    if (isDeviceName(safe))
        safe.insert(safe.begin(), L'_');
    const bool tooLong = cut(safe, longestName) != safe;
    if (safe == original && !tooLong)
        return name;
    return VOString(cut(safe, longestCut) + L'~' + digitsFor(original));
}

} // namespace VTObjects
