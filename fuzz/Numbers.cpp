#include "Common.h"
#include "digital/RadixText.h"
#include "files/NumberLines.h"
#include "frame/NumberField.h"
#include "frame/StringFunc.h"

#include <cmath>

namespace {

constexpr NumberField Fields[] = {
    {5.0, 0.001, 10.0, "0.000", 1000.0}, {4096, 8, 1048576, "0"}, {1e-5, 1e-9, 1e3, "0.00E-00"}};

// The exact form comes back as it was, a pattern to half a unit of its last digit.
void RequireWritten(double value) {
    char text[NumberWidth];
    Require(TextToNumber(ShortestText(value)) == value);
    Require(std::string_view(text, WriteExponent2(text, value)) ==
            FormatPattern(value, "0.00E-00"));
    if (std::abs(value) > 1e300) return;  // 15 digits may round past the range
    for (const std::string_view pattern : {"#.", "#.0", "#.00", "0.000", "#.000000"}) {
        const double shown = TextToNumber(FormatPattern(value, pattern)).value();
        const double half = 0.5000001 * std::pow(10.0, 2.0 - double(pattern.size()));
        Require(std::abs(shown - value) <= half + 1e-14 * std::abs(value));
    }
}

void RequireHeld(std::string_view text) {
    for (NumberField field : Fields) {
        field.Value = LeaveField(field, text);
        Require(field.Value >= field.Low && field.Value <= field.High);
        Require(LeaveField(field, ShowField(field)) == field.Value);
    }
    for (std::int16_t radix = -1; radix <= RadixCount; ++radix) {
        const std::int32_t value = RadixValue(text, radix);
        std::string shown = RadixValueText(value, radix, MaxChannels);
        shown.pop_back();  // the letter
        Require(value >= 0 && RadixValue(shown, radix) == value);
    }
}

}  // namespace

void Fuzz(std::string_view text) {
    double value = 0.0;
    text.copy(reinterpret_cast<char*>(&value), text.size() < sizeof value ? 0 : sizeof value);
    if (std::isfinite(value)) RequireWritten(value);
    RequireHeld(text);
    Require(!VoltToText(text).empty() && !TimeToText(text).empty() &&
            !TimeToTextFine(text).empty());
    const auto number = TextToNumber(text);
    if (!number) return;
    RequireWritten(*number);
    Require(LeadingNumber(text) == *number);
    // A file takes the same numbers, but for what is only half typed.
    NumberLines line = OpenNumberLines(text);
    Require(TakeNumberLine(line, value) ? value == *number && line.At == line.End
                                        : text.find_first_of("0123456789") == text.npos);
}
