// The commands that edit the colour list.
#include "colorscheme/editor/VTColorModel.h"
#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/model/actionKeys_p.h"
#include "ui_VTColorSchemeEditorBase.h"
#include "vtcontrolbase/VTColorMenu.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>
#include <limits>
#include <utility>

using vtcontrolcolorscheme::setActionKey;
using VTObjects::VOColorRamp;

namespace {

constexpr QRgb addedColor = qRgb(15, 225, 255);
constexpr int fewestSourceColors = 2;

/// The selected rows, ascending; the search ends after `most` of them. Reads the ranges of the
/// selection: selectedRows() takes a time that grows with the square of their number.
QVector<int> selectedRows(const QTableView &view, int most = std::numeric_limits<int>::max())
{
    QVector<int> rows;
    const int lastColumn = view.model()->columnCount() - 1;
    const QItemSelectionModel *const model = view.selectionModel();
    const QItemSelection selection = model->selection();
    for (const QItemSelectionRange &range : selection) {
        if (range.left() > 0)
            continue;
        // Single cells, which only code can select, make a row if all of them are selected.
        const bool whole = range.right() == lastColumn;
        for (int row = range.top(); row <= range.bottom() && rows.size() < most; ++row) {
            if (whole || model->isRowSelected(row, QModelIndex()))
                rows.append(row);
        }
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

} // namespace

void VTColorSchemeEditor::setupKeys()
{
    QTableView *const list = ui->colorView;
    list->horizontalHeader()->setToolTip(tr("Colors") + QStringLiteral(" (F6)"));
    setActionKey(ui->actionLoad_scheme, QKeySequence::Open);
    ui->actionLoad_scheme->setAutoRepeat(false); // its window would come again and again
    setActionKey(ui->actionAdd_color, Qt::Key_Insert, list);
    setActionKey(ui->actionDelete_color, QKeySequence::Delete, list);
    setActionKey(ui->actionSelect_all, QKeySequence::SelectAll, list);
    setActionKey(ui->actionInvert_select, Qt::CTRL + Qt::Key_I, list);
    setActionKey(ui->actionColor_antitone, Qt::CTRL + Qt::Key_R, list);
    setActionKey(ui->actionTop, Qt::ALT + Qt::Key_Home, list);
    setActionKey(ui->actionBottom, Qt::ALT + Qt::Key_End, list);
    setActionKey(ui->actionUp, Qt::ALT + Qt::Key_Up, list);
    setActionKey(ui->actionDown, Qt::ALT + Qt::Key_Down, list);
}

bool VTColorSchemeEditor::eventFilter(QObject *object, QEvent *event)
{
    if (object != ui->colorView || event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(object, event);
    const auto *press = static_cast<QKeyEvent *>(event);
    const int key = press->key();
    const bool isPlain = (press->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const QModelIndex current = ui->colorView->currentIndex();
    // Without a row it is the dialog's Return.
    if (!isPlain || !current.isValid() ||
        (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_F2))
        return QDialog::eventFilter(object, event);
    if (press->isAutoRepeat())
        return true; // held since it answered the menu, and not for Ok either
    const QModelIndex swatch = current.sibling(current.row(), VTColorModel::SwatchColumn);
    ui->colorView->scrollTo(swatch);
    onColorDoubleClicked(swatch);
    return true;
}

void VTColorSchemeEditor::onAddColor()
{
    colorModel->appendColor(addedColor);
    ui->colorView->scrollToBottom(); // where it is, with the selection as it was
    onPreview();
}

void VTColorSchemeEditor::onDeleteColor()
{
    // The kinds behind the random ones are made of these colours and need some.
    const bool needsColors = ui->comboBox_type->currentIndex() > VOColorRamp::RandomHsvRamp;
    const auto canLoseNone = [this, needsColors] {
        return needsColors && colorModel->colors.size() <= fewestSourceColors;
    };
    if (canLoseNone())
        return;
    const QVector<int> rows = selectedRows(*ui->colorView);
    if (rows.isEmpty())
        return;
    // From the end, so that no row moves before its turn.
    int next = rows.last();
    for (auto row = rows.crbegin(); row != rows.crend() && !canLoseNone(); ++row) {
        colorModel->removeColorAt(*row);
        next = *row;
    }
    // The row that moved up is where the user goes on by keyboard. It is not selected.
    next = std::min(next, colorModel->colors.size() - 1);
    ui->colorView->selectionModel()->setCurrentIndex(colorModel->index(next, 0),
                                                     QItemSelectionModel::NoUpdate);
    onPreview();
}

void VTColorSchemeEditor::onSelectAll()
{
    ui->colorView->setFocus(Qt::OtherFocusReason);
    ui->colorView->selectAll();
}

void VTColorSchemeEditor::onInvetSelect()
{
    QItemSelection others;
    int lastRow = -1;
    const auto addRows = [&](int first, int last) {
        if (first > last)
            return;
        others.append(QItemSelectionRange(colorModel->index(first, 0),
                                          colorModel->index(last, VTColorModel::SwatchColumn)));
        lastRow = last;
    };
    int next = 0;
    const QVector<int> formerRows = selectedRows(*ui->colorView);
    for (const int row : formerRows) {
        addRows(next, row - 1);
        next = row + 1;
    }
    addRows(next, colorModel->rowCount() - 1);

    ui->colorView->clearSelection();
    ui->colorView->setSelectionMode(QAbstractItemView::MultiSelection);
    if (lastRow >= 0) {
        // All rows in one go, since one by one they take seconds in a long list. The last one
        // becomes the current one, as if it had been added last.
        QItemSelectionModel *const selection = ui->colorView->selectionModel();
        selection->select(others, QItemSelectionModel::Select);
        selection->setCurrentIndex(colorModel->index(lastRow, 0), QItemSelectionModel::NoUpdate);
    }
    // Whatever the mode was before.
    ui->colorView->setSelectionMode(QAbstractItemView::ExtendedSelection);
}

void VTColorSchemeEditor::onColorAntitone()
{
    ui->colorView->clearSelection();
    QVector<QColor> reversed = colorModel->colors;
    std::reverse(reversed.begin(), reversed.end());
    colorModel->setColors(reversed);
    onPreview();
}

// Deliberate: "Top" and "Bottom" exchange two colours. The rows between them stay where they are.
void VTColorSchemeEditor::onTop()
{
    const int row = ui->colorView->currentIndex().row();
    if (!swapColors(row, 0))
        return;
    announceChange(0, 0);
    announceChange(row, row);
    showMovedTo(0);
}

void VTColorSchemeEditor::onUp()
{
    const int row = ui->colorView->currentIndex().row();
    if (!swapColors(row, row - 1))
        return;
    announceChange(row - 1, row);
    showMovedTo(row - 1);
}

void VTColorSchemeEditor::onBottom()
{
    const int row = ui->colorView->currentIndex().row();
    const int last = colorModel->colors.size() - 1;
    if (!swapColors(row, last))
        return;
    announceChange(row, row);
    announceChange(last, last);
    showMovedTo(last);
}

void VTColorSchemeEditor::onDown()
{
    const int row = ui->colorView->currentIndex().row();
    if (!swapColors(row, row + 1))
        return;
    announceChange(row, row + 1);
    showMovedTo(row + 1);
}

bool VTColorSchemeEditor::swapColors(int row, int otherRow)
{
    QVector<QColor> &colors = colorModel->colors;
    if (std::min(row, otherRow) < 0 || std::max(row, otherRow) >= colors.size())
        return false;
    std::swap(colors[row], colors[otherRow]);
    return true;
}

void VTColorSchemeEditor::announceChange(int firstRow, int lastRow)
{
    Q_EMIT colorModel->dataChanged(colorModel->index(firstRow, 0), colorModel->index(lastRow, 0));
    // Deliberate: only the number column is announced. The swatches beside it are drawn anew all
    // the same.
    ui->colorView->viewport()->update();
}

void VTColorSchemeEditor::showMovedTo(int row)
{
    ui->colorView->clearSelection();
    ui->colorView->selectRow(row);
    // selectRow() adds or extends while Ctrl or Shift is held; a moved colour is selected alone.
    ui->colorView->selectionModel()->select(
        colorModel->index(row, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    onPreview();
}

void VTColorSchemeEditor::onSelectionChanged(const QItemSelection &, const QItemSelection &)
{
    hasBeenSelected = true;
    enableMoves();
}

void VTColorSchemeEditor::onListChanged()
{
    if (hasBeenSelected)
        enableMoves();
}

void VTColorSchemeEditor::enableMoves()
{
    const QVector<int> rows = selectedRows(*ui->colorView, 2);
    const bool single = rows.size() == 1;
    const bool first = single && rows.first() == 0;
    // Deliberate: a row that is both first and last counts as the first one only.
    const bool last = single && !first && rows.first() == colorModel->rowCount() - 1;
    ui->actionTop->setEnabled(single && !first);
    ui->actionUp->setEnabled(single && !first);
    ui->actionBottom->setEnabled(single && !last);
    ui->actionDown->setEnabled(single && !last);
}

void VTColorSchemeEditor::onColorDoubleClicked(const QModelIndex &index)
{
    if (!index.isValid() || index.column() != VTColorModel::SwatchColumn)
        return;
    const int row = index.row();
    if (row >= colorModel->colors.size())
        return;
    VTColorMenu menu(this);
    menu.setColor(colorModel->colors.at(row));
    const QPoint corner(ui->colorView->columnViewportPosition(VTColorModel::SwatchColumn),
                        ui->colorView->rowViewportPosition(row) + ui->colorView->rowHeight(row));
    menu.exec(ui->colorView->viewport()->mapToGlobal(corner));
    const QColor color(menu.getColor());
    // A host's code may have run while the menu was open.
    if (row >= colorModel->colors.size() || colorModel->colors.at(row) == color)
        return;
    colorModel->colors[row] = color;
    announceChange(row, row);
    onPreview();
}
