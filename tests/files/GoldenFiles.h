#pragma once
// The same three dots as text and as CSV, written by hand, with the record they stand for.
#include "frame/records/AnalogWaveRecord.h"

#include <string>
#include <string_view>

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
    wave.Segments[0] = {false, 0, 0, 2, 2, 3, 0.1F, -0.5F, 1, 90.0F, 50, 4, 5, 60, 10, -5.0F};
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

/// The file with one line, counted from 1, changed.
inline std::string WithLine(std::string file, int number, std::string_view text) {
    std::size_t at = 0;
    for (; number > 1; --number) at = file.find("\r\n", at) + 2;
    return file.replace(at, file.find("\r\n", at) - at, text);
}
