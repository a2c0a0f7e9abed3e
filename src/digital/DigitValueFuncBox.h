#pragma once
// Writing patterns into channels: the six value operations, on the selection or on one target.
#include "digital/DigitEditFuncBox.h"

#include <cstdint>

// The order is that of the Evaluate dialog and of its saved mode.
enum class DigitOperation : std::int16_t { Value0, Value1, Invert, Clock, Arbitrary, Counting };

struct DigitPattern {
    DigitOperation Operation = DigitOperation::Value0;
    std::int32_t Value = 0;      // Arbitrary; masked to the width of what is written
    std::int32_t Start = 0;      // Counting: first value, masked likewise
    std::int32_t Increment = 1;  // Counting
    std::int32_t Interval = 1;   // Counting: dots for each value, 1 or more
};

/// Writes a pattern into dots first..last of a target; samples must reach that far.
void WritePattern(DigitDocument& document, DigitTarget target, std::int32_t first,
                  std::int32_t last, const DigitPattern& pattern);

/// The command on the active document's selection: an edit, after which nothing is selected.
/// Operations but Counting write each selected span.
void WriteSelection(const DigitPattern& pattern);
/// Counting on each selected target, over dots first..last whatever was selected there.
void CountSelection(const DigitPattern& pattern, std::int32_t first, std::int32_t last);
/// The pattern on one target of the active document, as an edit; selections stay.
void EvaluateTarget(DigitTarget target, const DigitPattern& pattern, std::int32_t first,
                    std::int32_t last);

/// The width behind the largest value of the selection: that of the first selected target; 1
/// without one.
std::int16_t SelectedWidth(const DigitDocument& document);

/// A value operation of the tool bar, by its number 9 to 14: tells that a span must be selected
/// first, or runs it, through the dialog of arbitrary value and counting.
void RunValueTool(std::int16_t number);
/// The same for the pop-up menus, by operation; these are closed without a selection.
void RunValueOperation(DigitOperation operation);
