#pragma once
// The tables of digital documents and what their dialogs remember while the program runs.
#include "frame/GlobalDefineCode.h"
#include "frame/records/DigitDocument.h"

#include <vector>

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

// The use of the node dialog, set before it opens and cleared when it has closed; neither: insert.
extern Flag AssembleMode;
extern Flag EditNodeMode;

// The clipboard of a span of dots, shared by all digital documents.
extern Flag SpanClipValid;
extern std::int32_t SpanClipDots;
extern std::vector<std::int32_t> SpanClipSamples;  // SpanClipDots words
extern std::int16_t SpanClipChannelCount;
extern OfMembers<std::uint8_t> SpanClipChannels;  // in the order of the list

// The clipboard of rows.
extern Flag RowClipValid;
extern std::uint8_t RowClipCount;
extern std::vector<DigitNode> RowClipNodes;       // all nodes, with what was selected
extern std::int32_t RowClipDots;                  // the longest DataLength of the selected rows
extern std::vector<std::int32_t> RowClipSamples;  // RowClipDots words

/// The record of a slot.
DigitDocument& DigitAt(std::int16_t slot);
/// The record of `ActiveDigitIndex`.
DigitDocument& ActiveDigit();
/// The tag of a slot's window.
std::int16_t TagOfDigit(std::int16_t slot);
