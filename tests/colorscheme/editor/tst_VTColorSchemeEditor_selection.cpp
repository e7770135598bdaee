#include "tests/support/EditorUnderTest.h"

#include "tests/support/TestMain.h"

#include <QtTest>

using namespace EditorColors;
using namespace VTObjects;

namespace {

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

} // namespace

class tst_VTColorSchemeEditor_selection : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void selectingAllGivesTheListTheKeyboard();
    void invertingGivesTheComplement_data();
    void invertingGivesTheComplement();
    void invertingLeavesTheExtendedSelectionWhateverWasBefore_data();
    void invertingLeavesTheExtendedSelectionWhateverWasBefore();
    void invertingKeepsShiftClicksWorking();
    void theMovesTellTheTruthAfterEveryCommand_data();
    void theMovesTellTheTruthAfterEveryCommand();
    void theMovesTellTheTruthAfterANewList();
    void allMovesAreEnabledUntilTheFirstSelection();
    void theRowThatMovedUpBecomesCurrent_data();
    void theRowThatMovedUpBecomesCurrent();
    void anAddedColorIsScrolledIntoSight_data();
    void anAddedColorIsScrolledIntoSight();
};

void tst_VTColorSchemeEditor_selection::selectingAllGivesTheListTheKeyboard()
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

void tst_VTColorSchemeEditor_selection::invertingGivesTheComplement_data()
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

void tst_VTColorSchemeEditor_selection::invertingGivesTheComplement()
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

void tst_VTColorSchemeEditor_selection::invertingLeavesTheExtendedSelectionWhateverWasBefore_data()
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

void tst_VTColorSchemeEditor_selection::invertingLeavesTheExtendedSelectionWhateverWasBefore()
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

void tst_VTColorSchemeEditor_selection::invertingKeepsShiftClicksWorking()
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

void tst_VTColorSchemeEditor_selection::theMovesTellTheTruthAfterEveryCommand_data()
{
    QTest::addColumn<QVector<int>>("selected");
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QStringList>("moves");
    const QStringList all{"Top", "Bottom", "Up", "Down"};
    const QStringList down{"Bottom", "Down"};
    const QStringList up{"Top", "Up"};
    const QStringList none;
    QTest::newRow("add, first") << QVector<int>{0} << QByteArray("onAddColor") << down;
    QTest::newRow("add, last") << QVector<int>{4} << QByteArray("onAddColor") << all;
    QTest::newRow("add, two") << QVector<int>{3, 4} << QByteArray("onAddColor") << none;
    QTest::newRow("delete, first") << QVector<int>{0} << QByteArray("onDeleteColor") << none;
    QTest::newRow("delete, last") << QVector<int>{4} << QByteArray("onDeleteColor") << none;
    QTest::newRow("delete, all but two")
        << QVector<int>{0, 1, 2, 3, 4} << QByteArray("onDeleteColor") << none;
    QTest::newRow("delete, leaving one selected")
        << QVector<int>{1, 2, 3, 4} << QByteArray("onDeleteColor") << up;
    QTest::newRow("reverse") << QVector<int>{4} << QByteArray("onColorAntitone") << none;
    QTest::newRow("invert to one") << QVector<int>{0, 1, 2, 3} << QByteArray("onInvetSelect") << up;
    QTest::newRow("invert to many") << QVector<int>{0} << QByteArray("onInvetSelect") << none;
    QTest::newRow("all") << QVector<int>{0} << QByteArray("onSelectAll") << none;
    QTest::newRow("top") << QVector<int>{4} << QByteArray("onTop") << down;
    QTest::newRow("bottom") << QVector<int>{0} << QByteArray("onBottom") << up;
    QTest::newRow("up") << QVector<int>{4} << QByteArray("onUp") << all;
}

void tst_VTColorSchemeEditor_selection::theMovesTellTheTruthAfterEveryCommand()
{
    QFETCH(QVector<int>, selected);
    QFETCH(QByteArray, command);
    QFETCH(QStringList, moves);
    EditorUnderTest test(evenRamp(fiveColors, 9));
    test.select(selected);
    test.run(command.constData());
    QCOMPARE(test.enabledMoves(), moves);
}

void tst_VTColorSchemeEditor_selection::theMovesTellTheTruthAfterANewList()
{
    EditorUnderTest test(evenRamp(fiveColors, 9));
    test.select({2});
    QCOMPARE(test.enabledMoves().size(), 4);
    test.setColors(someColors);
    QCOMPARE(test.selectedRows(), QVector<int>());
    QCOMPARE(test.enabledMoves(), QStringList());
}

void tst_VTColorSchemeEditor_selection::allMovesAreEnabledUntilTheFirstSelection()
{
    EditorUnderTest test(evenRamp(fiveColors, 9));
    QCOMPARE(test.enabledMoves().size(), 4);
    test.run("onAddColor");
    test.run("onColorAntitone");
    QCOMPARE(test.enabledMoves().size(), 4);
}

void tst_VTColorSchemeEditor_selection::theRowThatMovedUpBecomesCurrent_data()
{
    QTest::addColumn<QVector<int>>("deleted");
    QTest::addColumn<int>("current");
    QTest::newRow("the first") << QVector<int>{0} << 0;
    QTest::newRow("in the middle") << QVector<int>{2} << 2;
    QTest::newRow("the last") << QVector<int>{4} << 3;
    QTest::newRow("several") << QVector<int>{1, 3} << 1;
    QTest::newRow("the end") << QVector<int>{3, 4} << 2;
    QTest::newRow("all") << QVector<int>{0, 1, 2, 3, 4} << -1;
}

void tst_VTColorSchemeEditor_selection::theRowThatMovedUpBecomesCurrent()
{
    QFETCH(QVector<int>, deleted);
    QFETCH(int, current);
    EditorUnderTest test(randomRamp(3, 5));
    test.select(deleted);
    test.run("onDeleteColor");
    QCOMPARE(test.view()->currentIndex().row(), current);
    QCOMPARE(test.selectedRows(), QVector<int>());
}

void tst_VTColorSchemeEditor_selection::anAddedColorIsScrolledIntoSight_data()
{
    QTest::addColumn<int>("colors");
    QTest::newRow("12") << 12;
    QTest::newRow("45") << 45;
    QTest::newRow("1000") << 1000;
}

void tst_VTColorSchemeEditor_selection::anAddedColorIsScrolledIntoSight()
{
    QFETCH(int, colors);
    EditorUnderTest test(evenRamp(QVector<QColor>(colors, QColor(1, 2, 3)), 9));
    test.editor().show();
    QVERIFY(QTest::qWaitForWindowExposed(&test.editor()));
    test.select({1});
    test.run("onAddColor");
    const QRect added = test.view()->visualRect(test.model()->index(colors, 1));
    const QRect sight = test.view()->viewport()->rect();
    QVERIFY2(added.top() >= sight.top() && added.bottom() <= sight.bottom(),
             qPrintable(QString::number(added.bottom())));
    QCOMPARE(test.selectedRows(), QVector<int>({1}));
    QCOMPARE(test.view()->currentIndex().row(), 1);
}

VT_TEST_MAIN(tst_VTColorSchemeEditor_selection)
#include "tst_VTColorSchemeEditor_selection.moc"
