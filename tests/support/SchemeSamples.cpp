#include "tests/support/SchemeSamples.h"

#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOPredefineColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"

#include <array>
#include <cstring>
#include <limits>
#include <memory>
#include <typeinfo>
#include <vector>

using namespace VTObjects;

SchemeSamples::SchemeSamples(unsigned int seed)
    : generator(seed)
{
}

unsigned int SchemeSamples::number(unsigned int largest)
{
    return largest == std::numeric_limits<unsigned int>::max() ? generator()
                                                               : generator() % (largest + 1);
}

std::wstring SchemeSamples::text()
{
    static const std::array<std::wstring, 18> pieces = {L"Red",
                                                        L"\u00e9\u00df",
                                                        L"\u0130\u0131iI",
                                                        L"1,5",
                                                        L"\"",
                                                        L"\\",
                                                        L"\r\n",
                                                        L"\t",
                                                        std::wstring(1, L'\0'),
                                                        L"\u4e2d\u6587",
                                                        L"\x7f\u0085",
                                                        L"\u2028",
                                                        L"\uffff",
                                                        L"/",
                                                        L"\\u0041",
                                                        L"{[]}",
                                                        L"\U0001F600",
                                                        L"</script>"};
    std::wstring made;
    if (number(9) == 0)
        made += wchar_t(0xFEFF);
    for (unsigned int i = number(4); i > 0; --i) {
        switch (number(9)) {
        case 0:
            made += wchar_t(0xD800 + number(0x3FF)); // a high surrogate
            break;
        case 1:
            made += wchar_t(0xDC00 + number(0x3FF)); // a low one, sometimes behind a high one
            break;
        case 2:
            made += wchar_t(number(std::numeric_limits<unsigned int>::max())); // anything at all
            break;
        case 3:
            made += wchar_t(number(0x20));
            break;
        default:
            made += pieces[number(pieces.size() - 1)];
        }
    }
    return made;
}

float SchemeSamples::component()
{
    switch (number(3)) {
    case 0:
        return float(number(255));
    case 1:
        return float(number(255)) + float(number(999)) / 1000.0F < 255.0F
                   ? float(number(254)) + float(number(999)) / 1000.0F
                   : 255.0F;
    default: {
        // Any bits that are a float from 0 to 255, the smallest ones included.
        const quint32 bits = number(0x437F0000U);
        float value = 0;
        std::memcpy(&value, &bits, sizeof(value));
        return value;
    }
    }
}

rgb_color<float> SchemeSamples::color()
{
    const float red = component();
    const float green = component();
    return rgb_color<float>(red, green, component());
}

VOColorScheme SchemeSamples::scheme()
{
    return scheme(static_cast<VOColorRamp::ColorRampType>(number(3)));
}

VOColorScheme SchemeSamples::scheme(VOColorRamp::ColorRampType kind)
{
    constexpr unsigned int any = std::numeric_limits<unsigned int>::max();
    std::unique_ptr<VOColorRamp> ramp;
    if (kind == VOColorRamp::RandomRamp) {
        auto random = std::make_unique<VORandomColorRamp>();
        random->setSeed(int(number(any)));
        ramp = std::move(random);
    } else if (kind == VOColorRamp::RandomHsvRamp) {
        auto bounded = std::make_unique<VORandomColorRampForHsv>();
        bounded->setSeed(int(number(any)));
        bounded->paramsChanged = number(1) == 1;
        for (int *bound : {&bounded->minH, &bounded->maxH, &bounded->minS, &bounded->maxS,
                           &bounded->minV, &bounded->maxV})
            *bound = number(1) == 1 ? int(number(360)) : int(number(any));
        ramp = std::move(bounded);
    } else {
        std::unique_ptr<VOEvenColorRamp> even;
        if (kind == VOColorRamp::EvenRamp)
            even = std::make_unique<VOEvenColorRamp>();
        else
            even = std::make_unique<VOPredefineColorRamp>();
        std::vector<rgb_color<float>> sources(number(4));
        for (rgb_color<float> &source : sources)
            source = color();
        even->setSourceColor(long(sources.size()), sources.data());
        ramp = std::move(even);
    }
    for (unsigned int i = number(7); i > 0; --i)
        ramp->addColor(color());
    VOColorScheme made;
    made.name = text();
    made.author = text();
    made.describe = text();
    made.colorRamp = ramp.release();
    return made;
}

namespace {

QByteArray dumpText(const VOString &text)
{
    QByteArray out = "\"";
    for (const wchar_t character : static_cast<const std::wstring>(text))
        out += QByteArray::number(quint32(character), 16) + ' ';
    return out + "\"";
}

QByteArray dumpColor(rgb_color<float> color)
{
    QByteArray out = "(";
    for (const float component : {color.red, color.green, color.blue}) {
        quint32 bits = 0;
        std::memcpy(&bits, &component, sizeof(bits));
        out += QByteArray::number(bits, 16) + ' ';
    }
    return out + ')';
}

QByteArray dumpRamp(VOColorRamp *ramp)
{
    if (!ramp)
        return "no ramp";
    QByteArray out = typeid(*ramp).name();
    if (const auto *random = dynamic_cast<VORandomColorRamp *>(ramp))
        out += " seed " + QByteArray::number(random->seed);
    if (const auto *bounded = dynamic_cast<VORandomColorRampForHsv *>(ramp)) {
        out += bounded->paramsChanged ? " changed" : " unchanged";
        for (const int bound : {bounded->minH, bounded->maxH, bounded->minS, bounded->maxS,
                                bounded->minV, bounded->maxV})
            out += ' ' + QByteArray::number(bound);
    }
    if (auto *even = dynamic_cast<VOEvenColorRamp *>(ramp)) {
        out += " sources";
        for (unsigned int i = 0; i < even->getSourceColorCount(); ++i)
            out += dumpColor(even->getSourceColor(int(i)));
    }
    out += " colors";
    for (unsigned int i = 0; i < ramp->getLevel(); ++i)
        out += dumpColor(ramp->getColor(i));
    return out;
}

} // namespace

QByteArray dump(const VOColorScheme &scheme)
{
    return dumpText(scheme.name) + ' ' + dumpText(scheme.author) + ' ' + dumpText(scheme.describe) +
           ' ' + dumpRamp(scheme.colorRamp) + '\n';
}

QByteArray dump(const VOColorSchemeGroup &group)
{
    QByteArray out = "group " + dumpText(group.name) + '\n';
    for (const VOColorScheme &scheme : group.schemes)
        out += dump(scheme);
    return out;
}

QByteArray dump(const VOColorSchemeTeam &team)
{
    QByteArray out = "team " + dumpText(team.name) + '\n';
    for (const VOColorSchemeGroup &group : team.groups)
        out += dump(group);
    return out;
}
