#include "calculus/WaveMathFuncBox.h"

#include "calculus/RunEdit.h"
#include "calculus/StandardWaveFuncBox.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/StringFunc.h"

#include <algorithm>

namespace {

void Combine(WaveMathDialog& dialog) {
    dialog.Clipped = CombineDots(SelectedDots(ActiveAnalog()), dialog.MathSourceDots,
                                 dialog.MathOperation, dialog.MathResultDots);
}

}  // namespace

WaveMathDialog OpenWaveMath() {
    WaveMathDialog dialog;
    TakeClipboard(dialog);
    return dialog;
}

void TakeClipboard(WaveMathDialog& dialog) {
    dialog.Source = ClipBoardSource;
    const std::int32_t length = SelectionLength(ActiveAnalog());
    dialog.MathSourceDots.assign(static_cast<std::size_t>(length), {});
    for (std::int32_t i = 0; i < length; ++i)
        dialog.MathSourceDots[i] = {double(i), i < ClipDotCount ? ClipValues[i] : 0.0};
    Combine(dialog);
}

void TakeStandardWave(WaveMathDialog& dialog, const WaveSegment& wave) {
    dialog.Source = StandardWaveSource;
    dialog.Wave = wave;
    const std::int32_t length = SelectionLength(ActiveAnalog());
    dialog.MathSourceDots.resize(static_cast<std::size_t>(length));
    GenerateWave(wave, ActiveAnalog().Vpp, dialog.MathSourceDots.data(), 0, length);
    Combine(dialog);
}

void ChooseMathOperation(WaveMathDialog& dialog, std::int16_t operation) {
    dialog.MathOperation = operation;
    Combine(dialog);
}

void ResumeWaveMath(WaveMathDialog& dialog) {
    ChooseMathOperation(dialog, NoOperation);
}

std::string WaveMathNote(const WaveMathDialog& dialog) {
    std::string note;
    const std::int32_t length = SelectionLength(ActiveAnalog());
    if (dialog.Source == ClipBoardSource && ClipDotCount < length)
        note = WithNumbers(PickText("The clipboard covers % of % dots; the rest counts as 0 V. ",
                                    "剪贴板仅有 % 个点（共需 % 个），其余按 0 V 处理。"),
                           {ClipDotCount, length});
    return note + ClippedNote(dialog.Clipped, length);
}

bool ConfirmWaveMath(const WaveMathDialog& dialog) {
    if (dialog.MathOperation == NoOperation || !ActiveAnalog().HasSelection) return false;
    if (dialog.Source == StandardWaveSource && dialog.Wave) SaveWaveSettings(*dialog.Wave);
    EditSelection([&](std::span<WaveDot> dots) {
        std::copy_n(dialog.MathResultDots.begin(), dots.size(), dots.begin());
    });
    return true;
}
