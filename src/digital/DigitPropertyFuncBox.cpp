#include "digital/DigitPropertyFuncBox.h"

#include "digital/DigitDocumentFuncBox.h"
#include "digital/DigitEditFuncBox.h"
#include "digital/DrawDigitWave.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/Narrow.h"
#include "frame/NumberField.h"
#include "frame/SpinSteps.h"
#include "frame/StringFunc.h"
#include "platform/Host.h"
#include "platform/Settings.h"

#include <algorithm>

namespace {

constexpr std::string_view Section = "Tidemark_DigitProperty";

constexpr std::array<double, RateUnits.size()> UnitFactors = {1e6, 1e3, 1.0};  // bits per second

// How a rate is shown from a bound up.
struct RateRow {
    double From;  // bits per second
    std::int16_t Unit;
    std::string_view Pattern;
};
constexpr RateRow RateRows[] = {
    {1e6, 0, "0.0000"}, {1e5, 1, "0.00"}, {1e4, 1, "0.000"}, {1e3, 1, "0.0000"}, {0.0, 2, "0.0"}};

double FactorOf(std::int16_t unit) {
    return UnitFactors[static_cast<std::size_t>(HoldBetween(unit, 0, 2))];
}

double TypedRate(std::string_view typed, std::int16_t unit) {
    return TextToNumber(typed).value_or(MaxDigitRate) * FactorOf(unit);
}

double HoldRate(double rate) {
    return HoldBetween(rate, MinDigitRate, MaxDigitRate);
}

const RateRow& RowOfRate(double rate) {
    return *std::ranges::find_if(RateRows, [rate](const RateRow& row) { return rate >= row.From; });
}

std::string TextOfRate(double rate) {
    const RateRow& row = RowOfRate(rate);
    return FormatPattern(rate / FactorOf(row.Unit), row.Pattern);
}

void ShowRate(DigitPropertyDialog& dialog) {
    dialog.RateUnit = RowOfRate(dialog.Rate).Unit;
    dialog.RateText = TextOfRate(dialog.Rate);
}

void HoldPosition(DigitPropertyDialog& dialog) {
    dialog.Position = HoldBetween(dialog.Position, 0, dialog.Dots - 1);
}

void SaveProperty(const DigitPropertyDialog& dialog) {
    SaveSetting(ApplicationTitle, Section, "MaxDots", std::to_string(dialog.Dots));
    SaveSetting(ApplicationTitle, Section, "Rate", ShortestText(dialog.Rate));
    SaveSetting(ApplicationTitle, Section, "Position", std::to_string(dialog.Position));
}

}  // namespace

std::string RateWithUnit(double rate) {
    const auto unit = static_cast<std::size_t>(RowOfRate(rate).Unit);
    return TextOfRate(rate).append(" ").append(RateUnits[unit]);
}

DigitPropertyDialog OpenDigitProperty() {
    SetInstrumentLimits();
    PropertyApplied = false;
    DigitPropertyDialog dialog;
    if (EditDigitProperty) {
        dialog.Dots = ActiveDigit().Dots;
        dialog.Rate = ActiveDigit().Rate;
    } else {
        const std::int16_t slot = FirstFreeSlot(DigitDocUsed);
        if (slot >= 0) ActiveDigitIndex = slot;
        dialog.Dots =
            RoundToInt(ReadSettingNumber(Section, "MaxDots", 4096.0, MinDigitDots, MaxWaveDots));
        dialog.Rate = ReadSettingNumber(Section, "Rate", 100000.0, MinDigitRate, MaxDigitRate);
    }
    dialog.Position =
        RoundToInt(ReadSettingNumber(Section, "Position", 1.0, 0.0, double(dialog.Dots) - 1.0));
    ShowRate(dialog);
    return dialog;
}

std::string ChangeDigitDots(std::string_view typed) {
    return HoldDigits(typed, MaxWaveDots);
}

std::string ChangePosition(const DigitPropertyDialog& dialog, std::string_view typed) {
    return HoldDigits(typed, dialog.Dots - 1);
}

std::string ChangeRate(const DigitPropertyDialog& dialog, std::string_view typed) {
    if (TypedRate(typed, dialog.RateUnit) <= MaxDigitRate) return std::string(typed);
    return GeneralText(MaxDigitRate / FactorOf(dialog.RateUnit));
}

void LeaveDigitDots(DigitPropertyDialog& dialog, std::string_view typed) {
    dialog.Dots = HoldBetween(WholeNumber(typed), MinDigitDots, MaxWaveDots);
    HoldPosition(dialog);
}

void LeavePosition(DigitPropertyDialog& dialog, std::string_view typed) {
    dialog.Position = WholeNumber(typed);
    HoldPosition(dialog);
}

void LeaveRate(DigitPropertyDialog& dialog, std::string_view typed) {
    if (typed != dialog.RateText) dialog.Rate = TypedRate(typed, dialog.RateUnit);
    dialog.Rate = HoldRate(dialog.Rate);
    ShowRate(dialog);
}

void ChangeRateUnit(DigitPropertyDialog& dialog, std::int16_t unit, std::string_view typed) {
    if (unit == dialog.RateUnit) return;
    const double rate = TypedRate(typed, unit);
    dialog.Rate = HoldRate(rate);
    ShowRate(dialog);
    if (dialog.Rate != rate || dialog.RateUnit == unit) return;
    dialog.RateUnit = unit;
    dialog.RateText = typed;
}

void SpinDigitDots(DigitPropertyDialog& dialog, std::int32_t tick, bool up) {
    dialog.Dots = SpinValue(dialog.Dots, StepAt(DotSteps, tick), up, MinDigitDots, MaxWaveDots);
    HoldPosition(dialog);
}

void SpinPosition(DigitPropertyDialog& dialog, std::int32_t tick, bool up) {
    dialog.Position = SpinValue(dialog.Position, StepAt(DotSteps, tick), up, 0, dialog.Dots - 1);
}

std::string_view DigitPropertyNote() {
    if (!EditDigitProperty || ActiveDigit().NodeCount == 0) return {};
    return PickText("OK empties the waveform. This cannot be undone.",
                    "按“确定”将清空波形，且无法撤消。");
}

DialogEnd ConfirmDigitProperty(const DigitPropertyDialog& dialog) {
    const std::int16_t index = ActiveDigitIndex;
    // With every slot taken the active one is an open document, not a place for a new one.
    if (!EditDigitProperty && DigitDocUsed[static_cast<std::size_t>(index)])
        return DialogEnd::Close;
    DigitDocument& document = ActiveDigit();
    document.Dots = dialog.Dots;
    document.Rate = dialog.Rate;
    document.CaliperDefault = dialog.Position;
    PropertyApplied = true;
    SaveProperty(dialog);
    if (!EditDigitProperty) return DialogEnd::Done;
    ResetDigitDocument(document);
    MarkChanged(document);
    TheHost().RefreshCommands();
    TheHost().ShowTitle(TagOfDigit(index));
    Paint(index, true, true);
    return DialogEnd::Done;
}
