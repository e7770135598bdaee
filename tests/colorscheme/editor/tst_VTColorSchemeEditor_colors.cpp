#include "tests/colorscheme/editor/EditorUnderTest.h"

#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "vtcontrolbase/VTColorMenu.h"

#include <QPaintEvent>
#include <QtTest>

using namespace VTObjects;

Q_DECLARE_METATYPE(VTObjects::VOColorRamp::ColorRampType)

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

    void selectingAllGivesTheListTheKeyboard();
    void invertingGivesTheComplement_data();
    void invertingGivesTheComplement();
    void invertingLeavesTheExtendedSelectionWhateverWasBefore_data();
    void invertingLeavesTheExtendedSelectionWhateverWasBefore();
    void invertingKeepsShiftClicksWorking();

    void aDoubleClickElsewhereOpensNothing_data();
    void aDoubleClickElsewhereOpensNothing();
    void theColorMenuOpensBelowTheSwatch();
    void aDismissedColorMenuChangesNothing();
    void aChosenColorTakesItsRow();
    void aRowThatWentWhileTheMenuWasOpenIsLeftAlone();

    void longListsStayFluid_data();
    void longListsStayFluid();
};

namespace {

const QColor r(Qt::red);
const QColor g(Qt::green);
const QColor b(Qt::blue);
const QColor c(Qt::cyan);
const QColor k(Qt::black);
const QVector<QColor> fiveColors{r, g, b, c, k};

/// Notes the announced changes of a model as "first-last" pairs of rows.
class Announcements
{
public:
    explicit Announcements(const VTColorModel *model)
    {
        QObject::connect(model, &VTColorModel::dataChanged, &context,
                         [this](const QModelIndex &topLeft, const QModelIndex &bottomRight) {
                             QVERIFY(topLeft.isValid());
                             QCOMPARE(topLeft.column(), 0);
                             QCOMPARE(bottomRight.column(), 0);
                             rows.append(
                                 QStringLiteral("%1-%2").arg(topLeft.row()).arg(bottomRight.row()));
                         });
    }

    QStringList rows;

private:
    QObject context;
};

/// Tells whether the preview got a new picture.
class PreviewWatch
{
public:
    explicit PreviewWatch(const EditorUnderTest &test)
        : label(test.part<QLabel>("previewLabel"))
        , former(label->pixmap(Qt::ReturnByValue).cacheKey())
    {
    }
    bool refreshed() const { return label->pixmap(Qt::ReturnByValue).cacheKey() != former; }

private:
    const QLabel *label;
    qint64 former;
};

/// Collects what is painted of a widget.
class PaintedRegion : public QObject
{
public:
    explicit PaintedRegion(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            region += static_cast<QPaintEvent *>(event)->region();
        return false;
    }

    QRegion region;
};

/// Notes why a widget got the keyboard.
class FocusReasons : public QObject
{
public:
    explicit FocusReasons(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn)
            seen.append(static_cast<QFocusEvent *>(event)->reason());
        return false;
    }

    QVector<int> seen;
};

void doubleClick(EditorUnderTest &test, const QModelIndex &index)
{
    QVERIFY(QMetaObject::invokeMethod(&test.editor(), "onColorDoubleClicked",
                                      Q_ARG(QModelIndex, index)));
}

} // namespace

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

void tst_VTColorSchemeEditor_colors::movesExchangeTwoColors_data()
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

void tst_VTColorSchemeEditor_colors::movesExchangeTwoColors()
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

void tst_VTColorSchemeEditor_colors::movesNeedACurrentRow_data()
{
    QTest::addColumn<QByteArray>("slot");
    for (const char *slot : {"onTop", "onBottom", "onUp", "onDown"})
        QTest::newRow(slot) << QByteArray(slot);
}

void tst_VTColorSchemeEditor_colors::movesNeedACurrentRow()
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

void tst_VTColorSchemeEditor_colors::movesGoByTheCurrentRowAndNotByTheSelection()
{
    EditorUnderTest test(evenRamp(fiveColors, 9));
    test.select({4});
    test.view()->selectionModel()->setCurrentIndex(test.model()->index(1, 0),
                                                   QItemSelectionModel::NoUpdate);
    test.run("onDown");
    QCOMPARE(test.colors(), QVector<QColor>({r, b, g, c, k}));
    QCOMPARE(test.selectedRows(), QVector<int>({2}));
}

void tst_VTColorSchemeEditor_colors::movesOutOfTheListDoNothing_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QVector<QColor>>("colors");
    QTest::addColumn<int>("row");
    QTest::newRow("up from the first") << QByteArray("onUp") << fiveColors << 0;
    QTest::newRow("down from the last") << QByteArray("onDown") << fiveColors << 4;
    QTest::newRow("up from the only one") << QByteArray("onUp") << QVector<QColor>{r} << 0;
    QTest::newRow("down from the only one") << QByteArray("onDown") << QVector<QColor>{r} << 0;
}

void tst_VTColorSchemeEditor_colors::movesOutOfTheListDoNothing()
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

void tst_VTColorSchemeEditor_colors::aMovedColorCanBeMovedOn()
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

void tst_VTColorSchemeEditor_colors::aMovedColorIsSelectedAloneWhateverKeyIsHeld_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Shift") << int(Qt::Key_Shift);
    QTest::newRow("Ctrl") << int(Qt::Key_Control);
}

void tst_VTColorSchemeEditor_colors::aMovedColorIsSelectedAloneWhateverKeyIsHeld()
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

void tst_VTColorSchemeEditor_colors::aMoveRedrawsBothSwatches()
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

void tst_VTColorSchemeEditor_colors::movesAreEnabledByTheSelection_data()
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

void tst_VTColorSchemeEditor_colors::movesAreEnabledByTheSelection()
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

void tst_VTColorSchemeEditor_colors::onlyMovesAreEverDisabled()
{
    EditorUnderTest test(evenRamp({r, g}, 9));
    test.view()->selectAll();
    test.view()->clearSelection();
    for (const char *name : {"actionLoad_scheme", "actionAdd_color", "actionDelete_color",
                             "actionSelect_all", "actionInvert_select", "actionColor_antitone"})
        QVERIFY2(test.part<QAction>(name)->isEnabled(), name);
}

void tst_VTColorSchemeEditor_colors::selectingAllGivesTheListTheKeyboard()
{
    EditorUnderTest test(evenRamp(fiveColors, 9));
    test.editor().show();
    QVERIFY(QTest::qWaitForWindowActive(&test.editor()));
    QVERIFY(!test.view()->hasFocus());
    FocusReasons reasons(test.view());
    test.run("onSelectAll");
    QVERIFY(test.view()->hasFocus());
    QCOMPARE(reasons.seen, QVector<int>({Qt::OtherFocusReason}));
    QCOMPARE(test.selectedRows(), QVector<int>({0, 1, 2, 3, 4}));
}

void tst_VTColorSchemeEditor_colors::invertingGivesTheComplement_data()
{
    QTest::addColumn<QVector<int>>("before");
    QTest::addColumn<QVector<int>>("after");
    QTest::addColumn<int>("current");
    QTest::newRow("rows 1 and 3") << QVector<int>{1, 3} << QVector<int>{0, 2, 4} << 4;
    QTest::newRow("rows 0, 2 and 4") << QVector<int>{0, 2, 4} << QVector<int>{1, 3} << 3;
    QTest::newRow("the first") << QVector<int>{0} << QVector<int>{1, 2, 3, 4} << 4;
    QTest::newRow("the last") << QVector<int>{4} << QVector<int>{0, 1, 2, 3} << 3;
    QTest::newRow("none") << QVector<int>() << QVector<int>{0, 1, 2, 3, 4} << 4;
    QTest::newRow("all") << QVector<int>{0, 1, 2, 3, 4} << QVector<int>() << 4;
}

void tst_VTColorSchemeEditor_colors::invertingGivesTheComplement()
{
    QFETCH(QVector<int>, before);
    QFETCH(QVector<int>, after);
    QFETCH(int, current);
    EditorUnderTest test(evenRamp(fiveColors, 9));
    test.select(before);
    test.run("onInvetSelect");
    QCOMPARE(test.selectedRows(), after);
    QCOMPARE(test.view()->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(test.view()->currentIndex().row(), current);
    QCOMPARE(test.enabledMoves(), QStringList());
    // Twice is what it was.
    test.run("onInvetSelect");
    QCOMPARE(test.selectedRows(), before);
}

void tst_VTColorSchemeEditor_colors::invertingLeavesTheExtendedSelectionWhateverWasBefore_data()
{
    QTest::addColumn<QAbstractItemView::SelectionMode>("mode");
    QTest::addColumn<QVector<int>>("before");
    for (const auto &[name, rows] :
         {std::pair{"some", QVector<int>{1, 3}}, {"all", QVector<int>{0, 1, 2, 3, 4}}}) {
        QTest::addRow("%s, extended", name) << QAbstractItemView::ExtendedSelection << rows;
        QTest::addRow("%s, multiple", name) << QAbstractItemView::MultiSelection << rows;
        QTest::addRow("%s, single", name) << QAbstractItemView::SingleSelection << rows;
    }
}

void tst_VTColorSchemeEditor_colors::invertingLeavesTheExtendedSelectionWhateverWasBefore()
{
    QFETCH(QAbstractItemView::SelectionMode, mode);
    QFETCH(QVector<int>, before);
    EditorUnderTest test(evenRamp(fiveColors, 9));
    test.view()->setSelectionMode(mode);
    test.select(before);
    // What grows the selection does so in the mode that adds to it.
    QVector<QAbstractItemView::SelectionMode> growing;
    connect(test.view()->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [&](const QItemSelection &selected) {
                if (!selected.isEmpty())
                    growing.append(test.view()->selectionMode());
            });
    test.run("onInvetSelect");
    QCOMPARE(test.selectedRows().size(), 5 - before.size());
    QCOMPARE(growing.isEmpty(), before.size() == 5);
    for (const QAbstractItemView::SelectionMode during : qAsConst(growing))
        QCOMPARE(during, QAbstractItemView::MultiSelection);
    QCOMPARE(test.view()->selectionMode(), QAbstractItemView::ExtendedSelection);
}

void tst_VTColorSchemeEditor_colors::invertingKeepsShiftClicksWorking()
{
    EditorUnderTest test(evenRamp(fiveColors, 9));
    test.editor().show();
    QVERIFY(QTest::qWaitForWindowExposed(&test.editor()));
    const auto center = [&test](int row) {
        return test.view()->visualRect(test.model()->index(row, 1)).center();
    };
    QTest::mouseClick(test.view()->viewport(), Qt::LeftButton, Qt::NoModifier, center(0));
    test.run("onInvetSelect");
    QTest::mouseClick(test.view()->viewport(), Qt::LeftButton, Qt::ShiftModifier, center(2));
    QCOMPARE(test.selectedRows(), QVector<int>({0, 1, 2}));
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
