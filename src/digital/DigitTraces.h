#pragma once
// Draws the rows of the picture: single channels and members as step lines, buses as bands of cells
// with their values.
#include "digital/DigitPage.h"

/// Draws every row that shows onto StaticSurface. No dot outside of the page is read.
void DrawTraces(DigitDocument& document, const DigitPage& page);
