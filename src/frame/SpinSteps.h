#pragma once
// Growing steps of spin buttons that repeat while they are held.
#include <algorithm>
#include <array>
#include <cstdint>

/// Steps for ticks up to 10, 20, 30, 40, 50 and beyond, counted from the press.
using StepBands = std::array<std::int32_t, 6>;
inline constexpr StepBands DotSteps = {100, 500, 1000, 2000, 5000, 10000};
inline constexpr StepBands CycleSteps = {1, 5, 10, 20, 50, 100};
inline constexpr std::int32_t LowestSpinDots = 8;  // spinning stops here, typing may go lower

constexpr std::int32_t StepAt(const StepBands& bands, std::int32_t tick) {
    const std::int32_t band = tick <= 10 ? 0 : (tick - 1) / 10;
    return bands[static_cast<std::size_t>(band < 5 ? band : 5)];
}

/// The value after one tick. It stops at the bound ahead; one that stands past that bound already
/// stays, so that no button moves a number against its arrow.
constexpr std::int32_t SpinValue(std::int32_t value, std::int32_t step, bool up, std::int32_t low,
                                 std::int32_t high) {
    if (up) return value >= high ? value : std::min(value + step, high);
    return value <= low ? value : std::max(value - step, low);
}
