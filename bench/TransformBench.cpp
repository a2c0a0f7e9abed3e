// What the math commands do to a million dots, each against one plain pass with the same
// arithmetic; smoothing against one pass that changes every dot.
#include "bench/MillionDots.h"
#include "calculus/DotMath.h"
#include "calculus/SmoothDots.h"
#include "calculus/TransformFuncBox.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>

namespace {

using Dots = std::vector<WaveDot>;
using DotChange = void (*)(std::span<WaveDot>);

Dots MakeNoise() {
    Dots dots(MillionDots);
    drawcurves(dots.data(), 0, MillionDots, 6, 2.0F, 0.0F, 1, 0.0F, 0, 0, 0, 0, 0, 0.0F);
    return dots;
}

// A figure and its baseline work in the same memory, since pages differ in speed, and on new dots
// each time: windows upon windows would end in numbers too small for a quick multiplication.
template <typename Change>
void Measure(benchmark::State& state, Change change) {
    static const Dots source = MakeNoise();
    static Dots dots(MillionDots);
    for (auto _ : state) {
        state.PauseTiming();
        dots = source;
        state.ResumeTiming();
        change(std::span(dots));
        benchmark::DoNotOptimize(dots.data());
        benchmark::ClobberMemory();
    }
}

void PlainAbsolute(std::span<WaveDot> dots) {
    for (WaveDot& dot : dots) dot.Y = std::fabs(dot.Y);
}
void PlainInvert(std::span<WaveDot> dots) {
    for (WaveDot& dot : dots) dot.Y = -dot.Y;
}
void PlainMirror(std::span<WaveDot> dots) {
    for (WaveDot *first = &dots.front(), *last = &dots.back(); first < last; ++first, --last)
        std::swap(first->Y, last->Y);
}
template <int Tenths>  // how many tenths of the wave are scaled
void PlainWindow(std::span<WaveDot> dots) {
    const std::size_t end = dots.size() * Tenths / 10;
    for (std::size_t i = 0; i < end; ++i)
        dots[i].Y *= 0.5 * (1.0 - std::cos(6.2831852 * static_cast<double>(i) / MillionDots));
}

void Transform(benchmark::State& state, DotChange change) {
    Measure(state, change);
}
void TransformBase(benchmark::State& state, DotChange change) {
    Measure(state, change);
}
BENCHMARK_CAPTURE(Transform, Absolute, AbsoluteDots);
BENCHMARK_CAPTURE(TransformBase, Absolute, PlainAbsolute);
BENCHMARK_CAPTURE(Transform, Invert, InvertDots);
BENCHMARK_CAPTURE(TransformBase, Invert, PlainInvert);
BENCHMARK_CAPTURE(Transform, Mirror, MirrorDots);
BENCHMARK_CAPTURE(TransformBase, Mirror, PlainMirror);
BENCHMARK_CAPTURE(Transform, RaisedCosine, RaisedCosineDots);
BENCHMARK_CAPTURE(TransformBase, RaisedCosine, PlainWindow<10>);
BENCHMARK_CAPTURE(Transform, Hamming, HammingDots);
BENCHMARK_CAPTURE(TransformBase, Hamming, PlainWindow<10>);
BENCHMARK_CAPTURE(Transform, ExtendCosine, ExtendCosineDots);
BENCHMARK_CAPTURE(TransformBase, ExtendCosine, PlainWindow<2>);

void Smooth(benchmark::State& state, std::int32_t smoothDot) {
    Measure(state, [=](std::span<WaveDot> dots) { SmoothDots(dots, smoothDot); });
}
void SmoothBase(benchmark::State& state, std::int32_t /*smoothDot*/) {
    Measure(state, PlainInvert);
}
BENCHMARK_CAPTURE(Smooth, 3, 3);
BENCHMARK_CAPTURE(SmoothBase, 3, 3);
BENCHMARK_CAPTURE(Smooth, 99, 99);
BENCHMARK_CAPTURE(SmoothBase, 99, 99);

void CombineSum(benchmark::State& state) {
    const Dots left = MakeNoise(), right = MakeNoise();
    Dots result;
    for (auto _ : state) {
        benchmark::DoNotOptimize(CombineDots(left, right, Add, result));
        benchmark::ClobberMemory();
    }
}
void CombineSumBase(benchmark::State& state) {
    const Dots left = MakeNoise(), right = MakeNoise();
    Dots result(left.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < left.size(); ++i)
            result[i] = {left[i].X, std::clamp(left[i].Y + right[i].Y, -1.0, 1.0)};
        benchmark::DoNotOptimize(result.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(CombineSum);
BENCHMARK(CombineSumBase);

}  // namespace
