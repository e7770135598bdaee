#pragma once

#include <QStyleOptionViewItem>

class QAbstractItemView;
class QHelpEvent;
class QLineEdit;
class QRect;
class QWidget;

namespace vtcontrolcolorscheme {

/// The width that the style leaves for the text of a cell, in pixels; the option is complete.
qreal textRoom(const QStyleOptionViewItem &option);

/// Makes the font of a cell smaller until its text stands there whole, in points or in pixels,
/// whichever the font is given in. For numbers in narrow columns: a text can become tiny.
void shrinkToFit(QStyleOptionViewItem &option);

/// The text with a blank for every line break and tab, so that a cell shows its beginning.
QString oneLine(const QString &text);

/// Whether a field still holds the text of the cell that it edits, as far as it can take it.
bool holdsTextOf(const QLineEdit &field, const QModelIndex &index);

/// Shows the text as a tool-tip of the widget, wrapped if it is long, as long as the pointer is in
/// `place` (in the widget's coordinates).
void showTextTip(const QHelpEvent *event, QWidget *widget, const QRect &place, const QString &text);

/// Shows the whole text of a cell as a tool-tip where the cell cannot show it; the option is
/// complete but for its text. False if there is nothing to add to what the cell shows.
bool showWholeText(const QHelpEvent *event, const QAbstractItemView *view,
                   const QStyleOptionViewItem &option, const QString &text);

} // namespace vtcontrolcolorscheme
