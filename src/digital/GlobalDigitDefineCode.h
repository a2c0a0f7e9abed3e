#pragma once
// The tables of digital documents and what their dialogs remember while the program runs.
#include "frame/GlobalDefineCode.h"
#include "frame/records/DigitDocument.h"

inline constexpr std::int32_t MinDigitDots = 8;
inline constexpr double MinDigitRate = 1.0, MaxDigitRate = 2000000.0;  // bits per second

extern std::array<DigitDocument, MaxDocuments + 1> DigitDocTable;
extern std::array<Flag, MaxDocuments + 1> DigitDocUsed;

extern Flag EditDigitProperty;  // the property dialog works on the active document
extern Flag PropertyApplied;    // set by the OK of the digital property dialog

// The last choice in the Evaluate dialog.
extern std::int16_t EvaluateMode;  // a `DigitOperation`
extern std::int16_t EvaluateNode;  // index into Nodes
extern Flag EvaluateIsMember;
extern std::int16_t EvaluateMember;

/// The record of a slot.
DigitDocument& DigitAt(std::int16_t slot);
/// The record of `ActiveDigitIndex`.
DigitDocument& ActiveDigit();
/// The tag of a slot's window.
std::int16_t TagOfDigit(std::int16_t slot);
