#include "tests/support/SchemeFileTest.h"
#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QtTest>

using namespace VTObjects;

Q_DECLARE_METATYPE(std::wstring)

class tst_schemeFile_text : public SchemeFileTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void damagedTextIsRefused_data();
    void damagedTextIsRefused();
    void whatIsWrongIsTold_data();
    void whatIsWrongIsTold();
    void whatIsNotReadIsToldToo();
    void whatEditorsDoIsAccepted_data();
    void whatEditorsDoIsAccepted();
    void everyCutIsRefused();
    void aFailedReadLeavesItsArgumentAlone();
    void whatIsNoFileIsNotRead();
};

void tst_schemeFile_text::damagedTextIsRefused_data()
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

void tst_schemeFile_text::damagedTextIsRefused()
{
    QFETCH(QByteArray, text);
    QVERIFY(read(goodText)); // so that it is the difference that counts
    QVERIFY(!read(text));
    VOColorScheme scheme;
    QString problem;
    QVERIFY(!VOColorSchemeManager::readFile(scheme, file(), problem));
    QVERIFY(!problem.isEmpty());
}

void tst_schemeFile_text::whatIsWrongIsTold_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("problem");
    QTest::newRow("nothing") << QByteArray(goodText) << QString();
    QTest::newRow("empty") << QByteArray() << QString("The file is empty.");
    QTest::newRow("only blanks") << QByteArray("  \n") << QString("The file is empty.");
    QTest::newRow("a picture") << QByteArray("GIF89a") << QString("It is no color scheme file.");
    QTest::newRow("another format") << replaced("vtcontrolcolorscheme.scheme", "other")
                                    << QString("It is no color scheme file.");
    QTest::newRow("newer") << replaced("\"schema\": 1", "\"schema\": 2")
                           << QString("It was written by a newer release of this program.");
    QTest::newRow("no schema") << replaced("\"schema\": 1", "\"schema\": 0")
                               << QString("The text is damaged in line 3.");
    QTest::newRow("missing comma")
        << replaced("\"Two\",", "\"Two\"") << QString("The text is damaged in line 5.");
    QTest::newRow("behind the end")
        << QByteArray(goodText) + "\n\nx"
        << QString("The text is damaged in line %1.").arg(QByteArray(goodText).count('\n') + 3);
    QTest::newRow("no name") << replaced("\"name\": \"Two\",", "")
                             << QString("The text is not complete: \"name\" is missing.");
    QTest::newRow("no ramp") << QByteArray("{\"format\": \"vtcontrolcolorscheme.scheme\", "
                                           "\"schema\": 1, \"name\": \"\", \"author\": \"\", "
                                           "\"description\": \"\"}")
                             << QString("The text is not complete: \"ramp\" is missing.");
    QTest::newRow("past 4 MiB") << QByteArray(goodText) + QByteArray(4 * 1024 * 1024, ' ')
                                << QString("The file is too long for a color scheme.");
}

void tst_schemeFile_text::whatIsWrongIsTold()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, problem);
    write(text);
    VOColorScheme scheme;
    QString told = QStringLiteral("of another call");
    QCOMPARE(VOColorSchemeManager::readFile(scheme, file(), told), problem.isEmpty());
    QCOMPARE(told, problem);
}

void tst_schemeFile_text::whatIsNotReadIsToldToo()
{
    VOColorScheme scheme;
    QString told;
    QVERIFY(!VOColorSchemeManager::readFile(scheme, file("missing.vcs"), told));
    QCOMPARE(told, QStringLiteral("There is no such file."));
    QVERIFY(!VOColorSchemeManager::readFile(scheme, toVOString(store->path()), told));
    QCOMPARE(told, QStringLiteral("It is no file."));
    QVERIFY(!VOColorSchemeManager::readFile(scheme, VOString(), told));
    QCOMPARE(told, QStringLiteral("There is no such file."));
}

void tst_schemeFile_text::whatEditorsDoIsAccepted_data()
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

void tst_schemeFile_text::whatEditorsDoIsAccepted()
{
    QFETCH(QByteArray, text);
    write(text);
    VOColorScheme scheme;
    QVERIFY(VOColorSchemeManager::readFile(scheme, file()));
    QCOMPARE(dump(scheme), dump(goodScheme()));
}

void tst_schemeFile_text::everyCutIsRefused()
{
    const QByteArray text = QByteArray(hsvText).trimmed();
    QVERIFY(read(text));
    for (int length = 0; length < text.size(); ++length)
        QVERIFY2(!read(text.left(length)), qPrintable(QString::number(length)));
}

void tst_schemeFile_text::aFailedReadLeavesItsArgumentAlone()
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

void tst_schemeFile_text::whatIsNoFileIsNotRead()
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

VT_TEST_GUILESS_MAIN(tst_schemeFile_text)
#include "tst_schemeFile_text.moc"
