#include "calculus/WindowMathFuncBox.h"

#include "calculus/RunEdit.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/Narrow.h"
#include "frame/StringFunc.h"

#include <algorithm>

namespace {

AnalogWaveRecord& DocumentAt(const WindowMathDialog& dialog, std::int16_t place) {
    return AnalogAt(dialog.Documents[place]);
}

void Preview(WindowMathDialog& dialog) {
    if (dialog.Documents.empty()) return;
    dialog.Clipped = CombineDots(WholeWave(DocumentAt(dialog, dialog.Source)),
                                 WholeWave(DocumentAt(dialog, dialog.Math)), dialog.Operation,
                                 dialog.PreviewDots);
}

bool IsListed(std::int16_t slot) {
    return AnalogInUse[slot] && AnalogDocs[slot].Dots > 0;
}

}  // namespace

bool HasWindowMath() {
    for (std::int16_t slot = 0; slot < MaxDocuments; ++slot)
        if (IsListed(slot)) return true;
    return false;
}

WindowMathDialog OpenWindowMath() {
    WindowMathDialog dialog;
    for (std::int16_t slot = 0; slot < MaxDocuments; ++slot) {
        if (!IsListed(slot)) continue;
        if (slot == ActiveAnalogIndex)
            dialog.Source = Narrow<std::int16_t>(std::ssize(dialog.Documents));
        dialog.Documents.push_back(slot);
    }
    const auto count = Narrow<std::int16_t>(std::ssize(dialog.Documents));
    if (count > 0) dialog.Math = Narrow<std::int16_t>((dialog.Source + 1) % count);
    Preview(dialog);
    return dialog;
}

std::vector<std::string> WindowMathNames(const WindowMathDialog& dialog) {
    std::vector<std::string> names;
    for (const std::int16_t slot : dialog.Documents) names.push_back(AnalogAt(slot).Name);
    return names;
}

void ChooseSourceWindow(WindowMathDialog& dialog, std::int16_t place) {
    dialog.Source = place;
    Preview(dialog);
}
void ChooseMathWindow(WindowMathDialog& dialog, std::int16_t place) {
    dialog.Math = place;
    Preview(dialog);
}
void ChooseWindowOperation(WindowMathDialog& dialog, std::int16_t operation) {
    dialog.Operation = operation;
    Preview(dialog);
}
void ResumeWindowMath(WindowMathDialog& dialog) {
    ChooseWindowOperation(dialog, NoOperation);
}

std::string WindowMathNote(const WindowMathDialog& dialog) {
    if (dialog.Documents.empty() || dialog.Operation == NoOperation) return {};
    const AnalogWaveRecord& source = DocumentAt(dialog, dialog.Source);
    const AnalogWaveRecord& math = DocumentAt(dialog, dialog.Math);
    std::string note;
    if (math.Dots < source.Dots)
        note = WithNumbers(PickText("Dots from % on stay as they are. ", "第 % 点起保持不变。"),
                           {math.Dots});
    if (math.Vpp != source.Vpp)
        note += PickText("The windows differ in Vpp: their full scales are taken as equal. ",
                         "两个窗口的 Vpp 不同：按满幅相等运算。");
    return note + ClippedNote(dialog.Clipped, source.Dots);
}

bool ConfirmWindowMath(const WindowMathDialog& dialog) {
    if (dialog.Documents.empty() || dialog.Operation == NoOperation) return false;
    EditWholeWave(dialog.Documents[dialog.Source], [&](std::span<WaveDot> dots) {
        std::ranges::copy(dialog.PreviewDots, dots.begin());
    });
    return true;
}
