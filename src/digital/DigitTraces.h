#pragma once
// Draws the rows of the picture: single channels and members as step lines, buses as bands of cells
// with their values.
#include "digital/DigitPage.h"

/// Draws every row that shows onto StaticSurface. No dot outside of the page is read.
void DrawTraces(DigitDocument& document, const DigitPage& page);

// The rows of pixels between which a trace swings: the line of the high level begins at High, that
// of the low level at Low, Pen pixels thick.
struct TraceLevels {
    std::int32_t High, Low, Pen;
    std::int32_t End() const { return Low + Pen - 1; }
};
TraceLevels LevelsOf(RowBox box, double scale);
