#pragma once
// Waves that are stored before the instrument starts: "NAME=FILE", or "NAME=sine:4096".
#include "WaveMemory.h"

namespace sim {

/// Fills a location. FILE has whole numbers 0..16383 with blanks, commas or line ends between; the
/// shapes sine, ramp and square take their number of dots. "words:FILE" is a digital wave of
/// numbers 0..65535, "count:4096" one that counts, both of 16 channels. Returns what is wrong, or
/// an empty text.
std::string StoreFromOption(WaveMemory& memory, std::size_t maxDots, std::string_view option);

}  // namespace sim
