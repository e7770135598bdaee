#include "colorscheme/accessibility/DescribedTable_p.h"

#include <QHeaderView>
#include <QPersistentModelIndex>
#include <QTableView>

namespace vtcontrolcolorscheme {

namespace {

/// A child of the table at its row and column; -1 stands for the headers.
class TableChild : public QAccessibleInterface
{
public:
    TableChild(const DescribedTable *table, int rowNumber, int columnNumber)
        : owner(table)
        , row(rowNumber)
        , column(columnNumber)
    {
    }

    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return owner->window(); }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(owner->view());
    }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    void setText(QAccessible::Text, const QString &) override {}

    const DescribedTable *const owner; // it made this
    const int row;
    const int column;
};

QRect onScreen(const QWidget *widget, const QRect &rect)
{
    return QRect(widget->mapToGlobal(rect.topLeft()), rect.size());
}

class HeaderCell : public TableChild
{
public:
    using TableChild::TableChild;

    bool isValid() const override
    {
        return row < owner->rowCount() && column < owner->columnCount();
    }
    QAccessible::Role role() const override
    {
        if (row >= 0)
            return QAccessible::RowHeader;
        return column >= 0 ? QAccessible::ColumnHeader : QAccessible::Pane;
    }
    QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Name)
            return QString();
        return row >= 0 ? owner->rowDescription(row) : owner->columnDescription(column);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invisible = (row < 0 && column < 0) || !header()->isVisible();
        return state;
    }
    QRect rect() const override
    {
        const QHeaderView *shown = header();
        if (row >= 0)
            return onScreen(shown->viewport(), QRect(0, shown->sectionViewportPosition(row),
                                                     shown->width(), shown->sectionSize(row)));
        if (column < 0)
            return QRect();
        return onScreen(shown->viewport(), QRect(shown->sectionViewportPosition(column), 0,
                                                 shown->sectionSize(column), shown->height()));
    }

private:
    const QHeaderView *header() const
    {
        return row >= 0 ? owner->view()->verticalHeader() : owner->view()->horizontalHeader();
    }
};

class BodyCell : public TableChild, public QAccessibleTableCellInterface
{
public:
    BodyCell(const DescribedTable *table, const QModelIndex &modelIndex)
        : TableChild(table, modelIndex.row(), modelIndex.column())
        , index(modelIndex)
    {
    }

    /// False as soon as the cell has moved or gone: the table makes another one then.
    bool isValid() const override
    {
        return index.isValid() && index.row() == row && index.column() == column &&
               index.model() == owner->view()->model();
    }
    QAccessible::Role role() const override { return QAccessible::Cell; }
    QString text(QAccessible::Text kind) const override
    {
        if (!isValid() || (kind != QAccessible::Name && kind != QAccessible::Description))
            return QString();
        const CellText words = owner->describe(index);
        if (kind == QAccessible::Description)
            return words.description;
        return words.name.isEmpty() ? index.data(Qt::DisplayRole).toString() : words.name;
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        if (state.invalid)
            return state;
        const QTableView *view = owner->view();
        state.selectable = true;
        state.focusable = true;
        state.extSelectable = view->selectionMode() == QAbstractItemView::ExtendedSelection;
        state.selected = isSelected();
        state.focused = view->currentIndex() == index;
        state.invisible =
            !view->isVisible() || !view->viewport()->rect().intersects(view->visualRect(index));
        return state;
    }
    QRect rect() const override
    {
        if (!isValid())
            return QRect();
        return onScreen(owner->view()->viewport(), owner->view()->visualRect(index));
    }
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TableCellInterface
                   ? static_cast<QAccessibleTableCellInterface *>(this)
                   : nullptr;
    }

    bool isSelected() const override
    {
        return isValid() && owner->view()->selectionModel()->isSelected(index);
    }
    QList<QAccessibleInterface *> columnHeaderCells() const override
    {
        return {owner->cellAt(-1, column)};
    }
    QList<QAccessibleInterface *> rowHeaderCells() const override
    {
        return {owner->cellAt(row, -1)};
    }
    int columnIndex() const override { return column; }
    int rowIndex() const override { return row; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface *table() const override { return parent(); }

private:
    const QPersistentModelIndex index;
};

} // namespace

DescribedTable::DescribedTable(QTableView *tableView, CellDescription cellDescription)
    : QAccessibleWidget(tableView, QAccessible::Table)
    , description(std::move(cellDescription))
{
}

DescribedTable::~DescribedTable()
{
    forgetChildren();
}

QTableView *DescribedTable::view() const
{
    return static_cast<QTableView *>(widget());
}

void *DescribedTable::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

int DescribedTable::positionOf(int row, int column) const
{
    return (row + 1) * (columnCount() + 1) + column + 1;
}

int DescribedTable::childCount() const
{
    return view()->model() ? (rowCount() + 1) * (columnCount() + 1) : 0;
}

QAccessibleInterface *DescribedTable::child(int position) const
{
    if (position < 0 || position >= childCount())
        return nullptr;
    const int row = position / (columnCount() + 1) - 1;
    const int column = position % (columnCount() + 1) - 1;
    if (const auto known = children.constFind(position); known != children.constEnd()) {
        QAccessibleInterface *cell = QAccessible::accessibleInterface(*known);
        if (cell && cell->isValid())
            return cell;
        // The rows changed while nobody listened to the changes of the model.
        QAccessible::deleteAccessibleInterface(*known);
    }
    QAccessibleInterface *made = nullptr;
    if (row < 0 || column < 0)
        made = new HeaderCell(this, row, column);
    else
        made = new BodyCell(this, indexAt(row, column));
    children.insert(position, QAccessible::registerAccessibleInterface(made));
    return made;
}

int DescribedTable::indexOfChild(const QAccessibleInterface *wanted) const
{
    const auto *cell = dynamic_cast<const TableChild *>(wanted);
    return cell && cell->owner == this && cell->isValid() ? positionOf(cell->row, cell->column)
                                                          : -1;
}

QAccessibleInterface *DescribedTable::childAt(int x, int y) const
{
    const QModelIndex index = view()->indexAt(view()->viewport()->mapFromGlobal(QPoint(x, y)));
    return index.isValid() ? cellAt(index.row(), index.column()) : nullptr;
}

QAccessibleInterface *DescribedTable::focusChild() const
{
    const QModelIndex current = view()->currentIndex();
    return view()->hasFocus() && current.isValid() ? cellAt(current.row(), current.column())
                                                   : nullptr;
}

QAccessibleInterface *DescribedTable::cellAt(int row, int column) const
{
    if (row < -1 || row >= rowCount() || column < -1 || column >= columnCount())
        return nullptr;
    return child(positionOf(row, column));
}

int DescribedTable::rowCount() const
{
    return view()->model() ? view()->model()->rowCount(view()->rootIndex()) : 0;
}

int DescribedTable::columnCount() const
{
    return view()->model() ? view()->model()->columnCount(view()->rootIndex()) : 0;
}

QString DescribedTable::columnDescription(int column) const
{
    return view()->model() ? view()->model()->headerData(column, Qt::Horizontal).toString()
                           : QString();
}

QString DescribedTable::rowDescription(int row) const
{
    return view()->model() ? view()->model()->headerData(row, Qt::Vertical).toString() : QString();
}

int DescribedTable::selectedCellCount() const
{
    return view()->selectionModel() ? view()->selectionModel()->selectedIndexes().size() : 0;
}

QList<QAccessibleInterface *> DescribedTable::selectedCells() const
{
    QList<QAccessibleInterface *> cells;
    if (!view()->selectionModel())
        return cells;
    const QModelIndexList indexes = view()->selectionModel()->selectedIndexes();
    for (const QModelIndex &index : indexes)
        cells.append(cellAt(index.row(), index.column()));
    return cells;
}

int DescribedTable::selectedColumnCount() const
{
    return selectedColumns().size();
}

int DescribedTable::selectedRowCount() const
{
    return selectedRows().size();
}

QList<int> DescribedTable::selectedColumns() const
{
    QList<int> columns;
    for (int column = 0; column < columnCount(); ++column) {
        if (isColumnSelected(column))
            columns.append(column);
    }
    return columns;
}

QList<int> DescribedTable::selectedRows() const
{
    QList<int> rows;
    for (int row = 0; row < rowCount(); ++row) {
        if (isRowSelected(row))
            rows.append(row);
    }
    return rows;
}

bool DescribedTable::isColumnSelected(int column) const
{
    return view()->selectionModel() &&
           view()->selectionModel()->isColumnSelected(column, view()->rootIndex());
}

bool DescribedTable::isRowSelected(int row) const
{
    return view()->selectionModel() &&
           view()->selectionModel()->isRowSelected(row, view()->rootIndex());
}

QModelIndex DescribedTable::indexAt(int row, int column) const
{
    return view()->model() ? view()->model()->index(row, column, view()->rootIndex())
                           : QModelIndex();
}

bool DescribedTable::select(const QModelIndex &index, QItemSelectionModel::SelectionFlags command)
{
    if (!index.isValid() || view()->selectionMode() == QAbstractItemView::NoSelection)
        return false;
    view()->selectionModel()->select(index, command);
    return true;
}

bool DescribedTable::selectRow(int row)
{
    return select(indexAt(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

bool DescribedTable::unselectRow(int row)
{
    return select(indexAt(row, 0), QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
}

bool DescribedTable::selectColumn(int column)
{
    if (view()->selectionBehavior() == QAbstractItemView::SelectRows)
        return false;
    return select(indexAt(0, column), QItemSelectionModel::Select | QItemSelectionModel::Columns);
}

bool DescribedTable::unselectColumn(int column)
{
    if (view()->selectionBehavior() == QAbstractItemView::SelectRows)
        return false;
    return select(indexAt(0, column), QItemSelectionModel::Deselect | QItemSelectionModel::Columns);
}

void DescribedTable::modelChange(QAccessibleTableModelChangeEvent *event)
{
    if (event->modelChangeType() != QAccessibleTableModelChangeEvent::DataChanged)
        forgetChildren();
}

void DescribedTable::forgetChildren()
{
    for (const QAccessible::Id id : qAsConst(children))
        QAccessible::deleteAccessibleInterface(id);
    children.clear();
}

} // namespace vtcontrolcolorscheme
