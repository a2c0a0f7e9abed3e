#pragma once
// What the parts of the digital painter share: which device columns the dots of the page stand in,
// and the device rows of a list row.
#include "frame/records/DigitDocument.h"

#include <cstdint>

/// Width of a crisp line in device pixels: one, two from a scale of 2 on.
std::int32_t PenOf(double scale);
/// Thickness of the lines between rows and of the ruler's: one device pixel, PenOf(scale) in print.
std::int32_t QuietPenOf(const DigitDocument& document, double scale);
/// `over` at a share of 0..1 on `ground`.
Colour MixColours(Colour ground, Colour over, double share);

// The page in device pixels of StaticSurface. Zoomed in, a dot has its own columns: those whose
// left edge lies within it. Zoomed out, a column has several dots, from the one under its left edge
// to the one before that of the next column.
struct DigitPage {
    double Scale;
    std::int32_t Width, Height;  // of the surface
    std::int32_t Top;            // where the picture begins, below the ruler
    double ColumnDots;           // dots in a column
    bool ByColumn;               // zoomed out: a column has a dot or more
    std::int32_t First, End;     // the dots First..End-1 are on the page
    std::int32_t EndColumn;      // columns from here on lie behind the last dot
};
DigitPage PageOf(const DigitDocument& document);

/// The first dot of a column, zoomed out; within the page.
std::int32_t FirstDotOf(const DigitDocument& document, const DigitPage& page, std::int32_t column);
/// The column in which a dot of the page begins; zoomed in it may also be page.End.
std::int32_t ColumnOfDot(const DigitDocument& document, const DigitPage& page, std::int32_t dot);

// Columns Left..Right, both included; none where Left > Right.
struct ColumnSpan {
    std::int32_t Left, Right;
};
/// The columns on which dots start..end are seen, held to the page.
ColumnSpan ColumnsOfSpan(const DigitDocument& document, const DigitPage& page, std::int32_t start,
                         std::int32_t end);

/// The columns that are selected in a row, none in print. Members go with a bus that is selected as
/// a whole.
ColumnSpan SelectedColumns(const DigitDocument& document, const DigitPage& page, std::int32_t row);

// Device rows of a list row: Top..Bottom, of which Bottom is its separator.
struct RowBox {
    std::int32_t Top, Bottom;
};
/// The row's box where the first row shown begins at device row `origin`.
RowBox BoxOfRow(const DigitDocument& document, std::int32_t origin, double scale, std::int32_t row);
/// One past the last row of the list that shows at all in a surface of `height` device rows; in
/// print, past the last one that shows as a whole.
std::int32_t EndOfRows(const DigitDocument& document, std::int32_t origin, double scale,
                       std::int32_t height);
