#include "vobase/utf8_p.h"
#include "vomap/VOColorScheme.h"
#include "vomap/files/JsonReader_p.h"
#include "vomap/files/RampParts_p.h"
#include "vomap/files/schemeText_p.h"

#include <QByteArray>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>

namespace VTObjects {

namespace {

// A whole number without fraction and exponent, within the limits.
bool takeWhole(JsonReader &json, std::int64_t smallest, std::int64_t largest, std::int64_t &value)
{
    std::string_view number;
    if (!json.takeNumber(number))
        return false;
    const bool negative = number.front() == '-';
    const std::string_view digits = number.substr(negative ? 1 : 0);
    constexpr std::size_t mostDigits = 10; // of 2^32
    if (digits.size() > mostDigits || digits.find_first_of(".eE") != std::string_view::npos)
        return json.fail();
    value = 0;
    for (const char digit : digits)
        value = value * 10 + (digit - '0');
    if (negative)
        value = -value;
    return (value >= smallest && value <= largest) || json.fail();
}

bool takeInt(JsonReader &json, int &value)
{
    std::int64_t whole = 0;
    if (!takeWhole(json, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), whole))
        return false;
    value = static_cast<int>(whole);
    return true;
}

bool takeText(JsonReader &json, std::wstring &text)
{
    if (!json.nextIs('['))
        return json.takeString(text);
    constexpr std::int64_t largest = sizeof(wchar_t) == 2 ? 0xFFFF : 0xFFFFFFFF;
    json.enterArray();
    while (json.nextElement()) {
        std::int64_t unit = 0;
        if (json.nextIs('"'))
            json.takeString(text);
        else if (takeWhole(json, 0, largest, unit))
            text += static_cast<wchar_t>(unit);
    }
    return json.isGood();
}

constexpr bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool takeComponent(JsonReader &json, float &component)
{
    std::string_view number;
    if (!json.takeNumber(number))
        return false;
    // Nearly all are whole and of three digits at most, and these need no conversion.
    constexpr std::size_t fewDigits = 3;
    if (number.size() <= fewDigits && std::all_of(number.begin(), number.end(), isDigit)) {
        int whole = 0;
        for (const char digit : number)
            whole = whole * 10 + (digit - '0');
        component = static_cast<float>(whole);
        return whole <= 255 || json.fail();
    }
    bool isNumber = false;
    // In the C locale always, and rounded to the nearest.
    const double value =
        QByteArray::fromRawData(number.data(), static_cast<int>(number.size())).toDouble(&isNumber);
    if (number.front() == '-' || !isNumber || !(value <= 255.0))
        return json.fail();
    component = static_cast<float>(value);
    return true;
}

bool takeColors(JsonReader &json, QVector<rgb_color<float>> &colors)
{
    // Not from one to the next: a list is copied as often as its room doubles.
    constexpr int fewColors = 16;
    colors.reserve(fewColors);
    json.enterArray();
    while (json.nextElement()) {
        rgb_color<float> color;
        float *const components[] = {&color.red, &color.green, &color.blue};
        std::size_t count = 0;
        json.enterArray();
        while (json.nextElement()) {
            if (count == std::size(components) || !takeComponent(json, *components[count++]))
                return json.fail();
        }
        if (count != std::size(components) || colors.size() == int(maxSchemeColors))
            return json.fail();
        colors.push_back(color);
    }
    return json.isGood();
}

bool takeKind(JsonReader &json, VOColorRamp::ColorRampType &kind)
{
    std::wstring name;
    if (!json.takeString(name))
        return false;
    const auto *const found =
        std::find_if(std::begin(rampKinds), std::end(rampKinds), [&name](std::string_view known) {
            return std::equal(known.begin(), known.end(), name.begin(), name.end());
        });
    if (found == std::end(rampKinds))
        return json.fail();
    kind = static_cast<VOColorRamp::ColorRampType>(found - std::begin(rampKinds));
    return true;
}

// Which members were there.
struct RampMembers
{
    bool kind = false;
    bool seed = false;
    bool paramsChanged = false;
    std::array<bool, 6> bounds = {};
    bool sources = false;
    bool colors = false;
};

bool areComplete(const RampMembers &members, VOColorRamp::ColorRampType kind)
{
    const bool bounded =
        members.paramsChanged &&
        std::all_of(members.bounds.begin(), members.bounds.end(), [](bool has) { return has; });
    return members.kind && members.colors && (members.seed || !hasSeed(kind)) &&
           (members.sources || !hasSources(kind)) &&
           (bounded || kind != VOColorRamp::RandomHsvRamp);
}

bool takeRampMember(JsonReader &json, const std::wstring &name, RampParts &parts,
                    RampMembers &members)
{
    const auto named = [&name](std::string_view known) {
        return std::equal(known.begin(), known.end(), name.begin(), name.end());
    };
    if (named("kind"))
        return members.kind = takeKind(json, parts.kind);
    if (named("seed"))
        return members.seed = takeInt(json, parts.seed);
    if (named("paramsChanged"))
        return members.paramsChanged = json.takeBoolean(parts.paramsChanged);
    if (named("sourceColors"))
        return members.sources = takeColors(json, parts.sources);
    if (named("colors"))
        return members.colors = takeColors(json, parts.colors);
    for (std::size_t i = 0; i < std::size(boundNames); ++i) {
        if (named(boundNames[i]))
            return members.bounds[i] = takeInt(json, parts.bounds[i]);
    }
    return json.skipValue();
}

bool takeRamp(JsonReader &json, std::unique_ptr<VOColorRamp> &ramp)
{
    RampParts parts;
    RampMembers members;
    std::wstring name;
    json.enterObject();
    while (json.nextMember(name)) {
        if (!takeRampMember(json, name, parts, members))
            return false;
    }
    if (!json.isGood() || !areComplete(members, parts.kind))
        return json.fail();
    ramp = putTogether(parts);
    return true;
}

SchemeFault::Kind takeHead(JsonReader &json)
{
    std::wstring name;
    std::wstring format;
    const bool ours =
        json.enterObject() && json.nextMember(name) && name == L"format" &&
        json.takeString(format) &&
        std::equal(schemeFormat.begin(), schemeFormat.end(), format.begin(), format.end());
    if (!ours)
        return SchemeFault::Foreign;
    std::int64_t schema = 0;
    const bool numbered = json.nextMember(name) && name == L"schema" &&
                          takeWhole(json, schemeSchema, std::numeric_limits<int>::max(), schema);
    if (!numbered)
        return SchemeFault::Damaged;
    return schema == schemeSchema ? SchemeFault::None : SchemeFault::Newer;
}

bool isBlank(std::string_view text)
{
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

SchemeFault readScheme(std::string_view text, VOColorScheme &scheme)
{
    if (text.size() > maxSchemeText)
        return {SchemeFault::TooLong};
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.substr(0, byteOrderMark.size()) == byteOrderMark)
        text.remove_prefix(byteOrderMark.size());
    if (isBlank(text))
        return {SchemeFault::Empty};

    JsonReader json(text);
    const auto damaged = [&json, text] {
        const std::string_view before = text.substr(0, json.position());
        return SchemeFault{SchemeFault::Damaged,
                           static_cast<int>(std::count(before.begin(), before.end(), '\n')) + 1};
    };
    const SchemeFault::Kind head = takeHead(json);
    if (head != SchemeFault::None)
        return head == SchemeFault::Damaged ? damaged() : SchemeFault{head};
    std::wstring member;
    std::wstring texts[3];
    bool has[3] = {};
    std::unique_ptr<VOColorRamp> ramp;
    constexpr std::string_view textNames[] = {"name", "author", "description"};
    const auto isMember = [&member](std::string_view known) {
        return std::equal(known.begin(), known.end(), member.begin(), member.end());
    };
    while (json.nextMember(member)) {
        const auto *const known =
            std::find_if(std::begin(textNames), std::end(textNames), isMember);
        const auto which = static_cast<std::size_t>(known - std::begin(textNames));
        if (known != std::end(textNames))
            has[which] = takeText(json, texts[which]);
        else if (member == L"ramp")
            takeRamp(json, ramp);
        else
            json.skipValue();
    }
    if (!json.atEnd())
        return damaged();
    for (std::size_t i = 0; i < std::size(textNames); ++i) {
        if (!has[i])
            return {SchemeFault::Incomplete, 0, textNames[i]};
    }
    if (!ramp)
        return {SchemeFault::Incomplete, 0, "ramp"};
    scheme.name = texts[0];
    scheme.author = texts[1];
    scheme.describe = texts[2];
    scheme.unknownFields.reset();
    delete scheme.colorRamp;
    scheme.colorRamp = ramp.release();
    return {};
}

} // namespace

bool readSchemeText(std::string_view text, VOColorScheme &scheme, SchemeFault *fault)
{
    const SchemeFault found = readScheme(text, scheme);
    if (fault)
        *fault = found;
    return found.kind == SchemeFault::None;
}

} // namespace VTObjects
