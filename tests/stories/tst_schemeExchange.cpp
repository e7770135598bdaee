#include "tests/support/ManagerAtWork.h"
#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace VTObjects;

/// Two people with a store each; one sends files to the other.
class tst_schemeExchange : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void exportedSchemesOfEveryKindArriveUnchanged();
};

void tst_schemeExchange::exportedSchemesOfEveryKindArriveUnchanged()
{
    const QTemporaryDir post;
    QVERIFY(post.isValid());
    // Given schemes of all kinds, with texts and colours that files have trouble with
    auto store = std::make_unique<TestStore>();
    auto *records = VOColorSchemeManager::instance();
    VOColorSchemeGroup sent = makeGroup(QStringLiteral("Sent"), {});
    SchemeSamples samples(20);
    for (const auto kind : {VOColorRamp::RandomRamp, VOColorRamp::RandomHsvRamp,
                            VOColorRamp::EvenRamp, VOColorRamp::PredefineRamp}) {
        for (int i = 0; i < 5; ++i) {
            VOColorScheme scheme = samples.scheme(kind);
            scheme.name = toVOString(QStringLiteral("Kind %1, no. %2 %3")
                                         .arg(int(kind))
                                         .arg(i)
                                         .arg(QStringLiteral("äß中😀")));
            sent.schemes.push_back(scheme);
        }
    }
    const int count = int(sent.schemes.size());
    records->customTeam.groups = {sent};
    // When one user exports them
    {
        ManagerAtWork work;
        work.show(1, 0);
        work.command("actionSelect_all");
        work.command("actionExport_scheme", {choose({post.path()}), pressText("OK")});
        work.finish(work.user.ok); // nothing to save
    }
    const QFileInfoList files = QDir(post.path()).entryInfoList(QDir::Files, QDir::Name);
    QCOMPARE(files.size(), count);
    // and another one imports them into a group of the same scheme names
    store.reset();
    store = std::make_unique<TestStore>();
    QVERIFY(records->customTeam.groups.empty());
    records->customTeam.groups = {makeGroup(QStringLiteral("Received"), {})};
    QStringList paths;
    for (const QFileInfo &file : files)
        paths.append(file.filePath());
    {
        ManagerAtWork work;
        work.show(1, 0);
        work.command("actionImport_scheme", {choose(paths)});
        QCOMPARE(work.user.names().size(), count);
        work.finish(work.user.ok, {pressText("Yes")});
    }
    // Then every field is the same, in memory and for every other process.
    const VOColorSchemeGroup &received = records->customTeam.groups.at(0);
    QCOMPARE(received.schemes.size(), sent.schemes.size());
    for (std::size_t i = 0; i < sent.schemes.size(); ++i)
        QCOMPARE(dump(received.schemes[i]), dump(sent.schemes[i]));
    VOColorSchemeTeam expected = records->customTeam;
    expected.groups[0].schemes = sent.schemes;
    QVERIFY(dumpByAnotherProcess(store->storeDirectory()) ==
            dumpOfRecords(records->defaultTeam, expected, records->favoriteTeam));
}

VT_TEST_MAIN(tst_schemeExchange)
#include "tst_schemeExchange.moc"
