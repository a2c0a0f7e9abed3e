#include "ui/WaveFrm.h"

#include "analog/DrawAnalogWave.h"
#include "frame/GlobalDefineCode.h"
#include "ui/WavePic.h"

#include <cmath>
#include <QLayout>
#include <QResizeEvent>

WaveFrm::WaveFrm(std::int16_t slot, QWidget* parent) : DocumentWindow(parent), slot_(slot) {
    setObjectName("WaveFrm");
    plot_ = new WavePic(slot, this);
    SetContent(plot_);
    ApplyTexts();
}

void WaveFrm::ShowTitle() {
    const AnalogWaveRecord& wave = AnalogAt(slot_);
    const QString name = QString::fromStdString(wave.Name);
    SetTitle(wave.Modified ? name + QString::fromUtf8(" •") : name);
}

void WaveFrm::LayOut() {
    layout()->activate();
    const double scale = devicePixelRatioF();
    const auto pixels = [scale](int logical) {
        return static_cast<std::int32_t>(std::lround(logical * scale));
    };
    LayoutAnalogSurfaces(AnalogAt(slot_), pixels(plot_->width() - LabelGutter),
                         pixels(plot_->height()), scale);
}

// A minimised window shows nothing of the plot; the surfaces wait as they are.
void WaveFrm::FollowSize() {
    if (!DocReady || !AnalogInUse[static_cast<std::size_t>(slot_)]) return;
    if (ShownState() == State::Minimised) return;
    LayOut();
    RepaintAnalog(slot_, true);
}

void WaveFrm::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    FollowSize();
}

// A window that moves to a screen with another scale needs sharp surfaces again.
bool WaveFrm::event(QEvent* event) {
    if (event->type() == QEvent::ScreenChangeInternal) FollowSize();
    return QWidget::event(event);
}
