// The non-volatile locations: count, copy, delete, rename. They change what an output plays when it
// plays one of them.
#include "Commands.h"

namespace sim {

namespace {

bool IsOutput(const Instrument& instrument, WaveKind kind, std::string_view name) {
    if (instrument.Playing != kind) return false;
    const DigitSetup& output = instrument.DigitOutput;
    return kind == WaveKind::Analog ? instrument.ActiveWave == name
                                    : output.Protocol == UserPattern && output.Wave == name;
}

// An output whose wave is gone goes back to a built-in one.
void LetGo(Instrument& instrument, WaveKind kind, std::string_view name) {
    const bool wasOutput = IsOutput(instrument, kind, name);
    if (kind == WaveKind::Analog && instrument.ActiveWave == name) {
        instrument.ActiveWave = BuiltInNames[0];
    }
    if (kind == WaveKind::Digital) {
        if (instrument.Digit.Wave == name) instrument.Digit.Wave = VolatileName;
        if (instrument.DigitOutput.Wave == name) instrument.DigitOutput.Wave = VolatileName;
        if (wasOutput) instrument.Playing = WaveKind::Analog;
    }
    if (wasOutput) ++instrument.OutputVersion;
}

Outcome Copy(Instrument& instrument, StoredWave wave) {
    const WaveKind kind = wave.Kind;
    const std::string name = wave.Name;
    if (wave.Codes.empty()) return Refuse("the volatile memory is empty");
    std::string reason = StoreWave(instrument.Memory, std::move(wave));
    if (!reason.empty()) return Refuse(reason);
    LetGo(instrument, kind == WaveKind::Analog ? WaveKind::Digital : WaveKind::Analog, name);
    NoteChange(instrument, kind, name);
    return {};
}

Outcome Rename(Instrument& instrument, std::string_view argument, char separator) {
    const auto names = SplitItems(argument, separator);
    if (names.size() != 2) return Refuse("not two names");
    std::string reason = RenameStored(instrument.Memory, names[0], names[1]);
    if (!reason.empty()) return Refuse(reason);
    for (const WaveKind kind : {WaveKind::Analog, WaveKind::Digital}) {
        NoteChange(instrument, kind, names[0]);
    }
    for (std::string* name :
         {&instrument.ActiveWave, &instrument.Digit.Wave, &instrument.DigitOutput.Wave}) {
        if (*name == names[0]) *name = names[1];
    }
    return {};
}

}  // namespace

void NoteChange(Instrument& instrument, WaveKind kind, std::string_view name) {
    if (IsOutput(instrument, kind, name)) ++instrument.OutputVersion;
}

Outcome CountFree(Instrument& instrument, std::string_view) {
    const WaveMemory& memory = instrument.Memory;
    const auto locations = static_cast<long>(memory.Locations);
    long used = static_cast<long>(memory.Stored.size());
    // Stale: one more in use than the whole catalogue has names, as after a lost deletion.
    if (instrument.Fault.StaleFreeCount) used += std::ssize(BuiltInNames) + 2;
    return AnswerLine(std::to_string(locations - used));
}

Outcome CopyAnalog(Instrument& instrument, std::string_view name) {
    return Copy(instrument, {std::string(name), WaveKind::Analog, instrument.Memory.Volatile});
}

Outcome CopyDigital(Instrument& instrument, std::string_view name) {
    const WaveMemory& memory = instrument.Memory;
    return Copy(instrument,
                {std::string(name), WaveKind::Digital, memory.DigitVolatile, memory.DigitChannels});
}

Outcome Delete(Instrument& instrument, std::string_view name) {
    std::string reason = DeleteStored(instrument.Memory, name);
    if (!reason.empty()) return Refuse(reason);
    for (const WaveKind kind : {WaveKind::Analog, WaveKind::Digital}) {
        LetGo(instrument, kind, name);
    }
    return {};
}

Outcome RenameByComma(Instrument& instrument, std::string_view argument) {
    return Rename(instrument, argument, ',');
}

Outcome RenameByBlank(Instrument& instrument, std::string_view argument) {
    return Rename(instrument, argument, ' ');
}

}  // namespace sim
