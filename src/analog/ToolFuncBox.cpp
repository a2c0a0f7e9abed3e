#include "analog/ToolFuncBox.h"

#include "analog/DrawAnalogWave.h"
#include "analog/EditFuncBox.h"
#include "analog/EntryFuncBox.h"
#include "frame/GlobalDefineCode.h"
#include "frame/StatusText.h"
#include "platform/Host.h"

void SwitchTool(std::int16_t index, Tool tool) {
    AnalogWaveRecord& wave = AnalogAt(index);
    FinishGesture(wave);
    for (const ToolRow& row : ToolRows()) wave.*row.On = row.Which == tool;
    if (IsZoomTool(tool)) wave.ExpandToSuit = false;
    wave.TrackShown = false;
    ClearSelection(wave);
    BeginEntries(wave);
    TheHost().ShowTitle(index);
    TheHost().RefreshCommands();
    ShowCursorValues(index);
    ShowTool(index);
    RepaintAnalog(index, true);
}

void ToggleTool(Tool tool) {
    SwitchTool(ActiveAnalogIndex, ToolOf(ActiveAnalog()) == tool ? Tool::Select : tool);
}

void LeaveTool(std::int16_t index) {
    SwitchTool(index, Tool::Select);
}

void ShowTool(std::int16_t index) {
    const Tool tool = ToolOf(AnalogAt(index));
    std::int16_t status = IdleStatus;
    for (const ToolRow& row : ToolRows())
        if (row.Which == tool) status = row.Status;
    ShowStatus(status);
    TheHost().ShowEntries(index);
}
