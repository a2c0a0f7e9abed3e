#pragma once
// The communication dialog and the instrument selection, without their windows.
#include "link/RS232FuncBox.h"
#include "platform/SerialPort.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct CommunicateDialog {
    std::vector<std::string> Devices;  // USB resources found, or the one entry "No Device"
    std::int16_t DeviceIndex = 0;
    std::uint8_t IOType = 0;  // 0 USB, 1 GPIB (not kept by OK), 2 RS232
    std::string PrimaryAddress;
    std::string Port;  // "COM1"
    std::string BaudRate;
    std::string Hand_Shake;
    std::uint8_t ParityDataBits = 0;
    std::vector<SerialDevice> SerialDevices;  // ports present, and the ones chosen before
    std::array<std::string, LargestPortNumber + 1> DeviceOfPort;  // device path by number; 0 unused
};

inline constexpr std::array<std::string_view, 3> PortNames = {"COM1", "COM2", "COM3"};
inline constexpr std::array<std::string_view, 10> BaudRates = {
    "300", "600", "1200", "2400", "4800", "9600", "19200", "38400", "57600", "115200"};
inline constexpr std::array<std::string_view, 5> HandShakes = {"None", "DTR", "Morden", "RTS",
                                                               "XON"};

/// Scans for instruments and ports and fills the fields from the settings.
void OpenCommunicateDialog(CommunicateDialog& dialog);
/// Scans anew. What was chosen stays so; an instrument that has gone is replaced by the first.
void RescanDevices(CommunicateDialog& dialog);
/// Picks an entry of Devices: it is the instrument from now on.
void PickUsbDevice(CommunicateDialog& dialog, std::int16_t index);
/// Picks a device path for the port in `Port`.
void PickSerialDevice(CommunicateDialog& dialog, std::string_view path);
/// The device path behind `Port`; empty for an invalid number.
std::string SerialDeviceOf(const CommunicateDialog& dialog);
/// OK: takes the fields over, saves them and ends the connection. A baud rate that is no number
/// keeps the former one.
void ConfirmCommunicateDialog(const CommunicateDialog& dialog);

/// The instrument that waveforms are edited for.
struct InstrumentSelDialog {
    std::uint8_t Model = 0;  // 0 KT1100, 1 KT2200, 2 KT3300
};
void OpenInstrumentSel(InstrumentSelDialog& dialog);
/// "Attention:Maximum editor point is 4096!" for the picked model.
std::string InstrumentNote(const InstrumentSelDialog& dialog);
void ConfirmInstrumentSel(const InstrumentSelDialog& dialog);
/// The dialog closes, by OK or not: the model in use is saved.
void CloseInstrumentSel();
