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
    static void Resize(const char* dots, const char* percent) {
        EXPECT_TRUE(ConfirmResize(Open(dots, percent)));
    }
};

TEST_F(ResizeTest, BoundsOfTheBoxes) {
    AnalogWaveRecord& wave = MakeWave(Values(10, 0.5), 20);
    SelectDots(wave, 2, 4);  // ten dots are free
    EXPECT_EQ(NewDotsText(OpenResize()) + " " + AmplPercentText(OpenResize()), "3 100");
    const TextPairs dots = {{"1", "2"}, {"2", "2"}, {"13", "13"}, {"14", "13"}, {"", "2"}};
    const TextPairs percents = {{"", "0"}, {"0", "0"}, {"30000", "30000"}, {"30001", "30000"}};
    for (const auto& [typed, shown] : dots) EXPECT_EQ(NewDotsText(Open(typed, "1")), shown);
    for (const auto& [typed, shown] : percents) EXPECT_EQ(AmplPercentText(Open("2", typed)), shown);
    ResizeDialog dialog = Open("2", "0");
    SpinNewDots(dialog, 1, false);
    SpinAmplPercent(dialog, 1, false);
    EXPECT_EQ(NewDotsText(dialog) + " " + AmplPercentText(dialog), "2 0");
    SpinNewDots(dialog, 1, true);
    SpinAmplPercent(dialog, 60, true);
    EXPECT_EQ(NewDotsText(dialog) + " " + AmplPercentText(dialog), "13 1");
    InstrumentModel = 2;
    MakeWave(Values(1000, 0.5), 100000);
    SelectAllAnalog();
    dialog = OpenResize();
    SpinNewDots(dialog, 11, true);
    EXPECT_EQ(dialog.NewDots, 1500);
}

// Dot n stands at n / 1000 in a wave of ten dots in a capacity of twelve, "cg", five dots each.
TEST_F(ResizeTest, RunsByHand) {
    const struct {
        int First, Last;
        const char *Dots, *Percent;
        Values Run;  // what stands from First on, behind it the old tail
        const char* Runs;
    } rows[] = {{4, 6, "5", "100", {0.004, 0.0045, 0.005, 0.0055, 0.006}, "c0-11"},
                {6, 7, "3", "100", {0.006, 0.0065, 0.007}, "c0-10"},
                {0, 3, "2", "100", {0.0005, 0.0025}, "c0-2 g3-7@5"},  // pairs are averaged
                {0, 9, "2", "100", {0.002, 0.007}, "c0-1"},
                {1, 3, "3", "0", {0.0, 0.0, 0.0}, "c0-4 g5-9"},
                {1, 3, "3", "50", {0.0005, 0.001, 0.0015}, "c0-4 g5-9"},
                {0, 2, "3", "30000", {0.0, 0.3, 0.6}, "c0-4 g5-9"},
                {2, 4, "2", "30000", {(2 + 1.5) / 1.5 * 0.3, 1.0}, "c0-3 g4-8@5"},
                {9, 9, "3", "100", {0.009, 0.009, 0.009}, "c0-11"},
                {0, 9, "12", "100", {}, "c0-11"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.First << ".." << row.Last << " to " << row.Dots);
        AnalogWaveRecord& wave = MakeDocument("cg", 5, 12);
        Values expected = ValuesOf(wave);
        SelectDots(wave, row.First, row.Last);
        Edit([&] { Resize(row.Dots, row.Percent); });
        EXPECT_EQ(Runs(wave), row.Runs);
        if (row.Run.empty()) {
            EXPECT_EQ(wave.Dots, wave.MaxDots);
            EXPECT_EQ(wave.DotArray[11].Y, 0.009);
            continue;
        }
        expected.erase(expected.begin() + row.First, expected.begin() + row.Last + 1);
        expected.insert(expected.begin() + row.First, row.Run.begin(), row.Run.end());
        ExpectNear(ValuesOf(wave), expected, 1e-12);
    }
}

TEST_F(ResizeTest, PickedSegmentsMoveWhatFollows) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"ggg", "15", "g0-9 c10-24 g25-34"},
        {"ggg", "5", "g0-9 c10-14 g15-24"},
        {"cgc", "5", "c0-24"},
        {"gcg", "4", "g0-9 c10-13 g14-23"}};
    for (const auto& [runs, dots, after] : rows) {
        AnalogWaveRecord& wave = MakeDocument(runs, 10, 100);
        PickSegment(wave, 1);
        Edit([dots = dots] { Resize(dots, "100"); });
        EXPECT_EQ(Runs(wave), after);
    }
    for (const bool alone : {true, false}) {  // or a custom neighbour takes the run in
        AnalogWaveRecord& wave = MakeDocument(alone ? "ggg" : "cgg", 10, 100);
        PickSegment(wave, 1);
        Resize("15", "100");
        EXPECT_TRUE(wave.HasSelection && wave.SelEnd == 24);
        EXPECT_EQ(bool(wave.SegmentPicked), alone);
    }
}

TEST_F(ResizeTest, SameLengthAtFullSizeIsNoEdit) {
    AnalogWaveRecord& wave = MakeWave(Values(10, 0.5));
    ExpectNothing([] { EXPECT_FALSE(ConfirmResize(OpenResize())); });  // nothing is selected
    SelectDots(wave, 2, 4);
    ExpectNothing([] { EXPECT_FALSE(ConfirmResize(OpenResize())); });
    std::vector<WaveDot> preview;
    ExpectNothing([&] { PreviewResize(Open("6", "50"), preview); });
    EXPECT_TRUE(preview.size() == 6 && preview[5].X == 5.0 && preview[5].Y == 0.25);
}

}  // namespace
