#pragma once
// The picture of an analog document on paper: scale labels, grid, limit lines, segment marks and
// curve of its view, in print colours. Nothing that belongs to the mouse is printed.
#include "frame/records/AnalogWaveRecord.h"

#include <cstdint>

/// Paints the document's view on a new surface of width x height logical pixels, `scale` device
/// pixels to each; the document's own surfaces are not touched. A view that cannot be, or a wave
/// without dots, gives an empty grid with the scale of the whole waveform. False, and a null
/// picture, where a surface cannot be made.
bool PaintForPrint(AnalogWaveRecord& wave, std::int32_t width, std::int32_t height, double scale,
                   Surface& picture);
