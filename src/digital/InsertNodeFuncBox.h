#pragma once
// The dialog of a node without its window: name, radix, number of channels, number of the first
// one. It has three uses. Insert adds a node behind the last one, on the lowest free channels;
// assemble makes a node of what is selected; edit changes the node of the row pressed last.
#include "digital/DialogAnswers.h"
#include "digital/DigitFuncCode.h"

#include <cstdint>
#include <string>
#include <string_view>

inline constexpr std::int16_t MaxStartNumber = 100;

enum class NodeUse : std::uint8_t { Insert, Assemble, Edit };

struct InsertNodeDialog {
    std::string Name;
    std::int16_t Radix = 0;
    std::string BusCount;     // digits, 1..16
    std::string StartNumber;  // digits, 0..100
    NodeUse Use = NodeUse::Insert;
    std::int16_t Node = -1;  // that is edited
};

// The node that was inserted last: radix and width are proposed again.
extern NewNode LastInserted;

/// Proposes a node for the active document, by AssembleMode and EditNodeMode: its name is unique;
/// that of an edit and its other fields are the node's. An assembly has the count of its channels,
/// which cannot be changed.
InsertNodeDialog OpenInsertNode();

// A box is being typed in.
void ChangeBusCount(InsertNodeDialog& dialog, std::string_view typed);
void ChangeStartNumber(InsertNodeDialog& dialog, std::string_view typed);
/// The box was left: 1 at least, unless it is empty.
void LeaveBusCount(InsertNodeDialog& dialog);

/// "12 of 16 channels are free."
std::string FreeChannelsText();

/// OK: adds, assembles or changes the node, as an edit. Refused are an empty box, the name of
/// another node and more channels than there are.
DialogEnd ConfirmInsertNode(InsertNodeDialog& dialog);

// Commands that open the dialog on the active document.
/// Nothing happens where nothing is selected.
void AssembleBus();
/// Edits the node of the row of the last press; that of its bus where the row is a member.
void EditNodeOfRow();
