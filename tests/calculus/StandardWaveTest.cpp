#include "calculus/StandardWaveFuncBox.h"

#include "calculus/DialogFixture.h"

namespace {

class StandardWaveTest : public DialogFixture {
protected:
    // A dialog on a document with room for 80 dots: 40 dots, 2 V, 4 cycles.
    static StandardWaveDialog MakeDialog(std::int16_t kind) {
        MakeDocument(100);
        AddCustom(20);
        StandardWaveDialog dialog = OpenStandardWave(kind);
        LeaveWaveDotnum(dialog, "40");
        LeaveCycles(dialog, "4");
        LeaveWaveAmpl(dialog, "2");
        return dialog;
    }
    static void ExpectCountedUp(const AnalogWaveRecord& wave) {
        for (int dot = 0; dot < wave.Dots; ++dot) ASSERT_EQ(wave.DotArray[dot].X, dot);
    }
};

struct BoxRow {
    std::int16_t kind;
    bool volts;
    void (*leave)(StandardWaveDialog&, std::string_view);
    std::string (*text)(const StandardWaveDialog&);
    const char* typed;
    const char* shown;
};

TEST_F(StandardWaveTest, BoxesTakeTheViolatedBound) {
    const BoxRow rows[] = {
        {Sine, true, LeaveWaveDotnum, WaveDotnumText, "1", "2"},
        {Sine, true, LeaveWaveDotnum, WaveDotnumText, "81", "80"},
        {Sine, true, LeaveWaveDotnum, WaveDotnumText, "4x", "40"},
        {Sine, true, LeaveCycles, CyclesText, "0", "1"},
        {Sine, true, LeaveCycles, CyclesText, "20", "20"},
        {Sine, true, LeaveCycles, CyclesText, "21", "20"},
        {Sine, true, LeavePhase, PhaseText, "-1", "000"},
        {Sine, true, LeavePhase, PhaseText, "7", "007"},
        {Sine, true, LeavePhase, PhaseText, "360", "359"},
        {Sine, true, LeaveWaveAmpl, WaveAmplText, "0.001", "0.0020"},
        {Sine, true, LeaveWaveAmpl, WaveAmplText, "4", "4.0000"},
        {Sine, true, LeaveWaveAmpl, WaveAmplText, "4.1", "4.0000"},
        {Sine, false, LeaveWaveAmpl, WaveAmplText, "1.9", "2.0"},
        {Sine, false, LeaveWaveAmpl, WaveAmplText, "150.5", "150.5"},
        {Sine, false, LeaveWaveAmpl, WaveAmplText, "4001", "4000.0"},
        {Sine, true, LeaveOffset, OffsetText, "0.9", "0.9000"},
        {Sine, true, LeaveOffset, OffsetText, "1.1", "1.0000"},
        {Sine, true, LeaveOffset, OffsetText, "-1.1", "-1.0000"},
        {Sine, false, LeaveOffset, OffsetText, "1001", "1000.0"},
        {Sine, false, LeaveOffset, OffsetText, "-999.5", "-999.5"},
        {Dc, true, LeaveOffset, OffsetText, "1.9", "1.9000"},
        {Dc, true, LeaveOffset, OffsetText, "-2.1", "-2.0000"},
        {Square, true, LeavePara1, Para1Text, "19", "20"},
        {Square, true, LeavePara1, Para1Text, "80", "80"},
        {Square, true, LeavePara1, Para1Text, "81", "80"},
        {Ramp, true, LeavePara1, Para1Text, "-1", "0"},
        {Ramp, true, LeavePara1, Para1Text, "101", "100"},
        {ExpRise, true, LeavePara1, Para1Text, "-15.1", "-15.000"},
        {ExpRise, true, LeavePara1, Para1Text, "0.125", "0.125"},
        {ExpFall, true, LeavePara1, Para1Text, "15.1", "15.000"},
        {Sinc, true, LeavePara1, Para1Text, "0", "1"},
        {Sinc, true, LeavePara1, Para1Text, "21", "20"},
        {Pulse, true, LeavePara1, Para1Text, "91", "90.00"},
        {Pulse, true, LeavePara1, Para1Text, "5", "5.00"},
        {Pulse, true, LeavePara1, Para2Text, "5", "5.00"},
        {Pulse, true, LeavePara2, Para2Text, "-1", "0.00"},
        {Pulse, true, LeavePara2, Para2Text, "50", "50.00"},
        {Pulse, true, LeavePara2, Para2Text, "51", "50.00"},
        {Noise, true, LeavePara1, Para1Text, "5", ""},
    };
    for (const BoxRow& row : rows) {
        StandardWaveDialog dialog = MakeDialog(row.kind);
        dialog.AmplInVolts = dialog.OffsetInVolts = row.volts;
        row.leave(dialog, row.typed);
        EXPECT_EQ(row.text(dialog), row.shown) << row.kind << " " << row.typed;
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
    ChangeWaveAmplUnit(dialog, false, "3.0000");
    EXPECT_FLOAT_EQ(dialog.Wave.Amplitude, 0.003F);
    ChangeOffsetUnit(dialog, false, "0.5000");
    EXPECT_FLOAT_EQ(dialog.Wave.Offset, 0.0005F);
}

TEST_F(StandardWaveTest, SpinsStopAtTheirOwnBounds) {
    StandardWaveDialog dialog = MakeDialog(Sine);
    SpinWaveDots(dialog, 1, true);
    EXPECT_EQ(dialog.Wave.DotCount, 100);  // the capacity, past the room of 80
    SpinWaveDots(dialog, 1, false);
    EXPECT_EQ(dialog.Wave.DotCount, 8);
    EXPECT_EQ(dialog.Wave.Cycles, 4);
    SpinCycles(dialog, 1, true);
    EXPECT_EQ(dialog.Wave.Cycles, 4);
    SpinCycles(dialog, 11, false);
    EXPECT_EQ(dialog.Wave.Cycles, 1);
    SpinPhase(dialog, 1, false);
    EXPECT_EQ(PhaseText(dialog), "000");
}

TEST_F(StandardWaveTest, OpensWithDotsThatFit) {
    const struct {
        std::int32_t maxDots, filled, selected;
        const char* saved;
        std::int32_t dots;
    } rows[] = {{2000, 0, 0, "", 200},      {1990, 0, 0, "", 1990}, {1995, 0, 0, "", 200},
                {2000, 1900, 0, "", 100},   {2000, 2000, 0, "", 0}, {2000, 2000, 50, "", 50},
                {2000, 0, 0, "2500", 2000}, {2000, 0, 0, "1", 2},   {2000, 0, 0, "much", 200}};
    for (const auto& row : rows) {
        AnalogWaveRecord& wave = MakeDocument(row.maxDots);
        if (row.filled > 0) AddCustom(row.filled);
        if (row.selected > 0) SelectDots(wave, 0, row.selected - 1);
        SaveSetting(ApplicationTitle, WaveSection, "DotNum", row.saved);
        EXPECT_EQ(OpenStandardWave(Sine).Wave.DotCount, row.dots)
            << row.maxDots << " " << row.filled << " " << row.saved;
        ClearSelection(wave);
    }
}

TEST_F(StandardWaveTest, SettingsAreReadWithinBounds) {
    const std::pair<const char*, const char*> saved[] = {
        {"DotNum", "40"},   {"Ampl", "0.0001"}, {"Offset", "-9"},   {"Period", "30"},
        {"Phase", "400"},   {"Duty", "1"},      {"symmetry", "30"}, {"Damp", "2.5"},
        {"Overzero", "15"}, {"Overzerio", "7"}};
    MakeDocument(100);
    const StandardWaveDialog fresh = OpenStandardWave(Sinc);
    EXPECT_EQ(fresh.Wave.Amplitude, 4.0F);
    EXPECT_EQ(fresh.Wave.Damp, -5.0F);
    EXPECT_EQ(fresh.Wave.Overzero, 10);
    for (const auto& [key, text] : saved) SaveSetting(ApplicationTitle, WaveSection, key, text);
    const WaveSegment wave = OpenStandardWave(-1).Wave;
    EXPECT_EQ(wave.Kind, Sinc);
    EXPECT_EQ(wave.Amplitude, 0.002F);
    EXPECT_FLOAT_EQ(wave.Offset, -1.999F);
    EXPECT_EQ(wave.Cycles, 20);
    EXPECT_EQ(wave.Phase, 359.0F);
    EXPECT_EQ(wave.Duty, 20);
    EXPECT_EQ(wave.Symmetry, 30);
    EXPECT_EQ(wave.Damp, 2.5F);
    EXPECT_EQ(wave.Overzero, 7);
}

TEST_F(StandardWaveTest, EachTypeSavesItsOwnKeys) {
    const struct {
        std::int16_t kind;
        const char* keys;
    } rows[] = {
        {Sine, "Ampl Offset Period Phase"},          {Square, "Ampl Offset Period Phase Duty"},
        {Ramp, "Ampl Offset Period Phase symmetry"}, {Pulse, "Ampl Offset Period Phase"},
        {ExpFall, "Ampl Offset Period Phase Damp"},  {Noise, "Ampl Offset"},
        {Sinc, "Ampl Offset Period Phase Overzero"}, {Dc, "Offset"}};
    for (const auto& row : rows) {
        SetUp();
        StandardWaveDialog dialog = MakeDialog(row.kind);
        ASSERT_TRUE(ConfirmStandardWave(dialog));
        EXPECT_EQ(Setting(WaveSection, "DotNum"), "40") << row.kind;
        std::string written;
        for (const char* key : {"Ampl", "Offset", "Period", "Phase", "Duty", "symmetry", "Damp",
                                "Overzero", "Overzerio"}) {
            if (Setting(WaveSection, key) == "absent") continue;
            written += (written.empty() ? "" : " ") + std::string(key);
        }
        EXPECT_EQ(written, row.keys) << row.kind;
        EXPECT_EQ(Setting(WaveSection, "Period"), FieldsOf(row.kind).Cycles ? "4" : "absent");
    }
}

TEST_F(StandardWaveTest, AppendedWaveMayFillTheDocument) {
    StandardWaveDialog dialog = MakeDialog(Square);
    AnalogWaveRecord& wave = ActiveAnalog();
    dialog.Wave.DotCount = 500;  // as after spinning past the room
    LeaveCycles(dialog, "1");
    ASSERT_TRUE(ConfirmStandardWave(dialog));
    EXPECT_EQ(wave.Dots, 100);
    EXPECT_EQ(wave.LastDot, 99);
    ASSERT_EQ(wave.SegmentCount, 2);
    EXPECT_FALSE(wave.Segments[1].Custom);
    EXPECT_EQ(wave.Segments[1].RunStart, 20);
    EXPECT_EQ(wave.Segments[1].EndDot, 99);
    EXPECT_EQ(wave.Segments[1].DotCount, 80);
    EXPECT_EQ(wave.DotArray[19].Y, 0.19);
    EXPECT_EQ(wave.DotArray[20].Y, 0.5);  // 2 V peak to peak on rails of 2 V
    EXPECT_EQ(wave.DotArray[99].Y, -0.5);
    ExpectCountedUp(wave);
    EXPECT_TRUE(wave.Modified);
    UndoAnalog();
    EXPECT_EQ(wave.Dots, 20);
    EXPECT_EQ(wave.SegmentCount, 1);
}

TEST_F(StandardWaveTest, ReplacedSelectionMovesTheTailUnchanged) {
    for (const std::int32_t dots : {8, 3, 5}) {
        AnalogWaveRecord& wave = MakeDocument(33);
        AddCustom(30);
        SelectDots(wave, 10, 14);
        StandardWaveDialog dialog = OpenStandardWave(Dc);
        EXPECT_EQ(dialog.Room, 8);
        LeaveWaveDotnum(dialog, std::to_string(dots));
        LeaveOffset(dialog, "1");
        ASSERT_TRUE(ConfirmStandardWave(dialog));
        ASSERT_EQ(wave.Dots, 25 + dots);
        EXPECT_EQ(wave.LastDot, 24 + dots);
        EXPECT_EQ(wave.DotArray[9].Y, 0.09);
        for (int dot = 10; dot < 10 + dots; ++dot) EXPECT_EQ(wave.DotArray[dot].Y, 0.5) << dots;
        for (int dot = 15; dot < 30; ++dot)
            EXPECT_EQ(wave.DotArray[dot - 5 + dots].Y, dot / 100.0) << dots;
        ExpectCountedUp(wave);
        EXPECT_TRUE(wave.HasSelection);
        EXPECT_EQ(wave.SelStart, 10);
        EXPECT_EQ(wave.SelEnd, 9 + dots);
        ASSERT_EQ(wave.SegmentCount, 1);
        EXPECT_TRUE(wave.Segments[0].Custom);
        EXPECT_EQ(wave.Segments[0].EndDot, 24 + dots);
        UndoAnalog();
        ASSERT_EQ(wave.Dots, 30);
        for (int dot = 0; dot < 30; ++dot) EXPECT_EQ(wave.DotArray[dot].Y, dot / 100.0);
    }
}

TEST_F(StandardWaveTest, PickedWaveIsEditedAgain) {
    StandardWaveDialog made = MakeDialog(Pulse);
    LeaveCycles(made, "2");
    LeavePara1(made, "25");
    LeaveOffset(made, "0.5");
    ASSERT_TRUE(ConfirmStandardWave(made));
    AddCustom(10);
    AnalogWaveRecord& wave = ActiveAnalog();
    PickSegment(wave, 1);
    StandardWaveDialog dialog = OpenStandardWave(-1);
    EXPECT_TRUE(dialog.ReEdit);
    EXPECT_EQ(dialog.Wave.Kind, Pulse);
    EXPECT_EQ(WaveDotnumText(dialog), "40");
    EXPECT_EQ(OffsetText(dialog), "0.5000");
    EXPECT_EQ(Para1Text(dialog), "25.00");  // 5 and 2 dots of a period of 20
    EXPECT_EQ(Para2Text(dialog), "10.00");
    LeaveWaveDotnum(dialog, "60");
    ASSERT_TRUE(ConfirmStandardWave(dialog));
    EXPECT_FALSE(dialog.ReEdit);
    ASSERT_EQ(wave.SegmentCount, 3);
    EXPECT_FALSE(wave.Segments[1].Custom);
    EXPECT_EQ(wave.Segments[1].DotCount, 60);
    EXPECT_EQ(wave.Segments[1].PWidthDots, 8);  // 7.5 of 30, ties to even
    EXPECT_EQ(wave.Segments[2].RunStart, 80);
    EXPECT_EQ(wave.DotArray[80].Y, 0.6);
    EXPECT_TRUE(wave.SegmentPicked);
    EXPECT_EQ(wave.SelEnd, 79);
}

TEST_F(StandardWaveTest, NothingIsDoneForNoneOrWithoutRoom) {
    StandardWaveDialog none = MakeDialog(Sine);
    ChangeKind(none, None);
    EXPECT_FALSE(ConfirmStandardWave(none));
    EXPECT_EQ(ActiveAnalog().Dots, 20);
    EXPECT_EQ(Setting(WaveSection, "DotNum"), "absent");
    MakeDocument(100);
    AddCustom(99);
    StandardWaveDialog full = OpenStandardWave(Sine);
    EXPECT_FALSE(ConfirmStandardWave(full));
    EXPECT_EQ(ActiveAnalog().Dots, 99);
    EXPECT_FALSE(ActiveAnalog().UndoAvailable || ActiveAnalog().Modified);
}

TEST_F(StandardWaveTest, PreviewIsClippedAndCounted) {
    StandardWaveDialog dialog = MakeDialog(Square);
    LeaveCycles(dialog, "1");
    dialog.Wave.Amplitude = 3.0F;
    dialog.Wave.Offset = 1.0F;
    std::vector<WaveDot> dots(7);
    PreviewStandardWave(dialog, dots);
    ASSERT_EQ(dots.size(), 40U);
    EXPECT_EQ(dots[0].Y, 1.0);  // 1.25 above the rail
    EXPECT_EQ(dots[39].Y, -0.25);
    EXPECT_EQ(dots[39].X, 39.0);
    ChangeKind(dialog, None);
    PreviewStandardWave(dialog, dots);
    EXPECT_TRUE(dots.empty());
}

}  // namespace
