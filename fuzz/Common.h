#pragma once
// What the fuzzers share. libFuzzer keeps each input for which a `Require` does not hold, or which
// the sanitizers do not bear.
#include "analog/AnalogDocument.h"
#include "digital/DigitDocumentFuncBox.h"

#include <string>
#include <string_view>

/// The fuzzer's own part. No document is open before, and what it opens is closed behind it.
void Fuzz(std::string_view input);

inline void Require(bool holds) {
    if (!holds) __builtin_trap();
}

/// Takes the first byte, 0 where there is none.
unsigned TakeByte(std::string_view& input);
/// Takes what stands in front of the next byte 1E.
std::string TakePart(std::string_view& input);

/// What was read becomes a document whose counts, ranges, dots, segments and nodes are sound.
AnalogWaveRecord& OpenSound(LoadedWave wave);
DigitDocument& OpenSound(LoadedDigit digit);

/// What was read is sound, and what is written of it comes back as the same, but for what a CSV
/// file rounds.
void RequireKept(LoadedWave wave, bool (*read)(std::string_view, LoadedWave&),
                 std::string (*write)(const AnalogWaveRecord&));

/// A connected instrument that replies with the parts of the input, then falls silent. Bits of the
/// first byte, which is taken: 1 over a serial line, 2 variant, 12 model.
unsigned ScriptLink(std::string_view& input);
