#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOPredefineColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"
#include "vomap/VOStringConversion.h"
#include "vomap/files/xxHash64_p.h"

#include <QDir>
#include <QFile>
#include <QObject>
#include <QtTest>

#include <cmath>
#include <limits>
#include <memory>

using namespace VTObjects;

Q_DECLARE_METATYPE(std::wstring)

class tst_schemeFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void theTextIsTheDocumentedOne();
    void everyKindComesBackBitForBit_data();
    void everyKindComesBackBitForBit();
    void everyTextComesBackAsItWas_data();
    void everyTextComesBackAsItWas();
    void everyComponentComesBackBitForBit_data();
    void everyComponentComesBackBitForBit();
    void randomSchemesComeBackAndAreSavedAlike();
    void editedOutputColorsSurvive_data();
    void editedOutputColorsSurvive();
    void aRampOfLevelZeroSurvives();
    void aSchemeWithoutARampIsNotSaved();
    void aRampOfAForeignClassIsNotSaved();
    void whatNoReaderWouldTakeIsNotSaved();
    void damagedTextIsRefused_data();
    void damagedTextIsRefused();
    void whatEditorsDoIsAccepted_data();
    void whatEditorsDoIsAccepted();
    void everyCutIsRefused();
    void aFailedReadLeavesItsArgumentAlone();
    void whatIsNoFileIsNotRead();
    void savingReplacesTheOldFileAndLeavesNothingBesideIt();
    void aFailedSaveLeavesTheOldFileAndNothingBesideIt_data();
    void aFailedSaveLeavesTheOldFileAndNothingBesideIt();
    void aLinkStaysALink();
    void permissionsOfTheOldFileStay();
    void aScratchFileOfAKilledSaveIsUsedAgain();
    void unusualFileNamesWork_data();
    void unusualFileNamesWork();

private:
    VOString file(const QString &name = QStringLiteral("scheme.vcs")) const;
    QByteArray content(const QString &name = QStringLiteral("scheme.vcs")) const;
    void write(const QByteArray &bytes) const;
    bool read(const QByteArray &bytes) const;
    QStringList filesThere() const;

    std::unique_ptr<TestStore> store;
};

namespace {

const char goodText[] = R"({
  "format": "vtcontrolcolorscheme.scheme",
  "schema": 1,
  "name": "Two",
  "author": "Somebody",
  "description": "From black to white",
  "ramp": {
    "kind": "even",
    "sourceColors": [
      [0, 0, 0],
      [255, 255, 255]
    ],
    "colors": [
      [0, 0, 0],
      [127.5, 0.1, 1e-45],
      [255, 255, 255]
    ]
  }
}
)";

const char hsvText[] = R"({
  "format": "vtcontrolcolorscheme.scheme",
  "schema": 1,
  "name": "\u0000\n\"\\\u007f\u0085\u2028\ufeff\ud800é",
  "author": ["\ud83d", 56832],
  "description": "",
  "ramp": {
    "kind": "randomHsv",
    "seed": -2147483648,
    "paramsChanged": true,
    "minH": 1,
    "maxH": 2147483647,
    "minS": -3,
    "maxS": 4,
    "minV": 5,
    "maxV": 6,
    "colors": []
  }
}
)";

VOColorScheme goodScheme()
{
    rgb_color<float> sources[] = {{0, 0, 0}, {255, 255, 255}};
    auto *ramp = new VOEvenColorRamp;
    ramp->setSourceColor(2, sources);
    ramp->addColor({0, 0, 0});
    ramp->addColor({127.5F, 0.1F, 1e-45F});
    ramp->addColor({255, 255, 255});
    VOColorScheme scheme;
    scheme.name = L"Two";
    scheme.author = L"Somebody";
    scheme.describe = L"From black to white";
    scheme.colorRamp = ramp;
    return scheme;
}

QByteArray replaced(const char *before, const QByteArray &after)
{
    QByteArray text = goodText;
    if (text.count(before) == 0)
        qFatal("the text has no %s", before);
    return text.replace(text.indexOf(before), int(qstrlen(before)), after);
}

} // namespace

void tst_schemeFile::init()
{
    store = std::make_unique<TestStore>();
}

void tst_schemeFile::cleanup()
{
    store.reset();
}

VOString tst_schemeFile::file(const QString &name) const
{
    return toVOString(store->path(name));
}

QByteArray tst_schemeFile::content(const QString &name) const
{
    QFile in(store->path(name));
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray("cannot be read");
}

void tst_schemeFile::write(const QByteArray &bytes) const
{
    QFile out(store->path(QStringLiteral("scheme.vcs")));
    QVERIFY(out.open(QIODevice::WriteOnly));
    QCOMPARE(out.write(bytes), qint64(bytes.size()));
}

bool tst_schemeFile::read(const QByteArray &bytes) const
{
    write(bytes);
    VOColorScheme scheme;
    return VOColorSchemeManager::readFile(scheme, file());
}

QStringList tst_schemeFile::filesThere() const
{
    return QDir(store->path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

void tst_schemeFile::theTextIsTheDocumentedOne()
{
    QVERIFY(VOColorSchemeManager::saveFile(goodScheme(), file()));
    QCOMPARE(content(), QByteArray(goodText));

    VOColorScheme scheme;
    auto *ramp = new VORandomColorRampForHsv;
    scheme.colorRamp = ramp;
    scheme.name =
        std::wstring(1, L'\0') + L"\n\"\\\x7f\u0085\u2028\ufeff" + wchar_t(0xD800) + L"\u00e9";
    scheme.author = std::wstring{wchar_t(0xD83D), wchar_t(0xDE00)};
    ramp->setSeed(std::numeric_limits<int>::min());
    ramp->paramsChanged = true;
    ramp->minH = 1;
    ramp->maxH = std::numeric_limits<int>::max();
    ramp->minS = -3;
    ramp->maxS = 4;
    ramp->minV = 5;
    ramp->maxV = 6;
    QVERIFY(VOColorSchemeManager::saveFile(scheme, file()));
    QCOMPARE(content(), QByteArray(hsvText));
}

void tst_schemeFile::everyKindComesBackBitForBit_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("random") << int(VOColorRamp::RandomRamp);
    QTest::newRow("HSV") << int(VOColorRamp::RandomHsvRamp);
    QTest::newRow("even") << int(VOColorRamp::EvenRamp);
    QTest::newRow("predefined") << int(VOColorRamp::PredefineRamp);
}

void tst_schemeFile::everyKindComesBackBitForBit()
{
    QFETCH(int, kind);
    SchemeSamples samples(7);
    for (int i = 0; i < 50; ++i) {
        const VOColorScheme scheme = samples.scheme(VOColorRamp::ColorRampType(kind));
        QVERIFY(VOColorSchemeManager::saveFile(scheme, file()));
        VOColorScheme back;
        QVERIFY(VOColorSchemeManager::readFile(back, file()));
        QCOMPARE(dump(back), dump(scheme));
        QCOMPARE(int(back.colorRamp->category()), kind);
    }
}

void tst_schemeFile::everyTextComesBackAsItWas_data()
{
    QTest::addColumn<std::wstring>("text");
    QTest::newRow("empty") << std::wstring();
    QTest::newRow("quotes") << std::wstring(L"\"'`\\/");
    QTest::newRow("line ends") << std::wstring(L"a\r\nb\nc\rd\u2028\u2029");
    QTest::newRow("NUL") << std::wstring(L"\0a\0", 3);
    QTest::newRow("leading byte order mark") << std::wstring{wchar_t(0xFEFF), L'a'};
    QTest::newRow("lone high surrogate") << std::wstring{wchar_t(0xD800)};
    QTest::newRow("lone low surrogate") << std::wstring{wchar_t(0xDFFF), L'a'};
    QTest::newRow("two surrogates") << std::wstring{L'a', wchar_t(0xD83D), wchar_t(0xDE00), L'b'};
    QTest::newRow("surrogates in wrong order") << std::wstring{wchar_t(0xDE00), wchar_t(0xD83D)};
    QTest::newRow("many surrogates")
        << std::wstring{wchar_t(0xD83D), wchar_t(0xD83D), wchar_t(0xDE00), wchar_t(0xDE00)};
    QTest::newRow("beyond 16 bits") << std::wstring(L"\U0001F600\U0010FFFF");
    QTest::newRow("no characters") << std::wstring(L"\ufffe\uffff\U0001FFFE");
    if (sizeof(wchar_t) == 4)
        QTest::newRow("past the last code point")
            << std::wstring{L'a', wchar_t(0x110000), wchar_t(-1), L'b'};
    std::wstring controls;
    for (wchar_t character = 0; character < 0x100; ++character)
        controls += character;
    QTest::newRow("all of one byte") << controls;
}

void tst_schemeFile::everyTextComesBackAsItWas()
{
    QFETCH(std::wstring, text);
    VOColorScheme scheme = goodScheme();
    scheme.name = text;
    scheme.author = text;
    scheme.describe = text;
    QVERIFY(VOColorSchemeManager::saveFile(scheme, file()));
    VOColorScheme back;
    QVERIFY(VOColorSchemeManager::readFile(back, file()));
    QCOMPARE(dump(back), dump(scheme));
}

void tst_schemeFile::everyComponentComesBackBitForBit_data()
{
    QTest::addColumn<float>("component");
    QTest::newRow("nothing") << 0.0F;
    QTest::newRow("smallest") << std::numeric_limits<float>::denorm_min();
    QTest::newRow("smallest normal") << std::numeric_limits<float>::min();
    QTest::newRow("a tenth") << 0.1F;
    QTest::newRow("a third of 255") << 255.0F / 3.0F;
    QTest::newRow("just below 1") << std::nextafter(1.0F, 0.0F);
    QTest::newRow("just below 255") << std::nextafter(255.0F, 0.0F);
    QTest::newRow("largest") << 255.0F;
}

void tst_schemeFile::everyComponentComesBackBitForBit()
{
    QFETCH(float, component);
    VOColorScheme scheme = goodScheme();
    scheme.colorRamp->addColor({component, 0, 0});
    scheme.colorRamp->addColor({0, component, 0});
    scheme.colorRamp->addColor({0, 0, component});
    QVERIFY(VOColorSchemeManager::saveFile(scheme, file()));
    VOColorScheme back;
    QVERIFY(VOColorSchemeManager::readFile(back, file()));
    QCOMPARE(dump(back), dump(scheme));
}

void tst_schemeFile::randomSchemesComeBackAndAreSavedAlike()
{
    SchemeSamples samples(11);
    for (int i = 0; i < 300; ++i) {
        const VOColorScheme scheme = samples.scheme();
        QVERIFY(VOColorSchemeManager::saveFile(scheme, file()));
        const QByteArray first = content();
        VOColorScheme back;
        QVERIFY(VOColorSchemeManager::readFile(back, file()));
        QCOMPARE(dump(back), dump(scheme));
        QVERIFY(VOColorSchemeManager::saveFile(back, file()));
        QCOMPARE(content(), first);
    }
}

void tst_schemeFile::editedOutputColorsSurvive_data()
{
    everyKindComesBackBitForBit_data();
}

void tst_schemeFile::editedOutputColorsSurvive()
{
    QFETCH(int, kind);
    VOColorScheme scheme = SchemeSamples(2).scheme(VOColorRamp::ColorRampType(kind));
    QVERIFY(scheme.colorRamp->split(5));
    scheme.colorRamp->setColor(2, {1, 2, 3});
    QVERIFY(VOColorSchemeManager::saveFile(scheme, file()));
    VOColorScheme back;
    QVERIFY(VOColorSchemeManager::readFile(back, file()));
    QCOMPARE(back.colorRamp->getLevel(), 5U);
    QVERIFY(back.colorRamp->getColor(2) == rgb_color<float>(1, 2, 3));
    QCOMPARE(dump(back), dump(scheme));
}

void tst_schemeFile::aRampOfLevelZeroSurvives()
{
    VOColorScheme scheme;
    scheme.colorRamp = new VOPredefineColorRamp;
    QVERIFY(VOColorSchemeManager::saveFile(scheme, file()));
    VOColorScheme back;
    QVERIFY(VOColorSchemeManager::readFile(back, file()));
    QCOMPARE(back.colorRamp->getLevel(), 0U);
    QCOMPARE(dump(back), dump(scheme));
}

void tst_schemeFile::aSchemeWithoutARampIsNotSaved()
{
    VOColorScheme scheme;
    scheme.name = L"bare";
    QVERIFY(!VOColorSchemeManager::saveFile(scheme, file()));
    QCOMPARE(filesThere(), QStringList());
}

namespace {

// Says that it is of another kind than it is.
class ForeignRamp : public VOEvenColorRamp
{
public:
    ColorRampType category() override { return RandomRamp; }
};

} // namespace

void tst_schemeFile::aRampOfAForeignClassIsNotSaved()
{
    VOColorScheme scheme;
    scheme.colorRamp = new ForeignRamp;
    QVERIFY(!VOColorSchemeManager::saveFile(scheme, file()));
    QCOMPARE(filesThere(), QStringList());
}

void tst_schemeFile::whatNoReaderWouldTakeIsNotSaved()
{
    VOColorScheme scheme = goodScheme();
    scheme.describe = std::wstring(5 * 1024 * 1024, L'x');
    QVERIFY(!VOColorSchemeManager::saveFile(scheme, file()));
    scheme = goodScheme();
    scheme.colorRamp->deleteAll();
    for (int i = 0; i < 100000; ++i)
        scheme.colorRamp->addColor({1, 2, 3});
    QVERIFY(VOColorSchemeManager::saveFile(scheme, file()));
    VOColorScheme back;
    QVERIFY(VOColorSchemeManager::readFile(back, file()));
    QCOMPARE(dump(back), dump(scheme));
    const QByteArray before = content();
    scheme.colorRamp->addColor({1, 2, 3});
    QVERIFY(!VOColorSchemeManager::saveFile(scheme, file()));
    QCOMPARE(content(), before);
}

void tst_schemeFile::damagedTextIsRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("only blanks") << QByteArray("  \n");
    QTest::newRow("no JSON") << QByteArray("red, green, blue");
    QTest::newRow("an array") << QByteArray("[]");
    QTest::newRow("other format") << replaced("vtcontrolcolorscheme.scheme", "other");
    QTest::newRow("format not first") << replaced("{\n", "{\n\"x\": 1,\n");
    QTest::newRow("newer schema") << replaced("\"schema\": 1", "\"schema\": 2");
    QTest::newRow("schema 0") << replaced("\"schema\": 1", "\"schema\": 0");
    QTest::newRow("schema as text") << replaced("\"schema\": 1", "\"schema\": \"1\"");
    QTest::newRow("schema with a fraction") << replaced("\"schema\": 1", "\"schema\": 1.0");
    QTest::newRow("no name") << replaced("\"name\": \"Two\",", "");
    QTest::newRow("no author") << replaced("\"author\": \"Somebody\",", "");
    QTest::newRow("no description") << replaced("\"description\": \"From black to white\",", "");
    QTest::newRow("no ramp") << QByteArray("{\"format\": \"vtcontrolcolorscheme.scheme\", "
                                           "\"schema\": 1, \"name\": \"\", \"author\": \"\", "
                                           "\"description\": \"\"}");
    QTest::newRow("null ramp") << QByteArray("{\"format\": \"vtcontrolcolorscheme.scheme\", "
                                             "\"schema\": 1, \"name\": \"\", \"author\": \"\", "
                                             "\"description\": \"\", \"ramp\": null}");
    QTest::newRow("name is a number") << replaced("\"Two\"", "2");
    QTest::newRow("name is null") << replaced("\"Two\"", "null");
    QTest::newRow("name has a part of another type") << replaced("\"Two\"", "[\"T\", true]");
    QTest::newRow("name has a part out of range") << replaced("\"Two\"", "[4294967296]");
    QTest::newRow("name has a negative part") << replaced("\"Two\"", "[-1]");
    QTest::newRow("member twice") << replaced("\"name\": \"Two\",",
                                              "\"name\": \"Two\", \"name\": \"Two\",");
    QTest::newRow("member twice, once escaped")
        << replaced("\"name\": \"Two\",", "\"name\": \"Two\", \"n\\u0061me\": \"Two\",");
    QTest::newRow("unknown member twice")
        << replaced("\"name\": \"Two\",", "\"name\": \"Two\", \"x\": 1, \"x\": 2,");
    QTest::newRow("unknown member twice inside")
        << replaced("\"name\": \"Two\",", "\"name\": \"Two\", \"x\": {\"y\": 1, \"y\": 1},");
    QTest::newRow("kind twice") << replaced("\"kind\": \"even\",",
                                            "\"kind\": \"even\", \"kind\": \"even\",");
    QTest::newRow("unknown kind") << replaced("\"even\"", "\"odd\"");
    QTest::newRow("kind as a number") << replaced("\"even\"", "2");
    QTest::newRow("no kind") << replaced("\"kind\": \"even\",", "");
    QTest::newRow("kind without its seed") << replaced("\"even\"", "\"random\"");
    QTest::newRow("kind without its bounds")
        << replaced("\"kind\": \"even\",", "\"kind\": \"randomHsv\", \"seed\": 1, "
                                           "\"paramsChanged\": true, \"minH\": 1,");
    QTest::newRow("seed with a fraction")
        << replaced("\"kind\": \"even\",", "\"kind\": \"random\", \"seed\": 1.5,");
    QTest::newRow("seed with an exponent")
        << replaced("\"kind\": \"even\",", "\"kind\": \"random\", \"seed\": 1e2,");
    QTest::newRow("seed too large")
        << replaced("\"kind\": \"even\",", "\"kind\": \"random\", \"seed\": 2147483648,");
    QTest::newRow("seed too small")
        << replaced("\"kind\": \"even\",", "\"kind\": \"random\", \"seed\": -2147483649,");
    QTest::newRow("seed of many digits")
        << replaced("\"kind\": \"even\",", "\"kind\": \"random\", \"seed\": 18446744073709551617,");
    QTest::newRow("color of two") << replaced("[0, 0, 0]", "[0, 0]");
    QTest::newRow("color of four") << replaced("[0, 0, 0]", "[0, 0, 0, 0]");
    QTest::newRow("color as text") << replaced("[0, 0, 0]", "\"black\"");
    QTest::newRow("component too large") << replaced("127.5", "255.001");
    QTest::newRow("component just too large") << replaced("127.5", "255.000000001");
    QTest::newRow("component below 0") << replaced("127.5", "-1");
    QTest::newRow("component just below 0") << replaced("127.5", "-0.0000001");
    QTest::newRow("component is negative zero") << replaced("127.5", "-0");
    QTest::newRow("component is huge") << replaced("127.5", "1e999");
    QTest::newRow("component is no number") << replaced("127.5", "NaN");
    QTest::newRow("component is infinite") << replaced("127.5", "Infinity");
    QTest::newRow("component is null") << replaced("127.5", "null");
    QTest::newRow("leading zero") << replaced("127.5", "0127.5");
    QTest::newRow("plus sign") << replaced("127.5", "+127.5");
    QTest::newRow("no digits behind the point") << replaced("127.5", "127.");
    QTest::newRow("no digits before the point") << replaced("127.5", ".5");
    QTest::newRow("decimal comma") << replaced("127.5", "127,5");
    QTest::newRow("empty exponent") << replaced("127.5", "1e");
    QTest::newRow("hexadecimal") << replaced("127.5", "0x7f");
    QTest::newRow("trailing comma") << replaced("[255, 255, 255]\n    ]\n", "[255, 255, 255],]");
    QTest::newRow("missing comma") << replaced("\"Two\",", "\"Two\"");
    QTest::newRow("single quotes") << replaced("\"Two\"", "'Two'");
    QTest::newRow("comment") << replaced("\"Two\",", "\"Two\", // the name");
    QTest::newRow("unknown escape") << replaced("Two", "T\\wo");
    QTest::newRow("short escape") << replaced("Two", "\\u12");
    QTest::newRow("escape with a wrong digit") << replaced("Two", "\\u12g4");
    QTest::newRow("line end in a string") << replaced("Two", "T\nwo");
    QTest::newRow("NUL in a string") << QByteArray(goodText).replace("Two", QByteArray("T\0o", 3));
    QTest::newRow("overlong UTF-8") << replaced("Two", "\xC0\x80");
    QTest::newRow("surrogate in UTF-8") << replaced("Two", "\xED\xA0\x80");
    QTest::newRow("past the last code point") << replaced("Two", "\xF4\x90\x80\x80");
    QTest::newRow("lone trail byte") << replaced("Two", "\x80");
    QTest::newRow("Latin-1") << replaced("Two", "\xE9t\xE9");
    QTest::newRow("bad UTF-8 in an unknown member")
        << replaced("\"Two\",", "\"Two\", \"x\": \"\xFF\",");
    QTest::newRow("text behind the end") << QByteArray(goodText) + "x";
    QTest::newRow("second object") << QByteArray(goodText) + goodText;
    QTest::newRow("NUL behind the end") << QByteArray(goodText) + '\0';
    QTest::newRow("two byte order marks") << QByteArray("\xEF\xBB\xBF\xEF\xBB\xBF") + goodText;
    QTest::newRow("UTF-16") << QByteArray("\xFF\xFE{\0", 4);
    QTest::newRow("deeper than 32") << replaced(
        "\"Two\",", "\"Two\", \"x\": " + QByteArray(32, '[') + QByteArray(32, ']') + ",");
    QTest::newRow("deep without end")
        << replaced("\"Two\",", "\"Two\", \"x\": " + QByteArray(100000, '['));
    QTest::newRow("past 4 MiB") << QByteArray(goodText) + QByteArray(4 * 1024 * 1024, ' ');
    QByteArray colors;
    for (int i = 0; i < 100001; ++i)
        colors += "[1,2,3],";
    QTest::newRow("too many colors") << replaced("[127.5, 0.1, 1e-45],", colors);
}

void tst_schemeFile::damagedTextIsRefused()
{
    QFETCH(QByteArray, text);
    QVERIFY(read(goodText)); // so that it is the difference that counts
    QVERIFY(!read(text));
}

void tst_schemeFile::whatEditorsDoIsAccepted_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("as written") << QByteArray(goodText);
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF") + goodText;
    QTest::newRow("CR LF") << QByteArray(goodText).replace("\n", "\r\n");
    QTest::newRow("tabs") << QByteArray(goodText).replace("  ", "\t");
    QTest::newRow("no blanks") << QByteArray(goodText).simplified();
    QTest::newRow("no line end at the end") << QByteArray(goodText).trimmed();
    QTest::newRow("unknown members")
        << replaced("\"Two\",", "\"Two\", \"x\": {\"y\": [1, -2.5e+3, null, true, false, \"\"]},");
    QTest::newRow("unknown member of the ramp")
        << replaced("\"kind\": \"even\",", "\"kind\": \"even\", \"gamma\": 2.2,");
    QTest::newRow("member of another kind")
        << replaced("\"kind\": \"even\",", "\"kind\": \"even\", \"seed\": 7,");
    QTest::newRow("kind not first")
        << replaced("\"kind\": \"even\",", "")
               .replace("255]\n    ]\n  }", "255]\n    ], \"kind\": \"even\"\n  }");
    QTest::newRow("author first")
        << replaced("\"name\": \"Two\",", "").replace("white\",", "white\", \"name\": \"Two\",");
    QTest::newRow("32 deep") << replaced("\"Two\",", "\"Two\", \"x\": " + QByteArray(31, '[') +
                                                         QByteArray(31, ']') + ",");
    QTest::newRow("escaped slash and letters") << replaced("Two", "\\u0054w\\u006F");
    QTest::newRow("name in parts") << replaced("\"Two\"", "[\"T\", 119, \"o\"]");
    QTest::newRow("other numbers") << replaced("127.5", "1275.0E-1");
    QTest::newRow("4 MiB") << QByteArray(goodText) +
                                  QByteArray(4 * 1024 * 1024 - int(qstrlen(goodText)), ' ');
}

void tst_schemeFile::whatEditorsDoIsAccepted()
{
    QFETCH(QByteArray, text);
    write(text);
    VOColorScheme scheme;
    QVERIFY(VOColorSchemeManager::readFile(scheme, file()));
    QCOMPARE(dump(scheme), dump(goodScheme()));
}

void tst_schemeFile::everyCutIsRefused()
{
    const QByteArray text = QByteArray(hsvText).trimmed();
    QVERIFY(read(text));
    for (int length = 0; length < text.size(); ++length)
        QVERIFY2(!read(text.left(length)), qPrintable(QString::number(length)));
}

void tst_schemeFile::aFailedReadLeavesItsArgumentAlone()
{
    VOColorScheme scheme = SchemeSamples(9).scheme();
    const QByteArray before = dump(scheme);
    const VOColorRamp *const ramp = scheme.colorRamp;
    write(QByteArray(goodText) + "x");
    QVERIFY(!VOColorSchemeManager::readFile(scheme, file()));
    QVERIFY(!VOColorSchemeManager::readFile(scheme, file("missing.vcs")));
    QCOMPARE(scheme.colorRamp, ramp);
    QCOMPARE(dump(scheme), before);
}

void tst_schemeFile::whatIsNoFileIsNotRead()
{
    VOColorScheme scheme;
    QVERIFY(!VOColorSchemeManager::readFile(scheme, VOString()));
    QVERIFY(!VOColorSchemeManager::readFile(scheme, toVOString(store->path())));
    QVERIFY(!VOColorSchemeManager::readFile(scheme, L"/dev/null"));
    // A name ends at a NUL for the system: the file of the shorter name is not meant.
    write(goodText);
    const std::wstring longer = file().text() + std::wstring(1, L'\0') + L"x";
    QVERIFY(!VOColorSchemeManager::readFile(scheme, VOString(longer)));
    QVERIFY(!VOColorSchemeManager::saveFile(goodScheme(), VOString(longer)));
}

void tst_schemeFile::savingReplacesTheOldFileAndLeavesNothingBesideIt()
{
    write("something else");
    QVERIFY(VOColorSchemeManager::saveFile(goodScheme(), file()));
    QCOMPARE(content(), QByteArray(goodText));
    QCOMPARE(filesThere(), QStringList({"scheme.vcs"}));
}

void tst_schemeFile::aFailedSaveLeavesTheOldFileAndNothingBesideIt_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("no such folder") << "missing/scheme.vcs";
    QTest::newRow("a file for a folder") << "old.vcs/scheme.vcs";
    QTest::newRow("a folder for a file") << "folder.vcs";
    QTest::newRow("name too long") << QString(300, QLatin1Char('x'));
}

void tst_schemeFile::aFailedSaveLeavesTheOldFileAndNothingBesideIt()
{
    QFETCH(QString, target);
    QVERIFY(QDir(store->path()).mkdir("folder.vcs"));
    QVERIFY(VOColorSchemeManager::saveFile(goodScheme(), file("old.vcs")));
    QVERIFY(!VOColorSchemeManager::saveFile(SchemeSamples(1).scheme(), file(target)));
    QCOMPARE(filesThere(), QStringList({"folder.vcs", "old.vcs"}));
    QCOMPARE(content("old.vcs"), QByteArray(goodText));
}

void tst_schemeFile::aLinkStaysALink()
{
    write("something else");
    QVERIFY(QFile::link(store->path("scheme.vcs"), store->path("link.vcs")));
    QVERIFY(VOColorSchemeManager::saveFile(goodScheme(), file("link.vcs")));
    QVERIFY(QFileInfo(store->path("link.vcs")).isSymLink());
    QCOMPARE(content(), QByteArray(goodText));
    QVERIFY(QFile::link(store->path("nowhere"), store->path("dangling.vcs")));
    QVERIFY(!VOColorSchemeManager::saveFile(goodScheme(), file("dangling.vcs")));
    QCOMPARE(filesThere(), QStringList({"dangling.vcs", "link.vcs", "scheme.vcs"}));
}

void tst_schemeFile::permissionsOfTheOldFileStay()
{
    write("something else");
    const auto mode = QFile::ReadOwner | QFile::WriteOwner;
    QVERIFY(QFile::setPermissions(store->path("scheme.vcs"), mode));
    QVERIFY(VOColorSchemeManager::saveFile(goodScheme(), file()));
    const auto mask = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QVERIFY(!(QFile::permissions(store->path("scheme.vcs")) & mask));
}

void tst_schemeFile::aScratchFileOfAKilledSaveIsUsedAgain()
{
    const QString scratch =
        QString::asprintf(".vcs-%016llx", static_cast<unsigned long long>(xxHash64("scheme.vcs")));
    QFile left(store->path(scratch));
    QVERIFY(left.open(QIODevice::WriteOnly));
    QCOMPARE(left.write(QByteArray(100000, 'x')), qint64(100000));
    left.close();
    QVERIFY(VOColorSchemeManager::saveFile(goodScheme(), file()));
    QCOMPARE(content(), QByteArray(goodText));
    QCOMPARE(filesThere(), QStringList({"scheme.vcs"}));
}

void tst_schemeFile::unusualFileNamesWork_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blank") << "a b.vcs";
    QTest::newRow("accents") << QString::fromUtf8("\xC3\xA9\xE4\xB8\xAD.vcs");
    QTest::newRow("beyond 16 bits") << QString::fromUtf8("\xF0\x9F\x98\x80.vcs");
    QTest::newRow("250 bytes") << QString(250, QLatin1Char('x'));
    QTest::newRow("only the extension") << ".vcs";
}

void tst_schemeFile::unusualFileNamesWork()
{
    QFETCH(QString, name);
    QVERIFY(VOColorSchemeManager::saveFile(goodScheme(), file(name)));
    VOColorScheme back;
    QVERIFY(VOColorSchemeManager::readFile(back, file(name)));
    QCOMPARE(dump(back), dump(goodScheme()));
    QCOMPARE(filesThere(), QStringList({name}));
}

VT_TEST_GUILESS_MAIN(tst_schemeFile)
#include "tst_schemeFile.moc"
