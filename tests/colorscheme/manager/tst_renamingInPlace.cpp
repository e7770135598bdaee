#include "tests/support/ManagerUser.h"
#include "tests/support/RenamingTest.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

using VTObjects::VOColorSchemeManager;

/// Names edited in the table of a manager, by mouse and keyboard through the window system.
class tst_renamingInPlace : public RenamingTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void aDoubleClickPutsTheKeyboardIntoTheSelectedName();
    void returnCommitsWhatWasTyped();
    void returnDoesNotPressOk();
    void tabCommitsAndGoesOnToTheAuthor();
    void backtabCommits();
    void aClickElsewhereCommits_data();
    void aClickElsewhereCommits();
    void aClickOnOkCommitsBeforeItAsks();
    void arrowKeysCommit();
    void aToolButtonCommitsBeforeItsCommandRuns();
    void leavingTheWindowCommits();
    void escapeRestoresTheNameAndLeavesOkEnabled();
    void escapeClosesTheFieldAndNotTheManager();
    void theClearButtonIsTypingToo();
    void theKeypadsEnterCommits();
    void aDoubleClickOnTheNextNameCommitsAndEditsThat();
    void theFieldsOwnMenuDoesNotEndTheEditing();
    void aRightClickOnAnotherRowCommits();
};

void tst_renamingInPlace::aDoubleClickPutsTheKeyboardIntoTheSelectedName()
{
    edit(1);
    QVERIFY(editor());
    QCOMPARE(QApplication::focusWidget(), editor()->lineEdit());
    QCOMPARE(editor()->lineEdit()->selectedText(), QStringLiteral("b"));
    QCOMPARE(editor()->data(), QVariant(1));
    QCOMPARE(editor()->geometry(), user->table->visualRect(user->model->index(1, 2)));
    QVERIFY(editor()->lineEdit()->testAttribute(Qt::WA_TranslucentBackground));
}

void tst_renamingInPlace::returnCommitsWhatWasTyped()
{
    edit(1);
    type(QStringLiteral("new"));
    QCOMPARE(user->names().at(1), QStringLiteral("b"));
    press(Qt::Key_Return);
    QVERIFY(!editor());
    QCOMPARE(user->names(), (QStringList{"a", "new", "c", "rename_4"}));
    QVERIFY(user->ok->isEnabled());
    QCOMPARE(QApplication::focusWidget(), user->table);
}

void tst_renamingInPlace::returnDoesNotPressOk()
{
    edit(1);
    type(QStringLiteral("new"));
    press(Qt::Key_Return);
    QVERIFY(manager->isVisible());
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_renamingInPlace::tabCommitsAndGoesOnToTheAuthor()
{
    edit(1);
    type(QStringLiteral("new"));
    press(Qt::Key_Tab);
    QVERIFY(!editor());
    QCOMPARE(user->names().at(1), QStringLiteral("new"));
    QCOMPARE(user->table->currentIndex(), user->model->index(1, 3));
    QVERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget()));
    press(Qt::Key_Escape);
}

void tst_renamingInPlace::backtabCommits()
{
    edit(1);
    type(QStringLiteral("a"));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(!editor());
    QCOMPARE(user->names().at(1), QStringLiteral("rename_5"));
}

void tst_renamingInPlace::aClickElsewhereCommits_data()
{
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("name");
    for (const char *place : {"another row", "same row", "below the rows", "tree"}) {
        QTest::addRow("good name, %s", place) << QString(place) << QString("new") << QString("new");
        QTest::addRow("taken name, %s", place)
            << QString(place) << QString("c") << QString("rename_5");
        QTest::addRow("blanks, %s", place)
            << QString(place) << QString("  ") << QString("rename_5");
    }
}

void tst_renamingInPlace::aClickElsewhereCommits()
{
    QFETCH(QString, place);
    QFETCH(QString, typed);
    edit(1);
    type(typed);
    QSignalSpy information(user->table, &VTColorSchemeView::information);
    if (place == QLatin1String("another row"))
        clickAt(user->table->viewport(), cell(0, 4));
    else if (place == QLatin1String("same row"))
        clickAt(user->table->viewport(), cell(1, 4));
    else if (place == QLatin1String("below the rows"))
        clickAt(user->table->viewport(), cell(3, 2) + QPoint(0, 100));
    else
        clickAt(user->tree->viewport(), user->tree->visualRect(user->node(1, 1)).center());
    QCoreApplication::processEvents();
    QVERIFY(!editor());
    QCOMPARE(information.count(), 1);
    QCOMPARE(information.last().first(), QVariant(true));
    QVERIFY(user->ok->isEnabled());
    if (place == QLatin1String("tree")) {
        QCOMPARE(user->names(), QStringList{"x"});
        QTEST(schemeNames(workingCopy(*manager, 1).groups[0]).at(1), "name");
        clickAt(user->tree->viewport(), user->tree->visualRect(user->node(1, 0)).center());
    }
    QTEST(user->names().at(1), "name");
}

void tst_renamingInPlace::aClickOnOkCommitsBeforeItAsks()
{
    edit(1);
    type(QStringLiteral("new"));
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Yes")));
    clickAt(user->ok, user->ok->rect().center());
    QTRY_VERIFY(!manager->isVisible());
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(schemeNames(VOColorSchemeManager::instance()->customTeam.groups[0]).at(1),
             QStringLiteral("new"));
}

void tst_renamingInPlace::arrowKeysCommit()
{
    edit(1);
    type(QStringLiteral("c"));
    press(Qt::Key_Down);
    QVERIFY(!editor());
    QCOMPARE(user->names().at(1), QStringLiteral("rename_5"));
    QVERIFY(user->ok->isEnabled());
}

void tst_renamingInPlace::aToolButtonCommitsBeforeItsCommandRuns()
{
    edit(1);
    type(QStringLiteral("c"));
    QVERIFY(!user->ok->isEnabled());
    auto *bar = manager->findChild<QToolBar *>(QStringLiteral("toolbar"));
    QWidget *button =
        bar->widgetForAction(manager->findChild<QAction *>(QStringLiteral("actionDelete_scheme")));
    QVERIFY(button);
    QStringList atQuestion;
    ModalDriver driver;
    driver.next([&](QWidget *box) {
        atQuestion = user->names();
        box->close();
    });
    clickAt(button, button->rect().center());
    QTRY_VERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(atQuestion.value(1), QStringLiteral("rename_5"));
    QVERIFY(!editor());
    QVERIFY(user->ok->isEnabled());
}

void tst_renamingInPlace::leavingTheWindowCommits()
{
    edit(1);
    type(QStringLiteral("c"));
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QTRY_VERIFY(!editor());
    QCOMPARE(user->names().at(1), QStringLiteral("rename_5"));
    QVERIFY(user->ok->isEnabled());
}

void tst_renamingInPlace::escapeRestoresTheNameAndLeavesOkEnabled()
{
    for (const char *typed : {"new", "c"}) {
        edit(1);
        type(QLatin1String(typed));
        press(Qt::Key_Escape);
        QVERIFY(!editor());
        QCOMPARE(user->names(), (QStringList{"a", "b", "c", "rename_4"}));
        QVERIFY(user->ok->isEnabled());
        QCOMPARE(QApplication::focusWidget(), user->table);
    }
    // Nothing was modified, so OK does not ask.
    ModalDriver driver;
    clickAt(user->ok, user->ok->rect().center());
    QTRY_VERIFY(!manager->isVisible());
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_renamingInPlace::escapeClosesTheFieldAndNotTheManager()
{
    edit(1);
    press(Qt::Key_Escape);
    QVERIFY(manager->isVisible());
    press(Qt::Key_Escape);
    QTRY_VERIFY(!manager->isVisible());
}

void tst_renamingInPlace::theClearButtonIsTypingToo()
{
    edit(1);
    auto *clear = editor()->lineEdit()->findChild<QToolButton *>();
    QVERIFY(clear);
    clickAt(clear, clear->rect().center());
    QTRY_COMPARE(editor()->lineEdit()->text(), QString());
    QCOMPARE(warning(), QStringLiteral("The name cannot be empty!"));
    QVERIFY(!user->ok->isEnabled());
}

void tst_renamingInPlace::theKeypadsEnterCommits()
{
    edit(1);
    type(QStringLiteral("new"));
    press(Qt::Key_Enter, Qt::KeypadModifier);
    QVERIFY(!editor());
    QCOMPARE(user->names().at(1), QStringLiteral("new"));
    QVERIFY(manager->isVisible());
}

void tst_renamingInPlace::aDoubleClickOnTheNextNameCommitsAndEditsThat()
{
    edit(1);
    type(QStringLiteral("c"));
    edit(2);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(user->names().at(1), QStringLiteral("rename_5"));
    QVERIFY(editor());
    QCOMPARE(editor()->data(), QVariant(2));
    QCOMPARE(editor()->lineEdit()->selectedText(), QStringLiteral("c"));
    QVERIFY(user->ok->isEnabled());
    type(QStringLiteral("a"));
    QVERIFY(!user->ok->isEnabled());
    press(Qt::Key_Escape);
    QVERIFY(user->ok->isEnabled());
}

void tst_renamingInPlace::theFieldsOwnMenuDoesNotEndTheEditing()
{
    edit(1);
    type(QStringLiteral("c"));
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                            editor()->lineEdit()->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(editor()->lineEdit(), &event);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCoreApplication::processEvents();
    QVERIFY(editor());
    QCOMPARE(user->names().at(1), QStringLiteral("b"));
    QTest::keyClick(menu, Qt::Key_Escape);
    QCoreApplication::processEvents();
    QVERIFY(editor());
    QCOMPARE(QApplication::focusWidget(), editor()->lineEdit());
    QCOMPARE(user->names().at(1), QStringLiteral("b"));
    QCOMPARE(editor()->lineEdit()->text(), QStringLiteral("c"));
    QVERIFY(!user->ok->isEnabled());
    press(Qt::Key_Return);
    QCOMPARE(user->names().at(1), QStringLiteral("rename_5"));
}

void tst_renamingInPlace::aRightClickOnAnotherRowCommits()
{
    edit(1);
    type(QStringLiteral("c"));
    QTest::mouseClick(window, Qt::RightButton, Qt::NoModifier,
                      user->table->viewport()->mapTo(manager.get(), cell(0, 4)));
    QCoreApplication::processEvents();
    QVERIFY(!editor());
    QCOMPARE(user->names().at(1), QStringLiteral("rename_5"));
    QVERIFY(user->ok->isEnabled());
    if (QWidget *menu = QApplication::activePopupWidget())
        menu->close();
}

VT_TEST_MAIN(tst_renamingInPlace)
#include "tst_renamingInPlace.moc"
