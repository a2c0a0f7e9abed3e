#include "digital/RadixText.h"

#include "frame/Narrow.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr std::string_view Digits = "0123456789ABCDEF";

struct RadixRow {
    std::uint32_t Base;
    std::size_t Bits;  // of a digit; 0: the digits of a value do not follow from its width
    KeyKind Keys;
    char Letter;
};

constexpr std::array<RadixRow, RadixCount> Radices = {{
    {2, 1, KeyKind::Binary, 'B'},
    {16, 4, KeyKind::Hex, 'H'},
    {8, 3, KeyKind::Octal, 'O'},
    {10, 0, KeyKind::Whole, 'U'},
}};

const RadixRow& RowOf(std::int16_t radix) {
    return Radices[static_cast<std::size_t>(radix >= 0 && radix < RadixCount ? radix : 0)];
}

std::size_t DigitOf(char c, std::uint32_t base) {
    if (c >= 'a' && c <= 'f') c = static_cast<char>(c - 'a' + 'A');
    const std::size_t digit = Digits.find(c);
    return digit < base ? digit : 0;
}

}  // namespace

std::string RadixNumber(std::int32_t value, std::int16_t radix) {
    const std::uint32_t base = RowOf(radix).Base;
    std::string text;
    auto rest = static_cast<std::uint32_t>(value);
    do {
        text.insert(text.begin(), Digits[rest % base]);
        rest /= base;
    } while (rest != 0);
    return text;
}

std::string RadixValueText(std::int32_t value, std::int16_t radix, std::int16_t width) {
    const RadixRow& row = RowOf(radix);
    std::string text = RadixNumber(value, radix);
    if (row.Bits > 0) {
        const std::size_t digits = (static_cast<std::size_t>(width) + row.Bits - 1) / row.Bits;
        text.insert(0, digits - std::min(digits, text.size()), '0');
    }
    return text + row.Letter;
}

std::int32_t RadixValue(std::string_view text, std::int16_t radix) {
    constexpr std::size_t Most = std::numeric_limits<std::int32_t>::max();
    const std::uint32_t base = RowOf(radix).Base;
    std::size_t value = 0;
    for (const char c : text) value = std::min(value * base + DigitOf(c, base), Most);
    return Narrow<std::int32_t>(value);
}

KeyKind KeysOfRadix(std::int16_t radix) {
    return RowOf(radix).Keys;
}

std::int32_t LargestOf(std::int16_t width) {
    return (std::int32_t{1} << std::clamp<std::int16_t>(width, 0, 16)) - 1;
}
