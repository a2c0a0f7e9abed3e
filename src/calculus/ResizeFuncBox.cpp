#include "calculus/ResizeFuncBox.h"

#include "analog/EditFuncBox.h"
#include "analog/SegmentEngine.h"
#include "calculus/RunEdit.h"
#include "frame/GlobalDefineCode.h"
#include "frame/Narrow.h"
#include "frame/NumberField.h"
#include "frame/SpinSteps.h"

namespace {

constexpr std::int32_t LeastNewDots = 2;
constexpr std::int32_t LargestPercent = 30000;

NumberField NewDotsField(const ResizeDialog& dialog) {
    return {double(dialog.NewDots), double(LeastNewDots), double(dialog.Room), "0"};
}
NumberField AmplPercentField(const ResizeDialog& dialog) {
    return {double(dialog.AmplPercent), 0.0, double(LargestPercent), "0"};
}

// Writes the resized run to `target`, whose first dot is dot `first` of its array.
void WriteResized(const ResizeDialog& dialog, std::span<const WaveDot> run, WaveDot* target,
                  std::int32_t first) {
    const auto length = Narrow<std::int32_t>(std::ssize(run));
    resizewv(target, run.data(), length, dialog.NewDots - length, dialog.AmplPercent, first);
    if (dialog.AmplPercent > 100) ClipDots({target, static_cast<std::size_t>(dialog.NewDots)});
}

}  // namespace

ResizeDialog OpenResize() {
    const AnalogWaveRecord& wave = ActiveAnalog();
    ResizeDialog dialog;
    dialog.NewDots = SelectionLength(wave);
    dialog.Room = RoomOf(wave);
    return dialog;
}

std::string NewDotsText(const ResizeDialog& dialog) {
    return ShowField(NewDotsField(dialog));
}
std::string AmplPercentText(const ResizeDialog& dialog) {
    return ShowField(AmplPercentField(dialog));
}

void LeaveNewDots(ResizeDialog& dialog, std::string_view typed) {
    dialog.NewDots = RoundToInt(LeaveField(NewDotsField(dialog), typed));
}
void LeaveAmplPercent(ResizeDialog& dialog, std::string_view typed) {
    dialog.AmplPercent = RoundToInt(LeaveField(AmplPercentField(dialog), typed));
}

void SpinNewDots(ResizeDialog& dialog, std::int32_t tick, bool up) {
    dialog.NewDots =
        SpinValue(dialog.NewDots, StepAt(DotSteps, tick), up, LeastNewDots, dialog.Room);
}
void SpinAmplPercent(ResizeDialog& dialog, std::int32_t /*tick*/, bool up) {
    dialog.AmplPercent = SpinValue(dialog.AmplPercent, 1, up, 0, LargestPercent);
}

void PreviewResize(const ResizeDialog& dialog, std::vector<WaveDot>& dots) {
    dots.resize(static_cast<std::size_t>(dialog.NewDots));
    WriteResized(dialog, SelectedDots(ActiveAnalog()), dots.data(), 0);
}

bool ConfirmResize(const ResizeDialog& dialog) {
    AnalogWaveRecord& wave = ActiveAnalog();
    const std::int32_t count = dialog.NewDots;
    if (!wave.HasSelection || count < 1 || count > RoomOf(wave)) return false;
    if (count == SelectionLength(wave) && dialog.AmplPercent == 100) return false;
    BeginEdit(wave);
    const std::span<WaveDot> selected = SelectedDots(wave);
    const std::vector<WaveDot> run(selected.begin(), selected.end());
    MarkRunCustom(wave, count);  // reads the bounds as they are before the dots move
    ResizeSelection(wave, count);
    WriteResized(dialog, run, wave.DotArray.data() + wave.SelStart, wave.SelStart);
    EndEdit(ActiveAnalogIndex);
    return true;
}
