#pragma once
// The mouse on the plot of an analog document, as a state machine over its record: the tool that is
// on and the phase (idle, pressed, dragging) decide what an event does. Positions are device pixels
// of the plot and are held to it; `index` is the slot of the window that got the event.
#include "frame/MouseButton.h"

#include <cstdint>

void WavePic_MouseDown(std::int16_t index, MouseButton button, std::int32_t x, std::int32_t y);
/// `held` is the button that is down, None while the mouse only passes over the plot.
void WavePic_MouseMove(std::int16_t index, MouseButton held, std::int32_t x, std::int32_t y);
void WavePic_MouseUp(std::int16_t index, MouseButton button, std::int32_t x, std::int32_t y);
/// Picks the segment under the mouse, in the select tool and without a selection.
void WavePic_DblClick(std::int16_t index, std::int32_t x, std::int32_t y);

/// Keys in cursor track and point edit: chooses the dot `step` away, held to the waveform. The
/// first step of a tool chooses the middle of what is shown.
void StepTrackedDot(std::int16_t index, std::int32_t step);
