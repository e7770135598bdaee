#include "vobase/utf8_p.h"
#include "vomap/files/ByteReader_p.h"
#include "vomap/files/RampParts_p.h"
#include "vomap/files/TeamFile_p.h"
#include "vomap/files/xxHash64_p.h"

#include <algorithm>
#include <limits>

namespace VTObjects {

namespace {

constexpr std::uint64_t maxSize = std::numeric_limits<std::uint32_t>::max();

// Writes records one after the other and seals their heads.
class TeamEncoder
{
public:
    explicit TeamEncoder(ByteBuffer &target)
        : bytes(target)
    {
    }

    bool appendNamed(std::uint32_t tag, std::uint32_t group, const VOString &name,
                     std::string_view fields);
    bool appendScheme(const VOColorScheme &scheme, std::uint32_t group);
    bool appendBuiltIns(const std::vector<BuiltInScheme> &builtIns);
    // Whole records, as they were read.
    void appendRecords(std::string_view records);
    bool appendEnd();
    std::uint32_t count() const { return records; }

private:
    std::size_t beginRecord();
    bool endRecord(std::size_t start, std::uint32_t tag, std::uint32_t group);
    bool appendRamp(const VOColorScheme &scheme, std::string_view unknownRamp);
    bool appendColors(const QVector<rgb_color<float>> &colors);

    ByteBuffer &bytes;
    RampParts parts;
    std::uint64_t seal = 0;
    std::uint32_t records = 0;
};

template <typename Unit>
void appendUnits(ByteBuffer &bytes, std::wstring_view text)
{
    bytes.appendNumber(static_cast<quint8>(sizeof(Unit)));
    char *to = bytes.extend(text.size() * sizeof(Unit));
    for (const wchar_t character : text) {
        qToLittleEndian<Unit>(static_cast<Unit>(codeUnitOf(character)), to);
        to += sizeof(Unit);
    }
}

// Where wchar_t has 16 bits, a pair becomes the one character that it is elsewhere.
std::u32string joinedPairs(std::wstring_view text)
{
    std::u32string joined;
    for (std::size_t at = 0; at < text.size();)
        joined += takeCodePoint(text, at);
    return joined;
}

void appendString(ByteBuffer &bytes, std::wstring_view text)
{
    char32_t all = 0;
    for (const wchar_t character : text)
        all |= codeUnitOf(character);
    if (sizeof(wchar_t) == 2 && all >= 0xD800) {
        const std::u32string joined = joinedPairs(text);
        if (joined.size() != text.size()) {
            bytes.appendNumber(static_cast<quint32>(joined.size()));
            bytes.appendNumber(static_cast<quint8>(4));
            for (const char32_t character : joined)
                bytes.appendNumber(static_cast<quint32>(character));
            return;
        }
    }
    bytes.appendNumber(static_cast<quint32>(text.size()));
    if (all < 0x100)
        appendUnits<quint8>(bytes, text);
    else if (all < 0x10000)
        appendUnits<quint16>(bytes, text);
    else
        appendUnits<quint32>(bytes, text);
}

// A record is begun with an empty head, which is filled in when the size is known.
std::size_t TeamEncoder::beginRecord()
{
    const std::size_t start = bytes.size();
    bytes.extend(recordHeadSize);
    return start;
}

bool TeamEncoder::endRecord(std::size_t start, std::uint32_t tag, std::uint32_t group)
{
    const std::string_view payload = bytes.view().substr(start + recordHeadSize);
    if (payload.size() > maxSize)
        return false;
    const std::uint64_t checksum = recordChecksum(tag, payload);
    bytes.setNumber<quint32>(start, tag);
    bytes.setNumber(start + 4, static_cast<quint32>(payload.size()));
    bytes.setNumber<quint32>(start + 8, group);
    bytes.setNumber<quint64>(start + checksumAt, checksum);
    seal = sealed(seal, bytes.view().substr(start, recordHeadSize));
    ++records;
    return true;
}

bool TeamEncoder::appendColors(const QVector<rgb_color<float>> &colors)
{
    // As the ramps have them: three floats and nothing between them.
    static_assert(sizeof(rgb_color<float>) == 3 * sizeof(float), "a color has a hole");
    bytes.appendNumber(static_cast<quint32>(colors.size()));
    if (colors.isEmpty())
        return true;
    const auto count = static_cast<std::size_t>(colors.size()) * 3;
    if (!areComponents(&colors.constData()->red, count))
        return false;
    qToLittleEndian<float>(colors.constData(), static_cast<qsizetype>(count),
                           bytes.extend(count * sizeof(float)));
    return true;
}

// The kind, the size of what follows, and what follows.
bool TeamEncoder::appendRamp(const VOColorScheme &scheme, std::string_view unknownRamp)
{
    if (!scheme.colorRamp) {
        const bool none = unknownRamp.size() < sizeof(quint32);
        bytes.append(none ? std::string_view("\0\0\0\0", 4)
                          : unknownRamp.substr(0, sizeof(quint32)));
        const std::string_view raw = none ? unknownRamp : unknownRamp.substr(sizeof(quint32));
        bytes.appendNumber(static_cast<quint32>(raw.size()));
        bytes.append(raw);
        return true;
    }
    if (!takeApart(*scheme.colorRamp, parts))
        return false;
    bytes.appendNumber(static_cast<quint32>(parts.kind + 1));
    const std::size_t sizeAt = bytes.size();
    bytes.appendNumber(quint32(0));
    if (hasSeed(parts.kind))
        bytes.appendNumber(static_cast<qint32>(parts.seed));
    if (parts.kind == VOColorRamp::RandomHsvRamp) {
        bytes.appendNumber(static_cast<quint8>(parts.paramsChanged ? 1 : 0));
        for (const int bound : parts.bounds)
            bytes.appendNumber(static_cast<qint32>(bound));
    }
    if (hasSources(parts.kind) && !appendColors(parts.sources))
        return false;
    if (!appendColors(parts.colors))
        return false;
    bytes.setNumber(sizeAt, static_cast<quint32>(bytes.size() - sizeAt - sizeof(quint32)));
    return bytes.size() - sizeAt <= maxSize;
}

// The fields without the unknown ramp, which has its own place in a file.
std::string_view splitFields(const VOColorScheme &scheme, std::string_view &unknownRamp)
{
    if (!scheme.unknownFields)
        return std::string_view();
    const std::string_view fields = *scheme.unknownFields;
    ByteReader reader(fields);
    if (reader.left() < 8 || reader.number<quint32>() != unknownRampTag)
        return fields;
    unknownRamp = reader.run(reader.number<quint32>());
    return fields.substr(8 + unknownRamp.size());
}

bool TeamEncoder::appendScheme(const VOColorScheme &scheme, std::uint32_t group)
{
    const std::size_t start = beginRecord();
    appendString(bytes, scheme.name.text());
    appendString(bytes, scheme.author.text());
    appendString(bytes, scheme.describe.text());
    std::string_view unknownRamp;
    const std::string_view fields = splitFields(scheme, unknownRamp);
    if (!appendRamp(scheme, unknownRamp))
        return false;
    bytes.append(fields);
    return endRecord(start, schemeTag, group);
}

bool TeamEncoder::appendBuiltIns(const std::vector<BuiltInScheme> &builtIns)
{
    const std::size_t start = beginRecord();
    bytes.appendNumber(static_cast<quint32>(builtIns.size()));
    for (const BuiltInScheme &scheme : builtIns) {
        appendString(bytes, scheme.group);
        appendString(bytes, scheme.scheme);
        bytes.appendNumber<quint64>(scheme.checksum);
    }
    return endRecord(start, builtInTag, noGroup);
}

bool TeamEncoder::appendNamed(std::uint32_t tag, std::uint32_t group, const VOString &name,
                              std::string_view fields)
{
    const std::size_t start = beginRecord();
    appendString(bytes, name.text());
    bytes.append(fields);
    return endRecord(start, tag, group);
}

void TeamEncoder::appendRecords(std::string_view whole)
{
    bytes.append(whole);
    for (; !whole.empty(); ++records) {
        seal = sealed(seal, whole.substr(0, recordHeadSize));
        whole.remove_prefix(recordHeadSize + qFromLittleEndian<quint32>(whole.data() + 4));
    }
}

bool TeamEncoder::appendEnd()
{
    const std::size_t start = beginRecord();
    bytes.appendNumber<quint64>(seal);
    return endRecord(start, endTag, noGroup);
}

bool appendTeam(TeamEncoder &encoder, const VOColorSchemeTeam &team, const TeamExtras &extras)
{
    if (!encoder.appendNamed(teamTag, noGroup, team.name, extras.teamFields))
        return false;
    std::uint32_t number = 0;
    for (const VOColorSchemeGroup &group : team.groups) {
        if (!encoder.appendNamed(groupTag, number, group.name,
                                 group.unknownFields ? *group.unknownFields : std::string()))
            return false;
        for (const VOColorScheme &scheme : group.schemes) {
            if (!encoder.appendScheme(scheme, number))
                return false;
        }
        ++number;
    }
    if (!extras.builtIns.empty() && !encoder.appendBuiltIns(extras.builtIns))
        return false;
    encoder.appendRecords(extras.otherRecords);
    return encoder.appendEnd();
}

} // namespace

std::uint64_t sealed(std::uint64_t seal, std::string_view head)
{
    return xxHash64(head, seal);
}

std::uint64_t recordChecksum(std::uint32_t tag, std::string_view payload)
{
    return xxHash64(payload, tag | static_cast<std::uint64_t>(payload.size()) << 32);
}

bool appendScheme(ByteBuffer &bytes, const VOColorScheme &scheme)
{
    return TeamEncoder(bytes).appendScheme(scheme, noGroup);
}

std::uint64_t schemeChecksum(const VOColorScheme &scheme)
{
    ByteBuffer bytes;
    if (!appendScheme(bytes, scheme))
        return 0;
    return qFromLittleEndian<quint64>(bytes.data() + checksumAt);
}

bool encodeTeam(const VOColorSchemeTeam &team, const TeamExtras &extras, ByteBuffer &bytes)
{
    bytes.clear();
    std::size_t schemes = 0;
    for (const VOColorSchemeGroup &group : team.groups)
        schemes += group.schemes.size();
    constexpr std::size_t usualSize = 256; // of a scheme, so that there is little to move later
    constexpr std::size_t most = std::size_t(256) * 1024 * 1024;
    bytes.reserve(std::min(schemes * usualSize, most));
    bytes.append(teamMagic);
    bytes.extend(teamHeaderSize - teamMagic.size());
    TeamEncoder encoder(bytes);
    if (!appendTeam(encoder, team, extras))
        return false;
    bytes.setNumber<quint32>(8, teamSchema);
    bytes.setNumber<quint32>(12, encoder.count());
    bytes.setNumber<quint64>(16, bytes.size());
    bytes.setNumber<quint64>(24, xxHash64(bytes.view().substr(0, 24)));
    return true;
}

} // namespace VTObjects
