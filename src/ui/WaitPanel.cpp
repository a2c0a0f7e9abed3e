#include "ui/WaitPanel.h"

#include "link/LinkWork.h"
#include "platform/qt/QtText.h"
#include "ui/Controls.h"
#include "ui/HintLabel.h"
#include "ui/LinkWait.h"
#include "ui/Theme.h"

#include <QGridLayout>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

namespace {

constexpr int TextHeight = 20;  // whatever the script, whose fonts differ in height
constexpr int BarHeight = 4;
constexpr QSize ButtonSize = {88, 28};
constexpr int Gap = 8, LineGap = 2, Margin = 12;

// A share of 0..100, or, with an empty range, a piece that moves while events run.
class ThinBar final : public QProgressBar {
public:
    explicit ThinBar(QWidget* parent) : QProgressBar(parent) {
        setTextVisible(false);
        // The style's least height is that of a bar with a text.
        setStyleSheet(
            QStringLiteral("min-height: %1px; max-height: %1px; border: 0;").arg(BarHeight));
        timer_.setInterval(Period);
        timer_.callOnTimeout(this, [this] { update(); });
    }

protected:
    void showEvent(QShowEvent*) override { timer_.start(); }
    void hideEvent(QHideEvent*) override { timer_.stop(); }
    void paintEvent(QPaintEvent*) override {
        const ChromePalette& chrome = CurrentChrome();
        QPainter painter(this);
        painter.fillRect(rect(), chrome.line);
        const int left = maximum() == 0 ? place_ * (width() + Piece) / Places - Piece : 0;
        const int length = maximum() == 0 ? Piece : value() * width() / maximum();
        painter.fillRect(left, 0, length, height(), chrome.accent);
        place_ = (place_ + 1) % Places;
    }

private:
    static constexpr int Period = 40;  // milliseconds
    static constexpr int Places = 50;  // steps from side to side: two seconds
    static constexpr int Piece = 48;   // pixels

    QTimer timer_;
    int place_ = Places / 2;
};

}  // namespace

WaitPanel::WaitPanel(Place place, const char* bar, QWidget* parent) : QWidget(parent) {
    awaited_ = new HintLabel(this);
    awaited_->setObjectName(QStringLiteral("AwaitedTxt"));
    awaited_->setTextFormat(Qt::PlainText);
    awaited_->setFixedHeight(TextHeight);
    awaited_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    bar_ = new ThinBar(this);
    bar_->setObjectName(QLatin1String(bar));
    cancel_ = MakeCancelWait(this);
    cancel_->setFixedSize(ButtonSize);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(Gap);
    grid->setVerticalSpacing(LineGap);
    grid->setColumnStretch(0, 1);
    if (place == Place::Dialog) {
        grid->addWidget(awaited_, 0, 0, 1, -1);
        grid->addWidget(bar_, 1, 0);
        grid->addWidget(cancel_, 1, 1);
    } else {
        grid->addWidget(awaited_, 0, 0, Qt::AlignBottom);
        grid->addWidget(bar_, 1, 0, Qt::AlignTop);
        grid->addWidget(cancel_, 0, 1, 2, 1);
        grid->setContentsMargins(Margin, 0, 0, 0);
    }
    for (QWidget* part : {static_cast<QWidget*>(bar_), static_cast<QWidget*>(cancel_)})
        KeepPlace(part);
    ShowWork(false);
}

void WaitPanel::AddButton(QPushButton* button) {
    auto* grid = static_cast<QGridLayout*>(layout());
    grid->addWidget(button, 1, grid->columnCount());
}

void WaitPanel::ShowWork(bool working) {
    awaited_->setText(working ? ToQt(Link.Awaited) : QString());
    bar_->setRange(0, Link.ProgressShown ? 100 : 0);  // an empty range moves
    bar_->setValue(Link.ProgressValue);
    bar_->setVisible(working);
    cancel_->setVisible(working);
}

void WaitPanel::ApplyTexts(const QString& button, const QString& tip) {
    cancel_->setText(button);
    cancel_->setToolTip(tip);
}
