#pragma once
// Numbers to text and back: edit boxes, rulers, print-outs and files. The decimal point is "."
// whatever the user's locale says. No state.
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

/// The text without the blanks around it.
std::string_view TrimBlanks(std::string_view text);

/// The number that a text begins with, as instruments write it: what follows is left alone. 0 when
/// no digit leads it, or past the range of 64 bits.
double LeadingNumber(std::string_view text);

/// The number of an edit box. The half-typed texts "", "-", "." and "-." are 0.0. Otherwise the
/// whole text, blanks around it aside, must read sign, digits with at most one point, exponent;
/// anything else, or a number past the range of 64 bits, gives nothing. One too small to hold is 0.
std::optional<double> TextToNumber(std::string_view text);

/// The formatter's general form: up to 15 significant digits, no trailing zeros, an exponent such
/// as "1E-05" below 1e-4 and from 1e15 on.
std::string GeneralText(double value);

/// The value by a pattern of "#" (digit when there is one), "0" (forced digit) and ".", or of the
/// exponent form "0.00E-00". Ties of the number's 15-digit decimal form round away from zero. A
/// value that rounds to zero has no sign; one that is not finite counts as 0.
std::string FormatPattern(double value, std::string_view pattern);

/// Volts with three digits and a unit, "500mV"; "???.?V" past the range. Text that is no number
/// counts as 0.
std::string VoltToText(std::string_view text);
std::string VoltToText(double volts);

/// Seconds with four digits and a unit, "1.000ns". Text that is no number counts as 0.
std::string TimeToText(std::string_view text);
std::string TimeToText(double seconds);

/// Seconds with six decimals and a unit, for the digital ruler. Text that is no number counts as 0.
std::string TimeToTextFine(std::string_view text);
std::string TimeToTextFine(double seconds);

/// The pattern with each "%", from the left, replaced by the next number.
std::string WithNumbers(std::string_view pattern, std::initializer_list<std::int64_t> numbers);

// Bytes that a caller of the Write procedures keeps free.
inline constexpr int NumberWidth = 32;

/// Writes the shortest digits that give a finite value back to its last bit and returns the end:
/// plain for magnitudes from 1e-4 up to below 1e15 and for zero, otherwise as "1.5E+20". No
/// closing zero byte.
char* WriteShortest(char* to, double value);

/// Writes the value as the pattern "0.00E-00" does and returns the end, quick enough for the dots
/// of a whole waveform. No closing zero byte.
char* WriteExponent2(char* to, double value);

/// As WriteShortest. The float form has the fewer digits that 32 bits need.
std::string ShortestText(double value);
std::string ShortestText(float value);
