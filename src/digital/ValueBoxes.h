#pragma once
// The boxes of the dialogs that write values, without their widgets: values in one chosen radix, up
// to what the channels to be written can hold, and dots of the document. A box's state is its text.
// What is too large is mended while it is typed, what is too small when its box is left; an empty
// box stays empty, so that OK can refuse it.
#include "digital/DialogAnswers.h"
#include "digital/DigitValueFuncBox.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

enum class ValueBox : std::uint8_t {
    Value,      // of Arbitrary; this and the next two are in the radix
    Start,      // first value of Counting
    Increment,  // of Counting, at each step
    First,      // dot
    Last,       // dot, inclusive
    Interval,   // dots for each value of Counting, 1 or more
};
inline constexpr std::size_t ValueBoxCount = 6;

struct ValueBoxes {
    std::int16_t Radix = 0;
    std::int32_t MaxValue = 1;
    std::int32_t Dots = 1;  // of the document
    std::array<std::string, ValueBoxCount> Texts;
};

/// True where a box holds a value in the radix, not dots.
bool InRadix(ValueBox box);
const std::string& TextIn(const ValueBoxes& boxes, ValueBox box);

/// Empty boxes for channels of a width on the active document; the radix is that of the settings.
ValueBoxes OpenValueBoxes(std::string_view section, std::int16_t width);
/// Fills a box with a number of the settings, held to what the box may have; `fallback` when the
/// key is missing.
void LoadValueBox(ValueBoxes& boxes, std::string_view section, ValueBox box, std::int32_t fallback);
/// Saves the radix, and boxes as decimal numbers.
void SaveValueBoxes(const ValueBoxes& boxes, std::string_view section,
                    std::span<const ValueBox> saved);

/// A box is being typed in.
void ChangeValueBox(ValueBoxes& boxes, ValueBox box, std::string_view typed);
/// A box was left: every box is brought to its bounds, and the last dot to the first one at least.
void LeaveValueBoxes(ValueBoxes& boxes);
/// Shows the present values in another radix.
void ChangeValueRadix(ValueBoxes& boxes, std::int16_t radix);
/// Values are for channels of another width: larger ones become the largest.
void ChangeValueWidth(ValueBoxes& boxes, std::int16_t width);

/// OK: refuses an empty one of the boxes in use, otherwise brings all to their bounds (Done).
DialogEnd TakeValueBoxes(ValueBoxes& boxes, std::span<const ValueBox> used);
/// The number in a box; 0 in an empty one.
std::int32_t NumberIn(const ValueBoxes& boxes, ValueBox box);
/// What the boxes say of an operation.
DigitPattern PatternOf(const ValueBoxes& boxes, DigitOperation operation);

/// "Values 0 to FF": what can be typed, in the radix.
std::string ValueRangeText(const ValueBoxes& boxes);
