#include "link/AnalogTransfer.h"

#include "analog/AnalogDocument.h"
#include "analog/DacCode.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "frame/StringFunc.h"
#include "link/AnalogPackets.h"
#include "link/CommandfDefBox.h"
#include "link/CommunicateFunBox.h"
#include "link/ConnectFuncBox.h"
#include "link/RS232FuncBox.h"
#include "link/TransferSteps.h"

#include <charconv>

namespace {

constexpr std::int64_t TransferShare = 90;  // percent; the rest is storing and activating

void SendBinaryPackets(std::span<const WaveDot> dots) {
    const std::string_view head = HasOldFirmware() ? Command::Binary16Old : Command::Binary16;
    const std::vector<std::uint16_t> samples = SamplesOf(dots);
    SendInPackets(
        samples, BinaryPacketSamples, TransferShare,
        [&](auto part, bool more, auto& packet) { MakeBinaryPacket(head, part, more, packet); });
}

// Takes samples while they fit into `room` characters; each with a comma behind.
std::string TakeTextSamples(std::span<const WaveDot> dots, std::int32_t& position,
                            std::size_t room) {
    std::string taken;
    char digits[8];
    while (position < std::ssize(dots) && taken.size() < room) {
        const std::to_chars_result end =
            std::to_chars(digits, digits + sizeof digits, CodeOf(dots[position].Y));
        const std::string_view value(digits, end.ptr);
        Pump();
        if (taken.size() + value.size() + 1 > room) break;
        taken.append(value).append(",");
        ++position;
    }
    taken.pop_back();
    return taken;
}

void SendTextPackets(std::span<const WaveDot> dots) {
    const std::int32_t room = TextPacketRoom(Link.BaudRate);
    if (room < LeastTextRoom) {
        Complain(
            PickText("The baud rate is too small for a waveform.", "波特率过低，无法发送波形。"));
        Link.CommError = true;
        return;
    }
    const std::string_view head = HasOldFirmware() ? Command::DacTextOld : Command::DacText;
    const auto all = static_cast<std::int32_t>(dots.size());
    for (std::int32_t position = 0; position < all;) {
        std::string message(head);
        message += TakeTextSamples(dots, position, static_cast<std::size_t>(room));
        if (position < all) message.append(",").append(Command::MoreFollows);
        ShowAwaited(WithNumbers(PickText("Sending up to dot % of %; the serial line needs % s...",
                                         "正在发送至第 % 点，共 % 点；串口传输约需 % 秒..."),
                                {position, all, (DrainTime(message) + 999) / 1000}));
        Link.ParseFinished = false;
        SendText(message);
        if (!FinishPacket(position, all, TransferShare)) return;
    }
}

// What an activating command waits for.
void PaceCommand() {
    Sleep(Link.IOType == SerialLink ? 200 : 100);
}

}  // namespace

void SendWaveData() {
    ActiveDocumentIndex();
    const AnalogWaveRecord& wave = ActiveAnalog();
    const std::int32_t most = MostInstrumentDots();
    if (wave.Dots < 1) return Complain(ResText(18));
    if (wave.Dots > most) return TellMostDots(std::to_string(most));
    if (Link.IOType == GpibLink) return;  // nothing could be sent
    ShowTransfer(0);
    const std::span<const WaveDot> dots(wave.DotArray.data(), static_cast<std::size_t>(wave.Dots));
    if (Link.IOType == SerialLink)
        SendTextPackets(dots);
    else
        SendBinaryPackets(dots);
}

void CopyToStore(std::string_view name) {
    ShowAwaited(PickText("Storing the waveform in the instrument...", "正在将波形存入仪器..."));
    Pump();
    Sleep(3000);
    Pump();
    Link.ParseFinished = false;
    SendText(WithArgument(Command::Copy, name));
    if (Link.CommError) return;
    Sleep(7000);
    if (Link.IOType == SerialLink) AwaitParseFinished();
}

void ActivateWave(std::string_view name) {
    ActiveDocumentIndex();
    ShowAwaited(PickText("Activating the waveform...", "正在激活波形..."));
    if (name == "NEG_RAMP" && (ModelVariant || HasOldFirmware())) name = "NEGRAMP";
    SendText(WithArgument(Command::SelectUser, name));
    if (Link.CommError) return;
    PaceCommand();
    const AnalogWaveRecord& wave = ActiveAnalog();
    Sleep(100);
    SendText(std::string(Command::Apply)
                 .append(Command::ApplyUser)
                 .append(" ")
                 .append(GeneralText(1.0 / wave.Period) + "," + GeneralText(wave.Vpp) + ",0"));
    if (Link.CommError) return;
    PaceCommand();
}
