#include "analog/LimitFuncBox.h"

#include "frame/GlobalDefineCode.h"
#include "frame/Narrow.h"
#include "platform/Host.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double Reach = 2.0;  // logical pixels between a press and a line

void ShowLimits() {
    TheHost().RefreshCommands();
    RepaintAnalog(ActiveAnalogIndex, false);
}

void TogglePair(Flag AnalogWaveRecord::*pair) {
    AnalogWaveRecord& wave = ActiveAnalog();
    if (wave.LimitFixed) return;
    wave.*pair = !(wave.*pair);
    wave.RegionLimitOn = wave.XLimitOn || wave.YLimitOn;
    ShowLimits();
}

std::int32_t HoldBetweenLines(std::int32_t at, float one, float other) {
    const auto [low, high] = std::minmax({RoundToInt(one), RoundToInt(other)});
    return std::clamp(at, low, high);
}

void DrawDragged(AnalogWaveRecord& wave) {
    DrawLimitLines(wave, wave.PlotSurface, ScreenColours);
}

}  // namespace

void ToggleXLimit() {
    TogglePair(&AnalogWaveRecord::XLimitOn);
}
void ToggleYLimit() {
    TogglePair(&AnalogWaveRecord::YLimitOn);
}

void ToggleAreaLimit() {
    AnalogWaveRecord& wave = ActiveAnalog();
    if (wave.LimitFixed) return;
    wave.RegionLimitOn = !wave.RegionLimitOn;
    wave.XLimitOn = wave.YLimitOn = wave.RegionLimitOn;
    ShowLimits();
}

void ToggleLimitFixed() {
    AnalogWaveRecord& wave = ActiveAnalog();
    if (!wave.XLimitOn && !wave.YLimitOn) return;
    wave.LimitFixed = !wave.LimitFixed;
    ShowLimits();
}

PlotPlace HoldToLimits(const AnalogWaveRecord& wave, std::int32_t x, std::int32_t y) {
    const PlotPlace place = PlaceOf(wave, x, y);
    if (!wave.XLimitOn && !wave.YLimitOn) return place;
    return PlaceOf(
        wave,
        wave.XLimitOn ? HoldBetweenLines(place.X, wave.XLimitLeft, wave.XLimitRight) : place.X,
        wave.YLimitOn ? HoldBetweenLines(place.Y, wave.YLimitTop, wave.YLimitBottom) : place.Y);
}

LimitLine LimitLineAt(const AnalogWaveRecord& wave, std::int32_t x, std::int32_t y) {
    if (wave.LimitFixed) return LimitLine::None;
    const double reach = Reach * std::max(wave.PlotSurface.Scale(), 1.0);
    const auto near = [reach](std::int32_t at, float line) {
        return std::abs(static_cast<double>(at) - static_cast<double>(line)) <= reach;
    };
    // With both pairs on a line is only as long as the rectangle that is shown.
    const auto within = [reach](std::int32_t at, float one, float other) {
        const auto [low, high] = std::minmax(one, other);
        return at >= static_cast<double>(low) - reach && at <= static_cast<double>(high) + reach;
    };
    const bool onColumns =
        wave.XLimitOn && (!wave.YLimitOn || within(y, wave.YLimitTop, wave.YLimitBottom));
    const bool onRows =
        wave.YLimitOn && (!wave.XLimitOn || within(x, wave.XLimitLeft, wave.XLimitRight));
    if (onColumns && near(x, wave.XLimitLeft)) return LimitLine::Left;
    if (onColumns && near(x, wave.XLimitRight)) return LimitLine::Right;
    if (onRows && near(y, wave.YLimitTop)) return LimitLine::Top;
    if (onRows && near(y, wave.YLimitBottom)) return LimitLine::Bottom;
    return LimitLine::None;
}

bool IsColumn(LimitLine line) {
    return line == LimitLine::Left || line == LimitLine::Right;
}

bool PressLimitLine(std::int16_t index, std::int32_t x, std::int32_t y) {
    AnalogWaveRecord& wave = AnalogAt(index);
    const LimitLine line = LimitLineAt(wave, x, y);
    if (line == LimitLine::None) return false;
    wave.DragLimitLeft = line == LimitLine::Left;
    wave.DragLimitRight = line == LimitLine::Right;
    wave.DragLimitTop = line == LimitLine::Top;
    wave.DragLimitBottom = line == LimitLine::Bottom;
    RepaintAnalog(index, false);
    KeepPlot(wave);
    DrawDragged(wave);
    return true;
}

void DragLimitLine(std::int16_t index, const PlotPlace& place) {
    AnalogWaveRecord& wave = AnalogAt(index);
    if (wave.DragLimitLeft) wave.XLimitLeft = static_cast<float>(place.X);
    if (wave.DragLimitRight) wave.XLimitRight = static_cast<float>(place.X);
    if (wave.DragLimitTop) wave.YLimitTop = static_cast<float>(place.Y);
    if (wave.DragLimitBottom) wave.YLimitBottom = static_cast<float>(place.Y);
    if (wave.DragLimitLeft || wave.DragLimitRight) wave.TrackX = place.X;
    if (wave.DragLimitTop || wave.DragLimitBottom) wave.TrackY = place.Y;
    RestorePlot(wave);
    DrawDragged(wave);
    TheHost().ShowPlot(index);
}

void ReleaseLimitLine(std::int16_t index) {
    AnalogWaveRecord& wave = AnalogAt(index);
    wave.DragLimitLeft = wave.DragLimitRight = wave.DragLimitTop = wave.DragLimitBottom = false;
    RepaintAnalog(index, false);
}

bool StepLimitLine(std::int16_t index, LimitLine line, std::int32_t pixels) {
    AnalogWaveRecord& wave = AnalogAt(index);
    const bool column = IsColumn(line);
    if (line == LimitLine::None || wave.LimitFixed) return false;
    if (!(column ? wave.XLimitOn : wave.YLimitOn)) return false;
    float& at = line == LimitLine::Left    ? wave.XLimitLeft
                : line == LimitLine::Right ? wave.XLimitRight
                : line == LimitLine::Top   ? wave.YLimitTop
                                           : wave.YLimitBottom;
    const std::int32_t last = std::max(column ? wave.PlotWidth : wave.PlotHeight - 1, 0);
    const std::int32_t moved = std::clamp(RoundToInt(at) + pixels, 0, last);
    at = static_cast<float>(moved);
    (column ? wave.TrackX : wave.TrackY) = moved;
    RepaintAnalog(index, false);
    return true;
}
