#include "digital/GlobalDigitDefineCode.h"

std::array<DigitDocument, MaxDocuments + 1> DigitDocTable;
std::array<Flag, MaxDocuments + 1> DigitDocUsed;

Flag EditDigitProperty;
Flag PropertyApplied;

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
