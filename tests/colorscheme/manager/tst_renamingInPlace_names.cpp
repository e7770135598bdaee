#include "tests/support/RenamingTest.h"
#include "tests/support/TestMain.h"

#include <QtTest>

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
    void blanksAroundANameAreKeptButDoNotCount();
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

void tst_renamingInPlace_names::blanksAroundANameAreKeptButDoNotCount()
{
    edit(1);
    type(QStringLiteral(" new "));
    press(Qt::Key_Return);
    QCOMPARE(user->names().at(1), QStringLiteral(" new "));
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
