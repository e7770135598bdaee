#include "colorscheme/manager/VTLineEditWidget.h"
#include "tests/colorscheme/manager/ManagerUser.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QSignalSpy>
#include <QToolBar>
#include <QToolButton>
#include <QWindow>
#include <QtTest>

#include <memory>

using VTObjects::VOColorSchemeManager;

namespace {

// The toolkit's table complains when it is told of an editor that it no longer has.
int complaints = 0;

void countComplaints(QtMsgType /*type*/, const QMessageLogContext & /*context*/,
                     const QString &message)
{
    if (message.startsWith(QLatin1String("QAbstractItemView")))
        ++complaints;
}

} // namespace

/// Names edited in the table of a manager, by mouse and keyboard through the window system.
class tst_renamingInPlace : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

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
    void theIconTellsWhyANameCannotBeTaken_data();
    void theIconTellsWhyANameCannotBeTaken();
    void aBadNameBecomesAGeneratedOne_data();
    void aBadNameBecomesAGeneratedOne();
    void theOwnNameIsNoClash();
    void blanksAroundANameAreKeptButDoNotCount();
    void theCellBehindTheFieldDoesNotShine();
    void authorAndDescriptionTakeAnyText();
    void aResetUnderTheFieldIsSurvived();
    void aRemovedRowUnderTheFieldIsSurvived();
    void theTreeUnderTheFieldCanLoseItsGroup();
    void theManagerUnderTheFieldCanGo();
    void theTableUnderTheFieldCanGo();
    void theClearButtonIsTypingToo();
    void theKeypadsEnterCommits();
    void aDoubleClickOnTheNextNameCommitsAndEditsThat();
    void theFieldsOwnMenuDoesNotEndTheEditing();
    void aRightClickOnAnotherRowCommits();

private:
    QPoint cell(int row, int column) const;
    void clickAt(QWidget *widget, const QPoint &place);
    void edit(int row, int column = 2);
    void type(const QString &text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    VTLineEditWidget *editor() const;
    QString warning() const;

    std::unique_ptr<TestStore> store;
    std::unique_ptr<VTColorSchemeManager> manager;
    std::unique_ptr<ManagerUser> user;
    QWindow *window = nullptr;
};

void tst_renamingInPlace::init()
{
    complaints = 0;
    qInstallMessageHandler(countComplaints);
    store = std::make_unique<TestStore>();
    auto &groups = VOColorSchemeManager::instance()->customTeam.groups;
    groups.push_back(makeGroup("Mine", {"a", "b", "c", "rename_4"}));
    groups.push_back(makeGroup("Other", {"x"}));
    manager = std::make_unique<VTColorSchemeManager>();
    user = std::make_unique<ManagerUser>(*manager);
    manager->show();
    manager->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(manager.get()));
    window = manager->windowHandle();
    user->click(1, 0);
    QCOMPARE(user->names(), (QStringList{"a", "b", "c", "rename_4"}));
}

void tst_renamingInPlace::cleanup()
{
    user.reset();
    manager.reset();
    store.reset();
    qInstallMessageHandler(nullptr);
    QCOMPARE(complaints, 0);
}

QPoint tst_renamingInPlace::cell(int row, int column) const
{
    return user->table->visualRect(user->model->index(row, column)).center();
}

void tst_renamingInPlace::clickAt(QWidget *widget, const QPoint &place)
{
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, widget->mapTo(manager.get(), place));
}

void tst_renamingInPlace::edit(int row, int column)
{
    QTest::mouseDClick(window, Qt::LeftButton, Qt::NoModifier,
                       user->table->viewport()->mapTo(manager.get(), cell(row, column)));
    QTRY_VERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget()));
}

void tst_renamingInPlace::type(const QString &text)
{
    for (const QChar &character : text)
        QTest::keyClick(window, character.toLatin1());
}

void tst_renamingInPlace::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(window, key, modifiers);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

VTLineEditWidget *tst_renamingInPlace::editor() const
{
    auto *widget = user->table->viewport()->findChild<VTLineEditWidget *>();
    return widget && !widget->isHidden() ? widget : nullptr;
}

QString tst_renamingInPlace::warning() const
{
    auto *icon = editor()->findChild<QLabel *>(QStringLiteral("label"));
    return icon->isHidden() ? QString() : icon->toolTip();
}

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
    QVERIFY(!information.isEmpty());
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

void tst_renamingInPlace::theIconTellsWhyANameCannotBeTaken_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << QString() << QString("The name cannot be empty!");
    QTest::newRow("taken") << QString("c") << QString("The name already exists!");
    QTest::newRow("taken but for blanks") << QString(" c ") << QString("The name already exists!");
    QTest::newRow("blanks only") << QString("  ") << QString();
    QTest::newRow("its own") << QString("b") << QString();
    QTest::newRow("free") << QString("new") << QString();
}

void tst_renamingInPlace::theIconTellsWhyANameCannotBeTaken()
{
    QFETCH(QString, typed);
    QFETCH(QString, reason);
    edit(1);
    type(QStringLiteral("zz"));
    QCOMPARE(warning(), QString());
    QVERIFY(user->ok->isEnabled());
    press(Qt::Key_Backspace);
    press(Qt::Key_Backspace);
    QCOMPARE(warning(), QStringLiteral("The name cannot be empty!"));
    QVERIFY(!user->ok->isEnabled());
    type(typed);
    QCOMPARE(warning(), reason);
    QCOMPARE(user->ok->isEnabled(), reason.isEmpty());
    QCOMPARE(user->names().at(1), QStringLiteral("b"));
}

void tst_renamingInPlace::aBadNameBecomesAGeneratedOne_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("nothing") << QString();
    QTest::newRow("taken") << QString("a");
    QTest::newRow("blanks") << QString("   ");
    QTest::newRow("taken but for blanks") << QString("  c");
}

void tst_renamingInPlace::aBadNameBecomesAGeneratedOne()
{
    QFETCH(QString, typed);
    edit(1);
    press(Qt::Key_Backspace);
    type(typed);
    press(Qt::Key_Return);
    QCOMPARE(user->names(), (QStringList{"a", "rename_5", "c", "rename_4"}));
    QVERIFY(user->ok->isEnabled());
    // The row's own name does not count among the taken ones.
    edit(3);
    type(QStringLiteral("a"));
    press(Qt::Key_Return);
    QCOMPARE(user->names().at(3), QStringLiteral("rename_6"));
    edit(1);
    type(QStringLiteral("plain"));
    press(Qt::Key_Return);
    edit(3);
    type(QStringLiteral("a"));
    press(Qt::Key_Return);
    QCOMPARE(user->names().at(3), QStringLiteral("rename_1"));
}

void tst_renamingInPlace::theOwnNameIsNoClash()
{
    edit(1);
    type(QStringLiteral("b"));
    QVERIFY(user->ok->isEnabled());
    press(Qt::Key_Return);
    QCOMPARE(user->names().at(1), QStringLiteral("b"));
}

void tst_renamingInPlace::blanksAroundANameAreKeptButDoNotCount()
{
    edit(1);
    type(QStringLiteral(" new "));
    press(Qt::Key_Return);
    QCOMPARE(user->names().at(1), QStringLiteral(" new "));
}

void tst_renamingInPlace::theCellBehindTheFieldDoesNotShine()
{
    edit(1);
    type(QStringLiteral("c"));
    const QImage picture = editor()->grab().toImage();
    QVERIFY(editor()->autoFillBackground());
    // Beside the icon lies the field's own ground and not the selected row.
    QCOMPARE(picture.pixelColor(picture.width() - 1, 1), editor()->palette().color(QPalette::Base));
}

void tst_renamingInPlace::authorAndDescriptionTakeAnyText()
{
    edit(1, 3);
    QVERIFY(!editor());
    press(Qt::Key_Delete);
    press(Qt::Key_Return);
    edit(1, 4);
    type(QStringLiteral(" text "));
    press(Qt::Key_Return);
    QCOMPARE(user->model->index(1, 3).data().toString(), QString());
    QCOMPARE(user->model->index(1, 4).data().toString(), QStringLiteral(" text "));
}

void tst_renamingInPlace::aResetUnderTheFieldIsSurvived()
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

void tst_renamingInPlace::aRemovedRowUnderTheFieldIsSurvived()
{
    edit(3);
    type(QStringLiteral("c"));
    user->model->removeScheme(3, QModelIndex());
    QCoreApplication::processEvents();
    QVERIFY(!editor());
    QCOMPARE(user->names(), (QStringList{"a", "b", "c"}));
    QVERIFY(user->ok->isEnabled());
}

void tst_renamingInPlace::theTreeUnderTheFieldCanLoseItsGroup()
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

void tst_renamingInPlace::theManagerUnderTheFieldCanGo()
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

void tst_renamingInPlace::theTableUnderTheFieldCanGo()
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

QTEST_MAIN(tst_renamingInPlace)
#include "tst_renamingInPlace.moc"
