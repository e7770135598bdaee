#include "tests/support/ManagerUser.h"
#include "tests/support/RenamingTest.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using VTObjects::VOColorSchemeManager;

/// Names edited in the table of a manager, by mouse and keyboard through the window system.
class tst_renamingInPlace_survival : public RenamingTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void aResetUnderTheFieldIsSurvived();
    void aRemovedRowUnderTheFieldIsSurvived();
    void theTreeUnderTheFieldCanLoseItsGroup();
    void theManagerUnderTheFieldCanGo();
    void theEndOfNamingIsToldOnce_data();
    void theEndOfNamingIsToldOnce();
    void aFieldThatStaysOpenGoesOnTelling();
    void theTableUnderTheFieldCanGo();
};

void tst_renamingInPlace_survival::aResetUnderTheFieldIsSurvived()
{
    edit(3);
    type(QStringLiteral("c"));
    QVERIFY(!user->ok->isEnabled());
    user->table->setGroup(1, 1, makeGroup("Other", {"x"}));
    QCoreApplication::processEvents();
    QVERIFY(!editor());
    QCOMPARE(user->names(), QStringList{"x"});
    QVERIFY(user->ok->isEnabled());
}

void tst_renamingInPlace_survival::aRemovedRowUnderTheFieldIsSurvived()
{
    edit(3);
    type(QStringLiteral("c"));
    user->model->removeScheme(3, QModelIndex());
    QCoreApplication::processEvents();
    QVERIFY(!editor());
    QCOMPARE(user->names(), (QStringList{"a", "b", "c"}));
    QVERIFY(user->ok->isEnabled());
}

void tst_renamingInPlace_survival::theTreeUnderTheFieldCanLoseItsGroup()
{
    edit(3);
    type(QStringLiteral("c"));
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Delete")));
    user->command("actionDelete_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!editor());
    QCOMPARE(user->groups(1), QStringList{"Other"});
    QVERIFY(user->ok->isEnabled());
}

void tst_renamingInPlace_survival::theManagerUnderTheFieldCanGo()
{
    edit(1);
    type(QStringLiteral("c"));
    user.reset();
    manager.reset();
    QCOMPARE(schemeNames(VOColorSchemeManager::instance()->customTeam.groups[0]),
             (QStringList{"a", "b", "c", "rename_4"}));
    // The next manager starts without changes.
    VTColorSchemeManager next;
    ModalDriver driver;
    QMetaObject::invokeMethod(&next, "onOk");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(next.result(), int(QDialog::Accepted));
}

void tst_renamingInPlace_survival::theEndOfNamingIsToldOnce_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("key");
    for (const char *typed : {"new", "c", "  ", ""}) {
        QTest::addRow("Return after '%s'", typed) << QString(typed) << int(Qt::Key_Return);
        QTest::addRow("Tab after '%s'", typed) << QString(typed) << int(Qt::Key_Tab);
        QTest::addRow("Escape after '%s'", typed) << QString(typed) << int(Qt::Key_Escape);
        QTest::addRow("arrow after '%s'", typed) << QString(typed) << int(Qt::Key_Down);
        QTest::addRow("a new list after '%s'", typed) << QString(typed) << 0;
    }
}

void tst_renamingInPlace_survival::theEndOfNamingIsToldOnce()
{
    QFETCH(QString, typed);
    QFETCH(int, key);
    edit(1);
    if (!typed.isEmpty())
        type(typed);
    QSignalSpy information(user->table, &VTColorSchemeView::information);
    if (key != 0)
        press(static_cast<Qt::Key>(key));
    else
        user->table->setGroup(1, 0, makeGroup("g", {"other"}));
    QCoreApplication::processEvents();
    if (key == Qt::Key_Tab && editor()) {
        // The next name is named now; nothing more is told of the one before.
        QCOMPARE(information.count(), 1);
        press(Qt::Key_Escape);
        return;
    }
    QVERIFY(!editor());
    QCOMPARE(information.count(), 1);
    QCOMPARE(information.last().first(), QVariant(true));
}

// A persistent one is not closed by what closes others.
void tst_renamingInPlace_survival::aFieldThatStaysOpenGoesOnTelling()
{
    VTColorSchemeView table;
    table.setGroup(1, 0, makeGroup("g", {"a", "b"}));
    table.openPersistentEditor(table.schemeModel()->index(1, 2));
    auto *field = table.findChild<VTLineEditWidget *>();
    QVERIFY(field);
    QSignalSpy information(&table, &VTColorSchemeView::information);
    for (const char *name : {"first", "second", "a"}) {
        const bool isTaken = qstrcmp(name, "a") == 0;
        field->lineEdit()->selectAll();
        QTest::keyClicks(field->lineEdit(), QString::fromLatin1(name));
        QCOMPARE(information.last().first(), QVariant(!isTaken));
        information.clear();
        QTest::keyClick(field->lineEdit(), Qt::Key_Return);
        QCoreApplication::processEvents();
        QCOMPARE(information.count(), 1);
        QCOMPARE(information.last().first(), QVariant(true));
        QCOMPARE(schemeNames(table.schemeModel()->group()).last(),
                 QString::fromLatin1(isTaken ? "rename_1" : name));
    }
}

void tst_renamingInPlace_survival::theTableUnderTheFieldCanGo()
{
    auto table = std::make_unique<VTColorSchemeView>(nullptr);
    table->setGroup(1, 0, makeGroup("g", {"a", "b"}));
    table->show();
    table->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(table.get()));
    table->edit(table->schemeModel()->index(0, 2));
    auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    QVERIFY(field);
    QTest::keyClicks(field, QStringLiteral("b"));
    QSignalSpy information(table.get(), &VTColorSchemeView::information);
    table.reset();
    QVERIFY(information.isEmpty());
    QVERIFY(!QApplication::focusWidget());
}

VT_TEST_MAIN(tst_renamingInPlace_survival)
#include "tst_renamingInPlace_survival.moc"
