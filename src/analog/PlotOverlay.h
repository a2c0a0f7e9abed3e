#pragma once
// What mouse gestures draw over the plot. A press keeps a copy of the plot; each step brings the
// copy back and draws a few lines on it, so that no dot is visited while the mouse moves.
#include "analog/DrawAnalogWave.h"

// A mouse position held to the plot and what stands there.
struct PlotPlace {
    std::int32_t X, Y;  // pixels, 0..W and 0..H - 1
    std::int32_t Dot;   // 0..MaxDots - 1
    double Value;       // normalised amplitude
};

/// Holds a position to the plot and reads dot and amplitude in the document's view.
PlotPlace PlaceOf(const AnalogWaveRecord& wave, std::int32_t x, std::int32_t y);

/// Copies the plot as it stands; steps begin from this picture.
void KeepPlot(AnalogWaveRecord& wave);
/// Brings the copy back to the plot.
void RestorePlot(AnalogWaveRecord& wave);

// Marks in the rubber colour: arms of MarkArm, ticks of 3 logical pixels.
void DrawUprightMark(Surface& plot, std::int32_t x, std::int32_t y);
void DrawLevelMark(Surface& plot, std::int32_t x, std::int32_t y);
