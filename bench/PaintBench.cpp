// Painting: a full redraw against one pass over the dots, a drag against one surface copy.
#include "analog/DrawAnalogWave.h"
#include "bench/MillionDots.h"

#include <benchmark/benchmark.h>

namespace {

// The curve crosses the middle of the plot. Without it the figure would be that of an empty grid.
bool ShowsCurve(const Surface& plot) {
    if (plot.Width() != PlotWidth || plot.Height() != PlotHeight) return false;
    for (std::int32_t x = 0; x < PlotWidth; ++x) {
        if (plot.Pixel(x, PlotHeight / 2) == ScreenColours.Curve) return true;
    }
    return false;
}

void FullRedraw(benchmark::State& state, Shape shape) {
    const AnalogWaveRecord& wave = OpenMillionDots(shape);
    for (auto _ : state) {
        RepaintAnalog(0, true);
        benchmark::ClobberMemory();
    }
    if (!ShowsCurve(wave.PlotSurface)) state.SkipWithError("no curve on the plot");
}

void FullRedrawBase(benchmark::State& state, Shape shape) {
    const AnalogWaveRecord& wave = OpenMillionDots(shape);
    for (auto _ : state) {
        benchmark::DoNotOptimize(PlainBounds(wave.DotArray));
        benchmark::ClobberMemory();
    }
}

// A rubber band: the plot comes back from the copy taken at the press, four lines go on top.
void DragOverlay(benchmark::State& state) {
    AnalogWaveRecord& wave = OpenMillionDots(Shape::Sine);
    wave.GridSurface.CopyFrom(wave.PlotSurface);
    std::int32_t x = 0;
    for (auto _ : state) {
        x = (x + 7) % (PlotWidth - 200);
        wave.PlotSurface.CopyFrom(wave.GridSurface);
        wave.PlotSurface.Line(x, 100, x + 199, 100, RubberColour);
        wave.PlotSurface.Line(x + 199, 100, x + 199, 700, RubberColour);
        wave.PlotSurface.Line(x + 199, 700, x, 700, RubberColour);
        wave.PlotSurface.Line(x, 700, x, 100, RubberColour);
        benchmark::ClobberMemory();
    }
}

void DragOverlayBase(benchmark::State& state) {
    AnalogWaveRecord& wave = OpenMillionDots(Shape::Sine);
    wave.GridSurface.CopyFrom(wave.PlotSurface);
    for (auto _ : state) {
        wave.PlotSurface.CopyFrom(wave.GridSurface);
        benchmark::ClobberMemory();
    }
}

BENCHMARK_CAPTURE(FullRedraw, Sine, Shape::Sine);
BENCHMARK_CAPTURE(FullRedrawBase, Sine, Shape::Sine);
BENCHMARK_CAPTURE(FullRedraw, Noise, Shape::Noise);
BENCHMARK_CAPTURE(FullRedrawBase, Noise, Shape::Noise);
BENCHMARK(DragOverlay);
BENCHMARK(DragOverlayBase);

}  // namespace
