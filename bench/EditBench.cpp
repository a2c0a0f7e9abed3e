// Edits: the snapshot against a bare copy of the same memory, the sine against a loop of std::sin.
#include "analog/EditFuncBox.h"
#include "bench/MillionDots.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>
#include <numbers>

namespace {

constexpr std::int32_t Cycles = 100;

void Snapshot(benchmark::State& state) {
    AnalogWaveRecord& wave = OpenMillionDots(Shape::Noise);
    TakeSnapshot(wave);  // the first one may allocate
    for (auto _ : state) {
        TakeSnapshot(wave);
        benchmark::ClobberMemory();
    }
    if (wave.UndoDots != MillionDots) state.SkipWithError("the snapshot is not complete");
}

void SnapshotBase(benchmark::State& state) {
    const AnalogWaveRecord& wave = OpenMillionDots(Shape::Noise);
    std::vector<WaveDot> copy = wave.DotArray;
    for (auto _ : state) {
        std::memcpy(copy.data(), wave.DotArray.data(), MillionDots * sizeof(WaveDot));
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    }
}

void GenerateSine(benchmark::State& state) {
    std::vector<WaveDot> dots(MillionDots);
    for (auto _ : state) {
        drawcurves(dots.data(), 0, MillionDots, 0, 2.0F, 0.0F, Cycles, 30.0F, 0, 0, 0, 0, 0, 0.0F);
        benchmark::ClobberMemory();
    }
}

void GenerateSineBase(benchmark::State& state) {
    std::vector<WaveDot> dots(MillionDots);
    for (auto _ : state) {
        const double turn = 2.0 * std::numbers::pi * Cycles / MillionDots;
        const double start = std::numbers::pi / 6.0;
        for (std::int32_t i = 0; i < MillionDots; ++i) {
            dots[i] = {static_cast<double>(i), std::sin(start + i * turn)};
        }
        benchmark::DoNotOptimize(dots.data());
        benchmark::ClobberMemory();
    }
}

BENCHMARK(Snapshot);
BENCHMARK(SnapshotBase);
BENCHMARK(GenerateSine);
BENCHMARK(GenerateSineBase);

}  // namespace
