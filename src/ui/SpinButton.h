#pragma once
// A small button that repeats while it is held. It counts its ticks from the press, so that the
// rules behind it can let the step grow.
#include <QTimer>
#include <QToolButton>

class SpinButton : public QToolButton {
    Q_OBJECT
public:
    static constexpr int FirstDelay = 400;  // milliseconds from the press to the second tick
    static constexpr int NextDelay = 80;    // milliseconds between later ticks

    SpinButton(bool up, QWidget* parent);

signals:
    /// `count` is 1 at the press and grows by one with each repeat.
    void tick(int count);

private:
    void Begin();
    void Repeat();

    QTimer timer_;
    int count_ = 0;
};
