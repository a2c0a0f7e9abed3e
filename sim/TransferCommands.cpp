// Samples of both kinds on their way in and out: packets into the volatile memory, loads of whole
// waves.
#include "Commands.h"

#include <algorithm>
#include <utility>

namespace sim {

namespace {

std::string NoteOf(WaveKind kind, const Packet& packet) {
    const std::string samples = std::to_string(packet.Codes.size()) + " samples, ";
    if (kind == WaveKind::Digital) {
        return samples + std::to_string(packet.Channels.size()) + " channels";
    }
    const auto [low, high] = std::ranges::minmax_element(packet.Codes);
    return samples + std::to_string(*low) + ".." + std::to_string(*high);
}

Outcome AddPacket(Instrument& instrument, WaveKind kind, Packet packet) {
    if (!packet.Error.empty()) return Refuse(packet.Error);
    const std::size_t limit = RowOf(instrument.Id.Model).MaxDots;
    Samples& incoming = instrument.Incoming;
    if (incoming.size() + packet.Codes.size() > limit) {
        return Refuse("more dots than the " + std::to_string(limit) + " of this model");
    }
    if (instrument.IsReceiving && packet.Channels != instrument.IncomingChannels) {
        return Refuse("other channels than in the packets before");
    }
    Outcome outcome;
    outcome.Note = NoteOf(kind, packet);
    incoming.insert(incoming.end(), packet.Codes.begin(), packet.Codes.end());
    instrument.IncomingKind = kind;
    instrument.IncomingChannels = std::move(packet.Channels);
    instrument.IsReceiving = packet.More;
    if (packet.More) return outcome;
    outcome.Note += "; wave of " + std::to_string(incoming.size()) + " dots complete";
    CompleteTransfer(instrument);
    return outcome;
}

// Built-in waves and names that there are not have no samples to be loaded.
Outcome Load(Instrument& instrument, WaveKind kind, std::string_view name) {
    if (!IsWaveName(name)) return Refuse("not a name");
    const Samples& codes = SamplesOf(instrument.Memory, kind, name);
    LoadUnderWay& load = instrument.Load;
    Outcome outcome;
    if (load.Name != name || load.Kind != kind) {
        load = codes.empty() ? LoadUnderWay{} : LoadUnderWay{std::string(name), kind, 0};
        outcome.Reply = std::string(name) + "," + std::to_string(codes.size());
        return outcome;
    }
    const std::size_t count = std::min(codes.size() - load.Next, MaxLoadBytes / 2);
    outcome.Reply = BytesOf(codes, load.Next, count);
    outcome.ReplyIsData = true;
    load.Next += count;
    if (load.Next == codes.size()) load = {};
    return outcome;
}

}  // namespace

void CompleteTransfer(Instrument& instrument) {
    WaveMemory& memory = instrument.Memory;
    instrument.IsReceiving = false;
    if (instrument.IncomingKind == WaveKind::Analog) {
        memory.Volatile = std::exchange(instrument.Incoming, {});
    } else {
        memory.DigitVolatile = std::exchange(instrument.Incoming, {});
        memory.DigitChannels = std::exchange(instrument.IncomingChannels, {});
    }
    NoteChange(instrument, instrument.IncomingKind, VolatileName);
}

Outcome TakeBinary(Instrument& instrument, std::string_view argument) {
    return AddPacket(instrument, WaveKind::Analog, ReadBinaryPacket(argument));
}

Outcome TakeText(Instrument& instrument, std::string_view argument) {
    return AddPacket(instrument, WaveKind::Analog, ReadTextPacket(argument));
}

Outcome TakeReal(Instrument& instrument, std::string_view argument) {
    return AddPacket(instrument, WaveKind::Analog, ReadRealPacket(argument));
}

Outcome TakeDigital(Instrument& instrument, std::string_view argument) {
    return AddPacket(instrument, WaveKind::Digital, ReadDigitPacket(argument));
}

Outcome LoadAnalog(Instrument& instrument, std::string_view name) {
    return Load(instrument, WaveKind::Analog, name);
}

Outcome LoadDigital(Instrument& instrument, std::string_view name) {
    return Load(instrument, WaveKind::Digital, name);
}

}  // namespace sim
