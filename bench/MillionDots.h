#pragma once
// What the figures share: the largest wave of the largest instrument, its plot, and the plain pass
// over its dots that painting is measured against. Every figure stands beside a baseline measured
// in the same run; bench/report holds the pairs and their budgets.
#include "frame/GlobalDefineCode.h"

#include <span>

inline constexpr std::int32_t MillionDots = 1048576;  // 16 MiB of dots
inline constexpr std::int32_t PlotWidth = 1280, PlotHeight = 800;

enum class Shape { Sine, Noise };

/// Slot 0 with a full wave in one segment, the whole of it in view on a painted plot. The noise
/// has amplitudes of full precision, so that their texts are as long as texts get.
AnalogWaveRecord& OpenMillionDots(Shape shape);

/// One plain pass for the smallest and the largest amplitude.
struct Bounds {
    double Low, High;
};
Bounds PlainBounds(std::span<const WaveDot> dots);
