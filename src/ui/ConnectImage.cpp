#include "ui/ConnectImage.h"

#include "link/LinkWork.h"
#include "ui/Theme.h"

#include <QHBoxLayout>
#include <QToolButton>

namespace {

constexpr int Period = 100;  // milliseconds
constexpr int Phases = 4;
constexpr QSize PictureSize = {24, 24};

}  // namespace

ConnectImage::ConnectImage(QToolButton* button) : QLabel(button) {
    setObjectName(QStringLiteral("ConnectImg"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAlignment(Qt::AlignCenter);
    auto* whole = new QHBoxLayout(button);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(this);
    timer_.setParent(this);
    timer_.setObjectName(QStringLiteral("TimerConnect"));
    timer_.setInterval(Period);
    timer_.callOnTimeout(this, &ConnectImage::Step);
    hide();
}

void ConnectImage::ShowLink() {
    if (Link.IsConnected == timer_.isActive()) return;
    phase_ = Phases - 1;
    if (Link.IsConnected) timer_.start();
    Step();
}

void ConnectImage::Step() {
    if (!Link.IsConnected) {
        timer_.stop();
        hide();
        return;
    }
    phase_ = (phase_ + 1) % Phases;
    setPixmap(ThemedIcon(QStringLiteral("Activity%1").arg(phase_))
                  .pixmap(PictureSize, devicePixelRatioF(), QIcon::Normal, QIcon::On));
    show();
}
