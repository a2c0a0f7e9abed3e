#include "files/AnalogFileParts.h"
#include "files/FileProgress.h"
#include "frame/StringFunc.h"

#include <algorithm>
#include <charconv>

// CSV format, for spreadsheets: volts rounded to three digits.
//
//   Norvik Technologies,Inc. Save analog waveform to excel files.
//   Vpp[V]:,5.00E00
//   Period[S]:,1.00E-05
//   Quantify:,12
//   Data Dots:,2
//   Max Dots:,4096
//   End:,1
//   Wave:,1             count of segments
//
//   X,Y[V]
//   0,-6.25E-01         a line for each dot
//   1,1.25E00
//    1                  sixteen lines for each segment, as in the text format
//    ...

namespace {

constexpr std::string_view Title = "Norvik Technologies,Inc. Save analog waveform to excel files.";
constexpr std::string_view Columns = "X,Y[V]";
constexpr std::size_t BytesPerDot = 20;
constexpr std::size_t BytesPerSegment = 200;

void AppendCell(std::string& to, std::string_view caption, std::string_view value) {
    to.append(caption).append(",").append(value).append(LineEnd);
}

char* WriteDot(char* to, std::int32_t index, double volts) {
    to = std::to_chars(to, to + NumberWidth, index).ptr;
    *to++ = ',';
    return WriteLineEnd(WriteExponent2(to, volts));
}

bool TakeHeader(NumberLines& in, LoadedWave& content, std::int32_t& segmentCount) {
    return TakeCaption(in) && TakeNumberLine(in, content.Vpp) &&      //
           TakeCaption(in) && TakeNumberLine(in, content.Period) &&   //
           TakeCaption(in) && TakeWholeLine(in, content.Quantify) &&  //
           TakeCaption(in) && TakeWholeLine(in, content.Dots) &&      //
           TakeCaption(in) && TakeWholeLine(in, content.MaxDots) &&   //
           TakeCaption(in) && TakeWholeLine(in, content.LastDot) &&   //
           TakeCaption(in) && TakeWholeLine(in, segmentCount) &&      //
           TakeLineEnd(in) && TakeTitle(in, Columns);
}

bool TakeDots(NumberLines& in, LoadedWave& content) {
    const FileProgress progress(content.Dots);
    const double half = content.Vpp / 2;
    for (std::int32_t i = 0; i < content.Dots; ++i) {
        ReportDot(progress, i);
        double x = 0.0, volts = 0.0;
        if (!TakeNumber(in, x) || !TakeComma(in) || !TakeNumberLine(in, volts)) return false;
        content.DotArray[i] = {static_cast<double>(i), std::clamp(volts / half, -1.0, 1.0)};
    }
    return true;
}

}  // namespace

std::string WriteAnalogCsv(const AnalogWaveRecord& wave) {
    const FileProgress progress(wave.Dots);
    std::string text;
    text.reserve(wave.Dots * BytesPerDot + (wave.SegmentCount + 2) * BytesPerSegment);
    text.append(Title).append(LineEnd);
    AppendCell(text, "Vpp[V]:", FormatPattern(wave.Vpp, "0.00E-00"));
    AppendCell(text, "Period[S]:", FormatPattern(wave.Period, "0.00E-00"));
    AppendCell(text, "Quantify:", std::to_string(wave.Quantify));
    AppendCell(text, "Data Dots:", std::to_string(wave.Dots));
    AppendCell(text, "Max Dots:", std::to_string(wave.MaxDots));
    AppendCell(text, "End:", std::to_string(wave.LastDot));
    AppendCell(text, "Wave:", std::to_string(wave.SegmentCount));
    text.append(LineEnd).append(Columns).append(LineEnd);
    char line[3 * NumberWidth];
    for (std::int32_t i = 0; i < wave.Dots; ++i) {
        ReportDot(progress, i);
        text.append(line, WriteDot(line, i, wave.DotArray[i].Y * wave.Vpp / 2));
    }
    AppendSegments(text, wave);
    return text;
}

bool ReadAnalogCsv(std::string_view bytes, LoadedWave& content) {
    NumberLines in = OpenNumberLines(bytes);
    std::int32_t segmentCount = 0;
    return TakeTitle(in, Title) && TakeHeader(in, content, segmentCount) &&
           PrepareContent(content, segmentCount, in) && TakeDots(in, content) &&
           TakeSegments(in, segmentCount, content);
}
