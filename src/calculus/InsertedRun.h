#pragma once
// What the dialogs that insert computed dots have in common: how many fit, and the place for them.
#include "frame/records/AnalogWaveRecord.h"

/// Dots of the selection; 0 without one.
std::int32_t SelectionLength(const AnalogWaveRecord& wave);

/// The most dots that can be inserted: the free ones and those of the selection.
std::int32_t RoomOf(const AnalogWaveRecord& wave);

/// Moves the dots from `from` to the end so that they begin at `to`, and counts them anew. Dots
/// becomes larger or smaller by the way they went; they must fit.
void MoveTail(AnalogWaveRecord& wave, std::int32_t from, std::int32_t to);
