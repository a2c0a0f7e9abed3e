#include "analog/SegmentEngine.h"

#include <algorithm>

// Worked example: segments 0..99 (sine), 100..199 (custom), 200..299 (ramp) and a selection
// 50..120 replaced by 81 dots, D = +10. F = 0, L = 1 collapse into one custom segment 0..209; the
// ramp moves to 210..309. Its StartDot stays 200: the place where it was first generated.

namespace {

WaveSegment& SegmentAt(AnalogWaveRecord& wave, std::int32_t index) {
    return wave.Segments[static_cast<std::size_t>(index)];
}

void EraseSegments(AnalogWaveRecord& wave, std::int32_t first, std::int32_t count) {
    const auto begin = wave.Segments.begin() + first;
    wave.Segments.erase(begin, begin + count);
    wave.SegmentCount -= count;
}

std::int32_t RunLength(const WaveSegment& segment) {
    return segment.EndDot - segment.RunStart + 1;
}

// Right neighbour first, then left, so that two custom neighbours become one entry with it.
void MergeCustomNeighbours(AnalogWaveRecord& wave, std::int32_t index) {
    for (const std::int32_t left : {index, index - 1}) {
        if (left < 0 || left + 1 >= wave.SegmentCount) continue;
        WaveSegment& segment = SegmentAt(wave, left);
        if (!segment.Custom || !SegmentAt(wave, left + 1).Custom) continue;
        segment.EndDot = SegmentAt(wave, left + 1).EndDot;
        segment.DotCount = RunLength(segment);
        EraseSegments(wave, left + 1, 1);
    }
}

// The run is free-form from now on; its generator fields stay but mean nothing.
void MakeCustom(WaveSegment& segment) {
    segment.Custom = true;
    segment.DotCount = RunLength(segment);
}

// A free selection: every segment that it touches becomes one custom run.
void CollapseSelection(AnalogWaveRecord& wave, std::int32_t delta) {
    const std::int32_t first = wave.SelFirstSegment, last = wave.SelLastSegment;
    WaveSegment& run = SegmentAt(wave, first);
    run.EndDot = SegmentAt(wave, last).EndDot + delta;
    MakeCustom(run);
    EraseSegments(wave, first + 1, last - first);
    for (std::int32_t i = first + 1; i < wave.SegmentCount; ++i) {
        SegmentAt(wave, i).RunStart += delta;
        SegmentAt(wave, i).EndDot += delta;
    }
    MergeCustomNeighbours(wave, first);
}

// A picked segment keeps its place in the list; what follows moves as a whole.
void RewritePicked(AnalogWaveRecord& wave, WaveSegment made, std::int32_t delta) {
    WaveSegment& picked = SegmentAt(wave, wave.PickedSegment);
    made.StartDot = delta == 0 ? picked.StartDot : wave.SelStart;
    made.RunStart = wave.SelStart;
    made.EndDot = wave.SelStart + made.DotCount - 1;
    picked = made;
    for (std::int32_t i = wave.PickedSegment + 1; i < wave.SegmentCount; ++i) {
        SegmentAt(wave, i).StartDot += delta;
        SegmentAt(wave, i).RunStart += delta;
        SegmentAt(wave, i).EndDot += delta;
    }
}

bool HasPick(const AnalogWaveRecord& wave) {
    return wave.SegmentPicked && wave.PickedSegment < wave.SegmentCount;
}

void RewriteSelection(AnalogWaveRecord& wave, const WaveSegment& made) {
    if (!wave.HasSelection || wave.SegmentCount == 0) return;
    FindSelectionSegments(wave);
    const std::int32_t delta = made.DotCount - (wave.SelEnd - wave.SelStart + 1);
    if (!HasPick(wave)) return CollapseSelection(wave, delta);
    RewritePicked(wave, made, delta);
    MergeCustomNeighbours(wave, wave.PickedSegment);
}

}  // namespace

std::int32_t SegmentWith(const AnalogWaveRecord& wave, std::int32_t dot) {
    std::int32_t segment = 0;
    while (segment < wave.SegmentCount - 1 &&
           wave.Segments[static_cast<std::size_t>(segment)].EndDot < dot)
        ++segment;
    return segment;
}

void FindSelectionSegments(AnalogWaveRecord& wave) {
    wave.SelFirstSegment = SegmentWith(wave, wave.SelStart);
    wave.SelLastSegment = SegmentWith(wave, wave.SelEnd);
}

void ReplaceRunSegments(AnalogWaveRecord& wave, WaveSegment made) {
    made.Custom = false;
    RewriteSelection(wave, made);
}

void MarkRunCustom(AnalogWaveRecord& wave, std::int32_t dotCount) {
    WaveSegment custom = HasPick(wave) ? SegmentAt(wave, wave.PickedSegment) : WaveSegment();
    custom.Custom = true;
    custom.DotCount = dotCount;
    RewriteSelection(wave, custom);
}

void RemoveRunSegments(AnalogWaveRecord& wave, std::int32_t first, std::int32_t last) {
    const std::int32_t removed = last - first + 1;
    std::vector<WaveSegment> kept;
    for (std::int32_t i = 0; i < wave.SegmentCount; ++i) {
        WaveSegment segment = SegmentAt(wave, i);
        const std::int32_t length = RunLength(segment);
        const std::int32_t left = std::clamp(first - segment.RunStart, 0, length) +
                                  std::clamp(segment.EndDot - last, 0, length);
        if (left == 0) continue;
        if (segment.RunStart >= first) {
            segment.RunStart = std::max(segment.RunStart, last + 1) - removed;
            segment.StartDot = segment.RunStart;
        }
        segment.EndDot = segment.RunStart + left - 1;
        if (left < length) MakeCustom(segment);
        kept.push_back(segment);
    }
    wave.Segments = std::move(kept);
    wave.SegmentCount = static_cast<std::int32_t>(wave.Segments.size());
}

void OverlayRunSegment(AnalogWaveRecord& wave, std::int32_t first, std::int32_t last) {
    std::vector<WaveSegment> kept;
    kept.reserve(static_cast<std::size_t>(wave.SegmentCount) + 2);
    const WaveSegment made = {
        .StartDot = first, .RunStart = first, .EndDot = last, .DotCount = last - first + 1};
    bool placed = false;
    for (std::int32_t i = 0; i < wave.SegmentCount; ++i) {
        const WaveSegment& segment = SegmentAt(wave, i);
        if (segment.RunStart < first) {
            kept.push_back(segment);
            if (segment.EndDot >= first) {
                kept.back().EndDot = first - 1;
                MakeCustom(kept.back());
            }
        }
        if (!placed && segment.EndDot >= first) {
            kept.push_back(made);
            placed = true;
        }
        if (segment.EndDot > last) {
            kept.push_back(segment);
            if (segment.RunStart <= last) {
                kept.back().StartDot = kept.back().RunStart = last + 1;
                MakeCustom(kept.back());
            }
        }
    }
    if (!placed) kept.push_back(made);
    wave.Segments = std::move(kept);
    wave.SegmentCount = static_cast<std::int32_t>(wave.Segments.size());
}

void AppendSegment(AnalogWaveRecord& wave, WaveSegment made) {
    made.StartDot = made.RunStart = wave.Dots;
    wave.Dots += made.DotCount;
    made.EndDot = wave.LastDot = wave.Dots - 1;
    wave.Segments.resize(static_cast<std::size_t>(wave.SegmentCount));
    wave.Segments.push_back(made);
    ++wave.SegmentCount;
}

void CollapseSegments(AnalogWaveRecord& wave) {
    wave.Segments.clear();
    if (wave.Dots > 0) wave.Segments.push_back({.EndDot = wave.Dots - 1, .DotCount = wave.Dots});
    wave.SegmentCount = static_cast<std::int32_t>(wave.Segments.size());
}

void TruncateSegments(std::vector<WaveSegment>& segments, std::int32_t& count, std::int32_t dots) {
    for (std::int32_t i = 0; i < count; ++i) {
        WaveSegment& segment = segments[static_cast<std::size_t>(i)];
        if (segment.EndDot < dots - 1) continue;
        segment.EndDot = dots - 1;
        MakeCustom(segment);
        count = i + 1;
        break;
    }
    segments.resize(static_cast<std::size_t>(count));
}
