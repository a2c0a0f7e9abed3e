#pragma once
// The moving average of a run, in place.
#include "kernel/wavecalc.h"

#include <cstdint>
#include <span>

inline constexpr std::int32_t LongestSmooth = 99;

/// Replaces every Y by the sum of the `smoothDot` dots around it (odd, 1..LongestSmooth), divided
/// by `smoothDot`. Behind the ends of the run nothing is added and the divisor stays, so that the
/// ends sink towards 0. Differs from sums made one by one by less than 1e-12.
void SmoothDots(std::span<WaveDot> dots, std::int32_t smoothDot);
