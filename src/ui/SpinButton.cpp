#include "ui/SpinButton.h"

#include "ui/Theme.h"

SpinButton::SpinButton(bool up, QWidget* parent) : QToolButton(parent) {
    setProperty("spin", true);
    setIcon(ThemedIcon(up ? QStringLiteral("SpinUp") : QStringLiteral("SpinDown")));
    setIconSize(QSize(16, 16));
    // Taking the focus makes the box beside it hand over what was typed, before the first step.
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QToolButton::pressed, this, &SpinButton::Begin);
    connect(this, &QToolButton::released, &timer_, &QTimer::stop);
    connect(&timer_, &QTimer::timeout, this, &SpinButton::Repeat);
}

void SpinButton::Begin() {
    count_ = 1;
    timer_.start(FirstDelay);
    emit tick(count_);
}

void SpinButton::Repeat() {
    if (!isDown() || !isEnabled()) {
        timer_.stop();
        return;
    }
    timer_.setInterval(NextDelay);
    emit tick(++count_);
}
