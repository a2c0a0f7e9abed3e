// The files of a million dots: text and CSV against the conversion of their numbers alone (no
// lines, no checks, no document), the instrument's codes against a plain pass.
#include "analog/DacCode.h"
#include "bench/MillionDots.h"
#include "files/FileOptFuncCode.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <cmath>
#include <cstring>

namespace {

using Writer = std::string (*)(const AnalogWaveRecord&);
using Reader = bool (*)(std::string_view, LoadedWave&);

constexpr std::size_t NumberRoom = 32;  // a shortest double has at most 24 characters
constexpr double Rail = 5.0;            // volts

AnalogWaveRecord& OpenNoise() {
    AnalogWaveRecord& wave = OpenMillionDots(Shape::Noise);
    InstrumentModel = 2;  // has room for all of them
    SetInstrumentLimits();
    return wave;
}

void WriteFile(benchmark::State& state, Writer write) {
    const AnalogWaveRecord& wave = OpenNoise();
    for (auto _ : state) {
        const std::string bytes = write(wave);
        benchmark::DoNotOptimize(bytes.data());
    }
}

void ReadFile(benchmark::State& state, Writer write, Reader read) {
    const std::string bytes = write(OpenNoise());
    for (auto _ : state) {
        LoadedWave content;
        if (!read(bytes, content) || content.Dots != MillionDots) {
            state.SkipWithError("the file could not be read back");
            break;
        }
        benchmark::DoNotOptimize(content.DotArray.data());
    }
}

char* WriteTextDot(char* at, char* end, const WaveDot& dot) {
    at = std::to_chars(at, end, dot.X).ptr;
    *at++ = ' ';
    return std::to_chars(at, end, dot.Y).ptr;
}

char* WriteCsvDot(char* at, char* end, const WaveDot& dot) {
    at = std::to_chars(at, end, static_cast<std::int32_t>(dot.X)).ptr;
    *at++ = ' ';
    return std::to_chars(at, end, dot.Y * Rail, std::chars_format::scientific, 2).ptr;
}

// The numbers of every dot, one behind the other, each ended by a blank.
template <auto WriteDot>
std::size_t WriteNumbers(std::span<const WaveDot> dots, std::vector<char>& room) {
    char* at = room.data();
    char* const end = at + room.size();
    for (const WaveDot& dot : dots) {
        at = WriteDot(at, end, dot);
        *at++ = ' ';
    }
    return static_cast<std::size_t>(at - room.data());
}

template <auto WriteDot>
void WriteFileBase(benchmark::State& state) {
    const AnalogWaveRecord& wave = OpenNoise();
    std::vector<char> room(2 * NumberRoom * MillionDots);
    for (auto _ : state) benchmark::DoNotOptimize(WriteNumbers<WriteDot>(wave.DotArray, room));
}

template <auto WriteDot>
void ReadFileBase(benchmark::State& state) {
    std::vector<char> room(2 * NumberRoom * MillionDots);
    const char* const end = room.data() + WriteNumbers<WriteDot>(OpenNoise().DotArray, room);
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

void WriteCodesBase(benchmark::State& state) {
    const AnalogWaveRecord& wave = OpenNoise();
    for (auto _ : state) {
        std::vector<std::uint16_t> codes(MillionDots);
        for (std::size_t i = 0; i < codes.size(); ++i)
            codes[i] = static_cast<std::uint16_t>(
                std::lrint((wave.DotArray[i].Y + 1.0) / 2.0 * LargestCode));
        std::string bytes(2 * codes.size(), '\0');
        std::memcpy(bytes.data(), codes.data(), bytes.size());
        benchmark::DoNotOptimize(bytes.data());
    }
}

void ReadCodesBase(benchmark::State& state) {
    std::vector<std::uint16_t> codes(MillionDots);
    for (std::size_t i = 0; i < codes.size(); ++i)
        codes[i] = static_cast<std::uint16_t>(i * 7919 & LargestCode);
    for (auto _ : state) {
        std::vector<WaveDot> dots(MillionDots);
        for (std::size_t i = 0; i < dots.size(); ++i)
            dots[i] = {static_cast<double>(i), codes[i] / double(LargestCode) * 2 - 1};
        benchmark::DoNotOptimize(dots.data());
    }
}

BENCHMARK_CAPTURE(WriteFile, Text, WriteAnalogText);
BENCHMARK(WriteFileBase<WriteTextDot>)->Name("WriteFileBase/Text");
BENCHMARK_CAPTURE(WriteFile, Csv, WriteAnalogCsv);
BENCHMARK(WriteFileBase<WriteCsvDot>)->Name("WriteFileBase/Csv");
BENCHMARK_CAPTURE(WriteFile, Rdf, WriteAnalogRdf);
BENCHMARK(WriteCodesBase)->Name("WriteFileBase/Rdf");
BENCHMARK_CAPTURE(ReadFile, Text, WriteAnalogText, ReadAnalogText);
BENCHMARK(ReadFileBase<WriteTextDot>)->Name("ReadFileBase/Text");
BENCHMARK_CAPTURE(ReadFile, Csv, WriteAnalogCsv, ReadAnalogCsv);
BENCHMARK(ReadFileBase<WriteCsvDot>)->Name("ReadFileBase/Csv");
BENCHMARK_CAPTURE(ReadFile, Rdf, WriteAnalogRdf, ReadAnalogRdf);
BENCHMARK(ReadCodesBase)->Name("ReadFileBase/Rdf");

}  // namespace
