#include "colorscheme/manager/WorkingCopies_p.h"
#include "tests/support/RealInput.h"
#include "tests/support/RenamingTest.h"
#include "tests/support/TestMain.h"
#include "vomap/VOStringConversion.h"

#include <QLineEdit>
#include <QTextDocument>
#include <QToolTip>
#include <QtTest>

using vtcontrolcolorscheme::WorkingCopies;
using VTObjects::toQString;

/// Names edited in the table of a manager, by mouse and keyboard through the window system.
class tst_renamingInPlace_names : public RenamingTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void theIconTellsWhyANameCannotBeTaken_data();
    void theIconTellsWhyANameCannotBeTaken();
    void aBadNameBecomesAGeneratedOne_data();
    void aBadNameBecomesAGeneratedOne();
    void theOwnNameIsNoClash();
    void anUnchangedTextIsNoChange_data();
    void anUnchangedTextIsNoChange();
    void aNameThatIsTypedBackIsNoChange();
    void aFieldOfADeletedGroupsQuestionChangesNothing();
    void blanksAroundANameAreKeptButDoNotCount();
    void aCutNameIsShownWholeUnderThePointer();
    void theCellBehindTheFieldDoesNotShine();
    void authorAndDescriptionTakeAnyText();
};

void tst_renamingInPlace_names::theIconTellsWhyANameCannotBeTaken_data()
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

void tst_renamingInPlace_names::theIconTellsWhyANameCannotBeTaken()
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

void tst_renamingInPlace_names::aBadNameBecomesAGeneratedOne_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("nothing") << QString();
    QTest::newRow("taken") << QString("a");
    QTest::newRow("blanks") << QString("   ");
    QTest::newRow("taken but for blanks") << QString("  c");
}

void tst_renamingInPlace_names::aBadNameBecomesAGeneratedOne()
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

void tst_renamingInPlace_names::theOwnNameIsNoClash()
{
    edit(1);
    type(QStringLiteral("b"));
    QVERIFY(user->ok->isEnabled());
    press(Qt::Key_Return);
    QCOMPARE(user->names().at(1), QStringLiteral("b"));
}

void tst_renamingInPlace_names::anUnchangedTextIsNoChange_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("ending");
    for (int column = 2; column < 5; ++column) {
        for (const char *ending : {"Return", "Tab", "Escape", "another row", "another group",
                                   "actionSelect_all", "actionEdit_scheme"})
            QTest::addRow("column %d, %s", column, ending) << column << QString(ending);
    }
}

void tst_renamingInPlace_names::anUnchangedTextIsNoChange()
{
    QFETCH(int, column);
    QFETCH(QString, ending);
    // Imports make schemes of one name, and of names that nobody could type.
    auto &schemes = user->model->group().schemes;
    schemes[1].name = schemes[0].name;
    schemes[2].name = VTObjects::VOString();
    schemes[3].describe = VTObjects::VOString(std::wstring(40000, L'x'));
    const QStringList names = user->names();
    for (const int row : {0, 1, 2, 3}) {
        edit(row, column);
        ModalDriver driver;
        if (ending == QLatin1String("Return"))
            press(Qt::Key_Return);
        else if (ending == QLatin1String("Tab"))
            press(Qt::Key_Tab);
        else if (ending == QLatin1String("another row"))
            clickAt(user->table->viewport(), cell(3 - row, 0));
        else if (ending == QLatin1String("another group"))
            user->click(1, 1);
        else if (ending.startsWith(QLatin1String("action"))) {
            if (ending == QLatin1String("actionEdit_scheme"))
                driver.next(pressNamed(QStringLiteral("pushButton_cancel")));
            user->command(ending.toLatin1().constData());
        }
        // What is left open after Tab, and what Escape is for.
        while (qobject_cast<QLineEdit *>(QApplication::focusWidget()))
            press(Qt::Key_Escape);
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
        QVERIFY(!WorkingCopies::isModified());
        QVERIFY(user->ok->isEnabled());
        if (ending == QLatin1String("another group"))
            return;
        QCOMPARE(user->names(), names);
        QCOMPARE(toQString(schemes[3].describe).size(), 40000);
    }
}

void tst_renamingInPlace_names::aNameThatIsTypedBackIsNoChange()
{
    user->model->group().schemes[1].name = user->model->group().schemes[0].name;
    edit(1);
    type(QStringLiteral("az"));
    press(Qt::Key_Backspace);
    // It is not to be had once more, but the scheme has it.
    QCOMPARE(warning(), QStringLiteral("The name already exists!"));
    press(Qt::Key_Return);
    QCOMPARE(user->names(), (QStringList{"a", "a", "c", "rename_4"}));
    QVERIFY(!WorkingCopies::isModified());
    QVERIFY(user->ok->isEnabled());
}

void tst_renamingInPlace_names::aFieldOfADeletedGroupsQuestionChangesNothing()
{
    edit(1);
    ModalDriver driver;
    driver.next([](QWidget *box) { QTest::keyClick(box, Qt::Key_Escape); });
    user->command("actionDelete_group");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!WorkingCopies::isModified());
    // So nothing is asked.
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY(manager->isHidden());
}

void tst_renamingInPlace_names::blanksAroundANameAreKeptButDoNotCount()
{
    edit(1);
    type(QStringLiteral(" new "));
    press(Qt::Key_Return);
    QCOMPARE(user->names().at(1), QStringLiteral(" new "));
}

void tst_renamingInPlace_names::aCutNameIsShownWholeUnderThePointer()
{
    const QString name = QStringLiteral("Elevation of the <deep> sea floor & its shelf");
    user->model->setData(user->model->index(1, 2), name);
    const auto hover = [this](int row) {
        const QPoint place = user->table->viewport()->mapToGlobal(cell(row, 2));
        RealInput::moveTo(place - QPoint(3, 0));
        RealInput::moveTo(place);
    };
    hover(1);
    QTRY_VERIFY(QToolTip::isVisible());
    QTextDocument shown;
    shown.setHtml(QToolTip::text());
    QCOMPARE(Qt::mightBeRichText(QToolTip::text()) ? shown.toPlainText() : QToolTip::text(), name);
    // It goes with the pointer, and a name that stands there whole has none.
    hover(2);
    QTRY_VERIFY(!QToolTip::isVisible());
}

void tst_renamingInPlace_names::theCellBehindTheFieldDoesNotShine()
{
    edit(1);
    type(QStringLiteral("c"));
    const QImage picture = editor()->grab().toImage();
    QVERIFY(editor()->autoFillBackground());
    // Beside the icon lies the field's own ground and not the selected row.
    QCOMPARE(picture.pixelColor(picture.width() - 1, 1), editor()->palette().color(QPalette::Base));
}

void tst_renamingInPlace_names::authorAndDescriptionTakeAnyText()
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

VT_TEST_MAIN(tst_renamingInPlace_names)
#include "tst_renamingInPlace_names.moc"
