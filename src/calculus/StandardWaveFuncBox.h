#pragma once
// The standard wave dialog without its window: parameters, bounds, settings, preview, and the
// insertion into the active document. Values are clamped, never refused.
#include "frame/records/AnalogWaveRecord.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

enum WaveKind : std::int16_t { Sine, Square, Ramp, Pulse, ExpRise, ExpFall, Noise, Sinc, Dc, None };
inline constexpr std::int16_t WaveKindCount = 10;
extern const std::array<std::string_view, WaveKindCount> WaveKindNames;

struct StandardWaveDialog {
    WaveSegment Wave;             // the generator fields; Wave.DotCount is DotNum
    double PWidthPercent = 50.0;  // of one period
    double SlopePercent = 10.0;
    Flag AmplInVolts = true;    // ampltxt shows volts, otherwise millivolts
    Flag OffsetInVolts = true;  // offsettxt likewise
    double Vpp = 0.0;           // volts, of the document
    std::int32_t Room = 0;      // most dots that fit: free dots plus the selection's
    std::int32_t MaxDots = 0;
    Flag ReEdit;   // a picked generated segment is edited again
    Flag Operand;  // a wave for wave math: DotNum is locked, OK leaves the document alone
};

/// Which boxes a wave type uses.
struct KindFields {
    bool Dots, Ampl, Offset, Cycles, Phase, Para1, Para2;
};
KindFields FieldsOf(std::int16_t kind);

/// Fills the dialog for the active document: from the settings, or from the picked generated
/// segment, whose fields are the selection's then. `kind` preselects a type; with -1 it is the
/// segment's, otherwise the one chosen last while the program runs. A full document without a
/// selection leaves the fields at their initial values, with no dot.
StandardWaveDialog OpenStandardWave(std::int16_t kind);

/// Fills the dialog for an operand of wave math over the active selection, whose length is locked:
/// from `last`, the operand chosen before, or, without one, from the settings.
StandardWaveDialog OpenOperandWave(const std::optional<WaveSegment>& last);

/// Which boxes of the dialog are open.
KindFields OpenFields(const StandardWaveDialog& dialog);

// Texts that the boxes show.
std::string WaveDotnumText(const StandardWaveDialog& dialog);
std::string CyclesText(const StandardWaveDialog& dialog);
std::string PhaseText(const StandardWaveDialog& dialog);
std::string WaveAmplText(const StandardWaveDialog& dialog);
std::string OffsetText(const StandardWaveDialog& dialog);
std::string Para1Text(const StandardWaveDialog& dialog);  // empty where the type has none
std::string Para2Text(const StandardWaveDialog& dialog);

/// Selects a type, remembered for the next opening unless it is None or an operand's.
void ChangeKind(StandardWaveDialog& dialog, std::int16_t kind);

// A box was left with `typed` in it: takes the number, held to its bounds, and then holds the
// values that depend on it: cycles and pulse on the dots, the offset on the amplitude.
void LeaveWaveDotnum(StandardWaveDialog& dialog, std::string_view typed);
void LeaveCycles(StandardWaveDialog& dialog, std::string_view typed);
void LeavePhase(StandardWaveDialog& dialog, std::string_view typed);
void LeaveWaveAmpl(StandardWaveDialog& dialog, std::string_view typed);
void LeaveOffset(StandardWaveDialog& dialog, std::string_view typed);
void LeavePara1(StandardWaveDialog& dialog, std::string_view typed);
void LeavePara2(StandardWaveDialog& dialog, std::string_view typed);

// A unit list changed: the typed number is read in the new unit.
void ChangeWaveAmplUnit(StandardWaveDialog& dialog, Flag volts, std::string_view typed);
void ChangeOffsetUnit(StandardWaveDialog& dialog, Flag volts, std::string_view typed);

// A spin button's tick, counted from its press.
void SpinWaveDots(StandardWaveDialog& dialog, std::int32_t tick, bool up);
void SpinCycles(StandardWaveDialog& dialog, std::int32_t tick, bool up);
void SpinPhase(StandardWaveDialog& dialog, std::int32_t tick, bool up);

/// Computes dots start..start+count-1 of `dots` from the generator fields, normalised by Vpp/2 (in
/// volts) and clipped to -1..1.
void GenerateWave(const WaveSegment& wave, double vpp, WaveDot* dots, std::int32_t start,
                  std::int32_t count);

/// The wave as it would be inserted, normalised by the document's Vpp/2 and clipped to -1..1. No
/// dot for type None.
void PreviewStandardWave(const StandardWaveDialog& dialog, std::vector<WaveDot>& dots);

/// OK: appends the wave to the active document or replaces the selection by it, as one edit, and
/// saves the settings. A selection then covers the new wave. An operand only has its fields held.
/// False when nothing was done (type None, or no room for two dots).
bool ConfirmStandardWave(StandardWaveDialog& dialog);

/// Saves the fields that the wave's type uses, for the next insertion.
void SaveWaveSettings(const WaveSegment& wave);
