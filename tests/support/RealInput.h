#pragma once

#include <QPoint>
#include <QString>

class QWidget;

/// The user's hands: mouse and keyboard through the window system, so that window manager, grabs
/// and focus count as they do for a person. Only for tests with a virtual display of their own.
///
/// Each call returns when the window system has taken the input. What the program makes of it
/// comes with the event loop, so wait for it with QTRY_COMPARE() and the like.
namespace RealInput {

/// Positions are in screen coordinates.
QPoint centerOf(const QWidget *widget);
void moveTo(const QPoint &position);
void click(const QPoint &position);
void doubleClick(const QPoint &position);
/// Clicks while a key is held, such as "ctrl".
void clickWith(const QString &key, const QPoint &position);
/// Clicks the middle of a widget.
void click(const QWidget *widget);

/// Presses the button at one place, moves by way of the middle, and releases it at the other.
void drag(const QPoint &from, const QPoint &to);
/// Turns the wheel towards the user, where the pointer is.
void wheelDown(int steps);
/// Lets go of the button, whatever held it.
void releaseButton();

/// A key by its name in the window system, alone or with others: "Escape", "ctrl+Home".
void press(const QString &key);
/// Types letters.
void type(const QString &text);

} // namespace RealInput
