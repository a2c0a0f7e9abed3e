#include "Common.h"
#include "files/DigitFileFuncCode.h"

void Fuzz(std::string_view input) {
    LoadedDigit digit;
    if (!ReadDigitText(input, digit)) return;
    const std::string bytes = WriteDigitText(OpenSound(std::move(digit)));
    digit = {};
    Require(ReadDigitText(bytes, digit) && WriteDigitText(OpenSound(std::move(digit))) == bytes);
}
