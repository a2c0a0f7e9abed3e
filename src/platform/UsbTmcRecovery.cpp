#include "platform/UsbTmcRecovery.h"

#include <libusb.h>
#include <array>
#include <chrono>
#include <thread>
#include <vector>

// Each recovery is a class request that begins it and one that is asked until it is no longer
// pending (USBTMC 1.0, tables 15 and 16, sections 4.2.1.2 to 4.2.1.7). The answer begins with the
// status; bit 0 of the byte behind it says that there is more to be read from the bulk-in endpoint.
// An instrument that knows no abort, or has lost count of its transfers, is cleared as a whole.

namespace {

enum Status : std::uint8_t { Success = 1, Pending = 2, Failed = 0x80 };

struct Recovery {
    std::uint8_t Recipient;      // bmRequestType
    std::uint8_t Initiate;       // bRequest
    std::uint16_t AnswerLength;  // bytes
    std::uint8_t Check;          // bRequest
    std::uint16_t CheckLength;   // bytes
    bool ReadsFirst;             // the host reads to the end of the transfer before it checks
};

constexpr std::uint8_t ToEndpoint = 0xA2;
constexpr std::uint8_t ToInterface = 0xA1;
constexpr Recovery AbortOut = {ToEndpoint, 1, 2, 2, 8, false};
constexpr Recovery AbortIn = {ToEndpoint, 3, 2, 4, 8, true};
constexpr Recovery Clear = {ToInterface, 5, 1, 6, 2, false};

constexpr unsigned ControlTimeOut = 1000;  // milliseconds
constexpr unsigned DrainTimeOut = 100;     // milliseconds
constexpr auto CheckPause = std::chrono::milliseconds(10);
constexpr int MaxChecks = 50;
constexpr int DrainBytes = 65536;
constexpr int MaxDrains = 64;

// Reads up to the short packet that ends a transfer.
void DrainBulkIn(const UsbTmcLink& link) {
    std::vector<std::uint8_t> waste(DrainBytes);
    for (int i = 0; i < MaxDrains; ++i) {
        int got = 0;
        const int error = libusb_bulk_transfer(link.Handle, link.BulkIn, waste.data(), DrainBytes,
                                               &got, DrainTimeOut);
        if (error != 0 || got < DrainBytes) return;
    }
}

// Zero or a code of the USB library.
int Run(const UsbTmcLink& link, const Recovery& recovery, std::uint16_t value,
        std::uint16_t index) {
    std::array<std::uint8_t, 8> answer{};
    const auto ask = [&](std::uint8_t request, std::uint16_t argument, std::uint16_t length) {
        const int got = libusb_control_transfer(link.Handle, recovery.Recipient, request, argument,
                                                index, answer.data(), length, ControlTimeOut);
        return got == 0 ? LIBUSB_ERROR_IO : got;
    };
    int got = ask(recovery.Initiate, value, recovery.AnswerLength);
    if (got < 0) return got;
    if (answer[0] == Failed) return 0;  // there was nothing to recover from
    if (answer[0] != Success) return LIBUSB_ERROR_OTHER;

    bool more = recovery.ReadsFirst;
    for (int i = 0; i < MaxChecks; ++i) {
        if (more) DrainBulkIn(link);
        answer = {};
        got = ask(recovery.Check, 0, recovery.CheckLength);
        if (got < 0) return got;
        if (answer[0] == Success) return 0;
        if (answer[0] != Pending) return LIBUSB_ERROR_OTHER;
        more = (answer[1] & 1) != 0;
        if (!more) std::this_thread::sleep_for(CheckPause);
    }
    return LIBUSB_ERROR_TIMEOUT;
}

int ClearInstrument(const UsbTmcLink& link) {
    const int error = Run(link, Clear, 0, link.Interface);
    if (error == LIBUSB_ERROR_NO_DEVICE) return error;
    // An instrument without this request is left with both ends of its pipes in step at least.
    const int inHalt = libusb_clear_halt(link.Handle, link.BulkIn);
    const int outHalt = libusb_clear_halt(link.Handle, link.BulkOut);
    return inHalt < 0 ? inHalt : outHalt;
}

}  // namespace

int AbortBulkOut(const UsbTmcLink& link, std::uint8_t tag) {
    const int result = Run(link, AbortOut, tag, link.BulkOut);
    if (result == LIBUSB_ERROR_NO_DEVICE) return result;
    if (result < 0) return ClearInstrument(link);
    return libusb_clear_halt(link.Handle, link.BulkOut);
}

int AbortBulkIn(const UsbTmcLink& link, std::uint8_t tag) {
    const int result = Run(link, AbortIn, tag, link.BulkIn);
    if (result == LIBUSB_ERROR_NO_DEVICE) return result;
    return result < 0 ? ClearInstrument(link) : 0;
}
