#include "link/SendWaveFuncBox.h"

#include "analog/AnalogDocument.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "frame/StringFunc.h"
#include "link/CommandfDefBox.h"
#include "link/CommunicateFunBox.h"
#include "link/ConnectFuncBox.h"
#include "link/TransferSteps.h"
#include "platform/Host.h"

#include <algorithm>

namespace {

constexpr std::uint8_t Volatile = 0, NonVolatile = 1;  // StoreTarget
constexpr std::int32_t BigWave = 131072;               // dots; above it other locations suffer
constexpr std::int32_t TooBigForLocation = 524289;     // dots

std::uint8_t& TargetOf(const SendDialog& dialog) {
    return Link.*dialog.Kind->Target;
}

bool Agrees(std::int32_t id) {
    return TheHost().Ask(ResText(id), Buttons::OkCancel, MessageIcon::Question) == Answer::Ok;
}

bool Refuse(std::int32_t id) {
    Complain(ResText(id));
    return false;
}

// The name rules, with their message; NameValid tells whether the name passed.
void CheckUserWaveName(SendDialog& dialog) {
    std::string& text = dialog.txtUserWaveName;
    text = TrimBlanks(text);
    const NameFault fault = CheckWaveName(text, dialog.Kind->ReservedNames());
    const bool quiet = bool(dialog.NameBoxQuiet);
    dialog.NameBoxQuiet = false;
    dialog.NameValid = fault == NameFault::None;
    if (fault == NameFault::TooLong) {
        text.resize(LongestWaveName);
        Complain(ResText(15));
    }
    if (fault == NameFault::Reserved && !quiet) Complain(ResText(17));
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
void RebuildLists(SendDialog& dialog) {
    const WaveCatalogue& stored = dialog.Stored;
    if (!AllLocationsUsed(stored))
        dialog.UserIndex = stored.UsedStoreCount;
    else if (dialog.UserIndex >= stored.UsedStoreCount)
        dialog.UserIndex = 0;
    PickLocation(dialog, dialog.UserIndex);
    const auto last = static_cast<std::int16_t>(std::max(stored.AllWaveCount - 1, 0));
    PickStoredWave(dialog, std::min(dialog.AllIndex, last));
}

void RefreshLists(SendDialog& dialog) {
    dialog.Kind->Refresh(dialog.Stored);
    if (!Link.CommError) RebuildLists(dialog);
}

// The questions before a wave goes into a named location. They may end the flow with a message.
bool MayStore(SendDialog& dialog) {
    const std::int32_t dots = dialog.Kind->Dots();
    if (TrimBlanks(dialog.txtUserWaveName).empty()) return Refuse(21);
    CheckUserWaveName(dialog);
    if (dialog.Kind->NothingToSend()) return Refuse(18);
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
    if (AllLocationsUsed(dialog.Stored)) return Refuse(22);
    return !IsNameInUse(dialog.Stored, dialog.txtUserWaveName) ||
           TheHost().Ask(ResText(23), Buttons::YesNo, MessageIcon::Question) == Answer::Yes;
}

void StoreAndActivate(SendDialog& dialog) {
    const std::string name = dialog.txtUserWaveName;
    const bool isNew = !IsNameInUse(dialog.Stored, name);
    dialog.Kind->SendData();
    if (!Link.CommError) dialog.Kind->CopyToStore(name);
    if (!Link.CommError) dialog.Kind->ActivateSent(name);
    if (Link.CommError || !isNew) return;
    if (Link.IOType == SerialLink) Sleep(500);
    RefreshLists(dialog);
}

void SendVolatile(const SendKind& kind) {
    kind.SendData();
    if (!Link.CommError) kind.ActivateSent(VolatileName);
}

std::string RenameCommand(std::string_view oldName, std::string_view newName) {
    const bool kt2200 = Link.ConnectedModel == 1;
    const bool variant = Link.ConnectedModel == 0 && ModelVariant;
    const bool commas = !variant && (HasOldFirmware() || kt2200);
    std::string text(Command::Rename);
    text.append(commas ? "," : " ").append(oldName);
    return text.append(commas || variant ? "," : " ").append(newName);
}

// A pause behind a change of the locations, and what they hold then.
void FollowChange(SendDialog& dialog) {
    const std::int32_t pause = dialog.Kind->SerialPause;
    if (Link.IOType == SerialLink && pause > 0) Sleep(pause);
    if (!Link.CommError) RefreshLists(dialog);
}

}  // namespace

void OpenSend(SendDialog& dialog) {
    ActiveDocumentIndex();
    EndTransfer();
    dialog.NonVolatileOpen = dialog.Kind->Dots() < TooBigForLocation;
    if (!dialog.NonVolatileOpen) TargetOf(dialog) = Volatile;
    const LinkWork work("");
    RefreshLists(dialog);
    dialog.CloseAsked = Link.CommError;
}

std::vector<std::string> LocationEntries(const SendDialog& dialog) {
    const WaveCatalogue& stored = dialog.Stored;
    const auto first = stored.UserWaveName.begin();
    std::vector<std::string> entries(first, first + stored.UsedStoreCount);
    if (stored.UserWaveFree[stored.UsedStoreCount])
        entries.push_back(std::to_string(stored.UsedStoreCount + 1));
    return entries;
}

bool CanNameLocation(const SendDialog& dialog) {
    return StoresWave(dialog) && dialog.UserIndex >= dialog.Stored.UsedStoreCount;
}

bool StoresWave(const SendDialog& dialog) {
    return TargetOf(dialog) == NonVolatile;
}

bool CanManageWave(const SendDialog& dialog) {
    return IsStoredWave(dialog.Stored, dialog.AllIndex, dialog.Kind->ReservedNames());
}

void PickLocation(SendDialog& dialog, std::int16_t index) {
    dialog.UserIndex = std::clamp<std::int16_t>(index, 0, MostWaveNames - 1);
    dialog.txtUserWaveName = dialog.Stored.UserWaveName[dialog.UserIndex];
}

void PickStoredWave(SendDialog& dialog, std::int16_t index) {
    dialog.AllIndex = std::clamp<std::int16_t>(index, 0, MostWaveNames - 1);
    dialog.txtAllWaveName = dialog.Stored.AllWaveName[dialog.AllIndex];
}

void PickStoreTarget(SendDialog& dialog, std::uint8_t target) {
    if (target == Volatile || dialog.NonVolatileOpen) TargetOf(dialog) = target;
}

void ChangeUserWaveName(SendDialog& dialog, std::string_view text) {
    dialog.txtUserWaveName = Capitals(text);
    CheckUserWaveName(dialog);
}

void SaveToInstrument(SendDialog& dialog) {
    if (Link.SendBusy) return;
    ActiveDocumentIndex();
    if (!dialog.Kind->LinkCarries()) return TellNotAvailable();
    if (StoresWave(dialog) && !MayStore(dialog)) return;
    const LinkWork work(PickText("Sending the waveform...", "正在发送波形..."));
    Link.SendBusy = true;
    if (StoresWave(dialog))
        StoreAndActivate(dialog);
    else
        SendVolatile(*dialog.Kind);
    if (!Link.CommError) ShowTransfer(100);
    EndTransfer();
}

void EnterUserWaveName(SendDialog& dialog) {
    CheckUserWaveName(dialog);
    dialog.NameBoxQuiet = true;
    SaveToInstrument(dialog);
    dialog.NameBoxQuiet = false;
}

void ActivateChosenWave(SendDialog& dialog) {
    if (Link.SendBusy || dialog.AllIndex >= dialog.Stored.AllWaveCount) return;
    const LinkWork work("");
    dialog.Kind->ActivateListed(dialog.Stored, dialog.AllIndex);
}

void DeleteChosenWave(SendDialog& dialog) {
    if (Link.SendBusy || !CanManageWave(dialog)) return;
    const LinkWork work(PickText("Deleting the waveform...", "正在删除波形..."));
    SendText(WithArgument(Command::Delete, dialog.Stored.AllWaveName[dialog.AllIndex]));
    FollowChange(dialog);
}

void BeginRename(SendDialog& dialog) {
    if (!Link.SendBusy && CanManageWave(dialog)) dialog.Renaming = true;
}

void ChangeAllWaveName(SendDialog& dialog, std::string_view text) {
    dialog.txtAllWaveName = Capitals(text);
}

void ConfirmRename(SendDialog& dialog) {
    if (Link.SendBusy || !dialog.Renaming) return;
    std::string& name = dialog.txtAllWaveName;
    name = TrimBlanks(name);
    switch (CheckWaveName(name, dialog.Kind->ReservedNames())) {
        case NameFault::Empty:
            return Complain(ResText(21));
        case NameFault::TooLong:
            name.resize(LongestWaveName);
            return Complain(ResText(15));
        case NameFault::Reserved:
            return Complain(ResText(17));
        case NameFault::None:
            break;
    }
    const LinkWork work(PickText("Renaming the waveform...", "正在重命名波形..."));
    SendText(RenameCommand(dialog.Stored.AllWaveName[dialog.AllIndex], name));
    CancelRename(dialog);  // the new name shows once the instrument lists it
    FollowChange(dialog);
}

void CancelRename(SendDialog& dialog) {
    dialog.Renaming = false;
    PickStoredWave(dialog, dialog.AllIndex);
}

void SendAnalogWaveform() {
    if (!Link.IsConnected) return Complain(ResText(25));
    if (AnalogDocCount == 0) return Complain(ResText(26));
    TheHost().RunDialog(SendAnalogKind.Window, 0);
}

void SendDigitWaveform() {
    if (!Link.IsConnected) return Complain(ResText(25));
    if (DigitDocCount == 0) return Complain(ResText(26));
    if (!HasDigitalWaves()) return TellNotAvailable();
    TheHost().RunDialog(SendDigitKind.Window, 0);
}
