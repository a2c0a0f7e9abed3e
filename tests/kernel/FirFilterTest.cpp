#include "kernel/wavecalc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
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

}  // namespace
