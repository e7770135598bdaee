#include "vomap/ByteReader_p.h"
#include "vomap/RampParts_p.h"
#include "vomap/TeamFile_p.h"
#include "vomap/utf8_p.h"
#include "vomap/xxHash64_p.h"

#include <algorithm>
#include <limits>

namespace VTObjects {

namespace {

constexpr std::uint64_t maxSize = std::numeric_limits<std::uint32_t>::max();

// The parts of a ramp, kept from scheme to scheme so that their lists need no new room.
class SchemeEncoder
{
public:
    explicit SchemeEncoder(ByteBuffer &target)
        : bytes(target)
    {
    }

    bool append(const VOColorScheme &scheme, std::uint32_t group);

private:
    bool appendRamp(const VOColorScheme &scheme, std::string_view unknownRamp);
    bool appendColors(const std::vector<rgb_color<float>> &colors);

    ByteBuffer &bytes;
    RampParts parts;
};

template <typename Unit>
void appendUnits(ByteBuffer &bytes, std::wstring_view text)
{
    bytes.appendNumber(static_cast<quint8>(sizeof(Unit)));
    char *to = bytes.extend(text.size() * sizeof(Unit));
    for (const wchar_t character : text) {
        qToLittleEndian<Unit>(static_cast<Unit>(unitOf(character)), to);
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
        all |= unitOf(character);
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
std::size_t beginRecord(ByteBuffer &bytes)
{
    const std::size_t start = bytes.size();
    bytes.extend(recordHeadSize);
    return start;
}

bool endRecord(ByteBuffer &bytes, std::size_t start, std::uint32_t tag, std::uint32_t group)
{
    const std::string_view payload = bytes.view().substr(start + recordHeadSize);
    if (payload.size() > maxSize)
        return false;
    const std::uint64_t checksum = recordChecksum(tag, payload);
    bytes.setNumber<quint32>(start, tag);
    bytes.setNumber(start + 4, static_cast<quint32>(payload.size()));
    bytes.setNumber<quint32>(start + 8, group);
    bytes.setNumber<quint64>(start + checksumAt, checksum);
    return true;
}

bool SchemeEncoder::appendColors(const std::vector<rgb_color<float>> &colors)
{
    if (colors.size() > maxSize / (3 * sizeof(float)))
        return false;
    bytes.appendNumber(static_cast<quint32>(colors.size()));
    char *to = bytes.extend(colors.size() * 3 * sizeof(float));
    for (const rgb_color<float> &color : colors) {
        if (!isComponent(color.red) || !isComponent(color.green) || !isComponent(color.blue))
            return false;
        qToLittleEndian<float>(color.red, to);
        qToLittleEndian<float>(color.green, to + sizeof(float));
        qToLittleEndian<float>(color.blue, to + 2 * sizeof(float));
        to += 3 * sizeof(float);
    }
    return true;
}

// The kind, the size of what follows, and what follows.
bool SchemeEncoder::appendRamp(const VOColorScheme &scheme, std::string_view unknownRamp)
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

bool SchemeEncoder::append(const VOColorScheme &scheme, std::uint32_t group)
{
    const std::size_t start = beginRecord(bytes);
    appendString(bytes, scheme.name.text());
    appendString(bytes, scheme.author.text());
    appendString(bytes, scheme.describe.text());
    std::string_view unknownRamp;
    const std::string_view fields = splitFields(scheme, unknownRamp);
    if (!appendRamp(scheme, unknownRamp))
        return false;
    bytes.append(fields);
    return endRecord(bytes, start, schemeTag, group);
}

bool appendShipped(ByteBuffer &bytes, const std::vector<ShippedScheme> &shipped)
{
    const std::size_t start = beginRecord(bytes);
    bytes.appendNumber(static_cast<quint32>(shipped.size()));
    for (const ShippedScheme &scheme : shipped) {
        appendString(bytes, scheme.group);
        appendString(bytes, scheme.scheme);
        bytes.appendNumber<quint64>(scheme.checksum);
    }
    return endRecord(bytes, start, shippedTag, noGroup);
}

bool appendNamed(ByteBuffer &bytes, std::uint32_t tag, std::uint32_t group, const VOString &name,
                 std::string_view fields)
{
    const std::size_t start = beginRecord(bytes);
    appendString(bytes, name.text());
    bytes.append(fields);
    return endRecord(bytes, start, tag, group);
}

bool appendRecords(const VOColorSchemeTeam &team, const TeamExtras &extras, ByteBuffer &bytes)
{
    SchemeEncoder encoder(bytes);
    if (!appendNamed(bytes, teamTag, noGroup, team.name, extras.teamFields))
        return false;
    std::uint32_t number = 0;
    for (const VOColorSchemeGroup &group : team.groups) {
        if (!appendNamed(bytes, groupTag, number, group.name,
                         group.unknownFields ? *group.unknownFields : std::string()))
            return false;
        for (const VOColorScheme &scheme : group.schemes) {
            if (!encoder.append(scheme, number))
                return false;
        }
        ++number;
    }
    if (!extras.shipped.empty() && !appendShipped(bytes, extras.shipped))
        return false;
    bytes.append(extras.otherRecords);
    return true;
}

// The last record seals the heads of the others, so that none can be missing or out of its place.
bool appendEnd(ByteBuffer &bytes, std::uint32_t &records)
{
    std::string heads;
    std::string_view rest = bytes.view().substr(teamHeaderSize);
    for (records = 1; !rest.empty(); ++records) {
        heads += rest.substr(0, recordHeadSize);
        rest.remove_prefix(recordHeadSize + qFromLittleEndian<quint32>(rest.data() + 4));
    }
    const std::size_t start = beginRecord(bytes);
    bytes.appendNumber<quint64>(xxHash64(heads));
    return endRecord(bytes, start, endTag, noGroup);
}

} // namespace

std::uint64_t recordChecksum(std::uint32_t tag, std::string_view payload)
{
    return xxHash64(payload, tag | static_cast<std::uint64_t>(payload.size()) << 32);
}

bool appendScheme(ByteBuffer &bytes, const VOColorScheme &scheme)
{
    return SchemeEncoder(bytes).append(scheme, noGroup);
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
    bytes.append(teamMagic);
    bytes.extend(teamHeaderSize - teamMagic.size());
    std::uint32_t records = 0;
    if (!appendRecords(team, extras, bytes) || !appendEnd(bytes, records))
        return false;
    bytes.setNumber<quint32>(8, teamSchema);
    bytes.setNumber<quint32>(12, records);
    bytes.setNumber<quint64>(16, bytes.size());
    bytes.setNumber<quint64>(24, xxHash64(bytes.view().substr(0, 24)));
    return true;
}

} // namespace VTObjects
