#pragma once
// What transfers of analog and digital waveforms share: packets, their pacing, and the progress.
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

/// Fills `packet` with a head and samples behind it, 16 bits each, little-endian; its memory is
/// used again.
void FillPacket(std::string_view head, std::span<const std::uint16_t> samples,
                std::vector<std::uint8_t>& packet);

/// Fills a packet with a part of the samples; `more`: others follow.
using PacketMaker = std::function<void(std::span<const std::uint16_t> part, bool more,
                                       std::vector<std::uint8_t>& packet)>;
/// Sends samples in binary packets of `most` at the most, and shows up to `share` percent. Ends
/// where CommError is set.
void SendInPackets(std::span<const std::uint16_t> samples, std::int32_t most, std::int64_t share,
                   const PacketMaker& make);

/// What follows each packet: waits until the next may go, and shows that `position` of `all`
/// samples are sent, `share` percent for all of them. False where the transfer must end.
bool FinishPacket(std::int32_t position, std::int32_t all, std::int64_t share);

/// The message that only so many dots can be stored.
void TellMostDots(std::string_view most);
