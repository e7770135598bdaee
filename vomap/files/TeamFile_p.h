#pragma once

#include "vomap/VOColorSchemeTeam.h"
#include "vomap/files/ByteBuffer_p.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace VTObjects {

/// The layout of a team file; docs/file-formats.md describes it.
constexpr std::string_view teamMagic("\x89VCT\r\n\x1a\n", 8);
constexpr std::uint32_t teamSchema = 1;
constexpr std::size_t teamHeaderSize = 32;
constexpr std::size_t recordHeadSize = 20;
constexpr std::size_t checksumAt = 12; ///< in the head of a record
constexpr std::uint32_t noGroup = 0xFFFFFFFF;

constexpr std::uint32_t recordTag(const char (&name)[5])
{
    return static_cast<std::uint32_t>(name[0]) | static_cast<std::uint32_t>(name[1]) << 8 |
           static_cast<std::uint32_t>(name[2]) << 16 | static_cast<std::uint32_t>(name[3]) << 24;
}
constexpr std::uint32_t teamTag = recordTag("TEAM");
constexpr std::uint32_t groupTag = recordTag("GRUP");
constexpr std::uint32_t schemeTag = recordTag("SCHM");
constexpr std::uint32_t builtInTag = recordTag("SHIP"); // "shipped": the built-in schemes
constexpr std::uint32_t endTag = recordTag("END ");

/// A built-in scheme that the store has been offered, with the checksum of what it was then.
struct BuiltInScheme
{
    std::wstring group;
    std::wstring scheme;
    std::uint64_t checksum = 0;
};

/// What a team file holds besides its groups.
struct TeamExtras
{
    std::string teamFields;              ///< unknown fields of the team record
    std::string otherRecords;            ///< whole records of unknown tags, one after the other
    std::vector<BuiltInScheme> builtIns; ///< default team only
};

struct TeamContent
{
    VOColorSchemeTeam team;
    TeamExtras extras;
};

enum class TeamFileState {
    Whole,
    Newer,  ///< of a newer schema: the content is what could be understood of it
    Damaged ///< the content is unset
};

/// Writes the whole file into `bytes`, in place of what they held. False for what has no place in
/// it: a ramp of a foreign class, or a record past 4 GiB.
bool encodeTeam(const VOColorSchemeTeam &team, const TeamExtras &extras, ByteBuffer &bytes);

/// Reads a team file that is whole in every respect. Of a newer schema, `complete` tells whether
/// everything in it was understood.
TeamFileState decodeTeam(std::string_view bytes, TeamContent &content, bool &complete);
/// Collects from a damaged file every record that is still whole. True if the list of built-in
/// schemes was among them.
bool salvageTeam(std::string_view bytes, TeamContent &content);

/// Appends the record of a scheme; false as encodeTeam().
bool appendScheme(ByteBuffer &bytes, const VOColorScheme &scheme);
/// The checksum that the record of this scheme has; equal for schemes that are equal field by
/// field. 0 for a scheme that no file can hold.
std::uint64_t schemeChecksum(const VOColorScheme &scheme);
/// The checksum in the head of a record: of the payload, seeded with what is before it.
std::uint64_t recordChecksum(std::uint32_t tag, std::string_view payload);

/// The seal, a running checksum over the heads of all records so far and one more; 0 before the
/// first. What it is after the last stands in the record of the end, so that none can be missing or
/// out of its place.
std::uint64_t sealed(std::uint64_t seal, std::string_view head);

/// The seal with which a whole file ends: files with the same seal hold the same records. 0 without
/// one.
inline std::uint64_t sealOf(std::string_view file)
{
    constexpr std::size_t size = sizeof(std::uint64_t);
    return file.size() < size ? 0 : qFromLittleEndian<quint64>(file.data() + file.size() - size);
}

/// The numbers that stand for the kinds of ramps in a file.
constexpr std::uint32_t noRamp = 0;
constexpr std::uint32_t lastKnownKind = 4;
/// Marks, within VOColorScheme::unknownFields only, a ramp of an unknown kind: u32 kind and the
/// bytes of the ramp.
constexpr std::uint32_t unknownRampTag = 0;

} // namespace VTObjects
