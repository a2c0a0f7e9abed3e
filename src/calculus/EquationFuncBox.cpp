#include "calculus/EquationFuncBox.h"

#include "analog/EditFuncBox.h"
#include "analog/SegmentEngine.h"
#include "calculus/RunEdit.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/Narrow.h"
#include "frame/NumberField.h"
#include "frame/SpinSteps.h"
#include "frame/StringFunc.h"
#include "platform/Settings.h"

#include <algorithm>
#include <cmath>

const std::array<std::string_view, ExampleCount> EquationExamples = {
    "A*exp(-5*x)*sin(2*pi*10*x)",
    "A*(1+0.8*sin(2*pi*2*x))/1.8*sin(2*pi*40*x)",
    "A*sin(2*pi*20*x+5*sin(2*pi*2*x))",
    "A*sin(2*pi*(2*x+20*x^2))",
    "A*sinc(20*(x-0.5))",
    "A*gauss((x-0.5)/0.1)",
    "A*(x<0.5 ? 1-exp(-10*x) : exp(-10*(x-0.5)))",
    "A*(2*min(floor(8*x),7)/7-1)",
    "A*sign(0.8*sin(2*pi*2*x)-saw(2*pi*40*x))",
    "A*(0.8*sin(2*pi*3*x)+0.2*noise())",
    "A*(0.12*gauss((x-0.2)/0.025)-0.12*gauss((x-0.36)/0.01)+gauss((x-0.4)/0.012)"
    "-0.25*gauss((x-0.44)/0.012)+0.3*gauss((x-0.65)/0.045))",
    "A*(sin(2*pi*x)+sin(6*pi*x)/3+sin(10*pi*x)/5)",
    "A*rect((x-0.5)/0.4)*sin(2*pi*20*x)",
    "A*sin(2*pi*200k*t)",
};

namespace {

constexpr std::string_view Section = "Tidemark_Equation";
constexpr std::string_view FirstEquation = "A*sin(2*pi*x)";
constexpr std::int32_t PreviewDots = 4096;
constexpr std::int32_t CountDots = 32768;  // counted between two keys: some milliseconds
constexpr double RailTolerance = 1e-9;     // rounding of a wave that fills the rails is no clipping

std::uint32_t nextSeed = 1;  // another noise for each opening, the same after each start

bool HasFault(const EquationDialog& dialog) {
    return dialog.Fault.Error != EquationError::None;
}

bool IsRemembered(std::string_view text) {
    const bool printable = std::ranges::none_of(text, [](char c) { return c >= 0 && c < ' '; });
    return !text.empty() && printable && ColumnOf(text, text.size()) <= LongestEquation;
}

void Remember(std::vector<std::string>& history, std::string_view text, bool first) {
    if (!IsRemembered(text)) return;
    if (first) {
        std::erase(history, text);
        history.emplace(history.begin(), text);
    } else if (std::ranges::find(history, text) == history.end()) {
        history.emplace_back(text);
    }
    if (history.size() > LongestHistory) history.resize(LongestHistory);
}

std::string HistoryKey(std::int32_t number) {
    return "Expression" + std::to_string(number);
}

std::vector<std::string> LoadHistory() {
    std::vector<std::string> history;
    const std::int32_t count =
        RoundToInt(ReadSettingNumber(Section, "Count", 0.0, 0.0, LongestHistory));
    for (std::int32_t number = 1; number <= count; ++number)
        Remember(history, GetSetting(ApplicationTitle, Section, HistoryKey(number), ""), false);
    return history;
}

void SaveHistory(const std::vector<std::string>& history) {
    std::int32_t number = 0;
    for (const std::string& text : history)
        SaveSetting(ApplicationTitle, Section, HistoryKey(++number), text);
    SaveSetting(ApplicationTitle, Section, "Count", std::to_string(number));
}

void CountAnew(EquationDialog& dialog) {
    dialog.Counted = dialog.NotFinite = dialog.Clipped = 0;
}

NumberField DotsField(const EquationDialog& dialog) {
    return {double(dialog.Scales.Dots), 1.0, double(dialog.Room), "0"};
}

void SetDots(EquationDialog& dialog, std::int32_t dots) {
    if (dots != dialog.Scales.Dots) CountAnew(dialog);
    dialog.Scales.Dots = dots;
}

// Where the dots go and how many fit, by the document as it is now.
void TakePlace(EquationDialog& dialog, const AnalogWaveRecord& wave, bool replace) {
    dialog.Replaces = replace && wave.HasSelection;
    dialog.Room = dialog.Replaces ? RoomOf(wave) : wave.MaxDots - wave.Dots;
    dialog.Scales.Start = dialog.Replaces ? wave.SelStart : wave.Dots;
}

std::vector<WaveDot> NumberedDots(std::int32_t first, std::int32_t count) {
    std::vector<WaveDot> dots(static_cast<std::size_t>(std::max(count, 0)));
    for (WaveDot& dot : dots) dot.X = first++;
    return dots;
}

double ClippedToRails(double volts, double rail) {
    return std::isfinite(volts) ? std::clamp(volts / rail, -1.0, 1.0) : 0.0;
}

// Where the picture has fewer dots than the wave, each stands for a step of them. It takes one
// from anywhere in its step: at equal distances a fast wave would show as a slow one.
std::int32_t PreviewedDot(std::int32_t at, std::int32_t shown, std::int32_t dots) {
    if (dots <= shown) return at;
    const std::int64_t begin = std::int64_t{at} * (dots - 1) / (shown - 1);
    const std::int64_t end = (std::int64_t{at} + 1) * (dots - 1) / (shown - 1);
    const auto spread = static_cast<std::uint32_t>(at) * 2654435761U;  // golden ratio * 2^32
    const bool atEdge = at == 0 || at == shown - 1;
    const std::int64_t inside = atEdge ? 0 : (std::int64_t{spread} * (end - begin)) >> 32U;
    return Narrow<std::int32_t>(begin + inside);
}

// Makes room for the dots, moves the segments with it, and selects the run.
void OpenRun(AnalogWaveRecord& wave, const EquationDialog& dialog) {
    const std::int32_t count = dialog.Scales.Dots;
    if (dialog.Replaces) {
        MarkRunCustom(wave, count);  // reads the bounds as they are before the dots move
        ResizeSelection(wave, count);
    } else {
        AppendSegment(wave, {.DotCount = count});
        SelectDots(wave, wave.Dots - count, wave.Dots - 1);
    }
}

}  // namespace

EquationDialog OpenEquation(bool replace) {
    const AnalogWaveRecord& wave = ActiveAnalog();
    EquationDialog dialog;
    dialog.Scales = {
        .MaxDots = wave.MaxDots, .Period = wave.Period, .Vpp = wave.Vpp, .Seed = nextSeed++};
    TakePlace(dialog, wave, replace);
    dialog.Scales.Dots = dialog.Replaces ? SelectionLength(wave) : dialog.Room;
    dialog.History = LoadHistory();
    ChangeEquation(dialog, dialog.History.empty() ? FirstEquation : dialog.History.front());
    return dialog;
}

void ChangeEquation(EquationDialog& dialog, std::string_view text) {
    CountAnew(dialog);
    dialog.Text = text;
    dialog.Fault = EvaluateEquation(text, dialog.Scales, {});
}

std::string EquationDotsText(const EquationDialog& dialog) {
    return ShowField(DotsField(dialog));
}

void LeaveEquationDots(EquationDialog& dialog, std::string_view typed) {
    SetDots(dialog, RoundToInt(LeaveField(DotsField(dialog), typed)));
}

void SpinEquationDots(EquationDialog& dialog, std::int32_t tick, bool up) {
    SetDots(dialog,
            SpinValue(dialog.Scales.Dots, StepAt(DotSteps, tick), up, LowestSpinDots, dialog.Room));
}

bool CountEquation(EquationDialog& dialog) {
    const std::int32_t left = dialog.Scales.Dots - dialog.Counted;
    if (HasFault(dialog) || left <= 0) return true;
    std::vector<WaveDot> dots = NumberedDots(dialog.Counted, std::min(left, CountDots));
    dialog.Fault = EvaluateEquation(dialog.Text, dialog.Scales, dots);
    const double rail = dialog.Scales.Vpp / 2.0 * (1.0 + RailTolerance);
    for (const WaveDot& dot : dots) {
        if (!std::isfinite(dot.Y))
            ++dialog.NotFinite;
        else if (std::abs(dot.Y) > rail)
            ++dialog.Clipped;
    }
    dialog.Counted += Narrow<std::int32_t>(std::ssize(dots));
    return dialog.Counted >= dialog.Scales.Dots;
}

bool PreviewEquation(const EquationDialog& dialog, std::vector<WaveDot>& dots) {
    const std::int32_t count = dialog.Scales.Dots, shown = std::min(count, PreviewDots);
    std::vector<WaveDot> made = NumberedDots(0, shown);
    for (std::int32_t i = 0; i < shown; ++i) made[i].X = PreviewedDot(i, shown, count);
    const EquationFault fault = EvaluateEquation(dialog.Text, dialog.Scales, made);
    if (fault.Error != EquationError::None) return false;
    for (std::int32_t i = 0; i < shown; ++i)
        made[i] = {double(i), ClippedToRails(made[i].Y, dialog.Scales.Vpp / 2.0)};
    dots = std::move(made);
    return true;
}

std::string EquationNote(const EquationDialog& dialog) {
    if (HasFault(dialog)) return FaultText(dialog.Fault, dialog.Text);
    std::string note;
    if (dialog.NotFinite > 0)
        note = WithNumbers(PickText("% of % values are not numbers and count as 0 V. ",
                                    "% 个值（共 % 个）不是数值，按 0 V 处理。"),
                           {dialog.NotFinite, dialog.Scales.Dots});
    return note + ClippedNote(dialog.Clipped, dialog.Scales.Dots);
}

std::string EquationPlace(const EquationDialog& dialog) {
    const std::int32_t start = dialog.Scales.Start;
    const AnalogWaveRecord& wave = ActiveAnalog();
    if (dialog.Replaces)
        return WithNumbers(PickText("replaces dots % to %", "替换第 % 至 % 点"),
                           {start, start + SelectionLength(wave) - 1});
    return WithNumbers(PickText("appended from dot % on", "从第 % 点起追加"), {start});
}

bool ConfirmEquation(EquationDialog& dialog) {
    AnalogWaveRecord& wave = ActiveAnalog();
    TakePlace(dialog, wave, bool(dialog.Replaces));
    if (dialog.Room < 1) return false;
    SetDots(dialog, HoldBetween(dialog.Scales.Dots, 1, dialog.Room));
    const std::int32_t start = dialog.Scales.Start, count = dialog.Scales.Dots;
    std::vector<WaveDot> made = NumberedDots(0, count);
    dialog.Fault = EvaluateEquation(dialog.Text, dialog.Scales, made);
    if (HasFault(dialog)) return false;
    BeginEdit(wave);
    OpenRun(wave, dialog);
    for (std::int32_t i = 0; i < count; ++i)
        wave.DotArray[start + i] = {double(start + i), ClippedToRails(made[i].Y, wave.Vpp / 2.0)};
    Remember(dialog.History, TrimBlanks(dialog.Text), true);
    SaveHistory(dialog.History);
    EndEdit(ActiveAnalogIndex);
    return true;
}
