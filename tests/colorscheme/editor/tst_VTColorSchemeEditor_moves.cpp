#include "tests/support/EditorUnderTest.h"

#include "tests/support/EditorWatch.h"
#include "tests/support/TestMain.h"

#include <QtTest>

using namespace EditorColors;
using namespace VTObjects;

class tst_VTColorSchemeEditor_moves : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void movesExchangeTwoColors_data();
    void movesExchangeTwoColors();
    void movesNeedACurrentRow_data();
    void movesNeedACurrentRow();
    void movesGoByTheCurrentRowAndNotByTheSelection();
    void movesOutOfTheListDoNothing_data();
    void movesOutOfTheListDoNothing();
    void aMovedColorCanBeMovedOn();
    void aMovedColorIsSelectedAloneWhateverKeyIsHeld_data();
    void aMovedColorIsSelectedAloneWhateverKeyIsHeld();
    void aMoveRedrawsBothSwatches();

    void movesAreEnabledByTheSelection_data();
    void movesAreEnabledByTheSelection();
    void onlyMovesAreEverDisabled();
};

void tst_VTColorSchemeEditor_moves::movesExchangeTwoColors_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<int>("row");
    QTest::addColumn<QVector<QColor>>("after");
    QTest::addColumn<QStringList>("announced");
    QTest::addColumn<int>("selected");
    QTest::newRow("top from the fourth")
        << QByteArray("onTop") << 3 << QVector<QColor>{c, g, b, r, k} << QStringList{"0-0", "3-3"}
        << 0;
    QTest::newRow("top from the second")
        << QByteArray("onTop") << 1 << QVector<QColor>{g, r, b, c, k} << QStringList{"0-0", "1-1"}
        << 0;
    QTest::newRow("top from the last") << QByteArray("onTop") << 4 << QVector<QColor>{k, g, b, c, r}
                                       << QStringList{"0-0", "4-4"} << 0;
    QTest::newRow("top from the first")
        << QByteArray("onTop") << 0 << fiveColors << QStringList{"0-0", "0-0"} << 0;
    QTest::newRow("bottom from the second")
        << QByteArray("onBottom") << 1 << QVector<QColor>{r, k, b, c, g}
        << QStringList{"1-1", "4-4"} << 4;
    QTest::newRow("bottom from the first")
        << QByteArray("onBottom") << 0 << QVector<QColor>{k, g, b, c, r}
        << QStringList{"0-0", "4-4"} << 4;
    QTest::newRow("bottom from the last")
        << QByteArray("onBottom") << 4 << fiveColors << QStringList{"4-4", "4-4"} << 4;
    QTest::newRow("up from the third")
        << QByteArray("onUp") << 2 << QVector<QColor>{r, b, g, c, k} << QStringList{"1-2"} << 1;
    QTest::newRow("down from the third")
        << QByteArray("onDown") << 2 << QVector<QColor>{r, g, c, b, k} << QStringList{"2-3"} << 3;
}

void tst_VTColorSchemeEditor_moves::movesExchangeTwoColors()
{
    QFETCH(QByteArray, slot);
    QFETCH(int, row);
    QFETCH(QVector<QColor>, after);
    QFETCH(QStringList, announced);
    QFETCH(int, selected);
    EditorUnderTest test(evenRamp(fiveColors, 9));
    test.select({row});
    const Announcements announcements(test.model());
    test.run(slot.constData());
    QCOMPARE(test.colors(), after);
    QCOMPARE(announcements.rows, announced);
    QCOMPARE(test.selectedRows(), QVector<int>({selected}));
    QCOMPARE(test.view()->currentIndex().row(), selected);
    QCOMPARE(test.preview(), stripOf(evenRamp(after, 9).get()));
}

void tst_VTColorSchemeEditor_moves::movesNeedACurrentRow_data()
{
    QTest::addColumn<QByteArray>("slot");
    for (const char *slot : {"onTop", "onBottom", "onUp", "onDown"})
        QTest::newRow(slot) << QByteArray(slot);
}

void tst_VTColorSchemeEditor_moves::movesNeedACurrentRow()
{
    QFETCH(QByteArray, slot);
    EditorUnderTest test(evenRamp(fiveColors, 9));
    QVERIFY(!test.view()->currentIndex().isValid());
    // A selection without a current row, which only code can make.
    test.view()->selectionModel()->select(test.model()->index(2, 0),
                                          QItemSelectionModel::Select | QItemSelectionModel::Rows);
    const Announcements announcements(test.model());
    const PreviewWatch watch(test);
    test.run(slot.constData());
    QCOMPARE(test.colors(), fiveColors);
    QCOMPARE(test.selectedRows(), QVector<int>({2}));
    QCOMPARE(announcements.rows, QStringList());
    QVERIFY(!watch.refreshed());
}

void tst_VTColorSchemeEditor_moves::movesGoByTheCurrentRowAndNotByTheSelection()
{
    EditorUnderTest test(evenRamp(fiveColors, 9));
    test.select({4});
    test.view()->selectionModel()->setCurrentIndex(test.model()->index(1, 0),
                                                   QItemSelectionModel::NoUpdate);
    test.run("onDown");
    QCOMPARE(test.colors(), QVector<QColor>({r, b, g, c, k}));
    QCOMPARE(test.selectedRows(), QVector<int>({2}));
}

void tst_VTColorSchemeEditor_moves::movesOutOfTheListDoNothing_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QVector<QColor>>("colors");
    QTest::addColumn<int>("row");
    QTest::newRow("up from the first") << QByteArray("onUp") << fiveColors << 0;
    QTest::newRow("down from the last") << QByteArray("onDown") << fiveColors << 4;
    QTest::newRow("up from the only one") << QByteArray("onUp") << QVector<QColor>{r} << 0;
    QTest::newRow("down from the only one") << QByteArray("onDown") << QVector<QColor>{r} << 0;
}

void tst_VTColorSchemeEditor_moves::movesOutOfTheListDoNothing()
{
    QFETCH(QByteArray, slot);
    QFETCH(QVector<QColor>, colors);
    QFETCH(int, row);
    EditorUnderTest test(evenRamp(colors, 9));
    // Current without being selected, as Ctrl and an arrow key make it.
    test.view()->selectionModel()->setCurrentIndex(test.model()->index(row, 1),
                                                   QItemSelectionModel::NoUpdate);
    const Announcements announcements(test.model());
    test.run(slot.constData());
    QCOMPARE(test.colors(), colors);
    QCOMPARE(test.selectedRows(), QVector<int>());
    QCOMPARE(announcements.rows, QStringList());
}

void tst_VTColorSchemeEditor_moves::aMovedColorCanBeMovedOn()
{
    EditorUnderTest test(evenRamp(fiveColors, 9));
    test.select({4});
    auto *up = test.part<QAction>("actionUp");
    int steps = 0;
    for (; up->isEnabled() && steps < 20; ++steps)
        up->trigger();
    QCOMPARE(steps, 4);
    QCOMPARE(test.colors(), QVector<QColor>({k, r, g, b, c}));
    auto *down = test.part<QAction>("actionDown");
    for (steps = 0; down->isEnabled() && steps < 20; ++steps)
        down->trigger();
    QCOMPARE(steps, 4);
    QCOMPARE(test.colors(), fiveColors);
}

void tst_VTColorSchemeEditor_moves::aMovedColorIsSelectedAloneWhateverKeyIsHeld_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Shift") << int(Qt::Key_Shift);
    QTest::newRow("Ctrl") << int(Qt::Key_Control);
}

void tst_VTColorSchemeEditor_moves::aMovedColorIsSelectedAloneWhateverKeyIsHeld()
{
    QFETCH(int, key);
    EditorUnderTest test(evenRamp(fiveColors, 9));
    test.editor().show();
    QVERIFY(QTest::qWaitForWindowExposed(&test.editor()));
    const QRect third = test.view()->visualRect(test.model()->index(2, 1));
    QTest::mouseClick(test.view()->viewport(), Qt::LeftButton, Qt::NoModifier, third.center());
    QCOMPARE(test.selectedRows(), QVector<int>({2}));
    QTest::keyPress(test.editor().windowHandle(), static_cast<Qt::Key>(key),
                    key == Qt::Key_Shift ? Qt::ShiftModifier : Qt::ControlModifier);
    QVERIFY(QGuiApplication::keyboardModifiers() != Qt::NoModifier);
    test.part<QAction>("actionTop")->trigger();
    QCOMPARE(test.selectedRows(), QVector<int>({0}));
    QTest::keyRelease(test.editor().windowHandle(), static_cast<Qt::Key>(key), Qt::NoModifier);
    QCOMPARE(QGuiApplication::keyboardModifiers(), Qt::KeyboardModifiers());
}

void tst_VTColorSchemeEditor_moves::aMoveRedrawsBothSwatches()
{
    EditorUnderTest test(evenRamp({r, g, b}, 9));
    test.editor().show();
    QVERIFY(QTest::qWaitForWindowExposed(&test.editor()));
    // Current without being selected: no change of the selection draws the row anew.
    test.view()->selectionModel()->setCurrentIndex(test.model()->index(2, 0),
                                                   QItemSelectionModel::NoUpdate);
    QCoreApplication::processEvents();
    PaintedRegion painted(test.view()->viewport());
    test.run("onUp");
    QTRY_VERIFY(painted.region.contains(test.view()->visualRect(test.model()->index(1, 1))));
    QVERIFY(painted.region.contains(test.view()->visualRect(test.model()->index(2, 1))));
}

void tst_VTColorSchemeEditor_moves::movesAreEnabledByTheSelection_data()
{
    QTest::addColumn<QVector<QColor>>("colors");
    QTest::addColumn<QVector<int>>("rows");
    QTest::addColumn<QStringList>("enabled");
    const QStringList all{"Top", "Bottom", "Up", "Down"};
    QTest::newRow("the first") << fiveColors << QVector<int>{0} << QStringList{"Bottom", "Down"};
    QTest::newRow("the last") << fiveColors << QVector<int>{4} << QStringList{"Top", "Up"};
    QTest::newRow("the second") << fiveColors << QVector<int>{1} << all;
    QTest::newRow("the last but one") << fiveColors << QVector<int>{3} << all;
    QTest::newRow("two") << fiveColors << QVector<int>{1, 2} << QStringList();
    QTest::newRow("two apart") << fiveColors << QVector<int>{0, 4} << QStringList();
    QTest::newRow("all") << fiveColors << QVector<int>{0, 1, 2, 3, 4} << QStringList();
    QTest::newRow("none") << fiveColors << QVector<int>() << QStringList();
    QTest::newRow("the only one") << QVector<QColor>{r} << QVector<int>{0}
                                  << QStringList{"Bottom", "Down"};
    QTest::newRow("the second of two")
        << QVector<QColor>{r, g} << QVector<int>{1} << QStringList{"Top", "Up"};
}

void tst_VTColorSchemeEditor_moves::movesAreEnabledByTheSelection()
{
    QFETCH(QVector<QColor>, colors);
    QFETCH(QVector<int>, rows);
    QFETCH(QStringList, enabled);
    EditorUnderTest test(evenRamp(colors, 9));
    QCOMPARE(test.enabledMoves(), QStringList({"Top", "Bottom", "Up", "Down"}));
    test.view()->selectAll();
    test.select(rows);
    QCOMPARE(test.enabledMoves(), enabled);
}

void tst_VTColorSchemeEditor_moves::onlyMovesAreEverDisabled()
{
    EditorUnderTest test(evenRamp({r, g}, 9));
    test.view()->selectAll();
    test.view()->clearSelection();
    for (const char *name : {"actionLoad_scheme", "actionAdd_color", "actionDelete_color",
                             "actionSelect_all", "actionInvert_select", "actionColor_antitone"})
        QVERIFY2(test.part<QAction>(name)->isEnabled(), name);
}

VT_TEST_MAIN(tst_VTColorSchemeEditor_moves)
#include "tst_VTColorSchemeEditor_moves.moc"
