// Mouse steps: one move of a pressed tool against one plain surface copy, and a step of the wheel
// against one full redraw of the views that it shows.
#include "analog/DrawAnalogWave.h"
#include "analog/LimitFuncBox.h"
#include "analog/MouseFuncBox.h"
#include "analog/PlotOverlay.h"
#include "analog/ToolFuncBox.h"
#include "analog/ZoomFuncBox.h"
#include "bench/MillionDots.h"

#include <benchmark/benchmark.h>

namespace {

constexpr std::int32_t PressX = 20, PressY = 100;

AnalogWaveRecord& OpenWithTool(Tool tool) {
    AnalogWaveRecord& wave = OpenMillionDots(Shape::Sine);
    SwitchTool(0, tool);
    return wave;
}

// The mouse goes to and fro over the whole plot; a stroke goes forward only and begins again.
void MoveOverPlot(benchmark::State& state, Tool tool) {
    std::int32_t x = PressX, y = PressY;
    WavePic_MouseDown(0, MouseButton::Left, x, y);
    for (auto _ : state) {
        x += 9;
        y = (y + 5) % PlotHeight;
        if (x >= PlotWidth) {
            x = PressX;
            if (tool == Tool::HandDraw) {
                state.PauseTiming();
                WavePic_MouseUp(0, MouseButton::Left, x, y);
                WavePic_MouseDown(0, MouseButton::Left, x, y);
                state.ResumeTiming();
                continue;
            }
        }
        WavePic_MouseMove(0, MouseButton::Left, x, y);
        benchmark::ClobberMemory();
    }
    WavePic_MouseUp(0, MouseButton::Left, x, y);
}

void MouseStep(benchmark::State& state, Tool tool) {
    OpenWithTool(tool);
    MoveOverPlot(state, tool);
}

void LimitStep(benchmark::State& state) {
    AnalogWaveRecord& wave = OpenWithTool(Tool::Select);
    ToggleAreaLimit();
    wave.XLimitLeft = static_cast<float>(PressX);
    wave.XLimitRight = static_cast<float>(PlotWidth - 1);
    wave.YLimitTop = 0.0F;
    wave.YLimitBottom = static_cast<float>(PlotHeight - 1);
    MoveOverPlot(state, Tool::Select);
    if (wave.HasSelection) state.SkipWithError("no limit line was dragged");
}

void PlainCopy(benchmark::State& state) {
    AnalogWaveRecord& wave = OpenMillionDots(Shape::Sine);
    KeepPlot(wave);
    for (auto _ : state) {
        RestorePlot(wave);
        benchmark::ClobberMemory();
    }
}

void MouseStepBase(benchmark::State& state, Tool /*tool*/) {
    PlainCopy(state);
}
void LimitStepBase(benchmark::State& state) {
    PlainCopy(state);
}

// In and out again, or there and back.
void WheelStep(benchmark::State& state, bool pan) {
    const AnalogWaveRecord& wave = OpenWithTool(Tool::Select);
    ZoomByWheel(0, PlotWidth / 2, 0, 3, false);
    std::int32_t notch = 1;
    for (auto _ : state) {
        if (pan)
            PanByWheel(0, notch, false);
        else
            ZoomByWheel(0, PlotWidth / 2, 0, notch, false);
        notch = -notch;
        benchmark::ClobberMemory();
    }
    if (!wave.XZoomed) state.SkipWithError("not zoomed");
}

void WheelStepBase(benchmark::State& state, bool pan) {
    AnalogWaveRecord& wave = OpenWithTool(Tool::Select);
    ZoomByWheel(0, PlotWidth / 2, 0, 3, false);
    WaveView here = ViewOf(wave);
    if (pan)
        PanByWheel(0, 1, false);
    else
        ZoomByWheel(0, PlotWidth / 2, 0, 1, false);
    WaveView there = ViewOf(wave);
    for (auto _ : state) {
        wave.ViewStart = here.Start;
        wave.ViewEnd = here.End;
        std::swap(here, there);
        RepaintAnalog(0, true);
        benchmark::ClobberMemory();
    }
}

#define MOUSE_STEP(tool)                            \
    BENCHMARK_CAPTURE(MouseStep, tool, Tool::tool); \
    BENCHMARK_CAPTURE(MouseStepBase, tool, Tool::tool)
MOUSE_STEP(Select);
MOUSE_STEP(CursorTrack);
MOUSE_STEP(HandDraw);
MOUSE_STEP(LineDraw);
MOUSE_STEP(ZoomX);
MOUSE_STEP(ZoomY);
MOUSE_STEP(ZoomRegion);
MOUSE_STEP(ZoomCenter);
BENCHMARK(LimitStep);
BENCHMARK(LimitStepBase);
BENCHMARK_CAPTURE(WheelStep, Zoom, false);
BENCHMARK_CAPTURE(WheelStepBase, Zoom, false);
BENCHMARK_CAPTURE(WheelStep, Pan, true);
BENCHMARK_CAPTURE(WheelStepBase, Pan, true);

}  // namespace
