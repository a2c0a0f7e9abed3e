#pragma once
// Keys in the picture of a digital document that do what a rubber band does.
#include <cstdint>

/// Moves the end of the selected span by dots and rows, held to the document; the caliper and the
/// row of the last press go with it. A selection that does not end there is replaced by a span that
/// begins at the caliper, in that row or the first one. Nothing where there is no row.
void ExtendSpan(std::int16_t index, std::int32_t dots, std::int32_t rows);
