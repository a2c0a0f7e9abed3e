#include "analog/EntryFuncBox.h"
#include "calculus/RunFixture.h"
#include "calculus/StandardWaveFuncBox.h"
#include "calculus/WaveMathFuncBox.h"
#include "calculus/WindowMathFuncBox.h"

namespace {

using MathTest = RunFixture;

void FillClipboard(const Values& values) {
    ClipValues = values;
    ClipDotCount = static_cast<std::int32_t>(std::ssize(values));
}

TEST_F(MathTest, SelectionWithTheClipboard) {
    const Values before = {0.5, -0.5, 1.0, -1.0, 0.25};
    const struct {
        const char* Name;
        std::int16_t Operation;
        int First, Last;
        Values Clip, After;
        const char* Note;
    } rows[] = {{"add",
                 Add,
                 1,
                 3,
                 {0.25, 0.5, -0.5},
                 {0.5, -0.25, 1.0, -1.0, 0.25},
                 "2 of 3 values lie beyond the rails and are clipped."},
                {"subtract", Subtract, 0, 1, {0.25, 0.25}, {0.25, -0.75, 1.0, -1.0, 0.25}, ""},
                {"multiply", Multiply, 0, 4, {1, -1, -1, -1, 0}, {0.5, 0.5, -1.0, 1.0, 0.0}, ""},
                {"to the rails", Add, 0, 1, {0.5, -0.5}, {1.0, -1.0, 1.0, -1.0, 0.25}, ""},
                {"short clipboard",
                 Multiply,
                 0,
                 2,
                 {0.5},
                 {0.25, 0.0, 0.0, -1.0, 0.25},
                 "The clipboard has 1 dots, the selection 3; the rest counts as 0 V. "},
                {"long clipboard", Subtract, 4, 4, {0.25, 1, 1}, {0.5, -0.5, 1.0, -1.0, 0.0}, ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        AnalogWaveRecord& wave = MakeWave(before, 5);
        FillClipboard(row.Clip);
        SelectDots(wave, row.First, row.Last);
        WaveMathDialog dialog = OpenWaveMath();
        ExpectNothing([&] { EXPECT_FALSE(ConfirmWaveMath(dialog)); });
        ExpectNothing([&] { ChooseMathOperation(dialog, row.Operation); });
        EXPECT_EQ(WaveMathNote(dialog), row.Note);
        Edit([&] { EXPECT_TRUE(ConfirmWaveMath(dialog)); });
        EXPECT_EQ(ValuesOf(wave), row.After);
    }
}

TEST_F(MathTest, ResumeShowsTheSelectionAgain) {
    AnalogWaveRecord& wave = MakeWave({0.1, 0.2, 0.3});
    FillClipboard({0.5, 0.5});
    SelectDots(wave, 1, 2);
    WaveMathDialog dialog = OpenWaveMath();
    ChooseMathOperation(dialog, Multiply);
    ResumeWaveMath(dialog);
    EXPECT_TRUE(dialog.MathResultDots[1].Y == 0.3 && dialog.MathSourceDots[1].Y == 0.5);
    ExpectNothing([&] { EXPECT_FALSE(ConfirmWaveMath(dialog)); });
}

TEST_F(MathTest, StandardWaveAsOperandWorksApart) {
    AnalogWaveRecord& wave = MakeDocument("ggg", 10, 30);  // 4 V peak to peak
    PickSegment(wave, 1);
    Save(WaveSection, {{"DotNum", "20"}, {"Ampl", "1"}, {"Offset", "0.25"}});
    ExpectNothing([] {
        StandardWaveDialog operand = OpenOperandWave(nullptr);
        ChangeKind(operand, Dc);
        LeaveWaveDotnum(operand, "25");
        SpinWaveDots(operand, 1, false);
        EXPECT_TRUE(operand.Wave.DotCount == 10 && operand.Wave.Offset == 0.25F);
        EXPECT_FALSE(OpenFields(operand).Dots);
        LeaveOffset(operand, "1");
        EXPECT_TRUE(ConfirmStandardWave(operand));
        WaveMathDialog dialog = OpenWaveMath();
        TakeStandardWave(dialog, operand.Wave);
        EXPECT_TRUE(dialog.MathSourceDots.size() == 10 && dialog.MathSourceDots[9].Y == 0.5);
        EXPECT_EQ(OpenOperandWave(&dialog.Wave).Wave.Offset, 1.0F);
        EXPECT_FALSE(ConfirmWaveMath(dialog));  // no operation
        ChangeKind(operand, None);
        EXPECT_FALSE(ConfirmStandardWave(operand));
    });
    EXPECT_EQ(Saved(WaveSection, {"DotNum", "Offset"}), "20 0.25 ");
    EXPECT_NE(OpenStandardWave(-1).Wave.Kind, Dc);
    WaveMathDialog dialog = OpenWaveMath();
    TakeStandardWave(dialog, {.Kind = Dc, .DotCount = 10, .Offset = 1.0F});
    ChooseMathOperation(dialog, Subtract);
    Edit([&] { EXPECT_TRUE(ConfirmWaveMath(dialog)); });
    EXPECT_TRUE(wave.DotArray[9].Y == 0.009 && wave.DotArray[20].Y == 0.020);
    EXPECT_NEAR(wave.DotArray[19].Y, 0.019 - 0.5, 1e-15);
    EXPECT_EQ(Runs(wave), "g0-9 c10-19 g20-29");
    EXPECT_EQ(Saved(WaveSection, {"DotNum", "Offset"}), "10 1 ");
}

TEST_F(MathTest, WindowsMeetDotByDot) {
    const Values longer = {0.5, -0.5, 1.0, -1.0}, shorter = {0.75, -0.75};
    const struct {
        std::int16_t Source, Math, Operation;  // places in the lists
        Values After;
        const char* Note;
    } rows[] = {
        {0,
         1,
         Add,
         {1.0, -1.0, 1.0, -1.0},
         "Dots from 2 on stay as they are. 2 of 4 values lie beyond the rails and are clipped."},
        {0, 1, Subtract, {-0.25, 0.25, 1.0, -1.0}, "Dots from 2 on stay as they are. "},
        {1, 0, Multiply, {0.375, 0.375}, ""},
        {1, 1, Subtract, {0.0, 0.0}, ""},
        {1,
         2,
         Add,
         {1.0, -0.75},
         "Dots from 1 on stay as they are. The windows differ in Vpp: their full scales are taken "
         "as equal. 1 of 2 values lie beyond the rails and are clipped."},
        {2,
         1,
         Subtract,
         {0.25},
         "The windows differ in Vpp: their full scales are taken as equal. "}};
    for (const auto& row : rows) {
        SetUp();
        MakeWave({}, 8, 0);  // holds no dot and is not listed
        MakeWave(longer, 4, 1);
        MakeWave(shorter, 8, 4);
        MakeWave({1.0}, 8, 9).Vpp = 2.0;
        ActiveAnalogIndex = 0;
        WindowMathDialog dialog = OpenWindowMath();
        EXPECT_EQ(dialog.Documents, (std::vector<std::int16_t>{1, 4, 9}));
        ChooseSourceWindow(dialog, row.Source);
        ChooseMathWindow(dialog, row.Math);
        const std::int16_t source = dialog.Documents[row.Source];
        ActiveAnalogIndex = source;
        ExpectNothing([&] { EXPECT_FALSE(ConfirmWindowMath(dialog)); });
        ExpectNothing([&] { ChooseWindowOperation(dialog, row.Operation); });
        EXPECT_EQ(WindowMathNote(dialog), row.Note);
        Edit([&] {
            ActiveAnalogIndex = 0;
            EXPECT_TRUE(ConfirmWindowMath(dialog));
            ActiveAnalogIndex = source;
        });
        EXPECT_EQ(ValuesOf(ActiveAnalog()), row.After);
        EXPECT_FALSE(AnalogDocs[0].UndoAvailable || AnalogDocs[0].Modified);
    }
}

TEST_F(MathTest, WindowListsBeginWithTheActiveDocument) {
    EXPECT_FALSE(HasWindowMath());
    EXPECT_FALSE(ConfirmWindowMath(OpenWindowMath()));
    for (std::int16_t slot = 0; slot < MaxDocuments; ++slot) {
        MakeWave({0.5}, 8, slot).Name = "W" + std::to_string(slot);
    }
    const WindowMathDialog dialog = OpenWindowMath();  // slot 9 was made last
    EXPECT_TRUE(dialog.Source == 9 && dialog.Math == 0);
    EXPECT_TRUE(WindowMathNames(dialog).size() == 10 && WindowMathNames(dialog)[3] == "W3");
    AnalogWaveRecord& wave = AnalogFixture::MakeDocument("gg", 5, 10, 2);
    SelectDots(wave, 2, 3);
    WindowMathDialog add = OpenWindowMath();
    ChooseWindowOperation(add, Add);
    ResumeWindowMath(add);
    EXPECT_EQ(add.PreviewDots[0].Y, 0.0);
    EXPECT_FALSE(ConfirmWindowMath(add));
    ChooseWindowOperation(add, Add);
    EXPECT_TRUE(ConfirmWindowMath(add));
    EXPECT_EQ(Runs(wave), "c0-9");
    EXPECT_TRUE(wave.HasSelection && wave.SelStart == 2 && wave.SelEnd == 3);
}

}  // namespace
