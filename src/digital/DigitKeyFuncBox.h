#pragma once
// Keys in list and picture of a digital document that do what the mouse does there. Where the
// caliper and the chosen row meet is the place of a paste, as that of a press would be.
#include "digital/DigitMouseFuncBox.h"

#include <cstdint>

/// Puts the caliper on a dot, see PutCaliper.
void StepCaliperByKey(std::int16_t index, std::int32_t dot);
/// Selects the row `step` rows on, see StepListRow.
void StepRowByKey(std::int16_t index, std::int32_t step, ListAdd add);
/// Moves the end of the selected span by dots and rows, held to the document; the caliper and the
/// row of the last press go with it. A selection that does not end there is replaced by a span that
/// begins at the caliper, in that row or the first one. Nothing where there is no row.
void ExtendSpan(std::int16_t index, std::int32_t dots, std::int32_t rows);
