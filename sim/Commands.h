#pragma once
// What the commands do. Each takes what stands behind its head and the separator, and refuses an
// argument of another form without any effect.
#include "Instrument.h"

namespace sim {

inline Outcome Refuse(std::string reason) {
    Outcome outcome;
    outcome.Error = std::move(reason);
    return outcome;
}

inline Outcome AnswerLine(const std::string& text) {
    Outcome outcome;
    outcome.Reply = text + "\n";
    return outcome;
}

/// Counts a change of a wave, if the active output plays it.
void NoteChange(Instrument& instrument, WaveKind kind, std::string_view name);

/// Makes the packets that have come in the volatile wave of their kind.
void CompleteTransfer(Instrument& instrument);

// Samples in and out.
Outcome TakeBinary(Instrument& instrument, std::string_view argument);
Outcome TakeText(Instrument& instrument, std::string_view argument);
Outcome TakeReal(Instrument& instrument, std::string_view argument);
Outcome TakeDigital(Instrument& instrument, std::string_view argument);
Outcome LoadAnalog(Instrument& instrument, std::string_view argument);
Outcome LoadDigital(Instrument& instrument, std::string_view argument);

// The locations.
Outcome CountFree(Instrument& instrument, std::string_view argument);
Outcome CopyAnalog(Instrument& instrument, std::string_view argument);
Outcome CopyDigital(Instrument& instrument, std::string_view argument);
Outcome Delete(Instrument& instrument, std::string_view argument);
Outcome RenameByComma(Instrument& instrument, std::string_view argument);
Outcome RenameByBlank(Instrument& instrument, std::string_view argument);

// Analog waves.
Outcome ListAnalog(Instrument& instrument, std::string_view argument);
Outcome ListStoredAnalog(Instrument& instrument, std::string_view argument);
Outcome SelectWave(Instrument& instrument, std::string_view argument);
Outcome ApplyUser(Instrument& instrument, std::string_view argument);
Outcome TellFrequency(Instrument& instrument, std::string_view argument);
Outcome TellAmplitude(Instrument& instrument, std::string_view argument);
Outcome TellOffset(Instrument& instrument, std::string_view argument);

// Digital waves.
Outcome ListDigital(Instrument& instrument, std::string_view argument);
Outcome ListStoredDigital(Instrument& instrument, std::string_view argument);
Outcome RefuseDigitalText(Instrument& instrument, std::string_view argument);
Outcome ListProtocols(Instrument& instrument, std::string_view argument);
Outcome SelectProtocol(Instrument& instrument, std::string_view argument);
Outcome SetDigitRate(Instrument& instrument, std::string_view argument);
Outcome TellDigitRate(Instrument& instrument, std::string_view argument);
Outcome SelectDigital(Instrument& instrument, std::string_view argument);
Outcome FinishDigital(Instrument& instrument, std::string_view argument);

}  // namespace sim
