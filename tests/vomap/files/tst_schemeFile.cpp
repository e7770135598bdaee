#include "tests/support/SchemeFileTest.h"
#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "tests/support/toString.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOPredefineColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"

#include <QtTest>

#include <cmath>
#include <limits>

using namespace VTObjects;

Q_DECLARE_METATYPE(std::wstring)

namespace {

// Says that it is of another kind than it is.
class ForeignRamp : public VOEvenColorRamp
{
public:
    ColorRampType category() override { return RandomRamp; }
};

} // namespace

class tst_schemeFile : public SchemeFileTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

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
    void theTextInMemoryIsThatOfTheFile();
    void aBadTextInMemoryLeavesTheSchemeAlone();
    void whatCannotBeSavedHasNoTextInMemory();
};

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
    QCOMPARE(back.colorRamp->getColor(2), rgb_color<float>(1, 2, 3));
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

void tst_schemeFile::theTextInMemoryIsThatOfTheFile()
{
    SchemeSamples samples(11);
    for (int i = 0; i < 200; ++i) {
        const VOColorScheme scheme = samples.scheme();
        const std::string text = VOColorSchemeManager::toText(scheme);
        const bool saved = VOColorSchemeManager::saveFile(scheme, file());
        QCOMPARE(!text.empty(), saved);
        if (!saved)
            continue;
        QCOMPARE(QByteArray::fromStdString(text), content());
        VOColorScheme back;
        QString problem = QStringLiteral("of another call");
        QVERIFY(VOColorSchemeManager::fromText(back, text, problem));
        QCOMPARE(problem, QString());
        QCOMPARE(dump(back), dump(scheme));
        QCOMPARE(VOColorSchemeManager::toText(back), text);
    }
}

void tst_schemeFile::aBadTextInMemoryLeavesTheSchemeAlone()
{
    VOColorScheme scheme = SchemeSamples(9).scheme();
    const QByteArray before = dump(scheme);
    const VOColorRamp *const ramp = scheme.colorRamp;
    const std::string good = goodText;
    for (const std::string &text :
         {std::string(), std::string("no scheme"), good + "x", good.substr(0, good.size() / 2),
          good + std::string(1, '\0'), std::string(std::size_t(5) << 20, ' ')}) {
        QString problem;
        QVERIFY(!VOColorSchemeManager::fromText(scheme, text));
        QVERIFY(!VOColorSchemeManager::fromText(scheme, text, problem));
        QVERIFY(!problem.isEmpty());
        QCOMPARE(scheme.colorRamp, ramp);
        QCOMPARE(dump(scheme), before);
    }
    QVERIFY(VOColorSchemeManager::fromText(scheme, good));
    QCOMPARE(dump(scheme), dump(goodScheme()));
}

void tst_schemeFile::whatCannotBeSavedHasNoTextInMemory()
{
    QCOMPARE(VOColorSchemeManager::toText(VOColorScheme()), std::string());
    VOColorScheme foreign;
    foreign.colorRamp = new ForeignRamp;
    QCOMPARE(VOColorSchemeManager::toText(foreign), std::string());
}

VT_TEST_GUILESS_MAIN(tst_schemeFile)
#include "tst_schemeFile.moc"
