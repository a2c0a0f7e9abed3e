#include "ui/StatusStrip.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QStackedWidget>

namespace {

struct PanelRow {
    const char* Panel;
    const char* Label;
};

constexpr PanelRow Panels[] = {
    {"picIdle", "lblIdleMessage"},
    {"picSelect", "lblSelectDataMessage"},
    {"picEditDot", "lblEditDotMessage"},
    {"picLineDraw", "lbLineDrawEnterMessage"},
    {"PicZoom", "lblZoomHVMessage"},
    {"picZoomH", "lblZoomHMessage"},
    {"picZoomV", "lblZoomVMessage"},
    {"picZoomCenter", "lblZoomCenterMessage"},
    {"picDigitFind_Edit", "lblFind_Edit_Message"},
    {"picDigitDispTimeBar", "lblDigitIdleMessage"},
};

constexpr int StripHeight = 36;
constexpr qint64 Moment = 200;  // milliseconds of work before the bar shows

}  // namespace

StatusStrip::StatusStrip(QWidget* parent) : QWidget(parent) {
    setObjectName("StatusStrip");
    setAttribute(Qt::WA_StyledBackground);
    setFixedHeight(StripHeight);
    panels_ = new QStackedWidget(this);
    for (const PanelRow& row : Panels) {
        auto* panel = new QWidget(panels_);
        panel->setObjectName(row.Panel);
        auto* label = new QLabel(panel);
        label->setObjectName(row.Label);
        auto* line = new QHBoxLayout(panel);
        line->setContentsMargins(0, 0, 0, 0);
        line->addWidget(label);
        line->addStretch(1);
        panels_->addWidget(panel);
    }
    progress_ = new QProgressBar(this);
    progress_->setObjectName("prgWork");
    progress_->setFixedWidth(220);
    progress_->setTextVisible(true);
    QSizePolicy policy = progress_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    progress_->setSizePolicy(policy);
    progress_->hide();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 4, 12, 4);
    row->setSpacing(12);
    row->addWidget(panels_, 1);
    row->addWidget(progress_);
}

void StatusStrip::ShowText(const QString& label, const QString& text) {
    auto* target = panels_->findChild<QLabel*>(label);
    if (target == nullptr) return;
    target->setText(text);
    panels_->setCurrentWidget(target->parentWidget());
}

bool StatusStrip::ShowProgress(qint64 done, qint64 total) {
    if (total <= 0) {
        const bool shown = progress_->isVisible();
        progress_->hide();
        since_.invalidate();
        return shown;
    }
    if (!since_.isValid()) since_.start();
    if (since_.elapsed() < Moment) return false;
    const int percent = static_cast<int>(done * 100 / total);
    if (progress_->isVisible() && progress_->value() == percent) return false;
    progress_->setValue(percent);
    progress_->show();
    return true;
}
