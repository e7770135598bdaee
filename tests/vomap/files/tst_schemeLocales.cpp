#include "tests/support/ChildProcess.h"
#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "vomap/files/TeamFile_p.h"
#include "vomap/files/schemeText_p.h"

#include <QLocale>
#include <QObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <clocale>
#include <cstdio>

using namespace VTObjects;

// No locale changes a byte: not its decimal comma, not its letters.
class tst_schemeLocales : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();
    void hostileSchemesComeBackAndAreSavedAlike_data();
    void hostileSchemesComeBackAndAreSavedAlike();
    void everyLocaleWritesTheSameBytes();

private:
    bool enter(const char *name);

    QTemporaryDir locales;
    int total = 0; // that came back as they were
    int kinds[4] = {};
};

namespace {

const char *const names[] = {"C", "de_DE.UTF-8", "tr_TR.UTF-8"};

} // namespace

void tst_schemeLocales::initTestCase()
{
    // A bare machine has their sources only.
    QVERIFY(locales.isValid());
    for (const char *language : {"de_DE", "tr_TR"}) {
        const QString target = locales.filePath(QString::fromLatin1(language) + ".UTF-8");
        QProcess localedef;
        localedef.start("localedef", {"-i", language, "-f", "UTF-8", target});
        QVERIFY2(localedef.waitForFinished(120000) && localedef.exitCode() == 0,
                 "localedef comes with the packages libc-bin and locales");
    }
    QVERIFY(qputenv("LOCPATH", locales.path().toLocal8Bit()));
}

void tst_schemeLocales::cleanupTestCase()
{
    qInfo("%d schemes (%d, %d, %d, %d of the kinds) in three locales came back equal field by "
          "field from both formats, the second save equal byte for byte",
          total, kinds[0], kinds[1], kinds[2], kinds[3]);
}

void tst_schemeLocales::cleanup()
{
    std::setlocale(LC_ALL, "C");
    QLocale::setDefault(QLocale::c());
}

bool tst_schemeLocales::enter(const char *name)
{
    QLocale::setDefault(QLocale(QString::fromLatin1(name)));
    if (!std::setlocale(LC_ALL, name))
        return false;
    // It is the locale that it says it is.
    char number[8] = {};
    std::snprintf(number, sizeof(number), "%.1f", 1.5);
    return QByteArray(number) == (qstrcmp(name, "C") == 0 ? "1.5" : "1,5");
}

void tst_schemeLocales::hostileSchemesComeBackAndAreSavedAlike_data()
{
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<unsigned int>("seed");
    // In parts, so that none takes long.
    const int parts = shortOrLong(1, 20);
    for (const char *name : names) {
        for (int part = 1; part <= parts; ++part) {
            QTest::newRow(qPrintable(QString("%1 part %2").arg(name).arg(part)))
                << QByteArray(name) << unsigned(part);
        }
    }
}

void tst_schemeLocales::hostileSchemesComeBackAndAreSavedAlike()
{
    QFETCH(QByteArray, locale);
    QVERIFY(enter(locale.constData()));
    QFETCH(unsigned int, seed);
    const int count = shortOrLong(500, 5000);
    SchemeSamples samples(seed);
    int different = 0;
    int unstable = 0;
    int differentInStore = 0;
    std::string first;
    std::string second;
    for (int i = 0; i < count; ++i) {
        VOColorSchemeTeam team;
        team.groups.resize(1);
        team.groups[0].schemes.push_back(samples.scheme());
        const VOColorScheme &scheme = team.groups[0].schemes[0];
        const QByteArray fields = dump(scheme);
        ++kinds[scheme.colorRamp->category()];
        // The scheme file
        VOColorScheme back;
        const bool read = writeSchemeText(scheme, first) && readSchemeText(first, back);
        different += read && dump(back) == fields ? 0 : 1;
        unstable += read && writeSchemeText(back, second) && first == second ? 0 : 1;
        // and the team file.
        ByteBuffer bytes;
        TeamContent content;
        bool complete = false;
        const bool same = encodeTeam(team, TeamExtras(), bytes) &&
                          decodeTeam(bytes.view(), content, complete) == TeamFileState::Whole &&
                          dump(content.team.groups[0].schemes[0]) == fields;
        differentInStore += same ? 0 : 1;
    }
    QCOMPARE(different, 0);
    QCOMPARE(unstable, 0);
    QCOMPARE(differentInStore, 0);
    total += count;
}

void tst_schemeLocales::everyLocaleWritesTheSameBytes()
{
    std::string texts[3];
    for (int i = 0; i < 3; ++i) {
        QVERIFY(enter(names[i]));
        SchemeSamples samples(78);
        for (int j = 0; j < 50; ++j) {
            std::string text;
            QVERIFY(writeSchemeText(samples.scheme(), text));
            texts[i] += text;
        }
    }
    QCOMPARE(texts[0], texts[1]);
    QCOMPARE(texts[0], texts[2]);
}

VT_TEST_APPLESS_MAIN(tst_schemeLocales)
#include "tst_schemeLocales.moc"
