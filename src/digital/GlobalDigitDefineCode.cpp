#include "digital/GlobalDigitDefineCode.h"

std::array<DigitDocument, MaxDocuments + 1> DigitDocTable;
std::array<Flag, MaxDocuments + 1> DigitDocUsed;

Flag EditDigitProperty;
Flag PropertyApplied;

Flag AssembleMode;
Flag EditNodeMode;

Flag SpanClipValid;
std::int32_t SpanClipDots = 0;
std::vector<std::int32_t> SpanClipSamples;
std::int16_t SpanClipChannelCount = 0;
OfMembers<std::uint8_t> SpanClipChannels{};

Flag RowClipValid;
std::uint8_t RowClipCount = 0;
std::vector<DigitNode> RowClipNodes;
std::int32_t RowClipDots = 0;
std::vector<std::int32_t> RowClipSamples;

std::int16_t EvaluateMode = 0;
std::int16_t EvaluateNode = 0;
Flag EvaluateIsMember;
std::int16_t EvaluateMember = 0;

DigitDocument& DigitAt(std::int16_t slot) {
    return DigitDocTable[static_cast<std::size_t>(slot)];
}

DigitDocument& ActiveDigit() {
    return DigitAt(ActiveDigitIndex);
}

std::int16_t TagOfDigit(std::int16_t slot) {
    return static_cast<std::int16_t>(slot + FirstDigitTag);
}
