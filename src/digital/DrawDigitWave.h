#pragma once
// Painter of digital documents: ruler, traces, buses as bands with values, selection, caliper and
// rubber band on surfaces. It knows no window. The surfaces have device pixels: everything given in
// logical pixels is multiplied by their scale.
#include "frame/PlotPalette.h"
#include "frame/records/DigitDocument.h"

#include <cstdint>

struct DigitColours {
    Colour Back, RowLine, Outside, Label, Strong, Tick, Caliper, RubberBand;
    Colour RubberFill;  // in not-exclusive-or; it leaves the lower bits, in which grounds differ
};
extern const DigitColours DigitScreenColours, DigitPrintColours;
const DigitColours& ColoursOf(const DigitDocument& document);
/// The colour of a node's traces and of its mark in the list: eight that colour-blind readers tell
/// apart, in turn; black in print.
Colour GroupColour(const DigitDocument& document, std::int16_t node);

// Logical pixels of the parts of a document's window.
struct DigitLayout {
    std::int32_t ListWidth, PictureWidth, PictureHeight;
};
/// Makes the surfaces of a document for a layout and a scale (device pixels per logical one), takes
/// over the sizes and sets the page figures. Surfaces that cannot be made stay null.
void LayoutDigitSurfaces(DigitDocument& document, const DigitLayout& layout, double scale);

/// The one entry to repaint the document of a slot and to have it shown. Without `redrawPicture`
/// caliper and rubber band are drawn over a copy of the picture as it stands: no dot is read.
void Paint(std::int16_t index, Flag redrawList, Flag redrawPicture);

/// Paints what the document shows, list, ruler and traces, on a new surface of width x height
/// logical pixels, `scale` device pixels to each, in print colours: the same dots fill the
/// picture's width, and from the first row shown as many rows as there is room for. Of what belongs
/// to the mouse only the caliper is printed, since the values in the list are those under it. The
/// document comes back as it was. False, and a null picture, where a surface cannot be made.
bool PaintForPrint(DigitDocument& document, std::int32_t width, std::int32_t height, double scale,
                   Surface& picture);
