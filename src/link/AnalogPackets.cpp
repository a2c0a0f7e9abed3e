#include "link/AnalogPackets.h"

#include "analog/DacCode.h"
#include "frame/Narrow.h"
#include "link/CommandfDefBox.h"
#include "link/TransferSteps.h"

#include <algorithm>

namespace {

constexpr std::size_t FieldWidth = 16;             // marker and count
constexpr std::int32_t LargestTextPacket = 65534;  // characters

}  // namespace

std::vector<std::uint16_t> SamplesOf(std::span<const WaveDot> dots) {
    std::vector<std::uint16_t> samples(dots.size());
    std::ranges::transform(dots, samples.begin(), [](const WaveDot& dot) { return CodeOf(dot.Y); });
    return samples;
}

void MakeBinaryPacket(std::string_view head, std::span<const std::uint16_t> samples, bool more,
                      std::vector<std::uint8_t>& packet) {
    std::string start(head);
    start.append(more ? "CON," : Command::LastPacket);
    start.append(std::to_string(samples.size())).append(",");
    start.resize(head.size() + FieldWidth, ' ');
    FillPacket(start, samples, packet);
}

std::int32_t TextPacketRoom(std::int32_t baudRate) {
    const auto reserve = Command::DacText.size() + Command::MoreFollows.size();
    return std::min(RoundToInt(baudRate / 4.0), LargestTextPacket) -
           static_cast<std::int32_t>(reserve);
}
