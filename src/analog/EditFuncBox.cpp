#include "analog/EditFuncBox.h"

#include "analog/AnalogDocument.h"
#include "analog/DrawAnalogWave.h"
#include "analog/EntryFuncBox.h"
#include "analog/SegmentEngine.h"
#include "analog/ToolState.h"
#include "frame/GlobalDefineCode.h"
#include "frame/Narrow.h"
#include "platform/Host.h"

#include <algorithm>
#include <utility>

namespace {

bool ExactBounds(const AnalogWaveRecord& wave) {
    return wave.SelectionDragging || wave.SegmentPicked;
}

void SelectPixels(AnalogWaveRecord& wave) {
    const WaveView view = ViewOf(wave);
    wave.SelPixelLeft = RoundToInt(DotToPixel(wave.SelStart, view, wave.PlotWidth));
    wave.SelPixelRight = RoundToInt(DotToPixel(wave.SelEnd, view, wave.PlotWidth));
}

// SelectionFlagA and SelectionFlagB: the edges of the selection lie on borders of segments.
void FlagBorders(AnalogWaveRecord& wave) {
    wave.SelectionFlagA = false;
    wave.SelectionFlagB = wave.SelEnd >= wave.Dots;
    for (std::int32_t i = 0; i < wave.SegmentCount; ++i) {
        const WaveSegment& segment = wave.Segments[static_cast<std::size_t>(i)];
        if (segment.RunStart == wave.SelStart) wave.SelectionFlagA = true;
        if (segment.EndDot == wave.SelEnd) wave.SelectionFlagB = true;
    }
}

void HoldBounds(AnalogWaveRecord& wave) {
    const std::int32_t last = std::max(wave.Dots - 1, 0);
    wave.SelStart = std::clamp(wave.SelStart, 0, last);
    wave.SelEnd = std::clamp(wave.SelEnd, wave.SelStart, last);
}

// Brings the bounds of the present selection up to date; false without one.
bool TakeBounds(AnalogWaveRecord& wave) {
    if (!wave.HasSelection || wave.Dots == 0) return false;
    SelectionFromPixels(wave, wave.SelPixelLeft, wave.SelPixelRight);
    return true;
}

void CopySelection(const AnalogWaveRecord& wave) {
    ClipDotCount = wave.SelEnd - wave.SelStart + 1;
    ClipValues.resize(static_cast<std::size_t>(ClipDotCount));
    for (std::int32_t i = 0; i < ClipDotCount; ++i)
        ClipValues[static_cast<std::size_t>(i)] =
            wave.DotArray[static_cast<std::size_t>(wave.SelStart + i)].Y;
    ClipAvailable = true;
}

void RemoveSelection(AnalogWaveRecord& wave) {
    RemoveRunSegments(wave, wave.SelStart, wave.SelEnd);
    MoveTail(wave, wave.SelEnd + 1, wave.SelStart);
}

// Cut and Delete: the snapshot is taken, and undo opened, even where nothing is selected.
void TakeOut(bool toClipboard) {
    AnalogWaveRecord& wave = ActiveAnalog();
    const bool exact = ExactBounds(wave);
    const bool selected = TakeBounds(wave);
    BeginEdit(wave);
    if (selected) {
        // A bar that begins at the second dot takes the first one with it, on purpose.
        if (!exact && wave.SelStart < 2) wave.SelStart = 0;
        if (toClipboard) CopySelection(wave);
        RemoveSelection(wave);
    }
    ClearSelection(wave);
    EndEdit(ActiveAnalogIndex);
}

// Holds or drops a selection that no longer fits; a pick that is not exactly its segment falls.
void FitSelection(AnalogWaveRecord& wave) {
    if (!wave.HasSelection) return;
    if (wave.SelStart >= wave.Dots) return ClearSelection(wave);
    // Cut short, it has dots of its own: the columns of the mouse reach past them.
    if (wave.SelEnd >= wave.Dots) wave.SelectionDragging = true;
    HoldBounds(wave);
    if (!wave.SegmentPicked) return;
    const bool same =
        wave.PickedSegment < wave.SegmentCount &&
        wave.Segments[static_cast<std::size_t>(wave.PickedSegment)].RunStart == wave.SelStart &&
        wave.Segments[static_cast<std::size_t>(wave.PickedSegment)].EndDot == wave.SelEnd;
    if (!same) wave.SegmentPicked = false;
}

// The cross of cursor track and point edit stays on its dot.
void FitTrack(AnalogWaveRecord& wave) {
    if (wave.TrackDot >= wave.Dots) wave.TrackShown = false;
    if (wave.TrackShown) wave.TrackValue = wave.DotArray[static_cast<std::size_t>(wave.TrackDot)].Y;
}

void ExchangeState() {
    AnalogWaveRecord& wave = ActiveAnalog();
    SwapSnapshot(wave);
    if (wave.ExpandToSuit && wave.Dots >= 1) {
        wave.ViewStart = 0;
        wave.ViewEnd = std::max(wave.Dots - 1, 1);
        wave.SelectionDragging = wave.HasSelection;  // as after any change of the view
    }
    EndEdit(ActiveAnalogIndex, true);
}

}  // namespace

void MarkModified(AnalogWaveRecord& wave) {
    wave.Modified = true;
    wave.EditStamp = ++EditClock;
}

void TakeSnapshot(AnalogWaveRecord& wave) {
    MarkModified(wave);
    wave.UndoDots = wave.Dots;
    wave.UndoSegmentCount = wave.SegmentCount;
    wave.UndoLastDot = wave.LastDot;
    wave.UndoSegments.assign(wave.Segments.begin(), wave.Segments.begin() + wave.SegmentCount);
    std::copy_n(wave.DotArray.begin(), wave.Dots, wave.UndoDotArray.begin());
}

void SwapSnapshot(AnalogWaveRecord& wave) {
    std::swap(wave.Dots, wave.UndoDots);
    std::swap(wave.SegmentCount, wave.UndoSegmentCount);
    std::swap(wave.LastDot, wave.UndoLastDot);
    std::swap(wave.DotArray, wave.UndoDotArray);
    std::swap(wave.Segments, wave.UndoSegments);
}

void MoveTail(AnalogWaveRecord& wave, std::int32_t from, std::int32_t to) {
    const auto dots = wave.DotArray.begin();
    if (to == from) return;
    if (to > from)
        std::copy_backward(dots + from, dots + wave.Dots, dots + wave.Dots + (to - from));
    else
        std::copy(dots + from, dots + wave.Dots, dots + to);
    wave.Dots += to - from;
    wave.LastDot = std::max(wave.Dots - 1, 0);
    for (std::int32_t dot = to; dot < wave.Dots; ++dot) dots[dot].X = dot;
}

void SetUndoAvailable(AnalogWaveRecord& wave, Flag available) {
    wave.UndoAvailable = available;
}
void SetResumeAvailable(AnalogWaveRecord& wave, Flag available) {
    wave.ResumeAvailable = available;
}

void CloseStroke(AnalogWaveRecord& wave) {
    if (!wave.DrawPressed) return;
    wave.DrawPressed = false;
    OverlayRunSegment(wave, wave.DrawStartDot, wave.DrawAnchorDot);
}

void EndLineDraw(AnalogWaveRecord& wave) {
    wave.LinePending = false;
}

void FinishGesture(AnalogWaveRecord& wave) {
    CloseStroke(wave);
    EndLineDraw(wave);
    EndDrag(wave);
}

void BeginEdit(AnalogWaveRecord& wave) {
    FinishGesture(wave);
    TakeSnapshot(wave);
    SetUndoAvailable(wave, true);
    SetResumeAvailable(wave, false);
}

void EndEdit(std::int16_t index, Flag fullRedraw) {
    AnalogWaveRecord& wave = AnalogAt(index);
    MarkModified(wave);
    FitSelection(wave);
    FitTrack(wave);
    if (wave.TrackShown) ShowCursorValues(index);
    TheHost().ShowTitle(index);
    TheHost().RefreshCommands();
    RepaintAnalog(index, fullRedraw);
}

void ClearSelection(AnalogWaveRecord& wave) {
    wave.HasSelection = false;
    wave.SelectionDragging = false;
    wave.SegmentPicked = false;
}

void ShowSelection(std::int16_t index) {
    ShowCursorValues(index);
    TheHost().RefreshCommands();
    RepaintAnalog(index, false);
}

void DropSelection(std::int16_t index) {
    ClearSelection(AnalogAt(index));
    ShowSelection(index);
}

void SelectDots(AnalogWaveRecord& wave, std::int32_t first, std::int32_t last) {
    ClearSelection(wave);
    if (wave.Dots == 0) return;
    wave.SelStart = first;
    wave.SelEnd = last;
    HoldBounds(wave);
    wave.HasSelection = true;
    wave.SelectionDragging = true;
    FlagBorders(wave);
    SelectPixels(wave);
}

void PickSegment(AnalogWaveRecord& wave, std::int32_t segment) {
    if (segment < 0 || segment >= wave.SegmentCount) return;
    const WaveSegment& picked = wave.Segments[static_cast<std::size_t>(segment)];
    SelectDots(wave, picked.RunStart, picked.EndDot);
    wave.SegmentPicked = true;
    wave.PickedSegment = segment;
}

void SelectionFromPixels(AnalogWaveRecord& wave, std::int32_t left, std::int32_t right) {
    if (!ExactBounds(wave)) {
        const WaveView view = ViewOf(wave);
        wave.SelStart = std::max(PixelToDot(left - 1.0, view, wave.PlotWidth), 0);
        wave.SelEnd = std::max(PixelToDot(right - 1.0, view, wave.PlotWidth), 0);
    }
    HoldBounds(wave);
    FlagBorders(wave);
}

void UndoAnalog() {
    AnalogWaveRecord& wave = ActiveAnalog();
    if (!wave.UndoAvailable) return;
    FinishGesture(wave);
    SetUndoAvailable(wave, false);
    SetResumeAvailable(wave, true);
    ClearSelection(wave);
    ExchangeState();
}

void ResumeAnalog() {
    AnalogWaveRecord& wave = ActiveAnalog();
    if (!wave.ResumeAvailable) return;
    FinishGesture(wave);
    SetUndoAvailable(wave, true);
    SetResumeAvailable(wave, false);
    ExchangeState();
}

void CutAnalog() {
    TakeOut(true);
}
void DeleteAnalog() {
    TakeOut(false);
}

void CopyAnalog() {
    AnalogWaveRecord& wave = ActiveAnalog();
    if (!TakeBounds(wave)) return;
    CopySelection(wave);
    TheHost().RefreshCommands();
}

void PasteAnalog() {
    AnalogWaveRecord& wave = ActiveAnalog();
    if (ClipDotCount == 0 || !RoomForDots(wave)) return;
    ClearSelection(wave);
    BeginEdit(wave);
    SetResumeAvailable(wave, true);  // paste leaves both directions open
    const std::int32_t start = wave.Dots;
    const std::int32_t end = std::min(start + ClipDotCount, wave.MaxDots);
    for (std::int32_t i = start; i < end; ++i)
        wave.DotArray[static_cast<std::size_t>(i)] = {
            static_cast<double>(i), ClipValues[static_cast<std::size_t>(i - start)]};
    AppendSegment(wave, {.DotCount = end - start});
    EndEdit(ActiveAnalogIndex);
}

void SelectAllAnalog() {
    AnalogWaveRecord& wave = ActiveAnalog();
    const bool whole = wave.HasSelection && ExactBounds(wave) && wave.SelStart == 0 &&
                       wave.SelEnd == wave.Dots - 1;
    if (wave.Dots == 0 || whole) return;
    FinishGesture(wave);
    SelectDots(wave, 0, wave.Dots - 1);
    ShowSelection(ActiveAnalogIndex);
}
