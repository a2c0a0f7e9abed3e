#include "files/ImportScopeFileFuncBox.h"

#include "calculus/PropertyFuncBox.h"
#include "files/FileParts.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "frame/Narrow.h"
#include "platform/Host.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

// A scope file: a header of 272 bytes, then a byte for each sample, whichever channel it is of. All
// is little-endian. What is read of the header, by offset:
//
//    28   4 bytes, signed    count of samples
//    36   4 bytes, signed    channel 1: microvolts per division
//    40   2 bytes, signed             position, counts
//    49   1 byte                      1 when in use
//    60, 64, 73              channel 2: the same
//   100   4 bytes, float     samples per second
//   142   1 byte             mode; 4 has channel 1, whatever is in use
//
// 25 counts make one division, and a sample of 125 less the position stands at 0 V.

namespace {

// The same in both languages.
constexpr std::string_view Title = "Open Waveform file";
constexpr std::string_view Filter = "波形文件 (*.wfm)|*.wfm";
constexpr std::string_view NoChannelText = "没有可用的波形数据";

constexpr std::size_t MostBytes = 2000001;  // of a file; what is behind them is left out
constexpr std::size_t HeaderBytes = 272;
constexpr std::size_t CountAt = 28, RateAt = 100, ModeAt = 142;
constexpr std::int32_t MostSamples = 524289;
constexpr int FirstChannelMode = 4;
constexpr int GroundCount = 25, CentreCount = 100;  // the sample at 0 V, position 0, is their sum
constexpr float CountsPerDivision = 25.0F, MicrovoltsPerVolt = 1000000.0F;

struct ChannelPlace {
    std::size_t ScaleAt, PositionAt, FlagAt;
};
constexpr ChannelPlace FirstChannel = {36, 40, 49}, SecondChannel = {60, 64, 73};

int ByteAt(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes[at]);
}

std::int16_t ShortAt(std::string_view bytes, std::size_t at) {
    return static_cast<std::int16_t>(ByteAt(bytes, at) | ByteAt(bytes, at + 1) << 8);
}

std::int32_t WholeAt(std::string_view bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i > 0; --i)
        value = value << 8 | static_cast<std::uint32_t>(ByteAt(bytes, at + i - 1));
    return static_cast<std::int32_t>(value);
}

const ChannelPlace& ChosenChannel(std::string_view bytes) {
    if (ByteAt(bytes, ModeAt) == FirstChannelMode) return FirstChannel;
    return ByteAt(bytes, FirstChannel.FlagAt) == 1 ? FirstChannel : SecondChannel;
}

// Volts of each value that a sample can have, in 32-bit floats as the instrument's own figures are.
using SampleVolts = std::array<float, 256>;
SampleVolts VoltsOf(std::string_view bytes, const ChannelPlace& channel) {
    const float perDivision =
        static_cast<float>(WholeAt(bytes, channel.ScaleAt)) / MicrovoltsPerVolt;
    const int ground = CentreCount - ShortAt(bytes, channel.PositionAt);
    SampleVolts volts{};
    for (int sample = 0; sample < std::ssize(volts); ++sample)
        volts[static_cast<std::size_t>(sample)] =
            static_cast<float>(sample - GroundCount - ground) * perDivision / CountsPerDivision;
    return volts;
}

// Volts rise or fall with the samples, so that the extremes of both are at the same places.
float PeakOf(std::string_view samples, const SampleVolts& volts) {
    unsigned char least = 255, most = 0;
    for (const char each : samples) {
        const auto sample = static_cast<unsigned char>(each);
        least = std::min(least, sample);
        most = std::max(most, sample);
    }
    return std::max(std::abs(volts[least]), std::abs(volts[most]));
}

void FillContent(std::string_view samples, const SampleVolts& volts, double peak, double rate,
                 LoadedWave& content) {
    content.Dots = Narrow<std::int32_t>(std::ssize(samples));
    content.MaxDots = std::max(content.Dots, MinWaveDots);
    content.LastDot = content.Dots - 1;
    content.Vpp = std::clamp(2.0 * peak, LeastScale, LargestScale);
    content.Period = std::clamp(content.MaxDots / rate, LeastScale, LargestScale);
    content.Quantify = StoredQuantify();
    content.DotArray.assign(static_cast<std::size_t>(content.MaxDots), WaveDot{});
    std::array<double, 256> heights{};
    for (std::size_t i = 0; i < heights.size(); ++i)
        heights[i] = std::clamp(volts[i] / peak, -1.0, 1.0);
    for (std::size_t i = 0; i < samples.size(); ++i)
        content.DotArray[i] = {static_cast<double>(i),
                               heights[static_cast<unsigned char>(samples[i])]};
    CoverWithOneSegment(content);
}

std::string_view TextOfFault(ScopeFault fault) {
    switch (fault) {
        case ScopeFault::NoChannel:
            return NoChannelText;
        case ScopeFault::TooShort:
            return PickText("The file is too short for its waveform.",
                            "文件过短，波形数据不完整。");
        case ScopeFault::NoRate:
            return PickText("The file has no valid sample rate.", "文件中没有有效的采样率。");
        case ScopeFault::Flat:
            return PickText("The waveform in the file is a flat line of 0 V.",
                            "文件中的波形是 0 V 的直线。");
        case ScopeFault::None:
            break;
    }
    return "";
}

bool ReadScopeFile(const std::string& path, LoadedWave& content) {
    std::string bytes;
    if (!ReadFirstBytes(path, MostBytes, bytes)) return false;
    const ScopeFault fault = ReadScopeWave(bytes, content);
    if (fault == ScopeFault::None) return true;
    Complain(TextOfFault(fault));
    return false;
}

}  // namespace

ScopeFault ReadScopeWave(std::string_view bytes, LoadedWave& content) {
    if (bytes.size() < HeaderBytes) return ScopeFault::TooShort;
    if (ByteAt(bytes, FirstChannel.FlagAt) == 0 && ByteAt(bytes, SecondChannel.FlagAt) == 0)
        return ScopeFault::NoChannel;
    const auto rate = std::bit_cast<float>(WholeAt(bytes, RateAt));
    if (!std::isfinite(rate) || rate <= 0.0F) return ScopeFault::NoRate;
    const std::int32_t count = std::min({WholeAt(bytes, CountAt), MaxWaveDots, MostSamples});
    if (count < 1 || static_cast<std::size_t>(count) > bytes.size() - HeaderBytes)
        return ScopeFault::TooShort;

    const std::string_view samples = bytes.substr(HeaderBytes, static_cast<std::size_t>(count));
    const SampleVolts volts = VoltsOf(bytes, ChosenChannel(bytes));
    const float peak = PeakOf(samples, volts);
    if (peak == 0.0F) return ScopeFault::Flat;
    FillContent(samples, volts, peak, rate, content);
    return ScopeFault::None;
}

bool ImportScopeFile(Flag showDialog, LoadedWave& content) {
    if (!showDialog) return false;
    FileChoice choice;
    choice.Title = Title;
    choice.Filter = Filter;
    const std::string path = TheHost().ChooseFile(choice);
    return !path.empty() && ReadScopeFile(path, content);
}

void ImportWave() {
    LoadedWave content;
    if (RoomForDocument() && ImportScopeFile(true, content)) OpenLoadedWave(std::move(content));
}

bool OpenScopeFile(const std::string& path) {
    LoadedWave content;
    return RoomForDocument() && ReadScopeFile(path, content) && OpenLoadedWave(std::move(content));
}
