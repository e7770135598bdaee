#pragma once

#include <QAction>
#include <QColor>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPoint>
#include <QWidget>

/// The parts of the colour menu, found as anyone can find them.
namespace ColorMenuParts {

constexpr int columns = 12;
constexpr int cell = 22;  // pixels
constexpr int margin = 4; // pixels

// Some colours of the grid by their places.
const QColor black(0, 0, 0);       // row 0, column 0
const QColor white(255, 255, 255); // row 0, column 11
const QColor red(255, 0, 0);       // row 1, column 0
const QColor yellow(255, 255, 0);  // row 1, column 3
const QColor foreign(1, 2, 3);     // not in the grid

QWidget *part(QWidget *menu, const char *name);
QLineEdit *hexEdit(QWidget *menu);
QLabel *hexMessage(QWidget *menu);
QPoint cellCenter(int row, int column);
/// The swatch as it lies on the screen, its inner pixels only.
QImage swatchImage(QWidget *grid, int row, int column);
/// True if every pixel of the swatch has its colour, false if a mark lies on it.
bool isPlain(const QImage &swatch);
QAction *moreColors(QMenu *menu);
/// Keys go where a user's keys go: to what has the focus in the open popup.
void press(QWidget *menu, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Runs a menu and chooses the colour with the hex field.
void chooseHex(const QColor &color);

} // namespace ColorMenuParts
