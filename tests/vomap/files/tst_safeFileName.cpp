#include "tests/support/TestMain.h"
#include "vomap/VOStringConversion.h"
#include "vomap/files/fileNameRules_p.h"
#include "vomap/safeFileName.h"

#include <QObject>
#include <QSet>
#include <QtTest>

using namespace VTObjects;

Q_DECLARE_METATYPE(VTObjects::FileNameRules)

namespace {

QString onUnix(const QString &name)
{
    return toQString(safeFileNameBy(FileNameRules::Unix, toVOString(name)));
}

QString onWindows(const QString &name)
{
    return toQString(safeFileNameBy(FileNameRules::Windows, toVOString(name)));
}

QStringList filesOf(const QStringList &names, FileNameRules rules = FileNameRules::Unix)
{
    std::vector<VOString> texts;
    for (const QString &name : names)
        texts.push_back(toVOString(name));
    QStringList files;
    for (const VOString &file : safeFileNamesBy(rules, texts))
        files.append(toQString(file));
    return files;
}

} // namespace

class tst_safeFileName : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void harmlessNamesStayAsTheyAre_data();
    void harmlessNamesStayAsTheyAre();
    void onlyWhatWouldLeaveTheFolderIsReplaced_data();
    void onlyWhatWouldLeaveTheFolderIsReplaced();
    void windowsHasFurtherRules_data();
    void windowsHasFurtherRules();
    void whatNoFileNameCanSayIsReplaced();
    void hostsGetTheRulesOfTheirPlatform();
    void namesOfOneExportGetDifferentFiles_data();
    void namesOfOneExportGetDifferentFiles();
    void manyEqualNamesOfAFoldedKindAreNumbered();
    void longNamesFitIntoAFileSystem_data();
    void longNamesFitIntoAFileSystem();
    void longNamesAreCutBehindAWholeCharacter();
    void noCutLeavesHalfACharacter();
};

void tst_safeFileName::harmlessNamesStayAsTheyAre_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"Red",
                             "add_scheme1",
                             "a b",
                             "Version 1.2",
                             ".hidden",
                             "0..100 m",
                             "wait...",
                             "...",
                             "Console",
                             "con",
                             "nul.backup",
                             "COM1",
                             "a~b",
                             "x:y",
                             "50 %",
                             "(a)",
                             "'",
                             "a<b>",
                             "why?",
                             "5 * 5",
                             "a|b",
                             "\"quoted\"",
                             "ends with a blank ",
                             " begins with one",
                             "a."})
        QTest::newRow(name) << QString::fromUtf8(name);
    QTest::newRow("empty") << QString();
    QTest::newRow("other scripts") << QString::fromUtf8("Farbverl\xC3\xA4ufe \xE4\xB8\xAD");
    QTest::newRow("beyond 16 bits") << QString::fromUtf8("\xF0\x9F\x98\x80");
    QTest::newRow("251 bytes") << QString(251, QLatin1Char('x'));
}

void tst_safeFileName::harmlessNamesStayAsTheyAre()
{
    QFETCH(QString, name);
    QCOMPARE(onUnix(name), name);
    QCOMPARE(filesOf({name}), QStringList{name});
}

void tst_safeFileName::onlyWhatWouldLeaveTheFolderIsReplaced_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    QTest::newRow("slash") << QString("a/b") << QString("a_b");
    QTest::newRow("backslash") << QString("a\\b") << QString("a_b");
    QTest::newRow("this folder") << QString(".") << QString("_");
    QTest::newRow("parent folder") << QString("..") << QString("__");
    QTest::newRow("way out") << QString("../../etc/passwd") << QString(".._.._etc_passwd");
    QTest::newRow("absolute") << QString("/etc/passwd") << QString("_etc_passwd");
    QTest::newRow("line end") << QString("a\nb") << QString("a_b");
    QTest::newRow("NUL") << QString::fromUtf8("a\0b", 3) << QString("a_b");
    QTest::newRow("delete") << QString("a\x7f") << QString("a_");
    QTest::newRow("C1 control") << QString(QChar(0x85)) << QString("_");
}

void tst_safeFileName::onlyWhatWouldLeaveTheFolderIsReplaced()
{
    QFETCH(QString, name);
    QFETCH(QString, file);
    QCOMPARE(onUnix(name), file);
    QVERIFY(!onWindows(name).contains(QLatin1Char('/')));
    QVERIFY(!onWindows(name).contains(QLatin1Char('\\')));
}

void tst_safeFileName::windowsHasFurtherRules_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    QTest::newRow("two full stops") << QString("0..100 m") << QString("0..100 m");
    QTest::newRow("drive") << QString("c:up") << QString("c_up");
    QTest::newRow("all of them") << QString("<>:\"|?*") << QString("_______");
    QTest::newRow("full stops at the end") << QString("wait...") << QString("wait.._");
    QTest::newRow("blank at the end") << QString("a ") << QString("a_");
    QTest::newRow("blank in front") << QString(" a") << QString(" a");
    QTest::newRow("parent folder") << QString("..") << QString("__");
    QTest::newRow("device") << QString("con") << QString("_con");
    QTest::newRow("device in capitals") << QString("NUL") << QString("_NUL");
    QTest::newRow("device with a number") << QString("Lpt1") << QString("_Lpt1");
    QTest::newRow("device with a raised number")
        << QString::fromUtf8("com\xC2\xB2") << QString::fromUtf8("_com\xC2\xB2");
    QTest::newRow("device with an extension") << QString("nul.backup") << QString("_nul.backup");
    QTest::newRow("device with a blank") << QString("aux .a") << QString("_aux .a");
    QTest::newRow("console") << QString("conout$") << QString("_conout$");
    QTest::newRow("no device") << QString("COM0") << QString("COM0");
    QTest::newRow("no device either") << QString("COM10") << QString("COM10");
    QTest::newRow("begins like one") << QString("Console") << QString("Console");
    QTest::newRow("long, with three bytes each")
        << QString(251, QChar(0x4E2D)) << QString(251, QChar(0x4E2D));
    QTest::newRow("full stop where it is cut")
        << QString(250, QLatin1Char('x')) + ".xx" << QString(250, QLatin1Char('x')) + "_";
}

void tst_safeFileName::windowsHasFurtherRules()
{
    QFETCH(QString, name);
    QFETCH(QString, file);
    QCOMPARE(onWindows(name), file);
    // Doing it twice changes nothing.
    QCOMPARE(onWindows(file), file);
}

void tst_safeFileName::whatNoFileNameCanSayIsReplaced()
{
    const VOString lone(std::wstring(1, wchar_t(0xD800)));
    const VOString past(std::wstring(1, wchar_t(0x7FFFFFFF)));
    QCOMPARE(toQString(safeFileName(lone)), QStringLiteral("_"));
    QCOMPARE(toQString(safeFileName(past)), QStringLiteral("_"));
    const std::vector<VOString> files = safeFileNames({lone, past, lone});
    QCOMPARE(toQString(files.at(0)), QStringLiteral("_"));
    QCOMPARE(toQString(files.at(1)), QStringLiteral("_ (2)"));
    QCOMPARE(toQString(files.at(2)), QStringLiteral("_"));
}

void tst_safeFileName::hostsGetTheRulesOfTheirPlatform()
{
    const VOString name("what?");
    QCOMPARE(toQString(safeFileName(name)), toQString(safeFileNameBy(ownFileNameRules, name)));
    const std::vector<VOString> names = {"a/b", "a_b", "CON"};
    const std::vector<VOString> files = safeFileNames(names);
    const std::vector<VOString> expected = safeFileNamesBy(ownFileNameRules, names);
    QCOMPARE(files.size(), names.size());
    for (std::size_t i = 0; i < files.size(); ++i)
        QCOMPARE(toQString(files[i]), toQString(expected[i]));
}

void tst_safeFileName::namesOfOneExportGetDifferentFiles_data()
{
    QTest::addColumn<FileNameRules>("rules");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("files");
    const auto unixRules = FileNameRules::Unix;
    QTest::newRow("none") << unixRules << QStringList() << QStringList();
    QTest::newRow("nothing alike") << unixRules << QStringList{"a", "b"} << QStringList{"a", "b"};
    QTest::newRow("equal names share one")
        << unixRules << QStringList{"a", "b", "a"} << QStringList{"a", "b", "a"};
    QTest::newRow("made equal") << unixRules << QStringList{"a/b", "a\\b", "a\nb"}
                                << QStringList{"a_b", "a_b (2)", "a_b (3)"};
    QTest::newRow("a kept name comes first")
        << unixRules << QStringList{"a/b", "a_b"} << QStringList{"a_b (2)", "a_b"};
    QTest::newRow("a number is taken") << unixRules << QStringList{"a/b", "a_b", "a_b (2)", "a\\b"}
                                       << QStringList{"a_b (3)", "a_b", "a_b (2)", "a_b (4)"};
    QTest::newRow("letter case") << unixRules << QStringList{"Red", "red", "RED", "Red"}
                                 << QStringList{"Red", "red (2)", "RED (3)", "Red"};
    QTest::newRow("number and letter case")
        << unixRules << QStringList{"A", "a", "A (2)"} << QStringList{"A", "a (3)", "A (2)"};
    const QString composed = QString::fromUtf8("\xC3\xA9");
    const QString decomposed = QString::fromUtf8("e\xCC\x81");
    QTest::newRow("accents") << unixRules << QStringList{composed, decomposed}
                             << QStringList{composed, decomposed + " (2)"};
    QTest::newRow("accents and letter case")
        << unixRules << QStringList{composed, decomposed.toUpper()}
        << QStringList{composed, decomposed.toUpper() + " (2)"};
    QTest::newRow("question marks are harmless")
        << unixRules << QStringList{"a?", "a*"} << QStringList{"a?", "a*"};
    QTest::newRow("question marks on Windows")
        << FileNameRules::Windows << QStringList{"a?", "a*"} << QStringList{"a_", "a_ (2)"};
    const QString longName(300, QLatin1Char('x'));
    QTest::newRow("long ones") << unixRules << QStringList{longName, longName + "y"}
                               << QStringList{longName.left(251), longName.left(247) + " (2)"};
}

void tst_safeFileName::namesOfOneExportGetDifferentFiles()
{
    QFETCH(FileNameRules, rules);
    QFETCH(QStringList, names);
    QFETCH(QStringList, files);
    QCOMPARE(filesOf(names, rules), files);
}

void tst_safeFileName::manyEqualNamesOfAFoldedKindAreNumbered()
{
    // All 2^14 ways to write one word: every name is another, every file is the same.
    QStringList names;
    for (int bits = 0; bits < 1 << 14; ++bits) {
        QString name;
        for (int letter = 0; letter < 14; ++letter)
            name += QLatin1Char((bits >> letter & 1) != 0 ? 'A' : 'a');
        names.append(name);
    }
    QSet<QString> files;
    for (const QString &file : filesOf(names))
        files.insert(file.toLower());
    QCOMPARE(files.size(), names.size());
    QVERIFY(files.contains(QStringLiteral("aaaaaaaaaaaaaa (16384)")));
}

void tst_safeFileName::longNamesFitIntoAFileSystem_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("300 characters") << QString(300, QLatin1Char('x'));
    QTest::newRow("252 bytes") << QString(252, QLatin1Char('x'));
    QTest::newRow("two bytes each") << QString(300, QChar(0xE9));
    QTest::newRow("three bytes each") << QString(300, QChar(0x4E2D));
    QTest::newRow("four bytes each") << QString::fromUtf8("\xF0\x9F\x98\x80").repeated(300);
    QTest::newRow("one letter with many accents") << "e" + QString(300, QChar(0x301));
    QTest::newRow("a million") << QString(1000000, QLatin1Char('/'));
}

void tst_safeFileName::longNamesFitIntoAFileSystem()
{
    QFETCH(QString, name);
    const QStringList files = filesOf({name, name + "y"});
    for (const QString &file : files) {
        const QByteArray utf8 = (file + ".vcs").toUtf8();
        QVERIFY(utf8.size() <= 255);
        QVERIFY(utf8.size() > 245);
        QCOMPARE(QString::fromUtf8(utf8), file + ".vcs");
    }
    QVERIFY(files.first() != files.last());
    const QString file = onWindows(name);
    QVERIFY(file.size() + 4 <= 255);
    QVERIFY(file.size() + 4 > 245);
    QCOMPARE(QString::fromUtf8(file.toUtf8()), file);
}

void tst_safeFileName::longNamesAreCutBehindAWholeCharacter()
{
    const QString start(250, QLatin1Char('x'));
    const QString accented = QString::fromUtf8("e\xCC\x81");
    // There is room for the letter, but not for its accent.
    QCOMPARE(onUnix(start + accented + "tail"), start);
    QCOMPARE(onWindows(start + accented + "tail"), start);
    const QString family = QString::fromUtf8("\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7");
    const QString cut = onUnix(QString(245, QLatin1Char('x')) + family);
    QCOMPARE(QString::fromUtf8(cut.toUtf8()), cut);
}

void tst_safeFileName::noCutLeavesHalfACharacter()
{
    // A Tamil sign, behind which the toolkit sees a boundary within the next pair.
    const QString tail = QString::fromUtf8("\xE0\xAF\xB5\xF0\x9F\xA7\xBC").repeated(3);
    for (int length = 225; length <= 255; ++length) {
        const QString name = QString(length, QLatin1Char('x')) + tail;
        for (const QString &file : {onUnix(name), onWindows(name)}) {
            QVERIFY(file.size() > 220);
            QCOMPARE(QString::fromUtf8(file.toUtf8()), file);
            QVERIFY(name.startsWith(file));
        }
    }
}

VT_TEST_APPLESS_MAIN(tst_safeFileName)
#include "tst_safeFileName.moc"
