#include "kernel/wavecalc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <random>
#include <thread>
#include <vector>

namespace {

using Dots = std::vector<WaveDot>;
constexpr double Pi = std::numbers::pi;

Dots MakeNoise(int count) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> level(-1, 1);
    Dots dots(count);
    for (WaveDot& dot : dots) dot = {level(random), level(random)};
    return dots;
}

void LowPass(Dots& dots, int taps, double cutOff) {
    Fir_Calculate(dots.data(), static_cast<int>(dots.size()), taps, cutOff, 4);
}

// The definition, tap by tap.
std::vector<double> MakeTaps(int half, double cutOff) {
    std::vector<double> taps;
    double sum = 0.0;
    for (int k = -half; k <= half; ++k) {
        const double x = Pi * cutOff * k, place = static_cast<double>(k) / half;
        const double window = std::cyl_bessel_i(0.0, 5.65326 * std::sqrt(1 - place * place));
        taps.push_back(window * (x == 0.0 ? 1.0 : std::sin(x) / x));
        sum += taps.back();
    }
    for (double& tap : taps) tap /= sum;
    return taps;
}

struct Row {
    int count, taps, half;
    double cutOff, meant;  // as given; the one that counts
};
constexpr double Infinite = std::numeric_limits<double>::infinity();
const Row rows[] = {
    {1, 9, 4, 0.5, 0.5},
    {2, 9, 4, 0.5, 0.5},
    {3, 3, 1, 0.9, 0.9},
    {3, 101, 50, 0.2, 0.2},
    {5, 4, 1, 0.3, 0.3},
    {64, 63, 31, 0.1, 0.1},
    {99, 64, 31, 0.2, 0.2},
    {40, 999, 499, 0.05, 0.05},
    {300, 51, 25, -1.0, 0.0},
    {90, 9, 4, 7.0, 1.0},
    {90, 9, 4, Infinite, 0.0},
    {90, 9, 4, std::nan(""), 0.0},
    {3000, 2999, 1499, 0.01, 0.01},         // one transform
    {120000, 119999, 59999, 0.001, 0.001},  // and one in place
    {50000, 101, 50, 0.1, 0.1},
    {9000, 301, 150, 0.07, 0.07},  // the last block not full
};

TEST(FirFilter, IsTheConvolutionWithTheEndsContinued) {
    for (const Row& row : rows) {
        const Dots dots = MakeNoise(row.count);
        const std::vector<double> taps = MakeTaps(row.half, row.meant);
        Dots filtered = dots;
        LowPass(filtered, row.taps, row.cutOff);
        const int apart = 1 + row.count / 50000 * row.taps / 100;
        for (int i = 0; i < row.count; i += apart) {
            double sum = 0.0;
            for (int k = -row.half; k <= row.half; ++k)
                sum += taps[k + row.half] * dots[std::clamp(i + k, 0, row.count - 1)].Y;
            ASSERT_NEAR(filtered[i].Y, sum, 1e-12)
                << row.count << " by " << row.taps << " at " << i;
            ASSERT_EQ(filtered[i].X, dots[i].X);
        }
    }
}

// In the middle, away from the ends: the part in phase, and the part a quarter of a period behind.
TEST(FirFilter, PassesSlowSinesUndelayedAndStopsQuickOnes) {
    constexpr int Middle = 2000;
    for (const auto& [count, taps] : {std::pair{6000, 3999}, std::pair{50000, 999}}) {
        for (const auto& [period, pass] : {std::pair{80, 1.0}, std::pair{10, 0.0}}) {
            const double turn = 2 * Pi / period;
            Dots dots(count);
            for (int i = 0; i < count; ++i) dots[i].Y = std::sin(turn * i);
            LowPass(dots, taps, 0.1);  // a period of 20 dots
            double inPhase = 0.0, behind = 0.0;
            for (int i = Middle; i < 2 * Middle; ++i) {
                inPhase += 2 * dots[i].Y * std::sin(turn * i) / Middle;
                behind += 2 * dots[i].Y * std::cos(turn * i) / Middle;
            }
            EXPECT_NEAR(inPhase, pass, pass == 1.0 ? 0.0115 : 0.01) << period;  // 0.1 dB; -40 dB
            EXPECT_NEAR(behind, 0.0, 1e-9) << period;
        }
    }
}

TEST(FirFilter, SpreadsAnImpulseEvenly) {
    for (const int taps : {99, 100, 1501}) {  // 100 counts as 99
        constexpr int Middle = 1000;
        Dots dots(2 * Middle + 1);
        dots[Middle].Y = 1.0;
        LowPass(dots, taps, 0.1);
        double sum = dots[Middle].Y;
        for (int k = 1; k <= Middle; ++k) {
            EXPECT_NEAR(dots[Middle - k].Y, dots[Middle + k].Y, 1e-15) << taps << " at " << k;
            sum += dots[Middle - k].Y + dots[Middle + k].Y;
        }
        EXPECT_NEAR(sum, 1.0, 1e-12);
        EXPECT_NEAR(dots[Middle + (taps + 1) / 2].Y, 0.0, 1e-15);
    }
}

TEST(FirFilter, KeepsConstantsAndWhatItCannotFilter) {
    for (const int count : {1, 2, 3, 1000, 50000})
        for (const int taps : {3, 999}) {
            Dots dots(count, WaveDot{0, 0.1});
            LowPass(dots, taps, 0.01);
            for (const WaveDot& dot : dots) ASSERT_EQ(dot.Y, 0.1) << count << " by " << taps;
        }
    const Dots dots = MakeNoise(100);
    Dots kept = dots;
    for (const int taps : {-9, 0, 1, 2}) LowPass(kept, taps, 0.1);
    for (const int count : {0, -9}) Fir_Calculate(kept.data(), count, 9, 0.1, 4);
    Fir_Calculate(nullptr, 9, 9, 0.1, 4);
    for (int i = 0; i < 100; ++i) EXPECT_EQ(kept[i].Y, dots[i].Y);
}

TEST(FirFilter, RunsInSeveralThreads) {
    std::vector<Dots> results(4, MakeNoise(5000));
    std::vector<std::jthread> threads;
    threads.reserve(results.size());
    for (Dots& result : results)
        threads.emplace_back([&result] {
            for (int round = 0; round < 20; ++round) LowPass(result, 101 + 60 * round, 0.2);
        });
    threads.clear();
    for (const Dots& result : results)
        for (int i = 0; i < 5000; ++i) ASSERT_EQ(result[i].Y, results[0][i].Y);
}

}  // namespace
