#include "calculus/RunFixture.h"
#include "calculus/StandardWaveFuncBox.h"
#include "calculus/WaveMathFuncBox.h"
#include "calculus/WindowMathFuncBox.h"

namespace {

using MathTest = RunFixture;

TEST_F(MathTest, SelectionWithTheClipboard) {
    const char* clipped = "2 of 3 values lie beyond the rails and are clipped.";
    const char* covered = "The clipboard covers 1 of 3 dots; the rest counts as 0 V. ";
    const std::tuple<std::int16_t, int, int, Values, Values, const char*> rows[] = {
        {Add, 1, 3, {0.25, 0.5, -0.5}, {0.5, -0.25, 1.0, -1.0, 0.25}, clipped},
        {Subtract, 4, 4, {0.25, 1, 1}, {0.5, -0.5, 1.0, -1.0, 0.0}, ""},
        {Multiply, 0, 4, {1, -1, -1, -1, 0}, {0.5, 0.5, -1.0, 1.0, 0.0}, ""},
        {Multiply, 0, 2, {0.5}, {0.25, 0.0, 0.0, -1.0, 0.25}, covered}};
    for (const auto& [operation, first, last, clip, after, note] : rows) {
        AnalogWaveRecord& wave = MakeWave({0.5, -0.5, 1.0, -1.0, 0.25}, 5);
        ClipValues = clip;
        ClipDotCount = static_cast<std::int32_t>(std::ssize(clip));
        SelectDots(wave, first, last);
        WaveMathDialog dialog = OpenWaveMath();
        ExpectNothing([&, chosen = operation] {
            ChooseMathOperation(dialog, chosen);
            ResumeWaveMath(dialog);
            EXPECT_EQ(dialog.MathResultDots[0].Y, SelectedDots(wave)[0].Y);
            EXPECT_FALSE(ConfirmWaveMath(dialog));
            ChooseMathOperation(dialog, chosen);
        });
        EXPECT_EQ(WaveMathNote(dialog), note);
        Edit([&] { EXPECT_TRUE(ConfirmWaveMath(dialog)); });
        EXPECT_EQ(ValuesOf(wave), after);
    }
}

TEST_F(MathTest, StandardWaveAsOperandWorksApart) {
    AnalogWaveRecord& wave = MakeDocument("ggg", 10, 30);  // 4 V peak to peak
    PickSegment(wave, 1);
    Save(WaveSection, {{"DotNum", "20"}, {"Ampl", "1"}, {"Offset", "0.25"}});
    WaveMathDialog dialog = OpenWaveMath();
    ExpectNothing([&] {
        StandardWaveDialog operand = OpenOperandWave({});
        EXPECT_EQ(operand.Wave.Offset, 0.25F);
        ChangeKind(operand, Dc);
        EXPECT_TRUE(operand.Wave.DotCount == 10 && !OpenFields(operand).Dots);
        LeaveOffset(operand, "1");
        EXPECT_TRUE(ConfirmStandardWave(operand));
        TakeStandardWave(dialog, operand.Wave);
        EXPECT_TRUE(dialog.MathSourceDots.size() == 10 && dialog.MathSourceDots[9].Y == 0.5);
        EXPECT_EQ(OpenOperandWave(dialog.Wave).Wave.Offset, 1.0F);
        EXPECT_FALSE(ConfirmWaveMath(dialog));  // no operation
    });
    EXPECT_EQ(Saved(WaveSection, {"DotNum", "Offset"}), "20 0.25 ");
    EXPECT_NE(OpenStandardWave(-1).Wave.Kind, Dc);
    ChooseMathOperation(dialog, Subtract);
    Edit([&] { EXPECT_TRUE(ConfirmWaveMath(dialog)); });
    EXPECT_TRUE(wave.DotArray[9].Y == 0.009 && wave.DotArray[20].Y == 0.020);
    EXPECT_NEAR(wave.DotArray[19].Y, 0.019 - 0.5, 1e-15);
    EXPECT_EQ(Runs(wave), "g0-9 c10-19 g20-29");
    EXPECT_EQ(Saved(WaveSection, {"DotNum", "Offset"}), "10 1 ");
}

TEST_F(MathTest, WindowsMeetDotByDot) {
    const char* shorter = "Dots from 2 on stay as they are. ";
    const char* differing =
        "Dots from 1 on stay as they are. The windows differ in Vpp: their full scales are taken "
        "as equal. 1 of 2 values lie beyond the rails and are clipped.";
    const std::tuple<std::int16_t, std::int16_t, std::int16_t, Values, const char*> rows[] = {
        {0, 1, Subtract, {-0.25, 0.25, 1.0, -1.0}, shorter},
        {1, 0, Multiply, {0.375, 0.375}, ""},
        {1, 1, Subtract, {0.0, 0.0}, ""},
        {1, 2, Add, {1.0, -0.75}, differing}};
    EXPECT_FALSE(HasWindowMath() || ConfirmWindowMath(OpenWindowMath()));
    for (const auto& [first, second, operation, after, note] : rows) {
        SetUp();
        MakeWave({}, 8, 0);  // holds no dot and is not listed
        MakeWave({0.5, -0.5, 1.0, -1.0}, 4, 1);
        MakeWave({0.75, -0.75}, 8, 4);
        MakeWave({1.0}, 8, 9).Vpp = 2.0;
        WindowMathDialog dialog = OpenWindowMath();
        EXPECT_EQ(dialog.Documents, (std::vector<std::int16_t>{1, 4, 9}));
        EXPECT_TRUE(dialog.Source == 2 && dialog.Math == 0);  // slot 9 is active
        ChooseSourceWindow(dialog, first);
        ChooseMathWindow(dialog, second);
        const std::int16_t source = dialog.Documents[first];
        AnalogWaveRecord& wave = AnalogAt(source);
        SelectDots(wave, 0, 1);
        ActiveAnalogIndex = source;
        ExpectNothing([&, chosen = operation] {
            ChooseWindowOperation(dialog, chosen);
            ResumeWindowMath(dialog);
            EXPECT_EQ(dialog.PreviewDots[0].Y, wave.DotArray[0].Y);
            EXPECT_FALSE(ConfirmWindowMath(dialog));
            ChooseWindowOperation(dialog, chosen);
        });
        EXPECT_EQ(WindowMathNote(dialog), note);
        Edit([&] {
            ActiveAnalogIndex = 0;
            EXPECT_TRUE(ConfirmWindowMath(dialog) && wave.HasSelection && wave.SelEnd == 1);
            ActiveAnalogIndex = source;
        });
        EXPECT_EQ(ValuesOf(wave), after);
        EXPECT_FALSE(AnalogDocs[0].UndoAvailable || AnalogDocs[0].Modified);
    }
}

}  // namespace
