#pragma once
// The mouse on a digital document as a state machine over its record: idle, a rubber band being
// dragged (SelectDrag), the caliper being dragged (CaliperDrag). Positions are logical pixels of
// the picture, of the ruler or of the list's rows; `index` is the slot of the window concerned.
#include "frame/MouseButton.h"

#include <cstdint>

void DigitWavePic_MouseDown(std::int16_t index, MouseButton button, float x, float y);
/// `held` is the button that is down.
void DigitWavePic_MouseMove(std::int16_t index, MouseButton held, float x, float y);
void DigitWavePic_MouseUp(std::int16_t index, MouseButton button, float x, float y);
void DigitWavePic_DblClick(std::int16_t index, float x, float y);

void DigitBackWavePic_MouseDown(std::int16_t index, MouseButton button, float x, float y);
void DigitBackWavePic_MouseMove(std::int16_t index, float x);
void DigitBackWavePic_MouseUp(std::int16_t index, float x);
/// True where the handle of the caliper lies under a place of the ruler.
bool OnCaliperHandle(std::int16_t index, float x, float y);

// How a press in the list treats what is selected there already.
enum class ListAdd : std::uint8_t { Replace, Toggle /* Ctrl */, Range /* Shift */ };

void DispParaListView_MouseDown(std::int16_t index, MouseButton button, float x, float y,
                                ListAdd add);
/// With the left button held: a drag of the selected rows follows the pointer.
void DispParaListView_MouseMove(std::int16_t index, float y);
/// Drops them before the node of a row, behind the last row at the end; on a member they stay.
void DispParaListView_MouseUp(std::int16_t index);
void DispParaListView_DblClick(std::int16_t index, float x, float y);

// Keys in list and picture.
/// Selects the row above or below the one of the last press.
void StepListRow(std::int16_t index, std::int32_t step, ListAdd add);
/// Moves the selected nodes past one node, up (-1) or down (1), and keeps them on the page.
void StepSelectedNodes(std::int16_t index, std::int32_t step);
/// Opens or closes the bus of the row of the last press.
void ExpandClickedRow(std::int16_t index, bool expanded);
/// Opens the Evaluate dialog on the row of the last press.
void EvaluateClickedRow(std::int16_t index);
/// Lets go of what the mouse holds; else drops the selection.
void EscapeDigit(std::int16_t index);
