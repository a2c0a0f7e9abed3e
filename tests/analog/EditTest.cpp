#include "analog/AnalogFixture.h"

namespace {

using EditTest = AnalogFixture;

TEST_F(EditTest, UndoAndResumeExchangeTheSameTwoStates) {
    AnalogWaveRecord& wave = MakeDocument("gc");
    const std::vector<double> full = Values(wave);
    SelectDots(wave, 50, 149);
    DeleteAnalog();
    const std::vector<double> cut = Values(wave);
    for (int round = 0; round < 2; ++round) {
        wave.Modified = false;
        UndoAnalog();
        EXPECT_EQ(Values(wave), full);
        EXPECT_EQ(Runs(wave), "g0-99 c100-199");
        EXPECT_TRUE(wave.Modified && wave.ResumeAvailable && !wave.UndoAvailable);
        wave.Modified = false;
        ResumeAnalog();
        EXPECT_EQ(Values(wave), cut);
        EXPECT_EQ(Runs(wave), "c0-49 c50-99");
        EXPECT_TRUE(wave.Modified && wave.UndoAvailable && !wave.ResumeAvailable);
        ExpectSound(wave);
    }
}

TEST_F(EditTest, ResumeHoldsOrDropsASelectionThatNoLongerFits) {
    const struct {
        std::int32_t first, last;
        bool kept;
    } rows[] = {{50, 90, true}, {0, 59, true}, {60, 99, false}};
    for (const auto& row : rows) {
        AnalogWaveRecord& wave = MakeDocument("c");
        SelectDots(wave, 60, 99);
        DeleteAnalog();
        UndoAnalog();
        EXPECT_FALSE(wave.HasSelection);
        SelectDots(wave, row.first, row.last);
        ResumeAnalog();
        ASSERT_EQ(wave.Dots, 60);
        EXPECT_EQ(bool(wave.HasSelection), row.kept) << row.first;
        EXPECT_TRUE(!row.kept || wave.SelEnd == 59) << row.first;
    }
}

TEST_F(EditTest, UndoKeepsTheWholeWaveInAnExpandedView) {
    AnalogWaveRecord& wave = MakeDocument("c");
    wave.ExpandToSuit = true;
    SelectDots(wave, 0, 98);
    DeleteAnalog();
    UndoAnalog();
    EXPECT_EQ(wave.ViewEnd, 99);
    ResumeAnalog();
    EXPECT_EQ(wave.ViewEnd, 1);  // one dot left
}

// A bar drawn with the mouse counts from the column to the left of its edges. 500 columns.
TEST_F(EditTest, MouseBoundsComeFromThePixels) {
    const struct {
        const char* name;
        std::int32_t viewStart, viewEnd, left, right;
        std::int32_t copyFirst, cutFirst, last;
    } rows[] = {
        {"two dots a column", 0, 1000, 11, 51, 20, 20, 100},
        {"left of the first column", 0, 1000, 0, 51, 0, 0, 100},
        {"at dot 1", 1, 1001, 1, 51, 1, 0, 101},
        {"at dot 2", 2, 1002, 1, 51, 2, 2, 102},
        {"past the end", 0, 1000, 11, 450, 20, 20, 599},
        {"two columns a dot", 100, 350, 11, 51, 105, 105, 125},
        {"ties to even", 100, 350, 10, 52, 104, 104, 126},
    };
    for (const auto& row : rows) {
        for (const bool cut : {false, true}) {
            SCOPED_TRACE(std::string(row.name) + (cut ? ", cut" : ", copy"));
            AnalogWaveRecord& wave = MakeDocument("c", 600, 1010);
            wave.PlotWidth = 500;
            wave.ViewStart = row.viewStart;
            wave.ViewEnd = row.viewEnd;
            wave.HasSelection = true;
            wave.SelStart = 300;  // of an older selection
            wave.SelEnd = 310;
            wave.SelPixelLeft = row.left;
            wave.SelPixelRight = row.right;
            cut ? CutAnalog() : CopyAnalog();
            const std::int32_t first = cut ? row.cutFirst : row.copyFirst;
            ASSERT_EQ(ClipDotCount, row.last - first + 1);
            EXPECT_EQ(ClipValues.front(), first / 1000.0);
            EXPECT_EQ(ClipValues[ClipDotCount - 1], row.last / 1000.0);
            EXPECT_EQ(wave.Dots, cut ? 600 - ClipDotCount : 600);
            EXPECT_EQ(bool(wave.UndoAvailable), cut);
            ExpectSound(wave);
        }
    }
}

TEST_F(EditTest, ExactBoundsAreNotTakenFromThePixels) {
    for (const bool picked : {false, true}) {
        AnalogWaveRecord& wave = MakeDocument("cgc", 10);
        wave.PlotWidth = 500;
        picked ? PickSegment(wave, 1) : SelectDots(wave, 1, 12);
        CutAnalog();
        EXPECT_EQ(Runs(wave), picked ? "c0-9 c10-19" : "c0-0 c1-7 c8-17");
        EXPECT_EQ(ClipDotCount, picked ? 10 : 12);
        EXPECT_EQ(ClipValues.front(), picked ? 0.010 : 0.001);
        EXPECT_FALSE(wave.HasSelection);
    }
}

TEST_F(EditTest, WithoutSelectionOnlyDeleteOpensUndo) {
    AnalogWaveRecord& wave = MakeDocument("c");
    CopyAnalog();
    EXPECT_EQ(ClipDotCount, 0);
    EXPECT_FALSE(ClipAvailable);
    PasteAnalog();
    EXPECT_EQ(wave.Dots, 100);
    EXPECT_FALSE(wave.UndoAvailable || wave.Modified);
    DeleteAnalog();
    EXPECT_TRUE(wave.UndoAvailable);
    UndoAnalog();
    EXPECT_EQ(Runs(wave), "c0-99");
}

TEST_F(EditTest, PasteAppendsWhatFits) {
    const struct {
        std::int32_t dots, clip, after;
        const char* runs;
        bool refused;
    } rows[] = {
        {0, 1, 1, "c0-0", false},
        {100, 10, 110, "g0-99 c100-109", false},
        {150, 50, 200, "g0-149 c150-199", false},
        {198, 100, 200, "g0-197 c198-199", false},
        {199, 100, 199, "g0-198", true},
        {200, 1, 200, "g0-199", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.runs);
        asked.clear();
        AnalogWaveRecord& wave = MakeDocument(row.dots > 0 ? "g" : "", row.dots, 200);
        SelectDots(wave, 0, 0);
        ClipDotCount = row.clip;
        ClipValues.assign(row.clip, -0.5);
        PasteAnalog();
        EXPECT_EQ(wave.Dots, row.after);
        EXPECT_EQ(Runs(wave), row.runs);
        ExpectSound(wave);
        EXPECT_EQ(bool(wave.UndoAvailable && wave.ResumeAvailable), !row.refused);
        EXPECT_EQ(bool(wave.Modified), !row.refused);
        EXPECT_TRUE(row.refused || !wave.HasSelection);
        const std::vector<std::string> limit = {"Waveform Dots up limit"};
        EXPECT_EQ(asked, row.refused ? limit : std::vector<std::string>());
        EXPECT_TRUE(row.refused || wave.DotArray[row.after - 1].Y == -0.5);
    }
}

TEST_F(EditTest, ClipboardCarriesNormalisedValuesToAnotherDocument) {
    MakeDocument("c", 50, 100, 1).Vpp = 10.0;
    MakeDocument("c", 50, 100);
    SelectDots(ActiveAnalog(), 40, 49);
    CutAnalog();
    ActiveAnalogIndex = 1;
    PasteAnalog();
    EXPECT_EQ(AnalogDocs[0].Dots, 40);
    ASSERT_EQ(AnalogDocs[1].Dots, 60);
    EXPECT_EQ(AnalogDocs[1].DotArray[50].Y, 0.040);
    EXPECT_EQ(AnalogDocs[1].DotArray[59].Y, 0.049);
}

TEST_F(EditTest, SelectionIsHeldInsideTheDots) {
    const struct {
        std::int32_t first, last, heldFirst, heldLast;
    } rows[] = {{-5, 3, 0, 3}, {90, 200, 90, 99}, {120, 130, 99, 99}, {7, 4, 7, 7}};
    for (const auto& row : rows) {
        AnalogWaveRecord& wave = MakeDocument("c");
        SelectDots(wave, row.first, row.last);
        EXPECT_EQ(wave.SelStart, row.heldFirst);
        EXPECT_EQ(wave.SelEnd, row.heldLast);
    }
    AnalogWaveRecord& empty = MakeDocument("");
    SelectDots(empty, 0, 10);
    PickSegment(empty, 0);
    SelectAllAnalog();
    EXPECT_FALSE(empty.HasSelection);
}

// A bar drawn over the whole wave ends a column early when it is cut; Select All is exact.
TEST_F(EditTest, SelectAllTakesEveryDot) {
    for (const bool bar : {false, true}) {
        AnalogWaveRecord& wave = MakeDocument("gc");
        wave.PlotWidth = 500;
        if (bar) {
            SelectDots(wave, 0, 199);
            wave.SelectionDragging = false;
        }
        SelectAllAnalog();
        CutAnalog();
        EXPECT_EQ(wave.Dots, 0) << bar;
    }
}

}  // namespace
