#pragma once
// The same three dots as text and as CSV, written by hand, with the record they stand for.
#include "frame/records/AnalogWaveRecord.h"

#include <string>
#include <string_view>
#include <vector>

inline AnalogWaveRecord GoldenWave() {
    AnalogWaveRecord wave;
    wave.MaxDots = 8;
    wave.Dots = 3;
    wave.LastDot = 2;
    wave.Vpp = 2.5;
    wave.Period = 1e-5;
    wave.Quantify = 12;
    wave.DotArray = {{0, -1.0}, {1, 0.1}, {2, 5e-5}, {}, {}, {}, {}, {}};
    wave.SegmentCount = 1;
    wave.Segments.resize(2);  // the second element is not used
    wave.Segments[0] = {.Custom = false,
                        .StartDot = 0,
                        .RunStart = 0,
                        .EndDot = 2,
                        .Kind = 2,
                        .DotCount = 3,
                        .Amplitude = 0.1F,
                        .Offset = -0.5F,
                        .Cycles = 1,
                        .Phase = 90.0F,
                        .Duty = 50,
                        .PWidthDots = 4,
                        .SlopeDots = 5,
                        .Symmetry = 60,
                        .Overzero = 10,
                        .Damp = -5.0F};
    return wave;
}

#define GOLDEN_SEGMENT                                                                    \
    " 0 \r\n 0 \r\n 0 \r\n 2 \r\n 2 \r\n 3 \r\n 0.1 \r\n-0.5 \r\n 1 \r\n 90 \r\n 50 \r\n" \
    " 4 \r\n 5 \r\n 60 \r\n 10 \r\n-5 \r\n"

inline const std::string GoldenText =
    "Norvik Technologies,Inc. Save analog waveform to text files.\r\n"
    " 8 \r\n 3 \r\n 2.5 \r\n 1E-05 \r\n 12 \r\n 2 \r\n 1 \r\n"
    " 0 \r\n-1 \r\n 1 \r\n 0.1 \r\n 2 \r\n 5E-05 \r\n" GOLDEN_SEGMENT;

// Volts are Y * 1.25: -1.25, 0.125, 0.0000625.
inline const std::string GoldenCsv =
    "Norvik Technologies,Inc. Save analog waveform to excel files.\r\n"
    "Vpp[V]:,2.50E00\r\nPeriod[S]:,1.00E-05\r\nQuantify:,12\r\nData Dots:,3\r\nMax Dots:,8\r\n"
    "End:,2\r\nWave:,1\r\n\r\nX,Y[V]\r\n"
    "0,-1.25E00\r\n1,1.25E-01\r\n2,6.25E-05\r\n" GOLDEN_SEGMENT;

inline std::vector<std::string> LinesOf(std::string_view file) {
    std::vector<std::string> lines;
    while (!file.empty()) {
        const auto end = file.find("\r\n");
        lines.emplace_back(file.substr(0, end));
        file.remove_prefix(end + 2);
    }
    return lines;
}

inline std::string JoinLines(const std::vector<std::string>& lines, std::string_view end = "\r\n") {
    std::string file;
    for (const std::string& line : lines) file.append(line).append(end);
    return file;
}

/// The file with one line, counted from 1, changed.
inline std::string WithLine(std::string_view file, std::size_t number, std::string_view text) {
    std::vector<std::string> lines = LinesOf(file);
    lines.at(number - 1) = text;
    return JoinLines(lines);
}
