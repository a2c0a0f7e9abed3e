#include "analog/AnalogDocument.h"
#include "analog/DacCode.h"
#include "calculus/PropertyFuncBox.h"
#include "digital/DigitDocumentFuncBox.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/GlobalDefineCode.h"
#include "frame/NumberField.h"
#include "frame/StringFunc.h"
#include "link/CatalogueFuncBox.h"
#include "link/CommandfDefBox.h"
#include "link/CommunicateFunBox.h"
#include "link/UploadFuncBox.h"
#include "platform/Host.h"

#include <algorithm>
#include <cmath>
#include <utility>

// What reading back analog and digital waveforms does differently. Analog waveforms span 20 volts:
// amplitude and offset of the output are folded into their shape. Digital ones have a node for each
// of the 16 channels.

namespace {

constexpr double FullScale = 20.0;  // volts, peak to peak

// A query whose reply begins with a number; an empty reply is a failure.
bool QueryNumber(std::string_view query, double& number, std::string& reply) {
    reply = QueryText(query);
    number = LeadingNumber(reply);
    return Link.IsConnected && !Link.CommError && !IsEmptyReply(reply);
}

bool IsUsable(double number) {
    return std::isnormal(number) && number > 0.0;
}

// --- analog waveforms --------------------------------------------------------------------------

bool AskAnalogOutput(ReadWave& wave) {
    std::string reply;
    return QueryNumber(Command::FrequencyQuery, wave.Frequency, reply) &&
           QueryNumber(Command::OffsetQuery, wave.Offset, reply) &&
           QueryNumber(Command::VoltageQuery, wave.Amplitude, reply) && IsUsable(wave.Frequency);
}

LoadedWave MakeAnalogWave(const ReadWave& read) {
    LoadedWave wave;
    wave.MaxDots = wave.Dots = static_cast<std::int32_t>(read.Words.size());
    wave.LastDot = wave.Dots - 1;
    wave.Vpp = FullScale;
    wave.Period = std::clamp(1.0 / read.Frequency, LeastScale, LargestScale);
    wave.Quantify = StoredQuantify();
    wave.DotArray.resize(read.Words.size());
    for (std::int32_t i = 0; i < wave.Dots; ++i) {
        const double y = (2.0 * read.Words[i] / LargestCode - 1.0) * read.Amplitude / FullScale +
                         2.0 * read.Offset / FullScale;
        wave.DotArray[i] = {double(i), std::clamp(y, -1.0, 1.0)};
    }
    CoverWithOneSegment(wave);
    return wave;
}

void OpenReadAnalog(const ReadWave& read, const std::string& name) {
    if (!OpenLoadedWave(MakeAnalogWave(read))) return;
    ActiveAnalog().Name = name;
    TheHost().ShowTitle(ActiveAnalogIndex);
    TheHost().RefreshCommands();
}

// --- digital waveforms -------------------------------------------------------------------------

bool NoneIsBuiltIn(std::string_view) {
    return false;
}

// The unit behind a rate, in bits per second; a bare number has that unit already.
double UnitBehindNumber(std::string_view reply) {
    const std::size_t unit = reply.find_first_not_of("+-.0123456789eE \t");
    if (unit == std::string_view::npos) return 1.0;
    if (reply.substr(unit).starts_with("Kbps")) return 1e3;
    return reply.substr(unit).starts_with("Mbps") ? 1e6 : 1.0;
}

bool AskDigitOutput(ReadWave& wave) {
    std::string reply;
    double rate = 0.0;
    if (!QueryNumber(Command::DigitRateQuery, rate, reply) || !IsUsable(rate)) return false;
    wave.Rate = HoldBetween(rate * UnitBehindNumber(reply), MinDigitRate, MaxDigitRate);
    return true;
}

DigitNode MakeChannelNode(std::int16_t channel, std::int32_t dots) {
    DigitNode node;
    node.Name = "D" + std::to_string(channel);
    node.Row = channel;
    node.DataLength = dots;
    node.Channels[0] = static_cast<std::uint8_t>(channel);
    return node;
}

void OpenReadDigit(const ReadWave& read, const std::string& name) {
    LoadedDigit loaded;
    loaded.Dots = static_cast<std::int32_t>(read.Words.size());
    loaded.Rate = read.Rate;
    for (std::int16_t channel = 0; channel < MaxChannels; ++channel)
        loaded.Nodes.push_back(MakeChannelNode(channel, loaded.Dots));
    loaded.DigitSamples.assign(read.Words.begin(), read.Words.end());
    OpenLoadedDigit(std::move(loaded), name);
}

}  // namespace

const UploadKind UploadAnalogKind = {.Window = "DownLoadWaveFrm",
                                     .Catalogue = Command::Catalogue,
                                     .Load = Command::Load,
                                     .Pause = 4000,
                                     .VariantRestarts = true,
                                     .WordMask = 0x3FFF,
                                     .Room = RoomForDocument,
                                     .IsBuiltIn = IsBuiltInWave,
                                     .AskOutput = AskAnalogOutput,
                                     .Open = OpenReadAnalog};

const UploadKind UploadDigitKind = {.Window = "DownLoadDigitWaveFrm",
                                    .Catalogue = Command::DigitCatalogue,
                                    .Load = Command::DigitLoad,
                                    .Pause = 0,
                                    .VariantRestarts = false,
                                    .WordMask = 0xFFFF,
                                    .Room = RoomForDigit,
                                    .IsBuiltIn = NoneIsBuiltIn,
                                    .AskOutput = AskDigitOutput,
                                    .Open = OpenReadDigit};
