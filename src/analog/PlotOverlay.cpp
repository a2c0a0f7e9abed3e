#include "analog/PlotOverlay.h"

#include <algorithm>

namespace {

constexpr double Tick = 3.0;  // logical pixels

}  // namespace

PlotPlace PlaceOf(const AnalogWaveRecord& wave, std::int32_t x, std::int32_t y) {
    const WaveView view = ViewOf(wave);
    const std::int32_t column = std::clamp(x, 0, std::max(wave.PlotWidth, 0));
    const std::int32_t row = std::clamp(y, 0, std::max(wave.PlotHeight - 1, 0));
    const std::int32_t dot = PixelToDot(column, view, wave.PlotWidth);
    return {column, row, std::clamp(dot, 0, std::max(wave.MaxDots - 1, 0)),
            std::clamp(PixelToValue(row, view, wave.PlotHeight), -1.0, 1.0)};
}

void KeepPlot(AnalogWaveRecord& wave) {
    wave.GridSurface.CopyFrom(wave.PlotSurface);
}

void RestorePlot(AnalogWaveRecord& wave) {
    wave.PlotSurface.CopyFrom(wave.GridSurface);
}

void DrawUprightMark(Surface& plot, std::int32_t x, std::int32_t y) {
    DrawCross(plot, {x, y}, Tick, MarkArm);
}

void DrawLevelMark(Surface& plot, std::int32_t x, std::int32_t y) {
    DrawCross(plot, {x, y}, MarkArm, Tick);
}
