#pragma once

#include <QString>

#include <functional>

class QModelIndex;
class QTableView;

namespace vtcontrolcolorscheme {

/// What assistive tools read of a cell.
struct CellText
{
    QString name; ///< empty: the text that the cell shows
    QString description;
};

using CellDescription = std::function<CellText(const QModelIndex &)>;

/// Gives the cells of a table words for those who do not see its pictures, through the toolkit's
/// accessibility interfaces; the model stays as it is. Call it once for a table.
///
/// `describe` is asked for existing cells only, each time somebody wants to know. It lives as long
/// as the table.
void describeCells(QTableView *table, CellDescription describe);

} // namespace vtcontrolcolorscheme
