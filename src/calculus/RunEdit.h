#pragma once
// How commands and dialogs rewrite dots: one frame around every transform, of the selection or of
// the whole wave, and the place for a run of another length.
#include "frame/records/AnalogWaveRecord.h"

#include <functional>
#include <span>
#include <string>

/// Fewest dots of a wave that the commands on the whole wave work on.
inline constexpr std::int32_t LeastWholeWave = 2;

/// Dots of the selection; 0 without one.
std::int32_t SelectionLength(const AnalogWaveRecord& wave);
/// The most dots that can be inserted: the free ones and those of the selection.
std::int32_t RoomOf(const AnalogWaveRecord& wave);

/// The selected dots; none without a selection.
std::span<WaveDot> SelectedDots(AnalogWaveRecord& wave);
/// All dots of the wave.
std::span<WaveDot> WholeWave(AnalogWaveRecord& wave);

/// Makes the selection `count` dots long: the dots behind it move, Dots, LastDot and the bounds
/// follow. The selection's own dots are left for the caller to write, as is the segment list, which
/// goes first. The dots must fit.
void ResizeSelection(AnalogWaveRecord& wave, std::int32_t count);

/// Rewrites dots in place. Their number and their X stay; Y must lie in -1..1 afterwards.
using DotTransform = std::function<void(std::span<WaveDot>)>;

/// One edit of the selected dots of the active document; their run is custom afterwards. Nothing
/// happens without a selection.
void EditSelection(const DotTransform& transform);
/// One edit of all dots of a slot, one custom segment afterwards. The view stays.
void EditWholeWave(std::int16_t index, const DotTransform& transform);

/// Holds every Y to -1..1.
void ClipDots(std::span<WaveDot> dots);

/// Tells, in the current language, how many of the new values are clipped; empty for none.
std::string ClippedNote(std::int32_t clipped, std::int32_t count);
