#pragma once
// What the text and the CSV format have in common: segment blocks, and the rules that the numbers
// of a header must keep.
#include "files/FileOptFuncCode.h"
#include "files/FileParts.h"
#include "files/NumberLines.h"

#include <string>

/// Appends the sixteen lines of every segment.
void AppendSegments(std::string& to, const AnalogWaveRecord& wave);

/// True when counts and scales make sense and what is left of the file can hold `Dots` dots and
/// `segmentCount` segments. Then holds MaxDots and Quantify to the limits, sets LastDot and makes
/// room for the dots.
bool PrepareContent(LoadedWave& content, std::int32_t segmentCount, const NumberLines& rest);

/// Reads the segment blocks behind the dots. Segments of another writer that do not cover the
/// dots are replaced by one custom segment. False for text that is no number.
bool TakeSegments(NumberLines& in, std::int32_t count, LoadedWave& content);
