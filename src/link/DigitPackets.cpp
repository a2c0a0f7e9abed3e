#include "link/DigitPackets.h"

#include "link/CommandfDefBox.h"
#include "link/TransferSteps.h"

#include <algorithm>

std::vector<std::uint16_t> DigitWords(const DigitDocument& document) {
    std::vector<std::uint16_t> words(static_cast<std::size_t>(document.Dots));
    const auto sent = std::span(document.DigitSamples)
                          .first(std::min(document.DigitSamples.size(), words.size()));
    std::ranges::transform(sent, words.begin(),
                           [](std::int32_t word) { return static_cast<std::uint16_t>(word); });
    return words;
}

std::string ChannelBytes(const DigitDocument& document) {
    std::string bytes(1, static_cast<char>(document.ChannelCount));
    for (const DigitNode& node : document.Nodes)
        bytes.append(node.Channels.begin(), node.Channels.begin() + node.Width);
    bytes.resize(1 + MaxChannels);
    return bytes;
}

void MakeDigitPacket(std::string_view channels, std::span<const std::uint16_t> words, bool more,
                     std::vector<std::uint8_t>& packet) {
    std::string head(Command::Digital16);
    head.append(more ? "CON," : Command::LastPacket);
    head.append(std::to_string(words.size())).append(",").append(channels);
    FillPacket(head, words, packet);
}
