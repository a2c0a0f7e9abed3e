#include "calculus/TransformFuncBox.h"

#include "calculus/RunFixture.h"

namespace {

using Transform = void (*)(std::span<WaveDot>);
using TransformTest = RunFixture;

TEST_F(TransformTest, SelectionsByHand) {
    const struct {
        const char* Name;
        Transform Command;
        int First, Last;
        Values Before, After;
    } rows[] = {
        {"absolute", AbsoluteDots, 1, 3, {-0.5, -0.25, 0.5, -1.0, -1.0}, {-0.5, 0.25, 0.5, 1, -1}},
        {"absolute of the whole", AbsoluteDots, 0, 1, {-1.0, 0.0}, {1.0, 0.0}},
        {"invert", InvertDots, 0, 2, {1.0, -0.25, 0.5, 0.5}, {-1.0, 0.25, -0.5, 0.5}},
        {"invert one", InvertDots, 1, 1, {0.5, 0.5}, {0.5, -0.5}},
        {"mirror one", MirrorDots, 1, 1, {0.1, 0.2, 0.3}, {0.1, 0.2, 0.3}},
        {"mirror two", MirrorDots, 1, 2, {0.1, 0.2, 0.3}, {0.1, 0.3, 0.2}},
        {"mirror odd",
         MirrorDots,
         0,
         4,
         {1, 0.2, 0.3, 0.4, 0.5, 0.6},
         {0.5, 0.4, 0.3, 0.2, 1, 0.6}},
        {"mirror even", MirrorDots, 1, 4, {1, 0.2, 0.3, 0.4, 0.5}, {1, 0.5, 0.4, 0.3, 0.2}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        const auto full = static_cast<std::int32_t>(std::ssize(row.Before));
        AnalogWaveRecord& wave = MakeWave(row.Before, full);
        ExpectNothing([&] { EditSelection(row.Command); });
        SelectDots(wave, row.First, row.Last);
        Edit([&] { EditSelection(row.Command); });
        EXPECT_EQ(ValuesOf(wave), row.After);
    }
    AnalogWaveRecord& wave = MakeWave({0.0});
    SelectDots(wave, 0, 0);
    Edit([] { EditSelection(InvertDots); });
    EXPECT_FALSE(std::signbit(wave.DotArray[0].Y));
}

// A plot of 100 rows: row 25 is 0.5, row 90 is -0.8, row 50 is 0.
TEST_F(TransformTest, MathCutHoldsBetweenTheLines) {
    const Values before = {1.0, 0.51, 0.49, -0.79, -0.81, 1.0};
    const std::tuple<float, float, Values> rows[] = {
        {25.0F, 90.0F, {0.5, 0.5, 0.49, -0.79, -0.8, 1.0}},
        {90.0F, 25.0F, {0.5, 0.5, 0.49, -0.79, -0.8, 1.0}},
        {0.0F, 50.0F, {1.0, 0.51, 0.49, 0.0, 0.0, 1.0}},
        {50.0F, 50.0F, {0.0, 0.0, 0.0, 0.0, 0.0, 1.0}}};
    for (const auto& [top, bottom, after] : rows) {
        AnalogWaveRecord& wave = MakeWave(before);
        wave.PlotHeight = 100;
        wave.YLimitTop = top;
        wave.YLimitBottom = bottom;
        wave.ViewTop = 0.5;  // the rows mean the same whatever the zoom
        SelectDots(wave, 0, 4);
        ExpectNothing(CutSelection);
        wave.YLimitOn = true;
        Edit(CutSelection);
        ExpectNear(ValuesOf(wave), after, 1e-15);
        ClearSelection(wave);
        wave.Modified = wave.UndoAvailable = false;
        ExpectNothing(CutSelection);
    }
}

TEST_F(TransformTest, WindowsByHand) {
    // 0.5 (1 - cos) in steps of a quarter turn: 0, 0.5, 1, 0.5, 0; of a third: 0, 0.75, 0.75. The
    // tenths of 15 and 25 steps end at 1.5 and 2.5, rounded to 2; their last ones begin at 13.5 and
    // 22.5, rounded to 14 and 22.
    Values tapered16(16, 1.0), tapered21(21, 1.0), tapered26(26, 1.0);
    tapered16[0] = tapered16[15] = tapered21[0] = tapered21[20] = tapered26[0] = tapered26[25] = 0;
    tapered16[1] = tapered16[2] = tapered16[14] = 0.75;
    tapered21[1] = tapered21[19] = 0.5;
    tapered26[1] = tapered26[24] = 0.5 * (1 - std::cos(2 * 3.14159265 / 5));
    tapered26[2] = tapered26[22] = tapered26[23] = 0.5 * (1 - std::cos(4 * 3.14159265 / 5));
    const std::pair<Transform, Values> rows[] = {{RaisedCosineDots, {0, 0}},
                                                 {RaisedCosineDots, {0, 1, 0}},
                                                 {RaisedCosineDots, {0, 0.75, 0.75, 0}},
                                                 {RaisedCosineDots, {0, 0.5, 1, 0.5, 0}},
                                                 {HammingDots, {0.08, 0.08}},
                                                 {HammingDots, {0.08, 0.54, 1, 0.54, 0.08}},
                                                 {ExtendCosineDots, {0, 0}},
                                                 {ExtendCosineDots, {0, 1, 0}},
                                                 {ExtendCosineDots, tapered16},
                                                 {ExtendCosineDots, tapered21},
                                                 {ExtendCosineDots, tapered26}};
    for (const auto& [window, factors] : rows) {
        const auto full = static_cast<std::int32_t>(std::ssize(factors));
        for (const double value : {1.0, -0.5}) {
            AnalogWaveRecord& wave = MakeWave(Values(factors.size(), value), full);
            Edit([window = window] { ApplyWindow(window); });
            Values expected = factors;
            for (double& factor : expected) factor *= value;
            ExpectNear(ValuesOf(wave), expected);
        }
        for (const std::size_t dots : {0, 1}) {
            MakeWave(Values(dots, 1.0)).Modified = false;
            ExpectNothing([window = window] { ApplyWindow(window); });
        }
    }
}

TEST_F(TransformTest, EightDigitsOfPiAreKept) {
    AnalogWaveRecord& wave = MakeWave({1.0, 1.0, 1.0});
    ApplyWindow(RaisedCosineDots);
    EXPECT_EQ(wave.DotArray[0].Y, 0.0);
    // 0.5 (1 - cos d) with d = 2 (pi - 3.1415926) = 1.0718e-7, that is d^2 / 4
    EXPECT_NEAR(wave.DotArray[2].Y, 2.872e-15, 1e-16);
}

TEST_F(TransformTest, SegmentsOfTheRunBecomeCustom) {
    const std::tuple<const char*, int, int, int, const char*> rows[] = {
        {"ggg", 12, 17, -1, "g0-9 c10-19 g20-29"},
        {"ggg", 5, 14, -1, "c0-19 g20-29"},
        {"gcg", 5, 12, -1, "c0-19 g20-29"},
        {"cgc", 10, 19, -1, "c0-29"},
        {"ggg", 0, 0, 1, "g0-9 c10-19 g20-29"},
        {"cgg", 0, 0, 1, "c0-19 g20-29"},
        {"ggg", 0, 29, -1, "c0-29"}};
    for (const auto& [runs, first, last, picked, after] : rows) {
        AnalogWaveRecord& wave = MakeDocument(runs, 10, 30);
        if (picked < 0)
            SelectDots(wave, first, last);
        else
            PickSegment(wave, picked);
        const std::int32_t start = wave.SelStart, end = wave.SelEnd;
        Edit([] { EditSelection(InvertDots); });
        EXPECT_EQ(Runs(wave), after) << runs;
        EXPECT_FALSE(wave.HasSelection);  // undo has cleared it
        SelectDots(wave, start, end);
        EditSelection(InvertDots);
        EXPECT_TRUE(wave.HasSelection && wave.SelStart == start && wave.SelEnd == end);
    }
    AnalogWaveRecord& wave = MakeDocument("ggc", 10, 30);
    wave.Segments[0].Duty = 50;
    Edit([] { ApplyWindow(HammingDots); });
    EXPECT_EQ(Runs(wave), "c0-29");
    EXPECT_TRUE(wave.Segments[0].Kind == 0 && wave.Segments[0].Duty == 0);
}

}  // namespace
