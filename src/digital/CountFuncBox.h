#pragma once
// The dialog of counting without its window: a counter, and the dots that it is written to. The
// selection says which nodes are written, the dialog says which dots.
#include "digital/ValueBoxes.h"

/// Boxes as the last OK left them, held to what is selected first in the active document.
ValueBoxes OpenCount();

/// OK: saves radix and boxes and writes the counter. An empty box is refused.
DialogEnd ConfirmCount(ValueBoxes& boxes);
