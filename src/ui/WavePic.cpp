#include "ui/WavePic.h"

#include "analog/DrawAnalogWave.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "platform/qt/QtText.h"
#include "platform/qt/SurfaceImage.h"

#include <QContextMenuEvent>
#include <QPainter>

namespace {

AnalogWaveRecord& RecordOf(std::int16_t slot) {
    return AnalogDocs[static_cast<std::size_t>(slot)];
}

}  // namespace

WavePic::WavePic(std::int16_t slot, QWidget* parent) : QWidget(parent), slot_(slot) {
    setObjectName("WavePic");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
}

void WavePic::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const AnalogWaveRecord& wave = RecordOf(slot_);
    const double scale = devicePixelRatioF();
    painter.save();
    painter.scale(1.0 / scale, 1.0 / scale);
    painter.drawImage(0, 0, ImageOf(wave.BackSurface));
    const PixelPoint plot = PlotOrigin(scale);
    painter.drawImage(plot.X, plot.Y, ImageOf(wave.PlotSurface));
    painter.restore();
    if (wave.InUse && wave.Dots == 0) PaintHint(painter);
}

// A new document says what to do next, between two grid lines and quietly.
void WavePic::PaintHint(QPainter& painter) {
    const QColor dim = QColor::fromRgb(ScreenColours.Label);
    painter.setPen(dim);
    QFont font = painter.font();
    font.setPixelSize(15);
    painter.setFont(font);
    const QRect area = rect().adjusted(LabelGutter + WaveAreaLeft, WaveAreaTop, -38, -28);
    painter.drawText(area.adjusted(0, 0, 0, -area.height() * 3 / 8), Qt::AlignCenter,
                     ToQt(TextOf("WaveFrm", "hint")));
}

void WavePic::contextMenuEvent(QContextMenuEvent* event) {
    emit ContextAsked(event->globalPos());
}
