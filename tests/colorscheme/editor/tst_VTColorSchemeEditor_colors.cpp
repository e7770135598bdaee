#include "tests/support/EditorUnderTest.h"

#include "tests/support/EditorWatch.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "vtcontrolbase/VTColorMenu.h"

#include <QtTest>

using namespace EditorColors;
using namespace VTObjects;

namespace {

void doubleClick(EditorUnderTest &test, const QModelIndex &index)
{
    QVERIFY(QMetaObject::invokeMethod(&test.editor(), "onColorDoubleClicked",
                                      Q_ARG(QModelIndex, index)));
}

} // namespace

class tst_VTColorSchemeEditor_colors : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void anAddedColorIsTheLastRow();
    void addingToAnEmptyListWorks();

    void deletingTakesTheSelectedRows_data();
    void deletingTakesTheSelectedRows();
    void deletingNothingRefreshesNothing();
    void whatIsLeftSelectedAfterDeletingDecidesOnTheMoves();
    void deletingGoesFromTheLastRowToTheFirst();
    void singleCellsAreNoSelectedRows();
    void aRowSelectedCellByCellIsASelectedRow();

    void antitoneReversesTheList_data();
    void antitoneReversesTheList();

    void aDoubleClickElsewhereOpensNothing_data();
    void aDoubleClickElsewhereOpensNothing();
    void theColorMenuOpensBelowTheSwatch();
    void aDismissedColorMenuChangesNothing();
    void aChosenColorTakesItsRow();
    void aRowThatWentWhileTheMenuWasOpenIsLeftAlone();

    void longListsStayFluid_data();
    void longListsStayFluid();
};

void tst_VTColorSchemeEditor_colors::anAddedColorIsTheLastRow()
{
    EditorUnderTest test(evenRamp(fiveColors, 7));
    test.select({1, 2});
    const QModelIndex current = test.view()->currentIndex();
    test.run("onAddColor");
    QCOMPARE(test.colors(), fiveColors + QVector<QColor>{QColor(15, 225, 255)});
    QCOMPARE(test.colors().last().alpha(), 255);
    QCOMPARE(test.selectedRows(), QVector<int>({1, 2}));
    QCOMPARE(test.view()->currentIndex(), current);
    QCOMPARE(test.preview(), stripOf(evenRamp(test.colors(), 7).get()));
}

void tst_VTColorSchemeEditor_colors::addingToAnEmptyListWorks()
{
    EditorUnderTest test(evenRamp({}, 7));
    QCOMPARE(test.colors(), QVector<QColor>());
    test.run("onAddColor");
    QCOMPARE(test.colors(), QVector<QColor>({QColor(15, 225, 255)}));
    QCOMPARE(test.preview(), stripOf(evenRamp(test.colors(), 7).get()));
}

void tst_VTColorSchemeEditor_colors::deletingTakesTheSelectedRows_data()
{
    QTest::addColumn<VOColorRamp::ColorRampType>("kind");
    QTest::addColumn<QVector<QColor>>("before");
    QTest::addColumn<QVector<int>>("rows");
    QTest::addColumn<QVector<QColor>>("after");
    const char *names[] = {"random", "HSV random", "even", "predefined"};
    for (const auto kind : {VOColorRamp::RandomRamp, VOColorRamp::RandomHsvRamp,
                            VOColorRamp::EvenRamp, VOColorRamp::PredefineRamp}) {
        const bool keepsTwo = kind > VOColorRamp::RandomHsvRamp;
        const auto row = [&](const char *name, const QVector<QColor> &before,
                             const QVector<int> &rows, const QVector<QColor> &after) {
            QTest::addRow("%s: %s", names[kind], name) << kind << before << rows << after;
        };
        row("one of five", fiveColors, {1}, {r, b, c, k});
        row("three of five in any order", fiveColors, {3, 0, 2}, {g, k});
        row("all five", fiveColors, {0, 1, 2, 3, 4},
            keepsTwo ? QVector<QColor>{r, g} : QVector<QColor>{});
        row("all but one", fiveColors, {0, 1, 3, 4},
            keepsTwo ? QVector<QColor>{r, b} : QVector<QColor>{b});
        row("all three", {r, g, b}, {0, 1, 2},
            keepsTwo ? QVector<QColor>{r, g} : QVector<QColor>{});
        row("one of two", {r, g}, {0}, keepsTwo ? QVector<QColor>{r, g} : QVector<QColor>{g});
        row("both of two", {r, g}, {0, 1}, keepsTwo ? QVector<QColor>{r, g} : QVector<QColor>{});
        row("the only one", {r}, {0}, keepsTwo ? QVector<QColor>{r} : QVector<QColor>{});
    }
}

void tst_VTColorSchemeEditor_colors::deletingTakesTheSelectedRows()
{
    QFETCH(VOColorRamp::ColorRampType, kind);
    QFETCH(QVector<QColor>, before);
    QFETCH(QVector<int>, rows);
    QFETCH(QVector<QColor>, after);
    EditorUnderTest test(evenRamp(before, 7));
    test.chooseType(kind);
    test.select(rows);
    test.run("onDeleteColor");
    QCOMPARE(test.colors(), after);
    QCOMPARE(test.model()->rowCount(), after.size());
    QCOMPARE(test.preview(), stripOf(test.storedByOk()));
}

void tst_VTColorSchemeEditor_colors::deletingNothingRefreshesNothing()
{
    EditorUnderTest unselected(evenRamp(fiveColors, 7));
    const PreviewWatch watch(unselected);
    unselected.run("onDeleteColor");
    QVERIFY(!watch.refreshed());
    QCOMPARE(unselected.colors(), fiveColors);

    EditorUnderTest twoColors(evenRamp({r, g}, 7));
    twoColors.select({1});
    const PreviewWatch otherWatch(twoColors);
    twoColors.run("onDeleteColor");
    QVERIFY(!otherWatch.refreshed());
    QCOMPARE(twoColors.selectedRows(), QVector<int>({1}));

    twoColors.run("onAddColor");
    QVERIFY(otherWatch.refreshed());
}

void tst_VTColorSchemeEditor_colors::whatIsLeftSelectedAfterDeletingDecidesOnTheMoves()
{
    EditorUnderTest test(evenRamp({r, g, b}, 7));
    test.select({1, 2});
    test.run("onDeleteColor");
    QCOMPARE(test.colors(), QVector<QColor>({r, g}));
    QCOMPARE(test.selectedRows(), QVector<int>({1}));
    QCOMPARE(test.enabledMoves(), QStringList({"Top", "Up"}));
}

void tst_VTColorSchemeEditor_colors::deletingGoesFromTheLastRowToTheFirst()
{
    EditorUnderTest test(randomRamp(1, 5));
    test.select({0, 2, 4});
    QVector<int> removed;
    connect(test.model(), &VTColorModel::rowsRemoved, this,
            [&removed](const QModelIndex &, int first, int last) {
                QCOMPARE(first, last);
                removed.append(first);
            });
    test.run("onDeleteColor");
    QCOMPARE(removed, QVector<int>({4, 2, 0}));
}

void tst_VTColorSchemeEditor_colors::singleCellsAreNoSelectedRows()
{
    EditorUnderTest test(randomRamp(1, 5));
    test.select({1});
    for (const int column : {0, 1})
        test.view()->selectionModel()->select(test.model()->index(3 + column, column),
                                              QItemSelectionModel::Select);
    QCOMPARE(test.enabledMoves(), QStringList({"Top", "Bottom", "Up", "Down"}));
    const QVector<QColor> before = test.colors();
    test.run("onDeleteColor");
    QCOMPARE(test.colors(), before.mid(0, 1) + before.mid(2));
}

void tst_VTColorSchemeEditor_colors::aRowSelectedCellByCellIsASelectedRow()
{
    EditorUnderTest test(randomRamp(1, 5));
    test.view()->selectAll();
    test.view()->clearSelection();
    for (const int column : {1, 0})
        test.view()->selectionModel()->select(test.model()->index(4, column),
                                              QItemSelectionModel::Select);
    QCOMPARE(test.selectedRows(), QVector<int>({4}));
    QCOMPARE(test.enabledMoves(), QStringList({"Top", "Up"}));
    test.run("onInvetSelect");
    QCOMPARE(test.selectedRows(), QVector<int>({0, 1, 2, 3}));

    for (const int column : {0, 1})
        test.view()->selectionModel()->select(test.model()->index(2, column),
                                              column == 0 ? QItemSelectionModel::ClearAndSelect
                                                          : QItemSelectionModel::Select);
    const QVector<QColor> before = test.colors();
    test.run("onDeleteColor");
    QCOMPARE(test.colors(), before.mid(0, 2) + before.mid(3));
}

void tst_VTColorSchemeEditor_colors::antitoneReversesTheList_data()
{
    QTest::addColumn<QVector<QColor>>("before");
    QTest::addColumn<QVector<QColor>>("after");
    QTest::newRow("three") << QVector<QColor>{r, g, b} << QVector<QColor>{b, g, r};
    QTest::newRow("five") << fiveColors << QVector<QColor>{k, c, b, g, r};
    QTest::newRow("one") << QVector<QColor>{r} << QVector<QColor>{r};
    QTest::newRow("none") << QVector<QColor>() << QVector<QColor>();
}

void tst_VTColorSchemeEditor_colors::antitoneReversesTheList()
{
    QFETCH(QVector<QColor>, before);
    QFETCH(QVector<QColor>, after);
    EditorUnderTest test(evenRamp(before, 7));
    test.view()->selectAll();
    QSignalSpy reset(test.model(), &VTColorModel::modelReset);
    test.run("onColorAntitone");
    QCOMPARE(test.colors(), after);
    QCOMPARE(reset.size(), 1);
    QCOMPARE(test.selectedRows(), QVector<int>());
    QCOMPARE(test.preview(), stripOf(evenRamp(after, 7).get()));
    if (!before.isEmpty())
        QCOMPARE(test.enabledMoves(), QStringList());
}

void tst_VTColorSchemeEditor_colors::aDoubleClickElsewhereOpensNothing_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("the number") << 1 << 0;
    QTest::newRow("no cell") << -1 << -1;
}

void tst_VTColorSchemeEditor_colors::aDoubleClickElsewhereOpensNothing()
{
    QFETCH(int, row);
    QFETCH(int, column);
    EditorUnderTest test(evenRamp(fiveColors, 9));
    const PreviewWatch watch(test);
    bool opened = false;
    ModalDriver driver;
    driver.next([&opened](QWidget *window) {
        opened = true;
        window->close();
    });
    doubleClick(test, test.model()->index(row, column));
    QVERIFY(!opened);
    QVERIFY(!watch.refreshed());
}

void tst_VTColorSchemeEditor_colors::theColorMenuOpensBelowTheSwatch()
{
    EditorUnderTest test(evenRamp(fiveColors, 9));
    test.editor().move(50, 60);
    test.editor().show();
    QVERIFY(QTest::qWaitForWindowExposed(&test.editor()));
    const QRect cell = test.view()->visualRect(test.model()->index(1, 1));
    QPoint corner = test.view()->viewport()->mapToGlobal(QPoint(cell.left(), cell.top()));
    corner.ry() += test.view()->rowHeight(1);
    ModalDriver driver;
    driver.next([&](QWidget *window) {
        auto *menu = qobject_cast<VTColorMenu *>(window);
        QVERIFY(menu);
        QCOMPARE(menu->parentWidget(), &test.editor());
        QCOMPARE(QColor(menu->getColor()), g);
        QCOMPARE(menu->pos(), corner);
        menu->close();
    });
    doubleClick(test, test.model()->index(1, 1));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!test.editor().findChild<VTColorMenu *>());
}

void tst_VTColorSchemeEditor_colors::aDismissedColorMenuChangesNothing()
{
    EditorUnderTest test(evenRamp(fiveColors, 9));
    test.editor().show();
    const Announcements announcements(test.model());
    const PreviewWatch watch(test);
    ModalDriver driver;
    driver.next([](QWidget *window) { QTest::keyClick(window, Qt::Key_Escape); });
    doubleClick(test, test.model()->index(1, 1));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(test.colors(), fiveColors);
    QCOMPARE(announcements.rows, QStringList());
    QVERIFY(!watch.refreshed());
}

void tst_VTColorSchemeEditor_colors::aChosenColorTakesItsRow()
{
    EditorUnderTest test(evenRamp({r, g, b}, 9));
    test.editor().show();
    QVERIFY(QTest::qWaitForWindowExposed(&test.editor()));
    const Announcements announcements(test.model());
    PaintedRegion painted(test.view()->viewport());
    ModalDriver driver;
    driver.next([&painted](QWidget *window) {
        auto *menu = qobject_cast<VTColorMenu *>(window);
        QVERIFY(menu);
        menu->setColor(QColor(1, 2, 3, 4));
        menu->close();
        painted.region = QRegion();
    });
    doubleClick(test, test.model()->index(2, 1));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(test.colors(), QVector<QColor>({r, g, QColor(1, 2, 3)}));
    QCOMPARE(announcements.rows, QStringList({"2-2"}));
    QCOMPARE(test.preview(), stripOf(evenRamp(test.colors(), 9).get()));
    QTRY_VERIFY(painted.region.contains(test.view()->visualRect(test.model()->index(2, 1))));
}

void tst_VTColorSchemeEditor_colors::aRowThatWentWhileTheMenuWasOpenIsLeftAlone()
{
    EditorUnderTest test(evenRamp(fiveColors, 9));
    test.editor().show();
    ModalDriver driver;
    driver.next([&test](QWidget *window) {
        test.setColors({r, g});
        qobject_cast<VTColorMenu *>(window)->setColor(QColor(1, 2, 3));
        window->close();
    });
    doubleClick(test, test.model()->index(4, 1));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(test.colors(), QVector<QColor>({r, g}));
}

void tst_VTColorSchemeEditor_colors::longListsStayFluid_data()
{
    QTest::addColumn<int>("step");
    QTest::newRow("one range") << 1;
    QTest::newRow("every second row") << 2;
}

void tst_VTColorSchemeEditor_colors::longListsStayFluid()
{
    // No clock: what would take minutes runs into the limit of the whole test program.
    QFETCH(int, step);
    constexpr int count = 20000;
    EditorUnderTest test(randomRamp(1, count));
    test.editor().show();
    QItemSelection selection;
    for (int row = 0; row < count; row += step)
        selection.append(
            QItemSelectionRange(test.model()->index(row, 0), test.model()->index(row, 1)));
    if (step == 1)
        test.view()->selectAll();
    else
        test.view()->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    test.run("onInvetSelect");
    test.run("onInvetSelect");
    test.run("onColorAntitone");
    test.view()->selectAll();
    test.run("onDeleteColor");
    QCOMPARE(test.model()->rowCount(), 0);
}

VT_TEST_MAIN(tst_VTColorSchemeEditor_colors)
#include "tst_VTColorSchemeEditor_colors.moc"
