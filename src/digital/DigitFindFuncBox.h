#pragma once
// Point edit and find without their panel: a name, a dot and a value. The boxes stand in the record
// (FindBoxes), so that each document has its own. cmbName lists TargetNames.
#include "frame/KeyFilter.h"
#include "frame/records/DigitDocument.h"

#include <string>
#include <string_view>
#include <vector>

// Commands on the active document. Either ends the other.
void TogglePointEdit();
void ToggleFind();

// A box is changed, in either use. Values are held to the width of the row, in its radix; the dot
// of a point edit to the last one of the waveform.
void ChangeFindName(DigitDocument& document, std::string_view name);
void ChangeFindDot(DigitDocument& document, std::string_view typed);
void ChangeFindValue(DigitDocument& document, std::string_view typed);
/// What the value box takes: digits of the row's radix.
KeyKind FindValueKeys(const DigitDocument& document);

/// OK: writes the value at the dot and turns to it, as an edit; or shows the value there, empty
/// behind the row's data. An empty box has a message; an unknown name does nothing.
void ConfirmFind();
