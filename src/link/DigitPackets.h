#pragma once
// Digital waveforms on the wire, without a transport.
//
// A packet: the command of 15 characters; "CON" where more follow, else "END", a comma, the count
// in decimal, a comma; the number of channels; the channel map; then the samples, 16 bits each,
// little-endian, bit n for channel n. The map has 16 bytes in every packet, zeros behind the last
// channel: the channels in list order, those of a bus from the most significant one.
#include "frame/records/DigitDocument.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

inline constexpr std::int32_t DigitPacketSamples = 32746;  // of a full packet

/// A word for each of the document's dots: the low 16 bits, 0 where it has no samples.
std::vector<std::uint16_t> DigitWords(const DigitDocument& document);

/// The number of channels and the channel map, as they stand in each packet.
std::string ChannelBytes(const DigitDocument& document);

/// Fills `packet`; its memory is used again.
void MakeDigitPacket(std::string_view channels, std::span<const std::uint16_t> words, bool more,
                     std::vector<std::uint8_t>& packet);
