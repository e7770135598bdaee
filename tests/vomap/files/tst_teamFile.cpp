#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/toString.h"
#include "vomap/VOColorRamp.h"
#include "vomap/files/TeamFile_p.h"
#include "vomap/files/xxHash64_p.h"

#include <QObject>
#include <QtTest>

using namespace VTObjects;

class tst_teamFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyFieldComesBackBitForBit();
    void theBytesAreTheDocumentedOnes();
    void equalTeamsGiveEqualBytes();
    void everySingleBitIsNoticed();
    void everyCutIsNoticed();
    void whatStandsInTheWrongPlaceIsNoticed();
    void impossibleContentIsRefused_data();
    void impossibleContentIsRefused();
    void aDamagedSchemeCostsItselfOnly();
    void schemesOfALostGroupStayTogether();
    void unknownFieldsRecordsAndKindsAreKept();
    void aSchemeThatIsGivenARampLosesTheUnknownOne();
    void aNewerSchemaIsReadAndKnownAsSuch();
};

namespace {

VOColorSchemeTeam sampleTeam()
{
    SchemeSamples samples(31);
    VOColorSchemeTeam team;
    team.name = L"Custom";
    for (int i = 0; i < 3; ++i) {
        VOColorSchemeGroup group;
        group.name = L"group" + std::to_wstring(i);
        for (int j = 0; j < 4; ++j) {
            group.schemes.push_back(samples.scheme(VOColorRamp::ColorRampType(j)));
            group.schemes.back().name = L"scheme" + std::to_wstring(j);
        }
        team.groups.push_back(group);
    }
    return team;
}

std::string encoded(const VOColorSchemeTeam &team, const TeamExtras &extras = TeamExtras())
{
    ByteBuffer bytes;
    if (!encodeTeam(team, extras, bytes))
        qFatal("the team cannot be written");
    return std::string(bytes.view());
}

TeamFileState decoded(const std::string &bytes, TeamContent &content)
{
    bool complete = false;
    return decodeTeam(bytes, content, complete);
}

bool isWhole(const std::string &bytes)
{
    TeamContent content;
    return decoded(bytes, content) == TeamFileState::Whole;
}

void put(std::string &bytes, std::size_t at, quint64 value, int size)
{
    for (int i = 0; i < size; ++i)
        bytes[at + std::size_t(i)] = char(value >> (8 * i));
}

quint32 sizeAt(const std::string &bytes, std::size_t record)
{
    return qFromLittleEndian<quint32>(bytes.data() + record + 4);
}

// Where the records begin.
std::vector<std::size_t> records(const std::string &bytes)
{
    std::vector<std::size_t> starts;
    for (std::size_t at = teamHeaderSize; at < bytes.size();
         at += recordHeadSize + sizeAt(bytes, at))
        starts.push_back(at);
    return starts;
}

// Makes every checksum fit again, so that only the change counts that was made.
void seal(std::string &bytes)
{
    quint64 seals = 0;
    quint32 count = 0;
    for (const std::size_t at : records(bytes)) {
        const quint32 tag = qFromLittleEndian<quint32>(bytes.data() + at);
        if (tag == endTag)
            put(bytes, at + recordHeadSize, seals, 8);
        const std::string_view payload =
            std::string_view(bytes).substr(at + recordHeadSize, sizeAt(bytes, at));
        put(bytes, at + checksumAt, recordChecksum(tag, payload), 8);
        seals = sealed(seals, std::string_view(bytes).substr(at, recordHeadSize));
        ++count;
    }
    put(bytes, 12, count, 4);
    put(bytes, 16, bytes.size(), 8);
    put(bytes, 24, xxHash64(std::string_view(bytes).substr(0, 24)), 8);
}

std::string record(quint32 tag, quint32 group, const std::string &payload)
{
    std::string bytes(recordHeadSize, '\0');
    put(bytes, 0, tag, 4);
    put(bytes, 4, payload.size(), 4);
    put(bytes, 8, group, 4);
    put(bytes, checksumAt, recordChecksum(tag, payload), 8);
    return bytes + payload;
}

std::string number(quint32 value)
{
    std::string bytes(4, '\0');
    put(bytes, 0, value, 4);
    return bytes;
}

// Puts bytes at the end of the payload of a record.
void extend(std::string &bytes, std::size_t at, const std::string &more)
{
    const quint32 size = sizeAt(bytes, at);
    bytes.insert(at + recordHeadSize + size, more);
    put(bytes, at + 4, size + more.size(), 4);
}

} // namespace

void tst_teamFile::everyFieldComesBackBitForBit()
{
    SchemeSamples samples(41);
    VOColorSchemeTeam team;
    team.name = samples.text();
    for (int i = 0; i < 10; ++i) {
        VOColorSchemeGroup group;
        group.name = samples.text();
        for (int j = 0; j < 50; ++j)
            group.schemes.push_back(samples.scheme());
        group.schemes.emplace_back(); // without a ramp
        team.groups.push_back(group);
    }
    TeamExtras extras;
    extras.builtIns = {{L"DEM", L"Sea", 7}, {samples.text(), samples.text(), ~quint64(0)}};
    TeamContent content;
    QCOMPARE(int(decoded(encoded(team, extras), content)), int(TeamFileState::Whole));
    QCOMPARE(dump(content.team), dump(team));
    QCOMPARE(content.extras.builtIns.size(), std::size_t(2));
    QCOMPARE(content.extras.builtIns[1].group, extras.builtIns[1].group);
    QCOMPARE(content.extras.builtIns[1].scheme, extras.builtIns[1].scheme);
    QCOMPARE(content.extras.builtIns[1].checksum, extras.builtIns[1].checksum);
}

void tst_teamFile::theBytesAreTheDocumentedOnes()
{
    VOColorSchemeTeam team;
    team.name = L"T";
    VOColorSchemeGroup group;
    group.name = L"\u4e2d";
    VOColorScheme scheme;
    scheme.name = L"S";
    group.schemes.push_back(scheme);
    team.groups.push_back(group);
    const std::string bytes = encoded(team);

    std::string expected(teamMagic);
    expected += std::string("\1\0\0\0\4\0\0\0", 8) + std::string(16, '\0');
    expected += record(teamTag, noGroup, std::string("\1\0\0\0\1T", 6));
    expected += record(groupTag, 0, std::string("\1\0\0\0\2\x2d\x4e", 7));
    expected +=
        record(schemeTag, 0, std::string("\1\0\0\0\1S\0\0\0\0\1\0\0\0\0\1\0\0\0\0\0\0\0\0", 24));
    expected += record(endTag, noGroup, std::string(8, '\0'));
    seal(expected);
    QCOMPARE(QByteArray::fromStdString(bytes).toHex(), QByteArray::fromStdString(expected).toHex());
}

void tst_teamFile::equalTeamsGiveEqualBytes()
{
    const VOColorSchemeTeam team = sampleTeam();
    QCOMPARE(encoded(team), encoded(team));
    TeamContent content;
    decoded(encoded(team), content);
    QCOMPARE(encoded(content.team, content.extras), encoded(team));
}

void tst_teamFile::everySingleBitIsNoticed()
{
    std::string bytes = encoded(sampleTeam());
    QVERIFY(isWhole(bytes));
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        for (int bit = 0; bit < 8; ++bit) {
            bytes[at] = char(bytes[at] ^ (1 << bit));
            QVERIFY2(!isWhole(bytes), qPrintable(QString::number(at)));
            TeamContent content;
            salvageTeam(bytes, content);
            bytes[at] = char(bytes[at] ^ (1 << bit));
        }
    }
}

void tst_teamFile::everyCutIsNoticed()
{
    const std::string bytes = encoded(sampleTeam());
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        QVERIFY2(!isWhole(bytes.substr(0, length)), qPrintable(QString::number(length)));
        TeamContent content;
        salvageTeam(std::string_view(bytes).substr(0, length), content);
    }
    QVERIFY(!isWhole(bytes + '\0'));
    QVERIFY(!isWhole(bytes + bytes));
}

void tst_teamFile::whatStandsInTheWrongPlaceIsNoticed()
{
    const std::string bytes = encoded(sampleTeam());
    const std::vector<std::size_t> starts = records(bytes);
    // Two neighbouring schemes change places; every checksum of a record still fits.
    std::string swapped = bytes.substr(0, starts[2]) +
                          bytes.substr(starts[3], starts[4] - starts[3]) +
                          bytes.substr(starts[2], starts[3] - starts[2]) + bytes.substr(starts[4]);
    QCOMPARE(swapped.size(), bytes.size());
    QVERIFY(!isWhole(swapped));
    std::string doubled = bytes;
    doubled.insert(starts[2], bytes.substr(starts[2], starts[3] - starts[2]));
    QVERIFY(!isWhole(doubled));
    std::string missing = bytes;
    missing.erase(starts[2], starts[3] - starts[2]);
    QVERIFY(!isWhole(missing));
}

void tst_teamFile::impossibleContentIsRefused_data()
{
    QTest::addColumn<quint32>("tag");
    QTest::addColumn<quint32>("group");
    QTest::addColumn<QByteArray>("payload");
    const auto bytes = [](const char *text, int size) { return QByteArray(text, size); };
    const QByteArray names = bytes("\0\0\0\0\1\0\0\0\0\1\0\0\0\0\1", 15);
    const auto row = [&](const char *name, const QByteArray &payload) {
        QTest::newRow(name) << quint32(schemeTag) << quint32(2) << payload;
    };
    const QByteArray black = QByteArray(12, '\0');
    row("nothing", QByteArray());
    row("no kind", names);
    row("no ramp with bytes", names + bytes("\0\0\0\0\1\0\0\0x", 9));
    row("random without a seed", names + bytes("\1\0\0\0\0\0\0\0", 8));
    row("more bytes than the ramp has", names + bytes("\1\0\0\0\x09\0\0\0\0\0\0\0\0\0\0\0x", 17));
    row("more colors than bytes", names + bytes("\1\0\0\0\x08\0\0\0\0\0\0\0\1\0\0\0", 16));
    row("colors without end", names + bytes("\1\0\0\0\x08\0\0\0\0\0\0\0\xff\xff\xff\xff", 16));
    row("component that is no number",
        names + bytes("\1\0\0\0\x14\0\0\0\0\0\0\0\1\0\0\0\0\0\xc0\x7f", 20) + black.left(8));
    row("component above 255",
        names + bytes("\1\0\0\0\x14\0\0\0\0\0\0\0\1\0\0\0\1\0\x7f\x43", 20) + black.left(8));
    row("component below 0",
        names + bytes("\1\0\0\0\x14\0\0\0\0\0\0\0\1\0\0\0\0\0\x80\xbf", 20) + black.left(8));
    row("flag that is none",
        names + bytes("\2\0\0\0\x21\0\0\0\0\0\0\0\2", 13) + QByteArray(24 + 4, '\0'));
    row("string of width 3", bytes("\1\0\0\0\3abc", 8));
    row("string past the end", bytes("\xff\xff\xff\xff\4", 5));
    row("reserved field", names + QByteArray(8, '\0') + QByteArray(8, '\0'));
    row("field past the end", names + QByteArray(8, '\0') + bytes("x\0\0\0\2\0\0\0y", 9));
    row("half a field", names + QByteArray(8, '\0') + bytes("x\0\0", 3));
    QTest::newRow("scheme of another group")
        << quint32(schemeTag) << quint32(1) << names + QByteArray(8, '\0');
    QTest::newRow("group out of its order")
        << quint32(groupTag) << quint32(7) << bytes("\0\0\0\0\1", 5);
    QTest::newRow("second team") << quint32(teamTag) << quint32(noGroup) << bytes("\0\0\0\0\1", 5);
    QTest::newRow("built-in list past the end")
        << quint32(builtInTag) << quint32(noGroup) << bytes("\xff\xff\xff\xff", 4);
}

void tst_teamFile::impossibleContentIsRefused()
{
    QFETCH(quint32, tag);
    QFETCH(quint32, group);
    QFETCH(QByteArray, payload);
    std::string bytes = encoded(sampleTeam());
    const std::size_t end = records(bytes).back();
    std::string good = bytes;
    good.insert(end,
                record(schemeTag, 2,
                       std::string("\0\0\0\0\1\0\0\0\0\1\0\0\0\0\1", 15) + std::string(8, '\0')));
    seal(good);
    QVERIFY(isWhole(good)); // so that it is the content that counts
    bytes.insert(end, record(tag, group, payload.toStdString()));
    seal(bytes);
    QVERIFY(!isWhole(bytes));
}

void tst_teamFile::aDamagedSchemeCostsItselfOnly()
{
    const VOColorSchemeTeam team = sampleTeam();
    const std::string bytes = encoded(team);
    const std::vector<std::size_t> starts = records(bytes);
    // Records: the team, then three times a group and four schemes.
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 4; ++j) {
            const std::size_t start = starts[1 + i * 5 + 1 + j];
            const std::size_t next = starts[1 + i * 5 + 2 + j];
            for (const std::size_t at : {start, start + 5, start + 8, start + 15, next - 1}) {
                std::string damaged = bytes;
                damaged[at] = char(damaged[at] ^ 0x10);
                TeamContent content;
                salvageTeam(damaged, content);
                VOColorSchemeTeam expected = team;
                auto &schemes = expected.groups[i].schemes;
                // The number of the group is under the seal of the end only, and may be wrong.
                if (at != start + 8) {
                    schemes.erase(schemes.begin() + std::ptrdiff_t(j));
                    QCOMPARE(dump(content.team), dump(expected));
                }
            }
        }
    }
}

void tst_teamFile::schemesOfALostGroupStayTogether()
{
    VOColorSchemeTeam team = sampleTeam();
    std::string bytes = encoded(team);
    bytes[records(bytes)[6] + recordHeadSize + 6] = '!'; // in the name of the second group
    TeamContent content;
    salvageTeam(bytes, content);
    team.groups[1].name = L"Restored group 1";
    QCOMPARE(dump(content.team), dump(team));
}

void tst_teamFile::unknownFieldsRecordsAndKindsAreKept()
{
    std::string bytes = encoded(sampleTeam());
    const std::vector<std::size_t> starts = records(bytes);
    const std::string field = number(0x12345) + number(3) + "abc";
    // From the back, so that the positions stay right.
    bytes.insert(starts.back(), record(recordTag("NEWS"), noGroup, "later"));
    const std::string unknownKind =
        std::string("\0\0\0\0\1\0\0\0\0\1\0\0\0\0\1", 15) + number(77) + number(5) + "waves";
    bytes.insert(starts.back(), record(schemeTag, 2, unknownKind + field));
    extend(bytes, starts[2], field);
    extend(bytes, starts[1], field);
    extend(bytes, starts[0], field);
    seal(bytes);

    TeamContent content;
    QCOMPARE(int(decoded(bytes, content)), int(TeamFileState::Whole));
    const VOColorScheme &unknown = content.team.groups[2].schemes.back();
    QVERIFY(!unknown.colorRamp);
    QCOMPARE(encoded(content.team, content.extras), bytes);

    // They go with their schemes, wherever these go and whatever they are called.
    VOColorScheme renamed = unknown;
    renamed.name = L"renamed";
    content.team.groups[0].schemes.push_back(renamed);
    content.team.groups[2].schemes.pop_back();
    TeamContent again;
    QCOMPARE(int(decoded(encoded(content.team, content.extras), again)), int(TeamFileState::Whole));
    QCOMPARE(*again.team.groups[0].schemes.back().unknownFields, *renamed.unknownFields);
    QCOMPARE(*again.team.groups[0].schemes[0].unknownFields, field);
    QCOMPARE(*again.team.groups[0].unknownFields, field);
    QCOMPARE(again.extras.teamFields, field);
    QCOMPARE(again.extras.otherRecords, content.extras.otherRecords);
    QVERIFY(!again.extras.otherRecords.empty());
}

void tst_teamFile::aSchemeThatIsGivenARampLosesTheUnknownOne()
{
    std::string bytes = encoded(sampleTeam());
    const std::string field = number(0x12345) + number(3) + "abc";
    const std::string unknownKind =
        std::string("\0\0\0\0\1\0\0\0\0\1\0\0\0\0\1", 15) + number(77) + number(5) + "waves";
    bytes.insert(records(bytes).back(), record(schemeTag, 2, unknownKind + field));
    seal(bytes);
    TeamContent content;
    QCOMPARE(int(decoded(bytes, content)), int(TeamFileState::Whole));
    VOColorScheme &scheme = content.team.groups[2].schemes.back();
    scheme.colorRamp = makeScheme("x").colorRamp->clone();
    TeamContent again;
    QCOMPARE(int(decoded(encoded(content.team, content.extras), again)), int(TeamFileState::Whole));
    QCOMPARE(dump(again.team), dump(content.team));
    QCOMPARE(*again.team.groups[2].schemes.back().unknownFields, field);
}

void tst_teamFile::aNewerSchemaIsReadAndKnownAsSuch()
{
    const VOColorSchemeTeam team = sampleTeam();
    std::string bytes = encoded(team);
    put(bytes, 8, teamSchema + 1, 4);
    seal(bytes);
    TeamContent content;
    bool complete = false;
    QCOMPARE(int(decodeTeam(bytes, content, complete)), int(TeamFileState::Newer));
    QVERIFY(complete);
    QCOMPARE(dump(content.team), dump(team));
    // What is not understood is left out.
    bytes.insert(records(bytes).back(), record(schemeTag, 2, "another layout"));
    seal(bytes);
    QCOMPARE(int(decodeTeam(bytes, content, complete)), int(TeamFileState::Newer));
    QVERIFY(!complete);
    QCOMPARE(dump(content.team), dump(team));
    put(bytes, 8, 0, 4);
    seal(bytes);
    QVERIFY(!isWhole(bytes));
}

VT_TEST_APPLESS_MAIN(tst_teamFile)
#include "tst_teamFile.moc"
