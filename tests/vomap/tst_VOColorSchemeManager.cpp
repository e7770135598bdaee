#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/toString.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QDir>
#include <QObject>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <type_traits>

using namespace VTObjects;

class tst_VOColorSchemeManager : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void thereIsOneStoreAndItBeginsWithItsTeams();
    void theFirstStartHasTheBuiltInsAndWritesNothing();
    void savingAndLoadingKeepsEveryField();
    void anUnsavedChangeIsGoneAfterLoading();
    void duplicateAndEmptyNamesAreKept();
    void theStoreHasTheDocumentedFilesOnly();
    void savingTheCustomTeamTouchesNoOtherTeam();
    void savingDoesNotChangeWhatIsInMemory();
    void anotherDirectoryIsAnotherStore();
    void savingToADirectoryThatWasNotLoadedKeepsWhatIsThere();
    void theDefaultPlaceIsInTheDataFolderOfTheApplication();
    void aDirectoryThatCannotBeIsNeitherReadNorWritten();
    void aStoreThatCannotBeWrittenAnswersFalse();
    void resettingBringsTheBuiltInsBack();
    void deletedAndEditedBuiltInsStaySo();

private:
    VOColorSchemeManager &manager() { return *VOColorSchemeManager::instance(); }
    QStringList filesIn(const QString &folder) const;
    QByteArray content(const QString &path) const;

    std::unique_ptr<TestStore> store;
    std::unique_ptr<QTemporaryDir> directory;
};

void tst_VOColorSchemeManager::init()
{
    store = std::make_unique<TestStore>();
    directory = std::make_unique<QTemporaryDir>();
    VOColorSchemeManager::setStoreDirectory(toVOString(directory->filePath("a/b/store")));
    QVERIFY(manager().load());
}

void tst_VOColorSchemeManager::cleanup()
{
    directory.reset();
    store.reset();
}

QStringList tst_VOColorSchemeManager::filesIn(const QString &folder) const
{
    return QDir(directory->filePath(folder))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                   QDir::Name);
}

QByteArray tst_VOColorSchemeManager::content(const QString &path) const
{
    QFile in(directory->filePath(path));
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

void tst_VOColorSchemeManager::thereIsOneStoreAndItBeginsWithItsTeams()
{
    VOColorSchemeManager *const one = VOColorSchemeManager::instance();
    QVERIFY(one);
    QCOMPARE(VOColorSchemeManager::instance(), one);
    QVERIFY(!std::is_polymorphic<VOColorSchemeManager>::value);
    QCOMPARE(static_cast<void *>(&one->defaultTeam), static_cast<void *>(one));
    QCOMPARE(&one->customTeam, &one->defaultTeam + 1);
    QCOMPARE(&one->favoriteTeam, &one->customTeam + 1);
}

void tst_VOColorSchemeManager::theFirstStartHasTheBuiltInsAndWritesNothing()
{
    for (const char *name : {"DEM", "Unique", "Range", "Graph", "Even", "Random"}) {
        const int at = manager().defaultTeam.index(name);
        QVERIFY2(at >= 0, name);
        QVERIFY2(!manager().defaultTeam.groups[std::size_t(at)].schemes.empty(), name);
    }
    QCOMPARE(manager().defaultTeam.name, L"Default");
    QCOMPARE(manager().customTeam.name, L"Custom");
    QCOMPARE(manager().favoriteTeam.name, L"Favorite");
    QVERIFY(manager().customTeam.groups.empty());
    QVERIFY(manager().favoriteTeam.groups.empty());
    QVERIFY(!QDir(directory->filePath("a")).exists());
}

void tst_VOColorSchemeManager::savingAndLoadingKeepsEveryField()
{
    SchemeSamples samples(21);
    for (VOColorSchemeTeam *team : {&manager().customTeam, &manager().favoriteTeam}) {
        for (int i = 0; i < 5; ++i) {
            VOColorSchemeGroup group;
            group.name = samples.text();
            for (int j = 0; j < 20; ++j)
                group.schemes.push_back(samples.scheme());
            team->groups.push_back(group);
        }
    }
    VOColorScheme bare;
    bare.name = L"bare";
    manager().customTeam.groups[2].schemes.push_back(bare);
    manager().defaultTeam.groups.push_back(makeGroup("mine", {"one"}));
    manager().defaultTeam.name = L"Of the house";
    manager().customTeam.name = samples.text();
    manager().favoriteTeam.name = L"";
    const QByteArray before =
        dump(manager().defaultTeam) + dump(manager().customTeam) + dump(manager().favoriteTeam);
    QVERIFY(manager().save());
    for (VOColorSchemeTeam *team :
         {&manager().defaultTeam, &manager().customTeam, &manager().favoriteTeam}) {
        team->name = L"unsaved";
        team->groups.clear();
    }
    QVERIFY(manager().load());
    QCOMPARE(dump(manager().defaultTeam) + dump(manager().customTeam) +
                 dump(manager().favoriteTeam),
             before);
    QVERIFY(!manager().customTeam.groups[2].schemes.back().colorRamp);
}

void tst_VOColorSchemeManager::anUnsavedChangeIsGoneAfterLoading()
{
    manager().customTeam.groups.push_back(makeGroup("kept", {"a"}));
    QVERIFY(manager().save());
    manager().customTeam.groups.push_back(makeGroup("lost", {"b"}));
    QVERIFY(manager().load());
    QCOMPARE(manager().customTeam.index("kept"), 0);
    QCOMPARE(manager().customTeam.index("lost"), -1);
}

void tst_VOColorSchemeManager::duplicateAndEmptyNamesAreKept()
{
    manager().favoriteTeam.groups = {makeGroup("", {"", "", "a", "a"}), makeGroup("", {}),
                                     makeGroup("x", {})};
    const QByteArray before = dump(manager().favoriteTeam);
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    QCOMPARE(dump(manager().favoriteTeam), before);
}

void tst_VOColorSchemeManager::theStoreHasTheDocumentedFilesOnly()
{
    QVERIFY(manager().save());
    QCOMPARE(filesIn("a/b/store"),
             QStringList({"custom.team", "default.team", "favorite.team", "store.lock"}));
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    QCOMPARE(filesIn("a/b/store"),
             QStringList({"custom.team", "custom.team.last", "default.team", "default.team.last",
                          "favorite.team", "favorite.team.last", "store.lock"}));
    QCOMPARE(filesIn("a/b"), QStringList({"store"}));
}

void tst_VOColorSchemeManager::savingTheCustomTeamTouchesNoOtherTeam()
{
    QVERIFY(manager().saveCustomTeam());
    QCOMPARE(filesIn("a/b/store"), QStringList({"custom.team", "store.lock"}));
    QVERIFY(manager().save());
    const QByteArray defaultBefore = content("a/b/store/default.team");
    const QByteArray favoriteBefore = content("a/b/store/favorite.team");
    QVERIFY(!defaultBefore.isEmpty());
    manager().defaultTeam.groups.clear();
    manager().favoriteTeam.groups.push_back(makeGroup("not now", {"a"}));
    manager().customTeam.groups.push_back(makeGroup("now", {"a"}));
    QVERIFY(manager().saveCustomTeam());
    QCOMPARE(content("a/b/store/default.team"), defaultBefore);
    QCOMPARE(content("a/b/store/favorite.team"), favoriteBefore);
    QVERIFY(manager().load());
    QVERIFY(manager().customTeam.contains("now"));
    QVERIFY(!manager().favoriteTeam.contains("not now"));
    QVERIFY(!manager().defaultTeam.groups.empty());
}

void tst_VOColorSchemeManager::savingDoesNotChangeWhatIsInMemory()
{
    manager().customTeam.groups.push_back(makeGroup("group", {"a", "b"}));
    const VOColorScheme *const first = manager().customTeam.groups[0].schemes.data();
    const QByteArray before = dump(manager().customTeam);
    QVERIFY(manager().save());
    QVERIFY(manager().saveCustomTeam());
    QCOMPARE(manager().customTeam.groups[0].schemes.data(), first);
    QCOMPARE(dump(manager().customTeam), before);
}

void tst_VOColorSchemeManager::anotherDirectoryIsAnotherStore()
{
    manager().customTeam.groups.push_back(makeGroup("first", {}));
    QVERIFY(manager().save());
    VOColorSchemeManager::setStoreDirectory(toVOString(directory->filePath("second")));
    QVERIFY(manager().load());
    QVERIFY(!manager().customTeam.contains("first"));
    manager().customTeam.groups.push_back(makeGroup("second", {}));
    QVERIFY(manager().save());
    VOColorSchemeManager::setStoreDirectory(toVOString(directory->filePath("a/b/store")));
    QVERIFY(manager().load());
    QVERIFY(manager().customTeam.contains("first"));
    QVERIFY(!manager().customTeam.contains("second"));
}

void tst_VOColorSchemeManager::savingToADirectoryThatWasNotLoadedKeepsWhatIsThere()
{
    manager().customTeam.groups.push_back(makeGroup("here", {"a"}));
    QVERIFY(manager().save());
    VOColorSchemeManager::setStoreDirectory(toVOString(directory->filePath("second")));
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    QVERIFY(manager().customTeam.contains("here"));
    manager().customTeam.groups = {makeGroup("there", {"b"})};
    QVERIFY(manager().save());
    VOColorSchemeManager::setStoreDirectory(toVOString(directory->filePath("a/b/store")));
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    QVERIFY(manager().customTeam.contains("here"));
    QVERIFY(manager().customTeam.contains("there"));
}

void tst_VOColorSchemeManager::theDefaultPlaceIsInTheDataFolderOfTheApplication()
{
    // Not in the data folder of who runs this test.
    QStandardPaths::setTestModeEnabled(true);
    const QString place =
        QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/colorschemes";
    QDir(place).removeRecursively();
    VOColorSchemeManager::setStoreDirectory(VOString());
    QVERIFY(manager().load());
    QVERIFY(manager().saveCustomTeam());
    QVERIFY(QFile::exists(place + "/custom.team"));
    QVERIFY(QDir(QFileInfo(place).path()).removeRecursively());
    QStandardPaths::setTestModeEnabled(false);
}

void tst_VOColorSchemeManager::aDirectoryThatCannotBeIsNeitherReadNorWritten()
{
    VOColorSchemeManager::setStoreDirectory(VOString(std::wstring(L"/tmp\0", 5)));
    QVERIFY(!manager().load());
    QVERIFY(manager().defaultTeam.contains("DEM"));
    QVERIFY(!manager().save());
    QVERIFY(!manager().saveCustomTeam());
}

void tst_VOColorSchemeManager::aStoreThatCannotBeWrittenAnswersFalse()
{
    QFile file(directory->filePath("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    VOColorSchemeManager::setStoreDirectory(toVOString(directory->filePath("file")));
    QVERIFY(!manager().save());
    VOColorSchemeManager::setStoreDirectory(toVOString(directory->filePath("file/store")));
    QVERIFY(!manager().save());
    QVERIFY(!manager().saveCustomTeam());
    QCOMPARE(filesIn("."), QStringList({"file"}));
}

void tst_VOColorSchemeManager::resettingBringsTheBuiltInsBack()
{
    const QByteArray builtIn = dump(manager().defaultTeam);
    manager().defaultTeam.groups[0].schemes[0].name = L"edited";
    manager().defaultTeam.groups.erase(manager().defaultTeam.groups.begin() + 1);
    QVERIFY(manager().save());
    manager().resetDefaultTeam();
    QCOMPARE(dump(manager().defaultTeam), builtIn);
    // Until it is saved, the disk has the edited team.
    QVERIFY(manager().load());
    QVERIFY(dump(manager().defaultTeam) != builtIn);
    manager().resetDefaultTeam();
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    QCOMPARE(dump(manager().defaultTeam), builtIn);
}

void tst_VOColorSchemeManager::deletedAndEditedBuiltInsStaySo()
{
    VOColorSchemeTeam &team = manager().defaultTeam;
    team.groups[0].schemes.erase(team.groups[0].schemes.begin());
    team.groups[1].schemes[0].author = L"edited";
    team.groups.pop_back();
    const QByteArray before = dump(team);
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    QCOMPARE(dump(team), before);
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    QCOMPARE(dump(team), before);
}

VT_TEST_GUILESS_MAIN(tst_VOColorSchemeManager)
#include "tst_VOColorSchemeManager.moc"
