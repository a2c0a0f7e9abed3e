#pragma once
// What a digital document shows: page figures, the way between pixels and dots or rows, zoom,
// paging and the caliper.
#include "frame/records/DigitDocument.h"

#include <cstdint>
#include <string>

inline constexpr double DotWidth = 60.0;   // logical pixels of a dot at zoom 1
inline constexpr double RowHeight = 30.0;  // of a row, in list and picture
inline constexpr std::int32_t RulerHeight = 32;
inline constexpr double CaliperReach = 13.0, CaliperRise = 6.0;  // half sizes of the handle
inline constexpr double CaliperHandleY = 22.0;  // its middle in the ruler, from the top

/// Page figures from the picture's size, the zoom and Dots; LastDot, LastRow and FirstRow follow.
void SetPageFigures(DigitDocument& document);

/// The dot of a pixel, nearest with ties to even, never below 0. May lie past the last dot.
std::int32_t PixelToDot(const DigitDocument& document, double x);
/// The dot under a place of the picture: one that is seen, the last one behind the waveform.
std::int32_t DotUnder(const DigitDocument& document, double x);
/// Where a dot begins; the next one begins 60 / Zoom pixels to the right.
double DotToPixel(const DigitDocument& document, double dot);
/// The row at a height of the picture; it may not exist. -1 above the first one.
std::int32_t RowAtPixel(const DigitDocument& document, double y);

/// Turns the picture so that it begins at a dot, held to 0..Dots-1, without a repaint; the caliper
/// stays at its pixel. False where it begins there already.
bool TurnToDot(DigitDocument& document, std::int32_t firstDot);

// On the document of a slot, with a repaint.
void ShowDotsFrom(std::int16_t index, std::int32_t firstDot);  // held to 0..Dots-1
void ShowRowsFrom(std::int16_t index, std::int32_t firstRow);  // held to the rows that exist
void FrontPage(std::int16_t index);
void NextPage(std::int16_t index);
/// Halves or doubles the zoom, `steps` times (positive: in), as far as it goes.
void ZoomDigit(std::int16_t index, std::int32_t steps);
bool CanZoomIn(const DigitDocument& document);
bool CanZoomOut(const DigitDocument& document);
bool CanPageBack(const DigitDocument& document);
bool CanPageOn(const DigitDocument& document);

/// Puts the caliper on a dot, held to 0..Dots-1, and turns to the page that has it.
/// `redrawPicture`: the picture has changed beside it.
void PutCaliper(std::int16_t index, std::int32_t dot, Flag redrawPicture = false);
/// Turns the list to the rows that have this one, without a repaint; true where it had to.
bool BringRowIntoView(DigitDocument& document, std::int32_t row);
/// Takes the caliper's dot from its pixel and shows the values there.
void CaliperFromPixel(DigitDocument& document);

// Commands on the active document.
void ZoomInDigit();
void ZoomOutDigit();
void ZoomOffDigit();  // back to 1.0
void ToggleShowTime();

/// The time at which a dot begins, "120.000000us".
std::string TimeOfDot(const DigitDocument& document, std::int32_t dot);
/// "12  120.000000us", for the status strip.
std::string DotText(const DigitDocument& document, std::int32_t dot);
/// The page that begins nearest to FirstDot, from 1.
std::int32_t PageNumber(const DigitDocument& document);
