#include "kernel/wavecalc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <vector>

namespace {

enum Kind { Sine, Square, Ramp, Pulse, ExpRise, ExpFall, Noise, Sinc, Dc };

struct Row {
    const char* name;
    int kind, cycles;
    float phase;
    int first, second;  // Duty; Symmetry; PWidthDots, SlopeDots; Overzero
    float damp;
    std::vector<double> y;  // one period or more at Amplitude 2, Offset 0
};

void Draw(std::vector<WaveDot>& dots, const Row& row, int start, int count, float amplitude,
          float offset) {
    const auto first = static_cast<std::int16_t>(row.first);
    drawcurves(dots.data(), start, count, row.kind, amplitude, offset, row.cycles, row.phase, first,
               row.first, row.second, first, first, row.damp);
}

constexpr double Third = 1.0 / 3, TwoByPi = 2 / std::numbers::pi;
constexpr float Ln9 = 2.19722458f;  // e^(Ln9 / 2) = 3
const Row shapes[] = {
    {"Sine", Sine, 1, 0, 0, 0, 0, {0, 1, 0, -1}},
    {"SquareEarly", Square, 1, -90, 50, 0, 0, {-1, 1, 1, -1}},
    {"SineNoCycles", Sine, 0, 0, 0, 0, 0, {0, 1, 0, -1}},
    {"SquareBrokenPeriod", Square, 3, 0, 50, 0, 0, {1, 1, -1, 1, -1, -1, 1, -1}},
    {"SquareExactEdge", Square, 1, 36, 80, 0, 0, {1, 1, 1, 1, 1, 1, 1, -1, -1, 1}},
    {"RampFalling", Ramp, 1, 0, 0, 0, 0, {1, 0.5, 0, -0.5}},
    {"RampQuarter", Ramp, 1, 0, 25, 0, 0, {-1, 0, 1, 2 * Third, Third, 0, -Third, -2 * Third}},
    {"Pulse", Pulse, 1, 0, 4, 2, 0, {-1, 0, 1, 1, 1, 0, -1, -1, -1, -1}},
    {"PulseUpright", Pulse, 2, 0, 3, 0, 0, {1, 1, 1, -1, -1, 1, 1, 1, -1, -1}},
    {"PulseSlopeAboveWidth", Pulse, 1, 0, 2, 5, 0, {-1, 0, 1, 0, -1, -1}},
    {"PulseAbovePeriod", Pulse, 1, 0, 20, 5, 0, {1, 1, 1, 1}},
    {"RiseStraight", ExpRise, 1, 0, 0, 0, 0, {-1, -0.5, 0, 0.5}},
    {"RiseSteepLast", ExpRise, 1, 0, 0, 0, Ln9, {-1, -0.5}},
    {"RiseBeyondDouble", ExpRise, 1, 0, 0, 0, 1e30f, {-1, -1}},
    {"FallSteepFirst", ExpFall, 1, 0, 0, 0, -Ln9, {1, -0.5}},
    {"Sinc", Sinc, 1, 0, 1, 0, 0, {-TwoByPi / 3, 0, TwoByPi, 1, TwoByPi, 0}},
    {"Dc", Dc, 1, 0, 0, 0, 0, {0, 0}},
};

TEST(DrawCurves, ShapesAreAsDefined) {
    for (const Row& row : shapes) {
        const auto count = static_cast<int>(row.y.size());
        std::vector<WaveDot> dots(row.y.size() + 2, WaveDot{-7, -7});
        Draw(dots, row, 1, count, 2.0f, 0.0f);
        for (std::size_t k = 0; k < row.y.size(); ++k) {
            EXPECT_NEAR(dots[k + 1].Y, row.y[k], 1e-7) << row.name << k;
            EXPECT_EQ(dots[k + 1].X, static_cast<double>(k + 1));
        }
        EXPECT_TRUE(dots.front().Y == -7 && dots.back().Y == -7) << row.name;
    }
}

TEST(DrawCurves, NeitherClipsNorLeavesItsRoom) {
    std::vector<WaveDot> dots(4, WaveDot{-7, -7});
    for (const int kind : {-1, 9, 10}) Draw(dots, {"", kind, 1, 0, 50, 0, 0, {}}, 0, 3, 2.0f, 0.0f);
    Draw(dots, shapes[0], 1, -2, 2.0f, 0.0f);
    Draw(dots, shapes[0], -1, 2, 2.0f, 0.0f);
    drawcurves(nullptr, 0, 3, Sine, 1, 0, 1, 0, 50, 1, 0, 50, 1, 0);
    for (const WaveDot& dot : dots) EXPECT_EQ(dot.Y, -7);
    Draw(dots, shapes[0], 0, 4, 0.5f, 0.875f);
    EXPECT_EQ(dots[1].Y, 1.125);
    Draw(dots, shapes[0], 0, 4, std::numeric_limits<float>::infinity(), 0.5f);
    EXPECT_EQ(dots[1].Y, 0.5);
}

// sin(-x) = -sin(x): the far end of a long run must be as exact as its beginning.
TEST(DrawCurves, KeepsItsPhaseOverAMillionDots) {
    constexpr int Count = 1048576;
    std::vector<WaveDot> dots(Count);
    Draw(dots, {"", Sine, 999, 0, 0, 0, 0, {}}, 0, Count, 2.0f, 0.0f);
    for (std::size_t k = 1; k < Count; k += 997) ASSERT_NEAR(dots[k].Y, -dots[Count - k].Y, 1e-15);
    EXPECT_NEAR(dots[1].Y, std::sin(2 * std::numbers::pi * 999 / Count), 1e-15);
}

// The published outputs of SplitMix64 for the seed 1234567, over two calls.
TEST(DrawCurves, NoiseIsThePublishedSequenceGoingOn) {
    constexpr std::uint64_t published[] = {6457827717110365317u, 3203168211198807973u,
                                           9817491932198370423u, 4593380528125082431u};
    const Row noise{"", Noise, 1, 0, 0, 0, 0, {}};
    std::vector<WaveDot> dots(4);
    wavecalc_seed(1234567);
    Draw(dots, noise, 0, 2, 2.0f, 0.0f);
    Draw(dots, noise, 2, 2, 2.0f, 0.0f);
    for (std::size_t k = 0; k < dots.size(); ++k)
        EXPECT_EQ(dots[k].Y, std::ldexp(static_cast<double>(published[k] >> 11), -52) - 1.0);
}

}  // namespace
