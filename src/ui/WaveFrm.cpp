#include "ui/WaveFrm.h"

#include "analog/DrawAnalogWave.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "platform/qt/QtText.h"
#include "ui/Theme.h"
#include "ui/WavePic.h"

#include <cmath>
#include <QHBoxLayout>
#include <QLabel>
#include <QResizeEvent>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int TitleHeight = 32;

AnalogWaveRecord& RecordOf(std::int16_t slot) {
    return AnalogDocs[static_cast<std::size_t>(slot)];
}

QString Text(std::string_view control) {
    return ToQt(TextOf("WaveFrm", control));
}

}  // namespace

WaveFrm::WaveFrm(std::int16_t slot, QWidget* parent) : QWidget(parent), slot_(slot) {
    setObjectName("WaveFrm");
    title_ = new QLabel(this);
    title_->setObjectName("lblTitle");
    title_->setTextFormat(Qt::PlainText);
    QFont bold = title_->font();
    bold.setBold(true);
    title_->setFont(bold);
    close_ = new QToolButton(this);
    close_->setObjectName("ExtBtn");
    close_->setIcon(ThemedIcon("Close"));
    close_->setIconSize(QSize(16, 16));
    close_->setFixedSize(24, 24);
    connect(close_, &QToolButton::clicked, this, &WaveFrm::ClosePressed);
    plot_ = new WavePic(slot, this);
    auto* caption = new QWidget(this);
    caption->setFixedHeight(TitleHeight);
    auto* row = new QHBoxLayout(caption);
    row->setContentsMargins(12, 0, 8, 0);
    row->addWidget(title_);
    row->addStretch(1);
    row->addWidget(close_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(caption);
    column->addWidget(plot_, 1);
    setFocusProxy(plot_);
    ApplyTexts();
}

void WaveFrm::ShowTitle() {
    const AnalogWaveRecord& wave = RecordOf(slot_);
    const QString name = QString::fromStdString(wave.Name);
    title_->setText(wave.Modified ? name + QString::fromUtf8(" •") : name);
    setWindowTitle(title_->text());
}

void WaveFrm::ApplyTexts() {
    close_->setToolTip(Text("ExtBtn"));
    close_->setAccessibleName(Text("ExtBtn"));
    update();
}

void WaveFrm::LayOut() {
    layout()->activate();
    const double scale = devicePixelRatioF();
    const auto pixels = [scale](int logical) {
        return static_cast<std::int32_t>(std::lround(logical * scale));
    };
    LayoutAnalogSurfaces(RecordOf(slot_), pixels(plot_->width() - LabelGutter),
                         pixels(plot_->height()), scale);
}

void WaveFrm::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!DocReady || !AnalogInUse[static_cast<std::size_t>(slot_)]) return;
    LayOut();
    RepaintAnalog(slot_, true);
}

// A window that moves to a screen with another scale needs sharp surfaces again.
bool WaveFrm::event(QEvent* event) {
    if (event->type() == QEvent::ScreenChangeInternal) {
        QResizeEvent same(size(), size());
        resizeEvent(&same);
    }
    return QWidget::event(event);
}
