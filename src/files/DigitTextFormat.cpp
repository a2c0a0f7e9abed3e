#include "digital/GlobalDigitDefineCode.h"
#include "digital/InsertNodeFuncBox.h"
#include "files/DigitFileFuncCode.h"
#include "files/FileParts.h"
#include "files/FileProgress.h"
#include "files/NumberLines.h"
#include "frame/KeyFilter.h"
#include "frame/StringFunc.h"

#include <cstddef>
#include <limits>

// ".DRIG" format: every value on a line of its own, in this order:
//
//    4096        Dots
//    100000      Rate, bits per second
//    1           CaliperDefault
//    1           NodeCount
//    2           ChannelCount, the sum of the widths
//    3           SampleCount
//    0           Reserved1
//    0           sample words, bit n is channel n
//    1
//    3
//    1           a block for each node: Radix
//    1           IsBus
//    2           Width
//    0           Expanded
//   D1           Name
//    0           StartNumber
//    0           Row
//    3           DataLength
//    0           a line for each channel, the most significant first
//    1
//
// The reader takes values apart at blanks, commas and line ends, whichever and however many.

namespace {

constexpr std::size_t LongestWord = 14;    // bytes of " 2147483647 \r\n"
constexpr std::size_t BytesPerNode = 512;  // as a rule

constexpr std::int32_t MostSamples = 16777216;
constexpr std::int32_t MostWords = 0xFFFF;
constexpr std::int32_t LastRadix = 3, LastChannel = MaxChannels - 1;
constexpr std::int64_t ValuesPerNode = 9, BytesPerValue = 2;  // at least: a separator and a digit

bool IsSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
bool IsSeparator(char c) {
    return c == ',' || IsSpace(c);
}

void SkipSeparators(NumberLines& in) {
    while (in.At != in.End && IsSeparator(*in.At)) ++in.At;
}

bool TakeValue(NumberLines& in, double& value) {
    SkipSeparators(in);
    return TakeBareNumber(in, value) && (in.At == in.End || IsSeparator(*in.At));
}

// A whole number from `low` to `high`, at most all that its type can hold.
template <typename Whole>
bool TakeWhole(NumberLines& in, Whole& whole, std::int32_t low = std::numeric_limits<Whole>::min(),
               std::int32_t high = std::numeric_limits<Whole>::max()) {
    double value = 0.0;
    if (!TakeValue(in, value) || !(value >= low && value <= high)) return false;
    whole = static_cast<Whole>(value);
    return whole == value;
}

bool TakeFlag(NumberLines& in, Flag& flag) {
    std::int16_t value = 0;
    const bool read = TakeWhole(in, value);
    flag = value != 0;  // files of old have -1, ours 1
    return read;
}

bool TakeName(NumberLines& in, std::string& name) {
    SkipSeparators(in);
    const char* const begin = in.At;
    while (in.At != in.End && !IsSeparator(*in.At)) ++in.At;
    const std::string_view text(begin, in.At);
    if (text.empty() || text.size() > LongestNodeName) return false;
    name = text;
    return AcceptsText(KeyKind::WaveName, text);
}

struct Counts {
    std::uint8_t Nodes = 0, Channels = 0;
    std::int32_t Samples = 0;
};

// The counts must fit what is left of the file before they ask for memory.
bool TakeHeader(NumberLines& in, LoadedDigit& content, Counts& counts) {
    const bool read =
        TakeWhole(in, content.Dots, 1, LargestCapacity) && TakeValue(in, content.Rate) &&
        TakeWhole(in, content.CaliperDefault, 0) && TakeWhole(in, counts.Nodes, 0, MaxChannels) &&
        TakeWhole(in, counts.Channels, 0, MaxChannels) &&
        TakeWhole(in, counts.Samples, 0, MostSamples) && TakeWhole(in, content.Reserved1);
    if (!read || !(content.Rate >= MinDigitRate && content.Rate <= MaxDigitRate)) return false;
    const std::int64_t values = counts.Samples + counts.Nodes * ValuesPerNode;
    return values * BytesPerValue <= in.End - in.At;
}

bool TakeSamples(NumberLines& in, std::int32_t count, std::vector<std::int32_t>& words) {
    const FileProgress progress(count);
    words.resize(static_cast<std::size_t>(count));
    for (std::int32_t i = 0; i < count; ++i) {
        ReportDot(progress, i);
        std::int32_t word = 0;
        if (!TakeWhole(in, word)) return false;
        words[static_cast<std::size_t>(i)] = word & MostWords;
    }
    return true;
}

// `channels` has a bit for each channel of the nodes before.
bool TakeChannels(NumberLines& in, DigitNode& node, std::int32_t& channels) {
    for (std::size_t k = 0; k < static_cast<std::size_t>(node.Width); ++k) {
        if (!TakeWhole(in, node.Channels[k], 0, LastChannel)) return false;
        const std::int32_t bit = 1 << node.Channels[k];
        if ((channels & bit) != 0) return false;
        channels |= bit;
    }
    return true;
}

bool TakeNode(NumberLines& in, std::int32_t sampleCount, DigitNode& node, std::int32_t& channels) {
    const bool read = TakeWhole(in, node.Radix, 0, LastRadix) && TakeFlag(in, node.IsBus) &&
                      TakeWhole(in, node.Width, 1, MaxChannels) && TakeFlag(in, node.Expanded) &&
                      TakeName(in, node.Name) &&
                      TakeWhole(in, node.StartNumber, 0, MaxStartNumber) &&
                      TakeWhole(in, node.Row) && TakeWhole(in, node.DataLength, 0, sampleCount) &&
                      TakeChannels(in, node, channels);
    node.IsBus = node.Width > 1;
    node.Expanded = node.Expanded && node.IsBus;
    return read;
}

bool TakeNodes(NumberLines& in, const Counts& counts, std::vector<DigitNode>& nodes) {
    std::int32_t channels = 0, width = 0;
    nodes.assign(counts.Nodes, DigitNode());
    for (DigitNode& node : nodes) {
        if (!TakeNode(in, counts.Samples, node, channels)) return false;
        width += node.Width;
    }
    return width == counts.Channels;
}

bool TakeEnd(NumberLines& in) {
    while (in.At != in.End && IsSpace(*in.At)) ++in.At;
    return in.At == in.End;
}

void AppendNodeLines(std::string& to, const DigitNode& node) {
    AppendFieldLine(to, node.Radix);
    AppendFieldLine(to, node.IsBus ? 1 : 0);
    AppendFieldLine(to, node.Width);
    AppendFieldLine(to, node.Expanded ? 1 : 0);
    to.append(node.Name).append(LineEnd);
    AppendFieldLine(to, node.StartNumber);
    AppendFieldLine(to, node.Row);
    AppendFieldLine(to, node.DataLength);
    for (std::size_t k = 0; k < static_cast<std::size_t>(node.Width); ++k)
        AppendFieldLine(to, node.Channels[k]);
}

}  // namespace

std::string WriteDigitText(const DigitDocument& document) {
    const FileProgress progress(document.SampleCount);
    const auto samples = static_cast<std::size_t>(document.SampleCount);
    std::string text;
    text.reserve(samples * LongestWord + (document.NodeCount + 1U) * BytesPerNode);
    AppendFieldLine(text, document.Dots);
    AppendFieldLine(text, document.Rate);
    AppendFieldLine(text, document.CaliperDefault);
    AppendFieldLine(text, document.NodeCount);
    AppendFieldLine(text, document.ChannelCount);
    AppendFieldLine(text, document.SampleCount);
    AppendFieldLine(text, document.Reserved1);
    char line[2 * NumberWidth];
    for (std::int32_t i = 0; i < document.SampleCount; ++i) {
        ReportDot(progress, i);
        const std::int32_t word = document.DigitSamples[static_cast<std::size_t>(i)];
        text.append(line, WriteLineEnd(WriteWholeField(line, word)));
    }
    for (const DigitNode& node : document.Nodes) AppendNodeLines(text, node);
    return text;
}

bool ReadDigitText(std::string_view bytes, LoadedDigit& content) {
    NumberLines in = OpenNumberLines(bytes);
    Counts counts;
    return TakeHeader(in, content, counts) &&
           TakeSamples(in, counts.Samples, content.DigitSamples) &&
           TakeNodes(in, counts, content.Nodes) && TakeEnd(in);
}
