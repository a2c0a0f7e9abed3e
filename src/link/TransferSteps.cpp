#include "link/TransferSteps.h"

#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "link/CommunicateFunBox.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string>

void FillPacket(std::string_view head, std::span<const std::uint16_t> samples,
                std::vector<std::uint8_t>& packet) {
    static_assert(std::endian::native == std::endian::little, "samples are copied as they lie");
    packet.resize(head.size() + samples.size_bytes());
    std::memcpy(packet.data(), head.data(), head.size());
    if (!samples.empty())
        std::memcpy(packet.data() + head.size(), samples.data(), samples.size_bytes());
}

void SendInPackets(std::span<const std::uint16_t> samples, std::int32_t most, std::int64_t share,
                   const PacketMaker& make) {
    const auto all = static_cast<std::int32_t>(samples.size());
    std::vector<std::uint8_t> packet;
    for (std::int32_t position = 0; position < all;) {
        const std::int32_t count = std::min(most, all - position);
        make(samples.subspan(position, count), position + count < all, packet);
        position += count;
        SendBlock(packet);
        if (!FinishPacket(position, all, share)) return;
    }
}

bool FinishPacket(std::int32_t position, std::int32_t all, std::int64_t share) {
    if (Link.CommError) return false;
    if (Link.IOType == SerialLink)
        AwaitParseFinished();
    else
        Sleep(200);
    ShowTransfer(share * position / all);
    Pump();
    return !Link.CommError;
}

void TellMostDots(std::string_view most) {
    Complain(std::string(ResText(19)).append(PickText(" ", "")).append(most));
}
