#include "WireForms.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace sim {

namespace {

constexpr std::string_view More = "CON", Last = "END";

Packet Refused(std::string reason) {
    Packet packet;
    packet.Error = std::move(reason);
    return packet;
}

std::optional<std::uint16_t> ReadCode(std::string_view text) {
    const auto value = ReadPlain(text);
    if (!value || *value > MaxCode) return {};
    return static_cast<std::uint16_t>(*value);
}

std::optional<std::uint16_t> ReadReal(std::string_view text) {
    const auto value = ReadNumber(text);
    if (!value || std::abs(*value) > 1.0) return {};
    return CodeOf(*value);
}

/// Appends the words behind a count. Returns what is wrong, or an empty text.
std::string ReadWords(std::string_view countText, std::string_view data, Samples& words) {
    const auto count = ReadPlain(countText);
    if (!count || *count == 0) return "not a count";
    if (data.size() != std::size_t{*count} * 2) {
        return "count " + std::to_string(*count) + ", but " + std::to_string(data.size()) +
               " bytes of samples";
    }
    words.reserve(*count);
    for (std::size_t at = 0; at < data.size(); at += 2) {
        const auto low = static_cast<unsigned char>(data[at]);
        const auto high = static_cast<unsigned char>(data[at + 1]);
        words.push_back(static_cast<std::uint16_t>(low | high << 8));
    }
    return {};
}

/// Reads the number of channels and their map. Returns what is wrong, or an empty text.
std::string ReadChannels(std::string_view bytes, ChannelMap& channels) {
    if (bytes.size() < 1 + MaxChannels) return "channel map shorter than 16 bytes";
    const std::size_t count = static_cast<unsigned char>(bytes[0]);
    if (count < 1 || count > MaxChannels) {
        return "the number of channels is 1 to 16, not " + std::to_string(count);
    }
    for (std::size_t at = 0; at < MaxChannels; ++at) {
        const auto channel = static_cast<unsigned char>(bytes[1 + at]);
        if (at >= count) {
            if (channel != 0) return "no zeros behind the channel map";
            continue;
        }
        if (channel >= MaxChannels) return "no channel " + std::to_string(channel);
        if (std::ranges::find(channels, channel) != channels.end()) {
            return "channel " + std::to_string(channel) + " twice in the map";
        }
        channels.push_back(channel);
    }
    return {};
}

template <typename ReadItem>
Packet ReadItems(std::string_view text, ReadItem readItem) {
    Packet packet;
    auto items = SplitItems(text, ',');
    packet.More = items.back() == More;
    if (packet.More) items.pop_back();
    if (items.empty()) return Refused("no samples");
    packet.Codes.reserve(items.size());
    for (const std::string_view item : items) {
        const auto code = readItem(item);
        if (!code) return Refused("not a sample: \"" + std::string(item.substr(0, 20)) + "\"");
        packet.Codes.push_back(*code);
    }
    return packet;
}

}  // namespace

Packet ReadBinaryPacket(std::string_view bytes) {
    if (bytes.size() < PacketField) return Refused("field shorter than 16 characters");
    const std::string_view field = bytes.substr(0, PacketField), data = bytes.substr(PacketField);
    const std::string_view marker = field.substr(0, 3);
    if (marker != More && marker != Last) return Refused("neither CON nor END");
    const auto comma = field.find(',', 4);
    if (field[3] != ',' || comma == field.npos) return Refused("no count between commas");
    if (field.find_first_not_of(' ', comma + 1) != field.npos) {
        return Refused("no blanks behind the count");
    }
    Packet packet;
    packet.More = marker == More;
    packet.Error = ReadWords(field.substr(4, comma - 4), data, packet.Codes);
    if (!packet.Error.empty()) return packet;
    if (*std::max_element(packet.Codes.begin(), packet.Codes.end()) > MaxCode) {
        return Refused("a sample above 16383");
    }
    return packet;
}

std::size_t DigitTextSize(std::string_view bytes) {
    const auto comma = bytes.substr(0, PacketField).find(',', 4);
    return comma == bytes.npos ? 0 : comma + 1;
}

Packet ReadDigitPacket(std::string_view bytes) {
    const std::string_view marker = bytes.substr(0, 3);
    if (marker != More && marker != Last) return Refused("neither CON nor END");
    const std::size_t text = DigitTextSize(bytes);
    if (text == 0 || bytes[3] != ',') return Refused("no count between commas");
    Packet packet;
    packet.More = marker == More;
    packet.Error = ReadChannels(bytes.substr(text), packet.Channels);
    if (!packet.Error.empty()) return packet;
    const std::string_view data = bytes.substr(text + 1 + MaxChannels);
    packet.Error = ReadWords(bytes.substr(4, text - 5), data, packet.Codes);
    return packet;
}

Packet ReadTextPacket(std::string_view text) {
    return ReadItems(text, ReadCode);
}

Packet ReadRealPacket(std::string_view text) {
    return ReadItems(text, ReadReal);
}

bool IsWaveName(std::string_view name) {
    constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
    return !name.empty() && name.size() <= 12 && name.find_first_not_of(alphabet) == name.npos;
}

std::optional<unsigned> ReadPlain(std::string_view text) {
    unsigned value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    if (!whole || (text.size() > 1 && text[0] == '0')) return {};
    return value;
}

std::optional<double> ReadNumber(std::string_view text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    if (!whole || !std::isfinite(value)) return {};
    return value;
}

std::vector<std::string_view> SplitItems(std::string_view text, char separator) {
    std::vector<std::string_view> items;
    for (;;) {
        const auto end = text.find(separator);
        items.push_back(text.substr(0, end));
        if (end == text.npos) return items;
        text.remove_prefix(end + 1);
    }
}

std::string NumberText(double value) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

std::string RateText(double rate) {
    if (rate >= 1e6) return NumberText(rate / 1e6) + "Mbps";
    if (rate >= 1e3) return NumberText(rate / 1e3) + "Kbps";
    return NumberText(rate);
}

std::uint16_t CodeOf(double amplitude) {
    return static_cast<std::uint16_t>(std::nearbyint((amplitude + 1.0) / 2.0 * MaxCode));
}

std::string BytesOf(const Samples& codes, std::size_t first, std::size_t count) {
    std::string bytes;
    bytes.reserve(count * 2);
    for (std::size_t at = first; at < first + count; ++at) {
        bytes += static_cast<char>(codes[at] & 0xFF);
        bytes += static_cast<char>(codes[at] >> 8);
    }
    return bytes;
}

}  // namespace sim
