#include "analog/MouseFuncBox.h"

#include "analog/EditFuncBox.h"
#include "analog/EntryFuncBox.h"
#include "analog/LimitFuncBox.h"
#include "analog/PlotOverlay.h"
#include "analog/SegmentEngine.h"
#include "analog/StrokeFuncBox.h"
#include "analog/ToolFuncBox.h"
#include "analog/ZoomFuncBox.h"
#include "frame/GlobalDefineCode.h"
#include "frame/Narrow.h"
#include "frame/StatusText.h"
#include "platform/Host.h"

#include <algorithm>
#include <cmath>
#include <utility>

// Phases: idle, MouseArmed (pressed), MouseArmed with MouseMoved (dragging). A pressed tool draws
// from a copy of the plot (KeepPlot, RestorePlot), so that a step visits no dot.

namespace {

constexpr std::int16_t DrawingStatus = 6;            // "right click to exit"
constexpr double MarkAcross = 4.0, MarkAlong = 5.0;  // logical pixels between a press and a mark

double AmplitudeOf(const AnalogWaveRecord& wave, std::int32_t dot) {
    return wave.DotArray[static_cast<std::size_t>(dot)].Y;
}

// A place behind the last dot moves to it.
PlotPlace HoldToDots(const AnalogWaveRecord& wave, PlotPlace place) {
    const std::int32_t last = std::max(wave.Dots - 1, 0);
    if (place.Dot <= last) return place;
    place.Dot = last;
    place.X = std::clamp(PixelOf(wave, last, 0.0).X, 0, wave.PlotWidth);
    return place;
}

// --- zoom tools -----------------------------------------------------------------------------

PlotPlace BandStart(const AnalogWaveRecord& wave) {
    return PlaceOf(wave, RoundToInt(wave.RubberPixelX1), RoundToInt(wave.RubberPixelY1));
}

void TakeBand(AnalogWaveRecord& wave, const PlotPlace& from, const PlotPlace& to) {
    wave.RubberX1 = std::min(from.Dot, to.Dot);
    wave.RubberX2 = std::max(from.Dot, to.Dot);
    wave.RubberY1 = std::max(from.Value, to.Value);
    wave.RubberY2 = std::min(from.Value, to.Value);
}

void DrawBand(AnalogWaveRecord& wave, Tool tool, const PlotPlace& from, const PlotPlace& to) {
    Surface& plot = wave.PlotSurface;
    if (tool == Tool::ZoomY) {
        plot.Line(from.X, from.Y, from.X, to.Y, RubberColour);
        DrawLevelMark(plot, from.X, from.Y);
        DrawLevelMark(plot, from.X, to.Y);
        return;
    }
    if (tool == Tool::ZoomX) {
        plot.Line(from.X, from.Y, to.X, from.Y, RubberColour);
        DrawUprightMark(plot, from.X, from.Y);
        DrawUprightMark(plot, to.X, from.Y);
        return;
    }
    const PixelPoint box[] = {
        {from.X, from.Y}, {to.X, from.Y}, {to.X, to.Y}, {from.X, to.Y}, {from.X, from.Y}};
    plot.Polyline(box, RubberColour);
    DrawUprightMark(plot, from.X, from.Y);
    DrawUprightMark(plot, to.X, to.Y);
}

void ShowBand(std::int16_t index, const PlotPlace& to) {
    AnalogWaveRecord& wave = AnalogAt(index);
    const PlotPlace from = BandStart(wave);
    TakeBand(wave, from, to);
    RestorePlot(wave);
    DrawBand(wave, ToolOf(wave), from, to);
    ShowCursorValues(index);
    TheHost().ShowPlot(index);
}

void PressCentre(std::int16_t index, const PlotPlace& place) {
    AnalogWaveRecord& wave = AnalogAt(index);
    wave.RubberX1 = place.Dot;
    const PixelPoint at = place.Dot < wave.Dots
                              ? PixelOf(wave, place.Dot, AmplitudeOf(wave, place.Dot))
                              : PixelPoint{place.X, place.Y};
    wave.RubberPixelY1 = static_cast<float>(at.Y);
    RestorePlot(wave);
    DrawCross(wave.PlotSurface, at);
    ShowCursorValues(index);
    TheHost().ShowPlot(index);
}

void PressZoom(std::int16_t index, const PlotPlace& place) {
    AnalogWaveRecord& wave = AnalogAt(index);
    wave.MouseArmed = true;
    KeepPlot(wave);
    const Tool tool = ToolOf(wave);
    if (tool == Tool::ZoomCenter) return PressCentre(index, place);
    const PlotPlace start = tool == Tool::ZoomY ? place : HoldToDots(wave, place);
    wave.RubberPixelX1 = static_cast<float>(start.X);
    wave.RubberPixelY1 = static_cast<float>(start.Y);
    ShowBand(index, start);
}

void MoveZoom(std::int16_t index, const PlotPlace& place) {
    if (ToolOf(AnalogAt(index)) == Tool::ZoomCenter) return PressCentre(index, place);
    ShowBand(index, place);
}

void ReleaseZoom(std::int16_t index, const PlotPlace&) {
    ReleaseZoomBand(index);
}

// --- cursor track and point edit ------------------------------------------------------------

void ShowTrack(std::int16_t index, std::int32_t dot) {
    AnalogWaveRecord& wave = AnalogAt(index);
    wave.TrackDot = dot;
    wave.TrackValue = AmplitudeOf(wave, dot);
    wave.TrackShown = true;
    ShowCursorValues(index);
}

void MoveTrack(std::int16_t index, const PlotPlace& place) {
    AnalogWaveRecord& wave = AnalogAt(index);
    if (place.Dot >= wave.Dots) return;
    ShowTrack(index, place.Dot);
    RestorePlot(wave);
    DrawCross(wave.PlotSurface, PixelOf(wave, wave.TrackDot, wave.TrackValue));
    TheHost().ShowPlot(index);
}

void PressTrack(std::int16_t index, const PlotPlace& place) {
    AnalogWaveRecord& wave = AnalogAt(index);
    if (place.Dot >= wave.Dots) return;
    wave.MouseArmed = true;
    wave.TrackShown = false;  // the copy is of the plot without the cross before
    RepaintAnalog(index, false);
    KeepPlot(wave);
    MoveTrack(index, place);
}

void ReleaseTrack(std::int16_t index, const PlotPlace&) {
    RepaintAnalog(index, false);
}

// --- hand and line --------------------------------------------------------------------------

void PressHand(std::int16_t index, const PlotPlace& place) {
    AnalogWaveRecord& wave = AnalogAt(index);
    BeginEdit(wave);
    BeginHandStroke(index, place.X, place.Y);
    wave.MouseArmed = true;
    ShowStatus(DrawingStatus);
    TheHost().ShowTitle(index);
    TheHost().RefreshCommands();
    RepaintAnalog(index, false);
}

void MoveHand(std::int16_t index, const PlotPlace& place) {
    ContinueHandStroke(index, place.X, place.Y);
}

void ReleaseHand(std::int16_t index, const PlotPlace&) {
    EndHandStroke(index);
    ShowTool(index);
}

void PressLine(std::int16_t index, const PlotPlace& place) {
    PlaceLinePoint(index, place.X, place.Y);
    ShowStatus(DrawingStatus);
}

// --- select ---------------------------------------------------------------------------------

// A bar's edge stands for the dot one column to its left. An edge moved to its dot gives that dot
// again, whenever the bounds are taken from the columns.
std::int32_t EdgeOf(const AnalogWaveRecord& wave, std::int32_t dot) {
    return PixelOf(wave, dot, 0.0).X + 1;
}

// The segment whose mark, or whose last dot, lies under a press; -1 for none.
std::int32_t SegmentMarkAt(const AnalogWaveRecord& wave, std::int32_t x, std::int32_t y) {
    const double scale = wave.PlotSurface.Scale();
    const bool onMarks = wave.SegmentMarkOn && y >= wave.PlotHeight - SegmentMarkHeight * scale;
    for (std::int32_t i = 0; i < wave.SegmentCount; ++i) {
        const std::int32_t end = wave.Segments[static_cast<std::size_t>(i)].EndDot;
        if (end < wave.ViewStart || end > wave.ViewEnd) continue;
        const PixelPoint mark = PixelOf(wave, end, AmplitudeOf(wave, end));
        if (std::abs(x - mark.X) > MarkAcross * scale) continue;
        if (onMarks || std::abs(y - mark.Y) <= MarkAlong * scale) return i;
    }
    return -1;
}

void PressSelect(std::int16_t index, const PlotPlace& place) {
    AnalogWaveRecord& wave = AnalogAt(index);
    if (PressLimitLine(index, place.X, place.Y)) {
        wave.MouseArmed = true;
        return;
    }
    const std::int32_t mark = wave.HasSelection ? SegmentMarkAt(wave, place.X, place.Y) : -1;
    if (mark >= 0) {
        PickSegment(wave, mark);
        return ShowSelection(index);
    }
    if (wave.HasSelection) DropSelection(index);
    if (wave.Dots == 0) return;
    wave.MouseArmed = true;
    wave.SelPixelLeft = wave.SelPixelRight = std::min(place.X, EdgeOf(wave, wave.Dots - 1));
    KeepPlot(wave);
}

void MoveSelect(std::int16_t index, const PlotPlace& place) {
    AnalogWaveRecord& wave = AnalogAt(index);
    if (LimitDragged(wave)) return DragLimitLine(index, place);
    wave.SelectionDragging = true;
    // Only the columns that the edge has passed change.
    const auto [first, last] = std::minmax({wave.SelPixelRight, place.X});
    wave.PlotSurface.CopyColumns(wave.GridSurface, first, last);
    wave.SelPixelRight = place.X;
    DrawSelectionBar(wave, first, last);
    TheHost().ShowPlot(index);
}

void ReleaseSelect(std::int16_t index, const PlotPlace&) {
    AnalogWaveRecord& wave = AnalogAt(index);
    if (LimitDragged(wave)) return ReleaseLimitLine(index);
    wave.SelectionDragging = false;
    if (wave.MouseMoved) {
        if (wave.SelPixelLeft > wave.SelPixelRight)
            std::swap(wave.SelPixelLeft, wave.SelPixelRight);
        SelectionFromPixels(wave, wave.SelPixelLeft, wave.SelPixelRight);
        wave.SelPixelLeft = EdgeOf(wave, wave.SelStart);
        wave.SelPixelRight = EdgeOf(wave, wave.SelEnd);
        wave.HasSelection = true;
    }
    ShowSelection(index);
}

// --- which tool does what -------------------------------------------------------------------

using Step = void (*)(std::int16_t index, const PlotPlace& place);
struct ToolSteps {
    Tool Which;
    Step Press, Move, Release;
};

constexpr ToolSteps Steps[] = {
    {Tool::ZoomX, PressZoom, MoveZoom, ReleaseZoom},
    {Tool::ZoomY, PressZoom, MoveZoom, ReleaseZoom},
    {Tool::ZoomRegion, PressZoom, MoveZoom, ReleaseZoom},
    {Tool::ZoomCenter, PressZoom, MoveZoom, ReleaseZoom},
    {Tool::CursorTrack, PressTrack, MoveTrack, ReleaseTrack},
    {Tool::HandDraw, PressHand, MoveHand, ReleaseHand},
    {Tool::LineDraw, PressLine, nullptr, nullptr},
    {Tool::PointEdit, PressTrack, MoveTrack, ReleaseTrack},
    {Tool::Select, PressSelect, MoveSelect, ReleaseSelect},
};

const ToolSteps* StepsOf(const AnalogWaveRecord& wave) {
    const auto* found = std::ranges::find(Steps, ToolOf(wave), &ToolSteps::Which);
    return found == std::end(Steps) ? nullptr : found;
}

void PressRight(std::int16_t index, const PlotPlace& place) {
    const AnalogWaveRecord& wave = AnalogAt(index);
    const Tool tool = ToolOf(wave);
    if (tool != Tool::Select && tool != Tool::Idle) return LeaveTool(index);
    if (wave.MouseArmed) return;  // the left button drags
    const bool inside =
        wave.HasSelection && place.X >= wave.SelPixelLeft && place.X <= wave.SelPixelRight;
    if (wave.HasSelection && !inside) DropSelection(index);
    TheHost().PopupMenu(inside ? "MnuSelect" : "MnuIdle");
}

}  // namespace

void WavePic_MouseDown(std::int16_t index, MouseButton button, std::int32_t x, std::int32_t y) {
    AnalogWaveRecord& wave = AnalogAt(index);
    const PlotPlace place = PlaceOf(wave, x, y);
    if (button == MouseButton::Right) return PressRight(index, place);
    const ToolSteps* steps = StepsOf(wave);
    if (button != MouseButton::Left || steps == nullptr) return;
    wave.MouseArmed = wave.MouseMoved = false;
    steps->Press(index, place);
}

void WavePic_MouseMove(std::int16_t index, MouseButton held, std::int32_t x, std::int32_t y) {
    AnalogWaveRecord& wave = AnalogAt(index);
    if (wave.LineDrawOn) return GuideLine(index, x, y);
    const ToolSteps* steps = StepsOf(wave);
    if (held != MouseButton::Left || !wave.MouseArmed || steps == nullptr) return;
    wave.MouseMoved = true;
    steps->Move(index, PlaceOf(wave, x, y));
}

void WavePic_MouseUp(std::int16_t index, MouseButton button, std::int32_t x, std::int32_t y) {
    AnalogWaveRecord& wave = AnalogAt(index);
    const ToolSteps* steps = StepsOf(wave);
    if (button != MouseButton::Left || !wave.MouseArmed || steps == nullptr) return;
    wave.MouseArmed = false;
    if (steps->Release != nullptr) steps->Release(index, PlaceOf(wave, x, y));
    wave.MouseMoved = false;
}

void WavePic_DblClick(std::int16_t index, std::int32_t x, std::int32_t y) {
    AnalogWaveRecord& wave = AnalogAt(index);
    const PlotPlace place = PlaceOf(wave, x, y);
    if (ToolOf(wave) != Tool::Select) return WavePic_MouseDown(index, MouseButton::Left, x, y);
    if (wave.HasSelection || place.Dot >= wave.Dots) return;
    PickSegment(wave, SegmentWith(wave, place.Dot));
    ShowSelection(index);
}

void StepTrackedDot(std::int16_t index, std::int32_t step) {
    AnalogWaveRecord& wave = AnalogAt(index);
    const Tool tool = ToolOf(wave);
    if ((tool != Tool::CursorTrack && tool != Tool::PointEdit) || wave.Dots == 0) return;
    const std::int64_t middle = (std::int64_t{wave.ViewStart} + wave.ViewEnd) / 2;
    const std::int64_t wished = wave.TrackShown ? std::int64_t{wave.TrackDot} + step : middle;
    const auto dot = static_cast<std::int32_t>(std::clamp<std::int64_t>(wished, 0, wave.Dots - 1));
    ShowTrack(index, dot);
    const std::int32_t start = wave.ViewStart;
    BringIntoView(wave, dot);
    RepaintAnalog(index, wave.ViewStart != start);
}
