#include "kernel/wavecalc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

extern "C" int RunFromC(void);

namespace {

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

// Few levels, so that most extremes stand at several dots.
std::vector<WaveDot> MakeSteps(int count, int levels, std::mt19937& random) {
    std::vector<WaveDot> dots(count);
    for (int i = 0; i < count; ++i)
        dots[i] = {static_cast<double>(i), static_cast<double>(random() % levels) / levels * 2 - 1};
    return dots;
}

TEST(CInterface, ServesC) {
    EXPECT_EQ(RunFromC(), 1);
}

TEST(MaxMin, FindsTheFirstExtremesAmongNumbers) {
    std::mt19937 random(5);
    std::int32_t maxPos, minPos;
    double maxY, minY;
    for (int count = 2; count < 600; ++count) {
        auto dots = MakeSteps(count, count % 2 ? 7 : 100000, random);
        int max = 0, min = 0;
        for (int i = 0; i < count; ++i) {
            if (i % 5 == 0) dots[i].Y = NotANumber;
            if (dots[i].Y > dots[max].Y || max == 0) max = i;
            if (dots[i].Y < dots[min].Y || min == 0) min = i;
        }
        MaxMin(dots.data(), 77, count, &maxPos, &minPos, &maxY, &minY);
        ASSERT_TRUE(maxPos == max && minPos == min) << count;
        ASSERT_TRUE(maxY == dots[max].Y && minY == dots[min].Y) << count;
    }
    const WaveDot none[] = {{0, NotANumber}};
    for (const int count : {1, 0, -5}) {
        MaxMin(none, 0, count, &maxPos, nullptr, nullptr, &minY);
        EXPECT_TRUE(maxPos == 0 && minY == 0) << count;
        maxPos = -1, minY = 9;
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
    {0, 2999, 50, 40, 1, -1, -1000, 2000},       // view begins before the wave
};

int Plot(const std::vector<WaveDot>& dots, std::vector<std::int32_t>& pixels, const View& v) {
    return PlotWaveDot(dots.data(), pixels.data(), v.first, v.last, v.width, v.height, v.top,
                       v.bottom, v.start, v.end);
}

TEST(PlotWaveDot, CoversExactlyThePixelsOfTheFormula) {
    std::mt19937 random(5);
    for (const View& v : views) {
        const auto dots = MakeSteps(3000, 1000, random);
        std::set<std::pair<double, double>> expected;
        for (int i = std::max(v.first, 0); i <= v.last; ++i) {
            double x = std::nearbyint(double(i - v.start) / (v.end - v.start) * v.width);
            if (i <= v.end && x == v.width) x = v.width - 1;  // the last half column
            const double level = (v.top - dots[i].Y) / (v.top - v.bottom);
            const double y = std::nearbyint(level * (v.height - 1));
            if (x >= 0 && x < v.width && y >= 0 && y < v.height) expected.emplace(x, y);
        }
        const int room = std::min(v.last - std::max(v.first, 0) + 1, v.width * v.height);
        // exactly what is promised to suffice
        std::vector<std::int32_t> pixels(std::size_t(2) * room);
        const int pairs = Plot(dots, pixels, v);
        ASSERT_EQ(pairs, std::ssize(expected)) << "width " << v.width;
        for (int k = 0; k < pairs; ++k)
            ASSERT_EQ(expected.erase({pixels[std::size_t(2) * k], pixels[std::size_t(2) * k + 1]}),
                      1u)
                << "pair " << k;
    }
}

TEST(PlotWaveDot, HasNothingToShow) {
    const std::vector<WaveDot> dots = {{0, 0}, {1, NotANumber}, {2, 1e308}};
    std::vector<std::int32_t> pixels(6);
    const View nothing[] = {{0, 2, 0, 9, 1, -1, 0, 2}, {0, 2, 9, 0, 1, -1, 0, 2},
                            {0, 2, 9, 9, 1, 1, 0, 2},  {0, 2, 9, 9, 1, -1, 2, 2},
                            {2, 1, 9, 9, 1, -1, 0, 2}, {1, 2, 9, 9, 1, -1, 0, 2}};
    for (const View& v : nothing) EXPECT_EQ(Plot(dots, pixels, v), 0);
}

TEST(StoInitArbConstruct, HoldsOrLeavesOutCodes) {
    using Codes = std::vector<std::uint16_t>;
    const Codes codes = {10, 11, 12, 13, 14};
    const std::tuple<int, int, Codes> rows[] = {
        {2, 2, {10, 10, 10, 11, 11, 12, 12}},  // floor(3 j / 7)
        {2, 2, {10, 11, 12}},
        {4, 4, {10, 12, 14}},
        {3, 3, {10, 12, 13}},  // 1.5 goes to the even 2
        {4, 4, {10}},
        {4, 1, {10, 10, 11, 11}},
        {-1, -1, {0, 0}},
        {4, 4, {}}};
    for (const auto& [last, again, expected] : rows) {
        Codes spread(expected.size());
        stoInitArbConstruct(spread.data(), codes.data(), last, 1, again,
                            static_cast<int>(spread.size()));
        EXPECT_EQ(spread, expected);
    }
}

}  // namespace
