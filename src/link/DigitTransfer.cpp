#include "link/DigitTransfer.h"

#include "analog/AnalogDocument.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "frame/StringFunc.h"
#include "link/CommandfDefBox.h"
#include "link/CommunicateFunBox.h"
#include "link/ConnectFuncBox.h"
#include "link/DigitPackets.h"
#include "link/TransferSteps.h"

#include <string>

namespace {

constexpr std::int64_t TransferShare = 100;  // percent: storing and activating take no time

// False, with a message, where the document has nothing to send or too much.
bool FitsInstrument(const DigitDocument& document) {
    const std::int32_t most = MostInstrumentDots();
    if (document.NodeCount < 1) {
        Complain(ResText(18));
        return false;
    }
    if (document.Dots >= 1 && document.Dots <= most) return true;
    TellMostDots(std::to_string(most) + " !");
    return false;
}

// The name of a stored pattern follows an empty message: the protocol stays what it was.
void ActivatePattern(DigitWay way, std::string_view name) {
    SendText(way == DigitWay::Volatile ? WithArgument(Command::DigitProtocol, "PO") : "");
    if (Link.CommError) return;
    Sleep(100);
    SendText(WithArgument(Command::DigitRate, GeneralText(ActiveDigit().Rate)));
    if (Link.CommError) return;
    SendText(WithArgument(Command::DigitUser, name));
}

}  // namespace

void SendDigitData() {
    ActiveDocumentIndex();
    const DigitDocument& document = ActiveDigit();
    if (!FitsInstrument(document)) {
        Link.CommError = true;
        return;
    }
    ShowTransfer(0);
    const std::string channels = ChannelBytes(document);
    SendInPackets(
        DigitWords(document), DigitPacketSamples, TransferShare,
        [&](auto part, bool more, auto& packet) { MakeDigitPacket(channels, part, more, packet); });
}

void CopyDigitToStore(std::string_view name) {
    ShowAwaited(PickText("Storing the waveform in the instrument...", "正在将波形存入仪器..."));
    Pump();
    SendText(WithArgument(Command::DigitCopy, name));
}

void ActivateDigitWave(DigitWay way, std::string_view name) {
    ActiveDocumentIndex();
    ShowAwaited(PickText("Activating the waveform...", "正在激活波形..."));
    if (way == DigitWay::Protocol)
        SendText(WithArgument(Command::DigitProtocol, name));
    else
        ActivatePattern(way, name);
    if (!Link.CommError) SendText(Command::DigitFinish);
}
