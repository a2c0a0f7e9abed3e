#include "Common.h"

#include "digital/GlobalDigitDefineCode.h"
#include "files/FileOptFuncCode.h"
#include "link/RS232FuncBox.h"
#include "platform/Host.h"
#include "platform/SerialPort.h"
#include "platform/Settings.h"
#include "platform/VisaApi.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <span>

namespace {

std::string_view replies;

void RequireSound(const AnalogWaveRecord& wave) {
    Require(0 <= wave.Dots && wave.Dots <= wave.MaxDots &&
            std::ssize(wave.DotArray) == wave.MaxDots);
    Require(wave.LastDot == std::max(wave.Dots - 1, 0));
    Require(wave.Quantify >= MinQuantify && wave.Quantify <= MaxQuantify);
    for (const double scale : {wave.Vpp, wave.Period})
        Require(scale >= LeastScale && scale <= LargestScale);
    for (std::int32_t i = 0; i < wave.Dots; ++i)
        Require(wave.DotArray[i].X == i && std::abs(wave.DotArray[i].Y) <= 1.0);
    std::int32_t next = 0;
    for (const WaveSegment& segment : std::span(wave.Segments).first(wave.SegmentCount)) {
        Require(segment.RunStart == next && segment.EndDot >= next && std::isfinite(segment.Damp));
        next = segment.EndDot + 1;
        Require(segment.Custom || segment.DotCount == next - segment.RunStart);
    }
    Require(next == wave.Dots);
}

void RequireSound(const DigitDocument& document) {
    Require(document.Caliper >= 0 && document.Caliper < document.Dots);
    Require(document.Rate >= MinDigitRate && document.Rate <= MaxDigitRate);
    Require(std::ssize(document.DigitSamples) == document.SampleCount);
    std::int32_t owned = 0;
    for (const DigitNode& node : document.Nodes)
        for (const std::uint8_t channel : std::span(node.Channels).first(node.Width)) {
            Require(channel < MaxChannels && (owned >> channel & 1) == 0);
            owned |= 1 << channel;
            for (const std::int32_t word :
                 std::span(document.DigitSamples).subspan(node.DataLength))
                Require((word >> channel & 1) == 0);
        }
    Require(std::popcount(unsigned(owned)) == document.ChannelCount);
}

}  // namespace

unsigned TakeByte(std::string_view& input) {
    const unsigned byte = input.empty() ? 0 : static_cast<unsigned char>(input[0]);
    input.remove_prefix(input.empty() ? 0 : 1);
    return byte;
}

std::string TakePart(std::string_view& input) {
    const std::string_view part = input.substr(0, input.find('\x1E'));
    input.remove_prefix(std::min(part.size() + 1, input.size()));
    return std::string(part);
}

AnalogWaveRecord& OpenSound(LoadedWave wave) {
    Require(OpenLoadedWave(std::move(wave)));
    RequireSound(ActiveAnalog());
    return ActiveAnalog();
}

DigitDocument& OpenSound(LoadedDigit digit) {
    Require(OpenLoadedDigit(std::move(digit), "D"));
    RequireSound(ActiveDigit());
    return ActiveDigit();
}

void RequireKept(LoadedWave wave, bool (*read)(std::string_view, LoadedWave&),
                 std::string (*write)(const AnalogWaveRecord&)) {
    // Volts beyond a Vpp of three digits are clipped when it is read.
    if (write == WriteAnalogCsv) Require(read(write(OpenSound(wave)), wave));
    const std::string bytes = write(OpenSound(std::move(wave)));
    wave = {};
    Require(read(bytes, wave) && write(OpenSound(std::move(wave))) == bytes);
}

unsigned ScriptLink(std::string_view& input) {
    const unsigned choice = TakeByte(input);
    replies = input;
    Link = LinkState();
    Link.IOType = choice % 2 != 0 ? SerialLink : UsbLink;
    Link.IsConnected = true;
    ModelVariant = (choice & 2) != 0;
    Link.ConnectedModel = static_cast<std::uint8_t>((choice >> 2) % 3);
    return choice;
}

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    UseSettingsStore("/dev/null/none");
    InstrumentModel = 2;
    SetInstrumentLimits();
    TheHost().AwaitEvent = [] {
        CountReadTick();
        if (!replies.empty()) RS232OnEvent(SerialInput, TakePart(replies));
    };
    TheSerialPort().Open = [](auto&&...) { return std::string(); };
    TheSerialPort().Output = [](auto&&...) { return std::string(); };
    TheVisa().viOpenDefaultRM = [](auto&&...) { return VisaSuccess; };
    TheVisa().viRead = [](auto, std::uint8_t* bytes, auto most, std::uint32_t* read) {
        *read = std::uint32_t(TakePart(replies).copy(reinterpret_cast<char*>(bytes), most));
        return VisaSuccess;
    };
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
    Fuzz({data, size});
    for (std::int16_t slot = 0; slot < 3; ++slot) DocumentClosed(slot), DigitDocumentClosed(slot);
    Require(AnalogDocCount == 0 && DigitDocCount == 0);
    return 0;
}
