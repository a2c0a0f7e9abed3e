#include "ui/PlotPreview.h"

#include "analog/DrawAnalogWave.h"
#include "frame/Narrow.h"
#include "platform/qt/SurfaceImage.h"
#include "ui/Theme.h"

#include <QPainter>

namespace {

constexpr std::int32_t BareSpan = 1000;  // dots of the grid that has no wave
constexpr int Inset = 8;                 // pixels around the plot, so that the rails stand free

}  // namespace

PlotPreview::PlotPreview(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("PicPreview"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(sizeHint());
}

void PlotPreview::ShowDots(std::vector<WaveDot> dots) {
    dots_ = std::move(dots);
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
    const auto count = Narrow<std::int32_t>(dots_.size());
    const std::int32_t last = count > 1 ? count - 1 : BareSpan;
    const WaveView view = {0, last, 1.0, -1.0};
    DrawGridAndLabels(surface_, view, true, ScreenColours, nullptr, nullptr);
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
