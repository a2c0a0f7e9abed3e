// What stands around the editor: the copy for recovery against a plain copy of the dots, since that
// is all that holds up the user; a captured waveform against its conversion alone; the page of a
// printer against the memory that it is painted into.
#include "analog/DrawAnalogWave.h"
#include "analog/PrintAnalogWave.h"
#include "bench/MillionDots.h"
#include "files/ImportScopeFileFuncBox.h"
#include "files/RecoveryCopy.h"
#include "frame/GlobalDefineCode.h"

#include <benchmark/benchmark.h>

#include <bit>
#include <cstring>

namespace {

void KeepCopy(benchmark::State& state) {
    const AnalogWaveRecord& wave = OpenMillionDots(Shape::Noise);
    for (auto _ : state) {
        const auto copy = CopyAnalog(wave);
        benchmark::DoNotOptimize(&copy);
    }
}

void KeepCopyBase(benchmark::State& state) {
    const AnalogWaveRecord& wave = OpenMillionDots(Shape::Noise);
    for (auto _ : state) {
        const std::vector<WaveDot> copy(wave.DotArray);
        benchmark::DoNotOptimize(copy.data());
    }
}

constexpr std::int32_t Samples = 524289;  // the most that are taken
constexpr std::size_t HeaderBytes = 272;

std::string MakeCapture() {
    std::string bytes(HeaderBytes, '\0');
    const auto put = [&bytes](std::size_t at, std::int32_t value) {
        std::memcpy(bytes.data() + at, &value, sizeof value);
    };
    put(28, Samples);
    put(36, 1000000);
    bytes[49] = 1;
    put(100, std::bit_cast<std::int32_t>(1e6F));
    for (std::int32_t i = 0; i < Samples; ++i) bytes += static_cast<char>(i * 7 % 251);
    return bytes;
}

void ReadScope(benchmark::State& state) {
    InstrumentModel = 2;  // has room for all of them
    SetInstrumentLimits();
    const std::string bytes = MakeCapture();
    for (auto _ : state) {
        LoadedWave content;
        if (ReadScopeWave(bytes, content) != ScopeFault::None || content.Dots != Samples) {
            state.SkipWithError("the capture could not be read");
            break;
        }
        benchmark::DoNotOptimize(content.DotArray.data());
    }
}

void ReadScopeBase(benchmark::State& state) {
    const std::string bytes = MakeCapture();
    for (auto _ : state) {
        std::vector<WaveDot> dots(Samples);
        for (std::size_t i = 0; i < dots.size(); ++i) {
            const int count = static_cast<unsigned char>(bytes[HeaderBytes + i]);
            dots[i] = {static_cast<double>(i), (count - 125) / 125.0};
        }
        benchmark::DoNotOptimize(dots.data());
    }
}

constexpr std::int32_t PageWidth = 780, PageHeight = 624;  // logical pixels
constexpr double PageScale = 5.0;                          // 600 dots per inch

void PrintPage(benchmark::State& state) {
    AnalogWaveRecord& wave = OpenMillionDots(Shape::Noise);
    for (auto _ : state) {
        Surface picture;
        if (!PaintForPrint(wave, PageWidth, PageHeight, PageScale, picture)) {
            state.SkipWithError("the page could not be painted");
            break;
        }
        benchmark::DoNotOptimize(picture.Pixel(0, 0));
    }
}

// Picture and plot as they are made, and one copied into the other.
void PrintPageBase(benchmark::State& state) {
    const auto width = static_cast<std::int32_t>(PageWidth * PageScale);
    const auto height = static_cast<std::int32_t>(PageHeight * PageScale);
    for (auto _ : state) {
        Surface picture, plot;
        picture.Create(width, height, PageScale);
        plot.Create(width, height, PageScale);
        plot.Fill(PrintColours.Back);
        picture.Fill(PrintColours.Back);
        picture.CopyFrom(plot);
        benchmark::DoNotOptimize(picture.Pixel(0, 0));
    }
}

BENCHMARK(KeepCopy);
BENCHMARK(KeepCopyBase);
BENCHMARK(ReadScope);
BENCHMARK(ReadScopeBase);
BENCHMARK(PrintPage);
BENCHMARK(PrintPageBase);

}  // namespace
