#pragma once
// Undo, resume and selection of a digital document, and the frame around every edit. Undo is one
// snapshot, exchanged with the present state.
#include "frame/records/DigitDocument.h"

#include <cstdint>
#include <vector>

/// Sets Changed and the edit stamp.
void MarkChanged(DigitDocument& document);
/// Copies nodes and samples into the snapshot, replacing the last one. Sets Changed.
void TakeSnapshot(DigitDocument& document);

/// Lets go of what the mouse drags, without a repaint: nothing is selected or moved by it.
void LetGo(DigitDocument& document);
/// Begins an edit: gestures let go, snapshot, undo available, resume not.
void BeginEdit(DigitDocument& document);
/// Ends an edit of a slot: rows numbered, values at the caliper, title, commands, repaint.
void EndDigitEdit(std::int16_t index);

// What is selected: a span of a whole node or of one member. The one walk of every operation.
struct SelectedSpan {
    DigitTarget Target;
    std::int32_t Start, End;  // dots, inclusive
};
/// In list order. A node selected as a whole hides its members; members of a collapsed bus do not
/// count.
std::vector<SelectedSpan> SelectedSpans(const DigitDocument& document);

/// Drops every selection of nodes and members, the flags of the document that tell of one, and a
/// rubber band being dragged.
void ClearSelection(DigitDocument& document);
/// Ends point edit and find: nothing is marked any more.
void EndFind(DigitDocument& document);
/// Adds a span of a target, held to 0..Dots-1, in the picture.
void SelectSpan(DigitDocument& document, DigitTarget target, std::int32_t start, std::int32_t end);
/// Adds a row of the list with all of its dots.
void SelectListRow(DigitDocument& document, DigitTarget target);
/// Takes a target out of the selection.
void DeselectTarget(DigitDocument& document, DigitTarget target);
/// The selection as it stands was made in the picture, or in the list.
void MarkWaveSelection(DigitDocument& document);
void MarkListSelection(DigitDocument& document);
/// True where the target is selected in the picture or the list.
bool IsSelected(const DigitDocument& document, DigitTarget target);

/// Brings a new or cleared selection of a slot to the commands, the list and the picture.
void ShowDigitSelection(std::int16_t index);
/// Opens or closes one bus, or all of them, with selections cleared, and shows it.
void ToggleExpanded(std::int16_t index, std::int16_t node);

// Commands on the active document.
void UndoDigit();
void ResumeDigit();
void SelectAllDigit();
/// All dots of the row under the last press; nothing where there is none.
void SelectEntireDigit();
void ExpandAllBuses();
void CollapseAllBuses();
