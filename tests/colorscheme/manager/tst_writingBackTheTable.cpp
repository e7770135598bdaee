#include "tests/support/ManagerUser.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"

#include <QtTest>

#include <memory>

using VTObjects::VOColorSchemeManager;

/// When the table's copy of a group gets into the working copy. An editor for a new scheme that was
/// left by Escape shows it: it leaves its scheme in the table and marks nothing as modified.
class tst_writingBackTheTable : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void aClickKeepsNothingAsLongAsNothingWasModified();
    void aClickKeepsTheTableOnceAnythingWasModified();
    void deletingAGroupMarksOnlyAfterTheNextOneIsShown();

private:
    QStringList shownGroupsCopy() const { return schemeNames(workingCopy(*manager, 1).groups[0]); }

    std::unique_ptr<TestStore> store;
    std::unique_ptr<VTColorSchemeManager> manager;
    std::unique_ptr<ManagerUser> user;
};

void tst_writingBackTheTable::init()
{
    store = std::make_unique<TestStore>();
    auto *records = VOColorSchemeManager::instance();
    records->customTeam.groups = {makeGroup("First", {"a"}), makeGroup("Second", {"b"}),
                                  makeGroup("Third", {"c"})};
    manager = std::make_unique<VTColorSchemeManager>();
    user = std::make_unique<ManagerUser>(*manager);
    manager->show();
    QVERIFY(QTest::qWaitForWindowExposed(manager.get()));
    user->click(1, 0);
    ModalDriver driver;
    driver.next([](QWidget *editor) { QTest::keyClick(editor, Qt::Key_Escape); });
    user->command("actionAdd_scheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->names(), (QStringList{"a", "add_scheme1"}));
}

void tst_writingBackTheTable::cleanup()
{
    user.reset();
    manager.reset();
    store.reset();
}

void tst_writingBackTheTable::aClickKeepsNothingAsLongAsNothingWasModified()
{
    user->click(1, 1);
    QCOMPARE(shownGroupsCopy(), QStringList{"a"});
    user->click(1, 0);
    QCOMPARE(user->names(), QStringList{"a"});
}

void tst_writingBackTheTable::aClickKeepsTheTableOnceAnythingWasModified()
{
    // Of whatever group: the flag is one for all.
    ModalDriver driver;
    driver.next(pressNamed(QStringLiteral("pushButton_ok")));
    user->command("actionAdd_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(shownGroupsCopy(), QStringList{"a"});
    user->click(1, 1);
    QCOMPARE(shownGroupsCopy(), (QStringList{"a", "add_scheme1"}));
}

void tst_writingBackTheTable::deletingAGroupMarksOnlyAfterTheNextOneIsShown()
{
    // The tree's current node is another group than the shown one.
    user->tree->setCurrentIndex(user->node(1, 2));
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Delete")));
    user->command("actionDelete_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(user->groups(1), (QStringList{"First", "Second"}));
    QCOMPARE(shownGroupsCopy(), QStringList{"a"});
    // It does mark.
    driver.next(pressText(QStringLiteral("Cancel")));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

VT_TEST_MAIN(tst_writingBackTheTable)
#include "tst_writingBackTheTable.moc"
