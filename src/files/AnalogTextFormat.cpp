#include "files/AnalogFileParts.h"
#include "files/FileProgress.h"
#include "frame/StringFunc.h"

#include <algorithm>

// Text format: every number on a line of its own, exact, in this order:
//
//   Norvik Technologies,Inc. Save analog waveform to text files.
//    4096        MaxDots
//    2           Dots
//    5           Vpp, volts
//    1E-05       Period, seconds
//    12          Quantify, bits
//    1           LastDot
//    1           count of segments
//    0           first dot: X, then Y, normalised
//   -0.25
//    1           second dot
//    0.5
//    1           sixteen lines for each segment, in the order of the record's fields
//    ...

namespace {

constexpr std::string_view Title = "Norvik Technologies,Inc. Save analog waveform to text files.";
constexpr std::size_t BytesPerDot = 40;       // most that two lines take
constexpr std::size_t BytesPerSegment = 200;  // as a rule

// Both lines of a dot. Whole numbers are written faster than fractions.
char* WriteDot(char* to, std::int32_t index, double y) {
    to = WriteLineEnd(WriteWholeField(to, index));
    return WriteLineEnd(WriteField(to, y));
}

bool TakeHeader(NumberLines& in, LoadedWave& content, std::int32_t& segmentCount) {
    return TakeWholeLine(in, content.MaxDots) && TakeWholeLine(in, content.Dots) &&
           TakeNumberLine(in, content.Vpp) && TakeNumberLine(in, content.Period) &&
           TakeWholeLine(in, content.Quantify) && TakeWholeLine(in, content.LastDot) &&
           TakeWholeLine(in, segmentCount);
}

bool TakeDots(NumberLines& in, LoadedWave& content) {
    const FileProgress progress(content.Dots);
    for (std::int32_t i = 0; i < content.Dots; ++i) {
        ReportDot(progress, i);
        double x = 0.0, y = 0.0;
        if (!TakeNumberLine(in, x) || !TakeNumberLine(in, y)) return false;
        content.DotArray[i] = {static_cast<double>(i), std::clamp(y, -1.0, 1.0)};
    }
    return true;
}

}  // namespace

std::string WriteAnalogText(const AnalogWaveRecord& wave) {
    const FileProgress progress(wave.Dots);
    std::string text;
    text.reserve(wave.Dots * BytesPerDot + (wave.SegmentCount + 2) * BytesPerSegment);
    text.append(Title).append(LineEnd);
    AppendFieldLine(text, wave.MaxDots);
    AppendFieldLine(text, wave.Dots);
    AppendFieldLine(text, wave.Vpp);
    AppendFieldLine(text, wave.Period);
    AppendFieldLine(text, wave.Quantify);
    AppendFieldLine(text, wave.LastDot);
    AppendFieldLine(text, wave.SegmentCount);
    char lines[3 * NumberWidth];
    for (std::int32_t i = 0; i < wave.Dots; ++i) {
        ReportDot(progress, i);
        text.append(lines, WriteDot(lines, i, wave.DotArray[i].Y));
    }
    AppendSegments(text, wave);
    return text;
}

bool ReadAnalogText(std::string_view bytes, LoadedWave& content) {
    NumberLines in = OpenNumberLines(bytes);
    std::int32_t segmentCount = 0;
    return TakeTitle(in, Title) && TakeHeader(in, content, segmentCount) &&
           PrepareContent(content, segmentCount, in) && TakeDots(in, content) &&
           TakeSegments(in, segmentCount, content);
}
