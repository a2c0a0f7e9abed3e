#pragma once
// Arithmetic of two runs, dot by dot, for the dialogs of wave math and window math.
#include "kernel/wavecalc.h"

#include <cstdint>
#include <span>
#include <vector>

enum DotOperation : std::int16_t { NoOperation, Add, Subtract, Multiply };
inline constexpr std::int16_t DotOperationCount = 4;

/// Fills `result` with `left` and, as far as `right` reaches, with left + right, left - right or
/// left * right, clipped to -1..1. X is that of `left`. Returns how many results were clipped.
std::int32_t CombineDots(std::span<const WaveDot> left, std::span<const WaveDot> right,
                         std::int16_t operation, std::vector<WaveDot>& result);
