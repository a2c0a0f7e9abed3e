#include "calculus/ResizeFuncBox.h"

#include "calculus/RunFixture.h"

namespace {

class ResizeTest : public RunFixture {
protected:
    static ResizeDialog Open(const char* dots, const char* percent) {
        ResizeDialog dialog = OpenResize();
        LeaveNewDots(dialog, dots);
        LeaveAmplPercent(dialog, percent);
        return dialog;
    }
    static std::string Boxes(const ResizeDialog& dialog) {
        return NewDotsText(dialog) + " " + AmplPercentText(dialog);
    }
};

TEST_F(ResizeTest, BoundsOfTheBoxes) {
    SelectDots(MakeWave(Values(10, 0.5), 20), 2, 4);  // ten dots are free
    EXPECT_EQ(Boxes(OpenResize()), "3 100");
    const std::tuple<const char*, const char*, const char*> rows[] = {{"1", "", "2 0"},
                                                                      {"2", "0", "2 0"},
                                                                      {"13", "30000", "13 30000"},
                                                                      {"14", "30001", "13 30000"}};
    for (const auto& [dots, percent, shown] : rows) EXPECT_EQ(Boxes(Open(dots, percent)), shown);
    ResizeDialog dialog = Open("2", "0");
    SpinNewDots(dialog, 1, false);
    SpinAmplPercent(dialog, 1, false);
    EXPECT_EQ(Boxes(dialog), "2 0");
    SpinNewDots(dialog, 1, true);  // by 100
    SpinAmplPercent(dialog, 60, true);
    EXPECT_EQ(Boxes(dialog), "13 1");
}

// Dot n stands at n / 1000 in a wave of ten dots in a capacity of twelve, "cg", five dots each.
TEST_F(ResizeTest, RunsByHand) {
    // Selection, dots and percent, what stands from its first dot on before the old tail, runs.
    const std::tuple<int, int, const char*, const char*, Values, const char*> rows[] = {
        {4, 6, "5", "100", {0.004, 0.0045, 0.005, 0.0055, 0.006}, "c0-11"},  // to full capacity
        {0, 3, "2", "100", {0.0005, 0.0025}, "c0-2 g3-7@5"},                 // pairs are averaged
        {0, 9, "2", "100", {0.002, 0.007}, "c0-1"},
        {1, 3, "3", "50", {0.0005, 0.001, 0.0015}, "c0-4 g5-9"},
        {2, 4, "2", "30000", {(2 + 1.5) / 1.5 * 0.3, 1.0}, "c0-3 g4-8@5"},
        {9, 9, "3", "100", {0.009, 0.009, 0.009}, "c0-11"}};
    for (const auto& [first, last, dots, percent, run, after] : rows) {
        AnalogWaveRecord& wave = MakeDocument("cg", 5, 12);
        Values expected = ValuesOf(wave);
        expected.erase(expected.begin() + first, expected.begin() + last + 1);
        expected.insert(expected.begin() + first, run.begin(), run.end());
        SelectDots(wave, first, last);
        Edit([dots = dots, percent = percent] { EXPECT_TRUE(ConfirmResize(Open(dots, percent))); });
        EXPECT_EQ(Runs(wave), after);
        EXPECT_THAT(ValuesOf(wave), Near(expected)) << first << " to " << dots;
    }
}

TEST_F(ResizeTest, PickedSegmentsMoveWhatFollows) {
    const std::tuple<const char*, const char*, const char*, bool> rows[] = {
        {"ggg", "15", "g0-9 c10-24 g25-34", true},
        {"cgc", "5", "c0-24", false},  // custom neighbours take the run in
        {"gcg", "4", "g0-9 c10-13 g14-23", true}};
    for (const auto& [runs, dots, after, picked] : rows) {
        AnalogWaveRecord& wave = MakeDocument(runs, 10, 100);
        PickSegment(wave, 1);
        Edit([&, dots = dots, picked = picked] {
            ConfirmResize(Open(dots, "100"));
            EXPECT_EQ(wave.SelEnd, 9 + std::stoi(dots));
            EXPECT_TRUE(wave.HasSelection && bool(wave.SegmentPicked) == picked);
        });
        EXPECT_EQ(Runs(wave), after);
    }
}

TEST_F(ResizeTest, SameLengthAtFullSizeIsNoEdit) {
    AnalogWaveRecord& wave = MakeWave(Values(10, 0.5), 20);
    ExpectNothing([] { EXPECT_FALSE(ConfirmResize(OpenResize())); });  // nothing is selected
    SelectDots(wave, 2, 4);
    ExpectNothing([] { EXPECT_FALSE(ConfirmResize(OpenResize())); });
    std::vector<WaveDot> preview;
    ExpectNothing([&] { PreviewResize(Open("6", "50"), preview); });
    EXPECT_TRUE(preview.size() == 6 && preview[5].X == 5.0 && preview[5].Y == 0.25);
}

}  // namespace
