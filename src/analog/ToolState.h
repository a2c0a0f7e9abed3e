#pragma once
// The tools of the mouse, and which one of them a document has on. Exactly one is; select is the
// state of rest.
#include "frame/records/AnalogWaveRecord.h"

#include <span>

enum class Tool : std::uint8_t {
    ZoomX,
    ZoomY,
    ZoomRegion,
    ZoomCenter,
    CursorTrack,
    HandDraw,
    LineDraw,
    PointEdit,
    Select,
    Idle,  // no tool at all
};

struct ToolRow {
    Tool Which;
    Flag AnalogWaveRecord::*On;
    std::int16_t Status;  // code of the hint
};
inline constexpr std::int16_t IdleStatus = 9;

/// In the order in which every mouse event tests them.
std::span<const ToolRow> ToolRows();

/// The tool that is on.
Tool ToolOf(const AnalogWaveRecord& wave);
bool IsZoomTool(Tool tool);

/// Lets go of all that the mouse drags, without a repaint. A stroke or line under way stays open.
void EndDrag(AnalogWaveRecord& wave);
