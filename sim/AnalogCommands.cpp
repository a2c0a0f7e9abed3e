// Commands on analog waves, in the order in which an editor uses them: catalogue, transfer, store,
// output, load.
#include "Commands.h"

#include <algorithm>
#include <utility>

namespace sim {

namespace {

void NoteChange(Instrument& instrument, std::string_view wave) {
    if (instrument.ActiveWave == wave) ++instrument.OutputVersion;
}

Outcome AddPacket(Instrument& instrument, Packet packet) {
    if (!packet.Error.empty()) return Refuse(packet.Error);
    const std::size_t limit = RowOf(instrument.Id.Model).MaxDots;
    Samples& incoming = instrument.Incoming;
    if (incoming.size() + packet.Codes.size() > limit) {
        return Refuse("more dots than the " + std::to_string(limit) + " of this model");
    }
    const auto [low, high] = std::minmax_element(packet.Codes.begin(), packet.Codes.end());
    Outcome outcome;
    outcome.Note = std::to_string(packet.Codes.size()) + " samples, " + std::to_string(*low) +
                   ".." + std::to_string(*high);
    incoming.insert(incoming.end(), packet.Codes.begin(), packet.Codes.end());
    instrument.IsReceiving = packet.More;
    if (packet.More) return outcome;
    outcome.Note += "; wave of " + std::to_string(incoming.size()) + " dots complete";
    instrument.Memory.Volatile = std::exchange(incoming, {});
    NoteChange(instrument, VolatileName);
    return outcome;
}

Outcome Rename(Instrument& instrument, std::string_view argument, char separator) {
    const auto names = SplitItems(argument, separator);
    if (names.size() != 2) return Refuse("not two names");
    std::string reason = RenameStored(instrument.Memory, names[0], names[1]);
    if (reason.empty() && instrument.ActiveWave == names[0]) {
        instrument.ActiveWave = names[1];
        ++instrument.OutputVersion;
    }
    return DoneUnless(reason);
}

/// Samples that can be loaded; empty for built-in waves and for names that there are not.
const Samples& LoadableSamples(const Instrument& instrument, std::string_view name) {
    static const Samples none;
    if (name == VolatileName) return instrument.Memory.Volatile;
    const StoredWave* wave = FindStored(instrument.Memory, WaveKind::Analog, name);
    return wave ? wave->Codes : none;
}

}  // namespace

Outcome ListAnalog(Instrument& instrument, std::string_view) {
    return AnswerLine(CatalogueText(instrument.Memory, WaveKind::Analog));
}

Outcome ListStoredAnalog(Instrument& instrument, std::string_view) {
    return AnswerLine(StoredNamesText(instrument.Memory, WaveKind::Analog));
}

Outcome CountFree(Instrument& instrument, std::string_view) {
    const WaveMemory& memory = instrument.Memory;
    const auto locations = static_cast<long>(memory.Locations);
    long used = static_cast<long>(memory.Stored.size());
    // Stale: one more in use than the whole catalogue has names, as after a lost deletion.
    if (instrument.Fault.StaleFreeCount) used += std::ssize(BuiltInNames) + 2;
    return AnswerLine(std::to_string(locations - used));
}

Outcome TakeBinary(Instrument& instrument, std::string_view argument) {
    return AddPacket(instrument, ReadBinaryPacket(argument));
}

Outcome TakeText(Instrument& instrument, std::string_view argument) {
    return AddPacket(instrument, ReadTextPacket(argument));
}

Outcome TakeReal(Instrument& instrument, std::string_view argument) {
    return AddPacket(instrument, ReadRealPacket(argument));
}

Outcome CopyAnalog(Instrument& instrument, std::string_view name) {
    WaveMemory& memory = instrument.Memory;
    if (memory.Volatile.empty()) return Refuse("the volatile memory is empty");
    std::string reason = StoreWave(memory, {std::string(name), WaveKind::Analog, memory.Volatile});
    if (reason.empty()) NoteChange(instrument, name);
    return DoneUnless(reason);
}

Outcome Delete(Instrument& instrument, std::string_view name) {
    std::string reason = DeleteStored(instrument.Memory, name);
    if (reason.empty() && instrument.ActiveWave == name) {
        instrument.ActiveWave = BuiltInNames[0];
        ++instrument.OutputVersion;
    }
    return DoneUnless(reason);
}

Outcome RenameByComma(Instrument& instrument, std::string_view argument) {
    return Rename(instrument, argument, ',');
}

Outcome RenameByBlank(Instrument& instrument, std::string_view argument) {
    return Rename(instrument, argument, ' ');
}

Outcome SelectWave(Instrument& instrument, std::string_view name) {
    const std::string_view negRamp = SpellsNegRampShort(instrument.Id) ? "NEGRAMP" : NegRamp;
    if (name == negRamp) {
        name = NegRamp;
    } else if (name == VolatileName) {
        if (instrument.Memory.Volatile.empty()) return Refuse("the volatile memory is empty");
    } else if (name == NegRamp ||
               (!IsBuiltIn(name) && !FindStored(instrument.Memory, WaveKind::Analog, name))) {
        return Refuse("no such wave");
    }
    instrument.ActiveWave = name;
    ++instrument.OutputVersion;
    return {};
}

Outcome ApplyUser(Instrument& instrument, std::string_view argument) {
    const auto items = SplitItems(argument, ',');
    if (items.size() != 3) return Refuse("not frequency, amplitude and offset");
    const auto frequency = ReadNumber(items[0]), amplitude = ReadNumber(items[1]),
               offset = ReadNumber(items[2]);
    if (!frequency || !amplitude || !offset) return Refuse("not a number");
    if (*frequency <= 0.0 || *amplitude <= 0.0) return Refuse("out of range");
    instrument.Frequency = *frequency;
    instrument.Amplitude = *amplitude;
    instrument.Offset = *offset;
    ++instrument.OutputVersion;
    return {};
}

Outcome TellFrequency(Instrument& instrument, std::string_view) {
    return AnswerLine(NumberText(instrument.Frequency));
}

Outcome TellAmplitude(Instrument& instrument, std::string_view) {
    return AnswerLine(NumberText(instrument.Amplitude));
}

Outcome TellOffset(Instrument& instrument, std::string_view) {
    return AnswerLine(NumberText(instrument.Offset));
}

Outcome LoadAnalog(Instrument& instrument, std::string_view name) {
    if (!IsWaveName(name)) return Refuse("not a name");
    const Samples& codes = LoadableSamples(instrument, name);
    LoadUnderWay& load = instrument.Load;
    Outcome outcome;
    if (load.Name != name) {
        load = codes.empty() ? LoadUnderWay{} : LoadUnderWay{std::string(name), 0};
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

}  // namespace sim
