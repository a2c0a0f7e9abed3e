#include "bench/MillionDots.h"

#include "analog/AnalogDocument.h"
#include "analog/DrawAnalogWave.h"
#include "files/FileOptFuncCode.h"
#include "platform/SafeFile.h"

#include <benchmark/benchmark.h>
#include <QApplication>

#include <algorithm>
#include <string_view>

namespace {

enum StandardKind : std::int32_t { KindSine = 0, KindNoise = 6 };
constexpr std::int32_t SineCycles = 100;
constexpr std::string_view TextOption = "--text=";

void FillWave(AnalogWaveRecord& wave, Shape shape) {
    wavecalc_seed(1);
    drawcurves(wave.DotArray.data(), 0, MillionDots, shape == Shape::Sine ? KindSine : KindNoise,
               2.0F, 0.0F, SineCycles, 0.0F, 50, 0, 0, 50, 1, 0.0F);
    wave.Dots = MillionDots;
    wave.LastDot = MillionDots - 1;
    wave.Segments.assign(1, {});
    wave.Segments[0].EndDot = MillionDots - 1;
    wave.Segments[0].DotCount = MillionDots;
    wave.SegmentCount = 1;
}

}  // namespace

AnalogWaveRecord& OpenMillionDots(Shape shape) {
    InitialiseGlobals();
    AnalogWaveRecord& wave = AnalogDocs[0];
    wave.Vpp = 10.0;
    wave.Period = 1e-3;
    wave.Quantify = 14;
    wave.Name = "Waveform0";
    AllocateDots(wave, MillionDots);
    ResetDocumentState(wave);
    ShowWholeWave(wave);
    FillWave(wave, shape);
    wave.InUse = true;
    AnalogInUse[0] = true;
    AnalogDocCount = 1;
    ActiveAnalogIndex = 0;
    DocReady = true;
    LayoutAnalogSurfaces(wave, PlotWidth + WaveMarginWidth, PlotHeight + WaveMarginHeight, 1.0);
    RepaintAnalog(0, true);
    return wave;
}

Bounds PlainBounds(std::span<const WaveDot> dots) {
    Bounds found{dots[0].Y, dots[0].Y};
    for (const WaveDot& dot : dots) {
        found.Low = std::min(found.Low, dot.Y);
        found.High = std::max(found.High, dot.Y);
    }
    return found;
}

// Texts on surfaces need fonts, and fonts need an application; the peer's plot is a widget. With
// --text=PATH the program only writes the text file that figures and other programs read.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc == 2 && std::string_view(argv[1]).starts_with(TextOption)) {
        const std::string path = argv[1] + TextOption.size();
        return WriteFileSafely(path, WriteAnalogText(OpenMillionDots(Shape::Noise)));
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
