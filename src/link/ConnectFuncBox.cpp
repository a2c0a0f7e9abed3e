#include "link/ConnectFuncBox.h"

#include "frame/FirmwareVersion.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "link/CommandfDefBox.h"
#include "link/CommunicateFunBox.h"
#include "link/RS232FuncBox.h"
#include "platform/Host.h"
#include "platform/Settings.h"

#include <array>
#include <charconv>

namespace {

constexpr std::uint8_t FewLocations = 4, ManyLocations = 10;

// The vendor field has 18 characters; the whole text has one more.
constexpr std::string_view VendorText = "NORVIK TECHNOLOGIES";
constexpr std::string_view VendorField = VendorText.substr(0, 18);
constexpr std::size_t LongestIdentity = 64;  // kept of a serial reply

constexpr std::string_view SerialSection = "RS232";

struct ModelRow {
    std::string_view Name;
    std::string_view Threshold;  // newest version that counts as old
    Flag LinkState::*OldFirmware;
};
constexpr std::array<ModelRow, 3> Models = {{
    {"KT1100", "02.20.043.00.07SP2", &LinkState::OldFirmwareKT1100},
    {"KT2200", "03.14.070", &LinkState::OldFirmwareKT2200},
    {"KT3300", "08.06.072", &LinkState::OldFirmwareKT3300},
}};

const ModelRow& RowOf(std::uint8_t model) {
    return Models[model < Models.size() ? model : 0];
}

std::string LinkSetting(std::string_view section, std::string_view key, std::string_view usual) {
    return GetSetting(LinkApplication, section, key, usual);
}

// A text that is no whole number of the type gives `usual`.
template <typename Whole>
Whole WholeSetting(std::string_view section, std::string_view key, Whole usual) {
    const std::string text = LinkSetting(section, key, std::to_string(usual));
    Whole value = usual;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
    return fault == std::errc() && end == text.data() + text.size() ? value : usual;
}

void ForgetInstrument() {
    Link.StoreLocationCount = FewLocations;
    ModelVariant = false;
    for (const ModelRow& row : Models) Link.*row.OldFirmware = false;
}

bool BeginsWithVendor(std::string_view reply) {
    return reply.starts_with(VendorField);
}

// The reply to the identification of an instrument of ours; empty for any other.
std::string Identify() {
    std::string reply = QueryText(Command::Identify);
    if (Link.CommError) return {};
    if (Link.IOType == SerialLink) {
        const std::size_t start = reply.find(VendorField);
        if (start != std::string::npos) reply = reply.substr(start, LongestIdentity);
    }
    if (IsEmptyReply(reply)) return {};
    if (BeginsWithVendor(reply)) return reply;
    Sleep(50);
    return {};
}

// Character `position`, counted from 1, of a reply whose model field starts at 20; where the whole
// vendor text was sent everything stands one further.
char CharacterAt(std::string_view reply, std::size_t position) {
    const bool whole = reply.starts_with(VendorText) && reply.substr(VendorText.size(), 1) == ",";
    const std::size_t index = position - 1 + (whole ? 1 : 0);
    return index < reply.size() ? reply[index] : '\0';
}

void Classify(std::string_view reply) {
    const char family = CharacterAt(reply, 22);
    if (family == '1' && CharacterAt(reply, 20) != 'V')
        Link.ConnectedModel = 0;
    else
        Link.ConnectedModel = family == '2' ? 1 : 2;
    if (Link.ConnectedModel == 0 && CharacterAt(reply, 25) == '2') {
        ModelVariant = true;
        Link.StoreLocationCount = ManyLocations;
        return;
    }
    const ModelRow& row = RowOf(Link.ConnectedModel);
    std::string version(reply.substr(reply.rfind(',') + 1));
    Link.*row.OldFirmware = IsFirmwareAtOrBelow(version, row.Threshold, false);
}

}  // namespace

void LoadLinkSettings() {
    Link = LinkState();
    ForgetInstrument();
    Link.IOType = WholeSetting("IOSetting", "IOType", Link.IOType);
    Link.PrimaryAddress = LinkSetting("GPIB", "PrimaryAddress", Link.PrimaryAddress);
    Link.Port = LinkSetting(SerialSection, "Port", Link.Port);
    Link.BaudRate = WholeSetting(SerialSection, "BaudRate", Link.BaudRate);
    if (Link.BaudRate < 1) Link.BaudRate = LinkState().BaudRate;
    Link.ParityDataBits = WholeSetting(SerialSection, "ParityDataBits", Link.ParityDataBits);
    Link.Hand_Shake = LinkSetting(SerialSection, "Hand_Shake", Link.Hand_Shake);
}

void SaveLinkSettings() {
    SaveSetting(LinkApplication, "IOSetting", "IOType", std::to_string(Link.IOType));
    SaveSetting(LinkApplication, "GPIB", "PrimaryAddress", Link.PrimaryAddress);
    SaveSetting(LinkApplication, SerialSection, "Port", Link.Port);
    SaveSetting(LinkApplication, SerialSection, "BaudRate", std::to_string(Link.BaudRate));
    SaveSetting(LinkApplication, SerialSection, "ParityDataBits",
                std::to_string(Link.ParityDataBits));
    SaveSetting(LinkApplication, SerialSection, "Hand_Shake", Link.Hand_Shake);
    TheHost().RefreshCommands();
}

void ConnectInstrument() {
    const LinkWork work(PickText("Connecting to the instrument...", "正在连接仪器..."));
    Link.RS232Ready = true;
    if (Link.IOType == SerialLink) RS232Init();
    Link.StoreLocationCount = FewLocations;
    std::string identity;
    if (Link.RS232Ready) {
        ForgetInstrument();
        identity = Identify();
    }
    Link.IsConnected = !identity.empty();
    if (Link.IsConnected) Classify(identity);
    TheHost().ShowLink();
    TheHost().RefreshCommands();
    if (!Link.IsConnected && !Link.Cancelled)
        TheHost().Ask(PickText("Device not found", "找不到设备！"), Buttons::Ok,
                      MessageIcon::Exclamation, PickText("Connect to KT", "连接KT"));
}

void DisconnectInstrument() {
    if (!Link.IsConnected) return;
    const LinkWork work(PickText("Giving back the front panel...", "正在交还前面板..."));
    SendText(Command::Local);
    DropConnection();
}

void ToggleConnection() {
    if (Link.IsConnected)
        DisconnectInstrument();
    else
        ConnectInstrument();
}

bool UploadAllowed() {
    return Link.IOType == UsbLink;
}

bool HasDigitalWaves() {
    return Link.ConnectedModel == 2 && !Link.OldFirmwareKT3300;
}

void TellNotAvailable() {
    Complain(PickText("Function not available", "功能不可用"));
}

bool HasOldFirmware() {
    return bool(Link.*RowOf(Link.ConnectedModel).OldFirmware);
}

std::int32_t MostInstrumentDots() {
    return MostDotsOf(Link.ConnectedModel);
}

std::string_view ModelName(std::uint8_t model) {
    return RowOf(model).Name;
}
