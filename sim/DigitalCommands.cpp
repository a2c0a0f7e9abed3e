// The digital catalogue and the digital output. Its set-up is collected and plays from
// DIGIT:FINISH on.
#include "Commands.h"

namespace sim {

Outcome ListDigital(Instrument& instrument, std::string_view) {
    return AnswerLine(CatalogueText(instrument.Memory, WaveKind::Digital));
}

Outcome ListStoredDigital(Instrument& instrument, std::string_view) {
    return AnswerLine(StoredNamesText(instrument.Memory, WaveKind::Digital));
}

Outcome RefuseDigitalText(Instrument&, std::string_view) {
    return Refuse("digital samples as text are not simulated");
}

Outcome ListProtocols(Instrument&, std::string_view) {
    std::string list;
    for (const std::string_view name : Protocols) list += ",\"" + std::string(name) + "\"";
    return AnswerLine(list.substr(1));
}

Outcome SelectProtocol(Instrument& instrument, std::string_view name) {
    if (name != UserPattern && !IsProtocol(name)) return Refuse("no such protocol");
    instrument.Digit.Protocol = name;
    return {};
}

Outcome SetDigitRate(Instrument& instrument, std::string_view text) {
    const auto rate = ReadNumber(text);
    if (!rate || *rate <= 0.0) return Refuse("not a rate");
    instrument.Digit.Rate = *rate;
    return {};
}

Outcome TellDigitRate(Instrument& instrument, std::string_view) {
    return AnswerLine(RateText(instrument.Digit.Rate));
}

// An editor may select a stored pattern without a word on the protocol, so this leaves a built-in
// one.
Outcome SelectDigital(Instrument& instrument, std::string_view name) {
    if (SamplesOf(instrument.Memory, WaveKind::Digital, name).empty()) {
        return Refuse(name == VolatileName ? "the volatile memory is empty"
                                           : "no such digital wave");
    }
    instrument.Digit.Wave = name;
    instrument.Digit.Protocol = UserPattern;
    return {};
}

Outcome FinishDigital(Instrument& instrument, std::string_view) {
    const DigitSetup& setup = instrument.Digit;
    const Samples& words = SamplesOf(instrument.Memory, WaveKind::Digital, setup.Wave);
    const bool isUsers = setup.Protocol == UserPattern;
    if (isUsers && words.empty()) return Refuse("the volatile memory is empty");
    instrument.DigitOutput = setup;
    instrument.Playing = WaveKind::Digital;
    ++instrument.OutputVersion;
    Outcome outcome;
    outcome.Note = "plays " + setup.Protocol + ", rate " + RateText(setup.Rate);
    if (isUsers) outcome.Note += ": " + setup.Wave + ", " + std::to_string(words.size()) + " dots";
    return outcome;
}

}  // namespace sim
