#include "calculus/RunEdit.h"

#include "analog/EditFuncBox.h"
#include "analog/SegmentEngine.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/StringFunc.h"

#include <algorithm>

std::int32_t SelectionLength(const AnalogWaveRecord& wave) {
    return wave.HasSelection ? wave.SelEnd - wave.SelStart + 1 : 0;
}

std::int32_t RoomOf(const AnalogWaveRecord& wave) {
    return wave.MaxDots - wave.Dots + SelectionLength(wave);
}

std::span<WaveDot> SelectedDots(AnalogWaveRecord& wave) {
    if (!wave.HasSelection) return {};  // the bounds are those of an earlier one
    return std::span(wave.DotArray).subspan(wave.SelStart, SelectionLength(wave));
}

std::span<WaveDot> WholeWave(AnalogWaveRecord& wave) {
    return std::span(wave.DotArray).first(wave.Dots);
}

void ResizeSelection(AnalogWaveRecord& wave, std::int32_t count) {
    MoveTail(wave, wave.SelEnd + 1, wave.SelStart + count);
    const Flag picked = wave.SegmentPicked;
    SelectDots(wave, wave.SelStart, wave.SelStart + count - 1);
    wave.SegmentPicked = picked;  // it falls at the end of the edit where the run is no segment
}

void EditSelection(const DotTransform& transform) {
    AnalogWaveRecord& wave = ActiveAnalog();
    if (!wave.HasSelection) return;
    BeginEdit(wave);
    transform(SelectedDots(wave));
    MarkRunCustom(wave, SelectionLength(wave));
    ResizeSelection(wave, SelectionLength(wave));
    EndEdit(ActiveAnalogIndex);
}

void EditWholeWave(std::int16_t index, const DotTransform& transform) {
    AnalogWaveRecord& wave = AnalogAt(index);
    BeginEdit(wave);
    transform(WholeWave(wave));
    CollapseSegments(wave);
    EndEdit(index);
}

void ClipDots(std::span<WaveDot> dots) {
    for (WaveDot& dot : dots) dot.Y = std::clamp(dot.Y, -1.0, 1.0);
}

std::string ClippedNote(std::int32_t clipped, std::int32_t count) {
    if (clipped == 0) return {};
    return WithNumbers(PickText("% of % values lie beyond the rails and are clipped.",
                                "% 个值（共 % 个）超出幅度范围，将被限幅。"),
                       {clipped, count});
}
