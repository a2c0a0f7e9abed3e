#pragma once
// Values of nodes as text in a radix, and what is typed as values. Values are unsigned, at most 16
// bits wide; texts have digits without sign or blanks.
#include "frame/KeyFilter.h"

#include <cstdint>
#include <string>
#include <string_view>

// The order of radices in lists, records, settings and files.
enum class Radix : std::int16_t { Binary, Hexadecimal, Octal, Decimal };
inline constexpr std::int16_t RadixCount = 4;

/// A value in a radix (0..3, anything else counts as binary) without leading zeros, "0" for 0.
std::string RadixNumber(std::int32_t value, std::int16_t radix);
/// The same as the channel list shows it: with as many digits as `width` bits need, but for
/// decimal, and the letter "B", "H", "O" or "U" behind.
std::string RadixValueText(std::int32_t value, std::int16_t radix, std::int16_t width);
/// The value of digits in a radix, 0 for none, held to the range of 32 bits. Letters that are no
/// digits of the radix count as 0.
std::int32_t RadixValue(std::string_view text, std::int16_t radix);
/// What may be typed in a radix.
KeyKind KeysOfRadix(std::int16_t radix);
/// 2^width - 1.
std::int32_t LargestOf(std::int16_t width);
