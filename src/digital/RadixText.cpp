#include "digital/RadixText.h"

#include "frame/Narrow.h"

#include <algorithm>
#include <array>
#include <limits>

// Everything goes through the binary text, so that a value and its text in any radix agree digit
// group by digit group.

namespace {

constexpr std::string_view Digits = "0123456789ABCDEF";

struct RadixRow {
    std::string (*ToBinary)(std::string_view text);
    std::string (*FromBinary)(std::string_view binary);
    KeyKind Keys;
    char Letter;
};

// A sum of weights past the range of 32 bits stays at its end.
std::int32_t HeldSum(std::string_view digits, std::int64_t base) {
    constexpr std::int64_t Most = std::numeric_limits<std::int32_t>::max();
    std::int64_t sum = 0;
    for (const char c : digits) sum = std::min(sum * base + (c - '0'), Most);
    return Narrow<std::int32_t>(sum);
}

std::size_t DigitOf(char c) {
    if (c >= 'a' && c <= 'f') c = static_cast<char>(c - 'a' + 'A');
    const std::size_t digit = Digits.find(c);
    return digit == std::string_view::npos ? 0 : digit;
}

std::string ToBits(std::string_view text, int bits) {
    std::string binary;
    for (const char c : text)
        for (int bit = bits - 1; bit >= 0; --bit) binary += Digits[DigitOf(c) >> bit & 1U];
    return binary;
}

std::string FromBits(std::string_view binary, std::size_t bits) {
    std::string text((binary.size() + bits - 1) / bits, '0');
    for (std::size_t digit = 0; digit < text.size(); ++digit) {
        const std::size_t end = binary.size() - digit * bits;
        const std::size_t start = end > bits ? end - bits : 0;
        std::size_t value = 0;
        for (const char c : binary.substr(start, end - start)) value = value * 2 + (c == '1');
        text[text.size() - 1 - digit] = Digits[value];
    }
    return text;
}

std::string Same(std::string_view binary) {
    return std::string(binary);
}
std::string DecimalToBinary(std::string_view text) {
    return ValueToBinary(HeldSum(text, 10));
}
std::string BinaryToDecimalText(std::string_view binary) {
    return std::to_string(BinaryToDecimal(binary));
}

constexpr std::array<RadixRow, RadixCount> Radices = {{
    {Same, Same, KeyKind::Binary, 'B'},
    {HexToBinary, BinaryToHex, KeyKind::Hex, 'H'},
    {OctalToBinary, BinaryToOctal, KeyKind::Octal, 'O'},
    {DecimalToBinary, BinaryToDecimalText, KeyKind::Whole, 'U'},
}};

const RadixRow& RowOf(std::int16_t radix) {
    return Radices[static_cast<std::size_t>(radix >= 0 && radix < RadixCount ? radix : 0)];
}

}  // namespace

std::string ValueToBinary(std::int32_t value) {
    std::string binary;
    for (auto rest = static_cast<std::uint32_t>(value); rest != 0; rest >>= 1)
        binary.insert(binary.begin(), Digits[rest & 1U]);
    return binary.empty() ? "0" : binary;
}

std::string HexToBinary(std::string_view text) {
    return ToBits(text, 4);
}
std::string OctalToBinary(std::string_view text) {
    return ToBits(text, 3);
}
std::string BinaryToHex(std::string_view binary) {
    return FromBits(binary, 4);
}
std::string BinaryToOctal(std::string_view binary) {
    return FromBits(binary, 3);
}
std::int32_t BinaryToDecimal(std::string_view binary) {
    return HeldSum(binary, 2);
}

std::string RadixNumber(std::int32_t value, std::int16_t radix) {
    return RowOf(radix).FromBinary(ValueToBinary(value));
}

std::string RadixDigits(std::int32_t value, std::int16_t radix, std::int16_t width) {
    std::string binary = ValueToBinary(value);
    const auto wanted = static_cast<std::size_t>(std::max<std::int16_t>(width, 1));
    if (binary.size() < wanted) binary.insert(0, wanted - binary.size(), '0');
    return RowOf(radix).FromBinary(binary);
}

std::string RadixValueText(std::int32_t value, std::int16_t radix, std::int16_t width) {
    return RadixDigits(value, radix, width) + RowOf(radix).Letter;
}

std::int32_t RadixValue(std::string_view text, std::int16_t radix) {
    return BinaryToDecimal(RowOf(radix).ToBinary(text));
}

KeyKind KeysOfRadix(std::int16_t radix) {
    return RowOf(radix).Keys;
}

std::int32_t LargestOf(std::int16_t width) {
    return (std::int32_t{1} << std::clamp<std::int16_t>(width, 0, 16)) - 1;
}
