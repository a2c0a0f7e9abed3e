#pragma once
// Messages to and from one opened USBTMC instrument.
#include "platform/VisaApi.h"

#include <cstdint>
#include <span>

struct libusb_device_handle;

struct UsbTmcLink {
    libusb_device_handle* Handle = nullptr;
    std::uint8_t Interface = 0;
    std::uint8_t BulkOut = 0;  // endpoint addresses
    std::uint8_t BulkIn = 0;
    std::uint16_t InPacket = 0;    // bytes of a full packet of BulkIn
    std::uint32_t TimeOut = 2000;  // milliseconds without progress, or VisaForever
};

/// What a negative code of the USB library means.
ViStatus StatusOfUsb(int error);

/// Sends one message; no bytes are no message, and nothing goes out. `written` counts the data
/// bytes that the instrument took. After a failure the transfer is aborted on both sides.
ViStatus WriteMessage(const UsbTmcLink& link, std::span<const std::uint8_t> bytes,
                      std::uint32_t& written);

/// Asks for a message until it ends (VisaSuccess) or `buffer` is full (VisaEndBySize; the next read
/// goes on). `read` counts the bytes in `buffer`, after a failure too. A reply that breaks the
/// rules of the class keeps what fits and is a VisaIoError.
ViStatus ReadMessage(const UsbTmcLink& link, std::span<std::uint8_t> buffer, std::uint32_t& read);
