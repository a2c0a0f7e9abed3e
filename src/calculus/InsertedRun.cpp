#include "calculus/InsertedRun.h"

#include <algorithm>

std::int32_t SelectionLength(const AnalogWaveRecord& wave) {
    return wave.HasSelection ? wave.SelEnd - wave.SelStart + 1 : 0;
}

std::int32_t RoomOf(const AnalogWaveRecord& wave) {
    return wave.MaxDots - wave.Dots + SelectionLength(wave);
}

void MoveTail(AnalogWaveRecord& wave, std::int32_t from, std::int32_t to) {
    const auto dots = wave.DotArray.begin();
    if (to > from) {
        std::copy_backward(dots + from, dots + wave.Dots, dots + wave.Dots + (to - from));
    } else if (to < from) {
        std::copy(dots + from, dots + wave.Dots, dots + to);
    } else {
        return;
    }
    wave.Dots += to - from;
    for (std::int32_t dot = to; dot < wave.Dots; ++dot) dots[dot].X = dot;
}
