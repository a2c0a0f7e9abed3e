#pragma once
// Changes of the mouse tool of a document.
#include "analog/ToolState.h"

/// Turns a tool on and all others off, as every way into a tool does: a gesture under way is
/// finished, the selection goes, boxes and status strip show the new tool, the plot is repainted.
void SwitchTool(std::int16_t index, Tool tool);
/// A tool's button on the active document: on, or back to select where it was on.
void ToggleTool(Tool tool);
/// Right button and Escape: back to select.
void LeaveTool(std::int16_t index);

/// Shows the tool's hint and boxes in the status strip.
void ShowTool(std::int16_t index);
