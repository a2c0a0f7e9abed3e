#pragma once
// The converter's codes of an analog waveform: 14 bits over the whole range.
#include "frame/Narrow.h"

#include <cstdint>

inline constexpr std::int32_t LargestCode = 16383;

/// Amplitude -1..1 as a code 0..16383: rounded, ties to even; what lies outside, or is no number,
/// is held to the range.
inline std::uint16_t CodeOf(double y) {
    const double held = y > -1.0 ? (y < 1.0 ? y : 1.0) : -1.0;
    return static_cast<std::uint16_t>(RoundToInt((held + 1.0) / 2.0 * LargestCode));
}
