#include "analog/PrintAnalogWave.h"

#include "analog/DrawAnalogWave.h"
#include "frame/GlobalDefineCode.h"
#include "frame/KeepAside.h"
#include "frame/Narrow.h"

#include <algorithm>

// Everything is painted once, so that two surfaces do: the plot, and the picture, which takes the
// labels first and the plot at the end. At 600 dots per inch each has some 45 megabytes.

const PlotColours PrintColours = {.Surround = 0xFFFFFF,
                                  .Back = 0xFFFFFF,
                                  .Grid = 0xB0B0B0,
                                  .Axis = 0x000000,
                                  .Label = 0x000000,
                                  .Curve = 0x000000,
                                  .Limit = 0x000000,
                                  .Mark = 0x000000,
                                  .Pointer = 0x000000,
                                  .LinePen = 1.0};

namespace {

bool CanBeSeen(const AnalogWaveRecord& wave) {
    return wave.Dots > 0 && wave.ViewEnd > wave.ViewStart && wave.ViewTop > wave.ViewBottom;
}

}  // namespace

bool PaintForPrint(AnalogWaveRecord& wave, std::int32_t width, std::int32_t height, double scale,
                   Surface& picture) {
    const std::int32_t plotWidth = Scaled(width - LabelGutter - WaveMarginWidth, scale);
    const std::int32_t plotHeight = Scaled(height - WaveMarginHeight, scale);
    Surface plot;
    if (!picture.Create(Scaled(width, scale), Scaled(height, scale), scale) ||
        !plot.Create(plotWidth, plotHeight, scale)) {
        picture.Free();
        return false;
    }
    const KeepAside kept(wave.PrintMode, wave.XLimitLeft, wave.XLimitRight, wave.YLimitTop,
                         wave.YLimitBottom);
    wave.PrintMode = true;
    ScaleLimits(wave, plotWidth, plotHeight);
    const bool seen = CanBeSeen(wave);
    const WaveView view =
        seen ? ViewOf(wave) : WaveView{0, std::max(wave.MaxDots - 1, 0), 1.0, -1.0};
    const PixelPoint origin = PlotOrigin(scale);
    const GridLabels labels = {wave.Vpp, wave.Period, wave.MaxDots, wave.TimeAxisOn, origin};
    DrawGridAndLabels(plot, view, wave.GridOn, ColoursOf(wave), &picture, &labels);
    if (seen) {
        DrawLimitLines(wave, plot, ColoursOf(wave));
        DrawMarksAndCurve(wave, view, plot);
    }
    picture.CopyFrom(plot, origin.X, origin.Y);
    return true;
}
