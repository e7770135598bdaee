#include "tests/support/SchemeFileTest.h"
#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/files/xxHash64_p.h"

#include <QDir>
#include <QFile>
#include <QtTest>

using namespace VTObjects;

class tst_schemeFile_saving : public SchemeFileTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void savingReplacesTheOldFileAndLeavesNothingBesideIt();
    void aFailedSaveLeavesTheOldFileAndNothingBesideIt_data();
    void aFailedSaveLeavesTheOldFileAndNothingBesideIt();
    void aLinkStaysALink();
    void permissionsOfTheOldFileStay();
    void aScratchFileOfAKilledSaveIsUsedAgain();
    void whatCannotBeSavedIsTold();
    void unusualFileNamesWork_data();
    void unusualFileNamesWork();
};

void tst_schemeFile_saving::savingReplacesTheOldFileAndLeavesNothingBesideIt()
{
    write("something else");
    QVERIFY(VOColorSchemeManager::saveFile(goodScheme(), file()));
    QCOMPARE(content(), QByteArray(goodText));
    QCOMPARE(filesThere(), QStringList({"scheme.vcs"}));
}

void tst_schemeFile_saving::aFailedSaveLeavesTheOldFileAndNothingBesideIt_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("problem");
    QTest::newRow("no such folder") << "missing/scheme.vcs"
                                    << "The folder does not exist.";
    QTest::newRow("a file for a folder") << "old.vcs/scheme.vcs"
                                         << "The folder does not exist.";
    QTest::newRow("a folder for a file") << "folder.vcs"
                                         << "There is a folder of this name.";
    QTest::newRow("name too long")
        << QString(300, QLatin1Char('x')) << "The name of the file is too long.";
}

void tst_schemeFile_saving::aFailedSaveLeavesTheOldFileAndNothingBesideIt()
{
    QFETCH(QString, target);
    QFETCH(QString, problem);
    QVERIFY(QDir(store->path()).mkdir("folder.vcs"));
    QVERIFY(VOColorSchemeManager::saveFile(goodScheme(), file("old.vcs")));
    QString told;
    QVERIFY(!VOColorSchemeManager::saveFile(SchemeSamples(1).scheme(), file(target), told));
    QCOMPARE(told, problem);
    QCOMPARE(filesThere(), QStringList({"folder.vcs", "old.vcs"}));
    QCOMPARE(content("old.vcs"), QByteArray(goodText));
}

void tst_schemeFile_saving::aLinkStaysALink()
{
    write("something else");
    QVERIFY(QFile::link(store->path("scheme.vcs"), store->path("link.vcs")));
    QVERIFY(VOColorSchemeManager::saveFile(goodScheme(), file("link.vcs")));
    QVERIFY(QFileInfo(store->path("link.vcs")).isSymLink());
    QCOMPARE(content(), QByteArray(goodText));
    QVERIFY(QFile::link(store->path("nowhere"), store->path("dangling.vcs")));
    QString told;
    QVERIFY(!VOColorSchemeManager::saveFile(goodScheme(), file("dangling.vcs"), told));
    QCOMPARE(told, QStringLiteral("There is a link of this name that leads nowhere."));
    QCOMPARE(filesThere(), QStringList({"dangling.vcs", "link.vcs", "scheme.vcs"}));
}

void tst_schemeFile_saving::permissionsOfTheOldFileStay()
{
    write("something else");
    const auto mode = QFile::ReadOwner | QFile::WriteOwner;
    QVERIFY(QFile::setPermissions(store->path("scheme.vcs"), mode));
    QVERIFY(VOColorSchemeManager::saveFile(goodScheme(), file()));
    const auto mask = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QVERIFY(!(QFile::permissions(store->path("scheme.vcs")) & mask));
}

void tst_schemeFile_saving::aScratchFileOfAKilledSaveIsUsedAgain()
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

void tst_schemeFile_saving::whatCannotBeSavedIsTold()
{
    QString told;
    QVERIFY(!VOColorSchemeManager::saveFile(VOColorScheme(), file(), told));
    QCOMPARE(told, QStringLiteral("The scheme has no colors."));
    QVERIFY(!VOColorSchemeManager::saveFile(goodScheme(), VOString(), told));
    QCOMPARE(told, QStringLiteral("This is no name of a file."));
    QVERIFY(VOColorSchemeManager::saveFile(goodScheme(), file(), told));
    QCOMPARE(told, QString());
}

void tst_schemeFile_saving::unusualFileNamesWork_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blank") << "a b.vcs";
    QTest::newRow("accents") << QString::fromUtf8("\xC3\xA9\xE4\xB8\xAD.vcs");
    QTest::newRow("beyond 16 bits") << QString::fromUtf8("\xF0\x9F\x98\x80.vcs");
    QTest::newRow("250 bytes") << QString(250, QLatin1Char('x'));
    QTest::newRow("only the extension") << ".vcs";
}

void tst_schemeFile_saving::unusualFileNamesWork()
{
    QFETCH(QString, name);
    QVERIFY(VOColorSchemeManager::saveFile(goodScheme(), file(name)));
    VOColorScheme back;
    QVERIFY(VOColorSchemeManager::readFile(back, file(name)));
    QCOMPARE(dump(back), dump(goodScheme()));
    QCOMPARE(filesThere(), QStringList({name}));
}

VT_TEST_GUILESS_MAIN(tst_schemeFile_saving)
#include "tst_schemeFile_saving.moc"
