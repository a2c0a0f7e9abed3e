#pragma once
// Drawing of dots: hand strokes, chains of straight lines, and lines given by numbers. All three
// write through one fill, close a gap behind the last dot first, and end as one custom segment.
// Positions are pixels of the plot; the limit lines hold strokes and lines made with the mouse.
#include "frame/records/AnalogWaveRecord.h"

/// First point of a stroke. The snapshot is the caller's.
void BeginHandStroke(std::int16_t index, std::int32_t x, std::int32_t y);
/// Writes the dots from the last point up to this one and draws the step on the plot. A stroke that
/// runs backwards writes nothing until it moves forward again from where it is.
void ContinueHandStroke(std::int16_t index, std::int32_t x, std::int32_t y);
/// Makes the dots of the stroke one segment, with the end of an edit.
void EndHandStroke(std::int16_t index);

/// A click of the line tool. The first one takes the snapshot and sets the start; every other one
/// writes the line from the last point. The chain is one segment at any time.
void PlaceLinePoint(std::int16_t index, std::int32_t x, std::int32_t y);
/// Draws the guide from the last point of the line to the mouse.
void GuideLine(std::int16_t index, std::int32_t x, std::int32_t y);
/// OkAresBtn: draws the line of the boxes; nothing while one of them is empty.
void ApplyLineBoxes();
/// AresButton1: sets the dot of the boxes; asks for both where one is empty.
void ApplyPointBoxes();
