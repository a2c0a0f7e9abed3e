#pragma once
// The one place where wide results become the fixed widths of records and files.
#include <cassert>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <limits>
#include <utility>

/// Narrows a whole number; the value must fit.
template <std::integral To>
constexpr To Narrow(std::integral auto value) {
    assert(std::in_range<To>(value));
    return static_cast<To>(value);
}

/// Rounds to the nearest whole number, ties to even, as every conversion between dots and pixels
/// does; a value past the range of 32 bits (or not a number) is held to it.
inline std::int32_t RoundToInt(double value) {
    if (!(value > -2147483648.0)) return std::numeric_limits<std::int32_t>::min();
    if (value >= 2147483647.0) return std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::nearbyint(value));
}

/// Whole device pixels of a length in logical ones, at `scale` device pixels to each.
inline std::int32_t Scaled(double logical, double scale) {
    return RoundToInt(logical * scale);
}
