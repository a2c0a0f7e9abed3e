#pragma once
// What the pictures of both kinds of documents read from mouse events.
#include "frame/MouseButton.h"

#include <QMouseEvent>
#include <QWheelEvent>

inline MouseButton ButtonOf(Qt::MouseButtons buttons) {
    if (buttons & Qt::LeftButton) return MouseButton::Left;
    return (buttons & Qt::RightButton) ? MouseButton::Right : MouseButton::None;
}

/// Whole notches of a wheel, away from the user or to the left where positive. `rest` keeps what is
/// not yet a notch, in eighths of a degree.
inline int TakeNotches(const QWheelEvent& event, int& rest) {
    constexpr int Notch = 120;
    const QPoint turned = event.angleDelta();
    rest += turned.y() == 0 ? turned.x() : turned.y();
    const int notches = rest / Notch;
    rest -= notches * Notch;
    return notches;
}
