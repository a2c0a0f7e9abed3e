#include "platform/SerialPort.h"

SerialPort& TheSerialPort() {
    static SerialPort port = {
        .Open = [](const std::string&, const std::string&) { return std::string("no port"); },
        .IsOpen = [] { return false; },
        .Close = [] {},
        .Output = [](std::string_view) { return std::string("no port"); },
        .Devices = [] { return std::vector<SerialDevice>(); },
        .OnEvent = [](std::int16_t, std::string_view) {},
    };
    return port;
}
