// The same dots on a plot of the same size by QCustomPlot, with grid, axes and labels; only built
// where it is installed. Adaptive sampling is on and the pen has one pixel, its quickest. The
// widget stays hidden: a replot ends in its own buffer, as ours ends on its surface.
#include "bench/MillionDots.h"

#include <benchmark/benchmark.h>

#include <qcustomplot.h>
#include <algorithm>

namespace {

// Blue in the middle row; grid, axes and the ground are grey.
bool ShowsCurve(QCustomPlot& plot) {
    const QImage picture = plot.grab().toImage();
    const int row = plot.axisRect()->top() + PlotHeight / 2;
    for (int x = plot.axisRect()->left(); x <= plot.axisRect()->right(); ++x) {
        const QColor colour = picture.pixelColor(x, row);
        if (colour.blue() - colour.red() > 100) return true;
    }
    return false;
}

void FullRedrawPeer(benchmark::State& state, Shape shape) {
    const AnalogWaveRecord& wave = OpenMillionDots(shape);
    QVector<QCPGraphData> data(MillionDots);
    std::ranges::transform(wave.DotArray, data.begin(),
                           [](const WaveDot& dot) { return QCPGraphData(dot.X, dot.Y); });
    QCustomPlot plot;
    plot.resize(PlotWidth + WaveMarginWidth, PlotHeight + WaveMarginHeight);
    plot.setViewport(plot.rect());
    plot.axisRect()->setAutoMargins(QCP::msNone);
    plot.axisRect()->setMargins({WaveMarginWidth, 0, 0, WaveMarginHeight});
    plot.addGraph()->data()->set(data, true);
    plot.xAxis->setRange(0, MillionDots);
    plot.yAxis->setRange(-1.0, 1.0);
    for (auto _ : state) {
        plot.replot(QCustomPlot::rpImmediateRefresh);
        benchmark::ClobberMemory();
    }
    if (plot.axisRect()->size() != QSize(PlotWidth, PlotHeight) || !ShowsCurve(plot))
        state.SkipWithError("no curve on the plot");
}

BENCHMARK_CAPTURE(FullRedrawPeer, Sine, Shape::Sine);
BENCHMARK_CAPTURE(FullRedrawPeer, Noise, Shape::Noise);

}  // namespace
