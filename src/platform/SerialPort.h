#pragma once
// A serial port: opened by its device, never with a handshake.
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

struct SerialDevice {
    std::string Path;  // "/dev/ttyUSB0"
    std::string What;  // maker and product, as the system knows them; may be empty
};

struct SerialPort {
    /// Opens the device with a settings text "9600,n,8,1". Empty, or what went wrong.
    std::function<std::string(const std::string& device, const std::string& settings)> Open;
    std::function<bool()> IsOpen;
    std::function<void()> Close;
    /// Hands bytes over for sending. Empty, or what went wrong.
    std::function<std::string(std::string_view bytes)> Output;
    /// The ports present, running simulators included.
    std::function<std::vector<SerialDevice>()> Devices;
    /// Called with an event code and what came in (code SerialInput), while events are pumped.
    /// Other codes: SerialGone, 1001 break, 1004 framing, 1006 overrun, 1008 overflow, 1009 parity.
    std::function<void(std::int16_t code, std::string_view fragment)> OnEvent;
};

inline constexpr std::int16_t SerialInput = 2;
inline constexpr std::int16_t SerialGone = 7;  // the port has gone away and is closed

/// The installed port; until start-up or a test sets it, opening and output fail.
SerialPort& TheSerialPort();
