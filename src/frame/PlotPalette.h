#pragma once
// The colours that plots of both kinds of documents share: an instrument's screen, dark whatever
// the desktop.
#include "platform/Surface.h"

inline constexpr Colour PlotSurround = 0x12181E, PlotBack = 0x0B1015, PlotGrid = 0x1F2A33,
                        PlotAxis = 0x3B4C5A, PlotLabel = 0x8C99A5, PlotPointer = 0x3BA7FF;
// Drawn in the not-exclusive-or mode, it turns the plot's background into a dark blue.
inline constexpr Colour SelectionColour = 0xE3DDA0;
