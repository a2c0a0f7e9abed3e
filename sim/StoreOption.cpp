#include "StoreOption.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <numbers>
#include <numeric>

namespace sim {

namespace {

struct ShapeRow {
    std::string_view Name;
    double (*At)(double place);  // 0 <= place < 1, result in -1..1
};

constexpr ShapeRow Shapes[] = {
    {"sine:", [](double place) { return std::sin(2.0 * std::numbers::pi * place); }},
    {"ramp:", [](double place) { return 2.0 * place - 1.0; }},
    {"square:", [](double place) { return place < 0.5 ? 1.0 : -1.0; }},
};

constexpr std::string_view Count = "count:", Words = "words:";
constexpr std::uint16_t MaxWord = 65535;

/// `codeAt` gives the code of a dot among `count`.
std::string MakeDots(std::string_view dots, std::size_t maxDots, Samples& codes,
                     const auto& codeAt) {
    const std::size_t count = ReadPlain(dots).value_or(0);
    if (count < 1 || count > maxDots) {
        return "the number of dots is 1 to " + std::to_string(maxDots);
    }
    for (std::size_t dot = 0; dot < count; ++dot) codes.push_back(codeAt(dot, count));
    return {};
}

std::string ReadCodes(const std::string& path, std::size_t maxDots, std::uint16_t maxCode,
                      Samples& codes) {
    std::ifstream file(path);
    if (!file) return "cannot read " + path;
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    constexpr std::string_view between = " ,\t\r\n";
    for (auto at = text.find_first_not_of(between); at != text.npos;) {
        const auto end = std::min(text.find_first_of(between, at), text.size());
        const std::string number = text.substr(at, end - at);
        const auto code = ReadPlain(number);
        if (!code || *code > maxCode) {
            return "not a number of 0 to " + std::to_string(maxCode) + ": " + number.substr(0, 20);
        }
        codes.push_back(static_cast<std::uint16_t>(*code));
        at = text.find_first_not_of(between, end);
    }
    if (codes.empty()) return "no numbers in " + path;
    if (codes.size() <= maxDots) return {};
    return "more than " + std::to_string(maxDots) + " dots in " + path;
}

std::string FillWave(StoredWave& wave, std::string_view content, std::size_t maxDots) {
    for (const ShapeRow& shape : Shapes) {
        if (!content.starts_with(shape.Name)) continue;
        return MakeDots(content.substr(shape.Name.size()), maxDots, wave.Codes,
                        [&](std::size_t dot, std::size_t count) {
                            return CodeOf(shape.At(double(dot) / double(count)));
                        });
    }
    const bool counts = content.starts_with(Count);
    if (!counts && !content.starts_with(Words)) {
        return ReadCodes(std::string(content), maxDots, MaxCode, wave.Codes);
    }
    wave.Kind = WaveKind::Digital;
    wave.Channels.resize(MaxChannels);
    std::iota(wave.Channels.begin(), wave.Channels.end(), std::uint8_t{0});
    content.remove_prefix(counts ? Count.size() : Words.size());
    const auto low16 = [](std::size_t dot, std::size_t) { return std::uint16_t(dot & MaxWord); };
    return counts ? MakeDots(content, maxDots, wave.Codes, low16)
                  : ReadCodes(std::string(content), maxDots, MaxWord, wave.Codes);
}

}  // namespace

std::string StoreFromOption(WaveMemory& memory, std::size_t maxDots, std::string_view option) {
    const auto equals = option.find('=');
    if (equals == option.npos) return "not NAME=FILE: " + std::string(option);
    StoredWave wave{std::string(option.substr(0, equals)), WaveKind::Analog, {}};
    std::string error = FillWave(wave, option.substr(equals + 1), maxDots);
    return error.empty() ? StoreWave(memory, std::move(wave)) : error;
}

}  // namespace sim
