#pragma once
// The colours of plots on the screen, of which the user chooses those of curve and grid. They hold
// for the program, not for a document, and are kept in the settings.
#include "platform/Surface.h"

/// Contrast of two colours, 1 to 21, by the relative luminance of WCAG 2.1.
double ContrastOf(Colour one, Colour other);

/// Sets the colours of curve and grid; the axes follow the grid. Nothing is painted or saved.
void SetScreenColours(Colour curve, Colour grid);

/// Takes the colours from the settings. A text that is no "#RRGGBB", or a colour that would not be
/// seen on the plot, leaves the usual one.
void LoadScreenColours();

// Commands: the user picks a colour, which is saved and repaints every open document. One that
// would not be seen on the plot is refused with a message.
void ChooseCurveColour();
void ChooseGridColour();
