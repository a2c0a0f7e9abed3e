#pragma once
// Renders the channel list of a digital document: heads, then a row for each node and each member
// of an open bus.
#include "frame/records/DigitDocument.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Draws heads and rows on ListSurface.
void DrawDigitList(DigitDocument& document);

/// True where a place of the list's rows (logical pixels) lies on the expansion mark of a bus.
bool OnExpansionMark(const DigitDocument& document, double x, double y);

/// The text cut at its end with "..." so that it is no wider than `width` device pixels.
std::string CutText(const Surface& surface, std::string_view text, std::int32_t width, double size);
