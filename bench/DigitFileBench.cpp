// The file of a digital document of a million dots and 16 channels against the conversion of its
// words alone: no lines, no checks, no document.
#include "bench/MillionDots.h"
#include "files/DigitFileFuncCode.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <random>

namespace {

constexpr std::size_t WordRoom = 12;  // a word of 32 bits and a blank

const DigitDocument& OpenChannels() {
    static DigitDocument document;
    if (document.NodeCount > 0) return document;
    std::mt19937 random(1);
    document.Dots = document.SampleCount = MillionDots;
    document.DigitSamples.resize(MillionDots);
    for (auto& word : document.DigitSamples) word = static_cast<std::int32_t>(random() & 0xFFFF);
    document.NodeCount = document.ChannelCount = MaxChannels;
    document.Nodes.resize(MaxChannels);
    for (std::uint8_t channel = 0; DigitNode & node : document.Nodes) {
        node.Name = "D" + std::to_string(channel);
        node.DataLength = MillionDots;
        node.Row = channel;
        node.Channels[0] = channel++;
    }
    return document;
}

std::size_t WriteWords(std::span<const std::int32_t> words, std::vector<char>& room) {
    char* at = room.data();
    char* const end = at + room.size();
    for (const std::int32_t word : words) {
        at = std::to_chars(at, end, word).ptr;
        *at++ = ' ';
    }
    return static_cast<std::size_t>(at - room.data());
}

void WriteDrig(benchmark::State& state) {
    const DigitDocument& document = OpenChannels();
    for (auto _ : state) {
        const std::string text = WriteDigitText(document);
        benchmark::DoNotOptimize(text.data());
    }
}

void WriteDrigBase(benchmark::State& state) {
    const DigitDocument& document = OpenChannels();
    std::vector<char> room(WordRoom * MillionDots);
    for (auto _ : state) benchmark::DoNotOptimize(WriteWords(document.DigitSamples, room));
}

void ReadDrig(benchmark::State& state) {
    const std::string text = WriteDigitText(OpenChannels());
    for (auto _ : state) {
        LoadedDigit content;
        if (!ReadDigitText(text, content) || content.DigitSamples != OpenChannels().DigitSamples) {
            state.SkipWithError("the text could not be read back");
            break;
        }
        benchmark::DoNotOptimize(content.DigitSamples.data());
    }
}

void ReadDrigBase(benchmark::State& state) {
    std::vector<char> room(WordRoom * MillionDots);
    const char* const end = room.data() + WriteWords(OpenChannels().DigitSamples, room);
    std::vector<std::int32_t> words(MillionDots);
    for (auto _ : state) {
        const char* at = room.data();
        for (std::int32_t& word : words) at = std::from_chars(at, end, word).ptr + 1;
        benchmark::DoNotOptimize(words.data());
        benchmark::ClobberMemory();
    }
}

BENCHMARK(WriteDrig);
BENCHMARK(WriteDrigBase);
BENCHMARK(ReadDrig);
BENCHMARK(ReadDrigBase);

}  // namespace
