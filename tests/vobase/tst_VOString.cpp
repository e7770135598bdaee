#include "tests/support/TestMain.h"
#include "tests/support/toString.h"
#include "vobase/VOString.h"

#include <QObject>
#include <QtTest>

#include <cstring>
#include <memory>
#include <string>
#include <type_traits>

using namespace VTObjects;

Q_DECLARE_METATYPE(std::wstring)

class tst_VOString : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void isEmptyByDefault();
    void nullPointersAreTheEmptyString();
    void everyWideStringComesBackAsItWas_data();
    void everyWideStringComesBackAsItWas();
    void narrowTextIsReadAsUtf8_data();
    void narrowTextIsReadAsUtf8();
    void copiesAreIndependent();
    void assignmentTakesEveryKindOfText();
    void appendingChangesTheReceiverAndReturnsIt();
    void addingMakesANewString();
    void anExportPathIsBuiltByAdding();
    void replaceChangesTheReceiverAndReturnsACopy();
    void replaceInPlaceCountsItsReplacements();
    void orderFollowsTheValuesOfTheCharacters_data();
    void orderFollowsTheValuesOfTheCharacters();
    void equalityHoldsAgainstEveryKindOfText();
    void aSubclassReplacesEveryVirtualOperation();
    void operationsComeInTheirSlotOrder();
    void selfAssignmentKeepsTheText();
};

void tst_VOString::isEmptyByDefault()
{
    const VOString text;
    QVERIFY(static_cast<const std::wstring>(text).empty());
    QCOMPARE(text, "");
    QCOMPARE(text, L"");
}

void tst_VOString::nullPointersAreTheEmptyString()
{
    const char *narrow = nullptr;
    const wchar_t *wide = nullptr;
    QCOMPARE(VOString(narrow), "");
    QCOMPARE(VOString(wide), "");
    VOString text(L"some");
    text += wide;
    QCOMPARE(text, L"some");
    QVERIFY(text != narrow);
    QVERIFY(text != wide);
    text = wide;
    QCOMPARE(text, "");
    QCOMPARE(text, wide);
    QCOMPARE(text, narrow);
}

void tst_VOString::everyWideStringComesBackAsItWas_data()
{
    QTest::addColumn<std::wstring>("text");
    QTest::newRow("empty") << std::wstring();
    QTest::newRow("ASCII") << std::wstring(L"Custom group1");
    QTest::newRow("accents") << std::wstring(L"\u00e9\u0130\u4e2d");
    QTest::newRow("NUL inside") << std::wstring(L"a\0b", 3);
    QTest::newRow("lone high surrogate") << std::wstring(1, wchar_t(0xD83D));
    QTest::newRow("surrogates in wrong order") << std::wstring{wchar_t(0xDE00), wchar_t(0xD83D)};
    QTest::newRow("leading byte order mark") << std::wstring{wchar_t(0xFEFF), L'x'};
    QTest::newRow("past the last code point") << std::wstring(1, wchar_t(0x7FFFFFFF));
}

void tst_VOString::everyWideStringComesBackAsItWas()
{
    QFETCH(std::wstring, text);
    const VOString made(text);
    QCOMPARE(static_cast<const std::wstring>(made), text);
    QCOMPARE(made.text(), text);
    QCOMPARE(VOString(made), made);
}

void tst_VOString::narrowTextIsReadAsUtf8_data()
{
    QTest::addColumn<QByteArray>("narrow");
    QTest::addColumn<std::wstring>("wide");
    QTest::newRow("ASCII") << QByteArray("DEM") << std::wstring(L"DEM");
    QTest::newRow("two bytes") << QByteArray("\xC3\xA9") << std::wstring(L"\u00e9");
    QTest::newRow("three bytes") << QByteArray("\xE4\xB8\xAD") << std::wstring(L"\u4e2d");
    QTest::newRow("four bytes") << QByteArray("\xF0\x9F\x98\x80") << std::wstring(L"\U0001F600");
    QTest::newRow("lone lead") << QByteArray("\xC3(") << std::wstring(L"\u00c3(");
    QTest::newRow("lone trail") << QByteArray("\x80") << std::wstring(L"\u0080");
    QTest::newRow("overlong") << QByteArray("\xC0\xAF") << std::wstring(L"\u00c0\u00af");
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80") << std::wstring(L"\u00ed\u00a0\u0080");
    QTest::newRow("cut off") << QByteArray("\xE4\xB8") << std::wstring(L"\u00e4\u00b8");
}

void tst_VOString::narrowTextIsReadAsUtf8()
{
    QFETCH(QByteArray, narrow);
    QFETCH(std::wstring, wide);
    QCOMPARE(VOString(narrow.constData()), VOString(wide));
    QCOMPARE(VOString(wide), narrow.constData());
    QCOMPARE(VOString(L"") + narrow.constData(), wide.c_str());
}

void tst_VOString::copiesAreIndependent()
{
    VOString first(L"one");
    VOString second(first);
    second += L" more";
    QCOMPARE(first, L"one");
    VOString third = second;
    third.Replace(L'o', L'0');
    QCOMPARE(second, L"one more");
    QCOMPARE(third, L"0ne m0re");
    const VOString moved(std::move(third));
    QCOMPARE(moved, L"0ne m0re");
}

void tst_VOString::assignmentTakesEveryKindOfText()
{
    VOString text;
    QCOMPARE(&(text = L"wide"), &text);
    QCOMPARE(text, "wide");
    QCOMPARE(&(text = std::wstring(L"string")), &text);
    QCOMPARE(text, "string");
    QCOMPARE(&(text = VOString("other")), &text);
    QCOMPARE(text, "other");
}

void tst_VOString::appendingChangesTheReceiverAndReturnsIt()
{
    VOString name(L"Imported");
    const VOString &result = name += L"_1";
    QCOMPARE(&result, &name);
    QCOMPARE(name, L"Imported_1");
}

void tst_VOString::addingMakesANewString()
{
    const VOString left(L"a");
    const VOString right(L"b");
    QCOMPARE(left + right, L"ab");
    QCOMPARE(left + "c", L"ac");
    QCOMPARE(left, L"a");
}

void tst_VOString::anExportPathIsBuiltByAdding()
{
    const VOString directory(L"D:/maps");
    const VOString name(L"Red");
    QCOMPARE(directory + "/" + name + ".vcs", L"D:/maps/Red.vcs");
}

void tst_VOString::replaceChangesTheReceiverAndReturnsACopy()
{
    VOString path(L"C:\\maps\\red.vcs");
    const VOString result = path.replace(L'\\', L'/');
    QCOMPARE(path, L"C:/maps/red.vcs");
    QCOMPARE(result, path);
    path += L"x";
    QCOMPARE(result, L"C:/maps/red.vcs");
}

void tst_VOString::replaceInPlaceCountsItsReplacements()
{
    VOString path(L"\\a\\b");
    QCOMPARE(path.Replace(L'\\', L'/'), 2);
    QCOMPARE(path, L"/a/b");
    QCOMPARE(path.Replace(L'\\', L'/'), 0);
    QCOMPARE(path.Replace(L'/', L'/'), 2);
    QCOMPARE(path, L"/a/b");
}

void tst_VOString::orderFollowsTheValuesOfTheCharacters_data()
{
    QTest::addColumn<std::wstring>("left");
    QTest::addColumn<std::wstring>("right");
    QTest::addColumn<int>("sign");
    QTest::newRow("equal") << std::wstring(L"a") << std::wstring(L"a") << 0;
    QTest::newRow("before") << std::wstring(L"a") << std::wstring(L"b") << -1;
    QTest::newRow("behind") << std::wstring(L"b") << std::wstring(L"a") << 1;
    QTest::newRow("beginning") << std::wstring(L"a") << std::wstring(L"ab") << -1;
    QTest::newRow("empty first") << std::wstring() << std::wstring(L"a") << -1;
    QTest::newRow("both empty") << std::wstring() << std::wstring() << 0;
    QTest::newRow("letter case counts") << std::wstring(L"A") << std::wstring(L"a") << -1;
    QTest::newRow("no locale") << std::wstring(L"z") << std::wstring(L"\u00e4") << -1;
}

void tst_VOString::orderFollowsTheValuesOfTheCharacters()
{
    QFETCH(std::wstring, left);
    QFETCH(std::wstring, right);
    QFETCH(int, sign);
    const int order = VOString(left).compareTo(VOString(right));
    QCOMPARE((order > 0) - (order < 0), sign);
    QCOMPARE(VOString(left) < VOString(right), sign < 0);
    QCOMPARE(VOString(left) == VOString(right), sign == 0);
    QCOMPARE(VOString(left) != VOString(right), sign != 0);
}

void tst_VOString::equalityHoldsAgainstEveryKindOfText()
{
    const VOString text(L"Random");
    QCOMPARE(text, "Random");
    QCOMPARE(text, L"Random");
    QCOMPARE(text, VOString("Random"));
    QVERIFY(!(text != "Random"));
    QVERIFY(!(text != L"Random"));
    QVERIFY(!(text != VOString("Random")));
    QVERIFY(text != "random");
    QVERIFY(text != L"Random ");
    QVERIFY(text != VOString());
    QVERIFY(VOString(std::wstring(L"a\0b", 3)) != L"a");
    QVERIFY(VOString(std::wstring(L"a\0b", 3)) != "a");
}

namespace {

// Answers every virtual operation with a number or an answer of its own.
class Marked : public VOString
{
public:
    explicit Marked(bool &flag)
        : destroyed(flag)
    {
    }
    ~Marked() override { destroyed = true; }
    int compareTo(const VOString &) const override { return 42; }
    bool operator==(const char *) const override { return true; }
    bool operator==(const wchar_t *) const override { return true; }
    bool operator==(const VOString &) const override { return true; }
    bool operator!=(const VOString &) const override { return true; }
    bool operator!=(const char *) const override { return true; }
    bool operator!=(const wchar_t *) const override { return true; }

private:
    bool &destroyed;
};

} // namespace

void tst_VOString::aSubclassReplacesEveryVirtualOperation()
{
    bool destroyed = false;
    std::unique_ptr<VOString> text = std::make_unique<Marked>(destroyed);
    QCOMPARE(text->compareTo(VOString()), 42);
    QCOMPARE(*text, "x");
    QCOMPARE(*text, L"x");
    QCOMPARE(*text, VOString(L"x"));
    QVERIFY(*text != VOString());
    QVERIFY(*text != "");
    QVERIFY(*text != L"");
    text.reset();
    QVERIFY(destroyed);
}

void tst_VOString::operationsComeInTheirSlotOrder()
{
#if defined(__GXX_ABI_VERSION) && defined(__x86_64__)
    // A pointer to a virtual member is its offset in the table plus one; the destructor has the
    // first two places.
    const auto slotOf = [](auto member) {
        std::ptrdiff_t parts[2] = {};
        static_assert(sizeof(member) == sizeof(parts), "not the pointer layout of this ABI");
        std::memcpy(parts, &member, sizeof(parts));
        return (parts[0] - 1) / std::ptrdiff_t(sizeof(void *)) - 1;
    };
    using Narrow = bool (VOString::*)(const char *) const;
    using Wide = bool (VOString::*)(const wchar_t *) const;
    using Same = bool (VOString::*)(const VOString &) const;
    QCOMPARE(slotOf(&VOString::compareTo), std::ptrdiff_t(1));
    QCOMPARE(slotOf(static_cast<Narrow>(&VOString::operator==)), std::ptrdiff_t(2));
    QCOMPARE(slotOf(static_cast<Wide>(&VOString::operator==)), std::ptrdiff_t(3));
    QCOMPARE(slotOf(static_cast<Same>(&VOString::operator==)), std::ptrdiff_t(4));
    QCOMPARE(slotOf(static_cast<Same>(&VOString::operator!=)), std::ptrdiff_t(5));
    QCOMPARE(slotOf(static_cast<Narrow>(&VOString::operator!=)), std::ptrdiff_t(6));
    QCOMPARE(slotOf(static_cast<Wide>(&VOString::operator!=)), std::ptrdiff_t(7));
#endif
    QVERIFY(std::has_virtual_destructor<VOString>::value);
}

void tst_VOString::selfAssignmentKeepsTheText()
{
    VOString text(L"kept");
    VOString &same = text;
    text = same;
    QCOMPARE(text, L"kept");
    text = text.text();
    QCOMPARE(text, L"kept");
}

VT_TEST_APPLESS_MAIN(tst_VOString)
#include "tst_VOString.moc"
