#include "calculus/FilterFuncBox.h"

#include "calculus/RunFixture.h"
#include "calculus/SmoothDots.h"

#include <numbers>
#include <random>

namespace {

class FilterTest : public RunFixture {
protected:
    static SmoothDialog Length(const char* typed) {
        SmoothDialog dialog = OpenSmooth();
        LeaveSmoothDot(dialog, typed);
        return dialog;
    }
    static LowPassDialog CutAt(const char* typed) {
        LowPassDialog dialog = OpenLowPass();
        LeaveCutOff(dialog, typed);
        return dialog;
    }
    static void LowPass(const char* typed) {
        EXPECT_TRUE(PrepareLowPass(CutAt(typed)));
        RunLowPass(CutAt(typed));
    }
};

TEST_F(FilterTest, LowPassFigures) {
    // 2.5 and 3.5, half of three and five dots and one more, go to even.
    const int lengths[][3] = {{2, 1, 8},         {3, 2, 16},          {4, 2, 16},
                              {5, 4, 16},        {1000, 500, 4096},   {1365, 684, 4096},
                              {1366, 683, 8192}, {4096, 2048, 16384}, {1048576, 524288, 4194304}};
    for (const auto& [dots, maxCut, fftLength] : lengths) {
        MakeDocument("c", dots, dots);
        EXPECT_TRUE(OpenLowPass().MaxCut == maxCut && OpenLowPass().FftLength == fftLength) << dots;
    }
    MakeDocument("c", 4096, 4096).Period = 1e-3;
    // taps 9.9 * 16384 / cut-off, below the dots; hertz cut-off / 16384 * 4096 / 1 ms
    const std::tuple<const char*, double, const char*> cuts[] = {
        {"0", 1.0, "Cut-off at 250.000 Hz, 4095 taps"},
        {"39", 39.0, "Cut-off at 9.750 kHz, 4095 taps"},  // 4159.02
        {"40", 40.0, "Cut-off at 10.000 kHz, 4055 taps"},
        {"2048", 2048.0, "Cut-off at 512.000 kHz, 79 taps"},
        {"2049", 2048.0, "Cut-off at 512.000 kHz, 79 taps"}};
    for (const auto& [typed, cut, note] : cuts) {
        EXPECT_EQ(CutAt(typed).CutFreq, cut);
        EXPECT_EQ(LowPassNote(CutAt(typed)), note);
    }
    LowPassDialog dialog = CutAt("1000");
    for (const int tick : {10, 11}) SpinCutOff(dialog, tick, true);
    EXPECT_EQ(dialog.CutFreq, 1011);
}

TEST_F(FilterTest, LowPassOfTheWholeWave) {
    // Two sines of 25 and 200 cycles; the cut-off of 400 / 16384 lies at 100 cycles of the wave.
    AnalogWaveRecord& wave = MakeDocument("gc", 2048, 4096);
    const auto sine = [](int cycles, int dot) {
        return 0.5 * std::sin(2.0 * std::numbers::pi * cycles * dot / 4096.0);
    };
    for (int i = 0; i < 4096; ++i) wave.DotArray[i].Y = sine(25, i) + sine(200, i);
    SelectDots(wave, 5, 10);
    Edit([] { LowPass("400"); });
    EXPECT_EQ(Runs(wave), "c0-4095");
    for (int i = 400; i < 3696; i += 97) EXPECT_NEAR(wave.DotArray[i].Y, sine(25, i), 2e-3) << i;
    EXPECT_EQ(Saved("Tidemark_LowPass", {"CutFreq"}), "400 ");
    EXPECT_EQ(CutOffText(OpenLowPass()), "400");
    Values square;
    for (int i = 0; i < 1000; ++i) square.push_back(i / 100 % 2 == 0 ? 1.0 : -1.0);
    MakeWave(square);
    Edit([] { LowPass("300"); });  // overshoot is clipped
    EXPECT_EQ(std::ranges::max(ValuesOf(ActiveAnalog())), 1.0);
    MakeWave({1.0});
    ExpectNothing([] { EXPECT_FALSE(PrepareLowPass(OpenLowPass())); });
}

TEST_F(FilterTest, SmoothLengthIsOddAndHeld) {
    const std::tuple<int, const char*, const char*> rows[] = {
        {200, "2", "3"},  {200, "4", "5"},  {200, "98", "99"}, {200, "100", "99"}, {200, "", "3"},
        {10, "10", "11"}, {10, "12", "11"}, {10, "9", "9"},    {2, "99", "3"},     {1, "3", "1"}};
    for (const auto& [selected, typed, shown] : rows) {
        SelectDots(MakeWave(Values(200, 0.5)), 0, selected - 1);
        EXPECT_EQ(SmoothDotText(Length(typed)), shown) << selected << ' ' << typed;
    }
    MakeWave(Values(98, 0.5));
    SmoothDialog dialog = Length("97");
    SpinSmoothDot(dialog, 60, true);
    EXPECT_EQ(dialog.SmoothDot, 99);  // 98 is the bound and even
    dialog = Length("3");
    SpinSmoothDot(dialog, 1, false);
    EXPECT_EQ(dialog.SmoothDot, 3);
    Save("Tidemark_Smooth", {{"SmoothDot", "50"}});
    EXPECT_EQ(OpenSmooth().SmoothDot, 51);
}

TEST_F(FilterTest, SmoothByHand) {
    const std::tuple<int, int, const char*, Values, Values> rows[] = {
        // no selection for 0..-1
        {0, -1, "3", {1, 1, 1, 1, 1}, {2.0 / 3, 1, 1, 1, 2.0 / 3}},
        {0, -1, "3", {0.3, 0.9}, {0.4, 0.4}},
        {0, -1, "5", {1, 0, 0, 0, 0, -1}, {0.2, 0.2, 0.2, -0.2, -0.2, -0.2}},
        {1, 3, "3", {1, 0.3, 0.6, 0.9, 1}, {1, 0.3, 0.6, 0.5, 1}},
        {1, 2, "2", {1, 0.3, 0.6, 1}, {1, 0.3, 0.3, 1}},
        {1, 1, "3", {1, 0.3, 1}, {1, 0.3, 1}}};
    for (const auto& [first, last, typed, before, after] : rows) {
        AnalogWaveRecord& wave = MakeWave(before);
        if (first <= last) SelectDots(wave, first, last);
        Edit([typed = typed] { EXPECT_TRUE(ConfirmSmooth(Length(typed))); });
        EXPECT_THAT(ValuesOf(wave), Near(after));
    }
    EXPECT_EQ(Saved("Tidemark_Smooth", {"SmoothDot"}), "1 ");
    MakeWave({1.0});
    ExpectNothing([] { EXPECT_FALSE(ConfirmSmooth(OpenSmooth())); });
}

TEST_F(FilterTest, RunningSumAgreesWithTheDirectSum) {
    std::mt19937 random(7);
    for (const int count : {1, 40, 192, 193, 255, 256, 257, 9000, 1048576}) {
        std::vector<WaveDot> before(count);
        for (WaveDot& dot : before) dot.Y = std::uniform_real_distribution(-1.0, 1.0)(random);
        for (const int length : {1, 3, 5, 51, 99}) {
            std::vector<WaveDot> dots = before;
            SmoothDots(dots, length);
            for (int i = 0; i < count; i += 1 + count / 10000) {
                double sum = 0.0;
                for (int j = i - length / 2; j <= i + length / 2; ++j)
                    if (j >= 0 && j < count) sum += before[j].Y;
                ASSERT_NEAR(dots[i].Y, sum / length, 1e-12) << count << ' ' << length << ' ' << i;
            }
        }
    }
}

}  // namespace
