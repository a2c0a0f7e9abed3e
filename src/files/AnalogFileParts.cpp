#include "files/AnalogFileParts.h"

#include "frame/GlobalDefineCode.h"
#include "frame/StringFunc.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::int64_t DotBytes = 4;       // "0", a line end, "0", a line end
constexpr std::int64_t SegmentBytes = 32;  // sixteen lines
constexpr std::int16_t LastKind = 9;

bool IsScale(double value) {
    return value >= LeastScale && value <= LargestScale;
}

void AppendFloatLine(std::string& to, float value) {
    if (!std::signbit(value)) to += ' ';
    to += ShortestText(value);
    to += ' ';
    to += LineEnd;
}

bool TakeFloatLine(NumberLines& in, float& value) {
    double wide = 0.0;
    if (!TakeNumberLine(in, wide)) return false;
    value = static_cast<float>(wide);
    return std::isfinite(value);
}

bool TakeSegment(NumberLines& in, WaveSegment& segment) {
    std::int32_t custom = 0, kind = 0;
    const bool read = TakeWholeLine(in, custom) && TakeWholeLine(in, segment.StartDot) &&
                      TakeWholeLine(in, segment.RunStart) && TakeWholeLine(in, segment.EndDot) &&
                      TakeWholeLine(in, kind) && TakeWholeLine(in, segment.DotCount) &&
                      TakeFloatLine(in, segment.Amplitude) && TakeFloatLine(in, segment.Offset) &&
                      TakeWholeLine(in, segment.Cycles) && TakeFloatLine(in, segment.Phase) &&
                      TakeWholeLine(in, segment.Duty) && TakeWholeLine(in, segment.PWidthDots) &&
                      TakeWholeLine(in, segment.SlopeDots) && TakeWholeLine(in, segment.Symmetry) &&
                      TakeWholeLine(in, segment.Overzero) && TakeFloatLine(in, segment.Damp);
    const bool known = kind >= 0 && kind <= LastKind;
    segment.Kind = known ? static_cast<std::int16_t>(kind) : std::int16_t{0};
    segment.Custom = custom != 0 || !known;
    return read;
}

bool CoverDots(const LoadedWave& content) {
    std::int32_t next = 0;
    for (const WaveSegment& segment : content.Segments) {
        if (segment.RunStart != next || segment.EndDot < next || segment.EndDot >= content.Dots)
            return false;
        next = segment.EndDot + 1;
    }
    return next == content.Dots;
}

}  // namespace

void AppendSegments(std::string& to, const AnalogWaveRecord& wave) {
    for (std::int32_t i = 0; i < wave.SegmentCount; ++i) {
        const WaveSegment& segment = wave.Segments[i];
        AppendFieldLine(to, segment.Custom ? 1 : 0);
        AppendFieldLine(to, segment.StartDot);
        AppendFieldLine(to, segment.RunStart);
        AppendFieldLine(to, segment.EndDot);
        AppendFieldLine(to, segment.Kind);
        AppendFieldLine(to, segment.DotCount);
        AppendFloatLine(to, segment.Amplitude);
        AppendFloatLine(to, segment.Offset);
        AppendFieldLine(to, segment.Cycles);
        AppendFloatLine(to, segment.Phase);
        AppendFieldLine(to, segment.Duty);
        AppendFieldLine(to, segment.PWidthDots);
        AppendFieldLine(to, segment.SlopeDots);
        AppendFieldLine(to, segment.Symmetry);
        AppendFieldLine(to, segment.Overzero);
        AppendFloatLine(to, segment.Damp);
    }
}

bool PrepareContent(LoadedWave& content, std::int32_t segmentCount, const NumberLines& rest) {
    if (content.MaxDots < 1 || content.MaxDots > LargestCapacity) return false;
    if (content.Dots < 0 || content.Dots > content.MaxDots || segmentCount < 0) return false;
    if (!IsScale(content.Vpp) || !IsScale(content.Period)) return false;
    const std::int64_t least = content.Dots * DotBytes + segmentCount * SegmentBytes;
    if (least > rest.End - rest.At + 1) return false;  // the last line end may be missing

    content.MaxDots = std::max(content.MaxDots, MinWaveDots);
    content.Quantify = std::clamp(content.Quantify, MinQuantify, MaxQuantify);
    content.LastDot = std::max(content.Dots - 1, 0);
    content.DotArray.assign(content.MaxDots, WaveDot{});
    content.Segments.clear();
    return true;
}

bool TakeSegments(NumberLines& in, std::int32_t count, LoadedWave& content) {
    content.Segments.resize(count);
    for (WaveSegment& segment : content.Segments)
        if (!TakeSegment(in, segment)) return false;
    if (!CoverDots(content)) CoverWithOneSegment(content);
    // Only a run of the wave's own length can be generated again in its place.
    for (WaveSegment& segment : content.Segments)
        if (segment.DotCount != segment.EndDot - segment.RunStart + 1) segment.Custom = true;
    return true;
}
