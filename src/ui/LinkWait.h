#pragma once
// The place that waits for the instrument. While the link works, a filter over all events of the
// program keeps input away from everything but the button that cancels the work, open message
// boxes, and the main window's own caption, by which it is moved, minimised and closed. Painting
// and timers go on.
#include <cstdint>

class QPushButton;
class QWidget;

// The host's entries of the same names.
void HoldInput(bool begins);
void WaitFor(std::int32_t milliseconds);
void PumpEvents();
void AwaitEvent();

/// True between HoldInput(true) and HoldInput(false).
bool InputHeld();

/// Cancels the work under way and ends its wait at once.
void CancelWait();

/// Cancels the work under way. When it has ended, the open dialogs are rejected and the window is
/// closed by its usual road, which may ask about changes.
void CloseAfterWork(QWidget* window);

/// The button that cancels; Escape presses it from everywhere.
QPushButton* MakeCancelWait(QWidget* parent);
