#pragma once
// What stands behind the heads of the commands: packets of samples, names and numbers. Every reader
// is strict; what it refuses comes back as a reason for the transcript.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

using Samples = std::vector<std::uint16_t>;    // codes of the converter, 0..MaxCode, or the
                                               // words of a digital wave, channel n in bit n
using ChannelMap = std::vector<std::uint8_t>;  // channels of a digital wave, 0..15, top row first

constexpr std::uint16_t MaxCode = 16383;          // 14 bits; 0 is the lowest voltage
constexpr std::size_t PacketField = 16;           // characters ahead of binary samples
constexpr std::size_t MaxChannels = 16;           // of a digital wave
constexpr std::size_t MaxLoadBytes = 65536;       // samples of a reply to a load command
constexpr std::size_t MaxMessageBytes = 1 << 20;  // longer messages are none of an instrument's

struct Packet {
    Samples Codes;
    ChannelMap Channels;  // of a digital packet
    bool More = false;    // another packet follows
    std::string Error;    // empty when the packet is sound
};

/// "CON" or "END", comma, count, comma, blanks up to 16 characters; then `count` words of 16 bits,
/// little-endian, and nothing else.
Packet ReadBinaryPacket(std::string_view bytes);

/// "CON" or "END", comma, count, comma; the number of channels as a byte of 1..16 and a map of 16
/// bytes, which names each channel once and is 0 behind them; then `count` words of 16 bits,
/// little-endian, and nothing else.
Packet ReadDigitPacket(std::string_view bytes);

/// Characters of a digital packet ahead of its number of channels; 0 when there are no two commas.
std::size_t DigitTextSize(std::string_view bytes);

/// Decimal codes with commas between; "CON" as the last item when more follows.
Packet ReadTextPacket(std::string_view text);

/// The same with real numbers, -1 for the lowest voltage and 1 for the highest.
Packet ReadRealPacket(std::string_view text);

/// 1 to 12 characters: capitals, digits, underline.
bool IsWaveName(std::string_view name);

/// Plain decimal: no sign, no blank, no leading zero.
std::optional<unsigned> ReadPlain(std::string_view text);

/// A finite number that is the whole text.
std::optional<double> ReadNumber(std::string_view text);

/// The items between commas or, say, blanks. An empty text is one empty item.
std::vector<std::string_view> SplitItems(std::string_view text, char separator);

/// The shortest decimal text that reads back as the same number.
std::string NumberText(double value);

/// A bit rate as the display words it: "100Kbps", "2.5Mbps"; below 1000 the number alone.
std::string RateText(double rate);

/// The nearest code to an amplitude of -1..1, ties to even.
std::uint16_t CodeOf(double amplitude);

/// Little-endian words of `count` samples from `first`.
std::string BytesOf(const Samples& codes, std::size_t first, std::size_t count);

}  // namespace sim
