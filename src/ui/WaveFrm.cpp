#include "ui/WaveFrm.h"

#include "analog/AnalogDocument.h"
#include "analog/DrawAnalogWave.h"
#include "files/FileOptFuncCode.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/StringFunc.h"
#include "platform/qt/QtText.h"
#include "ui/WavePic.h"

#include <cmath>
#include <QLayout>

WaveFrm::WaveFrm(std::int16_t slot, QWidget* parent) : DocumentWindow(slot, parent) {
    setObjectName("WaveFrm");
    plot_ = new WavePic(slot, this);
    SetContent(plot_);
    connect(plot_, &WavePic::PointerMoved, this, &DocumentWindow::PointerMoved);
    connect(plot_, &WavePic::ContextAsked, this, [this](QPoint global) {
        emit ContextAsked(AnalogAt(Slot()).HasSelection ? "MnuSelect" : "MnuIdle", global);
    });
    ApplyTexts();
}

void WaveFrm::ShowTitle() {
    const AnalogWaveRecord& wave = AnalogAt(Slot());
    SetTitle(wave.Name, bool(wave.Modified));
    const auto text = [](const char* name) { return ToQt(TextOf("WaveFrm", name)); };
    QString told =
        text("Description")
            .arg(ToQt(wave.Name), QString::number(wave.Dots), QString::number(wave.MaxDots),
                 ToQt(VoltToText(wave.Vpp)), ToQt(TimeToText(wave.Period)));
    if (wave.HasSelection) told += text("Selected").arg(wave.SelStart).arg(wave.SelEnd);
    plot_->setAccessibleName(text("WavePic"));
    plot_->setAccessibleDescription(told);
}

void WaveFrm::LayOut() {
    layout()->activate();
    const double scale = devicePixelRatioF();
    const auto pixels = [scale](int logical) {
        return static_cast<std::int32_t>(std::lround(logical * scale));
    };
    LayoutAnalogSurfaces(AnalogAt(Slot()), pixels(plot_->width() - LabelGutter),
                         pixels(plot_->height()), scale);
}

void WaveFrm::ShowToolCursor() {
    plot_->ShowToolCursor();
}

QWidget* WaveFrm::Picture() const {
    return plot_;
}

bool WaveFrm::IsOpen() const {
    return bool(AnalogInUse[static_cast<std::size_t>(Slot())]);
}

bool WaveFrm::IsChanged() const {
    return bool(AnalogAt(Slot()).Modified);
}

bool WaveFrm::QueryClose() {
    return QueryCloseDocument(Slot(), SaveAnalog);
}

void WaveFrm::Closed() {
    DocumentClosed(Slot());
}

void WaveFrm::Repaint() {
    RepaintAnalog(Slot(), true);
}
