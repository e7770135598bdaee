#pragma once

#include "vobase/VOString.h"
#include "vomap/VOStringConversion.h"
#include "vomap/rgb_color.h"

#include <QtTest>

#include <algorithm>
#include <vector>

/// What QCOMPARE prints of our own types, for tests that compare them.
namespace QTest {

template <>
inline char *toString(const VTObjects::VOString &text)
{
    return toString(VTObjects::toQString(text));
}

template <>
inline char *toString(const std::wstring &text)
{
    return toString(QString::fromStdWString(text));
}

template <>
inline char *toString(const VTObjects::rgb_color<float> &color)
{
    // As many digits as tell any two floats apart.
    return qstrdup(qPrintable(QStringLiteral("rgb(%1, %2, %3)")
                                  .arg(double(color.red), 0, 'g', 9)
                                  .arg(double(color.green), 0, 'g', 9)
                                  .arg(double(color.blue), 0, 'g', 9)));
}

/// As it compares with a literal, and with that printed, too.
inline bool qCompare(const VTObjects::VOString &text, const wchar_t *literal, const char *actual,
                     const char *expected, const char *file, int line)
{
    return compare_helper(text == literal, "Compared values are not the same", toString(text),
                          toString(VTObjects::VOString(literal)), actual, expected, file, line);
}

/// Tells the first pair of colours that differ, as the toolkit does for its own lists.
inline bool qCompare(const std::vector<VTObjects::rgb_color<float>> &colors,
                     const std::vector<VTObjects::rgb_color<float>> &others, const char *actual,
                     const char *expected, const char *file, int line)
{
    if (colors.size() != others.size())
        return compare_helper(false, "Compared lists have different sizes", toString(colors.size()),
                              toString(others.size()), actual, expected, file, line);
    const auto different = std::mismatch(colors.begin(), colors.end(), others.begin());
    if (different.first == colors.end())
        return compare_helper(colors == others, "Compared lists differ", nullptr, nullptr, actual,
                              expected, file, line);
    const auto index = different.first - colors.begin();
    return compare_helper(
        false, qPrintable(QStringLiteral("Compared lists differ at index %1").arg(index)),
        toString(*different.first), toString(*different.second), actual, expected, file, line);
}

} // namespace QTest
