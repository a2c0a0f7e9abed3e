#include "analog/PrintAnalogWave.h"

#include "analog/DrawAnalogWave.h"
#include "frame/GlobalDefineCode.h"
#include "frame/KeepAside.h"
#include "frame/Narrow.h"

#include <algorithm>

// Everything is painted once, so that two surfaces do: the plot, and the picture, which takes the
// labels first and the plot at the end. At 600 dots per inch each has some 45 megabytes.

namespace {

bool CanBeSeen(const AnalogWaveRecord& wave) {
    return wave.Dots > 0 && wave.ViewEnd > wave.ViewStart && wave.ViewTop > wave.ViewBottom;
}

// The lines keep their place in the plot.
void ScaleLimits(AnalogWaveRecord& wave, const Surface& plot) {
    if (wave.PlotWidth <= 0 || wave.PlotHeight <= 0) return;
    const float across = static_cast<float>(plot.Width()) / static_cast<float>(wave.PlotWidth);
    const float down = static_cast<float>(plot.Height()) / static_cast<float>(wave.PlotHeight);
    for (float* column : {&wave.XLimitLeft, &wave.XLimitRight}) *column *= across;
    for (float* row : {&wave.YLimitTop, &wave.YLimitBottom}) *row *= down;
}

void DrawWave(const AnalogWaveRecord& wave, const WaveView& view, Surface& plot) {
    const PlotColours& colours = ColoursOf(wave);
    DrawLimitLines(wave, plot, colours);
    if (wave.SegmentMarkOn)
        DrawSegmentMarks(
            plot, view, std::span(wave.Segments).first(static_cast<std::size_t>(wave.SegmentCount)),
            colours.Mark);
    DrawWaveCurve(plot, view, std::span(wave.DotArray).first(static_cast<std::size_t>(wave.Dots)),
                  wave.DotLinkOn, colours.Curve, colours.LinePen);
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
    ScaleLimits(wave, plot);
    const bool seen = CanBeSeen(wave);
    const WaveView view =
        seen ? ViewOf(wave) : WaveView{0, std::max(wave.MaxDots - 1, 0), 1.0, -1.0};
    const PixelPoint origin = PlotOrigin(scale);
    const GridLabels labels = {wave.Vpp, wave.Period, wave.MaxDots, wave.TimeAxisOn, origin};
    DrawGridAndLabels(plot, view, wave.GridOn, ColoursOf(wave), &picture, &labels);
    if (seen) DrawWave(wave, view, plot);
    picture.CopyFrom(plot, origin.X, origin.Y);
    return true;
}
