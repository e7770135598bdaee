#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/toString.h"
#include "vomap/VOColorSchemeId.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QObject>
#include <QSet>
#include <QSettings>
#include <QtTest>

#include <memory>

using namespace VTObjects;

class tst_VOColorSchemeId : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void anIdWithoutATeamIsNull_data();
    void anIdWithoutATeamIsNull();
    void theTextIsReadable_data();
    void theTextIsReadable();
    void everyNameComesBackFromItsText();
    void theTextSurvivesASettingsFile();
    void aTextWrittenByHandIsUnderstood_data();
    void aTextWrittenByHandIsUnderstood();
    void aTextThatIsNoneGivesNull_data();
    void aTextThatIsNoneGivesNull();
    void idsAreKeysOfSets();
    void theStoreFindsTheFirstSchemeOfTheName();
    void theStoreFindsNothingForAnIdOfNothing();

private:
    VOColorSchemeManager &manager() { return *VOColorSchemeManager::instance(); }

    std::unique_ptr<TestStore> store;
};

void tst_VOColorSchemeId::init()
{
    store = std::make_unique<TestStore>();
}

void tst_VOColorSchemeId::cleanup()
{
    store.reset();
}

void tst_VOColorSchemeId::anIdWithoutATeamIsNull_data()
{
    QTest::addColumn<QString>("team");
    QTest::addColumn<bool>("isNull");
    QTest::newRow("none") << QString() << true;
    QTest::newRow("default") << QStringLiteral("Default") << false;
    QTest::newRow("custom") << QStringLiteral("Custom") << false;
    QTest::newRow("favorite") << QStringLiteral("Favorite") << false;
    QTest::newRow("in small letters") << QStringLiteral("default") << true;
    QTest::newRow("another") << QStringLiteral("Mine") << true;
}

void tst_VOColorSchemeId::anIdWithoutATeamIsNull()
{
    QFETCH(QString, team);
    QFETCH(bool, isNull);
    QVERIFY(VOColorSchemeId().isNull());
    const VOColorSchemeId id{toVOString(team), L"group", L"scheme"};
    QCOMPARE(id.isNull(), isNull);
    QCOMPARE(id.toText().isEmpty(), isNull);
}

void tst_VOColorSchemeId::theTextIsReadable_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("scheme");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << "DEM"
                           << "Alps-2.0_b~"
                           << "Default/DEM/Alps-2.0_b~";
    QTest::newRow("blanks") << "DEM"
                            << " a b "
                            << "Default/DEM/%20a%20b%20";
    QTest::newRow("separators") << "a/b"
                                << "%2F"
                                << "Default/a%2Fb/%252F";
    QTest::newRow("umlaut") << "DEM" << QString::fromUtf8("Höhe") << "Default/DEM/H%C3%B6he";
    QTest::newRow("beyond 16 bits")
        << "DEM" << QString::fromUtf8("\xF0\x9F\x8C\x88") << "Default/DEM/%F0%9F%8C%88";
    QTest::newRow("empty names") << ""
                                 << ""
                                 << "Default//";
    QTest::newRow("line break") << "DEM"
                                << "a\nb"
                                << "Default/DEM/a%0Ab";
}

void tst_VOColorSchemeId::theTextIsReadable()
{
    QFETCH(QString, group);
    QFETCH(QString, scheme);
    QFETCH(QString, text);
    const VOColorSchemeId id{L"Default", toVOString(group), toVOString(scheme)};
    QCOMPARE(id.toText(), text);
    QVERIFY(VOColorSchemeId::fromText(text) == id);
}

void tst_VOColorSchemeId::everyNameComesBackFromItsText()
{
    SchemeSamples samples(12);
    std::vector<std::wstring> names;
    for (int i = 0; i < 2000; ++i)
        names.push_back(samples.text());
    names.insert(names.end(), {std::wstring(1, L'\0'), L"%{D800}", L"%", L"%%", L"{}", L"\xD800",
                               L"\xDC00\xD800", std::wstring({wchar_t(0xD83C), wchar_t(0xDF08)}),
                               std::wstring(1, wchar_t(0x7FFFFFFF)), L"/", L"//", L"\xFEFF"});
    if (sizeof(wchar_t) == 4)
        names.insert(names.end(), {std::wstring(1, wchar_t(0x110000)),
                                   std::wstring(1, static_cast<wchar_t>(0xFFFFFFFF))});
    for (std::size_t i = 0; i < names.size(); ++i) {
        const VOColorSchemeId id{L"Favorite", names[i], names[(i * 7 + 1) % names.size()]};
        const QString text = id.toText();
        QVERIFY2(VOColorSchemeId::fromText(text) == id, qPrintable(text));
        for (const QChar character : text)
            QVERIFY2(character > QChar(' ') && character < QChar(127), qPrintable(text));
        QCOMPARE(text.count(QLatin1Char('/')), 2);
    }
}

void tst_VOColorSchemeId::theTextSurvivesASettingsFile()
{
    const VOColorSchemeId id{L"Custom", L"[a]; b=\"c\", d", L"\\x41\r\n\t@Variant()"};
    const QString file = store->path("host.ini");
    {
        QSettings settings(file, QSettings::IniFormat);
        settings.setValue("scheme", id.toText());
    }
    const QSettings settings(file, QSettings::IniFormat);
    QVERIFY(VOColorSchemeId::fromText(settings.value("scheme").toString()) == id);
}

void tst_VOColorSchemeId::aTextWrittenByHandIsUnderstood_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("scheme");
    QTest::newRow("blanks") << "Default/DEM/Green to brown"
                            << "Green to brown";
    QTest::newRow("umlaut") << QString::fromUtf8("Default/DEM/Höhe") << QString::fromUtf8("Höhe");
    QTest::newRow("mixed") << QString::fromUtf8("Default/DEM/ö%C3%B6\xF0\x9F\x8C\x88%20")
                           << QString::fromUtf8("öö\xF0\x9F\x8C\x88 ");
    QTest::newRow("small digits") << "Default/DEM/a%2fb"
                                  << "a/b";
    QTest::newRow("more encoded than need be") << "%44efault/DEM/%61"
                                               << "a";
}

void tst_VOColorSchemeId::aTextWrittenByHandIsUnderstood()
{
    QFETCH(QString, text);
    QFETCH(QString, scheme);
    const VOColorSchemeId expected{L"Default", L"DEM", toVOString(scheme)};
    QVERIFY(VOColorSchemeId::fromText(text) == expected);
}

void tst_VOColorSchemeId::aTextThatIsNoneGivesNull_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"",
                             "/",
                             "//",
                             "DEM",
                             "Default",
                             "Default/DEM",
                             "Default/DEM/a/b",
                             "default/DEM/a",
                             "Mine/DEM/a",
                             " Default/DEM/a",
                             "Default/DEM/%",
                             "Default/DEM/%4",
                             "Default/DEM/%4g",
                             "Default/DEM/%-1",
                             "Default/DEM/% 1",
                             "Default/DEM/%C3",
                             "Default/DEM/%C3b",
                             "Default/DEM/%ED%A0%80",
                             "Default/DEM/%{}",
                             "Default/DEM/%{D800",
                             "Default/DEM/%{G}",
                             "Default/DEM/%{123456789}",
                             "Default/%FF/a",
                             "#ff0000",
                             "Default\\DEM\\a"})
        QTest::newRow(text[0] ? text : "nothing") << QString::fromLatin1(text);
}

void tst_VOColorSchemeId::aTextThatIsNoneGivesNull()
{
    QFETCH(QString, text);
    const VOColorSchemeId id = VOColorSchemeId::fromText(text);
    QVERIFY(id.isNull());
    QVERIFY(id == VOColorSchemeId());
}

void tst_VOColorSchemeId::idsAreKeysOfSets()
{
    QSet<VOColorSchemeId> ids;
    for (const wchar_t *team : {L"Default", L"Custom"}) {
        for (const wchar_t *group : {L"a", L"b", L"ab"}) {
            for (const wchar_t *scheme : {L"a", L"b", L""})
                ids.insert({team, group, scheme});
        }
    }
    QCOMPARE(ids.size(), 18);
    QVERIFY(ids.contains({L"Custom", L"ab", L""}));
    QVERIFY(!ids.contains({L"Custom", L"a", L"ab"}));
    QVERIFY((VOColorSchemeId{L"Custom", L"a", L"b"} != VOColorSchemeId{L"Custom", L"ab", L""}));
}

void tst_VOColorSchemeId::theStoreFindsTheFirstSchemeOfTheName()
{
    VOColorSchemeTeam &team = manager().customTeam;
    team.groups = {makeGroup("one", {"a"}), makeGroup("two", {"a", "b", "b"})};
    QCOMPARE(manager().find({L"Custom", L"two", L"a"}), &team.groups[1].schemes[0]);
    QCOMPARE(manager().find({L"Custom", L"two", L"b"}), &team.groups[1].schemes[1]);
    // Names as they are in the store, whatever name the team was given.
    team.name = L"Mine";
    QCOMPARE(manager().find({L"Custom", L"one", L"a"}), &team.groups[0].schemes[0]);
    const VOColorSchemeGroup &dem =
        manager().defaultTeam.groups[std::size_t(manager().defaultTeam.index("DEM"))];
    QCOMPARE(manager().find({L"Default", L"DEM", dem.schemes[3].name}), &dem.schemes[3]);
    const auto &records = static_cast<const VOColorSchemeManager &>(manager());
    QVERIFY(records.find({L"Custom", L"one", L"a"}));
}

void tst_VOColorSchemeId::theStoreFindsNothingForAnIdOfNothing()
{
    manager().customTeam.groups = {makeGroup("one", {"a"})};
    QVERIFY(!manager().find(VOColorSchemeId()));
    QVERIFY(!manager().find({L"custom", L"one", L"a"}));
    QVERIFY(!manager().find({L"Custom", L"One", L"a"}));
    QVERIFY(!manager().find({L"Custom", L"one", L"A"}));
    QVERIFY(!manager().find({L"Custom", L"two", L"a"}));
    QVERIFY(!manager().find({L"Favorite", L"one", L"a"}));
    QVERIFY(!manager().find({L"Mine", L"one", L"a"}));
}

VT_TEST_GUILESS_MAIN(tst_VOColorSchemeId)
#include "tst_VOColorSchemeId.moc"
