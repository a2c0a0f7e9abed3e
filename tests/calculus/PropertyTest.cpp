#include "calculus/PropertyFuncBox.h"

#include "calculus/DialogFixture.h"
#include "calculus/SpinSteps.h"

namespace {

class PropertyTest : public DialogFixture {
protected:
    // 10 dots of a 2 V square wave, then 10 free-form dots at 0.6, in 4 V peak to peak.
    static AnalogWaveRecord& MakeTwoRuns() {
        AnalogWaveRecord& wave = MakeDocument(30);
        AddCustom(10);
        AddCustom(10);
        WaveSegment& square = wave.Segments[0];
        square.Custom = false;
        square.Kind = 1;
        square.Amplitude = 2.0F;
        square.Cycles = 1;
        square.Duty = 50;
        for (int dot = 0; dot < 20; ++dot) {
            wave.DotArray[dot].Y = dot < 5 ? 0.5 : dot < 10 ? -0.5 : 0.6;
        }
        return wave;
    }
};

struct BoxRow {
    const char* name;
    void (*leave)(PropertyDialog&, std::string_view);
    std::string (*text)(const PropertyDialog&);
    std::int16_t unit;  // row of the unit list, 0 for volts
    const char* typed;
    const char* shown;
};

TEST_F(PropertyTest, BoxesTakeTheViolatedBound) {
    const BoxRow rows[] = {
        {"dots below", LeaveDotnum, DotnumText, 0, "7", "8"},
        {"dots lowest", LeaveDotnum, DotnumText, 0, "8", "8"},
        {"dots highest", LeaveDotnum, DotnumText, 0, "4096", "4096"},
        {"dots above", LeaveDotnum, DotnumText, 0, "4097", "4096"},
        {"dots no number", LeaveDotnum, DotnumText, 0, "12x", "500"},
        {"volts below", LeaveAmpl, AmplText, 0, "0.0039", "0.0040"},
        {"volts half typed", LeaveAmpl, AmplText, 0, "-.", "0.0040"},
        {"volts highest", LeaveAmpl, AmplText, 0, "20", "20.0000"},
        {"volts above", LeaveAmpl, AmplText, 0, "20.0001", "20.0000"},
        {"millivolts below", LeaveAmpl, AmplText, 1, "3.9", "4.0"},
        {"millivolts lowest", LeaveAmpl, AmplText, 1, "4", "4.0"},
        {"millivolts inside", LeaveAmpl, AmplText, 1, "123.4", "123.4"},
        {"millivolts above", LeaveAmpl, AmplText, 1, "20001", "20000.0"},
        {"bits below", LeaveQuant, QuantText, 0, "1", "2"},
        {"bits highest", LeaveQuant, QuantText, 0, "32", "32"},
        {"bits above", LeaveQuant, QuantText, 0, "33", "32"},
        {"MHz highest", LeaveFreq, FreqText, 0, "5", "5.000000000000"},
        {"MHz above", LeaveFreq, FreqText, 0, "5.1", "5.000000000000"},
        {"KHz inside", LeaveFreq, FreqText, 1, "12.5", "12.500000000"},
        {"mHz below", LeaveFreq, FreqText, 3, "0.0005", "0.001"},
        {"uHz lowest", LeaveFreq, FreqText, 4, "1", "1"},
        {"uHz below", LeaveFreq, FreqText, 4, "0", "1"},
        {"uS lowest", LeavePeriod, PeriodText, 4, "0.2", "0.200"},
        {"uS below", LeavePeriod, PeriodText, 4, "0.1", "0.200"},
        {"MS highest", LeavePeriod, PeriodText, 0, "1", "1.000000000000000"},
        {"MS above", LeavePeriod, PeriodText, 0, "1.5", "1.000000000000000"},
    };
    for (const BoxRow& row : rows) {
        PropertyDialog dialog{500, 2.0, 1e-3, 12, row.unit == 0, true, row.unit, row.unit};
        row.leave(dialog, row.typed);
        EXPECT_EQ(row.text(dialog), row.shown) << row.name;
    }
    ModelVariant = true;
    MakeDocument(100);
    PropertyDialog early = OpenPropertyDialog();
    ChangeFreqUnit(early, 0, "9");
    EXPECT_EQ(FreqText(early), "4.000000000000");
}

TEST_F(PropertyTest, OpensWithTheLargestUnitThatTheValueReaches) {
    const struct {
        double period;
        std::int16_t frequencyUnit, periodUnit;
        const char* frequency;
    } rows[] = {
        {1e-6, 0, 4, "1.000000000000"},
        {1.25e-6, 1, 4, "800.000000000"},
        {1e-3, 1, 3, "1.000000000"},
        {1.0, 2, 2, "1.000000"},
        {2.0, 3, 2, "500.000"},
        {1000.0, 3, 1, "1.000"},
        {1e6, 4, 0, "1"},
    };
    for (const auto& row : rows) {
        MakeDocument(100).Period = row.period;
        const PropertyDialog dialog = OpenPropertyDialog();
        EXPECT_EQ(dialog.FrequencyUnit, row.frequencyUnit) << row.period;
        EXPECT_EQ(dialog.PeriodUnit, row.periodUnit) << row.period;
        EXPECT_EQ(FreqText(dialog), row.frequency) << row.period;
    }
}

TEST_F(PropertyTest, AnotherUnitReadsTheSameNumberAnew) {
    PropertyDialog dialog{500, 2.0, 1e-3, 12, true, true, 1, 3};
    ChangeAmplUnit(dialog, false, "500");
    EXPECT_DOUBLE_EQ(dialog.Vpp, 0.5);
    ChangeAmplUnit(dialog, true, "500.0");
    EXPECT_EQ(dialog.Vpp, 20.0);
    ChangeFreqUnit(dialog, 2, "100.000000000");
    EXPECT_DOUBLE_EQ(dialog.Period, 0.01);
    ChangePeriodUnit(dialog, 4, "10.000000");
    EXPECT_DOUBLE_EQ(dialog.Period, 1e-5);
    EXPECT_EQ(FreqText(dialog), "100000.000000");
}

TEST_F(PropertyTest, BoxLeftAsItStoodKeepsEveryDigit) {
    const double period = 1e-3 / 3.0, vpp = 1.23456789;
    PropertyDialog dialog{500, vpp, period, 12, true, true, 0, 4};
    LeaveFreq(dialog, FreqText(dialog));
    LeaveFreq(dialog, "fast");
    LeavePeriod(dialog, PeriodText(dialog));
    LeaveAmpl(dialog, AmplText(dialog));
    EXPECT_EQ(dialog.Period, period);
    EXPECT_EQ(dialog.Vpp, vpp);
}

TEST_F(PropertyTest, SpinStepsGrowAndStopAtTheBounds) {
    const std::pair<std::int32_t, std::int32_t> bands[] = {
        {1, 100},   {10, 100},  {11, 500},  {20, 500},  {21, 1000},  {30, 1000},
        {31, 2000}, {40, 2000}, {41, 5000}, {50, 5000}, {51, 10000}, {900, 10000}};
    for (const auto& [tick, step] : bands) EXPECT_EQ(StepAt(DotSteps, tick), step) << tick;
    const struct {
        std::int32_t from;
        bool up;
        std::int32_t to;
    } rows[] = {{3900, true, 4000}, {4000, true, 4096}, {5000, true, 5000},
                {200, false, 100},  {100, false, 8},    {8, false, 8}};
    for (const auto& row : rows) {
        PropertyDialog dialog;
        dialog.MaxDots = row.from;
        SpinPropertyDots(dialog, 1, row.up);
        EXPECT_EQ(dialog.MaxDots, row.to) << row.from;
    }
}

TEST_F(PropertyTest, NewDocumentTakesSettingsAndTheFirstFreeSlot) {
    PropertyEditMode = false;
    const PropertyDialog fresh = OpenPropertyDialog();
    EXPECT_EQ(fresh.MaxDots, 4096);
    EXPECT_EQ(fresh.Vpp, 2.0);
    EXPECT_EQ(fresh.Quantify, 12);
    EXPECT_EQ(fresh.Period, 1e-5);

    SaveSetting(ApplicationTitle, PropertySection, "MaxDots", "1e12");
    SaveSetting(ApplicationTitle, PropertySection, "Ampltude", "two");
    SaveSetting(ApplicationTitle, PropertySection, "Quanit", "1");
    SaveSetting(ApplicationTitle, PropertySection, "Period", "0.25");
    PropertyDialog dialog = OpenPropertyDialog();
    EXPECT_EQ(dialog.MaxDots, 4096);
    EXPECT_EQ(dialog.Vpp, 2.0);
    EXPECT_EQ(dialog.Quantify, 2);
    EXPECT_EQ(dialog.Period, 0.25);

    dialog.MaxDots = 300;
    dialog.Vpp = 0.5;
    ConfirmProperty(dialog);
    EXPECT_TRUE(PropertyConfirmed);
    EXPECT_EQ(ActiveAnalogIndex, 1);
    EXPECT_EQ(AnalogDocs[1].DotArray.size(), 300U);
    EXPECT_EQ(AnalogDocs[1].ViewEnd, 299);
    EXPECT_EQ(AnalogDocs[1].Vpp, 0.5);
    EXPECT_EQ(Setting(PropertySection, "MaxDots"), "300");
    EXPECT_EQ(Setting(PropertySection, "Ampltude"), "0.5");
    EXPECT_EQ(Setting(PropertySection, "Quanit"), "2");
    EXPECT_EQ(Setting(PropertySection, "Period"), "0.25");
}

TEST_F(PropertyTest, NoFreeSlotLosesNoOpenDocument) {
    MakeDocument(50);
    AddCustom(20);
    AnalogInUse.fill(true);
    PropertyEditMode = false;
    ConfirmProperty(OpenPropertyDialog());
    EXPECT_FALSE(PropertyConfirmed);
    EXPECT_EQ(AnalogDocs[0].Dots, 20);
}

TEST_F(PropertyTest, AnotherVppKeepsVoltsAndClips) {
    const struct {
        double vpp, high, low, freeForm;
        bool standard;
    } rows[] = {{8.0, 0.25, -0.25, 0.3, true},
                {4.0, 0.5, -0.5, 0.6, true},
                {2.0, 1.0, -1.0, 1.0, false},
                {1.0, 1.0, -1.0, 1.0, false}};
    for (const auto& row : rows) {
        AnalogWaveRecord& wave = MakeTwoRuns();
        BeginEdit(wave);
        PropertyDialog dialog = OpenPropertyDialog();
        dialog.Vpp = row.vpp;
        ConfirmProperty(dialog);
        EXPECT_DOUBLE_EQ(wave.DotArray[0].Y, row.high) << row.vpp;
        EXPECT_DOUBLE_EQ(wave.DotArray[9].Y, row.low) << row.vpp;
        EXPECT_DOUBLE_EQ(wave.DotArray[19].Y, row.freeForm) << row.vpp;
        EXPECT_EQ(wave.DotArray[19].X, 19.0);
        EXPECT_EQ(!wave.Segments[0].Custom, row.standard) << row.vpp;
        EXPECT_EQ(bool(wave.UndoAvailable), row.vpp == 4.0);
        EXPECT_TRUE(wave.Modified);
    }
}

TEST_F(PropertyTest, CapacityCutsDotsSegmentsAndSnapshot) {
    const struct {
        std::int32_t maxDots, dots, segments, lastCount;
    } rows[] = {{40, 20, 2, 10}, {20, 20, 2, 10}, {15, 15, 2, 5}, {8, 8, 1, 8}};
    for (const auto& row : rows) {
        AnalogWaveRecord& wave = MakeTwoRuns();
        BeginEdit(wave);
        SelectDots(wave, 3, 18);
        wave.XZoomed = wave.ZoomXMode = true;
        wave.SelectMode = false;
        PropertyDialog dialog = OpenPropertyDialog();
        dialog.MaxDots = row.maxDots;
        ConfirmProperty(dialog);
        EXPECT_EQ(wave.DotArray.size(), std::size_t(row.maxDots));
        EXPECT_EQ(wave.ViewEnd, row.maxDots - 1);
        EXPECT_FALSE(wave.HasSelection || wave.XZoomed || wave.ZoomXMode);
        EXPECT_TRUE(wave.SelectMode);
        UndoAnalog();  // the snapshot was the same wave, so it is cut to the same
        for (int state = 0; state < 2; ++state, ResumeAnalog()) {
            EXPECT_EQ(wave.Dots, row.dots) << row.maxDots;
            EXPECT_EQ(wave.LastDot, row.dots - 1) << row.maxDots;
            ASSERT_EQ(wave.SegmentCount, row.segments) << row.maxDots;
            const WaveSegment& last = wave.Segments[row.segments - 1];
            EXPECT_EQ(last.EndDot, row.dots - 1) << row.maxDots;
            EXPECT_EQ(last.DotCount, row.lastCount) << row.maxDots;
            EXPECT_TRUE(last.Custom) << row.maxDots;
            EXPECT_EQ(wave.DotArray[row.dots - 1].Y, row.dots > 10 ? 0.6 : -0.5);
        }
    }
}

}  // namespace
