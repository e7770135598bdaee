#include "tests/support/TestMain.h"
#include "vobase/VOString.h"
#include "vomap/files/fileSystem_p.h"

#include <QDir>
#include <QFile>
#include <QObject>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace VTObjects;

// The file system for platforms without POSIX, built here in place of the other one: what the
// toolkit can promise anywhere.
class tst_fileSystemPortable : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void filesAreWrittenReadAndCompared();
    void whatCannotBeReadSaysWhy();
    void aRenameReplacesTheFile();
    void aSecondNameKeepsTheOldBytes();
    void replacingLeavesNothingBesideTheFile();
    void aFailedReplacementLeavesTheOldFile();
    void foldersAreMadeWithThoseAbove();
    void puttingBackUndoesARename();
    void theLockKeepsASecondOneOut();
    void aGarbledLockFileKeepsNobodyOut_data();
    void aGarbledLockFileKeepsNobodyOut();
    void namesAreUtf8();

private:
    std::string path(const char *file) const
    {
        return directory->filePath(QString::fromUtf8(file)).toStdString();
    }
    QByteArray content(const char *file) const
    {
        QFile in(directory->filePath(QString::fromUtf8(file)));
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray("missing");
    }
    QStringList filesThere() const
    {
        return QDir(directory->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    std::unique_ptr<QTemporaryDir> directory;
};

void tst_fileSystemPortable::init()
{
    directory = std::make_unique<QTemporaryDir>();
}

void tst_fileSystemPortable::filesAreWrittenReadAndCompared()
{
    const std::string_view text("a\0b", 3);
    QVERIFY(writeSynced(path("file"), text, std::string()));
    ByteBuffer bytes;
    QVERIFY(readWholeFile(path("file"), 3, bytes) == ReadState::Read);
    QCOMPARE(bytes.view(), text);
    QVERIFY(fileHolds(path("file"), text));
    QVERIFY(!fileHolds(path("file"), "a"));
    QVERIFY(!fileHolds(path("file"), "abc"));
    QVERIFY(!fileHolds(path("other"), ""));
    QVERIFY(writeSynced(path("file"), "x", path("file")));
    QCOMPARE(content("file"), QByteArray("x"));
}

void tst_fileSystemPortable::whatCannotBeReadSaysWhy()
{
    ByteBuffer bytes;
    QVERIFY(readWholeFile(path("file"), 100, bytes) == ReadState::Missing);
    QVERIFY(readWholeFile(directory->path().toStdString(), 100, bytes) == ReadState::NotAFile);
    QVERIFY(writeSynced(path("file"), "four", std::string()));
    QVERIFY(readWholeFile(path("file"), 3, bytes) == ReadState::TooLong);
    QVERIFY(!writeSynced(path("no/folder"), "x", std::string()));
}

void tst_fileSystemPortable::aRenameReplacesTheFile()
{
    QVERIFY(writeSynced(path("new"), "new", std::string()));
    QVERIFY(renameOver(path("new"), path("file")));
    QVERIFY(writeSynced(path("new"), "newer", std::string()));
    QVERIFY(renameOver(path("new"), path("file")));
    QCOMPARE(content("file"), QByteArray("newer"));
    QCOMPARE(filesThere(), QStringList({"file"}));
    // Nothing to rename: the old file is still there.
    QVERIFY(!renameOver(path("new"), path("file")));
    QCOMPARE(content("file"), QByteArray("newer"));
    QCOMPARE(filesThere(), QStringList({"file"}));
}

void tst_fileSystemPortable::aSecondNameKeepsTheOldBytes()
{
    QVERIFY(writeSynced(path("file"), "old", std::string()));
    QVERIFY(writeSynced(path("second"), "older", std::string()));
    QVERIFY(linkAs(path("file"), path("second")));
    QVERIFY(writeSynced(path("new"), "new", std::string()));
    QVERIFY(renameOver(path("new"), path("file")));
    QCOMPARE(content("second"), QByteArray("old"));
    QCOMPARE(content("file"), QByteArray("new"));
}

void tst_fileSystemPortable::replacingLeavesNothingBesideTheFile()
{
    QVERIFY(replaceFile(path("scheme.vcs"), "one"));
    QVERIFY(replaceFile(path("scheme.vcs"), "two"));
    QCOMPARE(content("scheme.vcs"), QByteArray("two"));
    QCOMPARE(filesThere(), QStringList({"scheme.vcs"}));
}

void tst_fileSystemPortable::aFailedReplacementLeavesTheOldFile()
{
    QVERIFY(QDir(directory->path()).mkdir("folder.vcs"));
    QVERIFY(!replaceFile(path("folder.vcs"), "x"));
    QVERIFY(!replaceFile(path("no/scheme.vcs"), "x"));
    QCOMPARE(filesThere(), QStringList({"folder.vcs"}));
}

void tst_fileSystemPortable::foldersAreMadeWithThoseAbove()
{
    QVERIFY(makeFolder(path("a/b/c")));
    QVERIFY(makeFolder(path("a/b/c")));
    QVERIFY(syncFolder(path("a/b/c")));
    QVERIFY(somethingIsAt(path("a/b/c")));
    QVERIFY(!somethingIsAt(path("a/b/d")));
    QVERIFY(writeSynced(path("file"), "x", std::string()));
    QVERIFY(!makeFolder(path("file/below")));
    QVERIFY(removeFile(path("file")));
    QVERIFY(removeFile(path("file")));
}

void tst_fileSystemPortable::puttingBackUndoesARename()
{
    QVERIFY(writeSynced(path("old"), "old", std::string()));
    QVERIFY(writeSynced(path("file"), "new", std::string()));
    putBack(path("old"), path("file"));
    QCOMPARE(content("file"), QByteArray("old"));
    putBack(std::string(), path("file"));
    QCOMPARE(filesThere(), QStringList());
}

void tst_fileSystemPortable::theLockKeepsASecondOneOut()
{
    auto first = std::make_unique<FolderLock>();
    QVERIFY(first->acquire(path("lock"), 0));
    FolderLock second;
    QVERIFY(!second.acquire(path("lock"), 20));
    first.reset();
    QVERIFY(second.acquire(path("lock"), 0));
}

void tst_fileSystemPortable::aGarbledLockFileKeepsNobodyOut_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("garbage") << QByteArray("\xff\0garbage", 9);
}

void tst_fileSystemPortable::aGarbledLockFileKeepsNobodyOut()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(writeSynced(path("lock"), bytes.toStdString(), std::string()));
    FolderLock lock;
    QVERIFY(lock.acquire(path("lock"), 500));
}

void tst_fileSystemPortable::namesAreUtf8()
{
    QCOMPARE(nativePath(L"a\u00e9"), std::string("a\xC3\xA9"));
    QCOMPARE(nativePath(VOString(std::wstring(L"a\0b", 3))), std::string());
    QCOMPARE(nativePath(VOString(std::wstring(1, wchar_t(0xD800)))), std::string());
}

VT_TEST_GUILESS_MAIN(tst_fileSystemPortable)
#include "tst_fileSystemPortable.moc"
