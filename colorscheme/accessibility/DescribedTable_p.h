#pragma once

#include "colorscheme/accessibility/describeCells_p.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QItemSelectionModel>

namespace vtcontrolcolorscheme {

/// A table view whose cells are described by a function. All else is what the toolkit says of such
/// a view: the children are its rows from left to right, with a row of column headers above and a
/// column of row headers before, whether these are shown or not, because the view counts them in
/// the numbers of the children that it announces.
class DescribedTable : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    DescribedTable(QTableView *tableView, CellDescription description);
    ~DescribedTable() override;

    QTableView *view() const;
    CellText describe(const QModelIndex &index) const { return description(index); }

    void *interface_cast(QAccessible::InterfaceType type) override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;
    int childCount() const override;
    QAccessibleInterface *child(int position) const override;
    int indexOfChild(const QAccessibleInterface *wanted) const override;

    QAccessibleInterface *caption() const override { return nullptr; }
    QAccessibleInterface *summary() const override { return nullptr; }
    /// The header cells have the row or the column -1.
    QAccessibleInterface *cellAt(int row, int column) const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface *> selectedCells() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedColumnCount() const override;
    int selectedRowCount() const override;
    int columnCount() const override;
    int rowCount() const override;
    QList<int> selectedColumns() const override;
    QList<int> selectedRows() const override;
    bool isColumnSelected(int column) const override;
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int column) override;
    bool unselectRow(int row) override;
    bool unselectColumn(int column) override;
    void modelChange(QAccessibleTableModelChangeEvent *event) override;

private:
    int positionOf(int row, int column) const;
    QModelIndex indexAt(int row, int column) const;
    bool select(const QModelIndex &index, QItemSelectionModel::SelectionFlags command);
    void forgetChildren();

    CellDescription description;
    mutable QHash<int, QAccessible::Id> children; // by position, made when first asked for
};

} // namespace vtcontrolcolorscheme
