#include "tests/support/TestMain.h"
#include "vomap/VOStringConversion.h"
#include "vomap/safeFileName.h"

#include <QObject>
#include <QSet>
#include <QtTest>

using namespace VTObjects;

class tst_safeFileName : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ordinaryNamesStayAsTheyAre_data();
    void ordinaryNamesStayAsTheyAre();
    void unsafeNamesBecomeSafeOnes_data();
    void unsafeNamesBecomeSafeOnes();
    void whatNoFileNameCanSayIsReplaced();
    void differentUnsafeNamesStayDifferentFiles();
    void longNamesFitIntoAFileSystem_data();
    void longNamesFitIntoAFileSystem();
};

void tst_safeFileName::ordinaryNamesStayAsTheyAre_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"Red", "add_scheme1", "a b", "Version 1.2", ".hidden", "Console",
                             "COM0", "COM10", "nulls", "a~b", "x:y", "50 %", "(a)", "'"})
        QTest::newRow(name) << QString::fromUtf8(name);
    QTest::newRow("empty") << QString();
    QTest::newRow("other scripts") << QString::fromUtf8("Farbverl\xC3\xA4ufe \xE4\xB8\xAD");
    QTest::newRow("beyond 16 bits") << QString::fromUtf8("\xF0\x9F\x98\x80");
    QTest::newRow("240 bytes") << QString(240, QLatin1Char('x'));
}

void tst_safeFileName::ordinaryNamesStayAsTheyAre()
{
    QFETCH(QString, name);
    QCOMPARE(toQString(safeFileName(toVOString(name))), name);
}

void tst_safeFileName::unsafeNamesBecomeSafeOnes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("start");
    QTest::newRow("slash") << "a/b"
                           << "a_b~";
    QTest::newRow("backslash") << "a\\b"
                               << "a_b~";
    QTest::newRow("parent folder") << ".."
                                   << "__~";
    QTest::newRow("way out") << "../../etc/passwd"
                             << "______etc_passwd~";
    QTest::newRow("this folder") << "."
                                 << "_~";
    QTest::newRow("full stops in a row") << "wait..."
                                         << "wait___~";
    QTest::newRow("absolute") << "/etc/passwd"
                              << "_etc_passwd~";
    QTest::newRow("line end") << "a\nb"
                              << "a_b~";
    QTest::newRow("NUL") << QString::fromUtf8("a\0b", 3) << "a_b~";
    QTest::newRow("delete") << QString::fromUtf8("a\x7f") << "a_~";
    QTest::newRow("C1 control") << QString(QChar(0x85)) << "_~";
    QTest::newRow("device") << "CON"
                            << "_CON~";
    QTest::newRow("device in small letters") << "lpt1"
                                             << "_lpt1~";
    QTest::newRow("device with an extension") << "nul.backup"
                                              << "_nul.backup~";
}

void tst_safeFileName::unsafeNamesBecomeSafeOnes()
{
    QFETCH(QString, name);
    QFETCH(QString, start);
    const QString safe = toQString(safeFileName(toVOString(name)));
    QVERIFY2(safe.startsWith(start), qPrintable(safe));
    QCOMPARE(safe.size(), start.size() + 16);
    // Doing it twice changes nothing.
    QCOMPARE(toQString(safeFileName(toVOString(safe))), safe);
}

void tst_safeFileName::whatNoFileNameCanSayIsReplaced()
{
    const QString lone = toQString(safeFileName(VOString(std::wstring(1, wchar_t(0xD800)))));
    const QString past = toQString(safeFileName(VOString(std::wstring(1, wchar_t(0x7FFFFFFF)))));
    QVERIFY(lone.startsWith("_~"));
    QVERIFY(past.startsWith("_~"));
    QVERIFY(lone != past);
}

void tst_safeFileName::differentUnsafeNamesStayDifferentFiles()
{
    const QStringList names = {"a/b", "a\\b", "a\nb", "a_b", "a//b", "a/b ", "..", "...", "."};
    QSet<QString> files;
    for (const QString &name : names)
        files.insert(toQString(safeFileName(toVOString(name))));
    QCOMPARE(files.size(), names.size());
}

void tst_safeFileName::longNamesFitIntoAFileSystem_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("300 characters") << QString(300, QLatin1Char('x'));
    QTest::newRow("241 bytes") << QString(241, QLatin1Char('x'));
    QTest::newRow("two bytes each") << QString(300, QChar(0xE9));
    QTest::newRow("three bytes each") << QString(300, QChar(0x4E2D));
    QTest::newRow("four bytes each") << QString::fromUtf8("\xF0\x9F\x98\x80").repeated(300);
    QTest::newRow("a million") << QString(1000000, QLatin1Char('/'));
}

void tst_safeFileName::longNamesFitIntoAFileSystem()
{
    QFETCH(QString, name);
    const QString safe = toQString(safeFileName(toVOString(name)));
    const QByteArray utf8 = (safe + ".vcs").toUtf8();
    QVERIFY(utf8.size() <= 255);
    QVERIFY(utf8.size() > 150);
    QCOMPARE(QString::fromUtf8(utf8), safe + ".vcs");
    QVERIFY(safeFileName(toVOString(name + "y")) != safeFileName(toVOString(name)));
}

VT_TEST_APPLESS_MAIN(tst_safeFileName)
#include "tst_safeFileName.moc"
