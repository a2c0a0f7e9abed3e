#pragma once
// The two filter dialogs without their windows: a low-pass over the whole wave, and a moving
// average over the selection or, without one, over the whole wave.
#include "frame/records/AnalogWaveRecord.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

struct LowPassDialog {
    std::int32_t MaxCut = 1;     // highest cut-off, cycles
    double CutFreq = 1.0;        // cut-off as typed: cycles in FftLength dots
    double FftLength = 0.0;      // smallest power of two that is not below three times the dots
    std::int32_t FilterLen = 0;  // taps, follows CutFreq
    bool operator==(const LowPassDialog&) const = default;
};

/// Fills the dialog for the active document, which has dots, from the settings.
LowPassDialog OpenLowPass();

// The box of the cut-off, what was typed in it (held to 1..MaxCut), and a spin button's tick.
std::string CutOffText(const LowPassDialog& dialog);
void LeaveCutOff(LowPassDialog& dialog, std::string_view typed);
void SpinCutOff(LowPassDialog& dialog, std::int32_t tick, bool up);

/// Cut-off in hertz of the document's period, and length of the filter, in the current language.
std::string LowPassNote(const LowPassDialog& dialog);

/// The filtered wave. Takes as long as the filter itself.
void PreviewLowPass(const LowPassDialog& dialog, std::vector<WaveDot>& dots);

/// OK, first step: saves the setting. False below two dots: there is nothing to filter.
bool PrepareLowPass(const LowPassDialog& dialog);
/// Second step, long work: filters the whole active wave as one edit.
void RunLowPass(const LowPassDialog& dialog);

struct SmoothDialog {
    std::int16_t SmoothDot = 3;  // length of the average, dots, odd
    std::int32_t Highest = 3;    // 99, or the length of the run that is smoothed
    bool operator==(const SmoothDialog&) const = default;
};

/// Fills the dialog for the active document from the settings.
SmoothDialog OpenSmooth();

// The box of the length, what was typed in it (held to 3..Highest, then raised to odd), and a spin
// button's tick.
std::string SmoothDotText(const SmoothDialog& dialog);
void LeaveSmoothDot(SmoothDialog& dialog, std::string_view typed);
void SpinSmoothDot(SmoothDialog& dialog, std::int32_t tick, bool up);

/// The dots to be smoothed: the selection, or without one the whole wave.
std::span<WaveDot> SmoothedRun(AnalogWaveRecord& wave);

/// The run as it would become.
void PreviewSmooth(const SmoothDialog& dialog, std::vector<WaveDot>& dots);

/// OK: smooths as one edit and saves the setting. False below two dots: nothing was done.
bool ConfirmSmooth(const SmoothDialog& dialog);
