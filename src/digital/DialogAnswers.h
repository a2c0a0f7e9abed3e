#pragma once
// How the dialogs of digital documents answer: to digits being typed, and to OK.
#include <cstdint>
#include <string>
#include <string_view>

// What OK comes to.
enum class DialogEnd : std::uint8_t {
    Stay,   // the user has something to mend
    Close,  // as cancelled
    Done,
};

/// Tells why OK was refused and asks whether to go on: OK stays in the dialog, Cancel closes it.
DialogEnd AskAgain(std::string_view text);
/// The same for a box without text.
DialogEnd RefuseEmpty();

/// The text of a box of digits while it is typed in: as typed, or `largest` where that is exceeded.
std::string HoldDigits(std::string_view typed, std::int32_t largest);
/// The number of a text of digits, 0 for none, held to the range of 32 bits.
std::int32_t WholeNumber(std::string_view digits);
