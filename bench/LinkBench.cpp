// What transfers compute, without their pauses. Sending a million dots: against a plain pass that
// makes the codes and one copy of them. Reading back as many as a load gives, into a new document:
// against the memory of a document and a plain pass from codes to dots.
#include "analog/AnalogDocument.h"
#include "analog/DacCode.h"
#include "bench/MillionDots.h"
#include "link/AnalogPackets.h"
#include "link/CommandfDefBox.h"
#include "link/LinkWork.h"
#include "link/UploadFuncBox.h"
#include "platform/VisaApi.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

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

constexpr std::int32_t LoadDots = 524289;
constexpr std::size_t LoadPacket = 65536;  // bytes
constexpr double Volts = 10.0;             // amplitude, peak to peak; half of what the codes span

std::string MakeCodes() {
    std::string bytes;
    for (std::int32_t i = 0; i < LoadDots; ++i) {
        const std::int32_t code = i * 7 & LargestCode;
        bytes += static_cast<char>(code & 0xFF);
        bytes += static_cast<char>(code >> 8);
    }
    return bytes;
}

// An instrument that announces the dots, gives them in packets, and has 1 kHz, 10 V, 0 V.
struct LoadedInstrument {
    std::string Codes = MakeCodes(), Asked;
    std::size_t Given = std::string::npos;  // none: the number is asked for first

    std::string_view Reply() {
        if (Asked == Command::FrequencyQuery) return "1E+3";
        if (Asked == Command::VoltageQuery) return "10";
        if (Asked == Command::OffsetQuery) return "0";
        if (Given >= Codes.size()) {
            Given = 0;
            return "A1,524289";
        }
        const std::string_view packet = std::string_view(Codes).substr(Given, LoadPacket);
        Given += packet.size();
        return packet;
    }
};

VisaApi VisaOf(LoadedInstrument& instrument) {
    VisaApi visa;
    visa.viOpenDefaultRM = [](auto) { return VisaSuccess; };
    visa.viOpen = [](auto, auto, auto, auto, auto) { return VisaSuccess; };
    visa.viSetAttribute = [](auto, auto, auto) { return VisaSuccess; };
    visa.viClose = [](auto) { return VisaSuccess; };
    visa.viWrite = [&](auto, const std::uint8_t* bytes, auto count, auto) {
        if (count > 0) instrument.Asked.assign(bytes, bytes + count);
        return VisaSuccess;
    };
    visa.viRead = [&](auto, std::uint8_t* bytes, auto count, auto* read) {
        const std::string_view reply = instrument.Reply().substr(0, count);
        std::ranges::copy(reply, bytes);
        *read = static_cast<std::uint32_t>(reply.size());
        return VisaSuccess;
    };
    return visa;
}

void LoadDotsBack(benchmark::State& state) {
    InitialiseGlobals();
    InstrumentModel = 2;  // has room for all of them
    SetInstrumentLimits();
    Link.IsConnected = true;
    LoadedInstrument instrument;
    const VisaApi before = std::exchange(TheVisa(), VisaOf(instrument));
    for (auto _ : state) {
        DownLoadDialog dialog;
        dialog.AllWaveName = {"A1"};
        LoadChosenWave(dialog);
        state.PauseTiming();
        if (!dialog.CloseAsked || ActiveAnalog().Dots != LoadDots) {
            state.SkipWithError("the waveform could not be read back");
            break;
        }
        DocumentClosed(ActiveAnalogIndex);
        state.ResumeTiming();
    }
    TheVisa() = before;
}
BENCHMARK(LoadDotsBack);

void LoadDotsBackBase(benchmark::State& state) {
    const std::string codes = MakeCodes();
    for (auto _ : state) {
        AnalogWaveRecord wave;
        AllocateDots(wave, LoadDots);
        for (std::int32_t i = 0; i < LoadDots; ++i) {
            const int low = static_cast<unsigned char>(codes[2 * i]);
            const int high = static_cast<unsigned char>(codes[2 * i + 1]);
            const double part = 2.0 * (low | high << 8) / LargestCode - 1.0;
            wave.DotArray[i] = {static_cast<double>(i), std::clamp(part * Volts / 20.0, -1.0, 1.0)};
        }
        benchmark::DoNotOptimize(wave.DotArray.data());
        state.PauseTiming();
        wave = {};
        state.ResumeTiming();
    }
}
BENCHMARK(LoadDotsBackBase);

}  // namespace
