#pragma once
// The dialog of an arbitrary value without its window: one value in a radix, written into each
// selected span.
#include "digital/ValueBoxes.h"

/// An empty box for what is selected first in the active document.
ValueBoxes OpenArbitraryValue();

/// OK: saves the radix and writes the value. An empty box is refused.
DialogEnd ConfirmArbitraryValue(ValueBoxes& boxes);
