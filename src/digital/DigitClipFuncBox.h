#pragma once
// The two clipboards of digital documents: a span of dots from the picture, and rows of the list.
// Commands on the active document; what is selected decides between span and rows, and nothing
// happens where nothing is.
#include "frame/records/DigitDocument.h"

/// Copies the selected span, whose nodes get their lengths first, or the selected rows.
void CopyDigit();
/// Copies, then deletes.
void CutDigit();
/// A span: its bits become 0 in the selected channels, later dots stay where they are; a node that
/// was selected past its data ends where the span begins. Rows: nodes and members go, with their
/// channels.
void DeleteDigit();
/// Puts the copied span on the row and the dot of the last press in the picture. The first channel
/// goes to the last member of a bus. Data may then reach behind the last dot of the waveform.
void PasteDigit();
/// Adds the copied rows as new nodes at the end of the list, on the lowest free channels; members
/// become nodes of their own. Refused with a message where channels are missing.
void RepasteDigit();

/// The dot and the row that a paste goes to; no node where the press was on none.
struct PastePlace {
    DigitTarget Target;
    std::int32_t Dot;
};
PastePlace PlaceOfPaste(const DigitDocument& document);
