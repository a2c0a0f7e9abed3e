#include "calculus/PropertyFuncBox.h"

#include "analog/MouseFuncBox.h"
#include "analog/ToolFuncBox.h"
#include "calculus/DialogFixture.h"
#include "frame/SpinSteps.h"

namespace {

class PropertyTest : public DialogFixture {
protected:
    // 10 dots of a 2 V square wave, then 10 free-form dots at 0.6, in 4 V peak to peak.
    static AnalogWaveRecord& MakeTwoRuns() {
        AnalogWaveRecord& wave = MakeDocument("gc", 10, 30);
        wave.Segments[0].Amplitude = 2.0F;
        wave.Segments[0].Cycles = 1;
        wave.Segments[0].Duty = 50;
        for (int i = 0; i < 20; ++i) wave.DotArray[i].Y = i < 5 ? 0.5 : i < 10 ? -0.5 : 0.6;
        wave.Period = 1e-3;
        return wave;
    }
    static auto Fields(const PropertyDialog& dialog) {
        return std::tuple(dialog.MaxDots, dialog.Vpp, dialog.Quantify, dialog.Period);
    }
};

TEST_F(PropertyTest, GesturesAndZoomToolsEndWithTheOldScales) {
    AnalogWaveRecord& wave = MakeTwoRuns();
    wave.PlotWidth = wave.PlotHeight = 30;
    SwitchTool(0, Tool::LineDraw);
    WavePic_MouseDown(0, MouseButton::Left, 30, 0);  // a line from the last dot
    PropertyDialog dialog = OpenPropertyDialog();
    dialog.MaxDots = 10;
    ConfirmProperty(dialog);
    EXPECT_TRUE(wave.LineDrawOn && !wave.LinePending);
    WavePic_MouseDown(0, MouseButton::Left, 0, 0);
    WavePic_MouseDown(0, MouseButton::Left, 30, 0);
    ExpectSound(wave, 1);
    SwitchTool(0, Tool::ZoomX);
    ConfirmProperty(dialog);
    EXPECT_TRUE(wave.SelectMode && status == ResText(8)) << status;
}

TEST_F(PropertyTest, BoxesTakeTheViolatedBound) {
    const BoxRow<PropertyDialog> rows[] = {
        // with the row of the unit list, 0 for volts
        {0, LeaveDotnum, DotnumText, {{"7", "8"}, {"9", "9"}, {"4097", "4096"}, {"12x", "500"}}},
        {0, LeaveAmpl, AmplText, {{"-.", "0.0040"}, {"0.0039", "0.0040"}, {"20.0001", "20.0000"}}},
        {1, LeaveAmpl, AmplText, {{"3.9", "4.0"}, {"123.4", "123.4"}, {"20001", "20000.0"}}},
        {0, LeaveQuant, QuantText, {{"1", "2"}, {"16", "16"}, {"33", "32"}}},
        {0, LeaveFreq, FreqText, {{"4.9", "4.900000000000"}, {"5.1", "5.000000000000"}}},
        {1, LeaveFreq, FreqText, {{"12.5", "12.500000000"}}},
        {4, LeaveFreq, FreqText, {{"0", "1"}}},
        {4, LeavePeriod, PeriodText, {{"0.2", "0.200"}, {"0.1", "0.200"}}},
        {0, LeavePeriod, PeriodText, {{"1.5", "1.000000000000000"}}},
    };
    for (const auto& [unit, leave, text, texts] : rows)
        for (const auto& [typed, shown] : texts) {
            PropertyDialog dialog{500, 2.0, 1e-3, 12, unit == 0, true, unit, unit};
            leave(dialog, typed);
            EXPECT_EQ(text(dialog), shown) << typed;
        }
}

TEST_F(PropertyTest, OpensWithTheLargestUnitThatTheValueReaches) {
    const std::tuple<double, const char*, const char*> rows[] = {
        {1e-6, "1.000000000000", "1.000"}, {1.25e-6, "800.000000000", "1.250"},
        {1e-3, "1.000000000", "1.000000"}, {1.0, "1.000000", "1.000000000"},
        {1e3, "1.000", "1.000000000000"},  {1e6, "1", "1.000000000000000"}};
    for (const auto& [period, frequencyText, periodText] : rows) {
        MakeTwoRuns().Period = period;
        EXPECT_EQ(FreqText(OpenPropertyDialog()), frequencyText);
        EXPECT_EQ(PeriodText(OpenPropertyDialog()), periodText);
    }
}

TEST_F(PropertyTest, BoxLeftAsItStoodKeepsEveryDigitAndAnotherUnitReadsItAnew) {
    const double period = 1e-3 / 11.0, vpp = 1.23456789;  // 1 / (1 / period) is another
    PropertyDialog dialog{500, vpp, period, 12, true, true, 0, 4};
    LeaveFreq(dialog, FreqText(dialog));
    LeaveFreq(dialog, "fast");
    LeavePeriod(dialog, PeriodText(dialog));
    LeaveAmpl(dialog, AmplText(dialog));
    EXPECT_TRUE(dialog.Period == period && dialog.Vpp == vpp);
    ChangeAmplUnit(dialog, false, "500");
    EXPECT_DOUBLE_EQ(dialog.Vpp, 0.5);
    ChangeFreqUnit(dialog, 2, "100.000000000");
    EXPECT_DOUBLE_EQ(dialog.Period, 0.01);
    ChangePeriodUnit(dialog, 4, "10.000000");
    EXPECT_DOUBLE_EQ(dialog.Period, 1e-5);
    ModelVariant = true;
    SetInstrumentLimits();
    ChangeFreqUnit(dialog, 0, "9");
    EXPECT_EQ(FreqText(dialog), "4.000000000000");
}

TEST_F(PropertyTest, SpinStepsGrowAndStopAtTheBounds) {
    EXPECT_EQ(StepAt(DotSteps, 10) + StepAt(DotSteps, 11), 600);  // 100 and 500
    const std::tuple<std::int32_t, bool, std::int32_t> rows[] = {
        {3900, true, 4000}, {4000, true, 4096}, {5000, true, 5000},
        {200, false, 100},  {100, false, 8},    {8, false, 8}};
    for (const auto& [from, up, to] : rows) {
        PropertyDialog dialog{.MaxDots = from};
        SpinPropertyDots(dialog, 1, up);
        EXPECT_EQ(dialog.MaxDots, to) << from;
    }
}

TEST_F(PropertyTest, NewDocumentTakesSettingsAndTheFirstFreeSlot) {
    MakeTwoRuns();
    PropertyEditMode = false;
    EXPECT_EQ(Fields(OpenPropertyDialog()), std::tuple(4096, 2.0, 12, 1e-5));
    Save(PropertySection,
         {{"MaxDots", "1e12"}, {"Ampltude", "two"}, {"Quanit", "1"}, {"Period", ".25"}});
    PropertyDialog dialog = OpenPropertyDialog();
    EXPECT_EQ(Fields(dialog), std::tuple(4096, 2.0, 2, 0.25));

    dialog.MaxDots = 300;
    dialog.Vpp = 0.5;
    ConfirmProperty(dialog);
    EXPECT_TRUE(PropertyConfirmed && AnalogDocs[1].DotArray.size() == 300U);
    EXPECT_EQ(AnalogDocs[1].Vpp, 0.5);
    EXPECT_EQ(Saved(PropertySection, {"MaxDots", "Ampltude", "Quanit", "Period"}),
              "300 0.5 2 0.25 ");

    AnalogInUse.fill(true);  // without a free slot no open document is lost
    AnalogDocs[1].Dots = 200;
    ConfirmProperty(OpenPropertyDialog());
    EXPECT_TRUE(!PropertyConfirmed && AnalogDocs[1].Dots == 200);
}

// The snapshot before the change is of the same wave: without undo or with it, volts and cuts stay.
TEST_F(PropertyTest, RewrittenDocumentKeepsVoltsAndFits) {
    const std::tuple<double, std::int32_t, const char*, double, double> rows[] = {
        {8.0, 30, "g0-9 c10-19", 0.25, 0.3}, {2.0, 30, "c0-9 c10-19", 1.0, 1.0},
        {1.0, 30, "c0-9 c10-19", 1.0, 1.0},  {4.0, 40, "g0-9 c10-19", 0.5, 0.6},
        {4.0, 15, "g0-9 c10-14", 0.5, 0.6},  {4.0, 10, "c0-9", 0.5, -0.5},
        {4.0, 8, "c0-7", 0.5, -0.5}};
    for (const auto& [vpp, maxDots, runs, square, last] : rows) {
        AnalogWaveRecord& wave = MakeTwoRuns();
        BeginEdit(wave);
        SelectDots(wave, 3, 18);
        wave.XZoomed = wave.ZoomXMode = true;
        wave.SelectMode = false;
        PropertyDialog dialog = OpenPropertyDialog();
        dialog.Vpp = vpp;
        dialog.MaxDots = maxDots;
        ConfirmProperty(dialog);
        EXPECT_FALSE(wave.HasSelection || wave.XZoomed || wave.ZoomXMode);
        EXPECT_TRUE(wave.SelectMode && wave.Modified && wave.ViewEnd == maxDots - 1);
        EXPECT_EQ(wave.DotArray.size(), std::size_t(maxDots));
        UndoAnalog();
        for (int state = 0; state < 2; ++state, ResumeAnalog()) {
            EXPECT_EQ(Runs(wave), runs) << vpp;
            EXPECT_DOUBLE_EQ(wave.DotArray[0].Y, square) << vpp;
            EXPECT_DOUBLE_EQ(wave.DotArray[5].Y, -square) << vpp;
            EXPECT_DOUBLE_EQ(wave.DotArray[wave.LastDot].Y, last) << vpp;
            ExpectSound(wave);
        }
    }
}

}  // namespace
