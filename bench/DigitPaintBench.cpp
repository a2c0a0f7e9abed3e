// Painting digital documents: the whole of a long one against one pass over its sample words, and
// the steps of a drag against one surface copy.
#include "bench/MillionDots.h"
#include "digital/DigitFuncCode.h"
#include "digital/DrawDigitWave.h"
#include "digital/GlobalDigitDefineCode.h"

#include <benchmark/benchmark.h>

#include <numeric>
#include <random>

namespace {

constexpr double WholeZoom = 65536.0;  // 1280 pixels show 1.4 million dots
constexpr std::int32_t SlowPeriod = 20000;
constexpr std::int32_t PictureHeight = 480;  // 16 rows

// 16 channels in rows of their own, by turns random and slow.
DigitDocument& OpenMillionWords(double zoom) {
    DigitDocument& document = DigitAt(0);
    document = DigitDocument();
    document.Dots = document.SampleCount = MillionDots;
    document.DigitSamples.resize(MillionDots);
    std::mt19937 random(1);  // NOLINT: the same picture each time
    for (std::int32_t i = 0; i < MillionDots; ++i)
        document.DigitSamples[static_cast<std::size_t>(i)] =
            static_cast<std::int32_t>(random() & 0x5555U) | ((i / SlowPeriod + 1) % 2 * 0xAAAA);
    for (std::int16_t k = 0; k < MaxChannels; ++k) {
        DigitNode node;
        node.Name = "D" + std::to_string(k);
        node.Channels[0] = static_cast<std::uint8_t>(k);
        node.DataLength = MillionDots;
        document.Nodes.push_back(node);
    }
    document.ChannelCount = MaxChannels;
    document.Zoom = zoom;
    RenumberRows(document);
    LayoutDigitSurfaces(
        document, {.ListWidth = 200, .PictureWidth = PlotWidth, .PictureHeight = PictureHeight},
        1.0);
    document.CaliperPixel = PlotWidth / 2.0;
    Paint(0, true, true);
    return document;
}

// Where a row has no line of its colour the figure would be that of an empty picture.
bool ShowsTraces(const DigitDocument& document) {
    const Surface& picture = document.StaticSurface;
    for (std::int16_t row = 0; row < MaxChannels; ++row) {
        bool found = false;
        for (std::int32_t x = 0; x < PlotWidth; ++x)
            for (std::int32_t y = 32 + 30 * row; y < 62 + 30 * row; ++y)
                found = found || picture.Pixel(x, y) == GroupColour(document, row);
        if (!found) return false;
    }
    return true;
}

void PaintPage(benchmark::State& state, double zoom) {
    const DigitDocument& document = OpenMillionWords(zoom);
    for (auto _ : state) {
        Paint(0, false, true);
        benchmark::ClobberMemory();
    }
    if (!ShowsTraces(document)) state.SkipWithError("no traces on the picture");
}

void DigitRedraw(benchmark::State& state) {
    PaintPage(state, WholeZoom);
}

void DigitRedrawBase(benchmark::State& state) {
    const DigitDocument& document = OpenMillionWords(WholeZoom);
    for (auto _ : state) {
        const std::int32_t any =
            std::accumulate(document.DigitSamples.begin(), document.DigitSamples.end(), 0,
                            [](std::int32_t all, std::int32_t word) { return all | word; });
        benchmark::DoNotOptimize(any);
        benchmark::ClobberMemory();
    }
}

void DigitPage(benchmark::State& state) {
    PaintPage(state, 1.0);
}

void DigitStep(benchmark::State& state, bool band) {
    DigitDocument& document = OpenMillionWords(1.0);
    document.SelectDrag = band;
    document.SelectEndRow = 8;
    std::int32_t x = 0;
    for (auto _ : state) {
        x = (x + 9) % PlotWidth;
        if (band)
            document.SelectEndDot = x / 60;
        else
            document.CaliperPixel = x;
        Paint(0, false, false);
        benchmark::ClobberMemory();
    }
    if (document.ShownSurface.Pixel(static_cast<std::int32_t>(document.CaliperPixel), 500) !=
        ColoursOf(document).Caliper)
        state.SkipWithError("no caliper on the picture");
}

void PlainCopy(benchmark::State& state) {
    DigitDocument& document = OpenMillionWords(1.0);
    for (auto _ : state) {
        document.ShownSurface.CopyFrom(document.StaticSurface);
        benchmark::ClobberMemory();
    }
}

void DigitPageBase(benchmark::State& state) {
    PlainCopy(state);
}
void DigitStepBase(benchmark::State& state, bool /*band*/) {
    PlainCopy(state);
}

BENCHMARK(DigitRedraw);
BENCHMARK(DigitRedrawBase);
BENCHMARK(DigitPage);
BENCHMARK(DigitPageBase);
BENCHMARK_CAPTURE(DigitStep, Caliper, false);
BENCHMARK_CAPTURE(DigitStepBase, Caliper, false);
BENCHMARK_CAPTURE(DigitStep, RubberBand, true);
BENCHMARK_CAPTURE(DigitStepBase, RubberBand, true);

}  // namespace
