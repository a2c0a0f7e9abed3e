// What a transfer computes for a million dots, against a plain pass that makes the codes and one
// copy of them.
#include "bench/MillionDots.h"
#include "link/AnalogPackets.h"
#include "link/CommandfDefBox.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

std::vector<WaveDot> MakeSine() {
    std::vector<WaveDot> dots(MillionDots);
    drawcurves(dots.data(), 0, MillionDots, 0, 2.0F, 0.0F, 3, 0.0F, 0, 0, 0, 0, 0, 0.0F);
    return dots;
}

void MakePackets(benchmark::State& state) {
    const std::vector<WaveDot> dots = MakeSine();
    std::vector<std::uint8_t> packet;
    for (auto _ : state) {
        const std::vector<std::uint16_t> codes = SamplesOf(dots);
        for (std::size_t at = 0; at < codes.size(); at += BinaryPacketSamples) {
            const auto count = std::min<std::size_t>(BinaryPacketSamples, codes.size() - at);
            MakeBinaryPacket(Command::Binary16, std::span(codes).subspan(at, count), true, packet);
            benchmark::DoNotOptimize(packet.data());
        }
    }
}
BENCHMARK(MakePackets);

void MakePacketsBase(benchmark::State& state) {
    const std::vector<WaveDot> dots = MakeSine();
    std::vector<std::uint8_t> bytes(2 * dots.size());
    for (auto _ : state) {
        std::vector<std::uint16_t> codes(dots.size());
        for (std::size_t i = 0; i < dots.size(); ++i)
            codes[i] = static_cast<std::uint16_t>(
                std::lrint((std::clamp(dots[i].Y, -1.0, 1.0) + 1.0) / 2.0 * 16383.0));
        std::memcpy(bytes.data(), codes.data(), bytes.size());
        benchmark::DoNotOptimize(bytes.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(MakePacketsBase);

}  // namespace
