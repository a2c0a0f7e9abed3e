#include "platform/UsbTmcFrames.h"

#include <algorithm>

// Each transfer begins with twelve bytes (USBTMC 1.0, tables 1 and 8):
//   0 MsgID   1 bTag   2 the complement of bTag   3 zero
//   4..7 TransferSize, little-endian: data bytes, without header and padding
//   8 bmTransferAttributes, bit 0: end of message   9..11 zero
// Data follow. Outwards the whole is padded with zeros to a multiple of four bytes.
// The request for a reply (table 4) is a header alone; a terminating character is never asked for.

namespace {

enum MessageId : std::uint8_t { DevDepMsgOut = 1, RequestDevDepMsgIn = 2, DevDepMsgIn = 2 };

constexpr std::uint8_t EndOfMessageBit = 1;

std::array<std::uint8_t, TmcHeaderSize> Header(std::uint8_t id, std::uint8_t tag,
                                               std::uint32_t size, std::uint8_t attributes) {
    const auto byteOf = [size](int place) { return static_cast<std::uint8_t>(size >> 8 * place); };
    return {id,        tag,       static_cast<std::uint8_t>(~tag),
            0,         byteOf(0), byteOf(1),
            byteOf(2), byteOf(3), attributes,
            0,         0,         0};
}

}  // namespace

std::uint8_t NextTag(std::uint8_t tag) {
    return static_cast<std::uint8_t>(tag % 255 + 1);
}

std::vector<std::uint8_t> FrameMessage(std::uint8_t tag, std::span<const std::uint8_t> bytes) {
    const auto header =
        Header(DevDepMsgOut, tag, static_cast<std::uint32_t>(bytes.size()), EndOfMessageBit);
    std::vector<std::uint8_t> frame((TmcHeaderSize + bytes.size() + 3) / 4 * 4);
    std::ranges::copy(bytes, std::ranges::copy(header, frame.begin()).out);
    return frame;
}

std::array<std::uint8_t, TmcHeaderSize> FrameRequest(std::uint8_t tag, std::uint32_t most) {
    return Header(RequestDevDepMsgIn, tag, most, 0);
}

std::optional<TmcReply> ReadReplyHeader(std::span<const std::uint8_t> packet, std::uint8_t tag) {
    if (packet.size() < TmcHeaderSize || packet[0] != DevDepMsgIn) return std::nullopt;
    if (packet[1] != tag || packet[2] != static_cast<std::uint8_t>(~tag)) return std::nullopt;
    TmcReply reply;
    for (unsigned i = 0; i < 4; ++i) reply.Size |= std::uint32_t{packet[4 + i]} << 8 * i;
    reply.EndOfMessage = (packet[8] & EndOfMessageBit) != 0;
    return reply;
}
