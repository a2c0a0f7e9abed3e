#pragma once
// The hands of the tour: mouse presses, keys and pictures on the real windows.
#include <functional>
#include <QPoint>
#include <QString>

class QWidget;

/// Lets events run for a moment.
void Settle(int milliseconds = 20);

/// Presses and releases the left button in the middle of a widget.
void Click(QWidget* widget);

// The left button (or the right one) at places of a widget, with the moves in between.
void Press(QWidget* widget, QPoint at, Qt::MouseButton button = Qt::LeftButton);
void MoveTo(QWidget* widget, QPoint at, Qt::MouseButton held = Qt::LeftButton);
void Release(QWidget* widget, QPoint at, Qt::MouseButton button = Qt::LeftButton);
void ClickAt(QWidget* widget, QPoint at, Qt::MouseButton button = Qt::LeftButton);
void Drag(QWidget* widget, QPoint from, QPoint to);
void DoubleClick(QWidget* widget, QPoint at);
/// Turns the mouse wheel by whole notches, away from the user where positive.
void TurnWheel(QWidget* widget, QPoint at, int notches, Qt::KeyboardModifiers modifiers = {});

/// Types into the widget with the focus on it; the old content is replaced.
void TypeInto(QWidget* widget, const QString& text);
void PressKey(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// The control with a name inside a window; the tour ends with a message when there is none.
QWidget* Control(const QWidget* window, const char* name);

/// Runs `open`, which shows a modal window, and `act` on that window once it stands and `isReady`.
/// The window is cancelled when `act` leaves it open.
void WithDialog(
    const std::function<void()>& open, const std::function<void(QWidget*)>& act,
    const std::function<bool()>& isReady = [] { return true; });

/// Saves a picture of a window.
void TakePicture(QWidget* window, const QString& path);
