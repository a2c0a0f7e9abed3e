#include "analog/KeyFuncBox.h"

#include "analog/EditFuncBox.h"
#include "analog/EntryFuncBox.h"
#include "analog/LimitFuncBox.h"
#include "analog/SegmentEngine.h"
#include "analog/ToolState.h"
#include "analog/ZoomFuncBox.h"
#include "frame/GlobalDefineCode.h"
#include "frame/Narrow.h"
#include "platform/Host.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::int32_t PageNotches = 5;  // of the wheel: half the view
constexpr std::int32_t HeldPixels = 10;  // of a limit line for each repeat of a held key

// Which edge moves cannot be told from the bounds, once the moving one has passed the other. A
// selection that was not made by keys has its last dot moved.
void TakeEdges(AnalogWaveRecord& wave, bool back) {
    if (!wave.HasSelection) {
        wave.KeyFixedDot = std::clamp(back ? wave.ViewEnd : wave.ViewStart, 0, wave.Dots - 1);
        wave.KeyMovingDot = wave.KeyFixedDot;
        return;
    }
    const auto [first, last] = std::minmax({wave.KeyFixedDot, wave.KeyMovingDot});
    if (first == wave.SelStart && last == wave.SelEnd) return;
    wave.KeyFixedDot = wave.SelStart;
    wave.KeyMovingDot = wave.SelEnd;
}

// Brings dots into view, the first of them where there is no room for both.
void ShowDots(std::int16_t index, std::int32_t first, std::int32_t last) {
    AnalogWaveRecord& wave = AnalogAt(index);
    const std::int32_t start = wave.ViewStart;
    BringIntoView(wave, last);
    BringIntoView(wave, first);
    ShowCursorValues(index);
    TheHost().RefreshCommands();
    RepaintAnalog(index, wave.ViewStart != start);
}

// From a selection that is no segment the step goes to the one in which its edge lies.
std::int32_t NextSegment(const AnalogWaveRecord& wave, PlotKey key) {
    const std::int32_t last = wave.SegmentCount - 1;
    if (key == PlotKey::Home) return 0;
    if (key == PlotKey::End) return last;
    const std::int32_t step = key == PlotKey::Left ? -1 : 1;
    if (wave.HasSelection && wave.SegmentPicked)
        return std::clamp(wave.PickedSegment + step, 0, last);
    if (wave.HasSelection) return SegmentWith(wave, step < 0 ? wave.SelStart : wave.SelEnd);
    return SegmentWith(wave, step < 0 ? wave.ViewEnd : wave.ViewStart);
}

bool StepSegment(std::int16_t index, PlotKey key) {
    AnalogWaveRecord& wave = AnalogAt(index);
    if (wave.Dots == 0 || wave.SegmentCount == 0) return true;
    PickSegment(wave, NextSegment(wave, key));
    ShowDots(index, wave.SelStart, wave.SelEnd);
    return true;
}

bool MoveEdge(std::int16_t index, PlotKey key, KeyState held) {
    AnalogWaveRecord& wave = AnalogAt(index);
    if (wave.Dots == 0) return true;
    const bool back = key == PlotKey::Left || key == PlotKey::Home;
    const std::int32_t span = wave.ViewEnd - wave.ViewStart;
    std::int32_t step = span / std::max(wave.PlotWidth, 1);
    if (held.Control) step = span / 10;
    if (key == PlotKey::Home || key == PlotKey::End) step = wave.Dots;
    step = std::max(step, 1);
    TakeEdges(wave, back);
    wave.KeyMovingDot = std::clamp(wave.KeyMovingDot + (back ? -step : step), 0, wave.Dots - 1);
    const auto [first, last] = std::minmax({wave.KeyFixedDot, wave.KeyMovingDot});
    SelectDots(wave, first, last);
    ShowDots(index, wave.KeyMovingDot, wave.KeyMovingDot);
    return true;
}

bool TakeOtherEdge(std::int16_t index) {
    AnalogWaveRecord& wave = AnalogAt(index);
    if (!wave.HasSelection) return false;
    TakeEdges(wave, false);
    std::swap(wave.KeyFixedDot, wave.KeyMovingDot);
    return true;
}

bool MoveLimit(std::int16_t index, PlotKey key, KeyState held) {
    const bool column = key == PlotKey::Left || key == PlotKey::Right;
    const bool back = key == PlotKey::Left || key == PlotKey::Up;
    if (!column && key != PlotKey::Up && key != PlotKey::Down) return false;
    const LimitLine line = column ? (held.Shift ? LimitLine::Right : LimitLine::Left)
                                  : (held.Shift ? LimitLine::Bottom : LimitLine::Top);
    const double scale = std::max(AnalogAt(index).PlotSurface.Scale(), 1.0);
    const std::int32_t step = RoundToInt((held.Repeats ? HeldPixels : 1) * scale);
    return StepLimitLine(index, line, back ? -step : step);
}

}  // namespace

bool WavePic_KeyDown(std::int16_t index, PlotKey key, KeyState held) {
    const AnalogWaveRecord& wave = AnalogAt(index);
    if (wave.MouseArmed) return false;
    if (key == PlotKey::PageUp || key == PlotKey::PageDown) {
        PanByWheel(index, key == PlotKey::PageUp ? PageNotches : -PageNotches, held.Control);
        return true;
    }
    if (ToolOf(wave) != Tool::Select) return false;
    if (held.Alt) return MoveLimit(index, key, held);
    if (key == PlotKey::Space) return TakeOtherEdge(index);
    if (key == PlotKey::Up || key == PlotKey::Down) return false;
    if (held.Shift) return MoveEdge(index, key, held);
    return !held.Control && StepSegment(index, key);
}
