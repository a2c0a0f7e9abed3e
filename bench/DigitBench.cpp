// Value operations on a million sample words, each against plain passes with the same bit work: one
// pass for each channel. Both end with the same words, which is tested once before each figure.
#include "bench/MillionDots.h"
#include "digital/DigitClipFuncBox.h"
#include "digital/DigitFuncCode.h"
#include "digital/DigitValueFuncBox.h"
#include "digital/GlobalDigitDefineCode.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <utility>

namespace {

using Words = std::vector<std::int32_t>;
using PlainPasses = void (*)(std::span<std::int32_t>);

constexpr std::int32_t ArbitraryValue = 0x5A3C;
constexpr std::int16_t BusWidth = MaxChannels;  // channel 0 is the most significant

Words MakeNoise() {
    std::mt19937 random(1);
    Words words(MillionDots);
    for (std::int32_t& word : words) word = static_cast<std::int32_t>(random() & 0xFFFF);
    return words;
}

// One node over the first `width` channels, always in the same memory, since pages differ in speed.
DigitDocument& OpenBus(std::int16_t width) {
    DigitDocument& document = DigitAt(0);  // the active one
    Words memory = std::move(document.DigitSamples);
    document = DigitDocument();  // nothing is painted
    document.DigitSamples = std::move(memory);
    document.DigitSamples.resize(MillionDots);
    std::ranges::copy(MakeNoise(), document.DigitSamples.begin());
    document.Dots = document.SampleCount = MillionDots;
    document.Nodes.assign(1, {});
    document.NodeCount = 1;
    document.Nodes[0].Width = width;
    std::iota(document.Nodes[0].Channels.begin(), document.Nodes[0].Channels.end(),
              std::uint8_t{0});
    RenumberRows(document);
    return document;
}

// `change` gives the new word of a dot from the old one.
template <std::int16_t Width, typename Change>
void PlainChannels(std::span<std::int32_t> words, Change change) {
    for (std::int32_t channel = 0; channel < Width; ++channel)
        for (std::int32_t i = 0; i < MillionDots; ++i) words[i] = change(words[i], i, channel);
}

std::int32_t WithBit(std::int32_t word, std::int32_t channel, std::int32_t bit) {
    return (word & (0xFFFF - (1 << channel))) | (bit & 1) << channel;
}

void PlainValue1(std::span<std::int32_t> words) {
    PlainChannels<1>(words,
                     [](auto word, auto, auto channel) { return WithBit(word, channel, 1); });
}
void PlainInvert(std::span<std::int32_t> words) {
    PlainChannels<BusWidth>(words,
                            [](auto word, auto, auto channel) { return word ^ 1 << channel; });
}
void PlainClock(std::span<std::int32_t> words) {
    PlainChannels<BusWidth>(
        words, [](auto word, auto i, auto channel) { return WithBit(word, channel, i); });
}
void PlainArbitrary(std::span<std::int32_t> words) {
    PlainChannels<BusWidth>(words, [](auto word, auto, auto channel) {
        return WithBit(word, channel, ArbitraryValue >> (BusWidth - 1 - channel));
    });
}
template <std::int32_t Interval>
void PlainCounting(std::span<std::int32_t> words) {
    PlainChannels<BusWidth>(words, [](auto word, auto i, auto channel) {
        return WithBit(word, channel, i / Interval >> (BusWidth - 1 - channel));
    });
}

struct Figure {
    DigitPattern Pattern;
    std::int16_t Width;
    PlainPasses Plain;
};
using enum DigitOperation;
constexpr Figure FigureValue1{{.Operation = Value1}, 1, PlainValue1};
constexpr Figure FigureInvert{{.Operation = Invert}, BusWidth, PlainInvert};
constexpr Figure FigureClock{{.Operation = Clock}, BusWidth, PlainClock};
constexpr Figure FigureArbitrary{
    {.Operation = Arbitrary, .Value = ArbitraryValue}, BusWidth, PlainArbitrary};
constexpr Figure FigureCounting1{
    {.Operation = Counting, .Interval = 1}, BusWidth, PlainCounting<1>};
constexpr Figure FigureCounting7{
    {.Operation = Counting, .Interval = 7}, BusWidth, PlainCounting<7>};

void WriteDigits(benchmark::State& state, const Figure& figure) {
    DigitDocument& document = OpenBus(figure.Width);
    Words plain = document.DigitSamples;
    figure.Plain(plain);
    const auto write = [&] { WritePattern(document, {0, -1}, 0, MillionDots - 1, figure.Pattern); };
    write();
    if (document.DigitSamples != plain) state.SkipWithError("other words than the plain passes");
    for (auto _ : state) {
        write();
        benchmark::ClobberMemory();
    }
}
void WriteDigitsBase(benchmark::State& state, const Figure& figure) {
    DigitDocument& document = OpenBus(figure.Width);
    for (auto _ : state) {
        figure.Plain(document.DigitSamples);
        benchmark::ClobberMemory();
    }
}
BENCHMARK_CAPTURE(WriteDigits, Value1, FigureValue1);
BENCHMARK_CAPTURE(WriteDigitsBase, Value1, FigureValue1);
BENCHMARK_CAPTURE(WriteDigits, Invert, FigureInvert);
BENCHMARK_CAPTURE(WriteDigitsBase, Invert, FigureInvert);
BENCHMARK_CAPTURE(WriteDigits, Clock, FigureClock);
BENCHMARK_CAPTURE(WriteDigitsBase, Clock, FigureClock);
BENCHMARK_CAPTURE(WriteDigits, Arbitrary, FigureArbitrary);
BENCHMARK_CAPTURE(WriteDigitsBase, Arbitrary, FigureArbitrary);
BENCHMARK_CAPTURE(WriteDigits, Counting1, FigureCounting1);
BENCHMARK_CAPTURE(WriteDigitsBase, Counting1, FigureCounting1);
BENCHMARK_CAPTURE(WriteDigits, Counting7, FigureCounting7);
BENCHMARK_CAPTURE(WriteDigitsBase, Counting7, FigureCounting7);

// Sixteen channels in the reverse order, so that no two move by the same number of bits.
void PlainCopy(const Words& source, Words& target) {
    PlainChannels<BusWidth>(target, [&](auto word, auto i, auto channel) {
        return WithBit(word, channel, source[i] >> (BusWidth - 1 - channel));
    });
}

void CopyDigits(benchmark::State& state) {
    const Words source = MakeNoise();
    Words target(MillionDots), plain(MillionDots);
    std::int16_t from[BusWidth], to[BusWidth];
    for (std::int16_t j = 0; j < BusWidth; ++j) {
        from[j] = j;
        to[j] = static_cast<std::int16_t>(BusWidth - 1 - j);
    }
    PlainCopy(source, plain);
    CopyPasteData(source.data(), target.data(), MillionDots, from, to, BusWidth);
    if (target != plain) state.SkipWithError("other words than the plain passes");
    for (auto _ : state) {
        CopyPasteData(source.data(), target.data(), MillionDots, from, to, BusWidth);
        benchmark::ClobberMemory();
    }
}
void CopyDigitsBase(benchmark::State& state) {
    const Words source = MakeNoise();
    Words target(MillionDots);
    for (auto _ : state) {
        PlainCopy(source, target);
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(CopyDigits);
BENCHMARK(CopyDigitsBase);

// Whole commands: snapshot and clipboard are copies of the words.
void SelectWhole(DigitDocument& document) {
    document.Nodes[0].DataLength = MillionDots;
    SelectSpan(document, {0, -1}, 0, MillionDots - 1);
    MarkWaveSelection(document);
}

void CutDigits(benchmark::State& state) {
    DigitDocument& document = OpenBus(BusWidth);
    const Words before = document.DigitSamples;
    for (auto _ : state) {
        SelectWhole(document);
        CutDigit();
        benchmark::ClobberMemory();
    }
    if (document.DigitSamples != Words(MillionDots)) state.SkipWithError("not all was cut");
    std::ranges::copy(before, document.DigitSamples.begin());
    SelectWhole(document);
    CutDigit();
    if (SpanClipSamples != before) state.SkipWithError("other words in the clipboard");
}
void CutDigitsBase(benchmark::State& state) {
    Words words = MakeNoise(), clip(MillionDots), undo(MillionDots);
    for (auto _ : state) {
        std::ranges::copy(words, clip.begin());
        std::ranges::copy(words, undo.begin());
        for (std::int32_t& word : words) word &= ~0xFFFF;
        benchmark::ClobberMemory();
    }
}
BENCHMARK(CutDigits);
BENCHMARK(CutDigitsBase);

void PasteDigits(benchmark::State& state) {
    DigitDocument& document = OpenBus(BusWidth);
    Words plain(MillionDots);
    PlainCopy(document.DigitSamples, plain);
    SelectWhole(document);
    CutDigit();
    for (auto _ : state) {
        PasteDigit();
        benchmark::ClobberMemory();
    }
    if (document.DigitSamples != plain) state.SkipWithError("other words than the plain passes");
}
void PasteDigitsBase(benchmark::State& state) {
    const Words source = MakeNoise();
    Words target(MillionDots), undo(MillionDots);
    for (auto _ : state) {
        std::ranges::copy(target, undo.begin());
        PlainCopy(source, target);
        benchmark::DoNotOptimize(undo.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(PasteDigits);
BENCHMARK(PasteDigitsBase);

}  // namespace
