#include "vobase/utf8_p.h"
#include "vomap/files/ByteReader_p.h"
#include "vomap/files/RampParts_p.h"
#include "vomap/files/TeamFile_p.h"
#include "vomap/files/xxHash64_p.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace VTObjects {

namespace {

template <typename Unit>
void widen(std::string_view raw, std::wstring &text)
{
    if (sizeof(Unit) <= sizeof(wchar_t)) {
        text.resize(raw.size() / sizeof(Unit));
        const char *from = raw.data();
        for (wchar_t &character : text) {
            character = static_cast<wchar_t>(qFromLittleEndian<Unit>(from));
            from += sizeof(Unit);
        }
        return;
    }
    text.clear();
    for (std::size_t at = 0; at < raw.size(); at += sizeof(Unit))
        appendWide(text, qFromLittleEndian<Unit>(raw.data() + at));
}

// With its length and width; empty where it is not whole.
std::string_view takeRawString(ByteReader &reader)
{
    ByteReader ahead = reader;
    const std::size_t length = ahead.number<quint32>();
    const std::size_t width = ahead.number<quint8>();
    const std::string_view raw = reader.run(length * width + 5);
    if (width != 1 && width != 2 && width != 4)
        reader.fail();
    return raw;
}

void takeString(ByteReader &reader, std::wstring &text)
{
    const std::size_t length = reader.number<quint32>();
    const std::size_t width = reader.number<quint8>();
    const std::string_view raw = reader.run(length * width);
    if (width == 1)
        widen<quint8>(raw, text);
    else if (width == 2)
        widen<quint16>(raw, text);
    else if (width == 4)
        widen<quint32>(raw, text);
    else
        reader.fail();
}

// Empty or whole fields up to the end, none of them with the reserved tag.
bool takeFields(ByteReader &reader, std::string_view rest, std::string_view &fields)
{
    fields = rest.substr(rest.size() - reader.left());
    while (reader.isGood() && !reader.atEnd()) {
        if (reader.number<quint32>() == unknownRampTag)
            return false;
        reader.run(reader.number<quint32>());
    }
    return reader.isGood();
}

void takeColors(ByteReader &reader, QVector<rgb_color<float>> &colors)
{
    constexpr std::size_t colorSize = 3 * sizeof(float);
    const std::size_t count = reader.number<quint32>();
    const std::string_view raw = reader.run(count * colorSize);
    colors = QVector<rgb_color<float>>(static_cast<int>(raw.size() / colorSize));
    if (raw.empty())
        return;
    float *const components = &colors.data()->red;
    qFromLittleEndian<float>(raw.data(), static_cast<qsizetype>(count) * 3, components);
    if (!areComponents(components, count * 3))
        reader.fail();
}

// Reads schemes one after the other; what they have in common costs its memory only once.
class SchemeDecoder
{
public:
    bool decode(std::string_view payload, VOColorScheme &scheme);

private:
    const VOString &shared(std::string_view raw);

    bool decodeRamp(std::uint32_t kind, std::string_view raw, VOColorScheme &scheme);

    RampParts parts;
    std::wstring text;
    // Strings that were read before, each at the place that its bytes give it.
    std::array<std::pair<std::string_view, VOString>, 64> known;
};

// A string of the file; the same author a thousand times is one string in memory.
const VOString &SchemeDecoder::shared(std::string_view raw)
{
    const auto place = static_cast<std::size_t>(xxHash64(raw)) % known.size();
    if (known[place].first != raw || known[place].first.empty()) {
        ByteReader reader(raw);
        takeString(reader, text);
        known[place] = {raw, VOString(text)};
    }
    return known[place].second;
}

bool SchemeDecoder::decodeRamp(std::uint32_t kind, std::string_view raw, VOColorScheme &scheme)
{
    ByteReader reader(raw);
    parts.kind = static_cast<VOColorRamp::ColorRampType>(kind - 1);
    if (hasSeed(parts.kind))
        parts.seed = reader.number<qint32>();
    if (parts.kind == VOColorRamp::RandomHsvRamp) {
        const quint8 changed = reader.number<quint8>();
        parts.paramsChanged = changed == 1;
        if (changed > 1)
            return false;
        for (int &bound : parts.bounds)
            bound = reader.number<qint32>();
    }
    if (hasSources(parts.kind))
        takeColors(reader, parts.sources);
    takeColors(reader, parts.colors);
    if (!reader.isGood() || !reader.atEnd())
        return false;
    scheme.colorRamp = putTogether(parts).release();
    return true;
}

bool SchemeDecoder::decode(std::string_view payload, VOColorScheme &scheme)
{
    ByteReader reader(payload);
    takeString(reader, text);
    scheme.name = text;
    scheme.author = shared(takeRawString(reader));
    scheme.describe = shared(takeRawString(reader));

    const std::uint32_t kind = reader.number<quint32>();
    const std::string_view ramp = reader.run(reader.number<quint32>());
    std::string_view fields;
    if (!reader.isGood() || !takeFields(reader, payload, fields))
        return false;
    if (kind > lastKnownKind) {
        ByteBuffer kept;
        kept.appendNumber<quint32>(unknownRampTag);
        kept.appendNumber(static_cast<quint32>(ramp.size() + sizeof(quint32)));
        kept.appendNumber<quint32>(kind);
        kept.append(ramp);
        kept.append(fields);
        scheme.unknownFields = std::make_shared<const std::string>(kept.view());
        return true;
    }
    if (!fields.empty())
        scheme.unknownFields = std::make_shared<const std::string>(fields);
    return kind == noRamp ? ramp.empty() : decodeRamp(kind, ramp, scheme);
}

bool decodeBuiltIns(std::string_view payload, std::vector<BuiltInScheme> &builtIns)
{
    ByteReader reader(payload);
    builtIns.clear();
    for (std::size_t left = reader.number<quint32>(); left > 0 && reader.isGood(); --left) {
        BuiltInScheme scheme;
        takeString(reader, scheme.group);
        takeString(reader, scheme.scheme);
        scheme.checksum = reader.number<quint64>();
        builtIns.push_back(std::move(scheme));
    }
    return reader.isGood() && reader.atEnd();
}

struct Record
{
    std::uint32_t tag = 0;
    std::uint32_t group = noGroup;
    std::string_view payload;
    std::string_view whole; // with its head
};

// False at the end and for a record that is not whole.
bool takeRecord(std::string_view &rest, Record &record)
{
    ByteReader reader(rest);
    record.tag = reader.number<quint32>();
    const quint32 size = reader.number<quint32>();
    record.group = reader.number<quint32>();
    const quint64 checksum = reader.number<quint64>();
    record.payload = reader.run(size);
    if (!reader.isGood() || recordChecksum(record.tag, record.payload) != checksum)
        return false;
    record.whole = rest.substr(0, recordHeadSize + record.payload.size());
    rest.remove_prefix(record.whole.size());
    return true;
}

// Puts records together. What makes no sense is refused and left out.
class TeamBuilder
{
public:
    explicit TeamBuilder(TeamContent &target)
        : content(target)
    {
        content = TeamContent();
    }

    bool add(const Record &record);
    /// The record's group is the one that the last group record began.
    bool isInPlace(const Record &record) const;
    bool hasBuiltIns() const { return builtInsSeen; }

private:
    bool decodeNamed(const Record &record, VOString &name, std::string_view &fields);
    bool addGroup(const Record &record);
    bool addScheme(const Record &record);
    VOColorSchemeGroup &groupOf(std::uint32_t number);

    TeamContent &content;
    std::map<std::uint32_t, std::size_t> positions; // of the groups, by their numbers in the file
    SchemeDecoder decoder;
    std::wstring text;
    bool builtInsSeen = false;
};

bool TeamBuilder::isInPlace(const Record &record) const
{
    const std::size_t groups = content.team.groups.size();
    if (record.tag == groupTag)
        return record.group == groups;
    return record.tag == schemeTag ? record.group + std::size_t(1) == groups
                                   : record.group == noGroup;
}

bool TeamBuilder::decodeNamed(const Record &record, VOString &name, std::string_view &fields)
{
    ByteReader reader(record.payload);
    takeString(reader, text);
    name = text;
    return reader.isGood() && takeFields(reader, record.payload, fields);
}

// Where the record of the group was lost, its schemes still belong together.
VOColorSchemeGroup &TeamBuilder::groupOf(std::uint32_t number)
{
    std::vector<VOColorSchemeGroup> &groups = content.team.groups;
    const auto [found, isNew] = positions.emplace(number, groups.size());
    if (isNew) {
        groups.emplace_back();
        groups.back().name = L"Restored group " + std::to_wstring(number);
    }
    return groups[found->second];
}

bool TeamBuilder::addGroup(const Record &record)
{
    VOString name;
    std::string_view fields;
    if (!decodeNamed(record, name, fields))
        return false;
    VOColorSchemeGroup &group = groupOf(record.group);
    group.name = name;
    if (!fields.empty())
        group.unknownFields = std::make_shared<const std::string>(fields);
    return true;
}

bool TeamBuilder::addScheme(const Record &record)
{
    std::vector<VOColorScheme> &schemes = groupOf(record.group).schemes;
    schemes.emplace_back();
    if (decoder.decode(record.payload, schemes.back()))
        return true;
    schemes.pop_back();
    return false;
}

bool TeamBuilder::add(const Record &record)
{
    switch (record.tag) {
    case teamTag: {
        std::string_view fields;
        if (!decodeNamed(record, content.team.name, fields))
            return false;
        content.extras.teamFields = fields;
        return true;
    }
    case groupTag:
        return addGroup(record);
    case schemeTag:
        return addScheme(record);
    case builtInTag:
        builtInsSeen = decodeBuiltIns(record.payload, content.extras.builtIns);
        return builtInsSeen;
    case endTag:
        return true;
    default:
        content.extras.otherRecords += record.whole;
        return true;
    }
}

bool hasTeamHeader(std::string_view bytes)
{
    return bytes.size() >= teamHeaderSize && bytes.substr(0, teamMagic.size()) == teamMagic &&
           qFromLittleEndian<quint64>(bytes.data() + 24) == xxHash64(bytes.substr(0, 24));
}

} // namespace

TeamFileState decodeTeam(std::string_view bytes, TeamContent &content, bool &complete)
{
    if (!hasTeamHeader(bytes))
        return TeamFileState::Damaged;
    const quint32 schema = qFromLittleEndian<quint32>(bytes.data() + 8);
    const quint32 records = qFromLittleEndian<quint32>(bytes.data() + 12);
    const bool newer = schema > teamSchema;
    TeamBuilder builder(content);
    Record record;
    std::string_view rest = bytes.substr(teamHeaderSize);
    std::uint64_t seal = 0;
    quint32 count = 0;
    complete = qFromLittleEndian<quint64>(bytes.data() + 16) == bytes.size();
    while (record.tag != endTag && takeRecord(rest, record)) {
        // The team's own record comes first, and only once.
        const bool inPlace = builder.isInPlace(record) && (record.tag == teamTag) == (count == 0);
        complete = inPlace && builder.add(record) && complete;
        ++count;
        if (record.tag != endTag)
            seal = sealed(seal, record.whole.substr(0, recordHeadSize));
    }
    complete = complete && record.tag == endTag && rest.empty() && count == records &&
               record.payload.size() == sizeof(quint64) &&
               qFromLittleEndian<quint64>(record.payload.data()) == seal;
    if (newer)
        return TeamFileState::Newer;
    return complete && schema == teamSchema ? TeamFileState::Whole : TeamFileState::Damaged;
}

bool salvageTeam(std::string_view bytes, TeamContent &content)
{
    TeamBuilder builder(content);
    Record record;
    // Each wrong guess at a record costs a look at all that it claims to hold.
    constexpr std::size_t patience = 16;
    std::size_t budget = bytes.size() * patience;
    for (std::string_view rest = bytes; rest.size() >= recordHeadSize && budget > 0;) {
        const quint32 tag = qFromLittleEndian<quint32>(rest.data());
        const bool known =
            tag == teamTag || tag == groupTag || tag == schemeTag || tag == builtInTag;
        const quint32 size = qFromLittleEndian<quint32>(rest.data() + 4);
        if (known && size <= rest.size() - recordHeadSize) {
            budget -= std::min<std::size_t>(budget, size);
            if (takeRecord(rest, record)) {
                builder.add(record);
                continue;
            }
        }
        rest.remove_prefix(1);
    }
    return builder.hasBuiltIns();
}

} // namespace VTObjects
