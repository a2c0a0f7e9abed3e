#include "kernel/wavecalc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <set>
#include <utility>
#include <vector>

extern "C" int RunFromC(void);

namespace {

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

// Few levels, so that most extremes stand at several dots.
std::vector<WaveDot> MakeSteps(std::size_t count, int levels, std::mt19937& random) {
    std::vector<WaveDot> dots(count);
    for (std::size_t i = 0; i < count; ++i)
        dots[i] = {static_cast<double>(i), static_cast<double>(random() % levels) / levels * 2 - 1};
    return dots;
}

TEST(CInterface, ServesC) {
    EXPECT_EQ(RunFromC(), 0);
}

TEST(MaxMin, FindsTheFirstExtremesOfAnyLength) {
    std::mt19937 random(5);
    for (std::size_t count = 1; count < 600; ++count) {
        const auto dots = MakeSteps(count, count % 2 ? 7 : 100000, random);
        std::size_t max = 0, min = 0;
        for (std::size_t i = 1; i < count; ++i) {
            if (dots[i].Y > dots[max].Y) max = i;
            if (dots[i].Y < dots[min].Y) min = i;
        }
        std::int32_t maxPos = -1, minPos = -1;
        double maxY = 9, minY = 9;
        MaxMin(dots.data(), 77, static_cast<int>(count), &maxPos, &minPos, &maxY, &minY);
        ASSERT_EQ(maxPos, max) << count;
        ASSERT_EQ(minPos, min) << count;
        ASSERT_EQ(maxY, dots[max].Y);
        ASSERT_EQ(minY, dots[min].Y);
    }
}

TEST(MaxMin, PassesOverWhatIsNoNumber) {
    const WaveDot dots[] = {{0, NotANumber}, {1, -3}, {2, NotANumber}, {3, -4}};
    std::int32_t maxPos = -1, minPos = -1;
    double maxY = 9, minY = 9;
    MaxMin(dots, 0, 4, &maxPos, nullptr, nullptr, &minY);
    EXPECT_EQ(maxPos, 1);
    EXPECT_EQ(minY, -4);
    for (const int count : {1, 0, -5}) {
        maxPos = minPos = -1, maxY = minY = 9;
        MaxMin(dots, 0, count, &maxPos, &minPos, &maxY, &minY);
        EXPECT_TRUE(maxPos == 0 && minPos == 0 && maxY == 0 && minY == 0) << count;
    }
}

struct View {
    int first, last, width, height;
    double top, bottom;
    int start, end;
};
const View views[] = {
    {0, 2999, 80, 60, 1, -1, 0, 2999},           // many dots a column
    {0, 2999, 7, 3, 1, -1, 0, 2999},             // more dots than pixels
    {100, 140, 800, 300, 0.5, -0.25, 100, 140},  // many columns a dot, clipped above and below
    {-5, 2999, 33, 2001, 1, -1, 500, 1500},      // dots before and behind the view
    {0, 90, 10, 5, -1, 1, 0, 100},               // upside down, px of .5, wave shorter than view
    {0, 2999, 1, 1, 1, -1, 0, 2999},
    {0, 2999, 50, 40, 1, -1, -1000, 2000},  // view begins before the wave
};

TEST(PlotWaveDot, CoversExactlyThePixelsOfTheFormula) {
    std::mt19937 random(5);
    for (const View& v : views) {
        const auto dots = MakeSteps(3000, 1000, random);
        std::set<std::pair<int, int>> expected;
        for (int i = std::max(v.first, 0); i <= v.last; ++i) {
            double x =
                std::nearbyint(static_cast<double>(i - v.start) / (v.end - v.start) * v.width);
            if (i <= v.end && x == v.width) x = v.width - 1;  // the last half column
            const double level = dots[static_cast<std::size_t>(i)].Y;
            const double y = std::nearbyint((v.top - level) / (v.top - v.bottom) * (v.height - 1));
            if (x >= 0 && x < v.width && y >= 0 && y < v.height)
                expected.emplace(static_cast<int>(x), static_cast<int>(y));
        }
        const auto room = static_cast<std::size_t>(
            std::min(v.last - std::max(v.first, 0) + 1, v.width * v.height));
        std::vector<std::int32_t> pixels(2 * room);  // exactly what is promised to suffice
        const int pairs = PlotWaveDot(dots.data(), pixels.data(), v.first, v.last, v.width,
                                      v.height, v.top, v.bottom, v.start, v.end);
        ASSERT_EQ(static_cast<std::size_t>(pairs), expected.size()) << "width " << v.width;
        for (int k = 0; k < pairs; ++k)
            ASSERT_EQ(expected.erase({pixels[2 * k], pixels[2 * k + 1]}), 1u) << "pair " << k;
    }
}

TEST(PlotWaveDot, HasNothingToShow) {
    const WaveDot dots[] = {{0, 0}, {1, NotANumber}, {2, 1e308}};
    std::int32_t pixels[6];
    const View nothing[] = {{0, 2, 0, 9, 1, -1, 0, 2}, {0, 2, 9, 0, 1, -1, 0, 2},
                            {0, 2, 9, 9, 1, 1, 0, 2},  {0, 2, 9, 9, 1, -1, 2, 2},
                            {2, 1, 9, 9, 1, -1, 0, 2}, {1, 2, 9, 9, 1, -1, 0, 2}};
    for (const View& v : nothing)
        EXPECT_EQ(PlotWaveDot(dots, pixels, v.first, v.last, v.width, v.height, v.top, v.bottom,
                              v.start, v.end),
                  0);
}

struct SpreadRow {
    int lastIndex, again;
    std::vector<std::uint16_t> spread;
};
const SpreadRow spreads[] = {
    {2, 2, {10, 10, 10, 11, 11, 12, 12}},  // floor(3 j / 7)
    {2, 2, {10, 11, 12}},
    {4, 4, {10, 12, 14}},
    {3, 3, {10, 12, 13}},  // 1.5 goes to the even 2
    {0, 0, {10, 10}},
    {4, 4, {10}},
    {4, 1, {10, 10, 11, 11}},
    {-1, -1, {0, 0}},
    {4, 4, {}},
};

TEST(StoInitArbConstruct, HoldsOrLeavesOutCodes) {
    const std::uint16_t codes[] = {10, 11, 12, 13, 14};
    for (const SpreadRow& row : spreads) {
        std::vector<std::uint16_t> spread(row.spread.size());
        stoInitArbConstruct(spread.data(), codes, row.lastIndex, 1, row.again,
                            static_cast<int>(spread.size()));
        EXPECT_EQ(spread, row.spread);
    }
}

}  // namespace
