#include "StoreOption.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <iterator>
#include <numbers>

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

std::string MakeShape(const ShapeRow& shape, std::string_view dots, std::size_t maxDots,
                      Samples& codes) {
    std::size_t count = 0;
    const auto read = std::from_chars(dots.data(), dots.data() + dots.size(), count);
    if (read.ec != std::errc() || read.ptr != dots.data() + dots.size() || count < 1 ||
        count > maxDots) {
        return "the number of dots is 1 to " + std::to_string(maxDots);
    }
    for (std::size_t dot = 0; dot < count; ++dot) {
        codes.push_back(CodeOf(shape.At(static_cast<double>(dot) / static_cast<double>(count))));
    }
    return {};
}

std::string ReadCodes(const std::string& path, std::size_t maxDots, Samples& codes) {
    std::ifstream file(path);
    if (!file) return "cannot read " + path;
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    constexpr std::string_view between = " ,\t\r\n";
    for (auto at = text.find_first_not_of(between); at != text.npos;) {
        const auto end = std::min(text.find_first_of(between, at), text.size());
        const std::string number = text.substr(at, end - at);
        const Packet packet = ReadTextPacket(number);
        if (packet.Codes.size() != 1) return "not a number of 0 to 16383: " + number.substr(0, 20);
        codes.push_back(packet.Codes[0]);
        at = text.find_first_not_of(between, end);
    }
    if (codes.empty()) return "no numbers in " + path;
    if (codes.size() <= maxDots) return {};
    return "more than " + std::to_string(maxDots) + " dots in " + path;
}

}  // namespace

std::string StoreFromOption(WaveMemory& memory, std::size_t maxDots, std::string_view option) {
    const auto equals = option.find('=');
    if (equals == option.npos) return "not NAME=FILE: " + std::string(option);
    const std::string_view content = option.substr(equals + 1);
    StoredWave wave{std::string(option.substr(0, equals)), WaveKind::Analog, {}};
    for (const ShapeRow& shape : Shapes) {
        if (!content.starts_with(shape.Name)) continue;
        const std::string_view dots = content.substr(shape.Name.size());
        std::string error = MakeShape(shape, dots, maxDots, wave.Codes);
        return error.empty() ? StoreWave(memory, std::move(wave)) : error;
    }
    std::string error = ReadCodes(std::string(content), maxDots, wave.Codes);
    return error.empty() ? StoreWave(memory, std::move(wave)) : error;
}

}  // namespace sim
