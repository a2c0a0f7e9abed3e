#pragma once
// Analog waveforms on the wire, without a transport.
//
// Binary packet: the command of 20 characters; "CON" where more follow, else "END", a comma, the
// count in decimal, a comma, blanks up to 16 characters; then the samples, 16 bits each,
// little-endian. Text packet: the command, samples in decimal with commas between, and ",CON" where
// more follow.
#include "kernel/wavecalc.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

inline constexpr std::int32_t BinaryPacketSamples = 32747;  // of a full packet

/// The codes of the dots, 0..16383.
std::vector<std::uint16_t> SamplesOf(std::span<const WaveDot> dots);

/// Fills `packet` with a binary packet; its memory is used again.
void MakeBinaryPacket(std::string_view head, std::span<const std::uint16_t> samples, bool more,
                      std::vector<std::uint8_t>& packet);

/// The most characters of samples in a text packet for a baud rate: a quarter of a second's bits,
/// 65534 at most, less what head and marker need. Below LeastTextRoom no value would fit.
std::int32_t TextPacketRoom(std::int32_t baudRate);
inline constexpr std::int32_t LeastTextRoom = 6;  // "16383,"
