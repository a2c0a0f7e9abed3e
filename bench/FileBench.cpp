// The text file of a million dots against the conversion of its numbers alone: no lines, no
// checks, no document.
#include "bench/MillionDots.h"
#include "files/FileOptFuncCode.h"

#include <benchmark/benchmark.h>

#include <charconv>

namespace {

constexpr std::size_t NumberRoom = 32;  // a shortest double has at most 24 characters

// X and Y of every dot, one behind the other, each ended by a blank.
std::size_t WriteNumbers(std::span<const WaveDot> dots, std::vector<char>& room) {
    char* at = room.data();
    char* const end = at + room.size();
    for (const WaveDot& dot : dots) {
        at = std::to_chars(at, end, dot.X).ptr;
        *at++ = ' ';
        at = std::to_chars(at, end, dot.Y).ptr;
        *at++ = ' ';
    }
    return static_cast<std::size_t>(at - room.data());
}

void WriteText(benchmark::State& state) {
    const AnalogWaveRecord& wave = OpenMillionDots(Shape::Noise);
    for (auto _ : state) {
        const std::string text = WriteAnalogText(wave);
        benchmark::DoNotOptimize(text.data());
    }
}

void WriteTextBase(benchmark::State& state) {
    const AnalogWaveRecord& wave = OpenMillionDots(Shape::Noise);
    std::vector<char> room(2 * NumberRoom * MillionDots);
    for (auto _ : state) benchmark::DoNotOptimize(WriteNumbers(wave.DotArray, room));
}

void ReadText(benchmark::State& state) {
    const std::string text = WriteAnalogText(OpenMillionDots(Shape::Noise));
    for (auto _ : state) {
        LoadedWave content;
        if (!ReadAnalogText(text, content) || content.Dots != MillionDots) {
            state.SkipWithError("the text could not be read back");
            break;
        }
        benchmark::DoNotOptimize(content.DotArray.data());
    }
}

void ReadTextBase(benchmark::State& state) {
    const AnalogWaveRecord& wave = OpenMillionDots(Shape::Noise);
    std::vector<char> room(2 * NumberRoom * MillionDots);
    const char* const end = room.data() + WriteNumbers(wave.DotArray, room);
    std::vector<WaveDot> dots(MillionDots);
    for (auto _ : state) {
        const char* at = room.data();
        for (WaveDot& dot : dots) {
            at = std::from_chars(at, end, dot.X).ptr + 1;
            at = std::from_chars(at, end, dot.Y).ptr + 1;
        }
        benchmark::DoNotOptimize(dots.data());
        benchmark::ClobberMemory();
    }
}

BENCHMARK(WriteText);
BENCHMARK(WriteTextBase);
BENCHMARK(ReadText);
BENCHMARK(ReadTextBase);

}  // namespace
