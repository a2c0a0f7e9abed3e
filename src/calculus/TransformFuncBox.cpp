#include "calculus/TransformFuncBox.h"

#include "calculus/RunEdit.h"
#include "frame/GlobalDefineCode.h"
#include "frame/Narrow.h"

#include <algorithm>
#include <cmath>

namespace {

// The windows have always been computed with these eight digits. They stay, so that a wave made
// today equals one made earlier to the last bit.
constexpr double Pi = 3.1415926;

// Amplitude at a row of a plot of `height` pixels that shows -1..1, whatever the zoom.
double LimitAtRow(float row, std::int32_t height) {
    return std::clamp((0.5 - static_cast<double>(row) / height) * 2.0, -1.0, 1.0);
}

// Scales the dots first..last of the wave by the taper of Extend Cosine.
void Taper(std::span<WaveDot> dots, std::int32_t first, std::int32_t last) {
    const auto end = static_cast<double>(std::ssize(dots) - 1);
    for (std::int32_t i = first; i <= last; ++i)
        dots[i].Y *= 0.5 * (1.0 - std::cos(2.0 * Pi * 5.0 * i / end));
}

}  // namespace

void AbsoluteDots(std::span<WaveDot> dots) {
    for (WaveDot& dot : dots) dot.Y = std::abs(dot.Y);
}

void InvertDots(std::span<WaveDot> dots) {
    for (WaveDot& dot : dots) dot.Y = 0.0 - dot.Y;
}

void MirrorDots(std::span<WaveDot> dots) {
    const std::size_t count = dots.size();
    for (std::size_t k = 0; k < count / 2; ++k) std::swap(dots[k].Y, dots[count - 1 - k].Y);
}

void ExtendCosineDots(std::span<WaveDot> dots) {
    const auto last = Narrow<std::int32_t>(std::ssize(dots) - 1);
    Taper(dots, 0, RoundToInt(last / 10.0));
    Taper(dots, RoundToInt(last * 9.0 / 10.0), last);
}

void RaisedCosineDots(std::span<WaveDot> dots) {
    const auto last = static_cast<double>(std::ssize(dots) - 1);
    double i = 0.0;
    for (WaveDot& dot : dots) dot.Y = dot.Y * 0.5 * (1.0 - std::cos(2.0 * Pi * i++ / last));
}

void HammingDots(std::span<WaveDot> dots) {
    const auto last = static_cast<double>(std::ssize(dots) - 1);
    double i = 0.0;
    for (WaveDot& dot : dots) dot.Y *= 0.08 + 0.46 * (1.0 - std::cos(2.0 * Pi * i++ / last));
}

void CutSelection() {
    const AnalogWaveRecord& wave = ActiveAnalog();
    if (!wave.YLimitOn || wave.PlotHeight < 1) return;
    const auto [top, bottom] = std::minmax({wave.YLimitTop, wave.YLimitBottom});
    const double high = LimitAtRow(top, wave.PlotHeight);
    const double low = LimitAtRow(bottom, wave.PlotHeight);
    EditSelection([=](std::span<WaveDot> dots) {
        for (WaveDot& dot : dots) dot.Y = std::clamp(dot.Y, low, high);
    });
}

void ApplyWindow(void (*window)(std::span<WaveDot>)) {
    if (ActiveAnalog().Dots >= LeastWholeWave) EditWholeWave(ActiveAnalogIndex, window);
}
