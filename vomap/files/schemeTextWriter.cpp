#include "vobase/utf8_p.h"
#include "vomap/VOColorScheme.h"
#include "vomap/files/RampParts_p.h"
#include "vomap/files/schemeText_p.h"

#include <QByteArray>

#include <iterator>

namespace VTObjects {

namespace {

bool needsEscape(char32_t codePoint)
{
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0) || codePoint == U'"' ||
           codePoint == U'\\' || codePoint == 0x2028 || codePoint == 0x2029 ||
           codePoint == 0xFEFF || isHighSurrogate(codePoint) || isLowSurrogate(codePoint);
}

void appendEscape(std::string &text, char32_t codePoint)
{
    constexpr std::u32string_view simple = U"\"\\\b\f\n\r\t";
    constexpr std::string_view letters = "\"\\bfnrt";
    const std::size_t found = simple.find(codePoint);
    text += '\\';
    if (found != std::u32string_view::npos) {
        text += letters[found];
        return;
    }
    text += 'u';
    for (int shift = 12; shift >= 0; shift -= 4)
        text += "0123456789abcdef"[(codePoint >> shift) & 0xF];
}

void appendJsonString(std::string &text, std::wstring_view wide)
{
    text += '"';
    for (std::size_t at = 0; at < wide.size();) {
        const char32_t codePoint = takeCodePoint(wide, at);
        if (needsEscape(codePoint))
            appendEscape(text, codePoint);
        else
            appendUtf8(text, codePoint);
    }
    text += '"';
}

// Where a JSON string cannot say this character behind the one before it.
bool breaksString(std::wstring_view wide, std::size_t at)
{
    const char32_t unit = codeUnitOf(wide[at]);
    return unit > 0x10FFFF || (sizeof(wchar_t) == 4 && at > 0 && isLowSurrogate(unit) &&
                               isHighSurrogate(codeUnitOf(wide[at - 1])));
}

void appendText(std::string &text, std::wstring_view wide)
{
    std::size_t broken = 0;
    while (broken < wide.size() && !breaksString(wide, broken))
        ++broken;
    if (broken == wide.size())
        return appendJsonString(text, wide);
    // An array of strings, and of numbers for the characters that break them.
    text += '[';
    for (std::size_t from = 0; from < wide.size();) {
        if (from > 0)
            text += ", ";
        if (breaksString(wide, from)) {
            text += std::to_string(static_cast<unsigned long>(codeUnitOf(wide[from++])));
            continue;
        }
        std::size_t to = from + 1;
        while (to < wide.size() && !breaksString(wide, to))
            ++to;
        appendJsonString(text, wide.substr(from, to - from));
        from = to;
    }
    text += ']';
}

// The shortest that reads back as the same float, as the reader reads.
void appendComponent(std::string &text, float component)
{
    const int whole = static_cast<int>(component);
    if (static_cast<float>(whole) == component) {
        text += std::to_string(whole);
        return;
    }
    constexpr int enough = 9; // significant digits, for any float
    QByteArray number;
    for (int digits = 1; digits <= enough; ++digits) {
        number = QByteArray::number(double(component), 'g', digits);
        if (static_cast<float>(number.toDouble()) == component)
            break;
    }
    text += number.toStdString();
}

bool appendColors(std::string &text, std::string_view name, const QVector<rgb_color<float>> &colors)
{
    if (colors.size() > int(maxSchemeColors))
        return false;
    text.append(",\n    \"").append(name).append("\": [");
    const char *separator = "\n      [";
    for (const rgb_color<float> &color : colors) {
        text += separator;
        separator = ",\n      [";
        appendComponent(text, color.red);
        text += ", ";
        appendComponent(text, color.green);
        text += ", ";
        appendComponent(text, color.blue);
        text += ']';
    }
    text += colors.isEmpty() ? "]" : "\n    ]";
    return true;
}

void appendInt(std::string &text, std::string_view name, int value)
{
    text.append(",\n    \"").append(name).append("\": ").append(std::to_string(value));
}

bool appendRamp(std::string &text, const RampParts &parts)
{
    text.append("{\n    \"kind\": \"").append(rampKinds[parts.kind]).append("\"");
    if (hasSeed(parts.kind))
        appendInt(text, "seed", parts.seed);
    if (parts.kind == VOColorRamp::RandomHsvRamp) {
        text.append(",\n    \"paramsChanged\": ").append(parts.paramsChanged ? "true" : "false");
        for (std::size_t i = 0; i < std::size(boundNames); ++i)
            appendInt(text, boundNames[i], parts.bounds[i]);
    }
    if (hasSources(parts.kind) && !appendColors(text, "sourceColors", parts.sources))
        return false;
    if (!appendColors(text, "colors", parts.colors))
        return false;
    text += "\n  }";
    return true;
}

} // namespace

bool writeSchemeText(const VOColorScheme &scheme, std::string &text)
{
    RampParts parts;
    if (!scheme.colorRamp || !takeApart(*scheme.colorRamp, parts))
        return false;
    text = "{\n  \"format\": \"";
    text.append(schemeFormat).append("\",\n  \"schema\": ").append(std::to_string(schemeSchema));
    text += ",\n  \"name\": ";
    appendText(text, scheme.name.text());
    text += ",\n  \"author\": ";
    appendText(text, scheme.author.text());
    text += ",\n  \"description\": ";
    appendText(text, scheme.describe.text());
    text += ",\n  \"ramp\": ";
    if (!appendRamp(text, parts))
        return false;
    text += "\n}\n";
    return text.size() <= maxSchemeText;
}

} // namespace VTObjects
