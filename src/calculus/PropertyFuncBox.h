#pragma once
// The property dialog without its window: capacity, volts, quantisation, period or frequency of
// an analog document. Values are clamped, never refused: a box that is left takes the violated
// bound back.
#include "frame/records/AnalogWaveRecord.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

struct UnitRow {
    std::string_view Name;     // text of the list
    double Factor;             // base units in one
    std::string_view Pattern;  // display pattern
};
extern const std::array<UnitRow, 5> FrequencyUnits;  // MHz .. uHz
extern const std::array<UnitRow, 5> PeriodUnits;     // MS .. uS

struct PropertyDialog {
    std::int32_t MaxDots = 0;
    double Vpp = 0.0;     // volts
    double Period = 0.0;  // seconds
    std::int16_t Quantify = 0;
    Flag AmplInVolts = true;         // ampltxt shows volts, otherwise millivolts
    Flag ShowFrequency = true;       // OptFreq; otherwise OptPer
    std::int16_t FrequencyUnit = 0;  // index of FrequencyUnits
    std::int16_t PeriodUnit = 0;     // index of PeriodUnits
};

// What the dialog's OK has last stored, held to the limits: volts, seconds, bits.
double StoredVpp();
double StoredPeriod();
std::int16_t StoredQuantify();

/// Fills the dialog: from the settings for a new document (and ActiveAnalogIndex becomes the
/// first free slot), from the active record where PropertyEditMode is set. Sets the limits anew and
/// clears PropertyConfirmed. The values of an open document are shown as they are, even where the
/// present instrument can't have them; only a box that is left brings its value within bounds.
PropertyDialog OpenPropertyDialog();

// Texts that the boxes show.
std::string DotnumText(const PropertyDialog& dialog);
std::string AmplText(const PropertyDialog& dialog);
std::string QuantText(const PropertyDialog& dialog);
std::string FreqText(const PropertyDialog& dialog);
std::string PeriodText(const PropertyDialog& dialog);

// A box was left with `typed` in it: takes the number, held to its bounds.
void LeaveDotnum(PropertyDialog& dialog, std::string_view typed);
void LeaveAmpl(PropertyDialog& dialog, std::string_view typed);
void LeaveQuant(PropertyDialog& dialog, std::string_view typed);
void LeaveFreq(PropertyDialog& dialog, std::string_view typed);
void LeavePeriod(PropertyDialog& dialog, std::string_view typed);

// A unit list changed: the typed number is read in the new unit.
void ChangeAmplUnit(PropertyDialog& dialog, Flag volts, std::string_view typed);
void ChangeFreqUnit(PropertyDialog& dialog, std::int16_t unit, std::string_view typed);
void ChangePeriodUnit(PropertyDialog& dialog, std::int16_t unit, std::string_view typed);

// A spin button's tick, counted from its press.
void SpinPropertyDots(PropertyDialog& dialog, std::int32_t tick, bool up);
void SpinQuantify(PropertyDialog& dialog, bool up);

/// OK: writes the record of ActiveAnalogIndex, saves the settings, sets PropertyConfirmed. A new
/// document is allocated; nothing happens where all slots are taken. In an open one free-form dots
/// keep their volts, generated waves are computed again, both clipped to the new rails; a smaller
/// capacity cuts dots and segments, the snapshot too. Another Vpp ends undo and resume. Selection
/// and zoom are cleared, and the document is repainted.
void ConfirmProperty(const PropertyDialog& dialog);
