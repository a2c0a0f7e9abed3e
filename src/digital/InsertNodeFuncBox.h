#pragma once
// The dialog of a node without its window: name, radix, number of channels, number of the first
// one. OK adds the node behind the last one, on the lowest free channels.
#include "digital/DialogAnswers.h"
#include "digital/DigitFuncCode.h"

#include <string>
#include <string_view>

inline constexpr std::int16_t MaxStartNumber = 100;

struct InsertNodeDialog {
    std::string Name;
    std::int16_t Radix = 0;
    std::string BusCount;     // digits, 1..16
    std::string StartNumber;  // digits, 0..100
};

// The node that was inserted last: radix and width are proposed again.
extern NewNode LastInserted;

/// Proposes a node for the active document: its name tells the lowest free channel and is unique.
InsertNodeDialog OpenInsertNode();

// A box is being typed in.
void ChangeBusCount(InsertNodeDialog& dialog, std::string_view typed);
void ChangeStartNumber(InsertNodeDialog& dialog, std::string_view typed);
/// The box was left: 1 at least, unless it is empty.
void LeaveBusCount(InsertNodeDialog& dialog);

/// "12 of 16 channels are free."
std::string FreeChannelsText();

/// OK: adds the node, as an edit. Refused are an empty box, the name of another node and more
/// channels than there are.
DialogEnd ConfirmInsertNode(InsertNodeDialog& dialog);
