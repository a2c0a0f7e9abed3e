#include "ui/PlotPreview.h"

#include "analog/DrawAnalogWave.h"
#include "frame/Narrow.h"
#include "platform/qt/SurfaceImage.h"
#include "ui/Theme.h"

#include <algorithm>
#include <QPainter>

namespace {

constexpr std::int32_t BareSpan = 1000;  // dots of the grid that has no wave
constexpr int Inset = 8;                 // pixels around the plot, so that the rails stand free
constexpr double QuietShare = 0.7;       // of the labels' colour over the ground
constexpr QSize KeySize = {24, 12};      // pixels

// Grey, so that it stays behind a curve of any colour, and well brighter than grid and axes.
Colour QuietColour() {
    return MixColours(QColor(ScreenColours.Back), QColor(ScreenColours.Label), QuietShare).rgb() &
           0xFFFFFFU;
}

}  // namespace

PlotPreview::PlotPreview(QWidget* parent, const char* name, const QSize& least)
    : QWidget(parent), least_(least) {
    setObjectName(QLatin1String(name));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(least);
}

void PlotPreview::ShowDots(std::vector<WaveDot> dots) {
    Take(dots_, std::move(dots));
}

void PlotPreview::ShowUnder(std::span<const WaveDot> dots) {
    Take(under_, {dots.begin(), dots.end()});
}

void PlotPreview::Take(std::vector<WaveDot>& run, std::vector<WaveDot> dots) {
    run = std::move(dots);
    for (std::size_t i = 0; i < run.size(); ++i) run[i].X = static_cast<double>(i);
    stale_ = true;
    update();
}

void PlotPreview::PaintSurface(const QSize& pixels) {
    if (surface_.Width() != pixels.width() || surface_.Height() != pixels.height() ||
        surface_.Scale() != devicePixelRatioF()) {
        surface_.Create(pixels.width(), pixels.height(), devicePixelRatioF());
        stale_ = true;
    }
    if (!stale_) return;
    stale_ = false;
    const auto count = Narrow<std::int32_t>(std::max(dots_.size(), under_.size()));
    const std::int32_t last = count > 1 ? count - 1 : BareSpan;
    const WaveView view = {0, last, 1.0, -1.0};
    DrawGridAndLabels(surface_, view, true, ScreenColours, nullptr, nullptr);
    DrawWaveCurve(surface_, view, under_, true, QuietColour());
    DrawWaveCurve(surface_, view, dots_, true, ScreenColours.Curve);
}

void PlotPreview::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), CurrentChrome().line);
    painter.fillRect(rect().adjusted(1, 1, -1, -1), QColor(ScreenColours.Surround));
    const QRect inside = rect().adjusted(Inset, Inset, -Inset, -Inset);
    PaintSurface((QSizeF(inside.size()) * devicePixelRatioF()).toSize());
    if (!surface_.IsNull()) painter.drawImage(inside, ImageOf(surface_));
}

CurveKey::CurveKey(bool under, QWidget* parent) : QWidget(parent), under_(under) {
    setFixedSize(KeySize);
}

void CurveKey::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(ScreenColours.Back));
    const QColor curve(under_ ? QuietColour() : ScreenColours.Curve);
    painter.fillRect(rect().adjusted(4, 5, -4, -5), curve);
}
