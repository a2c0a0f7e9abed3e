#pragma once
// The ruler above the picture: ticks for dots, labelled by number or time.
#include "digital/DigitPage.h"

/// Draws the ruler and, through the picture, quiet upright lines at labelled dots onto
/// StaticSurface.
void DrawRuler(DigitDocument& document, const DigitPage& page);
