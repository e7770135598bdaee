#include "tests/support/ChildProcess.h"
#include "tests/support/SchemeSamples.h"
#include "tests/support/StoreFixture.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/toString.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOColorSchemeNotifier.h"
#include "vomap/VOStringConversion.h"
#include "vomap/files/fileSystem_p.h"

#include <QDir>
#include <QObject>
#include <QSignalSpy>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <set>

using namespace VTObjects;

// What one process saves, the other one shows after reloadIfChanged().
class tst_storeReload : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void whatAnotherProcessSavedAppears();
    void ourOwnSaveIsNoChange();
    void theStampOfAFileTellsThatItWasWritten();
    void whatIsNotSavedHereStays();
    void aDeletionThereIsOneHere();
    void aDeletionHereStaysOne();
    void whatASaveMergedAppears();
    void theFirstStoreOfAnotherProcessAppears();
    void aDamagedFileTakesNothingAway();
    void aStoreThatIsGoneTakesNothingAway();
    void anotherDirectoryIsNoChange();
    void nothingIsTakenOverWhileItIsHeld();
    void randomEditsOfTwoProcessesLoseNothing();

private:
    VOColorSchemeManager &manager() { return *VOColorSchemeManager::instance(); }
    VOColorSchemeGroup &group() { return manager().customTeam.groups[0]; }
    // Another process does this to the custom team, as the store has it, and saves.
    void elsewhere(const std::function<void(VOColorSchemeGroup &)> &edit);

    std::unique_ptr<StoreFixture> store;
};

void tst_storeReload::init()
{
    store = std::make_unique<StoreFixture>(StoreFixture::InMemory);
    StoreFixture::setCustomTeam("1", 3);
    QVERIFY(manager().save());
}

void tst_storeReload::cleanup()
{
    manager().clearProblems();
    store.reset();
}

void tst_storeReload::elsewhere(const std::function<void(VOColorSchemeGroup &)> &edit)
{
    ChildProcess other([&] {
        if (!manager().load())
            return 1;
        edit(group());
        return manager().save() ? 0 : 2;
    });
    QCOMPARE(other.wait(), 0);
}

void tst_storeReload::whatAnotherProcessSavedAppears()
{
    QSignalSpy changed(VOColorSchemeNotifier::instance(), &VOColorSchemeNotifier::storeChanged);
    elsewhere([](VOColorSchemeGroup &group) { group.schemes.push_back(makeScheme("theirs")); });
    QVERIFY(manager().reloadIfChanged());
    QCOMPARE(schemeNames(group()), QStringList({"scheme0", "scheme1", "scheme2", "theirs"}));
    QCOMPARE(changed.count(), 1);
    QVERIFY(!manager().reloadIfChanged());
    QCOMPARE(changed.count(), 1);
    // Even where the other one put the order.
    elsewhere([](VOColorSchemeGroup &group) { std::swap(group.schemes[0], group.schemes[3]); });
    QVERIFY(manager().reloadIfChanged());
    QCOMPARE(schemeNames(group()), QStringList({"theirs", "scheme1", "scheme2", "scheme0"}));
    QVERIFY(manager().problems().empty());
}

void tst_storeReload::ourOwnSaveIsNoChange()
{
    QVERIFY(!manager().reloadIfChanged());
    group().schemes.push_back(makeScheme("mine"));
    QVERIFY(manager().save());
    const VOColorScheme *first = group().schemes.data();
    QVERIFY(!manager().reloadIfChanged());
    QCOMPARE(group().schemes.data(), first);
    QVERIFY(manager().load());
    QVERIFY(!manager().reloadIfChanged());
    // The same bytes written again are no change either.
    store->setFiles(store->files());
    QVERIFY(!manager().reloadIfChanged());
}

void tst_storeReload::theStampOfAFileTellsThatItWasWritten()
{
    const std::string path = store->path("custom.team").toStdString();
    const auto setAge = [this](int seconds) {
        QFile file(store->path("custom.team"));
        return file.open(QIODevice::ReadWrite) &&
               file.setFileTime(QDateTime::currentDateTime().addSecs(-seconds),
                                QFileDevice::FileModificationTime);
    };
    // Long enough ago for any clock.
    QVERIFY(setAge(3600));
    const FileStamp before = stampOf(path);
    QVERIFY(before.isSettled);
    QVERIFY(stampOf(path) == before);
    QVERIFY(setAge(1800));
    QVERIFY(!(stampOf(path) == before));
    QVERIFY(!stampOf(path + "-missing").exists);
    QVERIFY(!(stampOf(path + "-missing") == before));
    // One that was written just now may be written again without another stamp.
    QVERIFY(setAge(0));
    QVERIFY(!stampOf(path).isSettled);
}

void tst_storeReload::whatIsNotSavedHereStays()
{
    group().schemes.push_back(makeScheme("mine"));
    group().schemes[0].author = L"edited here";
    elsewhere([](VOColorSchemeGroup &group) {
        group.schemes.push_back(makeScheme("theirs"));
        group.schemes[1].author = L"edited there";
    });
    QVERIFY(manager().reloadIfChanged());
    QCOMPARE(schemeNames(group()),
             QStringList({"scheme0", "scheme1", "scheme2", "mine", "theirs"}));
    QCOMPARE(group().schemes[0].author, L"edited here");
    QCOMPARE(group().schemes[1].author, L"edited there");
    // It is still not saved, and then is.
    elsewhere([](VOColorSchemeGroup &group) {
        if (group.contains("mine"))
            group.schemes.clear();
    });
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    QCOMPARE(schemeNames(group()),
             QStringList({"scheme0", "scheme1", "scheme2", "mine", "theirs"}));
}

void tst_storeReload::aDeletionThereIsOneHere()
{
    elsewhere([](VOColorSchemeGroup &group) { group.schemes.erase(group.schemes.begin()); });
    group().schemes.push_back(makeScheme("mine"));
    QVERIFY(manager().reloadIfChanged());
    QCOMPARE(schemeNames(group()), QStringList({"scheme1", "scheme2", "mine"}));
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    QCOMPARE(schemeNames(group()), QStringList({"scheme1", "scheme2", "mine"}));
}

void tst_storeReload::aDeletionHereStaysOne()
{
    group().schemes.erase(group().schemes.begin());
    elsewhere([](VOColorSchemeGroup &group) { group.schemes.push_back(makeScheme("theirs")); });
    QVERIFY(manager().reloadIfChanged());
    QCOMPARE(schemeNames(group()), QStringList({"scheme1", "scheme2", "theirs"}));
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    QCOMPARE(schemeNames(group()), QStringList({"scheme1", "scheme2", "theirs"}));
}

void tst_storeReload::whatASaveMergedAppears()
{
    elsewhere([](VOColorSchemeGroup &group) { group.schemes.push_back(makeScheme("theirs")); });
    group().schemes.push_back(makeScheme("mine"));
    QVERIFY(manager().save());
    QVERIFY(!group().contains("theirs"));
    QVERIFY(manager().reloadIfChanged());
    QCOMPARE(schemeNames(group()),
             QStringList({"scheme0", "scheme1", "scheme2", "mine", "theirs"}));
    QVERIFY(!manager().reloadIfChanged());
}

void tst_storeReload::theFirstStoreOfAnotherProcessAppears()
{
    // Both begin where nothing was saved; the other one deletes a built-in scheme and saves.
    VOColorSchemeManager::setStoreDirectory(toVOString(store->path("new")));
    QVERIFY(manager().load());
    const VOString deleted = manager().defaultTeam.groups[0].schemes[0].name;
    manager().defaultTeam.groups[0].schemes[1].author = L"edited here";
    ChildProcess other([&] {
        std::vector<VOColorScheme> &schemes = manager().defaultTeam.groups[0].schemes;
        schemes.erase(schemes.begin());
        manager().customTeam.groups = {makeGroup("theirs", {"a"})};
        return manager().save() ? 0 : 1;
    });
    QCOMPARE(other.wait(), 0);
    QVERIFY(manager().reloadIfChanged());
    QVERIFY(manager().customTeam.contains("theirs"));
    QVERIFY(!manager().defaultTeam.groups[0].contains(deleted));
    QCOMPARE(manager().defaultTeam.groups[0].schemes[0].author, L"edited here");
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    QVERIFY(!manager().defaultTeam.groups[0].contains(deleted));
}

void tst_storeReload::aDamagedFileTakesNothingAway()
{
    group().schemes.push_back(makeScheme("mine"));
    const QByteArray before = dump(manager().customTeam);
    StoreFixture::Files files = store->files();
    files["custom.team"] = "garbage";
    store->setFiles(files);
    for (int i = 0; i < 2; ++i) {
        QVERIFY(!manager().reloadIfChanged());
        QCOMPARE(dump(manager().customTeam), before);
        QCOMPARE(manager().problems().size(), std::size_t(1));
        QCOMPARE(manager().problems()[0].kind, VOStoreProblem::Damaged);
        QCOMPARE(manager().problems()[0].path, QString());
    }
    QCOMPARE(store->files(), files); // only a save touches files
    QVERIFY(manager().save());
    QCOMPARE(store->files().value("damaged/custom.team.1"), QByteArray("garbage"));
}

void tst_storeReload::aStoreThatIsGoneTakesNothingAway()
{
    const QByteArray before = dump(manager().customTeam);
    QVERIFY(QDir(store->path()).removeRecursively());
    QVERIFY(!manager().reloadIfChanged());
    QCOMPARE(dump(manager().customTeam), before);
    QVERIFY(manager().save());
    QVERIFY(manager().load());
    QCOMPARE(dump(manager().customTeam), before);
}

void tst_storeReload::anotherDirectoryIsNoChange()
{
    const QByteArray before = dump(manager().customTeam);
    ChildProcess other([this] {
        VOColorSchemeManager::setStoreDirectory(toVOString(store->path("other")));
        return manager().load() && manager().save() ? 0 : 1;
    });
    QCOMPARE(other.wait(), 0);
    VOColorSchemeManager::setStoreDirectory(toVOString(store->path("other")));
    QVERIFY(!manager().reloadIfChanged());
    QCOMPARE(dump(manager().customTeam), before);
}

void tst_storeReload::nothingIsTakenOverWhileItIsHeld()
{
    elsewhere([](VOColorSchemeGroup &group) { group.schemes.push_back(makeScheme("theirs")); });
    {
        const VOColorSchemeManager::Hold editing;
        const VOColorSchemeManager::Hold another;
        QVERIFY(!manager().reloadIfChanged());
    }
    QVERIFY(manager().reloadIfChanged());
    QVERIFY(group().contains("theirs"));
}

// Each side adds, changes and deletes schemes of its own at random, saves and reloads now and then.
// In the end there is what either has.
void tst_storeReload::randomEditsOfTwoProcessesLoseNothing()
{
    constexpr int edits = 1000;
    manager().customTeam.groups = {makeGroup("one", {}), makeGroup("two", {}),
                                   makeGroup("three", {})};
    QVERIFY(manager().save());
    Signal steps[2];
    const auto editor = [&](unsigned int side) {
        std::mt19937 random(side);
        std::set<std::pair<int, QString>> own;
        const auto nameOf = [&](int number) { return QString("%1-%2").arg(side).arg(number); };
        const auto place = [&](const std::pair<int, QString> &scheme) {
            std::vector<VOColorScheme> &schemes =
                manager().customTeam.groups[std::size_t(scheme.first)].schemes;
            return std::find_if(schemes.begin(), schemes.end(), [&](const VOColorScheme &each) {
                return each.name == toVOString(scheme.second);
            });
        };
        int lost = 0;
        int news = 0;
        for (int edit = 0; edit < edits; ++edit) {
            // Neither runs away from the other.
            if (edit % 10 == 0) {
                steps[side - 1].give();
                if (!steps[2 - side].await())
                    return 102;
            }
            const unsigned int what = random() % 10;
            if (what < 5 || own.empty()) {
                const int at = int(random() % 3);
                manager().customTeam.groups[std::size_t(at)].schemes.push_back(
                    makeScheme(nameOf(edit)));
                own.insert({at, nameOf(edit)});
            } else {
                auto chosen = own.begin();
                std::advance(chosen, random() % own.size());
                std::vector<VOColorScheme> &schemes =
                    manager().customTeam.groups[std::size_t(chosen->first)].schemes;
                const auto scheme = place(*chosen);
                if (scheme == schemes.end()) {
                    ++lost;
                    own.erase(chosen);
                } else if (what < 7) {
                    schemes.erase(scheme);
                    own.erase(chosen);
                } else if (what < 9) {
                    scheme->author = toVOString(QString::number(edit));
                } else {
                    scheme->name = toVOString(nameOf(edit));
                    own.insert({chosen->first, nameOf(edit)});
                    own.erase(chosen);
                }
            }
            if (random() % 7 == 0)
                manager().saveCustomTeam();
            if (random() % 5 == 0 && manager().reloadIfChanged())
                ++news;
        }
        while (!manager().saveCustomTeam()) {
        }
        // What is left to see at the end.
        QFile list(store->path("../" + QString::number(side)));
        if (!list.open(QIODevice::WriteOnly))
            return 100;
        for (const auto &[at, name] : own)
            list.write(QByteArray::number(at) + ' ' + name.toUtf8() + '\n');
        return news == 0 ? 101 : std::min(lost, 99);
    };
    ChildProcess one([&] { return editor(1); });
    ChildProcess two([&] { return editor(2); });
    QCOMPARE(one.wait(), 0);
    QCOMPARE(two.wait(), 0);
    QStringList expected;
    for (const char *side : {"../1", "../2"}) {
        QFile list(store->path(side));
        QVERIFY(list.open(QIODevice::ReadOnly));
        expected += QString::fromUtf8(list.readAll()).split('\n', Qt::SkipEmptyParts);
    }
    manager().reloadIfChanged();
    QStringList found;
    for (int at = 0; at < 3; ++at) {
        for (const QString &name : schemeNames(manager().customTeam.groups[std::size_t(at)]))
            found.append(QString::number(at) + ' ' + name);
    }
    expected.sort();
    found.sort();
    qInfo("2 processes with %d edits each: %d schemes in the end", edits, found.size());
    QVERIFY(expected.size() > 200);
    QCOMPARE(found, expected);
    QVERIFY(manager().problems().empty());
}

VT_TEST_GUILESS_MAIN(tst_storeReload)
#include "tst_storeReload.moc"
