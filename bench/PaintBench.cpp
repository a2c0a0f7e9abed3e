// Painting: a full redraw against one pass over the dots.
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

BENCHMARK_CAPTURE(FullRedraw, Sine, Shape::Sine);
BENCHMARK_CAPTURE(FullRedrawBase, Sine, Shape::Sine);
BENCHMARK_CAPTURE(FullRedraw, Noise, Shape::Noise);
BENCHMARK_CAPTURE(FullRedrawBase, Noise, Shape::Noise);

}  // namespace
