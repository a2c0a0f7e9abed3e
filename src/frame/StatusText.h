#pragma once
// Hints of the status strip by code.
#include <cstdint>

/// Shows the catalogue text of a code (4..14, 26, 50, 51) in the label that belongs to the code.
/// Other codes do nothing.
void ShowStatus(std::int32_t code);

/// Shows the last hint once more, after a change of the language.
void ShowStatusAgain();
