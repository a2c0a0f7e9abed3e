#include "Common.h"
#include "platform/UsbTmcLink.h"

#include <libusb.h>
#include <algorithm>
#include <array>
#include <ctime>

// The driver over pipes whose other ends are here: the linker takes these procedures before those
// of the USB library. A packet of the instrument's is a byte that says how it comes, two bytes of
// its length, and its data.

namespace {

constexpr int Faults[] = {0, LIBUSB_ERROR_TIMEOUT, LIBUSB_ERROR_PIPE, LIBUSB_ERROR_NO_DEVICE};
std::string_view script;
std::uint8_t tag = 0;  // of the last request

int TakeFault() {
    return Faults[TakeByte(script) % 16 / 4];
}

int TakeData(std::uint8_t* to, int most) {
    const unsigned wanted = TakeByte(script) | TakeByte(script) << 8;
    const auto data = script.substr(0, std::min(wanted, unsigned(most)));
    script.remove_prefix(data.size());
    return int(std::ranges::copy(data, to).out - to);
}

}  // namespace

extern "C" int libusb_bulk_transfer(libusb_device_handle*, unsigned char endpoint,
                                    unsigned char* data, int length, int* count, unsigned) {
    if (script.empty()) return *count = 0, LIBUSB_ERROR_TIMEOUT;
    const bool answers = script[0] % 2 == 0;  // with the tag, which no input could know
    const int fault = TakeFault();
    if (endpoint == 1) return tag = data[1], *count = answers ? length : length / 2, fault;
    *count = TakeData(data, length);
    if (answers && *count > 2) data[0] = 2, data[1] = tag, data[2] = tag ^ 0xFF;
    return fault;
}

extern "C" int libusb_control_transfer(libusb_device_handle*, std::uint8_t, std::uint8_t,
                                       std::uint16_t, std::uint16_t, unsigned char* data,
                                       std::uint16_t length, unsigned) {
    const int fault = TakeFault();
    return fault != 0 ? fault : TakeData(data, length);
}

extern "C" int libusb_clear_halt(libusb_device_handle*, unsigned char) {
    return TakeFault();
}

// Between two questions to an instrument that is busy.
extern "C" int nanosleep(const timespec*, timespec*) {
    return 0;
}

void Fuzz(std::string_view input) {
    script = input;
    const auto packet = static_cast<std::uint16_t>(TakeByte(script) * 8 + 8);
    const UsbTmcLink link = {.BulkOut = 1, .BulkIn = 0x81, .InPacket = packet};
    std::array<std::uint8_t, 600> buffer{};
    while (!script.empty()) {
        const auto room = std::span(buffer).first(1 + TakeByte(script) * 2);
        std::uint32_t count = 0;
        WriteMessage(link, room, count);
        Require(count <= room.size());
        buffer.fill(0xEE);
        const ViStatus status = ReadMessage(link, room, count);
        Require(count <= room.size() && (status != VisaEndBySize || count == room.size()));
        const auto behind = std::span(buffer).subspan(count);
        Require(std::ranges::count(behind, 0xEE) == std::ssize(behind));
    }
}
