#include "kernel/wavecalc.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

// Channels of sample words. The loops over words are plain ones that the compiler turns into vector
// code; what they need of the channel lists is made first: a mask, shifts, or tables.
//
// Counting spreads a count to its channels by two tables, of its low and of its high eight bits. On
// channels {4, 2, 0} the count 6 = 110 becomes 10100: channel 4 has the weight 4, channel 2 has 2.
// CopyPasteData gathers the channels that move by the same number of bits, so that a copy to the
// same channels is one step and any other at most 16, in memory that the processor has at hand.

namespace {

constexpr std::int32_t WordChannels = 16;
constexpr std::int32_t WordMask = 0xFFFF;
constexpr std::int32_t BlockWords = 256;  // of a copy
constexpr std::int32_t SearchWords = 32;  // between two looks whether a search is over

constexpr std::int32_t BitOf(std::int32_t channel) {
    return std::int32_t{1} << channel;
}

// One bit for each channel of a list; 0 for a list that cannot be used.
template <typename Channel>
std::int32_t MaskOfList(const Channel* channels, std::int32_t count) {
    if (!channels || count < 1 || count > WordChannels) return 0;
    std::int32_t mask = 0;
    for (std::int32_t j = 0; j < count; ++j) {
        const std::int32_t channel = channels[j];
        if (channel < 0 || channel >= WordChannels) return 0;
        mask |= BitOf(channel);
    }
    return mask;
}

bool CanWrite(const std::int32_t* words, std::int32_t count, std::uint8_t bit) {
    return words && count > 0 && bit < WordChannels;
}

// --- counting ----------------------------------------------------------------------------------

struct SpreadTables {
    std::int32_t Low[256], High[256];
};

// Entry i has the bits of all the weights in i: one of them, and those of a smaller entry.
void FillTable(std::int32_t (&table)[256], const std::int32_t* bitOfWeight) {
    table[0] = 0;
    for (std::uint32_t i = 1; i < 256; ++i)
        table[i] = table[i & (i - 1)] | bitOfWeight[std::countr_zero(i)];
}

SpreadTables MakeTables(const std::uint8_t* channels, std::int32_t count) {
    std::int32_t bitOfWeight[WordChannels] = {};
    for (std::int32_t j = 0; j < count; ++j) bitOfWeight[count - 1 - j] = BitOf(channels[j]);
    SpreadTables tables;
    FillTable(tables.Low, bitOfWeight);
    FillTable(tables.High, bitOfWeight + 8);
    return tables;
}

std::int32_t Spread(const SpreadTables& tables, std::int64_t value) {
    return tables.Low[value & 0xFF] | tables.High[value >> 8 & 0xFF];
}

// --- copying -----------------------------------------------------------------------------------

// A group of channels that all move by Shift bits, up where it is above 0.
struct ChannelMove {
    std::int32_t SourceMask, Shift;
};

// The moves of a copy; where several channels go to one, the last one stands. Returns their number.
std::int32_t MakeMoves(const std::int16_t* sources, const std::int16_t* targets, std::int32_t count,
                       ChannelMove* moves) {
    std::int32_t sourceOf[WordChannels];
    std::fill_n(sourceOf, WordChannels, -1);
    for (std::int32_t j = 0; j < count; ++j) sourceOf[targets[j]] = sources[j];
    std::int32_t made = 0;
    for (std::int32_t shift = 1 - WordChannels; shift < WordChannels; ++shift) {
        std::int32_t mask = 0;
        for (std::int32_t target = 0; target < WordChannels; ++target)
            if (sourceOf[target] >= 0 && target - sourceOf[target] == shift)
                mask |= BitOf(sourceOf[target]);
        if (mask) moves[made++] = {mask, shift};
    }
    return made;
}

void AddMove(const std::int32_t* source, std::int32_t* result, std::int32_t count,
             ChannelMove move) {
    const auto [mask, shift] = move;
    if (shift >= 0)
        for (std::int32_t i = 0; i < count; ++i) result[i] |= (source[i] & mask) << shift;
    else
        for (std::int32_t i = 0; i < count; ++i) result[i] |= (source[i] & mask) >> -shift;
}

// --- searching ---------------------------------------------------------------------------------

// The bits in which any of the words differs from `word`.
std::int32_t Differences(const std::int32_t* words, std::int64_t count, std::int32_t word) {
    std::int32_t found = 0;
    for (std::int64_t i = 0; i < count; ++i) found |= words[i] ^ word;
    return found;
}

std::int32_t HoldDot(double dot, std::int32_t dots) {
    return std::isnan(dot) ? 0 : static_cast<std::int32_t>(std::clamp(dot, 0.0, dots - 1.0));
}

}  // namespace

void Dealvalue(int32_t* Words, int32_t Count, uint8_t Bit, int32_t Mask, int32_t Value) {
    if (!CanWrite(Words, Count, Bit)) return;
    const std::int32_t bits = Value & 1 ? BitOf(Bit) : 0;
    for (std::int32_t i = 0; i < Count; ++i) Words[i] = (Words[i] & Mask) | bits;
}

void Dealinv(int32_t* Words, int32_t Count, uint8_t Bit, int32_t Mask) {
    if (!CanWrite(Words, Count, Bit)) return;
    const std::int32_t bits = BitOf(Bit);
    for (std::int32_t i = 0; i < Count; ++i) Words[i] = (Words[i] & Mask) | (~Words[i] & bits);
}

void DealClock(int32_t* Words, int32_t Count, uint8_t Bit, int32_t Mask) {
    if (!CanWrite(Words, Count, Bit)) return;
    for (std::int32_t i = 0; i < Count; ++i) Words[i] = (Words[i] & Mask) | (i & 1) << Bit;
}

void Counting(int32_t* Words, int32_t Count, int32_t Start, int32_t Maximum, int32_t Increment,
              int32_t Interval, const uint8_t* Channels, int16_t ChannelCount) {
    const std::int32_t channels = MaskOfList(Channels, ChannelCount);
    if (!Words || Count < 1 || !channels || Maximum < 0) return;
    const SpreadTables tables = MakeTables(Channels, ChannelCount);
    const std::int64_t first = Start & Maximum;
    const std::int64_t increment = std::max(Increment, 0), interval = std::max(Interval, 1);
    std::int64_t value = first;
    for (std::int64_t i = 0; i < Count;) {
        const std::int32_t bits = Spread(tables, value);
        const std::int64_t end = std::min<std::int64_t>(i + interval, Count);
        for (; i < end; ++i) Words[i] = (Words[i] & ~channels) | bits;
        value = value + increment > Maximum ? first : value + increment;
    }
}

void CopyPasteData(const int32_t* SourceWords, int32_t* TargetWords, int32_t Count,
                   const int16_t* SourceChannels, const int16_t* TargetChannels,
                   int16_t ChannelCount) {
    const std::int32_t written = MaskOfList(TargetChannels, ChannelCount);
    if (!SourceWords || !TargetWords || Count < 1) return;
    if (!written || !MaskOfList(SourceChannels, ChannelCount)) return;
    ChannelMove moves[WordChannels];
    const std::int32_t moveCount = MakeMoves(SourceChannels, TargetChannels, ChannelCount, moves);
    std::int32_t source[BlockWords], result[BlockWords];
    for (std::int64_t start = 0; start < Count; start += BlockWords) {
        const auto length =
            static_cast<std::int32_t>(std::min<std::int64_t>(BlockWords, Count - start));
        std::copy_n(SourceWords + start, length, source);
        for (std::int32_t i = 0; i < length; ++i) result[i] = TargetWords[start + i] & ~written;
        for (std::int32_t m = 0; m < moveCount; ++m) AddMove(source, result, length, moves[m]);
        std::copy_n(result, length, TargetWords + start);
    }
}

int32_t GetBusDifPos(const int32_t* Words, int32_t FromDot, int32_t Dots, const uint8_t* Channels,
                     int16_t Width) {
    const std::int32_t mask = MaskOfList(Channels, Width);
    if (!Words || !mask || FromDot < 0 || FromDot >= Dots) return Dots;
    const std::int32_t word = Words[FromDot];
    std::int32_t dot = FromDot + 1;
    while (Dots - dot >= SearchWords && !(Differences(Words + dot, SearchWords, word) & mask))
        dot += SearchWords;
    while (dot < Dots && !((Words[dot] ^ word) & mask)) ++dot;
    return dot;
}

void GetLinkOnePixel(const int32_t* Words, double FirstDot, double LastDot, uint8_t Bit,
                     int32_t Dots, uint8_t* Result) {
    if (!Result) return;
    *Result = 0;
    if (!Words || Dots < 1 || Bit >= WordChannels) return;
    const std::int32_t first = HoldDot(FirstDot, Dots), last = HoldDot(LastDot, Dots);
    const std::int64_t behind = static_cast<std::int64_t>(last) - first;
    *Result = Differences(Words + first, behind + 1, Words[first]) >> Bit & 1;
}

void GetColumnChanges(const int32_t* Words, int32_t Dots, const int32_t* FirstDots, int32_t Columns,
                      int32_t* Changed) {
    if (!FirstDots || !Changed || Columns < 1) return;
    const std::int32_t dots = Words ? std::max(Dots, 0) : 0;
    const std::int32_t start = std::max(FirstDots[0], 0);
    std::int32_t first = start;
    std::int32_t before = 0;  // the word of the dot before a column
    for (std::int32_t c = 0; c < Columns; ++c) {
        const std::int32_t next = std::max(FirstDots[c + 1], first);
        const std::int32_t end = std::min(next, dots);
        std::int32_t changed = 0;
        if (first < end) {
            if (first == start) before = Words[first];
            changed = Differences(Words + first, end - first, before);
            before = Words[end - 1];
        }
        if (next > dots) {
            changed |= before;
            before = 0;
        }
        Changed[c] = changed & WordMask;
        first = next;
    }
}
