#include "calculus/StandardWaveFuncBox.h"

#include "calculus/DialogFixture.h"

namespace {

class StandardWaveTest : public DialogFixture {
protected:
    // A dialog on a document with room for 80 dots: 40 dots, 2 V, 4 cycles.
    static StandardWaveDialog MakeDialog(std::int16_t kind) {
        MakeDocument("c", 20, 100);
        StandardWaveDialog dialog = OpenStandardWave(kind);
        LeaveWaveDotnum(dialog, "40");
        LeaveCycles(dialog, "4");
        LeaveWaveAmpl(dialog, "2");
        return dialog;
    }
};

TEST_F(StandardWaveTest, BoxesTakeTheViolatedBound) {
    const BoxRow<StandardWaveDialog> rows[] = {
        {Sine, LeaveWaveDotnum, WaveDotnumText, {{"1", "2"}, {"81", "80"}, {"4x", "40"}}},
        {Sine, LeaveCycles, CyclesText, {{"0", "1"}, {"19", "19"}, {"21", "20"}}},
        {Sine, LeavePhase, PhaseText, {{"-1", "000"}, {"7", "007"}, {"360", "359"}}},
        {Sine, LeaveWaveAmpl, WaveAmplText, {{"0.001", "0.0020"}, {"4.1", "4.0000"}}},
        {Sine, LeaveOffset, OffsetText, {{"0.9", "0.9000"}, {"-1.1", "-1.0000"}}},
        {Dc, LeaveOffset, OffsetText, {{"1.9", "1.9000"}, {"-2.1", "-2.0000"}}},
        {Square, LeavePara1, Para1Text, {{"19", "20"}, {"30", "30"}, {"81", "80"}}},
        {Ramp, LeavePara1, Para1Text, {{"-1", "0"}, {"101", "100"}}},
        {ExpRise, LeavePara1, Para1Text, {{"-16", "-15.000"}, {".125", "0.125"}, {"16", "15.000"}}},
        {Sinc, LeavePara1, Para1Text, {{"0", "1"}, {"21", "20"}}},
        {Pulse, LeavePara1, Para1Text, {{"91", "90.00"}, {"5", "5.00"}}},
        {Pulse, LeavePara1, Para2Text, {{"5", "5.00"}}},
        {Pulse, LeavePara2, Para2Text, {{"-1", "0.00"}, {"51", "50.00"}}},
        {Noise, LeavePara1, Para1Text, {{"5", ""}}},
    };
    for (const auto& [kind, leave, text, texts] : rows)
        for (const auto& [typed, shown] : texts) {
            StandardWaveDialog dialog = MakeDialog(kind);
            leave(dialog, typed);
            EXPECT_EQ(text(dialog), shown) << kind << " " << typed;
        }
}

TEST_F(StandardWaveTest, ValuesFollowTheOnesTheyHangOn) {
    StandardWaveDialog dialog = MakeDialog(Pulse);
    LeavePara1(dialog, "55");
    LeavePara2(dialog, "50");              // held to the 45 that are left
    EXPECT_EQ(dialog.Wave.PWidthDots, 6);  // 5.5 and 4.5 of 10 dots, ties to even
    EXPECT_EQ(dialog.Wave.SlopeDots, 4);
    LeaveCycles(dialog, "20");
    EXPECT_EQ(dialog.Wave.PWidthDots, 1);
    LeaveWaveDotnum(dialog, "7");
    EXPECT_EQ(CyclesText(dialog), "3");
    LeaveWaveDotnum(dialog, "8");
    LeaveCycles(dialog, "5");
    EXPECT_EQ(CyclesText(dialog), "4");

    LeaveOffset(dialog, "-1");
    LeaveWaveAmpl(dialog, "3");
    EXPECT_EQ(OffsetText(dialog), "-0.5000");
    ChangeKind(dialog, Dc);
    LeaveOffset(dialog, "2");
    ChangeKind(dialog, Noise);
    EXPECT_EQ(OffsetText(dialog), "0.5000");
    ChangeOffsetUnit(dialog, false, "0.5000");
    EXPECT_EQ(OffsetText(dialog), "0.5");
    ChangeWaveAmplUnit(dialog, false, "3.0000");
    EXPECT_FLOAT_EQ(dialog.Wave.Amplitude, 0.003F);
    LeaveWaveAmpl(dialog, "4001");
    EXPECT_EQ(WaveAmplText(dialog), "4000.0");
}

TEST_F(StandardWaveTest, SpinsStopAtTheirOwnBounds) {
    StandardWaveDialog dialog = MakeDialog(Sine);
    SpinWaveDots(dialog, 1, true);
    EXPECT_EQ(dialog.Wave.DotCount, 100);  // the capacity, past the room of 80
    SpinWaveDots(dialog, 1, false);
    EXPECT_EQ(dialog.Wave.DotCount, 8);
    SpinCycles(dialog, 1, true);
    EXPECT_EQ(dialog.Wave.Cycles, 4);
    SpinCycles(dialog, 11, false);
    EXPECT_EQ(dialog.Wave.Cycles, 1);
}

TEST_F(StandardWaveTest, OpensWithDotsThatFit) {
    const std::tuple<int, int, int, const char*, int> rows[] = {
        {2000, 0, 0, "", 200},      {1990, 0, 0, "", 1990}, {1995, 0, 0, "", 200},
        {2000, 1900, 0, "", 100},   {2000, 2000, 0, "", 0}, {2000, 2000, 50, "", 50},
        {2000, 0, 0, "2500", 2000}, {2000, 0, 0, "1", 2},   {2000, 0, 0, "much", 200}};
    for (const auto& [maxDots, filled, selected, saved, dots] : rows) {
        AnalogWaveRecord& wave = MakeDocument(filled ? "c" : "", filled, maxDots);
        if (selected > 0) SelectDots(wave, 0, selected - 1);
        Save(WaveSection, {{"DotNum", saved}});
        EXPECT_EQ(OpenStandardWave(Sine).Wave.DotCount, dots) << maxDots << " " << saved;
    }
}

TEST_F(StandardWaveTest, SettingsAreReadWithinBounds) {
    MakeDocument("c", 20, 100);
    const WaveSegment fresh = OpenStandardWave(Sinc).Wave;
    EXPECT_EQ(std::tuple(fresh.Amplitude, fresh.Damp, fresh.Overzero), std::tuple(4.0F, -5.0F, 10));
    const TextPairs saved = {{"DotNum", "40"},   {"Ampl", "0.0001"}, {"Offset", "-9"},
                             {"Period", "30"},   {"Phase", "400"},   {"Duty", "1"},
                             {"symmetry", "30"}, {"Damp", "2.5"},    {"Overzero", "15"},
                             {"Overzerio", "7"}};
    Save(WaveSection, saved);
    const WaveSegment wave = OpenStandardWave(-1).Wave;
    EXPECT_FLOAT_EQ(wave.Offset, -1.999F);
    EXPECT_EQ(std::tuple(wave.Kind, wave.Amplitude, wave.Cycles, wave.Phase, wave.Duty),
              std::tuple(Sinc, 0.002F, 20, 359.0F, 20));
    EXPECT_EQ(std::tuple(wave.Symmetry, wave.Damp, wave.Overzero), std::tuple(30, 2.5F, 7));
}

TEST_F(StandardWaveTest, EachTypeSavesItsOwnKeys) {
    const std::pair<std::int16_t, const char*> rows[] = {
        {Sine, "2 4 0 - - - - - "},  {Square, "2 4 0 50 - - - - "},  {Ramp, "2 4 0 - 50 - - - "},
        {Pulse, "2 4 0 - - - - - "}, {ExpFall, "2 4 0 - - -5 - - "}, {Sinc, "2 4 0 - - - 10 - "},
        {Noise, "2 - - - - - - - "}, {Dc, "- - - - - - - - "}};
    for (const auto& [kind, texts] : rows) {
        SetUp();
        StandardWaveDialog dialog = MakeDialog(kind);
        LeaveOffset(dialog, "0.5");
        ASSERT_TRUE(ConfirmStandardWave(dialog));
        EXPECT_EQ(Saved(WaveSection, {"DotNum", "Offset"}), "40 0.5 ");
        EXPECT_EQ(Saved(WaveSection, {"Ampl", "Period", "Phase", "Duty", "symmetry", "Damp",
                                      "Overzero", "Overzerio"}),
                  texts);
    }
}

TEST_F(StandardWaveTest, WaveIsAppendedOrReplacesTheSelection) {
    // Runs of so many dots, capacity, start and length of the selection; dots wished and made.
    const std::tuple<const char*, int, int, int, int, int, int, const char*> rows[] = {
        {"c", 20, 100, 20, 0, 500, 80, "c0-19 g20-99"},
        {"c", 30, 33, 10, 5, 8, 8, "c0-32"},
        {"c", 30, 33, 10, 5, 5, 5, "c0-29"},
        {"c", 30, 33, 10, 5, 3, 3, "c0-27"},
        {"cgc", 40, 200, 40, 40, 60, 60, "c0-39 g40-99 c100-139"}};
    for (const auto& [runs, count, maxDots, start, selected, wished, made, runsAfter] : rows) {
        AnalogWaveRecord& wave = MakeDocument(runs, count, maxDots);
        if (selected > 0) SelectDots(wave, start, start + selected - 1);
        if (selected == 40) PickSegment(wave, 1);
        StandardWaveDialog dialog = OpenStandardWave(Dc);
        LeaveOffset(dialog, "1");  // half the rail of 2 V
        dialog.Wave.DotCount = wished;
        ASSERT_TRUE(ConfirmStandardWave(dialog));
        EXPECT_EQ(Runs(wave), runsAfter);
        EXPECT_EQ(bool(wave.SegmentPicked), selected == 40);
        EXPECT_EQ(wave.HasSelection ? wave.SelEnd - start + 1 : 0, selected > 0 ? made : 0);
        ExpectInserted(wave, start, selected, made, [](int) { return 0.5; });
    }
}

TEST_F(StandardWaveTest, PickedPulseIsReadBack) {
    AnalogWaveRecord& wave = MakeDocument("cgc", 40, 200);
    WaveSegment& pulse = wave.Segments[1];
    pulse.Kind = Pulse;
    pulse.Cycles = 2;
    pulse.PWidthDots = 5;  // of a period of 20
    pulse.SlopeDots = 2;
    PickSegment(wave, 1);
    StandardWaveDialog dialog = OpenStandardWave(-1);
    EXPECT_TRUE(dialog.ReEdit && dialog.Wave.Kind == Pulse && dialog.Wave.DotCount == 40);
    EXPECT_EQ(Para1Text(dialog) + " " + Para2Text(dialog), "25.00 10.00");
    LeaveWaveDotnum(dialog, "60");
    EXPECT_EQ(dialog.Wave.PWidthDots, 8);  // 7.5 of 30, ties to even
}

TEST_F(StandardWaveTest, NothingIsDoneForNoneOrWithoutRoom) {
    StandardWaveDialog dialog = MakeDialog(Square);
    std::vector<WaveDot> dots;
    PreviewStandardWave(dialog, dots);
    ASSERT_EQ(dots.size(), 40U);
    EXPECT_EQ(dots[39].Y, -0.5);
    ChangeKind(dialog, None);
    PreviewStandardWave(dialog, dots);
    EXPECT_TRUE(dots.empty() && !ConfirmStandardWave(dialog));
    MakeDocument("c", 99, 100);
    dialog = OpenStandardWave(Sine);
    EXPECT_FALSE(ConfirmStandardWave(dialog));
    EXPECT_FALSE(ActiveAnalog().UndoAvailable || ActiveAnalog().Modified);
    EXPECT_EQ(Saved(WaveSection, {"DotNum"}), "- ");
}

}  // namespace
