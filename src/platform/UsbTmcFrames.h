#pragma once
// The bytes of USB Test and Measurement Class messages, without any transport.
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

inline constexpr std::size_t TmcHeaderSize = 12;

struct TmcReply {
    std::uint32_t Size = 0;     // data bytes that follow the header
    bool EndOfMessage = false;  // the last of them ends the instrument's message
};

/// The tag after `tag`: 1..255, never 0.
std::uint8_t NextTag(std::uint8_t tag);

/// A whole message to the instrument, padded to a multiple of four bytes.
std::vector<std::uint8_t> FrameMessage(std::uint8_t tag, std::span<const std::uint8_t> bytes);

/// The request for at most `most` data bytes of a message from the instrument.
std::array<std::uint8_t, TmcHeaderSize> FrameRequest(std::uint8_t tag, std::uint32_t most);

/// The header that answers the request with this tag; none if the packet begins with anything else.
std::optional<TmcReply> ReadReplyHeader(std::span<const std::uint8_t> packet, std::uint8_t tag);
