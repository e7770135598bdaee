#include "colorscheme/accessibility/describeCells_p.h"
#include "tests/support/TestMain.h"

#include <QAccessible>
#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>
#include <QtTest>

using vtcontrolcolorscheme::CellText;
using vtcontrolcolorscheme::describeCells;

class tst_describeCells : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cellsAreReadAsDescribed();
    void aTableThatWasReadBeforeIsReadAnew();
    void otherTablesAreLeftAlone();
    void headersAreChildrenToo();
    void childrenAreNumberedAsTheViewCountsThem();
    void aPlaceOnTheScreenLeadsToItsCell();
    void statesFollowTheView();
    void theSelectionIsReadAndChanged();
    void columnsAreNotSelectedWhereRowsAre();
    void cellsFollowTheRows();
    void aTableWithoutModelHasNoCells();
    void placesOutsideTheTableHaveNoCells();
};

namespace {

/// Three rows of a text and a picture.
class Table : public QTableView
{
public:
    Table()
        : records(3, 2)
    {
        for (int row = 0; row < 3; ++row)
            records.setItem(row, 0, new QStandardItem(QStringLiteral("row %1").arg(row)));
        records.setHorizontalHeaderLabels({QStringLiteral("Text"), QStringLiteral("Picture")});
        setModel(&records);
        setSelectionBehavior(SelectRows);
        verticalHeader()->hide();
        describeCells(this, [](const QModelIndex &index) {
            CellText words;
            if (index.column() == 1) {
                words.name = QStringLiteral("picture %1").arg(index.row());
                words.description = QStringLiteral("of row %1").arg(index.row());
            }
            return words;
        });
    }
    ~Table() override { setModel(nullptr); }

    QAccessibleInterface *accessible()
    {
        return QAccessible::queryAccessibleInterface(static_cast<QObject *>(this));
    }
    QAccessibleInterface *cell(int row, int column)
    {
        return accessible()->tableInterface()->cellAt(row, column);
    }

    QStandardItemModel records;
};

} // namespace

void tst_describeCells::cellsAreReadAsDescribed()
{
    Table table;
    QCOMPARE(table.accessible()->role(), QAccessible::Table);
    QAccessibleTableInterface *rows = table.accessible()->tableInterface();
    QVERIFY(rows);
    QCOMPARE(rows->rowCount(), 3);
    QCOMPARE(rows->columnCount(), 2);
    QAccessibleInterface *picture = table.cell(2, 1);
    QVERIFY(picture);
    QCOMPARE(picture->role(), QAccessible::Cell);
    QCOMPARE(picture->text(QAccessible::Name), QStringLiteral("picture 2"));
    QCOMPARE(picture->text(QAccessible::Description), QStringLiteral("of row 2"));
    QCOMPARE(picture->text(QAccessible::Help), QString());
    QCOMPARE(picture->parent(), table.accessible());
    QCOMPARE(picture->childCount(), 0);
    // Without words of its own a cell is what it shows.
    QCOMPARE(table.cell(1, 0)->text(QAccessible::Name), QStringLiteral("row 1"));
    QCOMPARE(table.cell(1, 0)->text(QAccessible::Description), QString());
    // The model itself says nothing of it.
    QVERIFY(!table.records.index(2, 1).data(Qt::AccessibleTextRole).isValid());
}

void tst_describeCells::aTableThatWasReadBeforeIsReadAnew()
{
    QTableView table;
    QStandardItemModel records(1, 1);
    table.setModel(&records);
    QObject *object = &table;
    QVERIFY(QAccessible::queryAccessibleInterface(object)->tableInterface()->cellAt(0, 0));
    describeCells(&table, [](const QModelIndex &) {
        return CellText{QStringLiteral("described"), QString()};
    });
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(object);
    QCOMPARE(accessible->tableInterface()->cellAt(0, 0)->text(QAccessible::Name),
             QStringLiteral("described"));
}

void tst_describeCells::otherTablesAreLeftAlone()
{
    const Table described;
    QTableView plain;
    QStandardItemModel records(1, 1);
    records.setItem(0, 0, new QStandardItem(QStringLiteral("plain")));
    plain.setModel(&records);
    QAccessibleInterface *accessible =
        QAccessible::queryAccessibleInterface(static_cast<QObject *>(&plain));
    QCOMPARE(accessible->tableInterface()->cellAt(0, 0)->text(QAccessible::Name),
             QStringLiteral("plain"));
}

void tst_describeCells::headersAreChildrenToo()
{
    Table table;
    table.show();
    auto *cell = dynamic_cast<QAccessibleTableCellInterface *>(table.cell(1, 1));
    QVERIFY(cell);
    QCOMPARE(table.cell(1, 1)->tableCellInterface(), cell);
    QCOMPARE(cell->rowIndex(), 1);
    QCOMPARE(cell->columnIndex(), 1);
    QCOMPARE(cell->rowExtent(), 1);
    QCOMPARE(cell->columnExtent(), 1);
    QCOMPARE(cell->table(), table.accessible());
    const QList<QAccessibleInterface *> above = cell->columnHeaderCells();
    QCOMPARE(above.size(), 1);
    QCOMPARE(above[0]->role(), QAccessible::ColumnHeader);
    QCOMPARE(above[0]->text(QAccessible::Name), QStringLiteral("Picture"));
    QVERIFY(!above[0]->state().invisible);
    QCOMPARE(above[0]->rect().left(), table.cell(1, 1)->rect().left());
    const QList<QAccessibleInterface *> before = cell->rowHeaderCells();
    QCOMPARE(before.size(), 1);
    QCOMPARE(before[0]->role(), QAccessible::RowHeader);
    QCOMPARE(before[0]->text(QAccessible::Name), QStringLiteral("2"));
    QVERIFY(before[0]->state().invisible); // the view hides them
    QCOMPARE(table.accessible()->child(0)->role(), QAccessible::Pane);
    QVERIFY(table.accessible()->child(0)->state().invisible);
}

void tst_describeCells::childrenAreNumberedAsTheViewCountsThem()
{
    Table table;
    QAccessibleInterface *accessible = table.accessible();
    QCOMPARE(accessible->childCount(), (3 + 1) * (2 + 1));
    for (int i = 0; i < accessible->childCount(); ++i) {
        QAccessibleInterface *child = accessible->child(i);
        QVERIFY(child);
        QVERIFY(child->isValid());
        QCOMPARE(accessible->indexOfChild(child), i);
        QCOMPARE(accessible->child(i), child); // made once
    }
    QVERIFY(!accessible->child(-1));
    QVERIFY(!accessible->child(accessible->childCount()));
    QCOMPARE(accessible->indexOfChild(accessible), -1);
    QCOMPARE(accessible->indexOfChild(nullptr), -1);

    // The number of the child that the view announces with the focus.
    table.setCurrentIndex(table.records.index(2, 1));
    QAccessibleEvent event(&table, QAccessible::Focus);
    event.setChild((2 + 1) * (2 + 1) + 1 + 1);
    QCOMPARE(event.accessibleInterface()->text(QAccessible::Name), QStringLiteral("picture 2"));
}

void tst_describeCells::aPlaceOnTheScreenLeadsToItsCell()
{
    Table table;
    table.resize(400, 300);
    table.move(30, 40);
    table.show();
    QVERIFY(QTest::qWaitForWindowExposed(&table));
    QAccessibleInterface *picture = table.cell(1, 1);
    const QRect rect = picture->rect();
    QCOMPARE(rect.topLeft(),
             table.viewport()->mapToGlobal(table.visualRect(table.records.index(1, 1)).topLeft()));
    QCOMPARE(rect.size(), table.visualRect(table.records.index(1, 1)).size());
    QCOMPARE(table.accessible()->childAt(rect.center().x(), rect.center().y()), picture);
    QVERIFY(!table.accessible()->childAt(-1000, -1000));
    QCOMPARE(picture->window(), table.windowHandle());
}

void tst_describeCells::statesFollowTheView()
{
    Table table;
    table.resize(400, table.horizontalHeader()->sizeHint().height() + table.rowHeight(0) + 10);
    table.show();
    table.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&table));
    table.clearFocus();
    table.selectRow(0);
    QVERIFY(!table.accessible()->focusChild());
    table.setFocus();
    QAccessible::State state = table.cell(0, 1)->state();
    QVERIFY(state.selected);
    QVERIFY(state.selectable);
    QVERIFY(state.focusable);
    QVERIFY(state.extSelectable);
    QVERIFY(!state.focused); // the row's first cell is the current one
    QVERIFY(!state.invisible);
    QVERIFY(table.cell(0, 0)->state().focused);
    QCOMPARE(table.accessible()->focusChild(), table.cell(0, 0));
    QVERIFY(!table.cell(1, 1)->state().selected);
    QVERIFY(table.cell(2, 1)->state().invisible); // below the edge
    table.scrollToBottom();
    QVERIFY(!table.cell(2, 1)->state().invisible);
}

void tst_describeCells::theSelectionIsReadAndChanged()
{
    Table table;
    QAccessibleTableInterface *rows = table.accessible()->tableInterface();
    QVERIFY(rows->selectRow(0));
    QVERIFY(rows->selectRow(2));
    QCOMPARE(rows->selectedRows(), QList<int>({0, 2}));
    QCOMPARE(rows->selectedRowCount(), 2);
    QCOMPARE(rows->selectedCellCount(), 4);
    QCOMPARE(rows->selectedCells().size(), 4);
    QVERIFY(rows->isRowSelected(2));
    QVERIFY(!rows->isRowSelected(1));
    QVERIFY(rows->unselectRow(0));
    QCOMPARE(rows->selectedRows(), QList<int>({2}));
    QVERIFY(!rows->selectRow(3));
    QVERIFY(!rows->selectRow(-1));
    rows->selectRow(0);
    rows->selectRow(1);
    QCOMPARE(rows->selectedColumns(), QList<int>({0, 1}));
    QCOMPARE(rows->selectedColumnCount(), 2);
}

void tst_describeCells::columnsAreNotSelectedWhereRowsAre()
{
    Table table;
    QAccessibleTableInterface *rows = table.accessible()->tableInterface();
    QVERIFY(!rows->selectColumn(1));
    QCOMPARE(rows->selectedCellCount(), 0);
    table.setSelectionBehavior(QAbstractItemView::SelectItems);
    QVERIFY(rows->selectColumn(1));
    QVERIFY(rows->isColumnSelected(1));
    QVERIFY(rows->unselectColumn(1));
    QCOMPARE(rows->selectedCellCount(), 0);
    table.setSelectionMode(QAbstractItemView::NoSelection);
    QVERIFY(!rows->selectRow(1));
}

void tst_describeCells::cellsFollowTheRows()
{
    Table table;
    QCOMPARE(table.cell(0, 0)->text(QAccessible::Name), QStringLiteral("row 0"));
    table.records.removeRow(0);
    QCOMPARE(table.accessible()->childCount(), (2 + 1) * (2 + 1));
    QCOMPARE(table.cell(0, 0)->text(QAccessible::Name), QStringLiteral("row 1"));
    // And where the change is announced.
    table.records.setItem(1, 0, new QStandardItem(QStringLiteral("changed")));
    QAccessibleTableModelChangeEvent event(&table, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&event);
    QCOMPARE(table.cell(1, 0)->text(QAccessible::Name), QStringLiteral("changed"));
}

void tst_describeCells::aTableWithoutModelHasNoCells()
{
    Table table;
    QVERIFY(table.cell(0, 0));
    table.setModel(nullptr);
    QAccessibleTableInterface *rows = table.accessible()->tableInterface();
    QCOMPARE(table.accessible()->childCount(), 0);
    QCOMPARE(rows->rowCount(), 0);
    QCOMPARE(rows->columnCount(), 0);
    QVERIFY(!rows->cellAt(0, 0));
    QVERIFY(!rows->selectRow(0));
    QCOMPARE(rows->selectedCellCount(), 0);
    QCOMPARE(rows->selectedRows(), QList<int>());
}

void tst_describeCells::placesOutsideTheTableHaveNoCells()
{
    Table table;
    for (const auto &[row, column] : {std::pair{3, 0}, {0, 2}, {-2, 0}, {0, -2}})
        QVERIFY(!table.cell(row, column));
}

VT_TEST_MAIN(tst_describeCells)
#include "tst_describeCells.moc"
