#pragma once
// The USB transport over VISA. No session outlives a primitive: each opens the resource manager and
// the instrument, does its one exchange and closes both. The pauses are the link's flow control.
#include "link/LinkWork.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

void UsbSendText(std::string_view text);
void UsbSendBlock(std::span<const std::uint8_t> bytes);
/// The 200 characters of a read, zero bytes where the instrument sent less.
std::string UsbReadText();
std::string UsbQueryText(std::string_view text);
inline constexpr std::int32_t LargestBlock = 1048576;  // bytes that a block read asks for
/// Reads at most bytes.size() bytes and returns their number; the rest of `bytes` is zero.
std::int32_t ReadBlock(std::span<std::uint8_t> bytes);

/// Scans for USB instruments: names beginning "USB0", 11 at most, into UsbResourceList. Returns
/// their number.
std::int16_t ScanUsbResources();
