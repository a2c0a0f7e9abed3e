#include "analog/StrokeFuncBox.h"

#include "analog/DrawAnalogWave.h"
#include "analog/EditFuncBox.h"
#include "analog/EntryFuncBox.h"
#include "analog/LimitFuncBox.h"
#include "analog/PlotOverlay.h"
#include "analog/SegmentEngine.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "platform/Host.h"

#include <algorithm>
#include <utility>

// Dots between two points of a stroke rise by (new - old) / (b - a + 1) a dot and their X lies one
// behind their index; the point's own dot is exact. So X ascends, though not strictly.

namespace {

void SetDot(AnalogWaveRecord& wave, std::int32_t dot, double value) {
    wave.DotArray[static_cast<std::size_t>(dot)] = {static_cast<double>(dot), value};
    if (dot < wave.Dots) return;
    wave.Dots = dot + 1;
    wave.LastDot = dot;
}

// The dots behind the last one up to `first`, which has `value`: a straight line from the last
// amplitude. Returns the first dot that the stroke owns.
std::int32_t FillGap(AnalogWaveRecord& wave, std::int32_t first, double value) {
    const std::int32_t begin = wave.Dots;
    if (first <= begin) return first;
    const double old = begin > 0 ? wave.DotArray[static_cast<std::size_t>(begin) - 1].Y : 0.0;
    const double step = (value - old) / (first - begin + 1);
    for (std::int32_t dot = begin; dot < first; ++dot)
        SetDot(wave, dot, old + step * (dot - begin + 1));
    return begin;
}

// From the point at dot `a`, already there, to the one at dot `b`, b > a.
void FillForward(AnalogWaveRecord& wave, std::int32_t a, double from, std::int32_t b, double to) {
    const double step = (to - from) / (b - a + 1);
    for (std::int32_t k = 1; k <= b - a; ++k)
        wave.DotArray[static_cast<std::size_t>(a + k)] = {static_cast<double>(a + k - 1),
                                                          step * k + from};
    SetDot(wave, b, to);
}

// A straight line with exact ends, its gap filled. Returns its first dot.
std::int32_t FillLine(AnalogWaveRecord& wave, std::int32_t a, double from, std::int32_t b,
                      double to) {
    if (a > b) {
        std::swap(a, b);
        std::swap(from, to);
    }
    const std::int32_t first = FillGap(wave, a, from);
    SetDot(wave, a, from);
    if (b > a)
        FillForward(wave, a, from, b, to);
    else
        SetDot(wave, a, to);
    return first;
}

void DrawStep(AnalogWaveRecord& wave, const PlotPlace& place, Colour colour) {
    const PixelPoint from = PixelOf(wave, wave.DrawPrevDot, wave.DrawPrevValue);
    wave.PlotSurface.Line(from.X, from.Y, place.X, place.Y, colour);
}

// Dots x1..x2 in any order; boxes may hold what was typed for another capacity or range.
void InsertLine(std::int32_t x1, std::int32_t x2, double y1, double y2) {
    AnalogWaveRecord& wave = ActiveAnalog();
    BeginEdit(wave);
    const auto hold = [&](std::int32_t dot) { return std::clamp(dot, 0, wave.MaxDots - 1); };
    const std::int32_t a = hold(x1), b = hold(x2);
    const std::int32_t first =
        FillLine(wave, a, std::clamp(y1, -1.0, 1.0), b, std::clamp(y2, -1.0, 1.0));
    OverlayRunSegment(wave, first, std::max(a, b));
    EndEdit(ActiveAnalogIndex, true);
}

}  // namespace

void BeginHandStroke(std::int16_t index, std::int32_t x, std::int32_t y) {
    AnalogWaveRecord& wave = AnalogAt(index);
    const PlotPlace place = HoldToLimits(wave, x, y);
    wave.DrawPressed = true;
    wave.DrawStartDot = FillGap(wave, place.Dot, place.Value);
    SetDot(wave, place.Dot, place.Value);
    wave.DrawAnchorDot = wave.DrawPrevDot = place.Dot;
    wave.DrawPrevValue = place.Value;
}

void ContinueHandStroke(std::int16_t index, std::int32_t x, std::int32_t y) {
    AnalogWaveRecord& wave = AnalogAt(index);
    if (!wave.DrawPressed) return;
    const PlotPlace place = HoldToLimits(wave, x, y);
    const bool forward = place.Dot > wave.DrawPrevDot;
    if (forward) {
        FillForward(wave, wave.DrawPrevDot, wave.DrawPrevValue, place.Dot, place.Value);
        wave.DrawStartDot = std::min(wave.DrawStartDot, wave.DrawPrevDot + 1);
        wave.DrawAnchorDot = std::max(wave.DrawAnchorDot, place.Dot);
    } else if (place.Dot == wave.DrawPrevDot && place.Dot == wave.DrawAnchorDot) {
        SetDot(wave, place.Dot, place.Value);  // upright: the dot takes the height of the mouse
    }
    if (place.Dot >= wave.DrawPrevDot) DrawStep(wave, place, ScreenColours.Curve);
    wave.DrawPrevDot = place.Dot;
    wave.DrawPrevValue = place.Value;
    TheHost().ShowPlot(index);
}

void EndHandStroke(std::int16_t index) {
    AnalogWaveRecord& wave = AnalogAt(index);
    if (!wave.DrawPressed) return;
    CloseStroke(wave);
    EndEdit(index);
}

void PlaceLinePoint(std::int16_t index, std::int32_t x, std::int32_t y) {
    AnalogWaveRecord& wave = AnalogAt(index);
    const PlotPlace place = HoldToLimits(wave, x, y);
    if (!wave.LinePending) {
        BeginEdit(wave);
        wave.LinePending = true;
        wave.LineWritten = false;
    } else {
        const std::int32_t first =
            FillLine(wave, wave.DrawPrevDot, wave.DrawPrevValue, place.Dot, place.Value);
        const std::int32_t last = std::max(wave.DrawPrevDot, place.Dot);
        wave.DrawStartDot = wave.LineWritten ? std::min(wave.DrawStartDot, first) : first;
        wave.DrawAnchorDot = wave.LineWritten ? std::max(wave.DrawAnchorDot, last) : last;
        wave.LineWritten = true;
        OverlayRunSegment(wave, wave.DrawStartDot, wave.DrawAnchorDot);
    }
    wave.DrawPrevDot = place.Dot;
    wave.DrawPrevValue = place.Value;
    EndEdit(index);
    ShowLineEnds(index, place);
}

void GuideLine(std::int16_t index, std::int32_t x, std::int32_t y) {
    AnalogWaveRecord& wave = AnalogAt(index);
    if (!wave.LinePending) return;
    const PlotPlace place = HoldToLimits(wave, x, y);
    RestorePlot(wave);
    DrawStep(wave, place, RubberColour);
    ShowLineEnds(index, place);
    TheHost().ShowPlot(index);
}

void ApplyLineBoxes() {
    const AnalogWaveRecord& wave = ActiveAnalog();
    for (const Entry entry : {Entry::LineX1, Entry::LineY1, Entry::LineX2, Entry::LineY2})
        if (IsEmptyEntry(wave, entry)) return;
    InsertLine(wave.LineX1, wave.LineX2, EntryAmplitude(wave, Entry::LineY1),
               EntryAmplitude(wave, Entry::LineY2));
}

void ApplyPointBoxes() {
    AnalogWaveRecord& wave = ActiveAnalog();
    if (IsEmptyEntry(wave, Entry::ValueX) || IsEmptyEntry(wave, Entry::ValueY)) {
        Complain(PickText("Please input value all!", "输入不能为空"));
        return;
    }
    const double value = EntryAmplitude(wave, Entry::ValueY);
    wave.TrackDot = wave.ValueX;
    wave.TrackShown = wave.PointEditOn;
    InsertLine(wave.ValueX, wave.ValueX, value, value);
}
