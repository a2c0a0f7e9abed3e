#include "calculus/PropertyFuncBox.h"

#include "analog/AnalogDocument.h"
#include "analog/EditFuncBox.h"
#include "analog/SegmentEngine.h"
#include "analog/ZoomFuncBox.h"
#include "calculus/StandardWaveFuncBox.h"
#include "frame/GlobalDefineCode.h"
#include "frame/Narrow.h"
#include "frame/NumberField.h"
#include "frame/SpinSteps.h"
#include "frame/StringFunc.h"
#include "platform/Settings.h"

#include <algorithm>

// Dots are normalised to Vpp/2, so another Vpp means other dots for the same volts: with
// Ratio = new Vpp / old Vpp a free-form dot Y becomes Y / Ratio, and a generated wave is computed
// again from its volts. A dot that would stand above the new rails is clipped and lost.

const std::array<UnitRow, 5> FrequencyUnits = {{
    {"MHz", 1e6, "0.000000000000"},
    {"KHz", 1e3, "0.000000000"},
    {"Hz", 1.0, "0.000000"},
    {"mHz", 1e-3, "0.000"},
    {"uHz", 1e-6, "0"},
}};

const std::array<UnitRow, 5> PeriodUnits = {{
    {"MS", 1e6, "0.000000000000000"},
    {"KS", 1e3, "0.000000000000"},
    {"S", 1.0, "0.000000000"},
    {"mS", 1e-3, "0.000000"},
    {"uS", 1e-6, "0.000"},
}};

namespace {

constexpr std::string_view Section = "Tidemark_Property";

// The largest of the units 1e6, 1e3, 1, 1e-3 that the value reaches, otherwise 1e-6.
std::int16_t ChooseUnit(double value) {
    if (value >= 1e6) return 0;
    if (value >= 1e3) return 1;
    if (value >= 1.0) return 2;
    return value >= 1e-3 ? std::int16_t{3} : std::int16_t{4};
}

const UnitRow& UnitAt(const std::array<UnitRow, 5>& units, std::int16_t index) {
    return units[static_cast<std::size_t>(HoldBetween(index, 0, 4))];
}

NumberField DotnumField(const PropertyDialog& dialog) {
    return {double(dialog.MaxDots), double(MinWaveDots), double(MaxWaveDots), "0"};
}

NumberField AmplField(const PropertyDialog& dialog) {
    if (dialog.AmplInVolts) return {dialog.Vpp, MinVpp, MaxVpp, "0.0000"};
    return {dialog.Vpp, MinVpp, MaxVpp, "0.0", 1000.0};
}

NumberField QuantField(const PropertyDialog& dialog) {
    return {double(dialog.Quantify), double(MinQuantify), double(MaxQuantify), "0"};
}

NumberField FreqField(const PropertyDialog& dialog) {
    const UnitRow& unit = UnitAt(FrequencyUnits, dialog.FrequencyUnit);
    return {1.0 / dialog.Period, MinFrequency, MaxFrequency, unit.Pattern, 1.0 / unit.Factor};
}

NumberField PeriodField(const PropertyDialog& dialog) {
    const UnitRow& unit = UnitAt(PeriodUnits, dialog.PeriodUnit);
    return {dialog.Period, MinPeriod, MaxPeriod, unit.Pattern, 1.0 / unit.Factor};
}

// A frequency that did not change leaves the period alone: two reciprocals may cost its last bit.
void TakeFrequency(PropertyDialog& dialog, double old, double hertz) {
    if (hertz != old) dialog.Period = 1.0 / hertz;
    dialog.Period = HoldBetween(dialog.Period, MinPeriod, MaxPeriod);
}

void ReadPropertySettings(PropertyDialog& dialog) {
    dialog.MaxDots =
        RoundToInt(ReadSettingNumber(Section, "MaxDots", 4096.0, MinWaveDots, MaxWaveDots));
    dialog.Vpp = StoredVpp();
    dialog.Quantify = StoredQuantify();
    dialog.Period = StoredPeriod();
}

void SavePropertySettings(const PropertyDialog& dialog) {
    SaveSetting(ApplicationTitle, Section, "MaxDots", ShortestText(double(dialog.MaxDots)));
    SaveSetting(ApplicationTitle, Section, "Ampltude", ShortestText(dialog.Vpp));
    SaveSetting(ApplicationTitle, Section, "Quanit", ShortestText(double(dialog.Quantify)));
    SaveSetting(ApplicationTitle, Section, "Period", ShortestText(dialog.Period));
}

// Cuts dots and segments, present and snapshot, to the capacity, and sizes the arrays to it.
void ChangeCapacity(AnalogWaveRecord& wave, std::int32_t maxDots) {
    wave.MaxDots = maxDots;
    wave.DotArray.resize(static_cast<std::size_t>(maxDots));
    wave.UndoDotArray.resize(static_cast<std::size_t>(maxDots));
    wave.PixelMap.resize(static_cast<std::size_t>(maxDots));
    if (wave.Dots > maxDots) {
        TruncateSegments(wave.Segments, wave.SegmentCount, maxDots);
        wave.Dots = maxDots;
        wave.LastDot = maxDots - 1;
    }
    if (wave.UndoDots > maxDots) {
        TruncateSegments(wave.UndoSegments, wave.UndoSegmentCount, maxDots);
        wave.UndoDots = maxDots;
        wave.UndoLastDot = maxDots - 1;
    }
}

void RescaleSegment(AnalogWaveRecord& wave, WaveSegment& segment, double ratio) {
    const std::int32_t count = segment.EndDot - segment.RunStart + 1;
    if (!segment.Custom) {
        GenerateWave(segment, wave.Vpp, wave.DotArray.data(), segment.RunStart, count);
        // Lower rails may have clipped the wave, so it can't be told from its fields any more.
        if (ratio < 1.0) segment.Custom = true;
        return;
    }
    for (std::int32_t dot = segment.RunStart; dot <= segment.EndDot; ++dot) {
        double& y = wave.DotArray[static_cast<std::size_t>(dot)].Y;
        y = std::clamp(y / ratio, -1.0, 1.0);
    }
}

void RewriteDocument(AnalogWaveRecord& wave, const PropertyDialog& dialog) {
    FinishGesture(wave);  // its points lie on the old scales
    const double ratio = wave.Vpp > 0.0 ? dialog.Vpp / wave.Vpp : 1.0;
    wave.Vpp = dialog.Vpp;
    wave.Quantify = dialog.Quantify;
    wave.Period = dialog.Period;
    ChangeCapacity(wave, dialog.MaxDots);
    // With the same rails the dots stand as they are; noise would not even come back the same.
    if (ratio != 1.0) {
        for (std::int32_t i = 0; i < wave.SegmentCount; ++i) {
            RescaleSegment(wave, wave.Segments[static_cast<std::size_t>(i)], ratio);
        }
        // The snapshot's dots belong to the old rails and would come back with other volts.
        SetUndoAvailable(wave, false);
        SetResumeAvailable(wave, false);
    }
    ClearSelection(wave);
    LeaveZoom(ActiveAnalogIndex);
}

void PrepareNewDocument(AnalogWaveRecord& wave, const PropertyDialog& dialog) {
    ResetDocumentState(wave);
    wave.Vpp = dialog.Vpp;
    wave.Quantify = dialog.Quantify;
    wave.Period = dialog.Period;
    AllocateDots(wave, dialog.MaxDots);
}

}  // namespace

double StoredVpp() {
    return ReadSettingNumber(Section, "Ampltude", 2.0, MinVpp, MaxVpp);
}

double StoredPeriod() {
    return ReadSettingNumber(Section, "Period", 1e-5, MinPeriod, MaxPeriod);
}

std::int16_t StoredQuantify() {
    return Narrow<std::int16_t>(
        RoundToInt(ReadSettingNumber(Section, "Quanit", 12.0, MinQuantify, MaxQuantify)));
}

PropertyDialog OpenPropertyDialog() {
    SetInstrumentLimits();
    PropertyConfirmed = false;
    PropertyDialog dialog;
    if (PropertyEditMode) {
        const AnalogWaveRecord& wave = ActiveAnalog();
        dialog.MaxDots = wave.MaxDots;
        dialog.Vpp = wave.Vpp;
        dialog.Period = wave.Period;
        dialog.Quantify = wave.Quantify;
    } else {
        const std::int16_t slot = FirstFreeSlot(AnalogInUse);
        if (slot >= 0) ActiveAnalogIndex = slot;
        ReadPropertySettings(dialog);
    }
    dialog.FrequencyUnit = ChooseUnit(1.0 / dialog.Period);
    dialog.PeriodUnit = ChooseUnit(dialog.Period);
    return dialog;
}

std::string DotnumText(const PropertyDialog& dialog) {
    return ShowField(DotnumField(dialog));
}
std::string AmplText(const PropertyDialog& dialog) {
    return ShowField(AmplField(dialog));
}
std::string QuantText(const PropertyDialog& dialog) {
    return ShowField(QuantField(dialog));
}
std::string FreqText(const PropertyDialog& dialog) {
    return ShowField(FreqField(dialog));
}
std::string PeriodText(const PropertyDialog& dialog) {
    return ShowField(PeriodField(dialog));
}

void LeaveDotnum(PropertyDialog& dialog, std::string_view typed) {
    dialog.MaxDots = RoundToInt(LeaveField(DotnumField(dialog), typed));
}

void LeaveAmpl(PropertyDialog& dialog, std::string_view typed) {
    dialog.Vpp = LeaveField(AmplField(dialog), typed);
}

void LeaveQuant(PropertyDialog& dialog, std::string_view typed) {
    dialog.Quantify = Narrow<std::int16_t>(RoundToInt(LeaveField(QuantField(dialog), typed)));
}

void LeaveFreq(PropertyDialog& dialog, std::string_view typed) {
    const NumberField field = FreqField(dialog);
    TakeFrequency(dialog, field.Value, LeaveField(field, typed));
}

void LeavePeriod(PropertyDialog& dialog, std::string_view typed) {
    dialog.Period = LeaveField(PeriodField(dialog), typed);
}

void ChangeAmplUnit(PropertyDialog& dialog, Flag volts, std::string_view typed) {
    dialog.AmplInVolts = volts;
    dialog.Vpp = ReadField(AmplField(dialog), typed);
}

void ChangeFreqUnit(PropertyDialog& dialog, std::int16_t unit, std::string_view typed) {
    dialog.FrequencyUnit = unit;
    const NumberField field = FreqField(dialog);
    TakeFrequency(dialog, field.Value, ReadField(field, typed));
}

void ChangePeriodUnit(PropertyDialog& dialog, std::int16_t unit, std::string_view typed) {
    dialog.PeriodUnit = unit;
    dialog.Period = ReadField(PeriodField(dialog), typed);
}

void SpinPropertyDots(PropertyDialog& dialog, std::int32_t tick, bool up) {
    dialog.MaxDots =
        SpinValue(dialog.MaxDots, StepAt(DotSteps, tick), up, LowestSpinDots, MaxWaveDots);
}

void SpinQuantify(PropertyDialog& dialog, bool up) {
    dialog.Quantify =
        Narrow<std::int16_t>(SpinValue(dialog.Quantify, 1, up, MinQuantify, MaxQuantify));
}

void ConfirmProperty(const PropertyDialog& dialog) {
    AnalogWaveRecord& wave = ActiveAnalog();
    if (PropertyEditMode) {
        RewriteDocument(wave, dialog);
    } else {
        // With every slot taken the active one is an open document, not a place for a new one.
        if (AnalogInUse[static_cast<std::size_t>(ActiveAnalogIndex)]) return;
        PrepareNewDocument(wave, dialog);
    }
    SavePropertySettings(dialog);
    PropertyConfirmed = true;
    if (PropertyEditMode) EndEdit(ActiveAnalogIndex, true);
}
