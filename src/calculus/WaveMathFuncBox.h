#pragma once
// The wave math dialog without its window: the selected run of the active document combined, dot by
// dot, with the clipboard or with a standard wave. Nothing changes before OK.
#include "calculus/DotMath.h"
#include "frame/records/AnalogWaveRecord.h"

#include <optional>
#include <string>
#include <vector>

enum MathSource : std::int16_t { ClipBoardSource, StandardWaveSource };
inline constexpr std::int16_t MathSourceCount = 2;

struct WaveMathDialog {
    std::int16_t Source = ClipBoardSource;
    std::int16_t MathOperation = NoOperation;
    std::vector<WaveDot> MathSourceDots;  // the operand, over the selection's length
    std::vector<WaveDot> MathResultDots;  // the selection, or what becomes of it
    std::optional<WaveSegment> Wave;      // the standard wave that was the operand last
    std::int32_t Clipped = 0;             // results beyond the rails
};

/// Fills the dialog for the selection of the active document, with the clipboard and no operation.
WaveMathDialog OpenWaveMath();

/// Takes the clipboard as the operand; where it is shorter than the selection, 0.0 follows.
void TakeClipboard(WaveMathDialog& dialog);
/// Takes a standard wave over the selection's length as the operand, in the document's volts.
void TakeStandardWave(WaveMathDialog& dialog, const WaveSegment& wave);

void ChooseMathOperation(WaveMathDialog& dialog, std::int16_t operation);
/// Takes the operation back: the result is the selection as it is.
void ResumeWaveMath(WaveMathDialog& dialog);

/// What the user should know of operand and result, in the current language; mostly empty.
std::string WaveMathNote(const WaveMathDialog& dialog);

/// OK: writes the result into the selection as one edit and remembers the settings of a standard
/// wave. False when nothing was done: no operation, or no selection.
bool ConfirmWaveMath(const WaveMathDialog& dialog);
