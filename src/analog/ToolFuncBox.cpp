#include "analog/ToolFuncBox.h"

#include "analog/DrawAnalogWave.h"
#include "analog/EditFuncBox.h"
#include "analog/EntryFuncBox.h"
#include "analog/StrokeFuncBox.h"
#include "frame/GlobalDefineCode.h"
#include "frame/StatusText.h"
#include "platform/Host.h"

namespace {

struct ToolRow {
    Tool Which;
    Flag AnalogWaveRecord::*On;
    std::int16_t Status;  // code of the hint
};

// In the order in which every mouse event tests them.
constexpr ToolRow Rows[] = {
    {Tool::ZoomX, &AnalogWaveRecord::ZoomXMode, 11},
    {Tool::ZoomY, &AnalogWaveRecord::ZoomYMode, 12},
    {Tool::ZoomRegion, &AnalogWaveRecord::ZoomRegionMode, 13},
    {Tool::ZoomCenter, &AnalogWaveRecord::ZoomCenterMode, 14},
    {Tool::CursorTrack, &AnalogWaveRecord::CursorTrackOn, 10},
    {Tool::HandDraw, &AnalogWaveRecord::HandDrawOn, 7},
    {Tool::LineDraw, &AnalogWaveRecord::LineDrawOn, 5},
    {Tool::PointEdit, &AnalogWaveRecord::PointEditOn, 4},
    {Tool::Select, &AnalogWaveRecord::SelectMode, 8},
};
constexpr std::int16_t IdleStatus = 9;

}  // namespace

Tool ToolOf(const AnalogWaveRecord& wave) {
    for (const ToolRow& row : Rows)
        if (wave.*row.On) return row.Which;
    return Tool::Idle;
}

bool IsZoomTool(Tool tool) {
    return tool <= Tool::ZoomCenter;
}

void SwitchTool(std::int16_t index, Tool tool) {
    AnalogWaveRecord& wave = AnalogDocs[static_cast<std::size_t>(index)];
    FinishGesture(wave);
    for (const ToolRow& row : Rows) wave.*row.On = row.Which == tool;
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
    const Tool tool = ToolOf(AnalogDocs[static_cast<std::size_t>(index)]);
    std::int16_t status = IdleStatus;
    for (const ToolRow& row : Rows)
        if (row.Which == tool) status = row.Status;
    ShowStatus(status);
    TheHost().ShowEntries(index);
}
