#pragma once

#include <QColor>
#include <QVector>

namespace vtcontrolbase {

/// The colours of the menu's grid, row by row: greys from black to white, the pure hues, then the
/// same hues from light to dark.
QVector<QColor> swatchColors();
/// How many of them make a row.
int swatchColumns();

} // namespace vtcontrolbase
