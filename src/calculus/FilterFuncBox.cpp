#include "calculus/FilterFuncBox.h"

#include "calculus/RunEdit.h"
#include "calculus/SmoothDots.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/Narrow.h"
#include "frame/NumberField.h"
#include "frame/SpinSteps.h"
#include "frame/StringFunc.h"
#include "platform/Settings.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace {

constexpr std::string_view LowPassSection = "Tidemark_LowPass";
constexpr std::string_view SmoothSection = "Tidemark_Smooth";
constexpr StepBands CutSteps = {1, 10, 20, 50, 100, 200};
constexpr double TapsPerCut = 9.9;  // taps times cut-off, per FftLength
constexpr std::int32_t LeastSmooth = 3;
constexpr std::int32_t SmoothStep = 2;  // keeps the length odd

NumberField CutOffField(const LowPassDialog& dialog) {
    return {dialog.CutFreq, 1.0, double(dialog.MaxCut), "0"};
}

void SetCutOff(LowPassDialog& dialog, double cutFreq) {
    const std::int32_t dots = ActiveAnalog().Dots;
    dialog.CutFreq = cutFreq;
    dialog.FilterLen = RoundToInt(TapsPerCut * dialog.FftLength / cutFreq);
    if (dialog.FilterLen >= dots) dialog.FilterLen = dots - 1;
}

void FilterDots(const LowPassDialog& dialog, std::span<WaveDot> dots) {
    Fir_Calculate(dots.data(), Narrow<std::int32_t>(std::ssize(dots)), dialog.FilterLen,
                  2.0 * dialog.CutFreq / dialog.FftLength, RoundToInt(dialog.FftLength));
    ClipDots(dots);
}

std::string FrequencyText(double hertz) {
    constexpr std::pair<double, std::string_view> Units[] = {
        {1e6, " MHz"}, {1e3, " kHz"}, {1.0, " Hz"}, {1e-3, " mHz"}};
    for (const auto& [unit, name] : Units)
        if (hertz >= unit) return FormatPattern(hertz / unit, "0.000").append(name);
    return FormatPattern(hertz / 1e-6, "0.000") + " µHz";
}

NumberField SmoothField(const SmoothDialog& dialog) {
    return {double(dialog.SmoothDot), double(LeastSmooth), double(dialog.Highest), "0"};
}

// A centred average has a middle: an even length takes one dot more, even past the bound.
void SetSmoothDot(SmoothDialog& dialog, double length) {
    const std::int32_t dots = RoundToInt(length);
    dialog.SmoothDot = Narrow<std::int16_t>(dots % 2 == 0 ? dots + 1 : dots);
}

}  // namespace

LowPassDialog OpenLowPass() {
    const std::int32_t dots = ActiveAnalog().Dots;
    LowPassDialog dialog;
    dialog.MaxCut = dots % 2 == 0 ? dots / 2 : RoundToInt(dots / 2.0 + 1.0);
    dialog.FftLength = std::bit_ceil(3U * static_cast<std::uint32_t>(dots));
    SetCutOff(dialog, RoundToInt(ReadSettingNumber(LowPassSection, "CutFreq", 1.0, 1.0,
                                                   double(dialog.MaxCut))));
    return dialog;
}

std::string CutOffText(const LowPassDialog& dialog) {
    return ShowField(CutOffField(dialog));
}

void LeaveCutOff(LowPassDialog& dialog, std::string_view typed) {
    SetCutOff(dialog, RoundToInt(LeaveField(CutOffField(dialog), typed)));
}

void SpinCutOff(LowPassDialog& dialog, std::int32_t tick, bool up) {
    SetCutOff(dialog,
              SpinValue(RoundToInt(dialog.CutFreq), StepAt(CutSteps, tick), up, 1, dialog.MaxCut));
}

std::string LowPassNote(const LowPassDialog& dialog) {
    const AnalogWaveRecord& wave = ActiveAnalog();
    const double hertz = dialog.CutFreq / dialog.FftLength * wave.MaxDots / wave.Period;
    std::string note(PickText("Cut-off at ", "截止频率 "));
    note += FrequencyText(hertz);
    return note + WithNumbers(PickText(", % taps", "，% 个抽头"), {dialog.FilterLen});
}

void PreviewLowPass(const LowPassDialog& dialog, std::vector<WaveDot>& dots) {
    const auto whole = WholeWave(ActiveAnalog());
    dots.assign(whole.begin(), whole.end());
    FilterDots(dialog, dots);
}

bool PrepareLowPass(const LowPassDialog& dialog) {
    if (ActiveAnalog().Dots < LeastWholeWave) return false;
    SaveSetting(ApplicationTitle, LowPassSection, "CutFreq", CutOffText(dialog));
    return true;
}

void RunLowPass(const LowPassDialog& dialog) {
    EditWholeWave(ActiveAnalogIndex, [&](std::span<WaveDot> dots) { FilterDots(dialog, dots); });
}

SmoothDialog OpenSmooth() {
    const auto run = SmoothedRun(ActiveAnalog());
    SmoothDialog dialog;
    dialog.Highest = Narrow<std::int32_t>(std::min<std::ptrdiff_t>(LongestSmooth, std::ssize(run)));
    SetSmoothDot(dialog, ReadSettingNumber(SmoothSection, "SmoothDot", LeastSmooth, LeastSmooth,
                                           double(dialog.Highest)));
    return dialog;
}

std::string SmoothDotText(const SmoothDialog& dialog) {
    return ShowField(SmoothField(dialog));
}

void LeaveSmoothDot(SmoothDialog& dialog, std::string_view typed) {
    SetSmoothDot(dialog, LeaveField(SmoothField(dialog), typed));
}

void SpinSmoothDot(SmoothDialog& dialog, std::int32_t /*tick*/, bool up) {
    SetSmoothDot(dialog, SpinValue(dialog.SmoothDot, SmoothStep, up, LeastSmooth, dialog.Highest));
}

std::span<WaveDot> SmoothedRun(AnalogWaveRecord& wave) {
    return wave.HasSelection ? SelectedDots(wave) : WholeWave(wave);
}

void PreviewSmooth(const SmoothDialog& dialog, std::vector<WaveDot>& dots) {
    const auto run = SmoothedRun(ActiveAnalog());
    dots.assign(run.begin(), run.end());
    SmoothDots(dots, dialog.SmoothDot);
}

bool ConfirmSmooth(const SmoothDialog& dialog) {
    const AnalogWaveRecord& wave = ActiveAnalog();
    if (wave.Dots < LeastWholeWave) return false;
    SaveSetting(ApplicationTitle, SmoothSection, "SmoothDot", SmoothDotText(dialog));
    const auto smooth = [&](std::span<WaveDot> dots) { SmoothDots(dots, dialog.SmoothDot); };
    if (wave.HasSelection)
        EditSelection(smooth);
    else
        EditWholeWave(ActiveAnalogIndex, smooth);
    return true;
}
