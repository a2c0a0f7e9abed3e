#include "analog/AnalogFixture.h"

namespace {

using EditTest = AnalogFixture;

TEST_F(EditTest, UndoAndResumeExchangeTwoStates) {
    // Deleted from `cut` on, selected before the resume; behind it the runs, the last dot selected
    // (-1: the selection is dropped) and the end of the view.
    const std::tuple<int, int, int, const char*, int, int> rows[] = {
        {60, 50, 90, "g0-49 c50-59", 59, 59},
        {60, 60, 99, "g0-49 c50-59", -1, 59},
        {1, 0, 50, "c0-0", 0, 1}};
    for (const auto& [cut, first, last, runs, heldLast, viewEnd] : rows) {
        AnalogWaveRecord& wave = MakeDocument("gc", 50);
        wave.ExpandToSuit = true;
        SelectDots(wave, cut, 99);
        DeleteAnalog();
        SelectDots(wave, 0, 0);
        UndoAnalog();
        EXPECT_TRUE(Runs(wave) == "g0-49 c50-99" && !wave.HasSelection && wave.ViewEnd == 99);
        SelectDots(wave, first, last);
        wave.Modified = false;
        ResumeAnalog();
        EXPECT_EQ(Runs(wave), runs);
        EXPECT_TRUE(wave.Modified && wave.ViewEnd == viewEnd) << runs;
        EXPECT_EQ(wave.HasSelection ? wave.SelEnd : -1, heldLast);
    }
}

// A bar drawn with the mouse counts from the column to the left of its edges. 500 columns.
TEST_F(EditTest, MouseBoundsComeFromThePixels) {
    const std::int32_t rows[][7] = {
        {0, 1000, 11, 51, 20, 20, 100},     // two dots a column
        {0, 1000, 0, 51, 0, 0, 100},        // left of the first column
        {1, 1001, 1, 51, 1, 0, 101},        // a cut at dot 1 takes dot 0 with it
        {2, 1002, 1, 51, 2, 2, 102},        // at dot 2 not
        {0, 1000, 11, 450, 20, 20, 599},    // past the end
        {100, 350, 10, 52, 104, 104, 126},  // two columns a dot, ties to even
    };
    for (const auto& [viewStart, viewEnd, left, right, copyFirst, cutFirst, last] : rows) {
        for (const bool cut : {false, true}) {
            AnalogWaveRecord& wave = MakeDocument("c", 600, 1010);
            wave.PlotWidth = 500;
            wave.ViewStart = viewStart;
            wave.ViewEnd = viewEnd;
            wave.HasSelection = true;
            wave.SelPixelLeft = left;
            wave.SelPixelRight = right;
            cut ? CutAnalog() : CopyAnalog();
            const std::int32_t first = cut ? cutFirst : copyFirst;
            ASSERT_EQ(ClipDotCount, last - first + 1) << viewStart << ", " << left;
            EXPECT_EQ(ClipValues.front(), first / 1000.0);
            EXPECT_EQ(wave.Dots, cut ? 600 - ClipDotCount : 600);
        }
    }
}

// Amplitudes are pasted as they are, whatever the scales of the two documents.
TEST_F(EditTest, PasteAppendsWhatFits) {
    MakeDocument("c", 100, 100, 1).Vpp = 10.0;
    SelectAllAnalog();
    CopyAnalog();
    AnalogWaveRecord& wave = MakeDocument("g", 198, 200);
    SelectDots(wave, 0, 0);
    for (int i = 0; i < 2; ++i) PasteAnalog();  // the second one finds no room
    EXPECT_EQ(Runs(wave), "g0-197 c198-199");
    EXPECT_TRUE(wave.DotArray[199].Y == 0.001 && wave.Modified && !wave.HasSelection);
    EXPECT_EQ(asked, std::vector<std::string>{"Waveform Dots up limit"});
}

}  // namespace
