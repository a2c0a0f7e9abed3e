#pragma once
// The active output as an oscilloscope would show it: a picture, and a few numbers.
#include "Instrument.h"

namespace sim {

/// An SVG of one period, or of a digital pattern. Its size is bounded by the columns of the plot,
/// not by the dots.
std::string PictureOf(const Instrument& instrument);

/// Writes the picture over `path` in one go. False when that fails.
bool WritePicture(const Instrument& instrument, const std::string& path);

/// Name, dots, frequency, amplitude, offset, range and the first samples, a line each; of a digital
/// output protocol, rate, name, dots, channels and the first words.
std::string NumbersOf(const Instrument& instrument);

/// "2.5 mV", "100 us": four digits and the prefix that suits.
std::string WithUnit(double value, std::string_view unit);

}  // namespace sim
