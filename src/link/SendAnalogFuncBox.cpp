#include "link/SendAnalogFuncBox.h"

#include "analog/AnalogDocument.h"
#include "analog/DacCode.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/StringFunc.h"
#include "link/AnalogPackets.h"
#include "link/CommandfDefBox.h"
#include "link/CommunicateFunBox.h"
#include "link/ConnectFuncBox.h"
#include "link/RS232FuncBox.h"
#include "platform/Host.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr std::int64_t TransferShare = 90;  // percent; the rest is storing and activating
constexpr std::uint8_t Volatile = 0, NonVolatile = 1;  // StoreTarget
constexpr std::string_view VolatileName = "VOLATILE";
constexpr std::int32_t BigWave = 131072;            // dots; above it other locations suffer
constexpr std::int32_t TooBigForLocation = 524289;  // dots

void Tell(std::string_view text) {
    TheHost().Ask(text, Buttons::Ok, MessageIcon::Exclamation);
}

void TellMostDots(std::string_view most) {
    Tell(std::string(ResText(19)).append(PickText(" ", "")).append(most));
}

bool Agrees(std::int32_t id) {
    return TheHost().Ask(ResText(id), Buttons::OkCancel, MessageIcon::Question) == Answer::Ok;
}

void ShowSent(std::int32_t position, std::int32_t dots) {
    ShowTransfer(TransferShare * position / dots);
    Pump();
}

// What each packet waits for before the next may follow.
void PacePacket() {
    if (Link.IOType == SerialLink)
        AwaitParseFinished();
    else
        Sleep(200);
}

void SendBinaryPackets(std::span<const WaveDot> dots) {
    const std::string_view head = HasOldFirmware() ? Command::Binary16Old : Command::Binary16;
    const std::vector<std::uint16_t> samples = SamplesOf(dots);
    const auto all = static_cast<std::int32_t>(samples.size());
    std::vector<std::uint8_t> packet;
    for (std::int32_t position = 0; position < all;) {
        const std::int32_t count = std::min(BinaryPacketSamples, all - position);
        MakeBinaryPacket(head, std::span(samples).subspan(position, count), position + count < all,
                         packet);
        position += count;
        SendBlock(packet);
        if (Link.CommError) return;
        PacePacket();
        ShowSent(position, all);
        if (Link.CommError) return;
    }
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
        Tell(PickText("The baud rate is too small for a waveform.", "波特率过低，无法发送波形。"));
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
        if (Link.CommError) return;
        PacePacket();
        ShowSent(position, all);
        if (Link.CommError) return;
    }
}

// What an activating command waits for.
void PaceCommand() {
    Sleep(Link.IOType == SerialLink ? 200 : 100);
}

// The name rules, with their message; NameValid tells whether the name passed.
void CheckUserWaveName(SendAnalogDialog& dialog) {
    std::string& text = dialog.txtUserWaveName;
    text = TrimBlanks(text);
    const NameFault fault = CheckWaveName(text, ReservedAnalogNames());
    const bool quiet = bool(dialog.NameBoxQuiet);
    dialog.NameBoxQuiet = false;
    dialog.NameValid = fault == NameFault::None;
    if (fault == NameFault::TooLong) text.resize(LongestWaveName);
    if (fault == NameFault::TooLong) Tell(ResText(15));
    if (fault == NameFault::Reserved && !quiet) Tell(ResText(17));
}

std::string Capitals(std::string_view text) {
    std::string folded(text);
    std::ranges::transform(folded, folded.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    return folded;
}

bool AllLocationsUsed(const WaveCatalogue& stored) {
    return stored.UsedStoreCount >= Link.StoreLocationCount;
}

bool IsNameInUse(const WaveCatalogue& stored, std::string_view name) {
    const auto used = std::span(stored.UserWaveName).first(stored.UsedStoreCount);
    return std::ranges::find(used, name) != used.end();
}

// A free location is chosen; where there is none the choice stays if it can.
void RebuildLists(SendAnalogDialog& dialog) {
    const WaveCatalogue& stored = dialog.Stored;
    if (!AllLocationsUsed(stored))
        dialog.UserIndex = stored.UsedStoreCount;
    else if (dialog.UserIndex >= stored.UsedStoreCount)
        dialog.UserIndex = 0;
    PickLocation(dialog, dialog.UserIndex);
    const auto last = static_cast<std::int16_t>(std::max(stored.AllWaveCount - 1, 0));
    PickStoredWave(dialog, std::min(dialog.AllIndex, last));
}

void RefreshLists(SendAnalogDialog& dialog) {
    RefreshCatalogue(dialog.Stored);
    if (!Link.CommError) RebuildLists(dialog);
}

// The questions before a wave goes into a named location. They may end the flow with a message.
bool MayStore(SendAnalogDialog& dialog) {
    const std::int32_t dots = ActiveAnalog().Dots;
    if (TrimBlanks(dialog.txtUserWaveName).empty()) {
        Tell(ResText(21));
        return false;
    }
    CheckUserWaveName(dialog);
    if (dots < 1) {
        Tell(ResText(18));
        return false;
    }
    if (dots > MaxWaveDots) {
        TellMostDots("512K");
        return false;
    }
    if (dots > BigWave) {
        Link.BigWaveAccepted = true;
        if (!Agrees(27)) return false;
    }
    if (Link.BigWaveAccepted && dialog.Stored.UsedStoreCount == 1) {
        if (!Agrees(23)) return false;
        Link.BigWaveAccepted = false;
    }
    if (!dialog.NameValid) return false;
    if (AllLocationsUsed(dialog.Stored)) {
        Tell(ResText(22));
        return false;
    }
    return !IsNameInUse(dialog.Stored, dialog.txtUserWaveName) ||
           TheHost().Ask(ResText(23), Buttons::YesNo, MessageIcon::Question) == Answer::Yes;
}

void StoreAndActivate(SendAnalogDialog& dialog) {
    const std::string name = dialog.txtUserWaveName;
    const bool isNew = !IsNameInUse(dialog.Stored, name);
    SendWaveData();
    if (!Link.CommError) CopyToStore(name);
    if (!Link.CommError) ActivateWave(name);
    if (Link.CommError || !isNew) return;
    if (Link.IOType == SerialLink) Sleep(500);
    RefreshLists(dialog);
}

void SendVolatile() {
    SendWaveData();
    if (!Link.CommError) ActivateWave(VolatileName);
}

std::string RenameCommand(std::string_view oldName, std::string_view newName) {
    const bool kt2200 = Link.ConnectedModel == 1;
    const bool variant = Link.ConnectedModel == 0 && ModelVariant;
    const bool commas = !variant && (HasOldFirmware() || kt2200);
    std::string text(Command::Rename);
    text.append(commas ? "," : " ").append(oldName);
    return text.append(commas || variant ? "," : " ").append(newName);
}

}  // namespace

void OpenSendAnalog(SendAnalogDialog& dialog) {
    ActiveDocumentIndex();
    EndTransfer();
    dialog.NonVolatileOpen = ActiveAnalog().Dots < TooBigForLocation;
    if (!dialog.NonVolatileOpen) Link.StoreTarget = Volatile;
    const LinkWork work("");
    RefreshLists(dialog);
    dialog.CloseAsked = Link.CommError;
}

std::vector<std::string> LocationEntries(const SendAnalogDialog& dialog) {
    const WaveCatalogue& stored = dialog.Stored;
    const auto first = stored.UserWaveName.begin();
    std::vector<std::string> entries(first, first + stored.UsedStoreCount);
    if (!AllLocationsUsed(stored)) entries.push_back(std::to_string(stored.UsedStoreCount + 1));
    return entries;
}

bool CanNameLocation(const SendAnalogDialog& dialog) {
    return Link.StoreTarget == NonVolatile && dialog.UserIndex >= dialog.Stored.UsedStoreCount;
}

bool CanManageWave(const SendAnalogDialog& dialog) {
    return IsStoredWave(dialog.Stored, dialog.AllIndex);
}

void PickLocation(SendAnalogDialog& dialog, std::int16_t index) {
    dialog.UserIndex = std::clamp<std::int16_t>(index, 0, MostWaveNames - 1);
    dialog.txtUserWaveName = dialog.Stored.UserWaveName[dialog.UserIndex];
}

void PickStoredWave(SendAnalogDialog& dialog, std::int16_t index) {
    dialog.AllIndex = std::clamp<std::int16_t>(index, 0, MostWaveNames - 1);
    dialog.txtAllWaveName = dialog.Stored.AllWaveName[dialog.AllIndex];
}

void PickStoreTarget(SendAnalogDialog& dialog, std::uint8_t target) {
    if (target == Volatile || dialog.NonVolatileOpen) Link.StoreTarget = target;
}

void ChangeUserWaveName(SendAnalogDialog& dialog, std::string_view text) {
    dialog.txtUserWaveName = Capitals(text);
    CheckUserWaveName(dialog);
}

void SaveToInstrument(SendAnalogDialog& dialog) {
    if (Link.SendBusy) return;
    ActiveDocumentIndex();
    if (Link.StoreTarget == NonVolatile && !MayStore(dialog)) return;
    const LinkWork work(PickText("Sending the waveform...", "正在发送波形..."));
    Link.SendBusy = true;
    if (Link.StoreTarget == Volatile)
        SendVolatile();
    else
        StoreAndActivate(dialog);
    if (!Link.CommError) ShowTransfer(100);
    EndTransfer();
}

void EnterUserWaveName(SendAnalogDialog& dialog) {
    CheckUserWaveName(dialog);
    dialog.NameBoxQuiet = true;
    SaveToInstrument(dialog);
    dialog.NameBoxQuiet = false;
}

void ActivateChosenWave(SendAnalogDialog& dialog) {
    if (Link.SendBusy || dialog.AllIndex >= dialog.Stored.AllWaveCount) return;
    const LinkWork work("");
    ActivateWave(dialog.Stored.AllWaveName[dialog.AllIndex]);
}

void DeleteChosenWave(SendAnalogDialog& dialog) {
    if (Link.SendBusy || !CanManageWave(dialog)) return;
    const LinkWork work(PickText("Deleting the waveform...", "正在删除波形..."));
    SendText(std::string(Command::Delete) + " " + dialog.Stored.AllWaveName[dialog.AllIndex]);
    if (Link.IOType == SerialLink) Sleep(3000);
    if (!Link.CommError) RefreshLists(dialog);
}

void BeginRename(SendAnalogDialog& dialog) {
    if (!Link.SendBusy && CanManageWave(dialog)) dialog.Renaming = true;
}

void ChangeAllWaveName(SendAnalogDialog& dialog, std::string_view text) {
    dialog.txtAllWaveName = Capitals(text);
}

void ConfirmRename(SendAnalogDialog& dialog) {
    if (Link.SendBusy || !dialog.Renaming) return;
    std::string& name = dialog.txtAllWaveName;
    name = TrimBlanks(name);
    switch (CheckWaveName(name, ReservedAnalogNames())) {
        case NameFault::Empty:
            return Tell(ResText(21));
        case NameFault::TooLong:
            name.resize(LongestWaveName);
            return Tell(ResText(15));
        case NameFault::Reserved:
            return Tell(ResText(17));
        case NameFault::None:
            break;
    }
    const LinkWork work(PickText("Renaming the waveform...", "正在重命名波形..."));
    SendText(RenameCommand(dialog.Stored.AllWaveName[dialog.AllIndex], name));
    CancelRename(dialog);  // the new name shows once the instrument lists it
    if (Link.IOType == SerialLink) Sleep(3000);
    if (!Link.CommError) RefreshLists(dialog);
}

void CancelRename(SendAnalogDialog& dialog) {
    dialog.Renaming = false;
    PickStoredWave(dialog, dialog.AllIndex);
}

void SendWaveData() {
    ActiveDocumentIndex();
    const AnalogWaveRecord& wave = ActiveAnalog();
    const std::int32_t most = MostInstrumentDots();
    if (wave.Dots < 1) return Tell(ResText(18));
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
    SendText(std::string(Command::Copy).append(" ").append(name));
    if (Link.CommError) return;
    Sleep(7000);
    if (Link.IOType == SerialLink) AwaitParseFinished();
}

void ActivateWave(std::string_view name) {
    ActiveDocumentIndex();
    ShowAwaited(PickText("Activating the waveform...", "正在激活波形..."));
    if (name == "NEG_RAMP" && (ModelVariant || HasOldFirmware())) name = "NEGRAMP";
    SendText(std::string(Command::SelectUser).append(" ").append(name));
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

void SendAnalogWaveform() {
    if (!Link.IsConnected) return Tell(ResText(25));
    if (AnalogDocCount == 0) return Tell(ResText(26));
    TheHost().RunDialog("SendAnalogWaveFrm", 0);
}
