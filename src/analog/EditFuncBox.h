#pragma once
// Undo, resume, selection and clipboard of an analog document, and the frame around every edit.
// Undo is one snapshot, exchanged with the present state: undo and resume are the same exchange.
#include "frame/records/AnalogWaveRecord.h"

/// Sets Modified and the edit stamp.
void MarkModified(AnalogWaveRecord& wave);
/// Copies dots, segments and end mark into the snapshot, replacing the last one. Sets Modified.
void TakeSnapshot(AnalogWaveRecord& wave);
/// Exchanges the present state with the snapshot; calling it twice changes nothing.
void SwapSnapshot(AnalogWaveRecord& wave);

/// Moves the dots from `from` to the end so that they begin at `to`; Dots and LastDot follow, the
/// segments are the caller's. The dots must fit.
void MoveTail(AnalogWaveRecord& wave, std::int32_t from, std::int32_t to);

void SetUndoAvailable(AnalogWaveRecord& wave, Flag available);
void SetResumeAvailable(AnalogWaveRecord& wave, Flag available);

/// Closes a stroke as one segment. Nothing happens where none is under way.
void CloseStroke(AnalogWaveRecord& wave);
/// The line tool takes no further point. The snapshot stands, even where no line was written.
void EndLineDraw(AnalogWaveRecord& wave);
/// Closes a stroke or line under way and lets go of all that the mouse holds, without a repaint:
/// for commands that come in the middle of a gesture.
void FinishGesture(AnalogWaveRecord& wave);

/// Begins an edit: gestures finished, snapshot, undo available, resume not.
void BeginEdit(AnalogWaveRecord& wave);
/// Ends an edit of a slot: Modified, title, commands, repaint.
void EndEdit(std::int16_t index, Flag fullRedraw = false);

void ClearSelection(AnalogWaveRecord& wave);
/// Brings a new or cleared selection of a slot to the boxes, the commands and the plot.
void ShowSelection(std::int16_t index);
/// Clears the selection of a slot and shows it.
void DropSelection(std::int16_t index);
/// Selects dots first..last exactly, both held inside 0..Dots-1. An empty document has none.
void SelectDots(AnalogWaveRecord& wave, std::int32_t first, std::int32_t last);
/// Selects the whole of a segment and marks it picked, so that its wave can be edited again.
void PickSegment(AnalogWaveRecord& wave, std::int32_t segment);
/// Takes the bounds of a selection made with the mouse from its pixel columns, one column to the
/// left of each where that lies in the document. Exact bounds stay.
void SelectionFromPixels(AnalogWaveRecord& wave, std::int32_t left, std::int32_t right);

// Commands on the active document.
void UndoAnalog();
void ResumeAnalog();
void CutAnalog();
void CopyAnalog();
void DeleteAnalog();
void PasteAnalog();
void SelectAllAnalog();
