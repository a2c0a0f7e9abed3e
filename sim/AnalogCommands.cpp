// The analog catalogue and the analog output.
#include "Commands.h"

namespace sim {

Outcome ListAnalog(Instrument& instrument, std::string_view) {
    return AnswerLine(CatalogueText(instrument.Memory, WaveKind::Analog));
}

Outcome ListStoredAnalog(Instrument& instrument, std::string_view) {
    return AnswerLine(StoredNamesText(instrument.Memory, WaveKind::Analog));
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
    instrument.Playing = WaveKind::Analog;
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
    instrument.Playing = WaveKind::Analog;
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

}  // namespace sim
