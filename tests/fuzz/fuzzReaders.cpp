#include "tests/fuzz/fuzzReaders.h"

#include "vomap/VOColorRamp.h"
#include "vomap/VOColorScheme.h"
#include "vomap/files/TeamFile_p.h"
#include "vomap/files/schemeText_p.h"
#include "vomap/files/xxHash64_p.h"

#include <QtEndian>

#include <cstdlib>
#include <string>

using namespace VTObjects;

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

// Makes the checksums right as far as the input has the shape of records, so that what lies behind
// them is reached.
std::string mended(std::string_view input)
{
    std::string bytes(input);
    if (bytes.size() < teamHeaderSize)
        return bytes;
    quint64 seals = 0;
    quint32 count = 0;
    for (std::size_t at = teamHeaderSize; bytes.size() - at >= recordHeadSize;) {
        const quint32 tag = qFromLittleEndian<quint32>(bytes.data() + at);
        const std::size_t room = bytes.size() - at - recordHeadSize;
        const std::size_t size =
            std::min<std::size_t>(room, qFromLittleEndian<quint32>(bytes.data() + at + 4));
        qToLittleEndian(quint32(size), &bytes[at + 4]);
        if (tag == endTag && size == sizeof(quint64))
            qToLittleEndian(seals, &bytes[at + recordHeadSize]);
        const std::string_view payload = std::string_view(bytes).substr(at + recordHeadSize, size);
        qToLittleEndian(quint64(recordChecksum(tag, payload)), &bytes[at + checksumAt]);
        seals = sealed(seals, std::string_view(bytes).substr(at, recordHeadSize));
        ++count;
        at += recordHeadSize + size;
    }
    bytes.replace(0, teamMagic.size(), teamMagic);
    qToLittleEndian(count, &bytes[12]);
    qToLittleEndian(quint64(bytes.size()), &bytes[16]);
    qToLittleEndian(quint64(xxHash64(std::string_view(bytes).substr(0, 24))), &bytes[24]);
    return bytes;
}

void readTeam(std::string_view bytes)
{
    TeamContent content;
    bool complete = false;
    const TeamFileState state = decodeTeam(bytes, content, complete);
    if (state == TeamFileState::Whole) {
        ByteBuffer again;
        require(encodeTeam(content.team, content.extras, again));
        TeamContent back;
        require(decodeTeam(again.view(), back, complete) == TeamFileState::Whole);
        ByteBuffer third;
        require(encodeTeam(back.team, back.extras, third) && third.view() == again.view());
    }
    TeamContent salvaged;
    salvageTeam(bytes, salvaged);
}

} // namespace

void fuzzSchemeText(std::string_view input)
{
    VOColorScheme scheme;
    scheme.name = L"before";
    if (!readSchemeText(input, scheme)) {
        require(scheme.name == L"before" && !scheme.colorRamp);
        return;
    }
    std::string text;
    if (!writeSchemeText(scheme, text))
        return; // numbers of many digits can make it too long
    VOColorScheme back;
    std::string again;
    require(readSchemeText(text, back) && writeSchemeText(back, again) && text == again);
    for (unsigned int i = 0; i < back.colorRamp->getLevel(); ++i)
        require(back.colorRamp->getColor(i) == scheme.colorRamp->getColor(i));
}

void fuzzTeamFile(std::string_view input)
{
    readTeam(input);
    readTeam(mended(input));
}
