#pragma once
// The equation dialog without its window: an expression in volts becomes free-form dots of the
// active document, behind its last dot or in place of the selection.
#include "calculus/EquationParser.h"
#include "frame/records/AnalogWaveRecord.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

inline constexpr std::int32_t LongestHistory = 10;  // expressions that are remembered
inline constexpr std::size_t ExampleCount = 14;
/// Instructive expressions that fill the rails; the names stand with the window's texts.
extern const std::array<std::string_view, ExampleCount> EquationExamples;

struct EquationDialog {
    std::string Text;
    EquationScales Scales;  // Scales.Dots is the number of new dots
    std::int32_t Room = 0;  // most dots that fit
    Flag Replaces;          // the selection goes, otherwise the dots are appended
    EquationFault Fault;    // of Text
    // Of the dots counted so far, see CountEquation.
    std::int32_t Counted = 0;
    std::int32_t NotFinite = 0;  // inserted as 0 V
    std::int32_t Clipped = 0;    // beyond the rails
    std::vector<std::string> History;
};

/// Fills the dialog for the active document: all the room and the newest expression of the
/// history. With `replace` a selection is to be replaced, and gives the number of dots.
EquationDialog OpenEquation(bool replace);

/// The expression was changed: checks it and begins to count anew.
void ChangeEquation(EquationDialog& dialog, std::string_view text);

/// Text of the box of dots, what was typed in it (held to 1..Room), and a spin button's tick. A
/// new number of dots begins to count anew.
std::string EquationDotsText(const EquationDialog& dialog);
void LeaveEquationDots(EquationDialog& dialog, std::string_view typed);
void SpinEquationDots(EquationDialog& dialog, std::int32_t tick, bool up);

/// Counts the values of the next dots that are not finite or beyond the rails. True when there are
/// no more; otherwise call again, between two keys of the user.
bool CountEquation(EquationDialog& dialog);

/// At most 4096 of the dots, from the first to the last one, as they would be inserted: normalised
/// and clipped. False, and nothing changed, when the expression is at fault.
bool PreviewEquation(const EquationDialog& dialog, std::vector<WaveDot>& dots);

/// The fault or the counts in the current language, empty when there is nothing to tell.
std::string EquationNote(const EquationDialog& dialog);
/// Where the dots will stand, in the current language.
std::string EquationPlace(const EquationDialog& dialog);

/// OK: inserts the dots as one edit, selects them and remembers the expression. False when nothing
/// was done: the expression is at fault, or there is no room.
bool ConfirmEquation(EquationDialog& dialog);
