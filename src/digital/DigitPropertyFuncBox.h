#pragma once
// The property dialog of digital documents without its window: dots, bit rate, and where the
// caliper stands at first. For a new document, or for an open one, which OK then empties. Values
// are held to their bounds, never refused.
#include "digital/DialogAnswers.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

inline constexpr std::array<std::string_view, 3> RateUnits = {"Mbps", "Kbps", "bps"};

struct DigitPropertyDialog {
    std::int32_t Dots = 0;
    double Rate = 0.0;          // bits per second
    std::int32_t Position = 0;  // dot of the caliper
    std::string RateText;       // the rate in the unit, with fewer digits than it has
    std::int16_t RateUnit = 0;  // index of RateUnits
};

/// A rate with its unit as the dialog shows it, "100.00 Kbps".
std::string RateWithUnit(double rate);

/// Fills the dialog: from the settings for a new document (and ActiveDigitIndex becomes the first
/// free slot), dots and rate from the active document where EditDigitProperty is set. Sets the
/// limits of the instrument anew and clears PropertyApplied.
DigitPropertyDialog OpenDigitProperty();

// The text of a box while it is typed in.
std::string ChangeDigitDots(std::string_view typed);
std::string ChangePosition(const DigitPropertyDialog& dialog, std::string_view typed);
/// Only the upper bound is held: a rate begins with smaller ones.
std::string ChangeRate(const DigitPropertyDialog& dialog, std::string_view typed);

// A box was left with `typed` in it: takes the number, held to its bounds; none counts as 0.
void LeaveDigitDots(DigitPropertyDialog& dialog, std::string_view typed);
void LeavePosition(DigitPropertyDialog& dialog, std::string_view typed);
/// The unit is chosen anew. A text that the box showed already keeps the rate with all its digits.
void LeaveRate(DigitPropertyDialog& dialog, std::string_view typed);
/// The number in the box is read in another unit; it stays unless that is past the bounds.
void ChangeRateUnit(DigitPropertyDialog& dialog, std::int16_t unit, std::string_view typed);

// A spin button's tick, counted from its press.
void SpinDigitDots(DigitPropertyDialog& dialog, std::int32_t tick, bool up);
void SpinPosition(DigitPropertyDialog& dialog, std::int32_t tick, bool up);

/// Tells that OK empties the document; nothing where there is nothing to lose.
std::string_view DigitPropertyNote();

/// OK: writes the record of ActiveDigitIndex, sets PropertyApplied, saves the settings. An open
/// document is emptied, without undo, and repainted; it counts as changed. Closes, and nothing
/// happens, where a new document has no free slot.
DialogEnd ConfirmDigitProperty(const DigitPropertyDialog& dialog);
