#include "calculus/StandardWaveFuncBox.h"

#include "analog/EditFuncBox.h"
#include "analog/SegmentEngine.h"
#include "calculus/RunEdit.h"
#include "frame/GlobalDefineCode.h"
#include "frame/Narrow.h"
#include "frame/NumberField.h"
#include "frame/SpinSteps.h"
#include "frame/StringFunc.h"
#include "platform/Settings.h"

#include <algorithm>

// Percents of a pulse are what the user holds, its dots follow: percent * DotNum / Cycles / 100.
// Offset and amplitude share the rails of Vpp/2, and the offset is always the one that gives way.

const std::array<std::string_view, WaveKindCount> WaveKindNames = {
    "Sine", "Square", "Ramp", "Pulse", "ExpRise", "ExpFall", "Noise", "Sinc", "DC", "None"};

namespace {

constexpr std::string_view Section = "Tidemark_InsertWave";
constexpr std::int32_t LowestWaveDots = 2;
constexpr double LowestSavedAmpl = 0.002;  // volts
constexpr double HighestPhase = 359.0;     // degrees

std::int16_t LastKind = Sine;  // the type that the dialog opens with

// Fewer than two dots have room for one period all the same.
std::int32_t HighestCycles(const StandardWaveDialog& dialog) {
    return std::max(1, dialog.Wave.DotCount / 2);
}

double OffsetLimit(const StandardWaveDialog& dialog) {
    const double ampl = dialog.Wave.Kind == Dc ? 0.0 : double{dialog.Wave.Amplitude};
    return std::max(0.0, (dialog.Vpp - ampl) / 2.0);
}

NumberField DotnumField(const StandardWaveDialog& dialog) {
    const double lowest = dialog.Operand ? dialog.Room : LowestWaveDots;
    return {double(dialog.Wave.DotCount), lowest, double(dialog.Room), "0"};
}

NumberField CyclesField(const StandardWaveDialog& dialog) {
    return {double(dialog.Wave.Cycles), 1.0, double(HighestCycles(dialog)), "0"};
}

NumberField PhaseField(const StandardWaveDialog& dialog) {
    return {dialog.Wave.Phase, 0.0, HighestPhase, "000"};
}

NumberField VoltField(double value, double low, double high, Flag volts) {
    if (volts) return {value, low, high, "0.0000"};
    return {value, low, high, "0.0", 1000.0};
}

NumberField AmplField(const StandardWaveDialog& dialog) {
    return VoltField(dialog.Wave.Amplitude, MinVpp / 2.0, dialog.Vpp, dialog.AmplInVolts);
}

NumberField OffsetField(const StandardWaveDialog& dialog) {
    const double limit = OffsetLimit(dialog);
    return VoltField(dialog.Wave.Offset, -limit, limit, dialog.OffsetInVolts);
}

NumberField DutyField(double duty) {
    return {duty, 20.0, 80.0, "0"};
}
NumberField SymmetryField(double symmetry) {
    return {symmetry, 0.0, 100.0, "0"};
}
NumberField DampField(double damp) {
    return {damp, -15.0, 15.0, "0.000"};
}
NumberField OverzeroField(double overzero) {
    return {overzero, 1.0, 20.0, "0"};
}

// Only the sum bounds the width: a slope above the new width is put back to it.
NumberField PWidthField(const StandardWaveDialog& dialog) {
    return {dialog.PWidthPercent, 0.0, 100.0 - dialog.SlopePercent, "0.00"};
}

NumberField SlopeField(const StandardWaveDialog& dialog) {
    const double width = dialog.PWidthPercent;
    return {dialog.SlopePercent, 0.0, std::min(width, 100.0 - width), "0.00"};
}

NumberField Para1Field(const StandardWaveDialog& dialog) {
    const WaveSegment& wave = dialog.Wave;
    switch (wave.Kind) {
        case Square:
            return DutyField(wave.Duty);
        case Ramp:
            return SymmetryField(wave.Symmetry);
        case Pulse:
            return PWidthField(dialog);
        case Sinc:
            return OverzeroField(wave.Overzero);
        default:
            return DampField(wave.Damp);
    }
}

double Held(const NumberField& field) {
    return HoldBetween(field.Value, field.Low, field.High);
}

std::int16_t ToShort(double value) {
    return Narrow<std::int16_t>(RoundToInt(value));
}

void HoldOffset(StandardWaveDialog& dialog) {
    dialog.Wave.Offset = static_cast<float>(Held(OffsetField(dialog)));
}

void UpdatePulseDots(StandardWaveDialog& dialog) {
    WaveSegment& wave = dialog.Wave;
    const double percents = 100.0 * std::max(1, wave.Cycles);
    wave.PWidthDots = RoundToInt(dialog.PWidthPercent * wave.DotCount / percents);
    wave.SlopeDots = RoundToInt(dialog.SlopePercent * wave.DotCount / percents);
}

// What hangs on the number of dots.
void HoldCyclesAndPulse(StandardWaveDialog& dialog) {
    dialog.Wave.Cycles = RoundToInt(Held(CyclesField(dialog)));
    UpdatePulseDots(dialog);
}

void HoldSlope(StandardWaveDialog& dialog) {
    dialog.SlopePercent = Held(SlopeField(dialog));
    UpdatePulseDots(dialog);
}

void HoldWaveFields(StandardWaveDialog& dialog) {
    WaveSegment& wave = dialog.Wave;
    wave.DotCount = RoundToInt(Held(DotnumField(dialog)));
    wave.Phase = static_cast<float>(Held(PhaseField(dialog)));
    wave.Amplitude = static_cast<float>(Held(AmplField(dialog)));
    HoldOffset(dialog);
    wave.Duty = ToShort(Held(DutyField(wave.Duty)));
    wave.Symmetry = ToShort(Held(SymmetryField(wave.Symmetry)));
    wave.Overzero = ToShort(Held(OverzeroField(wave.Overzero)));
    wave.Damp = static_cast<float>(Held(DampField(wave.Damp)));
    dialog.PWidthPercent = HoldBetween(dialog.PWidthPercent, 0.0, 100.0);
    dialog.SlopePercent = Held(SlopeField(dialog));
    HoldCyclesAndPulse(dialog);
}

WaveSegment InitialWave(double vpp) {
    WaveSegment wave;
    wave.Custom = false;
    wave.Amplitude = static_cast<float>(vpp);
    wave.Cycles = 1;
    wave.Duty = 50;
    wave.Symmetry = 50;
    wave.Overzero = 10;
    wave.Damp = -5.0F;
    return wave;
}

std::int32_t DefaultDotnum(const AnalogWaveRecord& wave) {
    const std::int32_t tenth = RoundToInt(wave.MaxDots / 10.0);
    const std::int32_t dots = tenth >= 200 ? tenth : wave.MaxDots;
    return wave.HasSelection ? dots : std::min(dots, wave.MaxDots - wave.Dots);
}

void LoadFromSettings(StandardWaveDialog& dialog, const AnalogWaveRecord& wave) {
    if (dialog.Room < 1) return;
    const auto read = [](std::string_view key, const NumberField& field) {
        return ReadSettingNumber(Section, key, field.Value, field.Low, field.High);
    };
    WaveSegment& made = dialog.Wave;
    made.DotCount = DefaultDotnum(wave);
    made.DotCount = RoundToInt(read("DotNum", DotnumField(dialog)));
    made.Amplitude = static_cast<float>(
        ReadSettingNumber(Section, "Ampl", dialog.Vpp, LowestSavedAmpl, dialog.Vpp));
    made.Offset = static_cast<float>(read("Offset", OffsetField(dialog)));
    made.Cycles = RoundToInt(read("Period", CyclesField(dialog)));
    made.Phase = static_cast<float>(read("Phase", PhaseField(dialog)));
    made.Duty = ToShort(read("Duty", DutyField(made.Duty)));
    made.Symmetry = ToShort(read("symmetry", SymmetryField(made.Symmetry)));
    made.Damp = static_cast<float>(read("Damp", DampField(made.Damp)));
    // Read by another spelling than it is saved by, so every Sinc begins with the default.
    made.Overzero = ToShort(read("Overzerio", OverzeroField(made.Overzero)));
    UpdatePulseDots(dialog);
}

bool HasPickedWave(const AnalogWaveRecord& wave) {
    if (!wave.HasSelection || !wave.SegmentPicked) return false;
    if (wave.PickedSegment < 0 || wave.PickedSegment >= wave.SegmentCount) return false;
    return !wave.Segments[static_cast<std::size_t>(wave.PickedSegment)].Custom;
}

void LoadFromSegment(StandardWaveDialog& dialog, const WaveSegment& fields, std::int32_t dots) {
    dialog.Wave = fields;
    dialog.Wave.DotCount = dots;
    dialog.Wave.Cycles = RoundToInt(Held(CyclesField(dialog)));
    const double percentPerDot = 100.0 * dialog.Wave.Cycles / dialog.Wave.DotCount;
    dialog.PWidthPercent = dialog.Wave.PWidthDots * percentPerDot;
    dialog.SlopePercent = dialog.Wave.SlopeDots * percentPerDot;
    HoldWaveFields(dialog);
}

// The wave stands in place of the selection, or behind the last dot.
void PlaceWave(AnalogWaveRecord& wave, WaveSegment made) {
    made.Custom = false;
    const std::int32_t start = wave.HasSelection ? wave.SelStart : wave.Dots;
    if (wave.HasSelection) {
        ReplaceRunSegments(wave, made);  // reads the bounds as they are before the dots move
        ResizeSelection(wave, made.DotCount);
    } else {
        AppendSegment(wave, made);
    }
    GenerateWave(made, wave.Vpp, wave.DotArray.data(), start, made.DotCount);
}

StandardWaveDialog EmptyDialog(const AnalogWaveRecord& wave, std::int32_t room,
                               std::int32_t maxDots) {
    StandardWaveDialog dialog;
    dialog.Vpp = wave.Vpp;
    dialog.MaxDots = maxDots;
    dialog.Room = room;
    dialog.Wave = InitialWave(wave.Vpp);
    dialog.Wave.Kind = LastKind;
    return dialog;
}

}  // namespace

KindFields FieldsOf(std::int16_t kind) {
    switch (kind) {  // Dots, Ampl, Offset, Cycles, Phase, Para1, Para2
        case Sine:
            return {true, true, true, true, true, false, false};
        case Pulse:
            return {true, true, true, true, true, true, true};
        case Noise:
            return {true, true, true, false, false, false, false};
        case Dc:
            return {true, false, true, false, false, false, false};
        case Square:
        case Ramp:
        case ExpRise:
        case ExpFall:
        case Sinc:
            return {true, true, true, true, true, true, false};
        default:
            return {};
    }
}

StandardWaveDialog OpenStandardWave(std::int16_t kind) {
    const AnalogWaveRecord& wave = ActiveAnalog();
    StandardWaveDialog dialog = EmptyDialog(wave, RoomOf(wave), wave.MaxDots);
    if (HasPickedWave(wave)) {
        dialog.ReEdit = true;
        const WaveSegment& picked = wave.Segments[static_cast<std::size_t>(wave.PickedSegment)];
        LoadFromSegment(dialog, picked, SelectionLength(wave));
        if (kind >= 0) ChangeKind(dialog, kind);
        return dialog;
    }
    if (kind >= 0) ChangeKind(dialog, kind);  // first, for a DC offset has bounds of its own
    LoadFromSettings(dialog, wave);
    return dialog;
}

StandardWaveDialog OpenOperandWave(const std::optional<WaveSegment>& last) {
    const AnalogWaveRecord& wave = ActiveAnalog();
    const std::int32_t length = SelectionLength(wave);
    StandardWaveDialog dialog = EmptyDialog(wave, length, length);
    dialog.Operand = true;
    if (last)
        LoadFromSegment(dialog, *last, length);
    else
        LoadFromSettings(dialog, wave);
    return dialog;
}

KindFields OpenFields(const StandardWaveDialog& dialog) {
    KindFields open = FieldsOf(dialog.Wave.Kind);
    open.Dots = open.Dots && !dialog.Operand;
    return open;
}

std::string WaveDotnumText(const StandardWaveDialog& dialog) {
    return ShowField(DotnumField(dialog));
}
std::string CyclesText(const StandardWaveDialog& dialog) {
    return ShowField(CyclesField(dialog));
}
std::string PhaseText(const StandardWaveDialog& dialog) {
    return ShowField(PhaseField(dialog));
}
std::string WaveAmplText(const StandardWaveDialog& dialog) {
    return ShowField(AmplField(dialog));
}
std::string OffsetText(const StandardWaveDialog& dialog) {
    return ShowField(OffsetField(dialog));
}

std::string Para1Text(const StandardWaveDialog& dialog) {
    return FieldsOf(dialog.Wave.Kind).Para1 ? ShowField(Para1Field(dialog)) : std::string();
}

std::string Para2Text(const StandardWaveDialog& dialog) {
    return FieldsOf(dialog.Wave.Kind).Para2 ? ShowField(SlopeField(dialog)) : std::string();
}

void ChangeKind(StandardWaveDialog& dialog, std::int16_t kind) {
    dialog.Wave.Kind = kind >= Sine && kind < WaveKindCount ? kind : std::int16_t{None};
    if (dialog.Wave.Kind != None && !dialog.Operand) LastKind = dialog.Wave.Kind;
    HoldOffset(dialog);  // a DC offset may use the rails that another wave needs for itself
}

void LeaveWaveDotnum(StandardWaveDialog& dialog, std::string_view typed) {
    dialog.Wave.DotCount = RoundToInt(LeaveField(DotnumField(dialog), typed));
    HoldCyclesAndPulse(dialog);
}

void LeaveCycles(StandardWaveDialog& dialog, std::string_view typed) {
    dialog.Wave.Cycles = RoundToInt(LeaveField(CyclesField(dialog), typed));
    UpdatePulseDots(dialog);
}

void LeavePhase(StandardWaveDialog& dialog, std::string_view typed) {
    dialog.Wave.Phase = static_cast<float>(RoundToInt(LeaveField(PhaseField(dialog), typed)));
}

void LeaveWaveAmpl(StandardWaveDialog& dialog, std::string_view typed) {
    dialog.Wave.Amplitude = static_cast<float>(LeaveField(AmplField(dialog), typed));
    HoldOffset(dialog);
}

void LeaveOffset(StandardWaveDialog& dialog, std::string_view typed) {
    dialog.Wave.Offset = static_cast<float>(LeaveField(OffsetField(dialog), typed));
}

void LeavePara1(StandardWaveDialog& dialog, std::string_view typed) {
    WaveSegment& wave = dialog.Wave;
    if (!FieldsOf(wave.Kind).Para1) return;
    const double value = LeaveField(Para1Field(dialog), typed);
    switch (wave.Kind) {
        case Square:
            wave.Duty = ToShort(value);
            break;
        case Ramp:
            wave.Symmetry = ToShort(value);
            break;
        case Sinc:
            wave.Overzero = ToShort(value);
            break;
        case Pulse:
            dialog.PWidthPercent = value;
            HoldSlope(dialog);
            break;
        default:
            wave.Damp = static_cast<float>(value);
            break;
    }
}

void LeavePara2(StandardWaveDialog& dialog, std::string_view typed) {
    if (!FieldsOf(dialog.Wave.Kind).Para2) return;
    dialog.SlopePercent = LeaveField(SlopeField(dialog), typed);
    UpdatePulseDots(dialog);
}

void ChangeWaveAmplUnit(StandardWaveDialog& dialog, Flag volts, std::string_view typed) {
    dialog.AmplInVolts = volts;
    dialog.Wave.Amplitude = static_cast<float>(ReadField(AmplField(dialog), typed));
    HoldOffset(dialog);
}

void ChangeOffsetUnit(StandardWaveDialog& dialog, Flag volts, std::string_view typed) {
    dialog.OffsetInVolts = volts;
    dialog.Wave.Offset = static_cast<float>(ReadField(OffsetField(dialog), typed));
}

void SpinWaveDots(StandardWaveDialog& dialog, std::int32_t tick, bool up) {
    const std::int32_t lowest = dialog.Operand ? dialog.Room : LowestSpinDots;
    dialog.Wave.DotCount =
        SpinValue(dialog.Wave.DotCount, StepAt(DotSteps, tick), up, lowest, dialog.MaxDots);
    HoldCyclesAndPulse(dialog);
}

void SpinCycles(StandardWaveDialog& dialog, std::int32_t tick, bool up) {
    dialog.Wave.Cycles =
        SpinValue(dialog.Wave.Cycles, StepAt(CycleSteps, tick), up, 1, HighestCycles(dialog));
    UpdatePulseDots(dialog);
}

void SpinPhase(StandardWaveDialog& dialog, std::int32_t tick, bool up) {
    const std::int32_t phase = RoundToInt(dialog.Wave.Phase);
    dialog.Wave.Phase = static_cast<float>(
        SpinValue(phase, StepAt(CycleSteps, tick), up, 0, RoundToInt(HighestPhase)));
}

void GenerateWave(const WaveSegment& wave, double vpp, WaveDot* dots, std::int32_t start,
                  std::int32_t count) {
    const double rail = vpp / 2.0;
    drawcurves(dots, start, count, wave.Kind, static_cast<float>(wave.Amplitude / rail),
               static_cast<float>(wave.Offset / rail), wave.Cycles, wave.Phase, wave.Duty,
               wave.PWidthDots, wave.SlopeDots, wave.Symmetry, wave.Overzero, wave.Damp);
    ClipDots({dots + start, static_cast<std::size_t>(count)});
}

void PreviewStandardWave(const StandardWaveDialog& dialog, std::vector<WaveDot>& dots) {
    const bool generates = FieldsOf(dialog.Wave.Kind).Dots;
    dots.resize(generates ? static_cast<std::size_t>(std::max(0, dialog.Wave.DotCount)) : 0);
    if (dots.empty()) return;
    GenerateWave(dialog.Wave, dialog.Vpp, dots.data(), 0, dialog.Wave.DotCount);
}

bool ConfirmStandardWave(StandardWaveDialog& dialog) {
    AnalogWaveRecord& wave = ActiveAnalog();
    if (!FieldsOf(dialog.Wave.Kind).Dots) return false;
    if (dialog.Operand) {
        HoldWaveFields(dialog);
        return true;
    }
    dialog.Room = RoomOf(wave);
    if (dialog.Room < LowestWaveDots) return false;
    dialog.ReEdit = false;
    HoldWaveFields(dialog);
    BeginEdit(wave);
    PlaceWave(wave, dialog.Wave);
    SaveWaveSettings(dialog.Wave);
    EndEdit(ActiveAnalogIndex, true);
    return true;
}

void SaveWaveSettings(const WaveSegment& wave) {
    const auto save = [](std::string_view key, const std::string& text) {
        SaveSetting(ApplicationTitle, Section, key, text);
    };
    const std::int16_t kind = wave.Kind;
    save("DotNum", std::to_string(wave.DotCount));
    if (kind != Dc) save("Ampl", ShortestText(wave.Amplitude));
    save("Offset", ShortestText(wave.Offset));
    if (FieldsOf(kind).Cycles) {
        save("Period", std::to_string(wave.Cycles));
        save("Phase", ShortestText(wave.Phase));
    }
    if (kind == Square) save("Duty", std::to_string(wave.Duty));
    if (kind == Ramp) save("symmetry", std::to_string(wave.Symmetry));
    if (kind == ExpRise || kind == ExpFall) save("Damp", ShortestText(wave.Damp));
    if (kind == Sinc) save("Overzero", std::to_string(wave.Overzero));
}
