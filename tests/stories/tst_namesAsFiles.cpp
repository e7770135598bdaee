#include "tests/support/ManagerAtWork.h"
#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QDir>
#include <QRegularExpression>
#include <QtTest>

#include <memory>

using namespace VTObjects;

/// Names that mean something else to a file system, through the manager's export command.
class tst_namesAsFiles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { store.reset(); }

    void filesStayInTheChosenFolderAndKeepTheNamesOfTheirSchemes();
    void ofTwoEqualNamesTheLaterRowIsInTheFile_data();
    void ofTwoEqualNamesTheLaterRowIsInTheFile();

private:
    void exportRows(const QVector<int> &rows);

    std::unique_ptr<TestStore> store;
    QString chosen; // a folder in a folder, both empty
};

void tst_namesAsFiles::init()
{
    store = std::make_unique<TestStore>();
    chosen = store->path(QStringLiteral("outer/chosen"));
    QVERIFY(QDir().mkpath(chosen + QStringLiteral("/sub")));
}

/// Exports rows of the first custom group, selected in this order; all of them if none is named.
void tst_namesAsFiles::exportRows(const QVector<int> &rows)
{
    const QByteArray before = dumpOfRecords();
    ManagerAtWork work;
    work.show(1, 0);
    const QByteArray shown = dump(work.user.model->group());
    if (rows.isEmpty())
        work.command("actionSelect_all");
    else
        work.select(rows);
    work.command("actionExport_scheme", {choose({chosen}), pressText("OK")});
    // Nothing of the manager has changed: OK asks nothing.
    QCOMPARE(dump(work.user.model->group()), shown);
    work.finish(work.user.ok);
    QCOMPARE(dumpOfRecords(), before);
}

void tst_namesAsFiles::filesStayInTheChosenFolderAndKeepTheNamesOfTheirSchemes()
{
    QStringList names = {"plain",
                         "/",
                         "\\",
                         "..",
                         ".",
                         "",
                         " ",
                         "../up",
                         "..\\up",
                         "../../../up",
                         "sub/inner",
                         "sub\\inner",
                         "/etc/scheme",
                         "C:\\scheme",
                         "a\nb",
                         "a\tb",
                         "\x01\x1f\x7f",
                         QString(QChar(0x85)),
                         QString::fromLatin1("nul\0byte", 8),
                         "CON",
                         "con",
                         "Nul.txt",
                         "COM1",
                         "lpt9",
                         ".hidden",
                         "-rf",
                         "~",
                         "a:b*c?d\"e<f>g|h",
                         "caf\u00e9 \u4e2d\u6587 \U0001F600",
                         QString(300, QLatin1Char('x')),
                         QString(300, QLatin1Char('x')) + QLatin1Char('y'),
                         QString(300, QChar(0x4E2D)),
                         QString(300, QLatin1Char('/'))};
    // Schemes that differ, so that none can stand for another
    VOColorSchemeGroup group = makeGroup(QStringLiteral("Names"), {});
    for (int i = 0; i < names.size(); ++i)
        group.schemes.push_back(schemeOf(names[i], 2 + unsigned(i)));
    VOColorSchemeManager::instance()->customTeam.groups = {group};
    const auto before = filesBelow(store->path());
    exportRows({});
    if (QTest::currentTestFailed())
        return;
    // Every new file lies in the folder itself
    const QDir folder(chosen);
    const QStringList files = folder.entryList(QDir::Files | QDir::Hidden | QDir::System);
    QCOMPARE(files.size(), names.size());
    QCOMPARE(filesBelow(store->path()).size(), before.size() + files.size());
    QVERIFY(!QFile::exists(QStringLiteral("/etc/scheme.vcs")));
    // under a name that this file system takes,
    const QRegularExpression notForAFile(
        QStringLiteral("[/\\\\\\x{0}-\\x{1f}\\x{7f}-\\x{9f}]|^\\.+$"));
    for (const QString &file : files) {
        QVERIFY2(file.endsWith(QLatin1String(".vcs")), qPrintable(file));
        QVERIFY2(file.toUtf8().size() <= 255, qPrintable(file));
        for (const QChar character : file)
            QVERIFY2(character.category() != QChar::Other_Control && character != '\\',
                     qPrintable(file));
        // and holds one of the schemes, with the name as it was.
        VOColorScheme read;
        QVERIFY(VOColorSchemeManager::readFile(read, toVOString(folder.filePath(file))));
        const QString name = toQString(read.name);
        const int index = names.indexOf(name);
        QVERIFY2(index >= 0, qPrintable(name));
        QCOMPARE(dump(read), dump(group.schemes[std::size_t(index)]));
        // What is harmless here stays, the devices of other systems among it.
        if (name.size() < 200 && !name.contains(notForAFile))
            QVERIFY2(file.startsWith(name), qPrintable(file));
        names[index] = QStringLiteral("seen");
    }
    QCOMPARE(names.count(QStringLiteral("seen")), files.size());
}

void tst_namesAsFiles::ofTwoEqualNamesTheLaterRowIsInTheFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVector<int>>("rows");
    QTest::newRow("from the top") << QString("twin") << QVector<int>{0, 2};
    QTest::newRow("from the bottom") << QString("twin") << QVector<int>{2, 0};
    QTest::newRow("name that is no file name") << QString("../twin") << QVector<int>{0, 2};
}

void tst_namesAsFiles::ofTwoEqualNamesTheLaterRowIsInTheFile()
{
    QFETCH(QString, name);
    QFETCH(QVector<int>, rows);
    VOColorSchemeGroup group = makeGroup(QStringLiteral("Twins"), {});
    group.schemes = {schemeOf(name, 3), schemeOf("between", 4), schemeOf(name, 5)};
    VOColorSchemeManager::instance()->customTeam.groups = {group};
    exportRows(rows);
    if (QTest::currentTestFailed())
        return;
    const auto files = filesBelow(store->path());
    QCOMPARE(files.size(), 1);
    VOColorScheme read;
    QVERIFY(VOColorSchemeManager::readFile(read, toVOString(store->path(files.firstKey()))));
    QCOMPARE(dump(read), dump(group.schemes[2]));
}

VT_TEST_MAIN(tst_namesAsFiles)
#include "tst_namesAsFiles.moc"
