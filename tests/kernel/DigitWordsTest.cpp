#include "kernel/wavecalc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using Words = std::vector<std::int32_t>;
using Channels = std::vector<std::uint8_t>;

// The traces of channels over the last eight words but one, after a change of all but the first and
// the last word. These two and the channels that are not written must be as before.
template <typename Change>
std::string Traces(const Words& before, const Channels& written, Change change) {
    Words words = before;
    change(words.data() + 1, static_cast<int>(words.size()) - 2);
    std::string traces;
    std::int32_t mask = 0;
    for (const std::uint8_t channel : written) {
        mask |= 1 << channel;
        if (channel != written[0]) traces += ' ';
        for (auto word = words.end() - 9; word < words.end() - 1; ++word)
            traces += *word >> channel & 1 ? '1' : '0';
    }
    for (std::size_t i = 0; i < words.size(); ++i)
        EXPECT_EQ((words[i] ^ before[i]) & (i % (words.size() - 1) != 0 ? ~mask : -1), 0) << i;
    return traces;
}

const Words OddWords = {9, -1, -1, 0, 0, -1, 0, -1, 0, 9};  // 11001010 in all channels

TEST(DigitWords, WriteOneChannel) {
    for (std::uint8_t bit = 0; bit < 16; bit += 5) {
        const auto trace = [&](auto write, auto... value) {
            return Traces(OddWords, {bit}, [&](auto* words, int count) {
                write(words, count, bit, ~(1 << bit), value...);
            });
        };
        EXPECT_EQ(trace(Dealvalue, 1), "11111111");
        EXPECT_EQ(trace(Dealvalue, 0), "00000000");
        EXPECT_EQ(trace(Dealinv), "00110101");
        EXPECT_EQ(trace(DealClock), "01010101");
    }
}

TEST(DigitWords, CountUp) {
    const auto count = [](int start, int maximum, int increment, int interval, Channels channels) {
        return Traces(OddWords, channels, [&](auto* words, int dots) {
            Counting(words, dots, start, maximum, increment, interval, channels.data(),
                     static_cast<std::int16_t>(channels.size()));
        });
    };
    EXPECT_EQ(count(0, 7, 1, 1, {12, 3, 7}), "00001111 00110011 01010101");
    EXPECT_EQ(count(2, 3, 1, 1, {0, 1}), "11111111 01010101");
    EXPECT_EQ(count(6, 3, 1, 1, {8, 9}), "11111111 01010101");
    EXPECT_EQ(count(1, 3, 1, 3, {15, 0}), "00011111 11100011");
    EXPECT_EQ(count(0, 7, 3, 1, {4, 5, 6}), "00100100 01101101 01001001");
    EXPECT_EQ(count(1, 3, INT32_MAX, 1, {5, 4}), "00000000 11111111");
    EXPECT_EQ(count(1, 3, -4, INT32_MAX, {5, 4}), "00000000 11111111");
    EXPECT_EQ(count(255, 511, 1, 4, {0, 1, 2, 3, 4, 5, 6, 7, 8}).substr(0, 17),
              "00001111 11110000");
    EXPECT_EQ(count(0, -1, 1, 1, {0}), "11001010");
    EXPECT_EQ(count(0, 3, 1, 1, {0, 16}).substr(0, 8), "11001010");
    EXPECT_EQ(count(0, 1, 1, 1, Channels(17)).substr(0, 8), "11001010");
}

TEST(DigitWords, CopyChannels) {
    Words source(602);  // again and again: 0011 in channel 0, 0101 in channel 1, 1000 in channel 15
    for (int i = 0; i < 600; ++i) source[i + 1] = (i & 2) / 2 + (i & 1) * 2 + (i & 3 ? 0 : 0x8000);
    const auto copy = [&](bool same, std::vector<std::int16_t> from, std::vector<std::int16_t> to) {
        return Traces(source, {0, 1, 2}, [&](auto* words, int count) {
            CopyPasteData(same ? words : source.data() + 1, words, count, from.data(), to.data(),
                          static_cast<std::int16_t>(to.size()));
        });
    };
    EXPECT_EQ(copy(false, {0, 1, 15}, {0, 1, 2}), "00110011 01010101 10001000");
    EXPECT_EQ(copy(false, {15, 1, 0}, {0, 0, 2}), "01010101 01010101 00110011");
    EXPECT_EQ(copy(true, {0, 1}, {1, 0}), "01010101 00110011 00000000");
    EXPECT_EQ(copy(true, {0, 1}, {1, 2}), "00110011 00110011 01010101");
    EXPECT_EQ(copy(false, {0, -1}, {1, 2}), "00110011 01010101 00000000");
    EXPECT_EQ(copy(false, {0, 1}, {2, 16}), "00110011 01010101 00000000");
}

TEST(DigitWords, FindTheNextChangeOfABus) {
    const std::uint8_t bus[] = {15, 0};
    for (int change = 1; change <= 100; ++change) {  // 100: none
        Words words(100);
        for (int i = 0; i < 100; ++i) words[i] = 2 * i | (i < change ? 0 : 0x8000);
        EXPECT_EQ(GetBusDifPos(words.data(), 0, 100, bus, 2), change);
        EXPECT_EQ(GetBusDifPos(words.data(), change - 1, 100, bus, 2), change);
        EXPECT_EQ(GetBusDifPos(words.data(), change, 100, bus, 2), 100);
    }
}

TEST(DigitWords, SeeAChangeInAPixel) {
    const Words words = {0x200, 0x3FF, 0x200, 0x1FF, 0x1FF, 0};  // channel 9: 111000
    const double spans[][2] = {{2, 3}, {-1e300, 1e300}, {NAN, 3}, {.9, 2.99}, {3, 1e300}, {4, 2}};
    for (const auto& span : spans) {
        std::uint8_t result = 7;
        GetLinkOnePixel(words.data(), span[0], span[1], 9, 6, &result);
        EXPECT_EQ(result, &span < spans + 3) << &span - spans;  // the first three
    }
}

TEST(DigitWords, SeeTheChangesOfColumns) {
    std::mt19937 source(3);
    const auto random = [&](int below) { return static_cast<int>(source() % below); };
    for (int run = 0; run < 500; ++run) {
        const int dots = random(300), columns = 1 + random(20);
        Words words(400);  // those behind the dots stay 0
        std::generate_n(words.begin(), dots, [&] { return random(4) ? 5 : random(0x10000); });
        Words firstDots{random(100)}, changed(columns, -1), expected(columns);
        for (int c = 0; c < columns; ++c) {
            firstDots.push_back(firstDots[c] + random(1 + run % 15));  // some have no dot
            for (int dot = firstDots[c]; dot < firstDots[c + 1]; ++dot)
                if (dot > firstDots[0]) expected[c] |= words[dot] ^ words[dot - 1];
        }
        // Memory that holds the words of the columns and no other.
        const int first = std::min(firstDots[0], dots);
        const int count = std::min(firstDots[columns], dots) - first;
        const std::unique_ptr<std::int32_t[]> exact(new std::int32_t[count]);
        std::copy_n(words.begin() + first, count, exact.get());
        GetColumnChanges(exact.get() - first, dots, firstDots.data(), columns, changed.data());
        ASSERT_EQ(changed, expected) << run;
    }
}

}  // namespace
