#include "link/CommunicateSetting.h"

#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/StringFunc.h"
#include "link/ConnectFuncBox.h"
#include "link/USB_FuncBox.h"
#include "platform/Settings.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr std::int32_t LeastBaudRate = 1;

void ListDevices(CommunicateDialog& dialog) {
    const std::int16_t found = ScanUsbResources();
    dialog.Devices.assign(Link.UsbResourceList.begin(), Link.UsbResourceList.begin() + found);
    if (found == 0) dialog.Devices.emplace_back("No Device");
    const auto last = static_cast<std::int16_t>(dialog.Devices.size() - 1);
    PickUsbDevice(dialog, std::clamp<std::int16_t>(Link.UsbResourceIndex, 0, last));
}

// The ports present; one that was chosen for a number and is unplugged stays in the list.
void ListSerialDevices(CommunicateDialog& dialog) {
    dialog.SerialDevices = TheSerialPort().Devices();
    for (std::int16_t number = 1; number <= LargestPortNumber; ++number) {
        std::string& path = dialog.DeviceOfPort[number];
        path = DeviceOfPort(number);
        const auto here = std::ranges::find(dialog.SerialDevices, path, &SerialDevice::Path);
        if (number <= std::ssize(PortNames) && here == dialog.SerialDevices.end())
            dialog.SerialDevices.push_back({path, {}});
    }
}

std::int32_t BaudRateOf(std::string_view text) {
    std::int32_t rate = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), rate);
    const bool good = fault == std::errc() && end == text.data() + text.size();
    return good && rate >= LeastBaudRate ? rate : Link.BaudRate;
}

}  // namespace

void OpenCommunicateDialog(CommunicateDialog& dialog) {
    ListDevices(dialog);
    ListSerialDevices(dialog);
    dialog.IOType = Link.IOType;
    dialog.PrimaryAddress = Link.PrimaryAddress;
    dialog.Port = Link.Port;
    dialog.BaudRate = std::to_string(Link.BaudRate);
    dialog.Hand_Shake = Link.Hand_Shake;
    dialog.ParityDataBits = Link.ParityDataBits;
}

void RescanDevices(CommunicateDialog& dialog) {
    const std::string instrument = dialog.Devices[dialog.DeviceIndex];
    const auto chosen = dialog.DeviceOfPort;
    ListDevices(dialog);
    ListSerialDevices(dialog);
    dialog.DeviceOfPort = chosen;
    const auto here = std::ranges::find(dialog.Devices, instrument);
    const auto index = here == dialog.Devices.end() ? 0 : here - dialog.Devices.begin();
    PickUsbDevice(dialog, static_cast<std::int16_t>(index));
}

void PickUsbDevice(CommunicateDialog& dialog, std::int16_t index) {
    dialog.DeviceIndex = index;
    Link.UsbResourceIndex = index;
}

void PickSerialDevice(CommunicateDialog& dialog, std::string_view path) {
    const std::int16_t number = PortNumber(dialog.Port);
    if (number > 0) dialog.DeviceOfPort[number] = path;
}

std::string SerialDeviceOf(const CommunicateDialog& dialog) {
    const std::int16_t number = PortNumber(dialog.Port);
    return number > 0 ? dialog.DeviceOfPort[number] : std::string();
}

void ConfirmCommunicateDialog(const CommunicateDialog& dialog) {
    // The front panel is given back over the link that was in use.
    DisconnectInstrument();
    Link.IOType = dialog.IOType == SerialLink ? SerialLink : UsbLink;
    Link.PrimaryAddress = dialog.PrimaryAddress;
    Link.Port = dialog.Port;
    Link.BaudRate = BaudRateOf(dialog.BaudRate);
    Link.ParityDataBits = dialog.ParityDataBits;
    Link.Hand_Shake = dialog.Hand_Shake;
    for (std::int16_t number = 1; number <= LargestPortNumber; ++number)
        if (dialog.DeviceOfPort[number] != DeviceOfPort(number))
            SaveSetting(LinkApplication, "RS232", "Device" + std::to_string(number),
                        dialog.DeviceOfPort[number]);
    SaveLinkSettings();
}

void OpenInstrumentSel(InstrumentSelDialog& dialog) {
    dialog.Model = InstrumentModel;
}

std::string InstrumentNote(const InstrumentSelDialog& dialog) {
    return WithNumbers(PickText("Attention:Maximum editor point is %!", "注意: 最大可编辑点数是%!"),
                       {MostDotsOf(dialog.Model)});
}

// The other limits follow when the property dialog opens.
void ConfirmInstrumentSel(const InstrumentSelDialog& dialog) {
    SetInstrumentLimits();
    InstrumentModel = dialog.Model;
    MaxWaveDots = MostDotsOf(dialog.Model);
}

void CloseInstrumentSel() {
    SaveSetting(ApplicationTitle, "Tidemark_Instrument", "Instrument",
                std::to_string(InstrumentModel));
}
