#include "kernel/wavecalc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

using Values = std::vector<double>;

// The Y of the new dots, whose X and neighbours in the array are checked as well.
Values Resize(const Values& source, int delta, int percent) {
    constexpr int SelStart = 40;
    const auto count = static_cast<int>(source.size());
    std::vector<WaveDot> dots, target(std::max(count + delta, 0) + 2, WaveDot{-7, -7});
    for (const double y : source) dots.push_back({-3, y});
    resizewv(target.data() + 1, dots.data(), count, delta, percent, SelStart);
    EXPECT_TRUE(target.front().Y == -7 && target.back().Y == -7) << count << " by " << delta;
    Values result;
    for (std::size_t i = 1; i + 1 < target.size(); ++i) {
        EXPECT_EQ(target[i].X, static_cast<double>(SelStart + i - 1));
        result.push_back(target[i].Y);
    }
    return result;
}

struct Row {
    const char* name;
    Values source;
    int percent;
    Values expected;
};

// The middle of a cell is the mean of its ends plus an eighth of the difference of its slopes.
const Row rows[] = {
    {"OneRepeated", {0.5}, 100, {0.5, 0.5, 0.5}},
    {"StraightAtThirds", {0, 3, 6}, 100, {0, 2, 4, 6}},
    {"PeakKept", {0, 1, 0}, 100, {0, 0.75, 1, 0.75, 0}},            // slopes 2, 0, -2
    {"HarmonicMean", {0, 1, 4}, 100, {0, 0.3125, 1, 2.1875, 4}},    // 0, 3/2, 4
    {"EndHeldAbove", {0, 1, -9}, 100, {0, 0.875, 1, -2.0625, -9}},  // 3 for 6.5, 0, -15.5
    {"EndHeldBelow", {0, 1, 5}, 100, {0, 0.3, 1, 2.5125, 5}},       // 0 for -0.5, 1.6, 5.5
    {"GrownThreeHundredfold", {0, 1}, 30000, {0, 150, 300}},
    {"ThreeToOne", {1, 2, 6}, 50, {1.5}},
    {"FiveToTwo", {2, 4, 6, 8, 10}, 100, {3.6, 8.4}},                     // 2.5 dots each
    {"FiveToThree", {2, 4, 6, 8, 10}, 100, {8.0 / 3, 6, 28.0 / 3}},       // 1.5, 2, 1.5 dots
    {"FiveToFour", {6, 12, 0, 0, 3}, 100, {48.0 / 7, 7.5, 0, 18.0 / 7}},  // 7/6, 4/3, 4/3, 7/6
    {"SameHalved", {0.3, -0.7}, 50, {0.15, -0.35}},
    {"SameToNothing", {0.3, -0.7}, 0, {0, 0}},
    {"None", {}, 100, {}},
    {"NothingLeft", {1, 2}, 100, {}},
};

TEST(ResizeWave, IsAsWorkedOutByHand) {
    for (const Row& row : rows) {
        const auto delta =
            static_cast<int>(row.expected.size()) - static_cast<int>(row.source.size());
        const Values result = Resize(row.source, delta, row.percent);
        ASSERT_EQ(result.size(), row.expected.size()) << row.name;
        for (std::size_t i = 0; i < result.size(); ++i)
            EXPECT_NEAR(result[i], row.expected[i], 1e-12) << row.name << i;
    }
    resizewv(nullptr, nullptr, 1, 1, 100, 0);
}

TEST(ResizeWave, NeverOvershootsAndHitsSourceDotsExactly) {
    std::mt19937 random(5);
    Values source(101);
    for (double& value : source) value = std::uniform_real_distribution<double>(-1, 1)(random);
    EXPECT_EQ(Resize(source, 0, 100), source);
    for (const int cellDots : {2, 10, 49}) {
        const Values grown = Resize(source, 100 * (cellDots - 1), 100);
        for (int k = 0; k <= 100 * cellDots; ++k) {
            const auto [low, high] =
                std::minmax(source[k / cellDots], source[(k + cellDots - 1) / cellDots]);
            ASSERT_TRUE(low <= grown[k] && grown[k] <= high) << k << " of " << cellDots;
        }
    }
    for (const int delta : {-997, -667, -1, 777})
        for (const double y : Resize(Values(1000, 0.1), delta, 100)) ASSERT_EQ(y, 0.1) << delta;
}

// Averages weighted by their widths add up to the source; so no dot is lost or counted twice.
TEST(ResizeWave, LosesNoSpike) {
    constexpr int Sources = 100;
    for (const int targets : {2, 7, 34, 99}) {
        const double half = (Sources - 1.0) / (targets - 1) / 2;
        for (int spike = 0; spike < Sources; ++spike) {
            Values source(Sources, 0.0);
            source[spike] = 1.0;
            const Values shrunk = Resize(source, targets - Sources, 100);
            double sum = 0.0;
            for (int k = 0; k < targets; ++k) {
                const double outer = k == 0 || k == targets - 1 ? 0.5 : half;
                sum += shrunk[k] * (half + outer);
            }
            ASSERT_NEAR(sum, 1.0, 1e-12) << spike << " to " << targets;
        }
    }
}

}  // namespace
