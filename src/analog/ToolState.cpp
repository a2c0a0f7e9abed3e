#include "analog/ToolState.h"

namespace {

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

}  // namespace

std::span<const ToolRow> ToolRows() {
    return Rows;
}

Tool ToolOf(const AnalogWaveRecord& wave) {
    for (const ToolRow& row : Rows)
        if (wave.*row.On) return row.Which;
    return Tool::Idle;
}

bool IsZoomTool(Tool tool) {
    return tool <= Tool::ZoomCenter;
}

void EndDrag(AnalogWaveRecord& wave) {
    wave.MouseArmed = wave.MouseMoved = false;
    wave.DragLimitLeft = wave.DragLimitRight = wave.DragLimitTop = wave.DragLimitBottom = false;
    wave.VPointerDragging = wave.HPointerDragging = false;
}
