#pragma once
// The one engine that keeps a document's segment list in step with its dots. Coverage of a
// segment is RunStart..EndDot; before and after each call the segments cover 0..Dots-1 without
// hole or overlap (the dots themselves are moved and written by the caller).
#include "frame/records/AnalogWaveRecord.h"

/// The segment that a dot lies in; the last one for dots behind all, 0 where there is none.
std::int32_t SegmentWith(const AnalogWaveRecord& wave, std::int32_t dot);

/// Sets SelFirstSegment and SelLastSegment from SelStart and SelEnd.
void FindSelectionSegments(AnalogWaveRecord& wave);

/// The selected run is about to be replaced by the `made.DotCount` dots of a generated wave. A
/// free selection collapses into one custom segment, merged with custom neighbours; a picked
/// segment takes the generator fields of `made`. Nothing happens without a selection.
void ReplaceRunSegments(AnalogWaveRecord& wave, WaveSegment made);

/// The selected run is about to be replaced by `dotCount` free-form dots. As above, and a picked
/// segment becomes custom and merges with custom neighbours.
void MarkRunCustom(AnalogWaveRecord& wave, std::int32_t dotCount);

/// Dots first..last are about to be removed. Segments inside go, a shortened or split generated
/// one becomes custom, later ones move down.
void RemoveRunSegments(AnalogWaveRecord& wave, std::int32_t first, std::int32_t last);

/// Dots first..last, `first` at most behind the last segment, are free-form now: one custom segment
/// of its own. Earlier ones under it go, are cut back or split; what remains of them is custom.
void OverlayRunSegment(AnalogWaveRecord& wave, std::int32_t first, std::int32_t last);

/// Adds a segment of `made.DotCount` dots behind the last dot; Dots and LastDot count them.
void AppendSegment(AnalogWaveRecord& wave, WaveSegment made);

/// One custom segment over all dots, its generator fields 0. None where there is no dot.
void CollapseSegments(AnalogWaveRecord& wave);

/// Cuts the list to `dots` dots: the segment that reaches past the end stops there and becomes
/// custom, later ones go.
void TruncateSegments(std::vector<WaveSegment>& segments, std::int32_t& count, std::int32_t dots);
