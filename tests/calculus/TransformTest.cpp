#include "calculus/TransformFuncBox.h"

#include "calculus/RunFixture.h"

namespace {

using Transform = void (*)(std::span<WaveDot>);
using TransformTest = RunFixture;

TEST_F(TransformTest, SelectionsByHand) {
    const std::tuple<Transform, int, int, Values, Values> rows[] = {
        {AbsoluteDots, 1, 3, {-0.5, -0.25, 0.5, -1.0, -1.0}, {-0.5, 0.25, 0.5, 1.0, -1.0}},
        {InvertDots, 0, 2, {1.0, -0.25, 0.5, 0.5}, {-1.0, 0.25, -0.5, 0.5}},
        {MirrorDots, 1, 1, {0.1, 0.2, 0.3}, {0.1, 0.2, 0.3}},
        {MirrorDots, 1, 2, {0.1, 0.2, 0.3}, {0.1, 0.3, 0.2}},
        {MirrorDots, 0, 4, {1, 0.2, 0.3, 0.4, 0.5, 0.6}, {0.5, 0.4, 0.3, 0.2, 1, 0.6}}};
    for (const auto& [transform, first, last, before, after] : rows) {
        AnalogWaveRecord& wave = MakeWave(before);
        const auto command = [&, run = transform] { EditSelection(run); };
        ExpectNothing(command);
        SelectDots(wave, first, last);
        Edit(command);
        EXPECT_EQ(ValuesOf(wave), after);
    }
}

// A plot of 100 rows: row 25 is 0.5, row 90 is -0.8, row 50 is 0.
TEST_F(TransformTest, MathCutHoldsBetweenTheLines) {
    const std::tuple<float, float, Values> rows[] = {
        {25.0F, 90.0F, {0.5, 0.5, 0.49, -0.79, -0.8, 1.0}},
        {90.0F, 25.0F, {0.5, 0.5, 0.49, -0.79, -0.8, 1.0}},
        {50.0F, 50.0F, {0.0, 0.0, 0.0, 0.0, 0.0, 1.0}}};
    for (const auto& [top, bottom, after] : rows) {
        AnalogWaveRecord& wave = MakeWave({1.0, 0.51, 0.49, -0.79, -0.81, 1.0});
        wave.PlotHeight = 100;
        wave.YLimitTop = top;
        wave.YLimitBottom = bottom;
        wave.ViewTop = 0.5;  // the rows mean the same whatever the zoom
        wave.XLimitOn = wave.YLimitOn = true;
        ExpectNothing(CutSelection);
        SelectDots(wave, 0, 4);
        Edit(CutSelection);
        EXPECT_THAT(ValuesOf(wave), Near(after));
        SelectDots(wave, 0, 4);
        wave.YLimitOn = false;
        ExpectNothing(CutSelection);
    }
}

TEST_F(TransformTest, WindowsByHand) {
    // The tenths of 15 and 25 steps end at 1.5 and 2.5, rounded to 2; the last ones begin at 13.5
    // and 22.5, rounded to 14 and 22. There the taper stands at thirds and fifths of a turn.
    Values tapered15(16, 1.0), tapered25(26, 1.0);
    tapered15[0] = tapered15[15] = tapered25[0] = tapered25[25] = 0;
    tapered15[1] = tapered15[2] = tapered15[14] = 0.75;
    tapered25[1] = tapered25[24] = 0.3454915;                  // (5 - sqrt 5) / 8
    tapered25[2] = tapered25[22] = tapered25[23] = 0.9045085;  // (5 + sqrt 5) / 8
    const std::pair<Transform, Values> rows[] = {{RaisedCosineDots, {0, 0}},
                                                 {RaisedCosineDots, {0, 1, 0}},
                                                 {RaisedCosineDots, {0, 0.75, 0.75, 0}},
                                                 {RaisedCosineDots, {0, 0.5, 1, 0.5, 0}},
                                                 {HammingDots, {0.08, 0.08}},
                                                 {HammingDots, {0.08, 0.54, 1, 0.54, 0.08}},
                                                 {ExtendCosineDots, {0, 0}},
                                                 {ExtendCosineDots, {0, 1, 0}},
                                                 {ExtendCosineDots, tapered15},
                                                 {ExtendCosineDots, tapered25}};
    for (const auto& [window, factors] : rows) {
        const auto command = [run = window] { ApplyWindow(run); };
        AnalogWaveRecord& wave = MakeWave(Values(factors.size(), 1.0));
        Edit(command);
        EXPECT_THAT(ValuesOf(wave), Near(factors, 1e-6));
        for (const std::size_t dots : {0, 1}) {
            MakeWave(Values(dots, 1.0));
            ExpectNothing(command);
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

TEST_F(TransformTest, SegmentsBecomeCustomAndStaySelected) {
    AnalogWaveRecord& wave = MakeDocument("gcg", 10, 30);
    SelectDots(wave, 5, 12);
    Edit([&] {
        EditSelection(InvertDots);
        EXPECT_TRUE(wave.HasSelection && wave.SelStart == 5 && wave.SelEnd == 12);
    });
    EXPECT_EQ(Runs(wave), "c0-19 g20-29");
    MakeDocument("ggc", 10, 30);
    Edit([] { ApplyWindow(HammingDots); });
    EXPECT_TRUE(Runs(wave) == "c0-29" && wave.Segments[0].Kind == 0);
}

}  // namespace
