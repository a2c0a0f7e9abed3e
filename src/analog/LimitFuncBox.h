#pragma once
// Limit lines: two columns and two rows of the plot, in pixels, that hold strokes and lines. They
// are switched by commands and dragged with the mouse, both only while they are not fixed.
#include "analog/PlotOverlay.h"

// Commands on the active document. While LimitFixed is on the first three do nothing.
void ToggleXLimit();
void ToggleYLimit();
/// Both pairs on, or both off.
void ToggleAreaLimit();
/// Fixes the lines, or lets them go; open while a pair is on.
void ToggleLimitFixed();

/// Moves a position to the nearest limit line where it lies outside.
PlotPlace HoldToLimits(const AnalogWaveRecord& wave, std::int32_t x, std::int32_t y);

enum class LimitLine : std::uint8_t { None, Left, Right, Top, Bottom };
/// The shown line within 2 logical pixels of a position; none while the lines are fixed.
LimitLine LimitLineAt(const AnalogWaveRecord& wave, std::int32_t x, std::int32_t y);
bool IsColumn(LimitLine line);

/// Marks the line under a press for dragging and keeps the plot
/// without lines as the picture that steps begin from. False where there is none.
bool PressLimitLine(std::int16_t index, std::int32_t x, std::int32_t y);
/// Sets the dragged line to the position.
void DragLimitLine(std::int16_t index, const PlotPlace& place);
void ReleaseLimitLine(std::int16_t index);
/// Moves a line by device pixels, right or down, held to the plot. False where it is not shown or
/// fixed.
bool StepLimitLine(std::int16_t index, LimitLine line, std::int32_t pixels);
